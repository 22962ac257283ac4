// SPDX-License-Identifier: MIT
// Which bits of each register the five kinds of unit let the program change.
#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/Memo.h"
#include "support/RandomMemo.h"
#include "tests/support/RunPlan.h"

namespace torvane {

namespace {

// By the plan of the tests. Four digits that a unit takes as they are have no mask.
std::int32_t maskOf(const RegisterUnderTest& reg, int kind) {
  const std::span<const PlanRow> plan = runPlan();
  const auto row = std::ranges::find(plan, std::string_view(reg.index), &PlanRow::reg);
  if (row == plan.end()) throw std::out_of_range(std::string("no plan for register ") + reg.index);
  const std::uint32_t mask = row->masks[static_cast<std::size_t>(kind)];
  return reg.width == 4 && mask == 0xFFFF ? -1 : static_cast<std::int32_t>(mask);
}

class RegisterMasks : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    freshSetup();
    chooseKind(GetParam());
  }
};

TEST_P(RegisterMasks, AreThoseOfTheKindOfUnit) {
  for (const RegisterUnderTest& reg : allRegisters()) {
    EXPECT_EQ(reg.make().mask, maskOf(reg, GetParam())) << reg.index;
  }
}

TEST_P(RegisterMasks, OfZeroDoNotKeepThePayloadFromBeingBuilt) {
  for (const RegisterUnderTest& reg : allRegisters()) {
    EXPECT_EQ(reg.make().payload.size(), reg.width) << reg.index;
  }
}

TEST_P(RegisterMasks, StandBesideARefusalToo) {
  for (const int record : {rec::txtLBATime, rec::txtRampT, rec::txtSoakT}) Memo[record].text = "5:30";
  Memo[rec::txtOut1Rate].text = "200.0";
  Memo[rec::HSOut1CycleT].value = 0;
  Memo[rec::HSOut2CycleT].value = 200;
  Memo[rec::txtIn2].text = Memo[rec::txtIn1].text;
  Memo[rec::txtAOutRd2].text = Memo[rec::txtAOutRd1].text;
  for (const RegisterUnderTest& reg : allRegisters()) {
    EXPECT_EQ(reg.make().mask, maskOf(reg, GetParam())) << reg.index;
  }
}

INSTANTIATE_TEST_SUITE_P(FiveKinds, RegisterMasks, testing::Range(0, 5));

}  // namespace

}  // namespace torvane
