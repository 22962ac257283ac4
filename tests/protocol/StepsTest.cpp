// SPDX-License-Identifier: MIT
// The table of steps, row by row: label, register, percentage, encoder and decoder, who is read.
#include "protocol/Steps.h"

#include <gtest/gtest.h>

#include "protocol/Encoders.h"
#include "protocol/Scale.h"
#include "reading/Decoders.h"
#include "tests/support/RunPlan.h"

namespace torvane {

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
  for (const auto& group : stepGroups()) {
    for (const RegisterStep& row : group) {
      if (row.rule != StepRule::barOnly) rows.push_back(&row);
    }
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
  for (const auto& group : stepGroups()) {
    const int step = group.front().step;
    EXPECT_EQ(group.size(), step == 4 || step == 27 || step == 30 ? 2U : 1U) << "step " << step;
  }
}

TEST(Steps, EndWithTheBusSettings) {
  EXPECT_EQ(stepGroups().size(), 31U);
  EXPECT_EQ(stepGroups().back().front().rule, StepRule::busFormat);
  EXPECT_EQ(stepGroups().back().back().rule, StepRule::busAddress);
}

TEST(Steps, LeaveAHoleThatOnlyMovesTheBar) {
  const RegisterStep& hole = stepGroups()[24].front();
  EXPECT_EQ(hole.rule, StepRule::barOnly);
  EXPECT_STREQ(hole.reg, "");
  EXPECT_EQ(hole.percent, 81);
}

TEST(Steps, AreFoundByTheirRegister) {
  EXPECT_STREQ(stepOf("01")->name, "Set-Point 1");
  EXPECT_STREQ(stepOf("21")->name, "Bus Address");
  EXPECT_EQ(stepOf("06"), nullptr);
  EXPECT_EQ(stepOf(""), nullptr);
}

TEST(Steps, SpellTheFirstSetPointInTheNetworksOwnWay) {
  const RegisterStep& row = *stepOf("01");
  EXPECT_STREQ(writeLabelOf(row, false), "Configuring Set-Point 1...");
  EXPECT_STREQ(writeLabelOf(row, true), "Configuring SetPoint 1...");
  EXPECT_STREQ(readLabelOf(row, true), "Reading SetPoint 1...");
  EXPECT_STREQ(readLabelOf(*stepOf("02"), true), "Reading Set-Point 2...");
}

}  // namespace

}  // namespace torvane
