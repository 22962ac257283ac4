// SPDX-License-Identifier: MIT
// What a setup is after it has been written to a unit and read back, and what any reply does.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "protocol/Scale.h"
#include "reading/Decoders.h"
#include "support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

const int decoderRounds = trials(1000);  // for each kind of unit

class DecodersProperties : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    freshSetup();
    chooseKind(GetParam());
  }

  // What a unit that took every payload whole would answer.
  static std::vector<std::string> written() {
    std::vector<std::string> replies;
    for (const RegisterUnderTest& reg : allRegisters()) {
      replies.push_back(std::string("R") + reg.index + reg.make().payload);
    }
    return replies;
  }

  // The setup as it is in a program that was just started, but for the kind of unit.
  static void forget() {
    const int kind = meterKind();
    freshSetup();
    chooseKind(kind);
  }

  static void readBack(const std::vector<std::string>& replies) {
    std::size_t i = 0;
    for (const RegisterUnderTest& reg : allRegisters())
      EXPECT_NE(reg.parse(replies[i++]), "Fail") << reg.index;
  }

  // A legal setup, then what is read back after it was written: `before` and Memo.
  MemoArray roundTrip() {
    fillRandomMemo(random);
    MemoArray before = Memo;
    const std::vector<std::string> replies = written();
    forget();
    readBack(replies);
    return before;
  }

  std::mt19937 random{static_cast<std::uint32_t>(31260 + GetParam())};
};

// Fields that come back as they were, whatever the kind of unit.
constexpr int sameTexts[] = {rec::txtSp1,      rec::txtSp2,       rec::txtAl1HiSp, rec::txtAl1LoSp,
                             rec::txtAl2HiSp,  rec::txtAl2LoSp,   rec::txtTAdjust, rec::txtIDCode,
                             rec::txtOut1Rate, rec::txtOut1Reset, rec::txtLBATime, rec::txtRampT,
                             rec::txtSoakT};
constexpr int sameValues[] = {
    rec::cboTUnit,       rec::lstFiltConst,    rec::cboAl1Ctrl,     rec::cboAl1Closure, rec::chkLBAEnabled,
    rec::chkAl1AutoPOn,  rec::cboAl2Latch,     rec::cboAl2Closure,  rec::chkOut1Anti,   rec::chkOut1Start,
    rec::HSOut1CycleT,   rec::HSOut2CycleT,    rec::chkOut1AutoPID, rec::chkRampEn,     rec::chkSoakEn,
    rec::chkOut2AutoPID, rec::lstOut1DamFactor};
constexpr int sameFlags[] = {rec::optInType,     rec::optInType + 1, rec::optInType + 2, rec::optDpoint,
                             rec::optDpoint + 1, rec::optDpoint + 2, rec::optDpoint + 3, rec::optIDCode,
                             rec::optIDCode + 1, rec::optIDCode + 2};
constexpr int sameNumbers[] = {rec::HSOut1Low, rec::HSOut1High, rec::txtRS485Address};
constexpr int sameExtras[] = {rec::cboNormalColor, rec::cboAl1WhenActiveColor, rec::cboAl2WhenActiveColor};

// The editor's picture of a whole number ends in a point, the decoders' doesn't.
std::string withoutTrailingPoint(std::string text) {
  if (text.ends_with('.')) text.pop_back();
  return text;
}

// "-0.50" in two decimals is stored as "-00.50", and a negative zero loses its sign.
std::string canonical(const std::string& text) {
  static constexpr const char* pictures[] = {"0000", "000.0", "00.00", "0.000"};
  const std::size_t point = text.find('.');
  const std::size_t decimals = point == text.npos ? 0 : text.size() - point - 1;
  return text.find(':') == text.npos ? formatText(text, pictures[decimals]) : text;
}

TEST_P(DecodersProperties, ReadingBackGivesWhatTheRegistersCarry) {
  for (int round = 0; round < decoderRounds; ++round) {
    MemoArray before = roundTrip();
    for (int r : sameTexts) {
      EXPECT_EQ(Memo[r].text, canonical(withoutTrailingPoint(before[r].text))) << r << " " << before[r].text;
    }
    for (int r : sameValues) EXPECT_EQ(Memo[r].value, before[r].value) << r;
    for (int r : sameFlags) EXPECT_EQ(Memo[r].flag, before[r].flag) << r;
    for (int r : sameNumbers) EXPECT_EQ(Val(Memo[r].text), Val(before[r].text)) << r;
    for (int r : sameExtras) EXPECT_EQ(Memo[r].extra, before[r].extra) << r;
  }
}

