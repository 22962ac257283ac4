// SPDX-License-Identifier: MIT
// Lists, ranges and texts of the main window, letter by letter.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using Lists = EditorTest;
using Texts = EditorTest;
using Ranges = EditorTest;

struct List {
  const char* control;
  std::vector<std::string> items;
};

// As the controls are made; a shown setup may shorten the lists of the alarms.
const List lists[] = {
    {"lstTCTypes", {"J", "K", "T", "E", "N", "DIN J", "R", "S", "B", "C"}},
    {"cboRTDValue", {"100", "500", "1000"}},
    {"cboRTDCurves", {"385", "392"}},
    {"cboRTDWires", {"2", "3", "4"}},
    {"lstProc", {"0 - 100mV", "0 - 1V", "0 - 10V", "0 - 20mA"}},
    {"cboTUnit", {"C", "F"}},
    {"lstFiltConst", {"1", "2", "4", "8", "16", "32", "64", "128"}},
    {"cboAl1Ctrl", {"Absolute", "Deviation"}},
    {"cboAl2Ctrl", {"Absolute", "Deviation"}},
    {"cboAl1Latch", {"Latch", "Unlatch"}},
    {"cboAl2Latch", {"Latch", "Unlatch"}},
    {"cboAl1Closure", {"Norm Open", "Norm Close"}},
    {"cboAl2Closure", {"Norm Open", "Norm Close"}},
    {"cboAl1Setup", {"Above", "Below", "Hi/Lo", "Band"}},
    {"cboAl2Setup", {"Above", "Below", "Hi/Lo", "Band"}},
    {"cboNormalColor", {"Red ", "Green", "Amber"}},
    {"cboAl1WhenActiveColor", {"Red", "Green", "Amber"}},
    {"cboAl2WhenActiveColor", {"Red", "Green", "Amber"}},
    {"lstOut1DamFactor", {"0", "1", "2", "3", "4", "5", "6", "7"}},
    {"cboOut1Ctrl", {"On/Off", "PID"}},
    {"cboOut2Ctrl", {"On/Off", "PID"}},
    {"cboOut1Action", {"Reverse", "Direct"}},
    {"cboOut2Action", {"Reverse", "Direct"}},
    {"cboCommPort", {"COM 1", "COM 2", "COM 3", "COM 4"}},
    {"cboBaud", {"300", "600", "1200", "2400", "4800", "9600", "19200"}},
    {"cboParity", {"none", "odd", "even"}},
    {"cboData", {"7-bit", "8-bit"}},
    {"cboStop", {"1-bit", "2-bit"}},
};

TEST_F(Lists, HaveTheirItemsInOrder) {
  const auto fresh = std::make_shared<frmBigFolder>();
  for (const auto& [control, items] : lists) {
    EXPECT_EQ(dynamic_cast<ListControl&>(named(*fresh, control)).items(), items) << control;
  }
}

TEST_F(Lists, AreAllKnownHere) {
  std::size_t count = 0;
  for (const Control* control : editor.controls) {
    count += dynamic_cast<const ListControl*>(control) != nullptr ? 1u : 0u;
  }
  EXPECT_EQ(count, std::size(lists));
}

TEST_F(Ranges, OfTheBarsAreThoseOfTheUnit) {
  struct Range {
    const char* bar;
    int min, max, start;
  };
  const auto fresh = std::make_shared<frmBigFolder>();
  for (const auto& [name, min, max, start] :
       {Range{"HSOut1CycleT", 1, 199, 4}, Range{"HSOut2CycleT", 0, 199, 1}, Range{"HSOut1Low", 0, 99, 0},
        Range{"HSOut1High", 0, 99, 0}}) {
    const auto& bar = dynamic_cast<ScrollBar&>(named(*fresh, name));
    EXPECT_EQ(bar.min(), min) << name;
    EXPECT_EQ(bar.max(), max) << name;
    EXPECT_EQ(bar.value(), start) << name;
  }
}

struct Text {
  const char* control;
  const char* caption;
  const char* tip;  // nullptr: held elsewhere
};

