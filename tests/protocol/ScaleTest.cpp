// SPDX-License-Identifier: MIT
// Scale and offset arithmetic, down to the digits.
#include "protocol/Scale.h"

#include <gtest/gtest.h>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

class Scale : public testing::Test {
 protected:
  void SetUp() override { freshSetup(); }

  static void readingLine(const char* x1, const char* y1, const char* x2, const char* y2) {
    Memo[rec::txtIn1].text = x1;
    Memo[rec::txtRd1].text = y1;
    Memo[rec::txtIn2].text = x2;
    Memo[rec::txtRd2].text = y2;
  }

  static void analogLine(const char* x1, const char* y1, const char* x2, const char* y2) {
    Memo[rec::txtAOutRd1].text = x1;
    Memo[rec::txtAOutOut1].text = y1;
    Memo[rec::txtAOutRd2].text = x2;
    Memo[rec::txtAOutOut2].text = y2;
  }

  // A reading line whose slope is this number.
  static Encoded rdScale(const char* slope) {
    readingLine("0", "0", "1", slope);
    return makeRdScale();
  }

  // A reading line of slope 1 whose offset is this number.
  static Encoded rdOffset(const char* offset) {
    readingLine("0", offset, "1", offset);
    return makeRdOffset();
  }

  static Encoded analogOffset(const char* offset) {
    analogLine("0", offset, "1", offset);
    return makeAnalogOffset();
  }

  static void processInput() { chooseOption(rec::optInType, 3, 2); }
};

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

TEST_F(Scale, VoltageOutputOfAProcessInputIsScaledPlainly) {
  processInput();
  analogLine("0", "0", "10000", "10");
  EXPECT_EQ(makeAnalogScale().payload, "9186A0");
  EXPECT_EQ(Global.AnalogScale, "0.001");
}

TEST_F(Scale, TemperatureInTenthsShiftsTheAnalogScaleByATenth) {
  analogLine("0", "0", "10000", "10");
  for (int type : {0, 1}) {
    chooseOption(rec::optInType, 3, type);
    chooseFormat(1);
    EXPECT_EQ(makeAnalogScale().payload, "8186A0") << type;
    chooseFormat(0);
    EXPECT_EQ(makeAnalogScale().payload, "9186A0") << type;
  }
}

TEST_F(Scale, CurrentOutputIsWorkedOutInAmperes) {
  processInput();
  chooseOption(rec::optAOutV, 2, 1);
  analogLine("0", "0", "10000", "20");
  EXPECT_EQ(makeAnalogScale().payload, "930D40");
  EXPECT_EQ(Global.AnalogScale, "2E-06");
}

TEST_F(Scale, CurrentOutputOfATemperatureInTenthsShiftsTwice) {
  chooseOption(rec::optAOutV, 2, 1);
  chooseFormat(1);
  analogLine("0", "0", "10000", "20");
  EXPECT_EQ(makeAnalogScale().payload, "830D40");
}

TEST_F(Scale, AnalogMantissaAbove19BitsLosesADigit) {
  processInput();
  analogLine("0", "0", "10", "6");
  EXPECT_EQ(makeAnalogScale().payload, "60EA60");
}

TEST_F(Scale, NegativeAnalogScaleHasBit19) {
  processInput();
  analogLine("0", "10", "10000", "0");
  EXPECT_EQ(makeAnalogScale().payload, "9986A0");
}

TEST_F(Scale, EqualAnalogReadingsAreADivisionByZeroAndKeepTheLastSlope) {
  Global.RdScale = "7";
  Global.AnalogScale = "3";
  analogLine("5", "0", "5", "10");
  EXPECT_EQ(makeAnalogScale().payload, "!Divide by zero");
  EXPECT_EQ(Global.RdScale, "0");
  EXPECT_EQ(Global.AnalogScale, "3");
}

TEST_F(Scale, FlatAnalogLineHasScaleZero) {
  processInput();
  analogLine("0", "5", "100", "5");
  EXPECT_EQ(makeAnalogScale().payload, "600000");
}

TEST_F(Scale, HugeAnalogScaleAsksForABox) {
  processInput();
  analogLine("0", "0", "1", "1E20");
  const Encoded scale = makeAnalogScale();
  ASSERT_NE(scale.notice, nullptr);
  EXPECT_STREQ(scale.notice->text,
               "Scale Overflow: please write down\rReading Scale & Offset settings and\r"
               "report the problem to the software author.");
  EXPECT_EQ(scale.payload, "10186A0");
}

TEST_F(Scale, AnalogOffsetOfZeroHasItsOwnPayload) { EXPECT_EQ(analogOffset("0").payload, "C00000"); }

