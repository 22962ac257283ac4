// SPDX-License-Identifier: MIT
// Encoders of the bit registers, bit by bit.
#include <gtest/gtest.h>

#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "platform/RuntimeError.h"
#include "protocol/Encoders.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

class EncodersBits : public testing::Test {
 protected:
  // Nothing chosen, nothing ticked: what is not looked at stays out of the payloads.
  void SetUp() override {
    freshSetup();
    Memo.reset();
  }
};

// One record's value and the payload that it makes alone.
struct ValueCase {
  int record;
  std::int16_t value;
  const char* payload;
};

void expectValues(Encoded (*make)(), const std::vector<ValueCase>& cases) {
  for (const auto& [record, value, payload] : cases) {
    const std::int16_t before = Memo[record].value;
    Memo[record].value = value;
    EXPECT_EQ(make().payload, payload) << "record " << record << " = " << value;
    Memo[record].value = before;
  }
}

TEST_F(EncodersBits, ThermocoupleTypeStandsFromBit2Upward) {
  chooseOption(rec::optInType, 3, 0);
  expectValues(makeInput, {{rec::lstTCTypes, 0, "00"},
                           {rec::lstTCTypes, 1, "04"},
                           {rec::lstTCTypes, 5, "14"},
                           {rec::lstTCTypes, 9, "24"}});
}

TEST_F(EncodersBits, ThermocoupleGoesBeforeRTDAndRTDBeforeProcess) {
  for (int i = 0; i < 3; ++i) Memo[rec::optInType + i].flag = True;
  EXPECT_EQ(makeInput().payload, "00");
  Memo[rec::optInType].flag = False;
  EXPECT_EQ(makeInput().payload, "0D");
  Memo[rec::optInType + 1].flag = False;
  EXPECT_EQ(makeInput().payload, "02");
  Memo[rec::optInType + 2].flag = False;
  EXPECT_EQ(makeInput().payload, "02");
}

TEST_F(EncodersBits, RTDOfCurve392CountsItsWiresFromZero) {
  chooseOption(rec::optInType, 3, 1);
  Memo[rec::cboRTDCurves].value = 1;
  expectValues(makeInput,
               {{rec::cboRTDWires, 0, "01"}, {rec::cboRTDWires, 1, "05"}, {rec::cboRTDWires, 2, "09"}});
}

TEST_F(EncodersBits, RTDOfCurve385CountsItsWiresFromThree) {
  chooseOption(rec::optInType, 3, 1);
  expectValues(makeInput,
               {{rec::cboRTDWires, 0, "0D"}, {rec::cboRTDWires, 1, "11"}, {rec::cboRTDWires, 2, "15"}});
}

TEST_F(EncodersBits, RTDWithMoreWiresThanThereAreCountsAsTheFirst) {
  chooseOption(rec::optInType, 3, 1);
  expectValues(makeInput, {{rec::cboRTDWires, 3, "0D"}, {rec::cboRTDWires, 32767, "0D"}});
  Memo[rec::cboRTDCurves].value = 1;
  expectValues(makeInput, {{rec::cboRTDWires, 3, "01"}, {rec::cboRTDWires, -1, "01"}});
}

TEST_F(EncodersBits, RTDResistanceStandsInTheTopBits) {
  chooseOption(rec::optInType, 3, 1);
  Memo[rec::cboRTDCurves].value = 1;
  expectValues(makeInput, {{rec::cboRTDValue, 0, "01"},
                           {rec::cboRTDValue, 1, "41"},
                           {rec::cboRTDValue, 2, "81"},
                           {rec::cboRTDValue, 3, "01"}});
}

TEST_F(EncodersBits, ProcessRangeStandsFromBit2Upward) {
  chooseOption(rec::optInType, 3, 2);
  expectValues(makeInput, {{rec::lstProc, 0, "02"}, {rec::lstProc, 1, "06"}, {rec::lstProc, 3, "0E"}});
}