TEST_P(DecodersProperties, ReadingBackGivesTheInputAsFarAsItIsRead) {
  for (int round = 0; round < decoderRounds; ++round) {
    MemoArray before = roundTrip();
    if (Memo[rec::optInType].flag != False) {
      EXPECT_EQ(Memo[rec::lstTCTypes].value, before[rec::lstTCTypes].value % 2);
    } else if (Memo[rec::optInType + 2].flag != False) {
      EXPECT_EQ(Memo[rec::lstProc].value, before[rec::lstProc].value);
    } else if (before[rec::cboRTDValue].value == 0) {
      // The resistance's low bit is the top bit of the four that say curve and wires.
      EXPECT_EQ(Memo[rec::cboRTDCurves].value, before[rec::cboRTDCurves].value);
      EXPECT_EQ(Memo[rec::cboRTDWires].value, before[rec::cboRTDWires].value);
    } else {
      EXPECT_EQ(Memo[rec::cboRTDValue].value, before[rec::cboRTDValue].value);
    }
  }
}

TEST_P(DecodersProperties, ReadingBackGivesTheAlarmsAndOutputsOfTheKindOfUnit) {
  const bool simple = GetParam() == kind::simpleMenu;
  const bool rkw77 = GetParam() == kind::rkw77;
  for (int round = 0; round < decoderRounds; ++round) {
    MemoArray before = roundTrip();
    const bool al1On = simple || before[27].value == 1 || before[80].value == 1;
    EXPECT_EQ(Memo[rec::chkAl1Enabled].value, al1On ? 1 : 0);
    EXPECT_EQ(Memo[rec::chkAnalogOutputEnabled].value, al1On ? 1 : 0);
    EXPECT_EQ(Memo[rec::chkAl2Enabled].value, simple ? 1 : before[35].value);
    EXPECT_EQ(Memo[rec::cboAl2Ctrl].value, simple ? 0 : before[31].value);
    EXPECT_EQ(Memo[rec::cboAl1Latch].value, before[24].value);
    EXPECT_EQ(Memo[rec::optAOutI].flag, rkw77 ? False : before[68].flag);
    if (simple) {
      EXPECT_EQ(Memo[rec::cboAl1Setup].value, before[26].value == 0 ? 0 : 1);
      EXPECT_EQ(Memo[rec::cboAl2Setup].value, before[34].value == 0 ? 0 : 1);
      EXPECT_EQ(Memo[rec::cboOut2Ctrl].value, 0);
    } else {
      EXPECT_EQ(Memo[rec::cboAl1Setup].value, before[26].value);
      EXPECT_EQ(Memo[rec::cboAl2Setup].value, before[34].value);
      EXPECT_EQ(Memo[rec::cboOut1Action].value, before[52].value);
      EXPECT_EQ(Memo[rec::cboOut2Action].value, before[59].value);
      EXPECT_EQ(Memo[rec::cboOut2Ctrl].value, before[58].value);
    }
    // 4-20 mA counts twice on the Rkw77 line: neither it nor the control comes back.
    const bool lost = rkw77 && before[88].flag != False;
    EXPECT_EQ(Memo[rec::opt420mA].flag, lost ? False : before[88].flag);
    EXPECT_EQ(Memo[rec::cboOut1Ctrl].value, lost ? 0 : before[51].value);
  }
}

TEST_P(DecodersProperties, ReadingBackGivesTheBandsThatWereSent) {
  for (int round = 0; round < decoderRounds; ++round) {
    MemoArray before = roundTrip();
    const std::string out1 = before[before[51].value != 0 ? 54 : 53].text;
    const std::string own2 = before[before[58].value == 0 ? 61 : 62].text;
    const bool follows = before[58].value != 0 && before[57].value != 0;
    const std::string out2 = follows ? out1 : own2;
    EXPECT_EQ(Memo[rec::txtOut1PB].text, withoutTrailingPoint(out1));
    EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, withoutTrailingPoint(out1));
    EXPECT_EQ(Memo[rec::txtOut2PB].text, withoutTrailingPoint(out2));
    EXPECT_EQ(Memo[rec::txtOut2DeadBand].text, withoutTrailingPoint(out2));
  }
}