TEST_F(Scale, AnalogOffsets) {
  EXPECT_EQ(analogOffset("12.5").payload, "61E848");
  EXPECT_EQ(analogOffset("-12.5").payload, "E1E848");
  EXPECT_EQ(analogOffset("1").payload, "7186A0");
}

TEST_F(Scale, SmallAnalogOffsetIsNormalised) {
  EXPECT_EQ(analogOffset("0.5").payload, "70C350");
  EXPECT_EQ(analogOffset("0.00012345").payload, "70000C");
  EXPECT_EQ(analogOffset("-0.5").payload, "F0C350");
}

TEST_F(Scale, AnalogOffsetWithMorePlacesThanDigitsEndsAsZero) {
  EXPECT_EQ(analogOffset("1E-09").payload, "700000");
  EXPECT_EQ(analogOffset("-1E-09").payload, "F00000");
}

TEST_F(Scale, AnalogOffsetTakesTheSlopeOfTheScaleAndTheOutputAsTyped) {
  processInput();
  chooseOption(rec::optAOutV, 2, 1);
  analogLine("1000", "4", "9000", "20");
  makeAnalogScale();
  EXPECT_EQ(Global.AnalogScale, "2E-06");
  EXPECT_EQ(makeAnalogOffset().payload, "7619B8");
}

TEST_F(Scale, HugeAnalogOffsetAsksForABox) {
  const Encoded offset = analogOffset("1E12");
  ASSERT_NE(offset.notice, nullptr);
  EXPECT_STREQ(offset.notice->text,
               "Offset Overflow: please write down\rReading Scale & Offset settings and\r"
               "report the problem to the software author.");
  EXPECT_EQ(offset.payload, "9186A0");
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

// ---- lines through the origin

// Two points of a line y = s * x, neither of them the origin.
void chooseLineThroughOrigin(std::mt19937& random, int x1, int y1, int x2, int y2, int highest) {
  const int rise = between(random, 1, 40);
  const int run = between(random, 1, 40);
  const int most = highest / std::max(rise, run);
  const int first = between(random, 1, most);
  int second = first;
  while (second == first) second = between(random, 1, most);
  Memo[x1].text = numberText(std::int32_t{run * first});
  Memo[y1].text = numberText(std::int32_t{rise * first});
  Memo[x2].text = numberText(std::int32_t{run * second});
  Memo[y2].text = numberText(std::int32_t{rise * second});
}

TEST(LinesThroughTheOrigin, HaveNoReadingOffset) {
  std::mt19937 random{11};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    chooseLineThroughOrigin(random, rec::txtIn1, rec::txtRd1, rec::txtIn2, rec::txtRd2, 9999);
    makeRdScale();
    ASSERT_EQ(makeRdOffset().payload, "700000") << Memo[rec::txtIn1].text << " " << Memo[rec::txtRd1].text;
  }
}

TEST(LinesThroughTheOrigin, HaveNoAnalogOffset) {
  std::mt19937 random{12};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    chooseLineThroughOrigin(random, rec::txtAOutRd1, rec::txtAOutOut1, rec::txtAOutRd2, rec::txtAOutOut2,
                            9999);
    makeAnalogScale();
    ASSERT_EQ(makeAnalogOffset().payload, "C00000") << Memo[rec::txtAOutRd1].text;
  }
}

// Not even the smallest true offset is taken for a residue.
TEST(LinesBesideTheOrigin, KeepTheirOffset) {
  std::mt19937 random{13};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    const int x1 = between(random, 0, 9998);
    const int x2 = between(random, x1 + 1, 9999);
    const int y1 = between(random, -1999, 9999);
    const int y2 = between(random, -1999, 9999);
    if (y1 * x2 == y2 * x1) continue;
    Memo[rec::txtIn1].text = numberText(std::int32_t{x1});
    Memo[rec::txtIn2].text = numberText(std::int32_t{x2});
    Memo[rec::txtRd1].text = numberText(std::int32_t{y1});
    Memo[rec::txtRd2].text = numberText(std::int32_t{y2});
    makeRdScale();
    ASSERT_NE(makeRdOffset().payload, "700000") << x1 << " " << y1 << " " << x2 << " " << y2;
  }
}

TEST(Slopes, AreHandedOnWithoutLosingADigit) {
  std::mt19937 random{14};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    fillRandomMemo(random);
    const double rise = Val(Memo[rec::txtRd2].text) - Val(Memo[rec::txtRd1].text);
    makeRdScale();
    ASSERT_EQ(Val(Global.RdScale), rise / (Val(Memo[rec::txtIn2].text) - Val(Memo[rec::txtIn1].text)));
  }
}

}  // namespace

}  // namespace torvane
