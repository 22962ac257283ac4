// SPDX-License-Identifier: MIT
// What tells the families of units apart: the length of a few replies.
#include "sim/OlderUnits.h"

#include <gtest/gtest.h>

#include "TestPort.h"
#include "sim/Unit.h"

namespace torvane {

namespace {

using sim::Model;
using sim::Unit;

// By the lengths of replies, less their line end: what the units' manuals tell of how to tell them apart.
int familyOf(Unit& unit) {
  const auto length = [&](const char* command) { return ask(unit, command).size() - 1; };
  const std::string presence = ask(unit, "*X01");
  const std::size_t echo = presence.find("X01") + 3;
  const std::size_t value = length("*R01") - echo;
  if (value == 2) return echo == 5 ? 0 : 1;
  if (value == 4) return ask(unit, "*D05").starts_with('?') ? 6 : 5;
  if (value != 6) return -2;
  switch (length("*R24") - echo) {
    case 2:
      return length("*R25") - echo == 2 ? 4 : 2;
    case 4:
      return 9;
    case 6:
      return length("*R04") - echo == 6 ? 3 : 2;
    default:
      return -2;
  }
}

TEST(Families, EveryModelIsOfItsFamily) {
  for (const sim::ModelFact& fact : sim::modelFacts()) {
    Unit unit({.model = fact.model});
    EXPECT_EQ(familyOf(unit), fact.family) << fact.name;
  }
}

TEST(Families, LongRepliesToR04MakeATorvaneUnit) {
  Unit unit({.model = Model::larkspur});
  unit.faults.answers["R04"] = "R04C00000000";
  EXPECT_EQ(familyOf(unit), 2);
}

TEST(OlderUnits, AnswerNothingElse) {
  Unit unit({.model = Model::quillon});
  EXPECT_EQ(ask(unit, "*U01"), "?43\r");
  EXPECT_EQ(ask(unit, "*W0726"), "?43\r");
  EXPECT_EQ(ask(unit, "^AE"), "?43\r");
  EXPECT_EQ(unit.registerNames(), (std::vector<std::string>{"1F", "21"}));
}

TEST(OlderUnits, HaveTheirAddressInFront) {
  Unit unit({.model = Model::quillonStrain, .addressed = true, .address = 17});
  EXPECT_EQ(ask(unit, "*11R01"), "11R012000\r");
  EXPECT_EQ(ask(unit, "*11D05"), "11?43\r");
  EXPECT_EQ(ask(unit, "*R01"), "");
}

TEST(OlderUnits, OneKindSaysTwoDigitsBeforeItsEcho) {
  Unit unit({.model = Model::mpl});
  EXPECT_EQ(ask(unit, "*R01"), "00R0104\r");
  EXPECT_EQ(ask(unit, "*U01"), "00?43\r");
}

}  // namespace

}  // namespace torvane
