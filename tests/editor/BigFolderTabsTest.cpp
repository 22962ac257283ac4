// SPDX-License-Identifier: MIT
// Moving between the tabs, and the row of commands.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using TabChange = EditorTest;
using NextAndBack = EditorTest;
using Discard = EditorTest;
using FactoryDefaults = EditorTest;
using Choosers = EditorTest;

TEST_F(TabChange, CommitsTheTabThatIsLeftAndShowsTheOther) {
  editor.txtSp1.userTyped("5");
  Memo[rec::txtLBATime].text = "00:42";
  editor.tabBig.userClicked(6);
  EXPECT_EQ(editor.tabBig.tab(), 6);
  EXPECT_EQ(Memo[rec::txtSp1].text, "5");
  EXPECT_EQ(editor.txtLBATime.text(), "00:42");
}

TEST_F(TabChange, ByAClickStopsAtATabOutOfUse) {
  editor.tabBig.userClicked(10);
  EXPECT_EQ(editor.tabBig.tab(), 1);
  editor.tabBig.setTab(10);
  EXPECT_EQ(editor.tabBig.tab(), 10);
}

TEST_F(TabChange, FormatsTheReadingsAnewAfterAChangeOfFormat) {
  showTab(3);
  editor.optDpoint(0).userClicked();
  showTab(1);
  EXPECT_EQ(editor.txtSp1.text(), "0000.");
  EXPECT_EQ(Memo[rec::txtSp1].text, "0000.");
  showTab(7);
  EXPECT_EQ(editor.txtOut1DeadBand.text(), "0020.");
  EXPECT_EQ(Memo[rec::txtOut1PB].text, "0020.");
}

TEST_F(TabChange, CommitsTheReadingsOfFourTabsAsTheyComeOnShow) {
  struct Case {
    int tab;
    int record;
    bool committed;
  };
  for (const auto& [tab, record, committed] :
       {Case{1, rec::txtSp1, true}, Case{4, rec::txtAl1LoSp, true}, Case{5, rec::txtAl2HiSp, true},
        Case{6, rec::txtTAdjust, false}, Case{7, rec::txtOut1PB, true}, Case{8, rec::txtOut2PB, false}}) {
    showTab(0);
    Memo[record].text = "3.14";
    showTab(tab);
    EXPECT_EQ(Memo[record].text, committed ? "003.1" : "3.14") << tab;
  }
}

TEST_F(TabChange, ToTheCommTabIsRepeatedWhenThatTabIsSaved) {
  showTab(11);
  editor.txtTCPPort.setText("4711");
  editor.SaveCurrentTab();
  EXPECT_EQ(Memo[rec::txtTCPPort].text, "4711");
  showTab(1);
  editor.txtSp1.setText("5");
  editor.txtTCPPort.setText("4712");
  editor.SaveCurrentTab();
  EXPECT_EQ(Memo[rec::txtSp1].text, "000.0");
  EXPECT_EQ(Memo[rec::txtTCPPort].text, "4711");
}

TEST_F(NextAndBack, GoRoundThroughAllTwelveTabs) {
  showTab(0);
  for (int step = 1; step <= 24; ++step) {
    editor.cmdNext.userClicked();
    EXPECT_EQ(editor.tabBig.tab(), step % 12);
  }
  for (int step = 23; step >= 0; --step) {
    editor.cmdPrev.userClicked();
    EXPECT_EQ(editor.tabBig.tab(), step % 12);
  }
}

TEST_F(NextAndBack, LandOnATabOutOfUse) {
  showTab(9);
  editor.cmdNext.userClicked();
  EXPECT_EQ(editor.tabBig.tab(), 10);
  showTab(11);
  editor.cmdPrev.userClicked();
  EXPECT_EQ(editor.tabBig.tab(), 10);
}

TEST_F(NextAndBack, PassATabThatIsAbsent) {
  showTab(0);
  editor.tabBig.page(1).present = false;
  editor.cmdNext.userClicked();
  EXPECT_EQ(editor.tabBig.tab(), 2);
  editor.cmdPrev.userClicked();
  EXPECT_EQ(editor.tabBig.tab(), 0);
}

