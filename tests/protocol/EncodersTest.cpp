// SPDX-License-Identifier: MIT
// Encoders of the registers that carry one number.
#include "protocol/Encoders.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "platform/RuntimeError.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

class Encoders : public testing::Test {
 protected:
  void SetUp() override { freshSetup(); }
};

struct SetPointRegister {
  const char* name;
  Encoded (*make)();
  int record;
};

constexpr SetPointRegister setPoints[] = {
    {"makeSp1", makeSp1, 1},
    {"makeSp2", makeSp2, 2},
    {"makeAl1High", makeAl1High, 29},
    {"makeAl1Low", makeAl1Low, 30},
    {"makeAl2High", makeAl2High, 36},
    {"makeAl2Low", makeAl2Low, 37},
    {"makeCJOffset", makeCJOffset, 41},
};

struct NumberRegister {
  const char* name;
  Encoded (*make)();
  int record;
};

int faultOf(Encoded (*make)()) {
  try {
    make();
  } catch (const RuntimeError& error) {
    return error.number;
  }
  return 0;
}

constexpr int overflow = static_cast<int>(Fault::overflow);

TEST_F(Encoders, TakesTheFirstPointOutOfAText) {
  EXPECT_EQ(remDp("12.3"), "123");
  EXPECT_EQ(remDp("-0.50"), "-050");
  EXPECT_EQ(remDp("1.2.3"), "12.3");
  EXPECT_EQ(remDp("0005."), "0005");
  EXPECT_EQ(remDp("."), "");
  EXPECT_EQ(remDp(""), "");
}

TEST_F(Encoders, LeavesATextWithoutAPointUnchanged) { EXPECT_EQ(remDp("123"), "123"); }

TEST_F(Encoders, NegativeSetPointWithOneDecimalHasSignAndCodeInItsFirstDigit) {
  chooseFormat(1);
  EXPECT_EQ(fabASp("-12.3"), "A0007B");
}

TEST_F(Encoders, SetPointOfZeroStillHasADecimalCode) {
  chooseFormat(0);
  EXPECT_EQ(fabASp("0"), "100000");
}

TEST_F(Encoders, NegativeZeroHasNoSign) {
  chooseFormat(1);
  EXPECT_EQ(fabASp("-0.0"), "200000");
}

TEST_F(Encoders, EveryReadingFormatHasItsDecimalCode) {
  const char* expected[] = {"1004D2", "2004D2", "3004D2", "4004D2"};
  const char* texts[] = {"1234", "123.4", "12.34", "1.234"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    EXPECT_EQ(fabASp(texts[decimals]), expected[decimals]);
  }
}

TEST_F(Encoders, NegativeValuesAddEightToEveryDecimalCode) {
  const char* expected[] = {"90007B", "A0007B", "B0007B", "C0007B"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    EXPECT_EQ(fabASp("-123"), expected[decimals]);
  }
}

TEST_F(Encoders, SetPointWithNoFormatChosenFallsThroughToThreeDecimals) {
  chooseFormat(-1);
  EXPECT_EQ(fabASp("1"), "400001");
}

TEST_F(Encoders, SetPointWithTheEditorsTrailingPointIsAWholeNumber) {
  chooseFormat(0);
  EXPECT_EQ(fabASp("0005."), "100005");
}

TEST_F(Encoders, SetPointThatIsNoNumberIsZero) {
  chooseFormat(1);
  EXPECT_EQ(fabASp("abc"), "200000");
  EXPECT_EQ(fabASp(""), "200000");
}

TEST_F(Encoders, SetPointTakesTheNumberAtTheStart) {
  chooseFormat(0);
  EXPECT_EQ(fabASp("12abc"), "10000C");
}

