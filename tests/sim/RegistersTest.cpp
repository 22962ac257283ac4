// SPDX-License-Identifier: MIT
// What registers there are in the two lines of units.
#include "sim/Registers.h"

#include <gtest/gtest.h>

#include "sim/Numbers.h"

namespace torvane {

namespace {

using sim::Model;
using sim::RegisterBank;

TEST(Registers, TorvaneUnitHasThirtyThree) { EXPECT_EQ(RegisterBank(Model::tmp).indices().size(), 33U); }

TEST(Registers, LarkspurUnitLacksFourAndKeepsTwoToItself) {
  const RegisterBank bank(Model::larkspur);
  EXPECT_EQ(bank.indices().size(), 29U);
  for (const char* index : {"15", "16", "27", "28"}) EXPECT_EQ(bank.find(index), nullptr) << index;
  for (const char* index : {"11", "24"}) {
    ASSERT_NE(bank.find(index), nullptr) << index;
    EXPECT_TRUE(bank.find(index)->readOnly) << index;
    EXPECT_EQ(bank.hex(index).size(), 6U) << index;
  }
}

TEST(Registers, EveryPowerOnValueFitsItsRegister) {
  for (const Model model : {Model::tmp, Model::larkspur}) {
    const RegisterBank bank(model);
    for (const std::string& index : bank.indices()) {
      EXPECT_EQ(bank.hex(index).size(), bank.find(index)->width) << index;
      EXPECT_TRUE(sim::hexNumber(bank.hex(index))) << index;
    }
  }
}

TEST(Registers, WidthsAreThoseOfTheUnitsManual) {
  const RegisterBank bank(Model::tmp);
  const auto expectWidth = [&](std::initializer_list<const char*> indices, std::size_t width) {
    for (const char* index : indices) {
      ASSERT_NE(bank.find(index), nullptr) << index;
      EXPECT_EQ(bank.find(index)->width, width) << index;
    }
  };
  expectWidth({"01", "02", "03", "04", "0F", "12", "13", "14", "15", "16", "25"}, 6);
  expectWidth({"05", "0B", "0E", "17", "18", "19", "1C", "1E"}, 4);
  expectWidth({"07", "08", "09", "0A", "0C", "0D", "11", "1A", "1D", "1F", "21", "24", "27", "28"}, 2);
}

TEST(Registers, TakesOnlyItsWidthInUpperCaseHexadecimal) {
  RegisterBank bank(Model::tmp);
  EXPECT_TRUE(bank.set("07", "AF"));
  for (const char* bad : {"", "1", "123", "af", "G0", "-1", " 1"}) EXPECT_FALSE(bank.set("07", bad)) << bad;
  EXPECT_EQ(bank.hex("07"), "AF");
  EXPECT_FALSE(bank.set("99", "00"));
  EXPECT_EQ(bank.hex("99"), "");
}

}  // namespace

}  // namespace torvane