TEST_F(EncodersBits, InputTypeBeyond16BitsIsAnOverflow) {
  chooseOption(rec::optInType, 3, 0);
  Memo[rec::lstTCTypes].value = 8191;
  EXPECT_EQ(makeInput().payload, "7FFC");
  Memo[rec::lstTCTypes].value = 8192;
  EXPECT_THROW(makeInput(), RuntimeError);
}

TEST_F(EncodersBits, ReadingFormatCodesAre1To4) {
  const char* expected[] = {"01", "02", "03", "04"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    EXPECT_EQ(makeRdgCnfg().payload, expected[decimals]);
  }
}

TEST_F(EncodersBits, ReadingConfigurationWithNoFormatChosenFallsThroughToOneDecimal) {
  EXPECT_EQ(makeRdgCnfg().payload, "02");
}

TEST_F(EncodersBits, ReadingConfigurationHoldsUnitAndFilter) {
  expectValues(makeRdgCnfg, {{rec::cboTUnit, 1, "0A"},
                             {rec::cboTUnit, -1, "0A"},
                             {rec::lstFiltConst, 1, "22"},
                             {rec::lstFiltConst, 2, "42"},
                             {rec::lstFiltConst, 7, "E2"}});
}

TEST_F(EncodersBits, Alarm1HasABitForEachChoice) {
  // A latch record of 0 is "Latch", which sets bit 2.
  expectValues(makeAl1Cnfg, {{rec::cboAl1Latch, 0, "04"},
                             {rec::cboAl1Latch, 1, "00"},
                             {rec::chkAl1Enabled, 1, "05"},
                             {rec::chkAnalogOutputEnabled, 1, "05"},
                             {rec::cboAl1Ctrl, 1, "06"},
                             {rec::cboAl1Closure, 1, "0C"},
                             {rec::cboAl1Setup, 1, "14"},
                             {rec::cboAl1Setup, 2, "24"},
                             {rec::cboAl1Setup, 3, "34"},
                             {rec::chkLBAEnabled, 1, "44"},
                             {rec::chkAl1AutoPOn, 1, "84"}});
}

TEST_F(EncodersBits, Alarm1EnablesAreLookedAtForOneOnly) {
  expectValues(makeAl1Cnfg, {{rec::chkAl1Enabled, -1, "04"}, {rec::chkAnalogOutputEnabled, -1, "04"}});
}

TEST_F(EncodersBits, SimpleMenuHasBothAlarmsAlwaysOn) {
  chooseKind(kind::simpleMenu);
  Memo[rec::cboAl1Latch].value = 1;
  Memo[rec::cboAl2Latch].value = 1;
  Memo[rec::optAOutV].flag = True;
  EXPECT_EQ(makeAl1Cnfg().payload, "01");
  EXPECT_EQ(makeAl2Cnfg().payload, "01");
}

TEST_F(EncodersBits, AnalogOutput1TakesAlarm2sLatchIntoAlarm1) {
  Memo[rec::cboAl1Latch].value = 1;
  EXPECT_EQ(makeAl1Cnfg().payload, "00");
  Hardware.Out1.Analog = True;
  EXPECT_EQ(makeAl1Cnfg().payload, "04");
  Memo[rec::cboAl2Latch].value = 1;
  EXPECT_EQ(makeAl1Cnfg().payload, "00");
}

TEST_F(EncodersBits, Alarm2HasABitForEachChoice) {
  Memo[rec::optAOutV].flag = True;
  expectValues(makeAl2Cnfg, {{rec::cboAl2Latch, 0, "04"},
                             {rec::cboAl2Latch, 1, "00"},
                             {rec::chkAl2Enabled, 1, "05"},
                             {rec::chkAl2Enabled, -1, "04"},
                             {rec::cboAl2Ctrl, 1, "06"},
                             {rec::cboAl2Closure, 1, "0C"},
                             {rec::cboAl2Setup, 1, "14"},
                             {rec::cboAl2Setup, 3, "34"}});
}

TEST_F(EncodersBits, Alarm2CarriesTheAnalogOutputsMode) {
  Memo[rec::cboAl2Latch].value = 1;
  EXPECT_EQ(makeAl2Cnfg().payload, "80");
  Memo[rec::optAOutV].flag = True;
  EXPECT_EQ(makeAl2Cnfg().payload, "00");
}

