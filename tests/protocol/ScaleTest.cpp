// SPDX-License-Identifier: MIT
// The arithmetic of scales and offsets, and the line of the reading, down to the digits.
#include "core/Global.h"
#include "core/Memo.h"
#include "platform/RuntimeError.h"
#include "tests/protocol/ScaleBench.h"

namespace torvane {

namespace {

using Scale = ScaleBench;

void expectMantissa(double r, const char* digits, int exponent, bool negative) {
  const Mantissa mantissa = TextToMantissa(r);
  EXPECT_EQ(mantissa.digits, digits) << r;
  EXPECT_EQ(mantissa.exponent, exponent) << r;
  EXPECT_EQ(mantissa.negative, negative) << r;
}

TEST_F(Scale, MantissaOfOneHalf) { expectMantissa(0.5, "500000", -6, false); }

TEST_F(Scale, MantissasOfPlainNumbers) {
  expectMantissa(0, "000000", -5, false);
  expectMantissa(1, "100000", -5, false);
  expectMantissa(-12.5, "125000", -4, true);
  expectMantissa(1000, "100000", -2, false);
  expectMantissa(0.05, "500000", -7, false);
  expectMantissa(1234567, "123456", 1, false);
  expectMantissa(-0.25, "250000", -6, true);
}

TEST_F(Scale, MantissaIsCutAndNotRounded) {
  expectMantissa(2.0 / 3, "666666", -6, false);
  expectMantissa(1.9999999, "199999", -5, false);
}

TEST_F(Scale, MantissasInENotation) {
  expectMantissa(1E-07, "100000", -12, false);
  expectMantissa(-1.25E-09, "125000", -14, true);
  expectMantissa(1E+20, "100000", 15, false);
  expectMantissa(2.5E+16, "250000", 11, false);
}

TEST_F(Scale, ENotationGivesTheSameAsPlainNotation) {
  const Mantissa plain = TextToMantissa(0.00025);
  const Mantissa small = TextToMantissa(0.000025);
  EXPECT_EQ(small.digits, plain.digits);
  EXPECT_EQ(small.exponent, plain.exponent - 1);
}

TEST_F(Scale, OfAnExponentOnlyThreeCharactersCount) { expectMantissa(1E+100, "100000", 5, false); }

TEST_F(Scale, ReadingScales) {
  EXPECT_EQ(rdScale("1").payload, "6186A0");
  EXPECT_EQ(rdScale("0.5").payload, "77A120");
  EXPECT_EQ(rdScale("2.5").payload, "63D090");
}

TEST_F(Scale, NegativeReadingScaleHasBit19) { EXPECT_EQ(rdScale("-2.5").payload, "6BD090"); }

TEST_F(Scale, ReadingScaleOfAMillionGoesOutAsIfDivided) {
  EXPECT_EQ(rdScale("1234567").payload, "21E240");
  EXPECT_EQ(rdScale("1234567").notice, nullptr);
}

TEST_F(Scale, ReadingScaleOfAThirdIsCut) {
  readingLine("0", "0", "3", "1");
  EXPECT_EQ(makeRdScale().payload, "751615");
  EXPECT_EQ(Global.RdScale, "0.3333333333333333");
}

TEST_F(Scale, ReadingMantissaAbove19BitsLosesADigit) {
  EXPECT_EQ(rdScale("0.6").payload, "60EA60");
  EXPECT_EQ(rdScale("0.524287").payload, "77FFFF");
  EXPECT_EQ(rdScale("0.524288").payload, "60CCCC");
}

TEST_F(Scale, FlatReadingLineHasScaleZero) {
  readingLine("0", "5", "100", "5");
  EXPECT_EQ(makeRdScale().payload, "600000");
  EXPECT_EQ(Global.RdScale, "0");
}

TEST_F(Scale, EqualReadingInputsAreADivisionByZeroAndLeaveSlopeZero) {
  Global.RdScale = "7";
  readingLine("100", "0", "100", "50");
  EXPECT_EQ(makeRdScale().payload, "!Divide by zero");
  EXPECT_EQ(Global.RdScale, "0");
  Memo[rec::txtRd1].text = "12.5";
  EXPECT_EQ(makeRdOffset().payload, "61E848");
}

TEST_F(Scale, SmallReadingScaleKeepsItsPowerInTheFirstDigit) {
  readingLine("0", "0", "10000", "1");
  EXPECT_EQ(makeRdScale().payload, "A186A0");
}

TEST_F(Scale, ReadingScaleInENotationIsAsPlain) {
  readingLine("0", "0", "100000", "1");
  EXPECT_EQ(makeRdScale().payload, "B186A0");
  EXPECT_EQ(Global.RdScale, "1E-05");
}

TEST_F(Scale, HugeReadingScaleAsksForABoxAndGoesOn) {
  const Encoded scale = rdScale("1E20");
  ASSERT_NE(scale.notice, nullptr);
  EXPECT_STREQ(scale.notice->text,
               "Scale Overflow: please write down\rReading Scale & Offset settings and\r"
               "report the problem to the software author.");
  EXPECT_STREQ(scale.notice->title, "Algorithm difficulties...");
  EXPECT_TRUE(scale.notice->critical);
  EXPECT_EQ(scale.payload, "10186A0");
  EXPECT_EQ(rdScale("1E19").notice, nullptr);
}

TEST_F(Scale, ReadingOffsets) {
  EXPECT_EQ(rdOffset("0").payload, "700000");
  EXPECT_EQ(rdOffset("12.5").payload, "61E848");
  EXPECT_EQ(rdOffset("1000").payload, "4186A0");
}

TEST_F(Scale, NegativeReadingOffsetHasBit23) { EXPECT_EQ(rdOffset("-12.5").payload, "E1E848"); }

TEST_F(Scale, SmallReadingOffsetCarriesIntoTheSign) {
  EXPECT_EQ(rdOffset("0.5").payload, "87A120");
  EXPECT_EQ(rdOffset("-0.5").payload, "107A120");
}

TEST_F(Scale, ReadingOffsetUsesTheSlopeThatTheScaleLeft) {
  readingLine("10", "100", "20", "150");
  EXPECT_EQ(makeRdScale().payload, "67A120");
  EXPECT_EQ(makeRdOffset().payload, "67A120");
}

TEST_F(Scale, HugeReadingOffsetAsksForABoxAndGoesOn) {
  const Encoded offset = rdOffset("1E12");
  ASSERT_NE(offset.notice, nullptr);
  EXPECT_STREQ(offset.notice->text,
               "Offset Overflow: please write down\rReading Scale & Offset settings and\r"
               "report the problem to the software author.");
  EXPECT_STREQ(offset.notice->title, "Algorithm difficulties...");
  EXPECT_TRUE(offset.notice->critical);
  EXPECT_EQ(offset.payload, "9186A0");
  EXPECT_EQ(rdOffset("1E11").notice, nullptr);
}
TEST_F(Scale, WhatIsNotFiniteIsAnOverflow) {
  readingLine("0", "-1E308", "1", "1E308");
  EXPECT_THROW(makeRdScale(), RuntimeError);
  readingLine("-1E308", "0", "1E308", "1");
  EXPECT_THROW(makeRdScale(), RuntimeError);
  readingLine("0", "0", "1E-300", "1E300");
  EXPECT_THROW(makeRdScale(), RuntimeError);
  Global.RdScale = "1E300";
  readingLine("1E300", "0", "0", "0");
  EXPECT_THROW(makeRdOffset(), RuntimeError);
  Global.AnalogScale = "1E300";
  analogLine("1E300", "0", "0", "0");
  EXPECT_THROW(makeAnalogOffset(), RuntimeError);
}

TEST_F(Scale, AnOverflowIsToldByNameAndNumber) {
  readingLine("0", "-1E308", "1", "1E308");
  try {
    makeRdScale();
    FAIL() << "an overflow passes";
  } catch (const RuntimeError& error) {
    EXPECT_STREQ(error.what(), "Overflow");
    EXPECT_EQ(error.number, 6);
  }
}

TEST_F(Scale, TextsWithoutNumbersCountAsZero) {
  readingLine("x", "y", "1", "2");
  EXPECT_EQ(makeRdScale().payload, "630D40");
  EXPECT_EQ(makeRdOffset().payload, "700000");
}

TEST_F(Scale, OffsetsNeedTheFirstPointAlone) {
  Global.RdScale = Global.AnalogScale = "1";
  for (int record : {rec::txtIn2, rec::txtRd2, rec::txtAOutRd2, rec::txtAOutOut2}) {
    Memo[record].text = "1E999";
  }
  EXPECT_NO_THROW(makeRdOffset());
  EXPECT_NO_THROW(makeAnalogOffset());
}

}  // namespace

}  // namespace torvane
