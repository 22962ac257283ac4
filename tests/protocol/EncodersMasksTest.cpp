// SPDX-License-Identifier: MIT
// Which bits of each register the five kinds of unit let the program change.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

#include "core/Memo.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

// By meterKind: full controller, alarms only, simple menu, monitor only, Rkw77 line.
using ByKind = std::array<std::int32_t, 5>;

constexpr ByKind same(std::int32_t mask) { return {mask, mask, mask, mask, mask}; }

const std::map<std::string, ByKind> expected = {
    {"01", same(0xFFFFFF)},
    {"02", same(0xFFFFFF)},
    {"03", same(0xFFFFFF)},
    {"04", same(0xFFFFFF)},
    {"05", same(-1)},
    {"07", same(255)},
    {"08", same(239)},
    {"09", {255, 255, 5, 255, 255}},
    {"0A", {191, 191, 131, 191, 0}},
    {"0B", {-1, -1, 0, -1, -1}},
    {"0C", {127, 127, 130, 127, 127}},
    {"0D", {255, 255, 2, 255, 255}},
    {"0E", {-1, -1, 0, -1, -1}},
    {"0F", same(0xFFFFFF)},
    {"11", {63, 63, 63, 63, 0}},
    {"12", {0xFFFFFF, 0xFFFFFF, 0, 0xFFFFFF, 0xFFFFFF}},
    {"13", {0xFFFFFF, 0xFFFFFF, 0, 0xFFFFFF, 0xFFFFFF}},
    {"14", same(0xFFFFFF)},
    {"15", {0xFFFFFF, 0xFFFFFF, 0, 0xFFFFFF, 0}},
    {"16", {0xFFFFFF, 0xFFFFFF, 0, 0xFFFFFF, 0}},
    {"17", same(-1)},
    {"18", {-1, -1, 0, -1, -1}},
    {"19", {-1, -1, 0, -1, -1}},
    {"1A", {255, 255, 0, 255, 255}},
    {"1C", same(-1)},
    {"1D", {255, 255, 0, 255, 255}},
    {"1E", {-1, -1, 0, -1, -1}},
    {"1F", same(63)},
    {"21", same(255)},
    {"24", {156, 156, 28, 156, 0}},
    {"25", same(0xFFFFFF)},
    {"27", {255, 255, 0, 255, 0}},
    {"28", {255, 255, 0, 255, 0}},
};

class RegisterMasks : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    freshSetup();
    chooseKind(GetParam());
  }
};

TEST_P(RegisterMasks, AreThoseOfTheKindOfUnit) {
  EXPECT_EQ(allRegisters().size(), 33U);
  EXPECT_EQ(expected.size(), 33U);
  for (const RegisterUnderTest& reg : allRegisters()) {
    EXPECT_EQ(reg.make().mask, expected.at(reg.index)[static_cast<std::size_t>(GetParam())]) << reg.index;
  }
}

TEST_P(RegisterMasks, OfZeroDoNotKeepThePayloadFromBeingBuilt) {
  for (const RegisterUnderTest& reg : allRegisters()) {
    EXPECT_EQ(reg.make().payload.size(), reg.width) << reg.index;
  }
}

TEST_P(RegisterMasks, StandBesideARefusalToo) {
  const auto kind = static_cast<std::size_t>(GetParam());
  for (const int record : {rec::txtLBATime, rec::txtRampT, rec::txtSoakT}) Memo[record].text = "5:30";
  Memo[rec::txtOut1Rate].text = "200.0";
  Memo[rec::HSOut1CycleT].value = 0;
  Memo[rec::HSOut2CycleT].value = 200;
  Memo[rec::txtIn2].text = Memo[rec::txtIn1].text;
  Memo[rec::txtAOutRd2].text = Memo[rec::txtAOutRd1].text;
  for (const RegisterUnderTest& reg : allRegisters()) {
    EXPECT_EQ(reg.make().mask, expected.at(reg.index)[kind]) << reg.index;
  }
}

INSTANTIATE_TEST_SUITE_P(FiveKinds, RegisterMasks, testing::Range(0, 5));

}  // namespace

}  // namespace torvane
