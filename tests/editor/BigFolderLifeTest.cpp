// SPDX-License-Identifier: MIT
// The start behind the splash, the first activation, and the end of the program.
#include <cmath>

#include "core/PartNumber.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmSplash.h"
#include "platform/Program.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

const std::string persist = "Torvane Configuration/Persist/";

class Start : public Bench {
 protected:
  Start() { host.settings.clear(); }

  // Runs when the program first waits, behind the splash.
  void duringTheSplash(std::function<void()> look) {
    host.expect([] { return isLoaded<frmSplash>(); }, std::move(look));
  }
};

using Activation = EditorTest;
using Exit = EditorTest;

TEST_F(Start, ShowsTheSplashThenTheMainWindowInThisOrder) {
  start();
  EXPECT_EQ(host.events, (std::vector<std::string>{"centre frmSplash", "show frmSplash", "repaint frmSplash",
                                                   "centre frmBigFolder", "hide frmSplash",
                                                   "release frmSplash", "show frmBigFolder"}));
}

TEST_F(Start, LetsFilesFallOnTheMainWindow) { EXPECT_TRUE(start().takesFiles); }

TEST_F(Start, KeepsTheMainWindowHiddenBehindTheSplash) {
  bool looked = false;
  duringTheSplash([&] {
    looked = true;
    EXPECT_TRUE(form<frmSplash>().visible());
    EXPECT_FALSE(form<frmBigFolder>().visible());
  });
  EXPECT_TRUE(start().visible());
  EXPECT_TRUE(looked);
  EXPECT_FALSE(isLoaded<frmSplash>());
}

TEST_F(Start, IsReadyBeforeTheSplashGoes) {
  std::string adjust;
  duringTheSplash([&] { adjust = form<frmBigFolder>().txtTAdjust.text(); });
  start();
  EXPECT_EQ(adjust, "000.0");
}

TEST_F(Start, KeepsTheSplashSixSecondsFromTheNearestSecond) {
  for (double fraction : {0.0, 0.001, 0.25, 0.4999, 0.5, 0.5001, 0.75, 0.9999}) {
    unloadAllForms();
    Global.reset();
    host.clock = 50000 + fraction;
    start();
    const double mark = std::round(50000 + fraction - 1e-9);
    EXPECT_GE(host.clock, mark + 6.0) << fraction;
    EXPECT_LT(host.clock, mark + 6.0 + 0.01) << fraction;
  }
}

TEST_F(Start, KeepsTheSplashUpToItsTimeWhereAWaitEndsEarly) {
  host.clock = 50000;
  duringTheSplash([&] { host.clock -= 0.5; });
  start();
  EXPECT_GE(host.clock, 50006);
}

TEST_F(Start, WaitsAsleepAndNotInHaste) {
  int waits = 0;
  for (int i = 0; i < 50; ++i) host.expect([] { return isLoaded<frmSplash>(); }, [&] { ++waits; });
  start();
  EXPECT_LE(waits, 3);
}

