// SPDX-License-Identifier: MIT
// The table of steps, row by row: label, register, percentage, encoder and decoder, who is read.
#include "protocol/Steps.h"

#include <gtest/gtest.h>

#include "protocol/Encoders.h"
#include "protocol/Scale.h"
#include "reading/Decoders.h"
#include "tests/support/RunPlan.h"

namespace {

struct Codec {
  const char* reg;
  Encoded (*encode)();
  std::string (*decode)(const std::string& reply);
};

constexpr Codec codecs[] = {
    {"07", makeInput, parseInput},
    {"08", makeRdgCnfg, parseRdgCnfg},
    {"01", makeSp1, parseSp1},
    {"02", makeSp2, parseSp2},
    {"14", makeRdScale, parseRdScale},
    {"03", makeRdOffset, parseRdOffset},
    {"09", makeAl1Cnfg, parseAl1Cnfg},
    {"13", makeAl1High, parseAl1High},
    {"12", makeAl1Low, parseAl1Low},
    {"0A", makeAl2Cnfg, parseAl2Cnfg},
    {"16", makeAl2High, parseAl2High},
    {"15", makeAl2Low, parseAl2Low},
    {"0B", makeLBTime, parseLBTime},
    {"25", makeCJOffset, parseCJOffset},
    {"05", makeIDCode, parseIDCode},
    {"0C", makeOut1Cnfg, parseOut1Cnfg},
    {"0D", makeOut2Cnfg, parseOut2Cnfg},
    {"17", makeOut1PropBand, parseOut1PropBand},
    {"18", makeOut1Reset, parseOut1Reset},
    {"19", makeOut1Rate, parseOut1Rate},
    {"1A", makeOut1CycleT, parseOut1CycleT},
    {"1C", makeOut2PropBand, parseOut2PropBand},
    {"1D", makeOut2CycleT, parseOut2CycleT},
    {"0E", makeRampT, parseRampT},
    {"1E", makeSoakT, parseSoakT},
    {"11", makeColors, parseColors},
    {"24", makeMiscellaneous, parseMiscellaneous},
    {"0F", makeAnalogScale, parseAnalogScale},
    {"04", makeAnalogOffset, parseAnalogOffset},
    {"27", makeOut1Low, parseOut1Low},
    {"28", makeOut1Hi, parseOut1Hi},
    {"1F", makeBusFormat, parseBusFormat},
    {"21", makeRS485Address, parseRS485Address},
};

std::vector<const RegisterStep*> allRows() {
  std::vector<const RegisterStep*> rows;
  for (int step = 0; step <= lastStep; ++step) {
    for (const RegisterStep& row : rowsOf(step)) rows.push_back(&row);
  }
  return rows;
}

TEST(Steps, StandInTheOrderOfThePlanWithItsLabelsAndPercentages) {
  std::vector<PlanRow> planned;
  for (const PlanRow& row : runPlan()) {
    if (*row.reg != 0) planned.push_back(row);
  }
  const auto rows = allRows();
  ASSERT_EQ(rows.size(), planned.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(planned[i].reg);
    EXPECT_EQ(rows[i]->step, planned[i].step);
    EXPECT_STREQ(rows[i]->reg, planned[i].reg);
    EXPECT_STREQ(rows[i]->writeLabel, planned[i].writeLabel);
    EXPECT_STREQ(rows[i]->readLabel, planned[i].readLabel);
    EXPECT_EQ(rows[i]->percent, planned[i].percent == 0 ? unchanged : planned[i].percent);
    EXPECT_EQ(rows[i]->onRkw77, planned[i].readOnRkw77);
  }
}

TEST(Steps, GoThroughTheEncoderAndTheDecoderOfTheirRegister) {
  const auto rows = allRows();
  ASSERT_EQ(rows.size(), std::size(codecs));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(codecs[i].reg);
    EXPECT_STREQ(rows[i]->reg, codecs[i].reg);
    EXPECT_EQ(rows[i]->encode, codecs[i].encode);
    EXPECT_EQ(rows[i]->decode, codecs[i].decode);
  }
}

TEST(Steps, HaveTwoRowsWhereAScaleOrTheBusNeedsThem) {
  for (int step = 0; step <= lastStep; ++step) {
    const std::size_t rows = step == 4 || step == 27 || step == 30 ? 2 : step == pauseStep ? 0 : 1;
    EXPECT_EQ(rowsOf(step).size(), rows) << "step " << step;
  }
}

TEST(Steps, EndWithTheBusSettings) {
  EXPECT_EQ(lastStep, 30);
  EXPECT_TRUE(rowsOf(lastStep + 1).empty());
  EXPECT_TRUE(rowsOf(-1).empty());
}

TEST(Steps, LeaveAHoleThatOnlyMovesTheBar) {
  EXPECT_EQ(pauseStep, 24);
  EXPECT_EQ(pauseStepPercent, 81);
  EXPECT_TRUE(rowsOf(pauseStep).empty());
}

}  // namespace
