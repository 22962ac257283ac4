// SPDX-License-Identifier: MIT
// How typed texts become legal ones, field by field.
#include "editor/EntryRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/SetupBoxes.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr const char* pictures[] = {"0000.", "000.0", "00.00", "0.000"};  // by decimals
using B = BigFolderControls;
using TextMember = TextBox BigFolderControls::*;

constexpr const char* before = nullptr;  // the words of the repair before it stand

constexpr const char* entryChanged = "Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* deadBand = "Entry for Dead Band can not be less than zero.";
constexpr const char* band = "Entry for Proportional Band can not be less than zero.";
constexpr const char* tenthsMaximum =
    "Maximum value possible for this field is currently 999.9.\r\nIf you wish to represent value larger than "
    "999.9, change the \r\nDecimal Position setting in Reading Tab from XXX.X to XXXX.";
constexpr const char* tenthsMinimum =
    "Minimum value possible for this field is currently -199.9.\r\nIf you wish to represent value smaller "
    "than -199.9, change the \r\nDecimal Position setting in Reading Tab from XXX.X to XXXX.";
constexpr const char* time =
    "Please enter value in:\r\ntwo digits minute (99 max), colon (:), two digits seconds \r\n(59 max).\r\n"
    "Verify your entry before continuing.";

class EntryRules : public ::testing::Test {
 protected:
  EntryRules() {
    freshSetup();
    chooseFormat(1);
    Global.WarningText = "what was said last";
  }
  ~EntryRules() override {
    EXPECT_EQ(Global.WarningText, "what was said last");  // a repair tells its caller alone
    Global.reset();
  }

  static Repair repaired(TextMember box, const std::string& typed, const char* picture = "000.0",
                         bool voltage = true) {
    return repair(*boxOf(box).rule, typed, {picture, voltage});
  }
};

// Ranges of the reading formats, by decimals: the limits pass, the next value beyond them gives the limit.
struct RangeCase {
  int decimals;
  const char* maximum;
  const char* above;
  const char* maximumText;
  const char* minimum;
  const char* below;
  const char* minimumText;
};

constexpr RangeCase ranges[] = {
    {0, "9999", "10000", "Maximum value possible for this field is 9999", "-1999", "-2000",
     "Minimum value possible for this field is -1999"},
    {1, "999.9", "1000", tenthsMaximum, "-199.9", "-200", tenthsMinimum},
    {2, "99.99", "100",
     "Maximum value possible for this field is currently 99.99.\r\nIf you wish to represent value larger "
     "than 99.99, change the \r\nDecimal Position setting in Reading Tab to the right.",
     "-19.99", "-20",
     "Minimum value possible for this field is currently -19.99.\r\nIf you wish to represent value smaller "
     "than -19.99, change the \r\nDecimal Position setting in Reading Tab to the right."},
    {3, "9.999", "10",
     "Maximum value possible for this field is currently 9.999.\r\nIf you wish to represent value larger "
     "than 9.999, change the \r\nDecimal Position setting in Reading Tab to the right.",
     "-1.999", "-2",
     "Minimum value possible for this field is currently -1.999.\r\nIf you wish to represent value smaller "
     "than -1.999, change the \r\nDecimal Position setting in Reading Tab to the right."},
};

TEST_F(EntryRules, TheReadingFormatLimitsAReading) {
  for (const RangeCase& range : ranges) {
    chooseFormat(range.decimals);
    for (const char* inRange : {range.maximum, range.minimum, "0", "-1.5"}) {
      EXPECT_EQ(valSp(inRange).text, inRange);
      EXPECT_STREQ(valSp(inRange).warning, before);
    }
    EXPECT_EQ(valSp(range.above).text, range.maximum);
    EXPECT_STREQ(valSp(range.above).warning, range.maximumText);
    EXPECT_EQ(valSp(range.below).text, range.minimum);
    EXPECT_STREQ(valSp(range.below).warning, range.minimumText);
  }
}

TEST_F(EntryRules, TheFirstFormatThatTheRecordsNameCountsAndNoneIsTheFinest) {
  for (int format : {0, 1, 2, 3}) Memo[rec::optDpoint + format].flag = True;
  EXPECT_EQ(valSp("1E6").text, "9999");
  Memo[rec::optDpoint].flag = False;
  EXPECT_EQ(valSp("1E6").text, "999.9");
  Memo[rec::optDpoint + 1].flag = False;
  EXPECT_EQ(valSp("1E6").text, "99.99");
  Memo[rec::optDpoint + 2].flag = False;
  EXPECT_EQ(valSp("1E6").text, "9.999");
  Memo[rec::optDpoint + 3].flag = False;
  EXPECT_EQ(valSp("1E6").text, "9.999");
}

