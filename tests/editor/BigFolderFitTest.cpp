// SPDX-License-Identifier: MIT
// Fitting the form to the model.
#include "editor/AlarmSetup.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

struct Unit {
  const char* name;
  int kind;
  bool analogOutput;
  bool retransmission;       // chkAnalogOutputEnabled as it stands before
  const char* tabsOutOfUse;  // after the fitting
};

constexpr Unit units[] = {
    {"full", kind::fullController, false, false, "10"},
    {"full with retransmission ticked", kind::fullController, false, true, "10"},
    {"full, analog", kind::fullController, true, false, "4"},
    {"full, analog, retransmission", kind::fullController, true, true, "4 7"},
    {"alarms only", kind::alarmsOnly, false, false, "7 8 9 10"},
    {"alarms only, analog", kind::alarmsOnly, true, false, "4 8 9"},
    {"alarms only, analog, retransmission", kind::alarmsOnly, true, true, "4 7 8 9"},
    {"simple menu", kind::simpleMenu, false, false, "7 8 9 10"},
    {"simple menu, analog", kind::simpleMenu, true, false, "4 7 8 9"},
    {"monitor only", kind::monitorOnly, false, false, "7 8 9 10"},
    {"monitor only, analog", kind::monitorOnly, true, false, "7 8 9 10"},
    {"monitor only, analog, retransmission", kind::monitorOnly, true, true, "7 8 9 10"},
    {"second family", kind::rkw77, false, false, "5 10"},
    {"second family with retransmission ticked", kind::rkw77, false, true, "5 10"},
    {"second family, analog", kind::rkw77, true, false, "5"},
    {"second family, analog, retransmission", kind::rkw77, true, true, "5"},
};

class Fitting : public EditorTest, public ::testing::WithParamInterface<Unit> {
 protected:
  Fitting() {
    editor.chkAnalogOutputEnabled.setValue(GetParam().retransmission ? 1 : 0);
    chooseUnit(GetParam().kind, GetParam().analogOutput);
  }

  std::string tabsOutOfUse() const {
    std::string tabs;
    for (int tab = 0; tab < 12; ++tab) {
      if (!editor.tabBig.tabAvailable(tab)) tabs += (tabs.empty() ? "" : " ") + std::to_string(tab);
    }
    return tabs;
  }
};

INSTANTIATE_TEST_SUITE_P(ToAUnit, Fitting, ::testing::ValuesIn(units), [](const auto& test) {
  std::string name = test.param.name;
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  return name;
});

TEST_P(Fitting, TakesTabsOutOfUse) {
  fitForm();
  EXPECT_EQ(tabsOutOfUse(), GetParam().tabsOutOfUse);
}

TEST_P(Fitting, TwiceGivesTheSameForm) {
  fitForm();
  const Looks once = looksOf(editor);
  fitForm();
  EXPECT_EQ(looksOf(editor), once);
}

TEST_P(Fitting, NeverLeavesATabOutOfUseOnShow) {
  for (int tab = 0; tab < 12; ++tab) {
    showTab(tab);
    fitForm();
    EXPECT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab())) << tab;
    EXPECT_LE(editor.tabBig.tab(), tab);
  }
}

TEST_P(Fitting, LeavesTheKindOfUnitAsItIs) {
  fitForm();
  EXPECT_EQ(meterKind(), GetParam().kind);
}

TEST_P(Fitting, AndBackToTheFullControllerLeavesNothingOfTheUnit) {
  fitForm();
  chooseUnit(kind::fullController, false);
  fitForm();
  for (const char* name :
       {"fraLBAlarm", "chkLBAEnabled", "txtLBATime", "cboOut1Ctrl", "cboOut2Ctrl", "chkRampEn", "fraRamp",
        "chkAl1Enabled", "chkAl2Enabled", "fraOut1Manual", "chkAnalogOutputEnabled"}) {
    EXPECT_TRUE(named(editor, name).enabled()) << name;
  }
  for (const char* name :
       {"cboAl1Closure", "cboAl1Ctrl", "cboAl2Closure", "cboAl2Ctrl", "lblAl1Closure", "lblAl1Ctrl",
        "lblAl2Closure", "lblAl2Ctrl", "fraAl1Spts", "fraAl2Spts", "chkAl1AutoPOn"}) {
    EXPECT_TRUE(named(editor, name).visible()) << name;
  }
  EXPECT_FALSE(editor.fraAl1Deadband.visible() || editor.fraAl2Deadband.visible());
  EXPECT_GE(editor.cboAl1Setup.listCount(), 3);
  EXPECT_GE(editor.cboAl2Setup.listCount(), 3);
  EXPECT_TRUE(editor.tabBig.tabAvailable(6) && editor.tabBig.tabAvailable(7));
  EXPECT_TRUE(editor.tabBig.tabAvailable(8) && editor.tabBig.tabAvailable(9));
}

using FittingSteps = EditorTest;