TEST_F(EncodersBits, SimpleMenuLeavesAlarm2sControlOut) {
  chooseKind(kind::simpleMenu);
  Memo[rec::optAOutV].flag = True;
  Memo[rec::cboAl2Ctrl].value = 1;
  EXPECT_EQ(makeAl2Cnfg().payload, "05");
}

TEST_F(EncodersBits, Output1HasABitForEachChoice) {
  expectValues(makeOut1Cnfg, {{rec::cboOut1Ctrl, 1, "01"},
                              {rec::cboOut1Action, 1, "02"},
                              {rec::chkOut1AutoPID, 1, "04"},
                              {rec::chkOut1Anti, 1, "10"},
                              {rec::chkOut1Start, 1, "20"},
                              {rec::cboAl1Setup, 1, "00"}});
  Memo[rec::opt420mA].flag = True;
  EXPECT_EQ(makeOut1Cnfg().payload, "40");
}

TEST_F(EncodersBits, SimpleMenuKeepsAlarm1sSetupInOutput1) {
  chooseKind(kind::simpleMenu);
  Memo[rec::cboOut1Action].value = 1;
  expectValues(makeOut1Cnfg,
               {{rec::cboAl1Setup, 0, "82"}, {rec::cboAl1Setup, 1, "80"}, {rec::cboAl1Setup, 3, "80"}});
}

TEST_F(EncodersBits, Rkw77WithFourToTwentyMilliampsCarriesIntoBit7) {
  chooseKind(kind::rkw77);
  Memo[rec::opt420mA].flag = True;
  Memo[rec::cboOut1Ctrl].value = 1;
  Memo[rec::chkOut1AutoPID].value = 1;
  EXPECT_EQ(makeOut1Cnfg().payload, "84");
  EXPECT_EQ(makeOut1Cnfg().mask, 127);
}

TEST_F(EncodersBits, Rkw77WithZeroToTwentyMilliampsKeepsItsControl) {
  chooseKind(kind::rkw77);
  Memo[rec::cboOut1Ctrl].value = 1;
  EXPECT_EQ(makeOut1Cnfg().payload, "01");
}

TEST_F(EncodersBits, Output1IsASumAndNotAnOr) {
  Memo[rec::cboOut1Ctrl].value = 1;
  Memo[rec::cboOut1Action].value = 2;
  Memo[rec::chkOut1AutoPID].value = 1;
  EXPECT_EQ(makeOut1Cnfg().payload, "09");
}

TEST_F(EncodersBits, Output2HasABitForEachChoice) {
  expectValues(makeOut2Cnfg, {{rec::cboOut2Ctrl, 1, "01"},
                              {rec::cboOut2Action, 1, "02"},
                              {rec::chkOut2AutoPID, 1, "04"},
                              {rec::chkRampEn, 1, "08"},
                              {rec::chkSoakEn, 1, "10"},
                              {rec::lstOut1DamFactor, 1, "20"},
                              {rec::lstOut1DamFactor, 7, "E0"},
                              {rec::cboAl2Setup, 1, "00"}});
}

TEST_F(EncodersBits, SimpleMenuKeepsAlarm2sSetupInOutput2) {
  chooseKind(kind::simpleMenu);
  Memo[rec::cboOut2Ctrl].value = 1;
  Memo[rec::cboOut2Action].value = 1;
  expectValues(makeOut2Cnfg, {{rec::cboAl2Setup, 0, "02"}, {rec::cboAl2Setup, 1, "00"}});
}

TEST_F(EncodersBits, SimpleMenuRecordHidesOutput2sControlOnAnyLine) {
  chooseKind(kind::rkw77);
  Memo[rec::menuKind].extra = 2;
  Memo[rec::cboOut2Ctrl].value = 1;
  Memo[rec::cboOut2Action].value = 1;
  EXPECT_EQ(makeOut2Cnfg().payload, "02");
}

