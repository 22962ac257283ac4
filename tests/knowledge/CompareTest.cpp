// SPDX-License-Identifier: MIT
// What differs between a unit and a setup, in words.
#include "knowledge/Compare.h"

#include <gtest/gtest.h>

#include <string>

#include "core/Global.h"
#include "core/NumberText.h"
#include "knowledge/Lines.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

class Compare : public testing::Test {
 protected:
  Compare() {
    freshSetup();
    Memo[rec::optNoChange].flag = False;
    Memo[rec::optRS485].flag = True;
  }

  // A unit that holds the setup as it stands.
  static UnitImage unitAsNow() { return imageOf(encodeSetup()); }
  static std::string told(const Comparison& comparison) {
    std::string text;
    for (const DifferingSetting& each : comparison.settings) {
      constexpr const char* changes[] = {"written", "rounding", "kept"};
      text += each.section + "/" + each.name + ": " + each.inUnit + " > " + each.inSetup + " " +
              changes[static_cast<int>(each.change)] + "\n";
    }
    return text;
  }
  static std::string changed(const Comparison& comparison) {
    std::string text;
    for (const RegisterChange& each : comparison.registers) {
      if (each.written) text += each.reg + " " + each.before + " > " + each.after + "\n";
    }
    return text;
  }
};

TEST_F(Compare, OfAUnitThatHoldsTheSetupFindsNothing) {
  const Comparison comparison = compare(unitAsNow(), encodeSetup());
  EXPECT_EQ(told(comparison), "");
  EXPECT_TRUE(comparison.same());
  EXPECT_EQ(summaryOf(comparison), "0 settings differ, 63 agree");
  EXPECT_EQ(comparison.registers.size(), registerCount);
}

TEST_F(Compare, TellsOneSettingInTheReportsWords) {
  UnitImage unit = unitAsNow();
  contentOf(unit, "01").payload = "2004D2";
  contentOf(unit, "16") = {"", "no answer"};
  const Comparison comparison = compare(unit, encodeSetup());
  EXPECT_EQ(told(comparison), "Set Points/Set-Point 1: 123.4 > 000.0 written\n");
  EXPECT_EQ(changed(comparison), "01 2004D2 > 200000\n");
  EXPECT_EQ(summaryOf(comparison), "1 setting differs, 61 agree, 1 register could not be read");
}

TEST_F(Compare, TellsWhatAWriteLeavesAlone) {
  UnitImage unit = unitAsNow();
  contentOf(unit, "21").payload = "05";
  contentOf(unit, "1F").payload = "34";
  EXPECT_EQ(told(compare(unit, encodeSetup())),
            "Comm/Bus: RS-232 > RS-485 written\nComm/Bus Address: 5 > 1 written\n");
  Memo[rec::optNoChange].flag = True;
  const Comparison kept = compare(unit, encodeSetup());
  EXPECT_EQ(told(kept), "Comm/Bus: RS-232 > RS-485 kept\nComm/Bus Address: 5 > 1 kept\n");
  EXPECT_EQ(changed(kept), "");
  EXPECT_EQ(summaryOf(kept), "0 settings differ, 2 are left alone by a write, 61 agree");
}

TEST_F(Compare, SaysNothingOfBitsThatAreTheUnitsOwn) {
  UnitImage unit = unitAsNow();
  contentOf(unit, "08").payload = padLeft(hexText(hexValue(contentOf(unit, "08").payload) | 0x10), 2);
  EXPECT_EQ(told(compare(unit, encodeSetup())), "");
  const UnitImage plain = unitAsNow();
  EXPECT_EQ(told(compare(unit, setupOf(plain, true))),
            "Reading Configuration/Register 08, bits 10: 01 > 00 kept\n");
}

TEST_F(Compare, TellsTheMeaningThatMovesWithTheReadingsFormat) {
  UnitImage unit = unitAsNow();
  contentOf(unit, "08").payload = "4B";  // two decimals
  const std::string text = told(compare(unit, encodeSetup()));
  EXPECT_NE(text.find("Reading Configuration/Decimal Point: XX.XX > XXX.X written\n"), std::string::npos);
  EXPECT_NE(text.find("Out 1/Dead Band: 02.00 > 020.0 written\n"), std::string::npos) << text;
}

TEST_F(Compare, TellsOtherDigitsOfTheSameMeaningApart) {
  Memo[rec::txtAOutOut1].text = "00.00";
  UnitImage unit = unitAsNow();
  ASSERT_EQ(contentOf(unit, "04").payload, "C00000");
  contentOf(unit, "04").payload = "700000";
  contentOf(unit, "01").payload = "A00000";
  const Comparison comparison = compare(unit, encodeSetup());
  EXPECT_EQ(told(comparison),
            "Set Points/Set-Point 1: 000.0 > 000.0 rounding\nAnalog Output/Offset: 0 > 0 rounding\n");
  EXPECT_EQ(changed(comparison), "01 A00000 > 200000\n04 700000 > C00000\n")
      << "a write sends them all the same";
  EXPECT_TRUE(comparison.same());
}

