// SPDX-License-Identifier: MIT
// Decoders of the scales and offsets: which two points a line comes back as.
#include <gtest/gtest.h>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "platform/RuntimeError.h"
#include "reading/Decoders.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

class DecodersLine : public testing::Test {
 protected:
  void SetUp() override { freshSetup(); }
};

struct PointTexts {
  const char* x1;
  const char* y1;
  const char* x2;
  const char* y2;
};

void expectReading(const PointTexts& at) {
  EXPECT_EQ(Memo[rec::txtIn1].text, at.x1);
  EXPECT_EQ(Memo[rec::txtRd1].text, at.y1);
  EXPECT_EQ(Memo[rec::txtIn2].text, at.x2);
  EXPECT_EQ(Memo[rec::txtRd2].text, at.y2);
}

void expectAnalog(const PointTexts& at) {
  EXPECT_EQ(Memo[rec::txtAOutRd1].text, at.x1);
  EXPECT_EQ(Memo[rec::txtAOutOut1].text, at.y1);
  EXPECT_EQ(Memo[rec::txtAOutRd2].text, at.x2);
  EXPECT_EQ(Memo[rec::txtAOutOut2].text, at.y2);
}

void readingFrom(const char* scale, const char* y2) {
  Global.RdScale = scale;
  Memo[rec::txtRd2].text = y2;
}

void analogFrom(const char* scale, const char* y2) {
  Global.AnalogScale = scale;
  Memo[rec::txtAOutOut2].text = y2;
}

TEST_F(DecodersLine, ReadingScaleIsMagnitudeAndPower) {
  EXPECT_EQ(parseRdScale("R146186A0"), "1");
  EXPECT_EQ(Global.RdScale, "1");
  EXPECT_EQ(parseRdScale("R1477A120"), "0.5");
  EXPECT_EQ(parseRdScale("R1463D090"), "2.5");
  EXPECT_EQ(parseRdScale("R14751615"), "0.333333");
  EXPECT_EQ(parseRdScale("R1460EA60"), "0.6");
}

TEST_F(DecodersLine, ReadingScaleIsNegativeWithBit3OfItsSecondDigit) {
  EXPECT_EQ(parseRdScale("R146BD090"), "-2.5");
  EXPECT_EQ(parseRdScale("R14680000"), "0");
}

TEST_F(DecodersLine, ReadingScaleOfPowerCode0IsMultiplied) { EXPECT_EQ(parseRdScale("R14000005"), "50"); }

TEST_F(DecodersLine, SmallReadingScaleIsInENotation) { EXPECT_EQ(parseRdScale("R14B186A0"), "1E-05"); }

TEST_F(DecodersLine, ReadingScaleOfOneDigitHasNoSign) { EXPECT_EQ(parseRdScale("R144"), "0.004"); }

TEST_F(DecodersLine, AnalogScaleIsAsTheReadingScaleForAProcess) {
  chooseOption(rec::optInType, 3, 2);
  EXPECT_EQ(parseAnalogScale("R0F9186A0"), "0.001");
  EXPECT_EQ(Global.AnalogScale, "0.001");
  EXPECT_EQ(parseAnalogScale("R0F6BD090"), "-2.5");
}

TEST_F(DecodersLine, AnalogScaleOfATemperatureInTenthsIsOnePowerLower) {
  chooseFormat(1);
  for (int type : {0, 1}) {
    chooseOption(rec::optInType, 3, type);
    EXPECT_EQ(parseAnalogScale("R0F8186A0"), "0.001") << type;
  }
  for (int decimals : {0, 2, 3}) {
    chooseFormat(decimals);
    EXPECT_EQ(parseAnalogScale("R0F8186A0"), "0.01") << decimals;
  }
}

TEST_F(DecodersLine, OffsetIsMagnitudePowerAndSign) {
  EXPECT_EQ(parseRdOffset("R0361E848"), "12.5");
  EXPECT_EQ(parseRdOffset("R03E1E848"), "-12.5");
  EXPECT_EQ(parseRdOffset("R034186A0"), "1000");
  EXPECT_EQ(parseRdOffset("R03000005"), "500");
  EXPECT_EQ(parseRdOffset("R03F00000"), "0");
}

TEST_F(DecodersLine, OffsetIsSinglePrecision) { EXPECT_EQ(parseRdOffset("R037A2C2B"), "6.66667"); }

TEST_F(DecodersLine, OffsetTakesItsLastFiveDigitsAndItsFirst) {
  EXPECT_EQ(parseRdOffset("R0361FFE848"), "104.2504");
  EXPECT_EQ(parseRdOffset("R032"), "2");
}

TEST_F(DecodersLine, RisingReadingFromAboveZeroStartsAtItsOffset) {
  readingFrom("0.5", "1000");
  EXPECT_EQ(parseRdOffset("R036186A0"), "10");
  expectReading({"0000", "0010", "1980", "1000"});
}