TEST_F(EncodersBits, Output2BeyondEightBitsIsAnErrorWithoutAMark) {
  Memo[rec::lstOut1DamFactor].value = 7;
  Memo[rec::cboOut2Ctrl].value = 31;
  EXPECT_EQ(makeOut2Cnfg().payload, "FF");
  Memo[rec::cboOut2Ctrl].value = 32;
  EXPECT_EQ(makeOut2Cnfg().payload, "Error");
}

TEST_F(EncodersBits, ColoursHaveTwoBitsEach) {
  struct ColorCase {
    int record;
    const char* red;
    const char* green;
  };
  for (int record : {81, 82, 83}) Memo[record].extra = 2;
  for (const auto& [record, red, green] : {ColorCase{81, "02", "01"}, {82, "08", "04"}, {83, "20", "10"}}) {
    Memo[record].extra = 0;
    EXPECT_EQ(makeColors().payload, red);
    Memo[record].extra = 1;
    EXPECT_EQ(makeColors().payload, green);
    Memo[record].extra = 2;
    EXPECT_EQ(makeColors().payload, "00");
    Memo[record].extra = -1;
    EXPECT_EQ(makeColors().payload, "00");
  }
}

TEST_F(EncodersBits, MiscellaneousHasABitForEachChoice) {
  EXPECT_EQ(makeMiscellaneous().payload, "00");
  chooseOption(rec::optIDCode, 3, 0);
  EXPECT_EQ(makeMiscellaneous().payload, "00");
  chooseOption(rec::optIDCode, 3, 1);
  EXPECT_EQ(makeMiscellaneous().payload, "04");
  chooseOption(rec::optIDCode, 3, 2);
  EXPECT_EQ(makeMiscellaneous().payload, "08");
  chooseOption(rec::optIDCode, 3, -1);
  expectValues(makeMiscellaneous, {{rec::chkOut1Self, 1, "10"},
                                   {rec::chkOut1Self, -1, "00"},
                                   {rec::chkSPDeviation, 1, "80"},
                                   {rec::chkSPDeviation, -1, "00"}});
}

TEST_F(EncodersBits, BusFormatFollowsTheUsersChoice) {
  Hardware.BusMode = 1;
  EXPECT_EQ(makeBusFormat().payload, "34");
  Memo[rec::optRS485].flag = True;
  Hardware.BusMode = 0;
  EXPECT_EQ(makeBusFormat().payload, "3C");
}

TEST_F(EncodersBits, BusFormatOfTheRkw77LineFollowsTheFit) {
  chooseKind(kind::rkw77);
  Memo[rec::optRS485].flag = True;
  Hardware.BusMode = 0;
  EXPECT_EQ(makeBusFormat().payload, "34");
  Memo[rec::optRS485].flag = False;
  for (std::int16_t mode : std::vector<std::int16_t>{1, 2, 3, 4}) {
    Hardware.BusMode = mode;
    EXPECT_EQ(makeBusFormat().payload, "3C") << mode;
  }
}

TEST_F(EncodersBits, FieldsBeyond16BitsAreAnOverflow) {
  struct OverflowCase {
    Encoded (*make)();
    int record;
  };
  const OverflowCase cases[] = {{makeInput, rec::lstProc},        {makeRdgCnfg, rec::lstFiltConst},
                                {makeAl1Cnfg, rec::cboAl1Setup},  {makeAl2Cnfg, rec::cboAl2Setup},
                                {makeOut1Cnfg, rec::chkOut1Anti}, {makeOut2Cnfg, rec::lstOut1DamFactor}};
  for (const auto& [make, record] : cases) {
    Memo[record].value = 32767;
    EXPECT_THROW(make(), RuntimeError) << record;
    Memo[record].value = -32768;
    EXPECT_THROW(make(), RuntimeError) << record;
  }
}

TEST_F(EncodersBits, AnalogOutputEnableHearsOnlyMinusOne) {
  for (const auto& [value, payload] : {std::pair{-1, "01"}, {0, "00"}, {1, "00"}}) {
    Memo[rec::chkAnalogOutputEnabled].value = static_cast<std::int16_t>(value);
    EXPECT_EQ(makeAnalogOutputEnable(), payload) << value;
  }
  Memo[rec::chkAnalogOutputEnabled].value = 0;
}

}  // namespace

}  // namespace torvane