constexpr Text texts[] = {
    {"optIDCode_0", "Disable", "No change at the front buttons asks for the ID code"},
    {"optIDCode_1", "Setpoint", "A change of the set points asks for the ID code"},
    {"optIDCode_2", "Full", "Every change at the front buttons asks for the ID code"},
    {"optInType_0", "Thermocouples", nullptr},
    {"optInType_1", "RTD", nullptr},
    {"optInType_2", "Process", nullptr},
    {"fraInType_0", "TC Types", nullptr},
    {"fraInType_1", "RTD Types", nullptr},
    {"fraInType_2", "Process Setup", nullptr},
    {"optDpoint_0", "xxxx.", nullptr},
    {"optDpoint_1", "xxx.x", nullptr},
    {"optDpoint_2", "xx.xx", nullptr},
    {"optDpoint_3", "x.xxx", nullptr},
    {"optCommunicationMode_0", "Serial", nullptr},
    {"optCommunicationMode_1", "TCP/IP", nullptr},
    {"optPortNum_0", "1000 (Initial)", nullptr},
    {"optPortNum_1", "2000 (Typical)", nullptr},
    {"optPortNum_2", "Non-standard", nullptr},
    {"fraCommMode", "Communication mode", nullptr},
    {"fraSerialManualSet", "Manual Setup", nullptr},
    {"fraSerialCommunicationMode", "Communication Set Up", nullptr},
    {"fraTCPIPAddress", "TCP/IP Address", nullptr},
    {"fraTCPIPPort", "TCP/IP port", nullptr},
    {"fraAutoDetect", "Connection Wizard", nullptr},
    {"cmdAutoDetect", "Connect", "Auto connect and verification"},
    {"optNoChange", "Leave Comm", "A write leaves the unit's serial settings as they are"},
    {"optRS232", "RS-232", "A write sets the unit to RS-232"},
    {"optRS485", "RS-485", "A write sets the unit to RS-485 with the address below"},
    {"optAOutV", "Voltage", "0 to 10 V"},
    {"optAOutI", "Current", "0 to 20 mA"},
    {"lblNoChange", "Protocol As Found, Do Not Change", nullptr},
    {"lblChange", "Change", nullptr},
    {"cmdHelp", "Help", "Get help"},
    {"cmdWrite", "Write", "Write to file, serial-comm or printer"},
    {"cmdNext", "Next >", "Forward to next tab"},
    {"cmdPrev", "< Back", "Back to previous tab"},
    {"cmdReset", "Discard", "Discard change on current tab"},
    {"cmdPref", "Preferences", "Enable controller Reset and Warning messages"},
    {"cmdFactoryDefaults", "Fact. defaults", ""},
    {"cmdQuit", "Quit", ""},
    {"cmdOpen", "Open", "Read Config from File or Meter"},
    {"cmdCnfg", "Hardware", "Set-up controller and test the connection"},
    {"lblIDCodeEn",
     "To enable ID Code security feature, place a check in the ID Enable box.\r\n\r\n"
     "To activate ID Code security feature, enter a non zero value in the ID Code box.",
     nullptr},
    {"lblSwap", "Specify Setpoint 1 and Setpoint 2 in Degrees for TC and RTD, or counts for Process.",
     nullptr},
    {"lblIDInst",
     "To Change the ID Code security feature, enter new four digits value in the ID Code input box below.",
     nullptr},
    {"lblIDDisabled",
     "The ID Code security feature is not enabled.\r\n\r\n"
     "ID Code security can prevent unauthorized access to the settings of the controller via the front "
     "buttons.\r\n\r\n"
     "To enable ID Code security feature, place a check in the ID Code Enable check-box found in the "
     "L.Brk.Alarm section/tab.",
     nullptr},
    {"lblAutoDet",
     "Find my device. Required Comm params to be: 9600 Baud, Odd Parity, 7 Databits, 1 Stop bit, Echo: On, "
     "Mode:Command.",
     nullptr},
    {"lblStatus", "RS-232", nullptr},
    {"chkOut1Anti", nullptr, "Prevents overshoot due to windup"},
    {"txtLBATime", nullptr,
     "Alarm 1 will be raise if the process fail to change 4F/2C/or 10 cts in specified time"},
    {"cboOut1Action", nullptr, "reverse=heating, direct=cooling"},
    {"lstOut1DamFactor", nullptr, "For Auto-tune, larger numbers indicate faster process"},
    {"picProcess", nullptr, "The set point rises for the ramp time and is held for the soak time"},
};

TEST_F(Texts, AreLetterByLetterThoseOfTheUserGuide) {
  for (const auto& [name, caption, tip] : texts) {
    const Control& control = named(editor, name);
    if (caption != nullptr) {
      EXPECT_EQ(dynamic_cast<const CaptionedControl&>(control).caption(), caption) << name;
    }
    if (tip != nullptr) {
      EXPECT_EQ(control.toolTip(), tip) << name;
    }
  }
}