TEST_F(DecodersLine, RisingReadingFromAboveZeroIsLimitedAtItsEnd) {
  readingFrom("0.05", "1000");
  parseRdOffset("R036186A0");
  expectReading({"0000", "0010", "9999", "0510"});
}

TEST_F(DecodersLine, RisingReadingFromAboveItsEndIsNotLimitedBelow) {
  readingFrom("0.01", "1000");
  EXPECT_EQ(parseRdOffset("R0341ADB0"), "1100");
  expectReading({"0000", "1100", "-10000", "1000"});
}

TEST_F(DecodersLine, ScaleOfZeroIsRaisedToOneThousandth) {
  parseRdScale("R14600000");
  parseRdOffset("R0360C350");
  EXPECT_EQ(Global.RdScale, "0.001");
  EXPECT_EQ(Memo[rec::txtRd1].text, "0005");
  EXPECT_EQ(Memo[rec::txtIn2].text, "9999");
  EXPECT_EQ(Memo[rec::txtRd2].text, "0015");
}

TEST_F(DecodersLine, SmallNegativeScaleTurnsPositive) {
  readingFrom("-0.0009", "1000");
  parseRdOffset("R0360C350");
  EXPECT_EQ(Global.RdScale, "0.001");
  expectReading({"0000", "0005", "9999", "0015"});
}

TEST_F(DecodersLine, ScaleOfExactlyOneThousandthStays) {
  readingFrom("-0.001", "1000");
  parseRdOffset("R03F0C350");
  EXPECT_EQ(Global.RdScale, "-0.001");
}

TEST_F(DecodersLine, ReadingScaleThatWasNeverReadCountsAsZero) {
  readingFrom("", "1000");
  parseRdOffset("R0360C350");
  EXPECT_EQ(Global.RdScale, "0.001");
}

TEST_F(DecodersLine, RisingReadingFromBelowZeroStartsWhereItCrossesZero) {
  readingFrom("0.5", "1000");
  EXPECT_EQ(parseRdOffset("R03E186A0"), "-10");
  expectReading({"0020", "0000", "2020", "1000"});
}

TEST_F(DecodersLine, RisingReadingFromBelowZeroIsLimitedAtBothPoints) {
  readingFrom("0.01", "1000");
  EXPECT_EQ(parseRdOffset("R03D86A00"), "-551.424");
  expectReading({"9999", "-0451", "9999", "-0451"});
}

TEST_F(DecodersLine, RisingReadingFromBelowZeroKeepsItsFirstPointWhenOnlyTheSecondIsLimited) {
  readingFrom("0.05", "1000");
  EXPECT_EQ(parseRdOffset("R03E186A0"), "-10");
  expectReading({"0200", "0000", "9999", "0490"});
}

TEST_F(DecodersLine, FallingReadingFromAboveZeroEndsWhereItCrossesZero) {
  readingFrom("-0.5", "1000");
  EXPECT_EQ(parseRdOffset("R036186A0"), "10");
  expectReading({"0000", "0010", "0020", "1000"});
}

TEST_F(DecodersLine, FallingReadingFromJustAboveZeroEndsWhereItCrossesZero) {
  readingFrom("-0.01", "1000");
  EXPECT_EQ(parseRdOffset("R03300005"), "0.5");
  expectReading({"0000", "0001", "0050", "1000"});
}

TEST_F(DecodersLine, FallingReadingFromZeroIsOnePoint) {
  readingFrom("-0.5", "1000");
  EXPECT_EQ(parseRdOffset("R03200000"), "0");
  expectReading({"0000", "0000", "0000", "1000"});
}

TEST_F(DecodersLine, FallingReadingIsLimitedAtBothPoints) {
  readingFrom("-0.5", "1000");
  EXPECT_EQ(parseRdOffset("R03130D40"), "2000000");
  expectReading({"3980002", "9999", "9999", "1995001"});
}

TEST_F(DecodersLine, FallingReadingFromBelowZeroTakesTheWholeRange) {
  readingFrom("-0.5", "1000");
  EXPECT_EQ(parseRdOffset("R03E186A0"), "-10");
  expectReading({"0000", "0000", "9999", "9999"});
}

TEST_F(DecodersLine, SecondReadingStartsWithinTheDisplay) {
  const std::pair<const char*, const char*> starts[] = {
      {"0", "9999"},    {"0000", "9999"},  {"-5", "9999"},  {"12000", "9999"}, {"", "9999"},
      {"none", "9999"}, {"1E300", "9999"}, {"500", "0500"}, {"1", "0001"},
  };
  for (const auto& [before, after] : starts) {
    readingFrom("1", before);
    Memo[rec::txtRd1].text = "777";
    parseRdOffset("R03700000");
    EXPECT_EQ(Memo[rec::txtRd2].text, after) << before;
    EXPECT_EQ(Memo[rec::txtRd1].text, "0000");
  }
}

