// SPDX-License-Identifier: MIT
// The wizard from the main window's button to its end: its runs, Cancel, and what it leaves behind.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "tests/support/WizardBench.h"

namespace torvane {

namespace {

class WizardRuns : public WizardBench {
 protected:
  using WizardBench::WizardBench;

  // The user presses Connect, does this in the wizard, and Connect returns.
  void connect(std::function<void()> inWizard) {
    editor.tabBig.setTab(11);
    host.whenShown("frmWizard", std::move(inWizard));
    editor.cmdAutoDetect.userClicked();
    EXPECT_TRUE(host.scriptDone());
    EXPECT_FALSE(isLoaded<frmWizard>());
  }
  void cancel() { wizard().cmdCancel.userClicked(); }
  void useNetwork() {
    editor.tabBig.setTab(11);
    editor.optCommunicationMode(1).setValue(true);
  }
  // The user presses Cancel, in the window or by its frame, as soon as a command has reached the unit.
  void cancelDuringRun(bool byFrame = false) {
    host.expect([this] { return unit.count("R02") > 0; },
                [this, byFrame] { byFrame ? wizard().userClosed() : cancel(); });
  }
};

TEST_F(WizardRuns, LeadFromNothingToAWorkingLink) {
  editor.cboBaud.setListIndex(6);
  moveUnitTo(3);
  connect([this] {
    next(4);
    EXPECT_EQ(wizard().wizardPage, 4);
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish");
    EXPECT_NE(says().find("COM3."), std::string::npos);
    EXPECT_TRUE(wizard().cmdNext.enabled());
    EXPECT_TRUE(wizard().cmdBack.enabled());
    EXPECT_FALSE(wizard().prgProgress.visible());
    EXPECT_FALSE(wizard().lblDetection.visible());
    next();
  });
  EXPECT_EQ(editor.cboCommPort.listIndex(), 2);
  EXPECT_EQ(Memo[rec::cboCommPort].value, 2);
  EXPECT_EQ(Memo[rec::cboBaud].value, 5);
  EXPECT_EQ(DeviceState.DeviceClass, 1);
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(Global.DeviceSpecified, True);
  EXPECT_FALSE(isLoaded<frmHardware>());
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_TRUE(host.boxes.empty());
  write();
  EXPECT_GT(unitOn(3).count("W"), 0U);
}

TEST_F(WizardRuns, ShowTheRunAndNothingToPressButCancel) {
  connect([this] {
    host.expect([this] { return unit.count("R02") > 0; },
                [this] {
                  EXPECT_TRUE(wizard().prgProgress.visible());
                  EXPECT_TRUE(wizard().lblDetection.visible());
                  EXPECT_FALSE(wizard().cmdNext.enabled());
                  EXPECT_FALSE(wizard().cmdBack.enabled());
                  EXPECT_TRUE(wizard().cmdCancel.enabled());
                  EXPECT_TRUE(isLoaded<frmSerial>());
                  EXPECT_FALSE(form<frmSerial>().visible());
                  EXPECT_EQ(Global.AutoDetect, True);
                });
    host.events.clear();
    next(4);
    EXPECT_EQ(std::ranges::count(host.events, "repaint frmWizard"), 1);
    EXPECT_EQ(Global.AutoDetect, False);
    cancel();
  });
}

TEST_F(WizardRuns, LeadByHandAndBackToTheSearchWhenNothingWasFound) {
  silenceAll();
  connect([this] {
    next(4);
    EXPECT_EQ(wizard().cmdNext.caption(), "Next >");
    EXPECT_TRUE(wizard().cmdBack.enabled());
    next();
    EXPECT_EQ(wizard().wizardPage, 5);
    const std::size_t asked = unitOn(5).count("R02");
    unit.faults.silentAfter = sim::unlimited;
    wizard().cmdBack.userClicked();
    EXPECT_EQ(wizard().wizardPage, 4);
    EXPECT_EQ(unitOn(5).count("R02"), asked);
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish");
    next();
  });
}

TEST_F(WizardRuns, CanBeRepeatedFromTheWarning) {
  connect([this] {
    next(4);
    wizard().cmdBack.userClicked();
    EXPECT_EQ(wizard().wizardPage, 3);
    EXPECT_EQ(wizard().cmdNext.caption(), "Next >");
    next();
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish");
    next();
  });
  EXPECT_EQ(unit.count("R02"), 2U);
}

TEST_F(WizardRuns, EndTheWizardWithAYesToCancel) {
  silenceAll();
  host.expectBox(detectionQuestion, Answer::yes);
  host.expectBox(detectionQuestion, Answer::yes);
  connect([this] {
    cancelDuringRun();
    next(4);
    EXPECT_FALSE(wizard().visible());
  });
  EXPECT_EQ(portsAsked(), (std::vector{1, 2}));
}

TEST_F(WizardRuns, TakeTheFramesCloseForCancel) {
  silenceAll();
  host.expectBox(detectionQuestion, Answer::no);
  connect([this] {
    cancelDuringRun(true);
    next(4);
    EXPECT_TRUE(wizard().visible());
    wizard().userClosed();
    EXPECT_FALSE(wizard().visible());
  });
}

TEST_F(WizardRuns, StayWithANoToCancel) {
  silenceAll();
  host.expectBox(detectionQuestion, Answer::no);
  connect([this] {
    cancelDuringRun();
    next(4);
    EXPECT_TRUE(wizard().visible());
    EXPECT_EQ(unitOn(10).count("R02"), 1U);
    cancel();
  });
}

TEST_F(WizardRuns, LeaveTheStoredPortToAWizardThatIsCancelledAfterThem) {
  moveUnitTo(3);
  connect([this] {
    next(4);
    EXPECT_EQ(editor.cboCommPort.listIndex(), 2);
    cancel();
    EXPECT_EQ(editor.cboCommPort.listIndex(), 0);
  });
  EXPECT_EQ(Memo[rec::cboCommPort].value, 0);
}

TEST_F(WizardRuns, SearchAlthoughAReadHasUsedTheWindowBefore) {
  form<frmSerial>().readMode = True;
  moveUnitTo(2);
  connect([this] {
    next(4);
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish");
    next();
  });
}

// What the unit's revision does.

sim::UnitSetup ofVersion(const std::string& version, const std::string& idFlags = "00") {
  sim::UnitSetup setup;
  setup.version = version;
  setup.idFlags = idFlags;
  return setup;
}

class WizardFindsAnOldUnit : public WizardRuns {
 protected:
  WizardFindsAnOldUnit() : WizardRuns(ofVersion("1.0")) {}
};

TEST_F(WizardFindsAnOldUnit, AndTakesItForASimpleMenu) {
  connect([this] {
    next(4);
    EXPECT_EQ(wizard().wizardResultMode, 2);
    EXPECT_EQ(DeviceState.MenuKind, 2);
    next();
  });
  EXPECT_EQ(Memo[rec::menuKind].extra, 2);
  EXPECT_EQ(DeviceState.MenuKind, 2);
  EXPECT_EQ(meterKind(), kind::simpleMenu);
}

TEST_F(WizardFindsAnOldUnit, OverTheNetworkAndToldByItsResultAlone) {
  useNetwork();
  connect([this] {
    next(3);
    EXPECT_EQ(wizard().wizardResultMode, 2);
    EXPECT_EQ(DeviceState.MenuKind, 0);
    next();
  });
  EXPECT_EQ(Memo[rec::menuKind].extra, 2);
  EXPECT_EQ(DeviceState.MenuKind, 2);
}

class WizardFindsASimpleUnit : public WizardRuns {
 protected:
  WizardFindsASimpleUnit() : WizardRuns(ofVersion("1.4", "S0")) {}
};

TEST_F(WizardFindsASimpleUnit, ByItsFlags) {
  connect([this] { next(5); });
  EXPECT_EQ(meterKind(), kind::simpleMenu);
}

TEST_F(WizardRuns, FindAFullUnitAfterASimpleOne) {
  Memo[rec::menuKind].extra = 2;
  DeviceState.MenuKind = 2;
  form<frmSerial>().revisionClass = 2;
  connect([this] {
    next(4);
    EXPECT_EQ(wizard().wizardResultMode, 0);
    next();
  });
  EXPECT_EQ(meterKind(), kind::fullController);
}

class WizardFindsAnRkw77 : public WizardRuns {
 protected:
  static sim::UnitSetup rkw77() {
    sim::UnitSetup setup;
    setup.model = sim::Model::larkspur;
    return setup;
  }
  WizardFindsAnRkw77() : WizardRuns(rkw77()) {}
};

TEST_F(WizardFindsAnRkw77, AndFitsTheWindowToIt) {
  for (const bool network : {false, true}) {
    DeviceState.IsRkw77 = False;
    if (network) useNetwork();
    connect([this] { next(5); });
    EXPECT_EQ(meterKind(), kind::rkw77);
    EXPECT_EQ(BaseModel, "Rkw77[case]");
    EXPECT_EQ(DeviceState.DeviceClass, 0);
    EXPECT_FALSE(editor.fraIDCode.visible());
  }
}

// Over the network.

TEST_F(WizardRuns, TestTheNetworkWithoutTouchingTheSerialPorts) {
  useNetwork();
  connect([this] {
    EXPECT_EQ(wizard().wizardPage, 7);
    next(3);
    EXPECT_EQ(wizard().wizardPage, 10);
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish");
    EXPECT_TRUE(wizard().cmdBack.enabled());
    next();
  });
  EXPECT_EQ(host.portOpenings, 0);
  EXPECT_EQ(bridge.connections(), 1U);
  EXPECT_EQ(DeviceState.DeviceClass, 1);
  EXPECT_FALSE(isLoaded<frmSerial>());
}

TEST_F(WizardRuns, OverTheNetworkForgetAnEarlierUnitBeforeTheyLook) {
  useNetwork();
  bridge.faults.reach = sim::Reach::never;
  std::int32_t meanwhile = 4;
  connect([&] {
    next(2);
    DeviceState.DeviceClass = 4;
    DeviceState.IsGr2 = 1;
    host.expect([this] { return wizard().prgProgress.value() > 0; },
                [&] { meanwhile = DeviceState.DeviceClass; });
    next();
    EXPECT_EQ(DeviceState.IsGr2, 1) << "nothing was found, and nothing changes";
    cancel();
  });
  EXPECT_EQ(meanwhile, -1);
}

TEST_F(WizardRuns, GoOnBeyondTheirPagesWhereTheUnitComplainedTwice) {
  useNetwork();
  bridge.faults.refusals = {{"?46", "", sim::unlimited}};
  host.expectBox("Wizard advances beyond bound error");
  connect([this] {
    next(3);
    EXPECT_EQ(wizard().cmdNext.caption(), "Next >");
    next();
    EXPECT_EQ(wizard().wizardPage, 11);
    cancel();
  });
}

TEST_F(WizardRuns, OverAnEchoingLineLeaveCancelAlone) {
  useNetwork();
  bridge.faults.echoes = sim::unlimited;
  connect([this] {
    next(3);
    EXPECT_EQ(wizard().wizardStopped, True);
    EXPECT_FALSE(wizard().cmdNext.enabled());
    EXPECT_FALSE(wizard().cmdBack.enabled());
    EXPECT_FALSE(wizard().prgProgress.visible());
    EXPECT_TRUE(wizard().visible());
    cancel();
  });
}

TEST_F(WizardRuns, OverTheNetworkEndWithCancelWhenTheyAreThrough) {
  useNetwork();
  connect([this] {
    host.expect([this] { return unit.count("U01") > 0; }, [this] { cancel(); });
    next(3);
    EXPECT_FALSE(wizard().visible());
  });
  EXPECT_EQ(Global.CancelFlag, True);
}

// The button of the main window.

TEST_F(WizardRuns, NeedAPortForTheBridge) {
  useNetwork();
  editor.txtTCPPort.setText("");
  host.expectBox("Please provide a TCP/IP Port number");
  editor.cmdAutoDetect.userClicked();
  EXPECT_EQ(host.boxes.front().text, "Please provide a TCP/IP Port number");
  EXPECT_FALSE(isLoaded<frmWizard>());
  EXPECT_EQ(Memo[rec::txtTCPPort].text, "");
}

TEST_F(WizardRuns, OverSerialPortsNeedNone) {
  editor.txtTCPPort.setText("");
  connect([this] { cancel(); });
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(WizardRuns, BeginWithWhatTheTabShows) {
  useNetwork();
  editor.txtTCPIPAddress.setText("bridge.example");
  connect([this] {
    next(2);
    EXPECT_NE(says().find("TCP IP address bridge.example and port 1000\r"), std::string::npos);
    cancel();
  });
}

TEST_F(WizardRuns, BeginAnewWhereARunHasFilledTheWizardBefore) {
  write();
  ASSERT_TRUE(isLoaded<frmWizard>());
  ASSERT_EQ(wizard().wizardPage, 0);
  useNetwork();
  Hardware.BusAddress = 33;
  connect([this] {
    EXPECT_EQ(wizard().wizardPage, 7);
    EXPECT_EQ(wizard().cboAddress.text(), "0033");
    EXPECT_EQ(wizard().prgProgress.value(), 0);
    cancel();
  });
}

TEST_F(WizardRuns, LeaveAWizardThatEndsWithTheProgram) {
  write();
  ASSERT_TRUE(isLoaded<frmWizard>());
  editor.cmdQuit.userClicked();
  EXPECT_FALSE(isLoaded<frmWizard>());
}

}  // namespace

}  // namespace torvane