TEST_F(FittingSteps, CommitAllTabsButTheFirst) {
  showTab(2);
  editor.txtIDCode.setText("1234");
  editor.txtSp2.setText("012.3");
  editor.txtLBATime.setText("00:59");
  editor.txtTCPPort.setText("4711");
  fitForm();
  EXPECT_EQ(Memo[rec::txtIDCode].text, "0000");
  EXPECT_EQ(Memo[rec::txtSp2].text, "012.3");
  EXPECT_EQ(Memo[rec::txtLBATime].text, "00:59");
  EXPECT_EQ(Memo[rec::txtTCPPort].text, "4711");
}

TEST_F(FittingSteps, CommitTheFirstTabWhenItIsOnShow) {
  showTab(0);
  editor.txtIDCode.setText("1234");
  fitForm();
  EXPECT_EQ(Memo[rec::txtIDCode].text, "1234");
}

TEST_F(FittingSteps, StepDownToATabInUse) {
  for (const int tab : {7, 8, 9, 10}) {
    chooseUnit(kind::fullController, false);
    editor.chkAnalogOutputEnabled.setValue(0);
    fitForm();
    showTab(tab);
    chooseUnit(kind::monitorOnly, false);
    fitForm();
    EXPECT_EQ(editor.tabBig.tab(), 6) << tab;
  }
}

TEST_F(FittingSteps, CutTheBaseModelAtItsFirstSuffix) {
  struct Case {
    const char* before;
    const char* after;
  };
  DeviceState.DeviceClass = 1;
  DeviceState.ModelIndex = -1;
  for (const auto& [before, after] :
       {Case{"Tv8-C24", "Tv8"}, Case{"Tv[8,16,32]", "Tv[8,16,32]"}, Case{"a-C4-C24", "a"}, Case{"-C", ""},
        Case{"x-c24", "x-c24"}, Case{"", ""}}) {
    BaseModel = before;
    fitForm();
    EXPECT_EQ(BaseModel, after);
  }
}

TEST_F(FittingSteps, EndASilentSetup) {
  editor.SilentSetup = True;
  editor.cmdCnfg_Click();
  EXPECT_EQ(editor.SilentSetup, False);
}

TEST_F(FittingSteps, LeaveTheTabsOfAMonitorAlarmsAlone) {
  chooseUnit(kind::monitorOnly, false);
  editor.chkAl1Enabled.setEnabled(false);
  fitForm();
  EXPECT_TRUE(editor.tabBig.tabAvailable(6));
  EXPECT_FALSE(editor.chkAl1Enabled.enabled());
  EXPECT_TRUE(editor.fraOut1Manual.enabled());
}

TEST_F(FittingSteps, KeepTheManualBarsFromTheUser) {
  editor.HSOut1Low.setEnabled(true);
  editor.HSOut1High.setEnabled(true);
  fitForm();
  EXPECT_FALSE(editor.HSOut1Low.enabled() || editor.HSOut1High.enabled());
  EXPECT_TRUE(editor.fraOut1Manual.enabled());
}

TEST_F(FittingSteps, TakeTheLoopBreakAlarmFromAUnitWithAlarmsOnly) {
  editor.chkLBAEnabled.setValue(1);
  chooseUnit(kind::alarmsOnly, false);
  fitForm();
  EXPECT_EQ(editor.chkLBAEnabled.value(), 0);
  EXPECT_FALSE(editor.fraLBAlarm.enabled());
  EXPECT_FALSE(editor.txtLBATime.enabled());
  EXPECT_EQ(Memo[rec::chkLBAEnabled].value, 0);
}

TEST_F(FittingSteps, TakeAnalogOutputAndManualControlFromTheSecondFamily) {
  editor.chkAnalogOutputEnabled.setValue(1);
  chooseUnit(kind::rkw77, true);
  fitForm();
  EXPECT_EQ(editor.chkAnalogOutputEnabled.value(), 0);
  EXPECT_FALSE(editor.chkAnalogOutputEnabled.enabled());
  EXPECT_FALSE(editor.fraOut1Manual.enabled());
  EXPECT_FALSE(editor.optAOutV.enabled());
}

class SimpleMenu : public EditorTest {
 protected:
  void fit(bool analogOutput = false) {
    chooseUnit(kind::simpleMenu, analogOutput);
    fitForm();
  }
};

TEST_F(SimpleMenu, HasOutputsThatOnlySwitch) {
  editor.cboOut1Ctrl.setListIndex(1);
  editor.cboOut2Ctrl.setListIndex(1);
  fit();
  for (const ComboBox* control : {&editor.cboOut1Ctrl, &editor.cboOut2Ctrl}) {
    EXPECT_EQ(control->listIndex(), 0);
    EXPECT_EQ(control->text(), "On/Off");
    EXPECT_FALSE(control->enabled());
  }
}