TEST_F(Encoders, LargestMagnitudeOfASetPointIsThatOf16Bits) {
  chooseFormat(0);
  EXPECT_EQ(fabASp("32767"), "107FFF");
  EXPECT_EQ(fabASp("-32767"), "907FFF");
  EXPECT_THROW(fabASp("32768"), RuntimeError);
  EXPECT_THROW(fabASp("-32768"), RuntimeError);
  EXPECT_THROW(fabASp("1E300"), RuntimeError);
}

TEST_F(Encoders, EverySetPointRegisterReadsItsOwnRecord) {
  chooseFormat(1);
  for (const auto& [name, make, record] : setPoints) {
    Memo[record].text = "-12.3";
    EXPECT_EQ(make().payload, "A0007B") << name;
    EXPECT_EQ(make().notice, nullptr) << name;
    Memo[record].text = "4000.0";
    EXPECT_EQ(faultOf(make), overflow) << name;
    Memo[record].text = "";
  }
}

TEST_F(Encoders, ASetPointPayloadThatIsTooShortAsksForAPlainBox) {
  const Notice* notice = setPointNotice("12345");
  ASSERT_NE(notice, nullptr);
  EXPECT_STREQ(notice->text, "Setpoint data less than 6 char");
  EXPECT_STREQ(notice->title, "");
  EXPECT_FALSE(notice->critical);
  EXPECT_EQ(setPointNotice("123456"), nullptr);
}

TEST_F(Encoders, IDCodeIsItsNumberInFourDigits) {
  Memo[rec::txtIDCode].text = "1234";
  EXPECT_EQ(makeIDCode().payload, "04D2");
  Memo[rec::txtIDCode].text = "none";
  EXPECT_EQ(makeIDCode().payload, "0000");
  Memo[rec::txtIDCode].text = "-1";
  EXPECT_EQ(makeIDCode().payload, "FFFF");
}

TEST_F(Encoders, ResetIsRoundedToAWholeNumber) {
  Memo[rec::txtOut1Reset].text = "0180";
  EXPECT_EQ(makeOut1Reset().payload, "00B4");
  Memo[rec::txtOut1Reset].text = "179.6";
  EXPECT_EQ(makeOut1Reset().payload, "00B4");
  Memo[rec::txtOut1Reset].text = "2.5";
  EXPECT_EQ(makeOut1Reset().payload, "0002");
}

TEST_F(Encoders, RateOf199Point9IsTheHighest) {
  Memo[rec::txtOut1Rate].text = "199.9";
  EXPECT_EQ(makeOut1Rate().payload, "07CF");
}

TEST_F(Encoders, RateOf200IsRefused) {
  Memo[rec::txtOut1Rate].text = "200.0";
  EXPECT_EQ(makeOut1Rate().payload, "!Out1 Rate Format Error...");
}

TEST_F(Encoders, RateIsRefusedBelowZeroAndFarAboveItsRange) {
  for (const char* text : {"-0.1", "4000.0", "1E9"}) {
    Memo[rec::txtOut1Rate].text = text;
    EXPECT_EQ(makeOut1Rate().payload, "!Out1 Rate Format Error...") << text;
  }
}

TEST_F(Encoders, RateOfZeroIsAccepted) {
  Memo[rec::txtOut1Rate].text = "000.0";
  EXPECT_EQ(makeOut1Rate().payload, "0000");
}

TEST_F(Encoders, OnOffOutput1SendsItsDeadBand) {
  Memo[rec::txtOut1DeadBand].text = "20.0";
  Memo[rec::txtOut1PB].text = "30.0";
  Memo[rec::cboOut1Ctrl].value = 0;
  EXPECT_EQ(makeOut1PropBand().payload, "00C8");
}

TEST_F(Encoders, PIDOutput1SendsItsProportionalBand) {
  Memo[rec::txtOut1DeadBand].text = "20.0";
  Memo[rec::txtOut1PB].text = "30.0";
  Memo[rec::cboOut1Ctrl].value = 1;
  EXPECT_EQ(makeOut1PropBand().payload, "012C");
}

