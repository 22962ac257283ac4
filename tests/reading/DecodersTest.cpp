// SPDX-License-Identifier: MIT
// Decoders of the registers that carry one number, and what all decoders do with a reply.
#include "reading/Decoders.h"

#include <gtest/gtest.h>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "platform/RuntimeError.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

using Parse = std::string (*)(const std::string&);

class Decoders : public testing::Test {
 protected:
  void SetUp() override { freshSetup(); }

  // A decoder's fault, or 0.
  static int faultOf(Parse parse, const std::string& reply) {
    try {
      parse(reply);
    } catch (const RuntimeError& error) {
      return error.number;
    }
    return 0;
  }
};

struct TextDecoder {
  const char* name;
  Parse parse;
  int record;
};

constexpr TextDecoder setPoints[] = {
    {"parseSp1", parseSp1, 1},
    {"parseSp2", parseSp2, 2},
    {"parseAl1High", parseAl1High, 29},
    {"parseAl1Low", parseAl1Low, 30},
    {"parseAl2High", parseAl2High, 36},
    {"parseAl2Low", parseAl2Low, 37},
    {"parseCJOffset", parseCJOffset, 41},
};

constexpr TextDecoder times[] = {
    {"parseLBTime", parseLBTime, 40}, {"parseRampT", parseRampT, 65}, {"parseSoakT", parseSoakT, 66}};

TEST_F(Decoders, RefuseAReplyWithoutAPayloadAndLeaveEveryRecordAsItWas) {
  MemoArray before = Memo;
  Global.RdScale = "2";
  Global.AnalogScale = "3";
  for (const RegisterUnderTest& reg : allRegisters()) {
    for (const char* reply :
         {"", "Fail", "Timeout", "Timeout\r", "R", "R0", "R01", "11R01", "?43", "0107FFF"}) {
      EXPECT_EQ(reg.parse(reply), "Fail") << reg.index << " " << reply;
    }
  }
  for (int record = 0; record < MemoArray::count; ++record) EXPECT_EQ(Memo[record], before[record]) << record;
  EXPECT_EQ(Global.RdScale, "2");
  EXPECT_EQ(Global.AnalogScale, "3");
}

TEST_F(Decoders, SkipAnAddressInFrontOfTheR) {
  EXPECT_EQ(parseIDCode("R0504D2"), "1234");
  EXPECT_EQ(parseIDCode("11R0504D3"), "1235");
}

TEST_F(Decoders, DoNotCompareTheRegisterNumber) { EXPECT_EQ(parseIDCode("Rxx04D2"), "1234"); }

TEST_F(Decoders, TakeThePayloadAfterTheFirstR) { EXPECT_EQ(parseIDCode("R05R04D2"), "0000"); }

TEST_F(Decoders, StopAtTheFirstCharacterThatIsNoHexadecimalDigit) {
  EXPECT_EQ(parseIDCode("R0510x4"), "0016");
}

TEST_F(Decoders, FourDigitsAreSignedSixteenBitsAndFiveAreNot) {
  EXPECT_EQ(parseIDCode("R05FFFF"), "-0001");
  EXPECT_EQ(parseIDCode("R050FFFF"), "65535");
  EXPECT_EQ(parseIDCode("R05FFFFFFFF"), "-0001");
}

TEST_F(Decoders, MoreThanEightDigitsAreAnOverflow) {
  EXPECT_EQ(faultOf(parseIDCode, "R05FFFFFFFFF"), static_cast<int>(Fault::overflow));
}

TEST_F(Decoders, DecimalScaleLooksFromThreeDecimalsDown) {
  for (int i = 0; i < 4; ++i) Memo[rec::optDpoint + i].flag = True;
  EXPECT_EQ(decimalScale(), 1000);
  Memo[rec::optDpoint + 3].flag = False;
  EXPECT_EQ(decimalScale(), 100);
  Memo[rec::optDpoint + 2].flag = False;
  EXPECT_EQ(decimalScale(), 10);
  Memo[rec::optDpoint + 1].flag = False;
  EXPECT_EQ(decimalScale(), 1);
  Memo[rec::optDpoint].flag = False;
  EXPECT_EQ(decimalScale(), 1);
}

