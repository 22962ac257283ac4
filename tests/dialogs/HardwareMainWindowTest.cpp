// SPDX-License-Identifier: MIT
// What choices in the hardware dialog do to the main window.
#include "tests/dialogs/HardwareBench.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;
using MainWindow = HardwareBench;

void press(std::size_t output) { form<frmHardware>().optOut[output].userClicked(); }

// Another output is chosen first, so that the one under test is a real choice.
const std::vector<Rule> outputRules = {
    {"SSR",
     [](auto&) { press(1); },
     [](auto&) { press(0); },
     "HSOut1CycleT lblOut1CycleTDisplay",
     "opt020mA opt420mA",
     "",
     "",
     {4},
     {10}},
    {"relay",
     [](auto&) { press(0); },
     [](auto&) { press(1); },
     "HSOut1CycleT lblOut1CycleTDisplay",
     "opt020mA opt420mA",
     "",
     "",
     {4},
     {10}},
    {"pulse",
     [](auto&) { press(0); },
     [](auto&) { press(2); },
     "HSOut1CycleT lblOut1CycleTDisplay",
     "opt020mA opt420mA",
     "",
     "",
     {4},
     {10}},
    {"analog",
     [](auto& editor) {
       press(0);
       editor.cboOut1Ctrl.setListIndex(1);
     },
     [](auto&) { press(3); },
     "opt020mA opt420mA",
     "HSOut1CycleT lblOut1CycleTDisplay",
     "",
     "",
     {10},
     {4}},
};

TEST_F(MainWindow, FollowsTheFirstOutput) {
  dialog();
  for (const Rule& rule : outputRules) expectRule(editor, rule);
}

TEST_F(MainWindow, WorksAnAnalogOutputInPidWithoutAlarm1) {
  editor.chkAl1Enabled.setValue(1);
  Memo[rec::chkAl1Enabled].value = 1;
  Memo[rec::opt420mA].flag = True;
  dialog();
  host.events.clear();
  dialog().optOut[3].userClicked();
  EXPECT_EQ(editor.cboOut1Ctrl.listIndex(), 1);
  EXPECT_EQ(Memo[rec::cboOut1Ctrl].value, 1);
  EXPECT_EQ(Memo[rec::opt420mA].flag, False);
  EXPECT_EQ(Memo[rec::chkAl1Enabled].value, 0);
  EXPECT_EQ(editor.chkAl1Enabled.value(), 0);
  EXPECT_EQ(host.events, Lines{"repaint frmBigFolder"});
}

TEST_F(MainWindow, TakesAnOutput1ThatNoButtonStandsForAsAnalog) {
  press(0);
  dialog().optOut[0].setValue(false);
  press(5);
  press(4);
  EXPECT_EQ(output1(), -1);
  EXPECT_TRUE(editor.opt020mA.enabled());
  EXPECT_TRUE(editor.tabBig.tabAvailable(tab::analog));
}

TEST_F(MainWindow, KeepsAlarm1WithAnAnalogOutputOfTheRkw77Line) {
  editor.chkAl1Enabled.setValue(1);
  Memo[rec::chkAl1Enabled].value = 1;
  choose("Rkw77[case]");
  dialog().optOut[3].userClicked();
  EXPECT_EQ(Memo[rec::chkAl1Enabled].value, 1);
  EXPECT_EQ(editor.chkAl1Enabled.value(), 1);
  EXPECT_TRUE(editor.tabBig.tabAvailable(4) && editor.tabBig.tabAvailable(10));
  EXPECT_EQ(editor.cboOut1Ctrl.listIndex(), 1);
}

void untick(auto& editor) {
  auto& hardware = form<frmHardware>();
  for (CheckBox* each : {&hardware.chkMonitor, &hardware.chkAlarmsOnly, &hardware.chkSimpleMenu}) {
    each->setValue(0);
  }
  (void)editor;
}

const std::vector<Rule> variantRules = {
    {"monitor",
     [](auto& e) { untick(e); },
     [](auto&) { form<frmHardware>().chkMonitor.userClicked(); },
     "",
     "",
     "",
     "",
     {4},
     {6, 7, 8, 9, 10}},
    {"no monitor",
     [](auto&) { form<frmHardware>().chkMonitor.setValue(1); },
     [](auto&) { form<frmHardware>().chkMonitor.userClicked(); },
     "HSOut1CycleT lblOut1CycleTDisplay",
     "opt020mA opt420mA",
     "",
     "",
     {4, 6, 7, 8, 9},
     {10}},
    {"alarms only",
     [](auto& e) { untick(e); },
     [](auto&) { form<frmHardware>().chkAlarmsOnly.userClicked(); },
     "HSOut1CycleT lblOut1CycleTDisplay",
     "opt020mA opt420mA",
     "",
     "",
     {4},
     {6, 7, 8, 9, 10}},
    {"simple menu",
     [](auto& e) { untick(e); },
     [](auto&) { form<frmHardware>().chkSimpleMenu.userClicked(); },
     "HSOut1CycleT lblOut1CycleTDisplay",
     "opt020mA opt420mA",
     "",
     "",
     {4},
     {10}},
};

TEST_F(MainWindow, FollowsTheVariant) {
  dialog();
  for (const Rule& rule : variantRules) expectRule(editor, rule);
}

TEST_F(MainWindow, KeepsTheTabsOfARkw77UnitThatOnlyMonitors) {
  choose("Rkw77[case]");
  dialog().chkMonitor.setValue(1);
  for (int tab : {6, 7, 8, 9}) EXPECT_TRUE(editor.tabBig.tabAvailable(tab)) << tab;
  EXPECT_TRUE(dialog().optOut[0].enabled());
  EXPECT_EQ(number(), "Rkw77[case]00-C2");
}

}  // namespace

}  // namespace torvane