struct TextCase {
  const char* typed;
  const char* repaired;
};

TEST_F(EntryRules, AReadingIsTheNumberAtTheStartOfTheText) {
  for (const auto& [typed, repaired] :
       {TextCase{"", "0"}, TextCase{"abc", "0"}, TextCase{"12abc", "12"}, TextCase{" - 1 2.5", "-12.5"},
        TextCase{"1,5", "1"}, TextCase{"&HFF", "255"}, TextCase{"-", "0"}, TextCase{".5", "0.5"},
        TextCase{"1E999", "999.9"}, TextCase{"-1E999", "-199.9"}, TextCase{" -1E999", "-199.9"},
        TextCase{"1.7976931348623157E308", "999.9"}, TextCase{"1E-999", "0"}}) {
    EXPECT_EQ(valSp(typed).text, repaired) << typed;
  }
}

TEST_F(EntryRules, ATimeHasTwoDigitsOnEitherSideOfItsColon) {
  for (const auto& [typed, repaired] :
       {TextCase{"5:3", "50:30"}, TextCase{"1:75", "10:59"}, TextCase{"", "00:00"}, TextCase{":", "00:00"},
        TextCase{"15", "15:00"}, TextCase{"1234", "12:00"}, TextCase{"123:456", "12:45"},
        TextCase{"99:59", "99:59"}, TextCase{"05:07", "05:07"}, TextCase{"99:60", "99:59"},
        TextCase{"00:99", "00:59"}, TextCase{"a1b2:c3d4", "12:34"}, TextCase{"A1/B2:C3@D4", "12:34"},
        TextCase{"1:2:3", "10:23"}, TextCase{"-1:-2", "10:20"}, TextCase{"1.5:2", "15:20"},
        TextCase{"\xD9\xA1\xD9\xA2:\xEF\xBC\x93", "00:00"}}) {
    EXPECT_EQ(valTime(typed), repaired) << typed;
    EXPECT_EQ(valTime(repaired), repaired) << typed;
  }
}

TEST_F(EntryRules, ACodeIsFilledUpOnItsRight) {
  for (const auto& [typed, repaired] :
       {TextCase{"12", "1200"}, TextCase{"", "0000"}, TextCase{"0", "0000"}, TextCase{"1234", "1234"},
        TextCase{"12345", "1234"}, TextCase{"0012", "1200"}, TextCase{"1.9", "1000"}, TextCase{"-12", "-120"},
        TextCase{"-1.9", "-100"}, TextCase{"-.5", "0000"}, TextCase{"abcd", "0000"}, TextCase{"1a23", "1000"},
        TextCase{"1E2", "1000"}, TextCase{"1E9", "9999"}, TextCase{"1E99", "9999"}, TextCase{"-1E9", "-999"},
        TextCase{"&HFF", "2550"}, TextCase{"\xC3\xA4 12", "0000"}, TextCase{"12\xC3\xA4\xC3\xB6", "1200"}}) {
    EXPECT_EQ(valCode(typed), repaired) << typed;
    EXPECT_EQ(valCode(repaired), repaired) << typed;
  }
}

TEST_F(EntryRules, CharactersAreNeverCut) {
  EXPECT_EQ(firstCharacters("12345", 4), "1234");
  EXPECT_EQ(firstCharacters("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"
                            "1x",
                            4),
            "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"
            "1");
  EXPECT_EQ(firstCharacters("\xC3\xA4", 4), "\xC3\xA4");
  EXPECT_EQ(firstCharacters("ab", 0), "");
}

// One row for each rule of each field. The reading format is "xxx.x", the analog output a voltage.
struct BoxCase {
  TextMember box;
  const char* typed;
  const char* repaired;
  bool warns;
  const char* said;
};