TEST_F(Start, FillsTheSplash) {
  duringTheSplash([] {
    const auto& splash = form<frmSplash>();
    EXPECT_EQ(splash.lblCompany.caption(), "Ashgrove Electronics");
    EXPECT_EQ(splash.lblProductName.caption(), "Configuration Program");
    EXPECT_EQ(splash.lblCopyright.caption(), program::copyright);
    EXPECT_EQ(splash.lblWarning.caption(), program::upgradeNotice);
    EXPECT_EQ(splash.lblVersion.caption(), "Version " + std::to_string(program::majorVersion) + "." +
                                               std::to_string(program::minorVersion));
  });
  start();
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(Start, TakesTheSplashAwayOnAKeyAndWaitsOn) {
  duringTheSplash([] {
    form<frmSplash>().userPressedKey();
    EXPECT_FALSE(isLoaded<frmSplash>());
  });
  host.yieldTime = 0.5;
  EXPECT_TRUE(start().visible());
  EXPECT_GE(host.clock, 36006.0);
  EXPECT_TRUE(host.scriptDone());
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(Start, TakesTheAnalogTabOutOfUseAndKeepsTheOthers) {
  auto& editor = start();
  for (int tab = 0; tab < 12; ++tab) EXPECT_EQ(editor.tabBig.tabAvailable(tab), tab != 10) << tab;
  for (const char* name : {"optAOutV", "optAOutI", "txtAOutRd1", "txtAOutRd2", "txtAOutOut1", "txtAOutOut2",
                           "txtRS485Address"}) {
    EXPECT_FALSE(named(editor, name).enabled()) << name;
  }
}

TEST_F(Start, BeginsWithTheDefaultModel) {
  BaseModel = "something else";
  start();
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(Hardware.ModelNumber, "Tv(8,16,32)[case]");
  EXPECT_EQ(Hardware.Out1.SSR, True);
  EXPECT_EQ(Hardware.Out2.SSR, True);
  EXPECT_EQ(DeviceState.DeviceClass, -1);
  EXPECT_EQ(Global.DeviceSpecified, False);
  EXPECT_EQ(meterKind(), kind::fullController);
  EXPECT_EQ(PartNumber.count, 46);
  EXPECT_EQ(Global.FirmwareVersions.front(), "1.1");
  EXPECT_EQ(Global.FirmwareVersions.back(), "2.5");
}

TEST_F(Activation, ShowsTheSetpointsFirst) {
  EXPECT_EQ(editor.tabBig.tab(), 1);
  EXPECT_EQ(Global.FirstActivationDone, True);
}

TEST_F(Activation, DoesNothingLater) {
  showTab(5);
  editor.txtSp1.setText("typed");
  editor.hide();
  editor.show();
  EXPECT_EQ(editor.tabBig.tab(), 5);
  EXPECT_EQ(editor.txtSp1.text(), "typed");
}

TEST_F(Start, ShowsTheCommTabFirstWhenAskedTo) {
  Global.StartOnCommTab = True;
  EXPECT_EQ(start().tabBig.tab(), 11);
}

TEST_F(Exit, WritesThirteenPreferencesInOrder) {
  editor.cboCommPort.setListIndex(2);
  editor.cboBaud.setListIndex(6);
  editor.cboParity.setListIndex(2);
  editor.cboData.setListIndex(1);
  editor.cboStop.setListIndex(1);
  editor.optCommunicationMode(1).setValue(true);
  editor.txtTCPIPAddress.setText("10.1.2.3");
  editor.txtTCPPort.setText("2000");
  Global.ResetAfterWrite = True;
  Global.WarningsOff = True;
  Hardware.BusAddress = 17;
  Hardware.BusMode = 3;
  editor.cmdQuit.userClicked();
  const std::pair<const char*, const char*> expected[] = {
      {"CommPort", "2"},
      {"Baud", "6"},
      {"Parity", "2"},
      {"Data", "1"},
      {"Stop", "1"},
      {"SerialMode", "False"},
      {"IPAddress", "10.1.2.3"},
      {"TCPPort", "2000"},
      {"Reset", "True"},
      {"ShowOnStartUp", "False"},
      {"address", "17"},
      {"rs232", "False"},
      {"Warn", "True"},
  };
  ASSERT_EQ(host.savedOrder.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(host.savedOrder[i], persist + expected[i].first);
    EXPECT_EQ(host.settings[persist + expected[i].first], expected[i].second) << expected[i].first;
  }
}

TEST_F(Exit, WritesTheDefaultsOfAFirstRun) {
  editor.userClosed();
  const std::map<std::string, std::string> expected = {
      {persist + "CommPort", "-1"},
      {persist + "Baud", "4"},
      {persist + "Parity", "1"},
      {persist + "Data", "0"},
      {persist + "Stop", "0"},
      {persist + "SerialMode", "True"},
      {persist + "IPAddress", "192.0.2.254"},
      {persist + "TCPPort", "1000"},
      {persist + "Reset", "False"},
      {persist + "ShowOnStartUp", "False"},
      {persist + "address", "1"},
      {persist + "rs232", "True"},
      {persist + "Warn", "False"},
  };
  EXPECT_EQ(host.settings, expected);
}

TEST_F(Exit, TakesRs232ForBusModeNoughtAlone) {
  Hardware.BusMode = 2;
  editor.userClosed();
  EXPECT_EQ(host.settings[persist + "rs232"], "False");
}

TEST_F(Exit, KeepsTheCommunicationModeForTheNextRun) {
  showTab(11);
  editor.optCommunicationMode(1).userClicked();
  editor.cmdQuit.userClicked();
  Global.reset();
  auto& next = start();
  EXPECT_TRUE(next.optCommunicationMode(1).value());
}

TEST_F(Exit, ByTheFrameCommitsTheCommTabAlone) {
  editor.txtSp1.userTyped("77");
  editor.cboBaud.setListIndex(2);
  editor.userClosed();
  EXPECT_FALSE(isLoaded<frmBigFolder>());
  EXPECT_EQ(Memo[rec::txtSp1].text, "000.0");
  EXPECT_EQ(host.settings[persist + "Baud"], "2");
}

TEST_F(Exit, ByQuitCommitsTheTabOnShowAndTheCommTab) {
  editor.txtSp1.userTyped("77");
  editor.txtLBATime.setText("on another tab");
  editor.cboBaud.setListIndex(2);
  editor.cmdQuit.userClicked();
  EXPECT_FALSE(isLoaded<frmBigFolder>());
  EXPECT_EQ(Memo[rec::txtSp1].text, "77");
  EXPECT_EQ(Memo[rec::txtLBATime].text, "00:15");
  EXPECT_EQ(host.settings[persist + "Baud"], "2");
}

TEST_F(Exit, AsksNothing) {
  editor.txtSp1.userTyped("77");
  editor.cmdQuit.userClicked();
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(Exit, EndsTheOtherFormsInOrderAndForgetsAReadThatWasDue) {
  form<frmSplash>();
  form<frmPreferences>();
  form<frmWrite>();
  form<frmRead>();
  form<frmSerial>();
  form<frmHardware>();
  host.events.clear();
  Global.ReadConfirmed = 1;
  editor.userClosed();
  std::vector<std::string> released;
  for (const std::string& event : host.events) {
    if (event.starts_with("release")) released.push_back(event);
  }
  EXPECT_EQ(released, (std::vector<std::string>{"release frmHardware", "release frmSerial", "release frmRead",
                                                "release frmWrite", "release frmPreferences",
                                                "release frmSplash", "release frmBigFolder"}));
  EXPECT_EQ(Global.ReadConfirmed, 0);
  EXPECT_TRUE(loadedForms().empty());
}

}  // namespace

}  // namespace torvane
