// SPDX-License-Identifier: MIT
// The line of the analog output, down to the digits.
#include "core/Global.h"
#include "core/Memo.h"
#include "tests/protocol/ScaleBench.h"

namespace torvane {

namespace {

using AnalogScale = ScaleBench;

TEST_F(AnalogScale, VoltageOutputOfAProcessInputIsScaledPlainly) {
  processInput();
  analogLine("0", "0", "10000", "10");
  EXPECT_EQ(makeAnalogScale().payload, "9186A0");
  EXPECT_EQ(Global.AnalogScale, "0.001");
}

TEST_F(AnalogScale, TemperatureInTenthsShiftsTheAnalogScaleByATenth) {
  analogLine("0", "0", "10000", "10");
  for (int type : {0, 1}) {
    chooseOption(rec::optInType, 3, type);
    chooseFormat(1);
    EXPECT_EQ(makeAnalogScale().payload, "8186A0") << type;
    chooseFormat(0);
    EXPECT_EQ(makeAnalogScale().payload, "9186A0") << type;
  }
}

TEST_F(AnalogScale, CurrentOutputIsWorkedOutInAmperes) {
  processInput();
  chooseOption(rec::optAOutV, 2, 1);
  analogLine("0", "0", "10000", "20");
  EXPECT_EQ(makeAnalogScale().payload, "930D40");
  EXPECT_EQ(Global.AnalogScale, "2E-06");
}

TEST_F(AnalogScale, CurrentOutputOfATemperatureInTenthsShiftsTwice) {
  chooseOption(rec::optAOutV, 2, 1);
  chooseFormat(1);
  analogLine("0", "0", "10000", "20");
  EXPECT_EQ(makeAnalogScale().payload, "830D40");
}

TEST_F(AnalogScale, AnalogMantissaAbove19BitsLosesADigit) {
  processInput();
  analogLine("0", "0", "10", "6");
  EXPECT_EQ(makeAnalogScale().payload, "60EA60");
}

TEST_F(AnalogScale, NegativeAnalogScaleHasBit19) {
  processInput();
  analogLine("0", "10", "10000", "0");
  EXPECT_EQ(makeAnalogScale().payload, "9986A0");
}

TEST_F(AnalogScale, EqualAnalogReadingsAreADivisionByZeroAndKeepTheLastSlope) {
  Global.RdScale = "7";
  Global.AnalogScale = "3";
  analogLine("5", "0", "5", "10");
  EXPECT_EQ(makeAnalogScale().payload, "!Divide by zero");
  EXPECT_EQ(Global.RdScale, "0");
  EXPECT_EQ(Global.AnalogScale, "3");
}

TEST_F(AnalogScale, FlatAnalogLineHasScaleZero) {
  processInput();
  analogLine("0", "5", "100", "5");
  EXPECT_EQ(makeAnalogScale().payload, "600000");
}

TEST_F(AnalogScale, HugeAnalogScaleAsksForABox) {
  processInput();
  analogLine("0", "0", "1", "1E20");
  const Encoded scale = makeAnalogScale();
  ASSERT_NE(scale.notice, nullptr);
  EXPECT_STREQ(scale.notice->text,
               "Scale Overflow: please write down\rReading Scale & Offset settings and\r"
               "report the problem to the software author.");
  EXPECT_EQ(scale.payload, "10186A0");
}

TEST_F(AnalogScale, AnalogOffsetOfZeroHasItsOwnPayload) { EXPECT_EQ(analogOffset("0").payload, "C00000"); }

TEST_F(AnalogScale, AnalogOffsets) {
  EXPECT_EQ(analogOffset("12.5").payload, "61E848");
  EXPECT_EQ(analogOffset("-12.5").payload, "E1E848");
  EXPECT_EQ(analogOffset("1").payload, "7186A0");
}

TEST_F(AnalogScale, SmallAnalogOffsetIsNormalised) {
  EXPECT_EQ(analogOffset("0.5").payload, "70C350");
  EXPECT_EQ(analogOffset("0.00012345").payload, "70000C");
  EXPECT_EQ(analogOffset("-0.5").payload, "F0C350");
}

TEST_F(AnalogScale, AnalogOffsetWithMorePlacesThanDigitsEndsAsZero) {
  EXPECT_EQ(analogOffset("1E-09").payload, "700000");
  EXPECT_EQ(analogOffset("-1E-09").payload, "F00000");
}

TEST_F(AnalogScale, AnalogOffsetTakesTheSlopeOfTheScaleAndTheOutputAsTyped) {
  processInput();
  chooseOption(rec::optAOutV, 2, 1);
  analogLine("1000", "4", "9000", "20");
  makeAnalogScale();
  EXPECT_EQ(Global.AnalogScale, "2E-06");
  EXPECT_EQ(makeAnalogOffset().payload, "7619B8");
}

TEST_F(AnalogScale, HugeAnalogOffsetAsksForABox) {
  const Encoded offset = analogOffset("1E12");
  ASSERT_NE(offset.notice, nullptr);
  EXPECT_STREQ(offset.notice->text,
               "Offset Overflow: please write down\rReading Scale & Offset settings and\r"
               "report the problem to the software author.");
  EXPECT_EQ(offset.payload, "9186A0");
}

}  // namespace

}  // namespace torvane