// clang-format off
constexpr BoxCase cases[] = {
    {&B::txtSp1, "", "000.0", true,
     "SetPoint1 Entry changed after validation.\r\nPlease verify new value is correct."},
    {&B::txtSp1, "012.3", "012.3", false,
     "SetPoint1 Entry changed after validation.\r\nPlease verify new value is correct."},
    {&B::txtSp1, "1000", "999.9", true, tenthsMaximum},
    {&B::txtSp1, "-200", "-199.9", true, tenthsMinimum},
    {&B::txtSp2, "5", "005.0", true,
     "SetPoint2 Entry changed after validation.\r\nPlease verify new value is correct."},
    {&B::txtSp2, "1000", "999.9", true, tenthsMaximum},
    {&B::txtSp2, "-200", "-199.9", true, tenthsMinimum},

    {&B::txtAl1HiSp, "5", "005.0", true, before},
    {&B::txtAl1HiSp, "-005.0", "-005.0", false, before},
    {&B::txtAl1HiSp, "1000", "999.9", true, tenthsMaximum},
    {&B::txtAl1LoSp, "5", "005.0", true, before},
    {&B::txtAl1LoSp, "-200", "-199.9", true, tenthsMinimum},
    {&B::txtTAdjust, "5", "005.0", true, before},
    {&B::txtTAdjust, "-200", "-199.9", true, tenthsMinimum},

    {&B::txtAl2HiSp, "5", "005.0", false, before},
    {&B::txtAl2HiSp, "1000", "999.9", false, tenthsMaximum},
    {&B::txtAl2LoSp, "5", "005.0", false, before},
    {&B::txtAl2LoSp, "-200", "-199.9", false, tenthsMinimum},

    {&B::txtAl1Deadband, "5", "005.0", true, entryChanged},
    {&B::txtAl1Deadband, "-5", "005.0", true, deadBand},
    {&B::txtAl1Deadband, "-5000", "999.9", true, tenthsMaximum},
    {&B::txtAl2Deadband, "5", "005.0", true, entryChanged},
    {&B::txtAl2Deadband, "-5", "005.0", true, deadBand},
    {&B::txtAl2Deadband, "1000", "999.9", true, tenthsMaximum},

    {&B::txtOut1DeadBand, "5", "005.0", true, entryChanged},
    {&B::txtOut1DeadBand, "-5", "005.0", true, band},
    {&B::txtOut1DeadBand, "1000", "999.9", true, tenthsMaximum},
    {&B::txtOut2DeadBand, "5", "005.0", true, entryChanged},
    {&B::txtOut2DeadBand, "-5", "005.0", true, band},
    {&B::txtOut2DeadBand, "1000", "999.9", true, tenthsMaximum},
    {&B::txtOut1PB, "5", "005.0", true, entryChanged},
    {&B::txtOut1PB, "-5", "005.0", true, band},
    {&B::txtOut1PB, "1000", "999.9", true, tenthsMaximum},
    {&B::txtOut2PB, "005.0", "005.0", false, entryChanged},
    {&B::txtOut2PB, "-5", "005.0", true, band},
    {&B::txtOut2PB, "-1E999", "999.9", true, tenthsMaximum},

    {&B::txtOut1Rate, "5", "005.0", true, entryChanged},
    {&B::txtOut1Rate, "-5", "005.0", true, band},
    {&B::txtOut1Rate, "399.9", "399.9", false, entryChanged},
    {&B::txtOut1Rate, "400", "399.9", true, entryChanged},
    {&B::txtOut1Rate, "-1E999", "399.9", true, band},
    {&B::txtOut1Reset, "180", "0180", true, entryChanged},
    {&B::txtOut1Reset, "0180", "0180", false, entryChanged},
    {&B::txtOut1Reset, "1.9", "0001", true, entryChanged},
    {&B::txtOut1Reset, "-5", "0005", true, band},
    {&B::txtOut1Reset, "12345", "1234", true, entryChanged},
    {&B::txtOut1Reset, "40000", "3999", true, "Entry for Reset can not exceed 3999."},
    {&B::txtOut1Reset, "4000", "3999", true, "Entry for Reset can not exceed 3999."},
    {&B::txtOut1Reset, "1E999", "3999", true, "Entry for Reset can not exceed 3999."},

    {&B::txtIn1, "-5", "0005", true, "Entry value for In 1 cannot be less than 0."},
    {&B::txtIn1, "12.9", "0012", true, before},
    {&B::txtIn1, "0012", "0012", false, before},
    {&B::txtIn1, "10000", "9999", true, "Entry value for In 1 cannot exceed 9999."},
    {&B::txtIn1, "-1E999", "9999", true, "Entry value for In 1 cannot exceed 9999."},
    {&B::txtIn2, "-5", "0005", true, "Entry for In 2 cannot be less than 0."},
    {&B::txtIn2, "5", "0005", true, before},
    {&B::txtIn2, "10000", "9999", true, "Entry for In 2 cannot exceed 9999."},

    {&B::txtRd1, "-5", "-005", false, before},
    {&B::txtRd1, "5.9", "0005", false, before},
    {&B::txtRd1, "-0.9", "0000", false, before},
    {&B::txtRd1, "-1000", "-999", false, before},
    {&B::txtRd1, "10000", "9999", false, before},
    {&B::txtRd2, "-5.9", "-005", false, before},
    {&B::txtRd2, "1E999", "9999", false, before},
    {&B::txtRd2, "-1E999", "-999", false, before},

    {&B::txtAOutRd1, "5", "0005", true, before},
    {&B::txtAOutRd1, "-5", "0005", true, "Entry value for Read 1  cannot be less than 0"},
    {&B::txtAOutRd1, "10000", "9999", true, "Entry value for Read 1 cannot exceed 9999"},
    {&B::txtAOutRd2, "5", "0005", true, before},
    {&B::txtAOutRd2, "-5", "0005", true, "Entry value for Read 2  cannot be less than 0"},
    {&B::txtAOutRd2, "10000", "9999", true, "Entry value for Read 2 cannot exceed 9999"},
    {&B::txtAOutOut1, "05.00", "05.00", true, before},
    {&B::txtAOutOut1, "0005", "05.00", false, before},
    {&B::txtAOutOut1, "5.25", "05.25", true, before},
    {&B::txtAOutOut1, "-5", "05.00", true, "Entry value for Output 1  cannot be less than 0"},
    {&B::txtAOutOut1, "10.01", "10.00", true, "Entry value for Output 1 cannot exceed 10.00"},
    {&B::txtAOutOut2, "05.00", "05.00", true, before},
    {&B::txtAOutOut2, "0010", "10.00", false, before},
    {&B::txtAOutOut2, "-5", "05.00", true, "Entry value for Read 1  cannot be less than 0"},
    {&B::txtAOutOut2, "11", "10.00", true, "Entry value for Read 1 cannot exceed 10.00"},

    {&B::txtRS485Address, "5", "0005", true, before},
    {&B::txtRS485Address, "-5", "0005", true, "Entry value for RS-485 Address  cannot be less than 0"},
    {&B::txtRS485Address, "0199", "0199", false, before},
    {&B::txtRS485Address, "200", "0199", true, "Entry value for RS-485 Address cannot exceed 199"},

    {&B::txtLBATime, "5:3", "50:30", true, time},
    {&B::txtLBATime, "50:30", "50:30", false, time},
    {&B::txtRampT, "1:75", "10:59", true, time},
    {&B::txtSoakT, "x", "00:00", true, time},

    {&B::txtIDCode, "12", "1200", false, before},
    {&B::txtIDCode, "1.5", "1000", false, before},
};
// clang-format on