TEST_F(NextAndBack, ChangeNothingOnceATabHasBeenShown) {
  for (int tab = 0; tab < 12; ++tab) editor.cmdNext.userClicked();
  const Looks before = looksOf(editor);
  for (int tab = 0; tab < 12; ++tab) editor.cmdNext.userClicked();
  EXPECT_EQ(looksOf(editor), before);
}

TEST_F(Discard, BringsTheTabOnShowBackAlone) {
  editor.txtLBATime.setText("elsewhere");
  editor.txtSp1.userTyped("9");
  editor.chkSPDeviation.userClicked();
  editor.cboNormalColor.userChose(2);
  editor.cmdReset.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_EQ(editor.chkSPDeviation.value(), 0);
  EXPECT_EQ(editor.cboNormalColor.listIndex(), 1);
  EXPECT_EQ(editor.txtLBATime.text(), "elsewhere");
}

TEST_F(Discard, DoesNotUndoWhatATabChangeHasCommitted) {
  editor.txtSp1.userTyped("9");
  showTab(2);
  showTab(1);
  editor.cmdReset.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "009.0");
}

TEST_F(Discard, LeavesTheImageAlone) {
  editor.txtSp1.userTyped("9");
  editor.cmdReset.userClicked();
  EXPECT_EQ(Memo[rec::txtSp1].text, "000.0");
}

TEST_F(FactoryDefaults, StoreAndShowEveryDefaultAgain) {
  for (int tab = 0; tab < 12; ++tab) showTab(tab);
  for (const TextBox* box : {&editor.txtSp1, &editor.txtLBATime}) const_cast<TextBox*>(box)->setText("9");
  editor.optInType(2).setValue(true);
  editor.chkRampEn.setValue(1);
  editor.reCover();
  editor.cmdFactoryDefaults.userClicked();
  EXPECT_EQ(Memo[rec::txtSp1].text, "0000");
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_EQ(editor.txtLBATime.text(), "00:15");
  EXPECT_TRUE(editor.optInType(0).value());
  EXPECT_EQ(editor.chkRampEn.value(), 0);
}

// Whatever unit was on show: the boxes commit what they do after the first start.
TEST_F(FactoryDefaults, LeaveNothingOfTheUnitBeforeThem) {
  const auto committed = [this] {
    editor.cmdFactoryDefaults.userClicked();
    editor.reCover();
    std::vector<MemoField> records;
    for (int record = 0; record <= rec::optNoChange; ++record) records.push_back(Memo[record]);
    return records;
  };
  const std::vector<MemoField> first = committed();
  for (int unit = 0; unit < 10; ++unit) {
    chooseUnit(unit / 2, unit % 2 == 1);
    fitForm();
    const std::vector<MemoField> now = committed();
    for (std::size_t record = 0; record < first.size(); ++record) {
      EXPECT_TRUE(now[record] == first[record]) << "record " << record << " after unit " << unit;
    }
    EXPECT_EQ(editor.cboOut1Ctrl.text(), "On/Off") << unit;
  }
}

TEST_F(FactoryDefaults, ForgetTheModelButNotItsNumber) {
  Global.DeviceSpecified = True;
  Hardware.ModelNumber = "other";
  Hardware.Out1 = {False, False, False, True, False};
  Hardware.Out2 = {False, False, False, False, True};
  DeviceState.IsRkw77 = True;
  DeviceState.MenuKind = 2;
  editor.lblStatus.setCaption("RS-485");
  editor.cmdFactoryDefaults.userClicked();
  EXPECT_EQ(Global.DeviceSpecified, False);
  EXPECT_EQ(Hardware.ModelNumber, "Tv(8,16,32)[case]");
  EXPECT_EQ(Hardware.Out1.SSR, True);
  EXPECT_EQ(Hardware.Out1.Analog, False);
  EXPECT_EQ(Hardware.Out2.SSR, True);
  EXPECT_EQ(Hardware.Out2.None, False);
  EXPECT_EQ(DeviceState.IsRkw77, False);
  EXPECT_EQ(DeviceState.MenuKind, 0);
  EXPECT_EQ(DeviceState.DeviceClass, -1);
  EXPECT_EQ(editor.lblStatus.caption(), "RS-232");
}