TEST_F(DecodersLine, RisingOutputFromAboveZeroStartsAtItsOffset) {
  analogFrom("0.001", "10");
  EXPECT_EQ(parseAnalogOffset("R0470C350"), "0.5");
  expectAnalog({"0000", "0.5", "9500", "10.0"});
}

TEST_F(DecodersLine, RisingOutputFromAboveZeroIsLimitedAtItsEnd) {
  analogFrom("0.001", "10");
  EXPECT_EQ(parseAnalogOffset("R04F00000"), "0");
  expectAnalog({"0000", "0.0", "9999", "9.999"});
}

TEST_F(DecodersLine, RisingOutputFromBelowZeroStartsWhereItCrossesZero) {
  analogFrom("0.01", "10");
  EXPECT_EQ(parseAnalogOffset("R04F0C350"), "-0.5");
  expectAnalog({"0050", "0.0", "1050", "10.0"});
}

TEST_F(DecodersLine, RisingOutputFromBelowZeroIsLimitedAtBothPoints) {
  analogFrom("0.001", "10");
  EXPECT_EQ(parseAnalogOffset("R04E1E848"), "-12.5");
  expectAnalog({"9999", "-2.501", "9999", "-2.501"});
}

TEST_F(DecodersLine, FallingOutputEndsWhereItCrossesZero) {
  analogFrom("-0.01", "10");
  EXPECT_EQ(parseAnalogOffset("R0477A120"), "5");
  expectAnalog({"0000", "5.0", "0500", "10.0"});
}

TEST_F(DecodersLine, FallingOutputIsLimitedAtBothPoints) {
  analogFrom("-0.001", "10");
  EXPECT_EQ(parseAnalogOffset("R0461E848"), "12.5");
  expectAnalog({"2500", "10.0", "9999", "2.501"});
}

TEST_F(DecodersLine, FallingOutputFromBelowZeroTakesTheWholeRange) {
  analogFrom("-0.01", "3");
  parseAnalogOffset("R04F0C350");
  expectAnalog({"0000", "0.0", "9999", "10.0"});
  chooseOption(rec::optAOutV, 2, 1);
  parseAnalogOffset("R04F0C350");
  expectAnalog({"0000", "0.0", "9999", "20.0"});
}

TEST_F(DecodersLine, SecondOutputStartsWithinItsRange) {
  for (int mode : {0, 1}) {
    chooseOption(rec::optAOutV, 2, mode);
    const std::string full = mode == 0 ? "10.0" : "20.0";
    for (const char* before : {"0", "00.00", "-5", "25", "", "1E300"}) {
      analogFrom("0.01", before);
      parseAnalogOffset("R04700000");
      EXPECT_EQ(Memo[rec::txtAOutOut2].text, full) << before;
    }
    analogFrom("0.01", "7.25");
    parseAnalogOffset("R04700000");
    EXPECT_EQ(Memo[rec::txtAOutOut2].text, "7.25");
    analogFrom("0.01", "0.5");
    parseAnalogOffset("R04700000");
    EXPECT_EQ(Memo[rec::txtAOutOut2].text, "0.5");
  }
}

TEST_F(DecodersLine, AnalogScaleOfZeroIsRaisedToOneThousandth) {
  analogFrom("0", "10");
  parseAnalogOffset("R04700000");
  EXPECT_EQ(Global.AnalogScale, "0.001");
}

TEST_F(DecodersLine, AnalogOffsetLeavesTheReadingLineAlone) {
  readingFrom("2", "1000");
  analogFrom("0.01", "10");
  parseAnalogOffset("R0470C350");
  EXPECT_EQ(Global.RdScale, "2");
  expectReading({"1000", "1000", "9000", "1000"});
}

TEST_F(DecodersLine, WhatIsNotFiniteIsAnOverflow) {
  readingFrom("1E305", "1000");
  EXPECT_NO_THROW(parseRdOffset("R0361E848"));
  readingFrom("-1E305", "1000");
  EXPECT_NO_THROW(parseRdOffset("R0361E848"));
  readingFrom("1E999", "1000");
  EXPECT_THROW(parseRdOffset("R0361E848"), RuntimeError);
}

TEST_F(DecodersLine, AnOverflowIsReportedByNameAndNumber) {
  readingFrom("1E999", "1000");
  try {
    parseRdOffset("R0361E848");
    FAIL() << "an overflow passes";
  } catch (const RuntimeError& error) {
    EXPECT_STREQ(error.what(), "Overflow");
    EXPECT_EQ(error.number, 6);
  }
}

}  // namespace

}  // namespace torvane