TEST_F(Decoders, SignedValueIsFormattedByTheScale) {
  const char* expected[] = {"5", "0.5", "0.05", "0.005"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    EXPECT_EQ(parseSignedValue("000005"), expected[decimals]);
  }
}

TEST_F(Decoders, SignedValueIgnoresThePointInItsFirstDigit) {
  chooseFormat(1);
  for (const char* payload : {"0004D2", "1004D2", "2004D2", "4004D2", "7004D2"}) {
    EXPECT_EQ(parseSignedValue(payload), "123.4") << payload;
  }
}

TEST_F(Decoders, SignedValueIsNegativeWithBit3OfItsFirstDigit) {
  chooseFormat(1);
  EXPECT_EQ(parseSignedValue("A004D2"), "-123.4");
  EXPECT_EQ(parseSignedValue("8004D2"), "-123.4");
}

TEST_F(Decoders, SignedValueOfTwentyBits) {
  chooseFormat(0);
  EXPECT_EQ(parseSignedValue("1FFFFF"), "1048575");
}

TEST_F(Decoders, SignedValueShorterThanThreeCharactersFails) {
  EXPECT_EQ(parseSignedValue(""), "Fail");
  EXPECT_EQ(parseSignedValue("12"), "Fail");
  EXPECT_EQ(parseSignedValue("123"), "29.1");
}

TEST_F(Decoders, SignedValueOfFourDigitsTakesItsLowTwentyBits) {
  chooseFormat(0);
  EXPECT_EQ(parseSignedValue("FFFF"), "-1048575");
}

TEST_F(Decoders, BadFirstDigitCountsAsZero) {
  chooseFormat(0);
  EXPECT_EQ(parseSignedValue("x00005"), "0");
}

TEST_F(Decoders, MinusTenWithOneDecimalKeepsItsSignInFrontOfTheZeros) {
  chooseFormat(1);
  EXPECT_EQ(parseSp1("R01A00064"), "-010.0");
  EXPECT_EQ(Memo[rec::txtSp1].text, "-010.0");
}

TEST_F(Decoders, EverySetPointGoesToItsOwnRecordInEveryFormat) {
  const char* expected[] = {"1234", "123.4", "12.34", "1.234"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    for (const auto& [name, parse, record] : setPoints) {
      Memo[record].text = "";
      EXPECT_EQ(parse("R012004D2"), expected[decimals]) << name;
      EXPECT_EQ(Memo[record].text, expected[decimals]) << name;
    }
  }
}

TEST_F(Decoders, SetPointsHaveLeadingZerosInEveryFormat) {
  const char* expected[] = {"-0005", "-000.5", "-00.05", "-0.005"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    EXPECT_EQ(parseSp2("R02800005"), expected[decimals]);
  }
}

TEST_F(Decoders, NegativeZeroHasNoSign) {
  chooseFormat(1);
  EXPECT_EQ(parseSp1("R01A00000"), "000.0");
}

TEST_F(Decoders, SetPointOfOneOrTwoDigitsIsATypeFaultAndKeepsItsRecord) {
  for (const auto& [name, parse, record] : setPoints) {
    Memo[record].text = "kept";
    EXPECT_EQ(faultOf(parse, "R0112"), static_cast<int>(Fault::typeMismatch)) << name;
    EXPECT_EQ(faultOf(parse, "R011"), static_cast<int>(Fault::typeMismatch)) << name;
    EXPECT_EQ(Memo[record].text, "kept") << name;
  }
}

struct NumberCase {
  const char* name;
  Parse parse;
  int record;
  const char* reply;
  const char* text;
};