// The names of the controls of a window that nothing has been shown on yet, which are as `is` says.
std::set<std::string> namesWhere(bool (*is)(const Control&)) {
  const auto fresh = std::make_shared<frmBigFolder>();
  std::set<std::string> names;
  for (const Control* control : fresh->controls) {
    if (is(*control)) names.insert(control->name());
  }
  return names;
}

std::set<std::string> setOf(std::string_view text) {
  const auto all = words(text);
  return {all.begin(), all.end()};
}

using FirstLooks = EditorTest;

TEST_F(FirstLooks, HideWhatBelongsToOtherChoices) {
  std::set<std::string> hidden = namesWhere([](const Control& control) {
    return !control.visible() && dynamic_cast<const Picture*>(&control) == nullptr;
  });
  EXPECT_EQ(hidden,
            setOf("fraInType_1 fraInType_2 fraSOffset plotReading fraOut1PID fraOut2PID fraTCPIPAddress "
                  "fraTCPIPPort fraAl1Deadband fraAl2Deadband lblIDInst lblIDCode lblIDWarn txtIDCode"));
}

TEST_F(FirstLooks, AreThoseOfTheFactorySetupWhereAChangeWouldWarn) {
  const auto fresh = std::make_shared<frmBigFolder>();
  EXPECT_EQ(fresh->formDPt(), "000.0");
  EXPECT_EQ(fresh->txtRS485Address.text(), "0001");
}

TEST_F(FirstLooks, KeepFromTheUserWhatNeedsATickFirst) {
  EXPECT_EQ(
      namesWhere([](const Control& control) { return !control.enabled(); }),
      setOf("cboAl1Ctrl cboAl1Latch cboAl1Closure cboAl1Setup cboAl1WhenActiveColor txtAl1HiSp txtAl1LoSp "
            "cboAl2Ctrl cboAl2Latch cboAl2Closure cboAl2Setup cboAl2WhenActiveColor txtAl2HiSp txtAl2LoSp "
            "txtLBATime chkOut1Start txtRampT chkSoakEn txtSoakT picProcess cmdDetails cmdUndo"));
}

TEST_F(Texts, OfTheTabsAreInOrder) {
  const char* captions[] = {"ID code",  "Setpoints", "Input type", "Reading",   "Alarm 1", "Alarm 2",
                            "LB alarm", "Out1",      "Out2",       "Ramp/Soak", "Analog",  "Comm"};
  ASSERT_EQ(editor.tabBig.tabs(), 12);
  for (std::size_t tab = 0; tab < 12; ++tab) {
    EXPECT_EQ(editor.tabBig.page(tab).caption, captions[tab]);
    EXPECT_TRUE(editor.tabBig.page(tab).present);
  }
}

// The first word of each row is the tab, the others what lies on it.
constexpr const char* pages[] = {
    "0 txtIDCode fraIDCode lblIDInst lblIDCode lblIDWarn lblIDDisabled optIDCode_2",
    "1 txtSp1 txtSp2 chkSPDeviation cboNormalColor lblSwap",
    "2 optInType_0 fraInType_0 fraInType_1 fraInType_2 imgTC imgLK_switchTC lstTCTypes lstProc",
    "3 fraReadBasic optDpoint_0 cboTUnit lstFiltConst fraSOffset fraNoSOffset",
    "4 chkAl1Enabled chkAl1AutoPOn fraAl1Config fraAl1Spts fraAl1Deadband txtAl1Deadband",
    "5 chkAl2Enabled fraAl2Cnfg fraAl2Spts fraAl2Deadband txtAl2Deadband",
    "6 fraLBAlarm fraID chkIDEnabled fraTAdjust",
    "7 cboOut1Ctrl cboOut1Action fraOut1OnOff fraOut1PID fraOut1Manual chkOut1Self fraOut1420mA chkOut1Start",
    "8 cboOut2Ctrl cboOut2Action fraOut2PID fraOut2OnOff fraOut2CycleT",
    "9 fraRamp fraSoak picProcess",
    "10 chkAnalogOutputEnabled fraAOutMode fraAOutSOff",
    "11 fraCommMode fraSerialManualSet fraSerialCommunicationMode fraTCPIPAddress fraTCPIPPort fraAutoDetect",
};

TEST_F(Texts, StandOnTheTabTheyBelongTo) {
  for (const char* row : pages) {
    const auto names = words(row);
    const Container* page = &editor.tabBig.page(static_cast<std::size_t>(std::stoi(names.front())));
    for (std::size_t i = 1; i < names.size(); ++i) {
      const Container* around = &named(editor, names[i]).container();
      while (around != nullptr && around != page) around = around->parent();
      EXPECT_EQ(around, page) << names[i];
    }
  }
}

}  // namespace

}  // namespace torvane
