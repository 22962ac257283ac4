// SPDX-License-Identifier: MIT
// A choice on one control changes what the others offer, and nothing else.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using Editor = frmBigFolder;

void nothing(Editor&) {}

class RuleOf : public EditorTest, public ::testing::WithParamInterface<Rule> {};

std::string asName(const Rule& rule) {
  std::string name = rule.name;
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  return name;
}

TEST_P(RuleOf, SetsWhatItSaysAndNothingElse) { expectRule(editor, GetParam()); }

void simpleMenu() { Memo[rec::menuKind].extra = 2; }
void secondFamily() { DeviceState.IsRkw77 = True; }

// An alarm that is off has no set points in use.
void alarmsOn(Editor& e) {
  e.chkAl1Enabled.setValue(1);
  e.chkAl2Enabled.setValue(1);
}

const Rule alarmRules[] = {
    {"alarm 1 ticked",
     nothing,
     [](Editor& e) { e.chkAl1Enabled.setValue(1); },
     "cboAl1Ctrl cboAl1Latch cboAl1Closure cboAl1Setup cboAl1WhenActiveColor txtAl1HiSp",
     "txtAl1LoSp",
     "",
     "",
     {},
     {7}},
    {"alarm 1 cleared",
     [](Editor& e) { e.chkAl1Enabled.setValue(1); },
     [](Editor& e) { e.chkAl1Enabled.setValue(0); },
     "",
     "cboAl1Ctrl cboAl1Latch cboAl1Closure cboAl1Setup cboAl1WhenActiveColor txtAl1HiSp txtAl1LoSp",
     "",
     "",
     {7},
     {}},
    {"alarm 1 ticked in the simple menu", [](Editor&) { simpleMenu(); },
     [](Editor& e) { e.chkAl1Enabled.setValue(1); },
     "cboAl1Ctrl cboAl1Latch cboAl1Closure cboAl1Setup cboAl1WhenActiveColor txtAl1HiSp fraAl1Deadband "
     "txtAl1Deadband",
     "txtAl1LoSp"},
    {"alarm 1 cleared in the simple menu",
     [](Editor& e) {
       simpleMenu();
       e.chkAl1Enabled.setValue(1);
     },
     [](Editor& e) { e.chkAl1Enabled.setValue(0); }, "",
     "cboAl1Ctrl cboAl1Latch cboAl1Closure cboAl1Setup cboAl1WhenActiveColor txtAl1HiSp txtAl1LoSp "
     "fraAl1Deadband txtAl1Deadband"},
    {"alarm 1 ticked in the second family", [](Editor&) { secondFamily(); },
     [](Editor& e) { e.chkAl1Enabled.setValue(1); },
     "cboAl1Ctrl cboAl1Latch cboAl1Closure cboAl1Setup cboAl1WhenActiveColor txtAl1HiSp", "txtAl1LoSp"},
    {"alarm 2 ticked",
     nothing,
     [](Editor& e) { e.chkAl2Enabled.setValue(1); },
     "cboAl2Ctrl cboAl2Latch cboAl2Closure cboAl2Setup cboAl2WhenActiveColor txtAl2HiSp",
     "txtAl2LoSp",
     "",
     "",
     {},
     {8}},
    {"alarm 2 cleared",
     [](Editor& e) { e.chkAl2Enabled.setValue(1); },
     [](Editor& e) { e.chkAl2Enabled.setValue(0); },
     "",
     "cboAl2Ctrl cboAl2Latch cboAl2Closure cboAl2Setup cboAl2WhenActiveColor txtAl2HiSp txtAl2LoSp",
     "",
     "",
     {8},
     {}},
    {"alarm 2 ticked in the simple menu",
     [](Editor&) { simpleMenu(); },
     [](Editor& e) { e.chkAl2Enabled.setValue(1); },
     "cboAl2Ctrl cboAl2Latch cboAl2Closure cboAl2Setup cboAl2WhenActiveColor txtAl2HiSp fraAl2Deadband "
     "txtAl2Deadband",
     "txtAl2LoSp",
     "",
     "",
     {},
     {8}},
    {"alarm 2 ticked in the second family",
     [](Editor&) { secondFamily(); },
     [](Editor& e) { e.chkAl2Enabled.setValue(1); },
     "cboAl2Ctrl cboAl2Latch cboAl2Closure cboAl2Setup cboAl2WhenActiveColor txtAl2HiSp",
     "txtAl2LoSp",
     "",
     "",
     {},
     {8}},
    {"alarm 1 above",
     [](Editor& e) {
       alarmsOn(e);
       e.cboAl1Setup.setListIndex(1);
     },
     [](Editor& e) { e.cboAl1Setup.setListIndex(0); }, "txtAl1HiSp", "txtAl1LoSp"},
    {"alarm 1 below", alarmsOn, [](Editor& e) { e.cboAl1Setup.setListIndex(1); }, "txtAl1LoSp", "txtAl1HiSp"},
    {"alarm 1 high and low", alarmsOn, [](Editor& e) { e.cboAl1Setup.setListIndex(2); },
     "txtAl1HiSp txtAl1LoSp"},
    {"alarm 1 band",
     [](Editor& e) {
       alarmsOn(e);
       e.cboAl1Ctrl.setListIndex(1);
     },
     [](Editor& e) { e.cboAl1Setup.setListIndex(3); }, "txtAl1HiSp", "txtAl1LoSp"},
    {"alarm 2 above",
     [](Editor& e) {
       alarmsOn(e);
       e.cboAl2Setup.setListIndex(1);
     },
     [](Editor& e) { e.cboAl2Setup.setListIndex(0); }, "txtAl2HiSp", "txtAl2LoSp"},
    {"alarm 2 below", alarmsOn, [](Editor& e) { e.cboAl2Setup.setListIndex(1); }, "txtAl2LoSp", "txtAl2HiSp"},
    {"alarm 2 high and low", alarmsOn, [](Editor& e) { e.cboAl2Setup.setListIndex(2); },
     "txtAl2HiSp txtAl2LoSp"},
    {"alarm 2 band",
     [](Editor& e) {
       alarmsOn(e);
       e.cboAl2Ctrl.setListIndex(1);
     },
     [](Editor& e) { e.cboAl2Setup.setListIndex(3); }, "txtAl2HiSp", "txtAl2LoSp"},
    {"alarm 1 without a choice", nothing, [](Editor& e) { e.cboAl1Setup.setListIndex(-1); }},
    {"alarm 1 below, then without a choice",
     [](Editor& e) {
       alarmsOn(e);
       e.cboAl1Setup.setListIndex(1);
     },
     [](Editor& e) { e.cboAl1Setup.setListIndex(-1); }},
};