// The dialog gives every output that switches a cycle time; the change to On/Off takes it away again, once.
TEST_F(SimpleMenu, LosesItsCycleTimeWithItsControl) {
  DeviceState.ModelIndex = 2;
  Hardware.ModelNumber = "Tv[8,16,32]22-C24";
  editor.cboOut1Ctrl.setListIndex(1);
  for (bool hasCycleTime : {false, true}) {
    fit();
    EXPECT_EQ(editor.HSOut1CycleT.enabled(), hasCycleTime);
    EXPECT_EQ(editor.lblOut1CycleTDisplay.enabled(), hasCycleTime);
  }
}

TEST_F(SimpleMenu, HasNeitherRampNorLoopBreakAlarm) {
  editor.chkRampEn.setValue(1);
  fit();
  EXPECT_EQ(editor.chkRampEn.value(), 0);
  for (const char* name : {"chkRampEn", "fraRamp", "fraLBAlarm", "chkLBAEnabled"}) {
    EXPECT_FALSE(named(editor, name).enabled()) << name;
  }
}

TEST_F(SimpleMenu, HasBothAlarmsForGood) {
  fit();
  EXPECT_EQ(editor.chkAl1Enabled.value(), 1);
  EXPECT_EQ(editor.chkAl2Enabled.value(), 1);
  EXPECT_FALSE(editor.chkAl1Enabled.enabled() || editor.chkAl2Enabled.enabled());
  EXPECT_TRUE(editor.fraAl1Deadband.visible() && editor.fraAl2Deadband.visible());
  EXPECT_TRUE(editor.txtAl1Deadband.enabled() && editor.txtAl2Deadband.enabled());
  for (const char* name :
       {"cboAl1Closure", "cboAl1Ctrl", "cboAl2Closure", "cboAl2Ctrl", "lblAl1Closure", "lblAl1Ctrl",
        "lblAl2Closure", "lblAl2Ctrl", "fraAl1Spts", "fraAl2Spts", "chkAl1AutoPOn"}) {
    EXPECT_FALSE(named(editor, name).visible()) << name;
  }
}

TEST_F(SimpleMenu, KnowsAboveAndBelowAlone) {
  const std::vector<std::string> two = {"Above", "Below"};
  for (int control : {0, 1}) {
    for (int setup : {0, 1, 2, 3}) {
      chooseUnit(kind::fullController, false);
      fitForm();
      for (ComboBox* list : {&editor.cboAl1Ctrl, &editor.cboAl2Ctrl}) list->setListIndex(control);
      for (ComboBox* list : {&editor.cboAl1Setup, &editor.cboAl2Setup}) {
        list->setListIndex(std::min<int>(setup, list->listCount() - 1));
      }
      fit();
      EXPECT_EQ(editor.cboAl1Setup.items(), two) << control << setup;
      EXPECT_EQ(editor.cboAl2Setup.items(), two) << control << setup;
      EXPECT_EQ(editor.cboAl1Ctrl.listIndex(), 0);
      EXPECT_EQ(editor.cboAl2Ctrl.listIndex(), 0);
    }
  }
}

TEST_F(FittingSteps, ShortenAnAlarmsListFromItsEnd) {
  const std::vector<std::string> all{"Above", "Below", "Hi/Lo", "Band"};
  for (const int count : {4, 3, 4, 2, 3, 2, 4}) {
    alarmSetup::show(editor.cboAl1Setup, count, 1);
    EXPECT_EQ(editor.cboAl1Setup.items(), std::vector<std::string>(all.begin(), all.begin() + count));
    EXPECT_EQ(editor.cboAl1Setup.listIndex(), 1);
  }
}

TEST_F(SimpleMenu, ChoosesAboveWhenItTakesBandAway) {
  editor.cboAl2Ctrl.setListIndex(1);
  editor.cboAl2Setup.setListIndex(3);
  fit();
  EXPECT_EQ(editor.cboAl2Setup.listIndex(), 0);
  EXPECT_EQ(editor.cboAl2Setup.text(), "Above");
}

TEST_F(SimpleMenu, RetransmitsForGoodWithAnAnalogOutputAndNotAtAllWithout) {
  fit(true);
  EXPECT_EQ(editor.chkAnalogOutputEnabled.value(), 1);
  EXPECT_FALSE(editor.chkAnalogOutputEnabled.enabled());
  EXPECT_TRUE(editor.tabBig.tabAvailable(10));
  EXPECT_TRUE(editor.cboAl2Latch.enabled());
  EXPECT_TRUE(editor.optAOutV.enabled());
  fit(false);
  EXPECT_TRUE(editor.chkAnalogOutputEnabled.enabled());
  EXPECT_FALSE(editor.tabBig.tabAvailable(10));
  EXPECT_FALSE(editor.cboAl2Latch.enabled());
}

TEST_F(SimpleMenu, CommitsTheDeadBandsOfTheAlarmTabs) {
  editor.txtAl1Deadband.setText("1.5");
  editor.txtAl2Deadband.setText("2.5");
  fit();
  EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, "1.5");
  EXPECT_EQ(Memo[rec::txtOut2DeadBand].text, "2.5");
}

}  // namespace

}  // namespace torvane