TEST_F(Compare, TellsTheRoundingOfALineFromAnotherLine) {
  Memo[rec::txtIn1].text = "0000";
  Memo[rec::txtRd1].text = "0000";
  Memo[rec::txtIn2].text = "9000";
  Memo[rec::txtRd2].text = "3000";
  UnitImage unit = unitAsNow();
  ASSERT_EQ(contentOf(unit, "14").payload, "751615");
  contentOf(unit, "14").payload = "651615";
  EXPECT_NE(told(compare(unit, encodeSetup())).find("Scale: 3.33333 > 0.333333 written"), std::string::npos);
  contentOf(unit, "14").payload = "751616";
  EXPECT_EQ(told(compare(unit, encodeSetup())),
            "Reading Scale & Offset/Scale: 0.333334 > 0.333333 rounding\n");
}

TEST_F(Compare, SendsNothingForALineThatCantBe) {
  UnitImage unit = unitAsNow();
  contentOf(unit, "14").payload = "700001";
  contentOf(unit, "03").payload = "700001";
  Memo[rec::txtIn2].text = Memo[rec::txtIn1].text;
  Memo[rec::txtRampT].text = "1:30";
  contentOf(unit, "0E").payload = "0001";
  const Comparison comparison = compare(unit, encodeSetup());
  EXPECT_EQ(told(comparison), "");
  EXPECT_EQ(changed(comparison), "");
  EXPECT_EQ(comparison.registers[4].reason, "Divide by zero");
  EXPECT_EQ(comparison.registers[5].reason, "Divide by zero");
  EXPECT_EQ(comparison.registers[static_cast<std::size_t>(registerPlace("0E"))].reason,
            "Ramp Time Format Error");
}

TEST_F(Compare, SendsNothingAfterANumberThatEndsTheWrite) {
  UnitImage unit = unitAsNow();
  contentOf(unit, "21").payload = "05";
  Memo[rec::txtSp1].text = "99999";
  const Comparison comparison = compare(unit, encodeSetup());
  EXPECT_EQ(changed(comparison), "");
  EXPECT_EQ(comparison.registers[2].reason, "a number is too large");
  EXPECT_EQ(comparison.registers.back().reason, "the write ends before it");
}

TEST_F(Compare, ChangesNothingOfTheProgram) {
  Global.RdScale = "left";
  Global.AnalogScale = "here";
  const SetupRecords before = presentRecords();
  SetupRecords other = before;
  other.memo[rec::txtSp1].text = "055.5";
  chooseKind(kind::simpleMenu);
  const EncodedSetup encoded = encodeSetup(other);
  EXPECT_EQ(encoded.kind, kind::fullController);
  EXPECT_EQ(digitsOf(digitsIn(encoded), "01"), "20022B");
  EXPECT_EQ(meterKind(), kind::simpleMenu);
  EXPECT_EQ(Memo[rec::txtSp1].text, "0000");
  EXPECT_EQ(Global.RdScale, "left");
  EXPECT_EQ(Global.AnalogScale, "here");
}

TEST_F(Compare, WorksOnTwoSetupsAndOnTwoCopies) {
  const EncodedSetup one = encodeSetup();
  Memo[rec::cboAl1Latch].value = 0;
  const EncodedSetup other = encodeSetup();
  EXPECT_EQ(told(compare(imageOf(one), other)), "Alarm 1/Latch: Unlatch > Latch written\n");
  EXPECT_EQ(told(compare(imageOf(other), setupOf(imageOf(one), false))),
            "Alarm 1/Latch: Latch > Unlatch written\n");
}

TEST_F(Compare, OfACopyTakesTheSmallerMaskAndAsksForTheBus) {
  const UnitImage copy = unitAsNow();
  UnitImage unit = copy;
  contentOf(unit, "21").payload = "05";
  contentOf(unit, "13").payload = "200001";
  EXPECT_EQ(changed(compare(unit, setupOf(copy, false))), "13 200001 > 200FA0\n");
  EXPECT_EQ(changed(compare(unit, setupOf(copy, true))), "13 200001 > 200FA0\n21 05 > 01\n");
  unit.kind = kind::simpleMenu;
  EXPECT_EQ(changed(compare(unit, setupOf(copy, false))), "");
}

TEST(SameLines, AreThoseThatAgreeEverywhereOrAtTheirPoints) {
  const LinePoints wide{0, 0, 9000, 3000};
  EXPECT_TRUE(isSameLine({1, 0}, {1, 0}, 1, std::nullopt));
  EXPECT_TRUE(isSameLine({1, 0}, {1.00004, 0}, 1, std::nullopt));
  EXPECT_FALSE(isSameLine({1, 0}, {1.0001, 0}, 1, std::nullopt));
  EXPECT_TRUE(isSameLine({1.0 / 3, 0}, {0.33339, 0}, 1, wide));
  EXPECT_FALSE(isSameLine({1.0 / 3, 0}, {1.0 / 3, 1}, 1, wide));
  EXPECT_FALSE(isSameLine({1, 0}, {1.9, 0}, 1, LinePoints{0, 0, 1, 1}))
      << "two points close together tell no slope";
  EXPECT_FALSE(isSameLine({1, 0}, {-1, 0}, 1, LinePoints{0, 0, 0, 0}));
}

}  // namespace

}  // namespace torvane