TEST_F(Decoders, PlainNumbersAreFormattedWithLeadingZeros) {
  const NumberCase cases[] = {{"parseIDCode", parseIDCode, 0, "R050007", "0007"},
                              {"parseOut1Reset", parseOut1Reset, 55, "R1800B4", "0180"},
                              {"parseOut1Low", parseOut1Low, 47, "R2705", "005"},
                              {"parseOut1Hi", parseOut1Hi, 48, "R2863", "099"},
                              {"parseRS485Address", parseRS485Address, 91, "R2111", "017"},
                              {"parseOut1Rate", parseOut1Rate, 56, "R1907CF", "199.9"},
                              {"parseOut1Rate", parseOut1Rate, 56, "R190005", "000.5"}};
  for (const auto& [name, parse, record, reply, text] : cases) {
    EXPECT_EQ(parse(reply), text) << name;
    EXPECT_EQ(Memo[record].text, text) << name;
  }
}

TEST_F(Decoders, CycleTimesAreStoredAsNumbers) {
  EXPECT_EQ(parseOut1CycleT("R1A04"), "4");
  EXPECT_EQ(Memo[rec::HSOut1CycleT].value, 4);
  EXPECT_EQ(parseOut2CycleT("R1DC7"), "199");
  EXPECT_EQ(Memo[rec::HSOut2CycleT].value, 199);
}

TEST_F(Decoders, CycleTimeThatDoesNotFitItsRecordIsAnOverflow) {
  Memo[rec::HSOut1CycleT].value = 4;
  EXPECT_EQ(faultOf(parseOut1CycleT, "R1A08000"), static_cast<int>(Fault::overflow));
  EXPECT_EQ(faultOf(parseOut2CycleT, "R1D0FFFF"), static_cast<int>(Fault::overflow));
  EXPECT_EQ(Memo[rec::HSOut1CycleT].value, 4);
}

TEST_F(Decoders, BandsAreStoredAsDeadBandAndAsProportionalBand) {
  const char* expected[] = {"0200", "020.0", "02.00", "0.200"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    chooseFormat(decimals);
    EXPECT_EQ(parseOut1PropBand("R1700C8"), expected[decimals]);
    EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, expected[decimals]);
    EXPECT_EQ(Memo[rec::txtOut1PB].text, expected[decimals]);
    EXPECT_EQ(parseOut2PropBand("R1C00C8"), expected[decimals]);
    EXPECT_EQ(Memo[rec::txtOut2DeadBand].text, expected[decimals]);
    EXPECT_EQ(Memo[rec::txtOut2PB].text, expected[decimals]);
  }
}

TEST_F(Decoders, BandsAreStoredTwiceInEitherModeOfTheOutput) {
  for (std::int16_t mode : {std::int16_t{0}, std::int16_t{1}}) {
    Memo[rec::cboOut1Ctrl].value = mode;
    Memo[rec::txtOut1DeadBand].text = Memo[rec::txtOut1PB].text = "";
    parseOut1PropBand("R1700C8");
    EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, "020.0");
    EXPECT_EQ(Memo[rec::txtOut1PB].text, "020.0");
  }
}

TEST_F(Decoders, TimesAreUnpackedFromADecimalNumber) {
  for (const auto& [name, parse, record] : times) {
    EXPECT_EQ(parse("R0B0082"), "01:30") << name;
    EXPECT_EQ(Memo[record].text, "01:30") << name;
    EXPECT_EQ(parse("R0B26E7"), "99:59") << name;
    EXPECT_EQ(parse("R0B0000"), "00:00") << name;
  }
}

TEST_F(Decoders, TimesCutTowardZero) {
  EXPECT_EQ(parseRampT("R0EFFFF"), "00:-01");
  EXPECT_EQ(parseRampT("R0EFF38"), "-02:00");
  EXPECT_EQ(parseRampT("R0E07FFF"), "327:67");
}

}  // namespace

}  // namespace torvane