const Rule otherRules[] = {
    {"ID code ticked", [](Editor& e) { e.chkIDEnabled.setValue(0); },
     [](Editor& e) { e.chkIDEnabled.setValue(1); }, "", "", "lblIDInst lblIDCode lblIDWarn txtIDCode",
     "lblIDDisabled"},
    {"ID code cleared", nothing, [](Editor& e) { e.chkIDEnabled.setValue(0); }, "", "", "lblIDDisabled",
     "lblIDInst lblIDCode lblIDWarn txtIDCode"},
    {"loop break alarm ticked", nothing, [](Editor& e) { e.chkLBAEnabled.setValue(1); }, "txtLBATime"},
    {"loop break alarm cleared", [](Editor& e) { e.chkLBAEnabled.setValue(1); },
     [](Editor& e) { e.chkLBAEnabled.setValue(0); }, "", "txtLBATime"},
    {"retransmission ticked",
     nothing,
     [](Editor& e) { e.chkAnalogOutputEnabled.setValue(1); },
     "optAOutV optAOutI txtAOutRd1 txtAOutRd2 txtAOutOut1 txtAOutOut2",
     "",
     "",
     "",
     {},
     {7}},
    {"retransmission cleared",
     [](Editor& e) { e.chkAnalogOutputEnabled.setValue(1); },
     [](Editor& e) { e.chkAnalogOutputEnabled.setValue(0); },
     "",
     "optAOutV optAOutI txtAOutRd1 txtAOutRd2 txtAOutOut1 txtAOutOut2",
     "",
     "",
     {7},
     {}},
    {"ramp ticked without soak", nothing, [](Editor& e) { e.chkRampEn.setValue(1); },
     "txtRampT chkSoakEn picProcess", "txtSoakT"},
    {"ramp ticked with soak", [](Editor& e) { e.chkSoakEn.setValue(1); },
     [](Editor& e) { e.chkRampEn.setValue(1); }, "txtRampT chkSoakEn picProcess txtSoakT"},
    {"ramp cleared with soak",
     [](Editor& e) {
       e.chkRampEn.setValue(1);
       e.chkSoakEn.setValue(1);
     },
     [](Editor& e) { e.chkRampEn.setValue(0); }, "", "txtRampT chkSoakEn txtSoakT picProcess"},
    {"soak ticked", nothing, [](Editor& e) { e.chkSoakEn.setValue(1); }, "txtSoakT"},
    {"soak cleared", [](Editor& e) { e.chkSoakEn.setValue(1); }, [](Editor& e) { e.chkSoakEn.setValue(0); },
     "", "txtSoakT"},
    {"process input", nothing, [](Editor& e) { e.optInType(2).setValue(true); }, "optDpoint_2 optDpoint_3",
     "", "fraInType_2 fraSOffset plotReading imgProc100m",
     "fraInType_0 fraInType_1 fraNoSOffset cboTUnit lblTUnit imgTC"},
    {"thermocouple input", [](Editor& e) { e.optInType(2).setValue(true); },
     [](Editor& e) { e.optInType(0).setValue(true); }, "", "optDpoint_2 optDpoint_3",
     "fraInType_0 fraNoSOffset cboTUnit lblTUnit imgTC",
     "fraInType_1 fraInType_2 fraSOffset plotReading imgProc100m"},
    {"RTD input", [](Editor& e) { e.optInType(2).setValue(true); },
     [](Editor& e) { e.optInType(1).setValue(true); }, "", "optDpoint_2 optDpoint_3",
     "fraInType_1 fraNoSOffset cboTUnit lblTUnit imgRTD2Wire",
     "fraInType_0 fraInType_2 fraSOffset plotReading imgProc100m"},
};