TEST_P(DecodersProperties, ReadingScaleComesBackToFiveDigits) {
  for (int round = 0; round < decoderRounds; ++round) {
    fillRandomMemo(random);
    const std::string payload = makeRdScale().payload;
    const double slope = Val(Global.RdScale);
    const double back = Val(parseRdScale("R14" + payload));
    EXPECT_LE(std::abs(back), std::abs(slope) * (1 + 1E-12)) << payload;
    EXPECT_NEAR(back, slope, std::abs(slope) * 2E-5) << payload;
  }
}

TEST_P(DecodersProperties, RebuiltReadingPointsLieOnTheRisingLine) {
  int looked = 0;
  for (int round = 0; round < decoderRounds; ++round) {
    fillRandomMemo(random);
    Global.RdScale = numberText(between(random, 1, 100000) / 1000.0);
    const std::string payload = std::to_string(between(random, 3, 6)) + "186A0";
    const double o = Val(parseRdOffset("R03" + payload));
    const double s = Val(Global.RdScale);
    for (const auto& [x, y] : {std::pair(rec::txtIn1, rec::txtRd1), std::pair(rec::txtIn2, rec::txtRd2)}) {
      const double tolerance = 0.5 + 0.5 * s + 1E-6;
      EXPECT_NEAR(Val(Memo[y].text), s * Val(Memo[x].text) + o, tolerance) << s << " " << o;
      ++looked;
    }
  }
  EXPECT_EQ(looked, 2 * decoderRounds);
}

TEST_P(DecodersProperties, ReadingTwiceChangesNothingButTheLines) {
  for (int round = 0; round < decoderRounds / 10; ++round) {
    roundTrip();
    const MemoArray once = Memo;
    for (const RegisterUnderTest& reg : allRegisters()) {
      const std::string index = reg.index;
      if (index == "14" || index == "03" || index == "0F" || index == "04") continue;
      reg.parse("R" + index + reg.make().payload);
    }
    MemoArray copy = once;
    for (int r : sameTexts) EXPECT_EQ(Memo[r].text, copy[r].text) << r;
    for (int r : sameValues) EXPECT_EQ(Memo[r].value, copy[r].value) << r;
    for (int r : sameFlags) EXPECT_EQ(Memo[r].flag, copy[r].flag) << r;
  }
}

TEST_P(DecodersProperties, AnyReplyGivesATextOrAFaultOfTheProgramsOwn) {
  int texts = 0;
  int faults = 0;
  for (int round = 0; round < decoderRounds; ++round) {
    for (const RegisterUnderTest& reg : allRegisters()) {
      const std::string reply = wildReply(random);
      try {
        EXPECT_FALSE(reg.parse(reply).empty()) << reg.index << " " << reply;
        ++texts;
      } catch (const RuntimeError& error) {
        const bool known = error.number == static_cast<int>(Fault::overflow) ||
                           error.number == static_cast<int>(Fault::typeMismatch);
        EXPECT_TRUE(known) << reg.index << " " << reply;
        ++faults;
      }
    }
  }
  EXPECT_GT(texts, decoderRounds);
  EXPECT_GT(faults, 0);
}

TEST_P(DecodersProperties, AnyReplyIntoAnySetupGivesATextOrAFaultOfTheProgramsOwn) {
  int outcomes = 0;
  for (int round = 0; round < decoderRounds / 3; ++round) {
    fillWildMemo(random);
    Global.RdScale = Memo[between(random, 0, 110)].text;
    Global.AnalogScale = Memo[between(random, 0, 110)].text;
    for (const RegisterUnderTest& reg : allRegisters()) {
      try {
        EXPECT_FALSE(reg.parse(wildReply(random)).empty()) << reg.index;
      } catch (const RuntimeError& error) {
        EXPECT_GT(error.number, 0);
      }
      ++outcomes;
    }
  }
  EXPECT_EQ(outcomes, decoderRounds / 3 * 33);
}

TEST_P(DecodersProperties, WhatWasReadCanBeWrittenAgain) {
  for (int round = 0; round < decoderRounds; ++round) {
    for (const RegisterUnderTest& reg : allRegisters()) {
      std::string reply = std::string("R") + reg.index;
      for (std::size_t i = 0; i < reg.width; ++i) reply += "0123456789ABCDEF"[between(random, 0, 15)];
      try {
        reg.parse(reply);
        EXPECT_FALSE(reg.make().payload.empty()) << reply;
      } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, static_cast<int>(Fault::overflow)) << reply;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(FiveKinds, DecodersProperties, testing::Range(0, 5));

}  // namespace

}  // namespace torvane