TEST_F(EntryRules, EveryFieldIsRepairedByItsRow) {
  for (const auto& [box, typed, text, warns, said] : cases) {
    SCOPED_TRACE("record " + numberText(boxOf(box).record) + " \"" + typed + "\"");
    const Repair result = repaired(box, typed);
    EXPECT_EQ(result.text, text);
    EXPECT_EQ(result.differs, warns);
    EXPECT_STREQ(result.warning, said);
  }
}

TEST_F(EntryRules, EveryFieldHasACase) {
  std::set<const SetupBox*> tested;
  for (const BoxCase& row : cases) tested.insert(&boxOf(row.box));
  for (const SetupBox& box : setupBoxes())
    EXPECT_EQ(tested.contains(&box), box.rule.has_value()) << box.record;
  EXPECT_EQ(tested.size(), 28u);
  EXPECT_THAT([] { boxOf(&B::txtPortHelp); },
              ::testing::ThrowsMessage<std::logic_error>("a text box without a record"));
}

TEST_F(EntryRules, ACurrentGoesToTwenty) {
  struct Case {
    TextMember box;
    const char* said;
  };
  for (const auto& [box, said] : {Case{&B::txtAOutOut1, "Entry value for Output 1 cannot exceed 20.00"},
                                  Case{&B::txtAOutOut2, "Entry value for Read 1 cannot exceed 20.00"}}) {
    EXPECT_EQ(repaired(box, "15", "000.0", false).text, "15.00");
    EXPECT_EQ(repaired(box, "20", "000.0", false).text, "20.00");
    EXPECT_EQ(repaired(box, "20.01", "000.0", false).text, "20.00");
    EXPECT_STREQ(repaired(box, "20.01", "000.0", false).warning, said);
  }
}

