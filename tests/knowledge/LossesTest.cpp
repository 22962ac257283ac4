// SPDX-License-Identifier: MIT
// What a read can't take over: every loss that happens to a random unit is one of the table.
#include "knowledge/Losses.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr int kinds = 5;
constexpr int units = 200;  // per kind
constexpr int rounds = 1200;

class Losses : public testing::Test {
 protected:
  Losses() { freshSetup(); }

  // A unit that somebody has set, with a few registers that nobody would.
  void randomUnit(int kind) {
    fillRandomMemo(random);
    if (kind == kind::simpleMenu) {
      for (int record : {rec::cboAl1Setup, rec::cboAl2Setup}) Memo[record].value &= 1;
    }
    unit = imageOf(encodeSetup());
    for (int i = between(random, 0, 4); i > 0; --i) {
      const auto place = static_cast<std::size_t>(between(random, 0, registerCount - 1));
      std::string digits(registerRows()[place].width, '0');
      for (char& digit : digits) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      unit.registers[place] = {digits, ""};
    }
  }

  // As a read does it, check boxes included: what they show as ticked is 1. False where a number fits no
  // record.
  static bool read(const UnitImage& image, int kind) {
    freshSetup();
    chooseKind(kind);
    bool understood = true;
    for (std::size_t place = 0; place < registerCount; ++place) {
      const RegisterUnderTest& reg = allRegisters()[place];
      if (!hasRegister(reg.index, kind)) continue;
      understood &=
          attempt([&] { reg.parse("R" + std::string(reg.index) + image.registers[place].payload); });
    }
    for (int record : {rec::chkOut1Self, rec::chkSPDeviation}) {
      Memo[record].value = static_cast<std::int16_t>(Memo[record].value != 0 ? 1 : 0);
    }
    return understood;
  }

  std::mt19937 random{900};
  UnitImage unit;
};

std::string told(const FoundLoss& loss) {
  return loss.setting.reg + " " + loss.setting.name + ": " + loss.setting.inUnit + " > " +
         loss.setting.inSetup;
}

class LossesOfKind : public Losses, public testing::WithParamInterface<int> {};

TEST_P(LossesOfKind, OfARandomUnitAreAllKnown) {
  for (int round = 0; round < units; ++round) {
    SCOPED_TRACE(round);
    freshSetup();
    chooseKind(GetParam());
    randomUnit(GetParam());
    if (!read(unit, GetParam())) continue;
    for (const FoundLoss& loss : lossesOf(unit, encodeSetup())) EXPECT_NE(loss.why, nullptr) << told(loss);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, LossesOfKind, testing::Range(0, kinds));

// Of the table nothing stands there for nothing: a unit with one odd register is enough for each of its rows.
class LossTable : public Losses {
 protected:
  void collect(int kind) {
    freshSetup();
    chooseKind(kind);
    randomUnit(kind);
    if (!read(unit, kind)) return;
    for (const FoundLoss& loss : lossesOf(unit, encodeSetup())) seen.insert(loss.why);
  }

  std::set<const KnownLoss*> seen;
};

TEST_F(LossTable, HasNoRowThatNeverHappens) {
  for (int round = 0; round < rounds; ++round) collect(round % kinds);
  for (const KnownLoss& loss : knownLosses()) {
    EXPECT_NE(seen.contains(&loss), loss.byRules)
        << loss.reg << " " << std::hex << loss.bits << " " << loss.words;
  }
}

TEST(LossSentence, IsEmptyWhereNothingWasLost) { EXPECT_EQ(lossSentence({}), ""); }

TEST(LossSentence, NamesSettingAndBothWords) {
  freshSetup();
  Memo[rec::lstTCTypes].value = 2;
  UnitImage unit = imageOf(encodeSetup());
  Memo[rec::lstTCTypes].value = 0;
  contentOf(unit, "01").payload = "A00000";
  const auto losses = lossesOf(unit, encodeSetup());
  ASSERT_EQ(losses.size(), 2U);
  EXPECT_EQ(lossSentence(losses),
            "Not taken over exactly: Input, Thermocouple Type (unit T, setup J); "
            "Set Points, Set-Point 1 (the same in other digits)");
  EXPECT_STREQ(losses[0].why->words, "of a thermocouple's type only J and K are told apart by a read");
}

TEST(KnownLosses, StandAtBitsThatThereAreAndHaveWords) {
  for (const KnownLoss& loss : knownLosses()) {
    std::uint32_t bits = 0;
    for (const RegisterField& field : fieldsOf(loss.reg)) bits |= field.bits;
    EXPECT_EQ(loss.bits & ~bits, 0U) << loss.reg;
    EXPECT_NE(std::string(loss.words), "") << loss.reg;
  }
}

}  // namespace

}  // namespace torvane
