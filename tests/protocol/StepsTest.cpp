// SPDX-License-Identifier: MIT
// The table of steps, row by row: label, register, percentage, encoder and decoder, who is read.
#include "protocol/Steps.h"

#include <gtest/gtest.h>

#include "tests/support/RandomMemo.h"
#include "tests/support/RunPlan.h"

namespace torvane {

namespace {

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
  ASSERT_EQ(rows.size(), allRegisters().size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RegisterUnderTest& wanted = allRegisters()[i];
    SCOPED_TRACE(wanted.index);
    EXPECT_STREQ(rows[i]->reg, wanted.index);
    EXPECT_EQ(rows[i]->encode, wanted.make);
    EXPECT_EQ(rows[i]->decode, wanted.parse);
  }
}

TEST(Steps, HaveTwoRowsWhereAScaleOrTheBusNeedsThem) {
  for (const auto& group : stepGroups()) {
    const std::string_view first = group.front().reg;
    const bool pair = first == "14" || first == "0F" || first == "1F";
    EXPECT_EQ(group.size(), pair ? 2U : 1U) << "step " << group.front().step;
  }
}

TEST(Steps, EndWithTheBusSettings) {
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