INSTANTIATE_TEST_SUITE_P(Alarms, RuleOf, ::testing::ValuesIn(alarmRules),
                         [](const auto& test) { return asName(test.param); });
INSTANTIATE_TEST_SUITE_P(Others, RuleOf, ::testing::ValuesIn(otherRules),
                         [](const auto& test) { return asName(test.param); });

using AlarmLists = EditorTest;
using ReadingScale = EditorTest;

// The dialog decides while it stands open, the model otherwise.
TEST_F(AlarmLists, OfAlarm1LeaveTheAnalogOutputThatThereIs) {
  struct Case {
    bool analog;
    int chosenInTheDialog;  // of its outputs; -1: there is no dialog
    int kept;
  };
  for (const auto& [analog, chosen, kept] :
       {Case{true, -1, 1}, {false, -1, 0}, {false, 3, 1}, {false, 2, 0}, {false, 0, 0}}) {
    unload<frmHardware>();
    chooseUnit(kind::fullController, analog);
    editor.chkAl1Enabled.setValue(1);
    if (chosen >= 0) form<frmHardware>().optOut[static_cast<std::size_t>(chosen)].setValue(true);
    editor.chkAnalogOutputEnabled.setValue(1);
    editor.chkAl1Enabled.setValue(0);
    EXPECT_EQ(editor.chkAnalogOutputEnabled.value(), kept) << analog << chosen;
    EXPECT_EQ(isLoaded<frmHardware>(), chosen >= 0) << "asked without bringing it up";
  }
}

const std::vector<std::string> two = {"Above", "Below"};
const std::vector<std::string> three = {"Above", "Below", "Hi/Lo"};
const std::vector<std::string> four = {"Above", "Below", "Hi/Lo", "Band"};

void shape(ComboBox& list, const std::vector<std::string>& items) {
  list.clear();
  for (const auto& item : items) list.addItem(item);
}

struct Lists {
  const char* name;
  int alarm;  // whose control changes
  int to;     // 0 absolute, 1 deviation
  int menu;
  std::vector<std::string> first, second;  // before
  std::vector<std::string> firstAfter, secondAfter;
};

const Lists listRules[] = {
    {"deviation lengthens two by two", 1, 1, 0, two, two, four, two},
    {"deviation lengthens three by one", 1, 1, 0, three, two, four, two},
    {"deviation leaves four", 1, 1, 0, four, two, four, two},
    {"deviation in the simple menu too", 1, 1, 2, two, two, four, two},
    {"absolute lengthens two by one", 1, 0, 0, two, two, three, two},
    {"absolute leaves three", 1, 0, 1, three, four, three, four},
    {"absolute takes band away", 1, 0, 0, four, four, three, four},
    {"absolute in the simple menu takes the third", 1, 0, 2, three, three, two, three},
    {"absolute in the simple menu leaves two", 1, 0, 2, two, three, two, three},
    {"absolute in the simple menu leaves four", 1, 0, 2, four, three, four, three},
    {"second alarm, deviation lengthens its own", 2, 1, 0, two, two, two, four},
    {"second alarm, deviation leaves four", 2, 1, 2, two, four, two, four},
    {"second alarm, absolute lengthens two beside a first of three", 2, 0, 0, three, two, three, three},
    {"second alarm, absolute leaves three beside a first of three", 2, 0, 0, three, three, three, three},
    {"second alarm, absolute leaves two beside a first of two", 2, 0, 0, two, two, two, two},
    {"second alarm, absolute takes its own band away", 2, 0, 1, four, four, four, three},
    {"second alarm, absolute in the simple menu shortens its own", 2, 0, 2, three, three, three, two},
    {"second alarm, absolute in the simple menu leaves three beside a first of two", 2, 0, 2, two, three, two,
     three},
    {"second alarm, absolute in the simple menu leaves four", 2, 0, 2, three, four, three, four},
};