class Out2Band : public Encoders {
 protected:
  void SetUp() override {
    Encoders::SetUp();
    Memo[rec::txtOut1DeadBand].text = "00.1";
    Memo[rec::txtOut1PB].text = "00.2";
    Memo[rec::txtOut2DeadBand].text = "00.3";
    Memo[rec::txtOut2PB].text = "00.4";
    Memo[rec::cboOut2Ctrl].value = 1;
    Memo[rec::chkOut2AutoPID].value = 1;
  }
};

TEST_F(Out2Band, IsItsDeadBandWhileOnOff) {
  Memo[rec::cboOut2Ctrl].value = 0;
  EXPECT_EQ(makeOut2PropBand().payload, "0003");
}

TEST_F(Out2Band, IsItsOwnBandWithoutAutoPID) {
  Memo[rec::chkOut2AutoPID].value = 0;
  EXPECT_EQ(makeOut2PropBand().payload, "0004");
}

TEST_F(Out2Band, WithAutoPIDFollowsOutput1AsItChooses) {
  Memo[rec::cboOut1Ctrl].value = 1;
  EXPECT_EQ(makeOut2PropBand().payload, "0002");
  Memo[rec::cboOut1Ctrl].value = 0;
  EXPECT_EQ(makeOut2PropBand().payload, "0001");
}

TEST_F(Encoders, BandBeyond16BitsIsAnOverflow) {
  Memo[rec::txtOut1DeadBand].text = "3276.7";
  EXPECT_EQ(makeOut1PropBand().payload, "7FFF");
  Memo[rec::txtOut1DeadBand].text = "3276.8";
  EXPECT_EQ(faultOf(makeOut1PropBand), overflow);
  Memo[rec::txtOut2DeadBand].text = "-9999.9";
  EXPECT_EQ(faultOf(makeOut2PropBand), overflow);
}

TEST_F(Encoders, NegativeBandIsInTwosComplementOfFourDigits) {
  Memo[rec::txtOut1DeadBand].text = "-1.0";
  EXPECT_EQ(makeOut1PropBand().payload, "FFF6");
}

constexpr NumberRegister times[] = {
    {"makeLBTime", makeLBTime, 40}, {"makeRampT", makeRampT, 65}, {"makeSoakT", makeSoakT, 66}};

TEST_F(Encoders, TimeGoesOutAsADecimalNumber) {
  for (const auto& [name, make, record] : times) {
    Memo[record].text = "01:30";
    EXPECT_EQ(make().payload, "0082") << name;
    EXPECT_EQ(make().notice, nullptr) << name;
    Memo[record].text = "99:59";
    EXPECT_EQ(make().payload, "26E7") << name;
  }
}

TEST_F(Encoders, TimeDoesNotLookAtItsMiddleCharacter) {
  for (const auto& [name, make, record] : times) {
    for (const char* text : {"01x30", "01530"}) {
      Memo[record].text = text;
      EXPECT_EQ(make().payload, "0082") << name << text;
    }
  }
}

TEST_F(Encoders, TimeWithoutNumbersIsZero) {
  for (const auto& [name, make, record] : times) {
    Memo[record].text = "ab:cd";
    EXPECT_EQ(make().payload, "0000") << name;
  }
}

TEST_F(Encoders, LoopBreakTimeOfFourCharactersAsksForABoxAndSendsZero) {
  Memo[rec::txtLBATime].text = "5:30";
  const Encoded time = makeLBTime();
  EXPECT_EQ(time.payload, "0000");
  ASSERT_NE(time.notice, nullptr);
  EXPECT_STREQ(time.notice->text,
               "LBT format invalid: please write down\rLoop Break Time settings and\r"
               "report the problem to the software author.");
  EXPECT_STREQ(time.notice->title, "Algorithm difficulties...");
  EXPECT_TRUE(time.notice->critical);
}

