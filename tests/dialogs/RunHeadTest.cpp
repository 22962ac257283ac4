// SPDX-License-Identifier: MIT
// The hardware dialog around a run: in front of one without a model, and with the address that one has left.
#include "dialogs/frmHardware.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

using AddressOfARun = RunBench;

TEST_F(AddressOfARun, IsShownInTheDialogThatTheFittingTakes) {
  chooseSetup();
  auto& editor = form<frmBigFolder>();
  editor.optRS485.setValue(true);
  editor.txtRS485Address.setText("0117");
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 117);
  EXPECT_EQ(form<frmHardware>().txtAddress.text(), "0117");
  editor.SilentSetup = True;
  editor.cmdCnfg_Click();
  EXPECT_EQ(Hardware.BusAddress, 117);
  EXPECT_FALSE(isLoaded<frmHardware>());
}

TEST_F(AddressOfARun, IsLeftAloneOnRs232) {
  chooseSetup();
  form<frmBigFolder>().optRS232.setValue(true);
  Hardware.BusAddress = 3;
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 3);
  EXPECT_FALSE(isLoaded<frmHardware>());
}

// The head of the run buttons.
class RunHead : public Bench {
 protected:
  static constexpr const char* warning =
      "Warning: please specify your device\rbefore continuing.\rUse Setup button from main screen...";

  void pressSerialOfWrite() {
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdSerial.userClicked(); });
  }
  void leaveWrite() {
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdCancel.userClicked(); });
  }
};

TEST_F(RunHead, StopsAWriteWithoutAModelAndStaysInTheChooser) {
  auto& editor = start();
  host.expectBox(warning);
  pressSerialOfWrite();
  host.whenShown("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(host.boxes.back().icon, Icon::information);
  EXPECT_TRUE(unit.commands().empty());
  EXPECT_FALSE(isLoaded<frmHardware>());
  EXPECT_EQ(Global.DeviceSpecified, False);
}

TEST_F(RunHead, StopsAReadWithoutAModelAndStaysInTheChooser) {
  auto& editor = start();
  host.expectBox(warning);
  host.whenShown("frmRead", [] { form<frmRead>().cmdSerial.userClicked(); });
  host.whenShown("frmHardware", [] { form<frmHardware>().userClosed(); });
  host.whenShown("frmRead", [] { form<frmRead>().OKButton.userClicked(); });
  editor.cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_TRUE(unit.commands().empty());
}

TEST_F(RunHead, GoesOnOnceAModelIsChosenAndAsksNoMore) {
  auto& editor = start();
  host.expectBox(warning);
  pressSerialOfWrite();
  host.whenShown("frmHardware", [&] {
    editor.tabBig.setTab(1);
    editor.txtSp1.setText("042.0");
    form<frmHardware>().cmdOk.userClicked();
  });
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_EQ(Memo[rec::txtSp1].text, "042.0");
  EXPECT_GT(unit.commands().size(), 30U);
  pressSerialOfWrite();
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(RunHead, LeavesATabThatTheDialogHasTakenOutOfUse) {
  auto& editor = start();
  editor.tabBig.setTab(9);
  host.expectBox(warning);
  pressSerialOfWrite();
  host.whenShown("frmHardware", [] {
    form<frmHardware>().chkAlarmsOnly.userClicked();
    form<frmHardware>().cmdCancel.userClicked();
  });
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_EQ(editor.tabBig.tab(), 5);
}

}  // namespace

}  // namespace torvane