TEST_F(AlarmLists, FollowTheControl) {
  for (const Lists& rule : listRules) {
    ComboBox& control = rule.alarm == 1 ? editor.cboAl1Ctrl : editor.cboAl2Ctrl;
    control.setListIndex(1 - rule.to);
    shape(editor.cboAl1Setup, rule.first);
    shape(editor.cboAl2Setup, rule.second);
    Memo[rec::menuKind].extra = static_cast<std::int16_t>(rule.menu);
    control.setListIndex(rule.to);
    EXPECT_EQ(editor.cboAl1Setup.items(), rule.firstAfter) << rule.name;
    EXPECT_EQ(editor.cboAl2Setup.items(), rule.secondAfter) << rule.name;
  }
}

TEST_F(AlarmLists, ChooseAboveWhenBandIsTakenAway) {
  for (int alarm : {1, 2}) {
    ComboBox& control = alarm == 1 ? editor.cboAl1Ctrl : editor.cboAl2Ctrl;
    ComboBox& setup = alarm == 1 ? editor.cboAl1Setup : editor.cboAl2Setup;
    control.setListIndex(1);
    setup.setListIndex(3);
    control.setListIndex(0);
    EXPECT_EQ(setup.listIndex(), 0);
    EXPECT_EQ(setup.text(), "Above");
  }
}

TEST_F(AlarmLists, OfferThreeActionsFromTheStart) {
  EXPECT_EQ(editor.cboAl1Setup.items(), three);
  EXPECT_EQ(editor.cboAl2Setup.items(), three);
}

TEST_F(AlarmLists, FallBackToAboveWhenHiLoIsTakenAway) {
  for (int alarm : {1, 2}) {
    ComboBox& control = alarm == 1 ? editor.cboAl1Ctrl : editor.cboAl2Ctrl;
    ComboBox& setup = alarm == 1 ? editor.cboAl1Setup : editor.cboAl2Setup;
    Memo[rec::menuKind].extra = 0;
    control.setListIndex(1);
    shape(editor.cboAl1Setup, three);
    shape(setup, three);
    setup.setListIndex(2);
    simpleMenu();
    control.setListIndex(0);
    EXPECT_EQ(setup.items(), two) << alarm;
    EXPECT_EQ(setup.text(), "Above") << alarm;
  }
}

TEST_F(ReadingScale, HasOneDecimalAtMostUnlessTheInputIsAProcess) {
  for (int finer : {2, 3}) {
    editor.optInType(2).setValue(true);
    for (int i = 0; i < 4; ++i) Memo[rec::optDpoint + i].flag = asFlag(i == finer);
    editor.optInType(0).setValue(true);
    EXPECT_EQ(Memo[rec::optDpoint + 1].flag, True) << finer;
    EXPECT_EQ(Memo[rec::optDpoint + finer].flag, False) << finer;
  }
}

TEST_F(ReadingScale, RepairsTheFinerOfTwoFormatsAlone) {
  editor.optInType(2).setValue(true);
  Memo[rec::optDpoint + 2].flag = Memo[rec::optDpoint + 3].flag = True;
  editor.optInType(1).setValue(true);
  EXPECT_EQ(Memo[rec::optDpoint + 2].flag, False);
  EXPECT_EQ(Memo[rec::optDpoint + 3].flag, True);
}

TEST_F(ReadingScale, KeepsCoarseFormatsAndThoseOfAProcess) {
  for (int format : {0, 1, 2, 3}) {
    editor.optInType(0).setValue(true);
    for (int i = 0; i < 4; ++i) Memo[rec::optDpoint + i].flag = asFlag(i == format);
    editor.optInType(2).setValue(true);
    EXPECT_EQ(Memo[rec::optDpoint + format].flag, True) << format;
    if (format > 1) continue;
    editor.optInType(1).setValue(true);
    EXPECT_EQ(Memo[rec::optDpoint + format].flag, True) << format;
  }
}

TEST_F(ReadingScale, IsRepairedWhenASetupWithAnotherInputIsShown) {
  editor.optInType(2).setValue(true);
  Memo[rec::optInType].flag = True;
  Memo[rec::optInType + 2].flag = False;
  Memo[rec::optDpoint + 1].flag = False;
  Memo[rec::optDpoint + 3].flag = True;
  editor.loadMemo(2);
  editor.loadMemo(3);
  EXPECT_EQ(Memo[rec::optDpoint + 3].flag, False);
  EXPECT_TRUE(editor.optDpoint(1).value());
}

}  // namespace

}  // namespace torvane