TEST_F(FactoryDefaults, ForceTheLineToItsUsualSettingsOnTheControlsAlone) {
  host.settings["Torvane Configuration/Persist/Parity"] = "2";
  host.settings["Torvane Configuration/Persist/Data"] = "1";
  host.settings["Torvane Configuration/Persist/Stop"] = "1";
  editor.cmdFactoryDefaults.userClicked();
  EXPECT_EQ(editor.cboBaud.text(), "9600");
  EXPECT_EQ(editor.cboParity.text(), "odd");
  EXPECT_EQ(editor.cboData.text(), "7-bit");
  EXPECT_EQ(editor.cboStop.text(), "1-bit");
  EXPECT_EQ(editor.MSComm1->settings, "9600,o,7,1");
  EXPECT_EQ(Memo[rec::cboBaud].value, 4);
  EXPECT_EQ(Memo[rec::cboParity].value, 2);
  EXPECT_EQ(Memo[rec::cboData].value, 1);
  EXPECT_EQ(Memo[rec::cboStop].value, 1);
  editor.writeMemo(11);
  EXPECT_EQ(Memo[rec::cboBaud].value, 5);
}

TEST_F(FactoryDefaults, AskNothingAndKeepTheTabsThatWereInUse) {
  editor.tabBig.setTabAvailable(10, true);
  editor.tabBig.setTabAvailable(9, false);
  showTab(4);
  editor.cmdFactoryDefaults.userClicked();
  EXPECT_TRUE(editor.tabBig.tabAvailable(10));
  EXPECT_FALSE(editor.tabBig.tabAvailable(9));
  EXPECT_EQ(editor.tabBig.tab(), 4);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FactoryDefaults, PutTheWindowIntoTheMiddleOfTheScreen) {
  host.events.clear();
  editor.cmdFactoryDefaults.userClicked();
  EXPECT_EQ(host.events, (std::vector<std::string>{"centre frmBigFolder", "centre frmHardware"}));
}

TEST_F(Choosers, OfferTheChannelOfTheImage) {
  for (bool serial : {true, false}) {
    showTab(11);
    editor.optCommunicationMode(serial ? 0 : 1).setValue(true);
    host.whenShown("frmWrite", [&] {
      EXPECT_EQ(form<frmWrite>().cmdSerial.enabled(), serial);
      EXPECT_EQ(form<frmWrite>().cmdNetwork.enabled(), !serial);
      form<frmWrite>().userClosed();
    });
    editor.cmdWrite.userClicked();
    EXPECT_FALSE(isLoaded<frmWrite>());
    host.whenShown("frmRead", [&] {
      EXPECT_EQ(form<frmRead>().cmdSerial.enabled(), serial);
      EXPECT_EQ(form<frmRead>().cmdNetwork.enabled(), !serial);
      form<frmRead>().userClosed();
    });
    editor.cmdOpen.userClicked();
    EXPECT_FALSE(isLoaded<frmRead>());
  }
}

TEST_F(Choosers, FindTheTabOnShowCommittedAndTheCommTabAsTheImageHasIt) {
  editor.txtSp1.userTyped("9");
  editor.cboBaud.setListIndex(0);
  host.whenShown("frmWrite", [&] {
    EXPECT_EQ(Memo[rec::txtSp1].text, "9");
    EXPECT_EQ(editor.cboBaud.listIndex(), 4);
    form<frmWrite>().userClosed();
  });
  editor.cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(Choosers, SwitchTheWarningsOffWhileASetupComesIn) {
  for (std::int16_t before : {False, True}) {
    Global.WarningsOff = before;
    form<frmSerial>();
    host.whenShown("frmRead", [] {
      EXPECT_EQ(Global.WarningsOff, True);
      form<frmRead>().userClosed();
    });
    editor.cmdOpen.userClicked();
    EXPECT_EQ(Global.WarningsOff, before);
    EXPECT_FALSE(isLoaded<frmSerial>());
  }
}

}  // namespace

}  // namespace torvane