TEST_F(Encoders, RampAndSoakTimesThatAreNotFiveCharactersAreRefused) {
  for (const char* text : {"5:30", "", "005:30"}) {
    Memo[rec::txtRampT].text = text;
    Memo[rec::txtSoakT].text = text;
    EXPECT_EQ(makeRampT().payload, "!Ramp Time Format Error") << text;
    EXPECT_EQ(makeSoakT().payload, "!Soak Time Format Error") << text;
    EXPECT_EQ(makeRampT().notice, nullptr);
  }
}

TEST_F(Encoders, CycleTimesFrom1To199AreSent) {
  Memo[rec::HSOut1CycleT].value = 1;
  Memo[rec::HSOut2CycleT].value = 199;
  EXPECT_EQ(makeOut1CycleT().payload, "01");
  EXPECT_EQ(makeOut2CycleT().payload, "C7");
}

TEST_F(Encoders, CycleTimesOutsideTheirRangeAreRefused) {
  for (std::int16_t seconds : std::vector<std::int16_t>{0, 200, -1, 32767}) {
    Memo[rec::HSOut1CycleT].value = seconds;
    Memo[rec::HSOut2CycleT].value = seconds;
    EXPECT_EQ(makeOut1CycleT().payload, "!Out1 Cycle T Data Corruption Error") << seconds;
    EXPECT_EQ(makeOut2CycleT().payload, "!Out2 Cycle T Data Corruption Error") << seconds;
  }
}

TEST_F(Encoders, PercentagesAreSentInTwoDigits) {
  Memo[rec::HSOut1Low].text = "0";
  Memo[rec::HSOut1High].text = "99";
  EXPECT_EQ(makeOut1Low().payload, "00");
  EXPECT_EQ(makeOut1Hi().payload, "63");
}

TEST_F(Encoders, BusAddressIsItsDecimalTextInHexadecimal) {
  Memo[rec::txtRS485Address].text = "0017";
  EXPECT_EQ(makeRS485Address().payload, "11");
  Memo[rec::txtRS485Address].text = "199";
  EXPECT_EQ(makeRS485Address().payload, "C7");
}

constexpr NumberRegister wholeNumbers[] = {{"makeIDCode", makeIDCode, 0},
                                           {"makeOut1Reset", makeOut1Reset, 55},
                                           {"makeOut1Low", makeOut1Low, 47},
                                           {"makeOut1Hi", makeOut1Hi, 48},
                                           {"makeRS485Address", makeRS485Address, 91}};

TEST_F(Encoders, WholeNumbersBeyond16BitsAreAnOverflow) {
  for (const auto& [name, make, record] : wholeNumbers) {
    Memo[record].text = "32768";
    EXPECT_EQ(faultOf(make), overflow) << name;
    Memo[record].text = "-32769";
    EXPECT_EQ(faultOf(make), overflow) << name;
    Memo[record].text = "1E300";
    EXPECT_EQ(faultOf(make), overflow) << name;
  }
}

TEST_F(Encoders, TextWithoutANumberEncodesAsZero) {
  for (const auto& [name, make, record] : wholeNumbers) {
    Memo[record].text = "x1";
    EXPECT_EQ(make().payload.find_first_not_of('0'), std::string::npos) << name;
  }
  Memo[rec::txtOut1Rate].text = "x1";
  EXPECT_EQ(makeOut1Rate().payload, "0000");
  Memo[rec::txtOut1DeadBand].text = "x1";
  EXPECT_EQ(makeOut1PropBand().payload, "0000");
}

TEST_F(Encoders, FactorySetupEncodesAsTheManualHasIt) {
  EXPECT_EQ(makeSp1().payload, "200000");
  EXPECT_EQ(makeAl1High().payload, "200FA0");
  EXPECT_EQ(makeAl1Low().payload, "A003E8");
  EXPECT_EQ(makeLBTime().payload, "000F");
  EXPECT_EQ(makeOut1CycleT().payload, "04");
  EXPECT_EQ(makeOut1Hi().payload, "63");
}

}  // namespace

}  // namespace torvane