bool isOutputPoint(const SetupBox& box) {
  return box.record == rec::txtAOutOut1 || box.record == rec::txtAOutOut2;
}

TEST_F(EntryRules, ACurrentMovesNoOtherLimit) {
  for (const SetupBox& box : setupBoxes()) {
    if (!box.rule || isOutputPoint(box)) continue;
    for (const char* typed : {"0", "5", "-5", "150", "99999"}) {
      const Repair voltage = repair(*box.rule, typed, {"000.0", true});
      const Repair current = repair(*box.rule, typed, {"000.0", false});
      EXPECT_EQ(current.text, voltage.text) << box.record;
      EXPECT_STREQ(current.warning, voltage.warning) << box.record;
    }
  }
}

TEST_F(EntryRules, NoughtIsLegalInEveryFieldAndNotBelowNought) {
  for (const SetupBox& box : setupBoxes()) {
    if (!box.rule) continue;
    for (const bool voltage : {true, false}) {
      const Repair result = repair(*box.rule, "0", {"000.0", voltage});
      EXPECT_EQ(result.text.find_first_not_of("0.:"), std::string::npos) << box.record << result.text;
      EXPECT_STREQ(result.warning, box.rule->changedText) << box.record;
    }
  }
}

TEST_F(EntryRules, ReadingsAreShownInTheFormatOfTheForm) {
  constexpr const char* shownFive[] = {"0005.", "005.0", "05.00", "5.000"};
  for (int decimals = 0; decimals < 4; ++decimals) {
    EXPECT_EQ(repaired(&B::txtSp1, "5", pictures[decimals]).text, shownFive[decimals]);
    EXPECT_FALSE(repaired(&B::txtOut1PB, shownFive[decimals], pictures[decimals]).differs);
    EXPECT_TRUE(repaired(&B::txtOut1PB, "5", pictures[decimals]).differs);
  }
}

TEST_F(EntryRules, OnlyAReadingHasARangeThatFollowsTheFormat) {
  const EntryForm form{pictures[1], true};
  EXPECT_EQ(readingRangeText(*boxOf(&B::txtSp1).rule, form), "-199.9 to 999.9");
  EXPECT_EQ(readingRangeText(*boxOf(&B::txtIDCode).rule, form), "");
}

TEST_F(EntryRules, ThePictureIsTheFormsAndTheRangeThatOfTheRecords) {
  EXPECT_EQ(repaired(&B::txtSp1, "5000", "0.000").text, "999.900");
  EXPECT_EQ(repaired(&B::txtSp1, "5000", "0000.").text, "1000.");
  EXPECT_EQ(repaired(&B::txtSp1, "1000.", "0000.").text, "1000.");
}

TEST_F(EntryRules, WhateverIsTypedIsLegalAfterOneRepair) {
  std::mt19937 random(4);
  for (int round = 0; round < 4000; ++round) {
    const std::string typed = anyText(random);
    chooseFormat(between(random, 0, 3));
    const EntryForm form{pictures[between(random, 0, 3)], between(random, 0, 1) == 0};
    for (const SetupBox& box : setupBoxes()) {
      if (!box.rule) continue;
      const Repair once = repair(*box.rule, typed, form);
      const Repair twice = repair(*box.rule, once.text, form);
      EXPECT_EQ(twice.text, once.text) << box.record << " \"" << typed << "\"";
      // Two boxes compare with another picture than they show.
      const bool comparesOtherwise = box.record == rec::txtAOutOut1 || box.record == rec::txtAOutOut2;
      EXPECT_TRUE(comparesOtherwise || !twice.differs) << box.record << " \"" << typed << "\"";
    }
  }
}

TEST_F(EntryRules, WhateverIsTypedKeepsToItsLimits) {
  std::mt19937 random(5);
  for (int round = 0; round < 4000; ++round) {
    const std::string typed = anyText(random);
    for (const SetupBox& box : setupBoxes()) {
      if (!box.rule) continue;
      const double number = Val(repair(*box.rule, typed, {"000.0", true}).text);
      const bool isCode = box.rule->value == Value::code;
      const Limits& limits = box.rule->limits;
      const bool hasLimits = limits.maximum > 0;
      EXPECT_GE(number, hasLimits ? limits.minimum : isCode ? -999 : -199.9) << box.record << typed;
      EXPECT_LE(number, hasLimits ? limits.maximum : isCode ? 9999 : 999.9) << box.record << typed;
    }
  }
}

}  // namespace

}  // namespace torvane
