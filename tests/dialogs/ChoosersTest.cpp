// SPDX-License-Identifier: MIT
// The choosers in front of a read and a write.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

class ReadAndWriteChoosers : public Bench {
 protected:
  // The model has been chosen.
  ReadAndWriteChoosers() {
    start();
    Global.DeviceSpecified = True;
  }

  frmBigFolder& editor() { return form<frmBigFolder>(); }
  // The user meets the chooser, acts, and the script goes on.
  void atWrite(std::function<void(frmWrite&)> act) {
    host.whenShown("frmWrite", [act] { act(form<frmWrite>()); });
  }
  void atRead(std::function<void(frmRead&)> act) {
    host.whenShown("frmRead", [act] { act(form<frmRead>()); });
  }
  long shown(const std::string& form) const { return std::ranges::count(host.events, "show modal " + form); }
};

// ---- what they say

TEST_F(ReadAndWriteChoosers, OfAReadNameTheirSourcesWithTheTipsOfAWrite) {
  auto& chooser = form<frmRead>();
  EXPECT_EQ(chooser.caption(), "Read from...");
  EXPECT_EQ(chooser.fraWriteTo.caption(), "Source");
  EXPECT_EQ(chooser.cmdFile.caption(), "File");
  EXPECT_EQ(chooser.cmdFile.toolTip(), "Save the current configuration to File");
  EXPECT_EQ(chooser.cmdSerial.toolTip(),
            "Writes the present configuration to device using the computer serial port");
  EXPECT_FALSE(chooser.cmdSerial.picture().empty());
  EXPECT_EQ(chooser.cmdNetwork.caption(), "Network");
  EXPECT_EQ(chooser.cmdNetwork.toolTip(),
            "Writes the present configuration to device using network communication");
  EXPECT_EQ(chooser.Label1.caption(), "Open a configuration file.");
  EXPECT_EQ(chooser.Label2.caption(), "Read configuration from device connected to Serial Port.");
  EXPECT_EQ(chooser.Label4.caption(), "Read configuration from device connected over the TCPIP Network.");
  EXPECT_EQ(chooser.OKButton.caption(), "Cancel");
}

TEST_F(ReadAndWriteChoosers, OfAWriteNameTheirDestinations) {
  auto& chooser = form<frmWrite>();
  EXPECT_EQ(chooser.caption(), "Write to...");
  EXPECT_EQ(chooser.fraWriteTo.caption(), "Destination");
  EXPECT_EQ(chooser.cmdNetwork.caption(), "Network");
  EXPECT_EQ(chooser.cmdNetwork.toolTip(),
            "Writes the present configuration to device using network communication");
  EXPECT_EQ(chooser.cmdSerial.toolTip(),
            "Writes the present configuration to device using the computer serial port");
  EXPECT_EQ(chooser.chkReset.caption(), "Reset controller when finished");
  EXPECT_EQ(chooser.cmdPrint.caption(), "Printer");
  EXPECT_EQ(chooser.cmdPrint.toolTip(), "Transfer the current configuration to printer");
  EXPECT_EQ(chooser.cmdFile.caption(), "File");
  EXPECT_EQ(chooser.cmdFile.toolTip(), "Save the current configuration to File");
  EXPECT_EQ(chooser.Label4.caption(),
            "Choose Network to write the current configuration to controller using the network.");
  EXPECT_EQ(chooser.Label2.caption(),
            "Choose Serial Port to write the current configuration to the controller.");
  EXPECT_EQ(chooser.Label3.caption(),
            "Choose Printer if you wish to obtain a hard-copy output of the current configuration.");
  EXPECT_EQ(chooser.Label1.caption(),
            "Choose File to write the configuration file for retrieval at a later time.");
  EXPECT_EQ(chooser.cmdCancel.caption(), "Close");
}

TEST_F(ReadAndWriteChoosers, StandInTheMiddleOfTheScreen) {
  form<frmRead>();
  form<frmWrite>();
  EXPECT_EQ(std::ranges::count(host.events, "centre frmRead"), 1);
  EXPECT_EQ(std::ranges::count(host.events, "centre frmWrite"), 1);
}

// ---- opening and closing

TEST_F(ReadAndWriteChoosers, OfferTheChannelOfTheCommunicationTabOnly) {
  for (bool serial : {true, false}) {
    editor().optCommunicationMode(serial ? 0 : 1).setValue(true);
    editor().writeMemo(11);
    atWrite([serial](frmWrite& chooser) {
      EXPECT_EQ(chooser.cmdSerial.enabled(), serial);
      EXPECT_EQ(chooser.cmdNetwork.enabled(), !serial);
      chooser.cmdCancel.userClicked();
    });
    editor().cmdWrite.userClicked();
    atRead([serial](frmRead& chooser) {
      EXPECT_EQ(chooser.cmdSerial.enabled(), serial);
      EXPECT_EQ(chooser.cmdNetwork.enabled(), !serial);
      chooser.OKButton.userClicked();
    });
    editor().cmdOpen.userClicked();
  }
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(ReadAndWriteChoosers, CommitTheTabOnShowWhenTheyOpen) {
  editor().txtSp1.setText("055.5");
  atWrite([](frmWrite& chooser) {
    EXPECT_EQ(Memo[rec::txtSp1].text, "055.5");
    chooser.cmdCancel.userClicked();
  });
  editor().cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(ReadAndWriteChoosers, AreUnloadedWhenTheyAreClosedAndNothingWasSaid) {
  atWrite([](frmWrite& chooser) { chooser.cmdCancel.userClicked(); });
  editor().cmdWrite.userClicked();
  EXPECT_FALSE(isLoaded<frmWrite>());
  atRead([](frmRead& chooser) { chooser.OKButton.userClicked(); });
  editor().cmdOpen.userClicked();
  EXPECT_FALSE(isLoaded<frmRead>());
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_TRUE(unit.commands().empty());
}

TEST_F(ReadAndWriteChoosers, CloseByTheirFrame) {
  atWrite([](frmWrite& chooser) { chooser.userClosed(); });
  editor().cmdWrite.userClicked();
  atRead([](frmRead& chooser) { chooser.userClosed(); });
  editor().cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_FALSE(isLoaded<frmWrite>());
  EXPECT_FALSE(isLoaded<frmRead>());
}

TEST_F(ReadAndWriteChoosers, OfAReadKeepWarningsBackOnlyWhileTheyAreOpen) {
  for (std::int16_t warningsOff : {False, True}) {
    Global.WarningsOff = warningsOff;
    atRead([](frmRead& chooser) {
      EXPECT_EQ(Global.WarningsOff, True);
      chooser.OKButton.userClicked();
    });
    editor().cmdOpen.userClicked();
    EXPECT_EQ(Global.WarningsOff, warningsOff);
  }
}

// ---- the reset preference

TEST_F(ReadAndWriteChoosers, ShowTheResetPreference) {
  for (std::int16_t reset : {True, False}) {
    Global.ResetAfterWrite = reset;
    EXPECT_EQ(form<frmWrite>().chkReset.value(), reset == True ? 1 : 0);
    unload<frmWrite>();
  }
}

TEST_F(ReadAndWriteChoosers, ShowTheResetPreferenceAgainWhenTheyComeOnShow) {
  auto& chooser = form<frmWrite>();
  Global.ResetAfterWrite = True;
  chooser.show();
  EXPECT_EQ(chooser.chkReset.value(), 1);
}

TEST_F(ReadAndWriteChoosers, ChangeTheStoredResetPreferenceThoughNothingIsWritten) {
  atWrite([](frmWrite& chooser) {
    chooser.chkReset.userClicked();
    EXPECT_EQ(Global.ResetAfterWrite, True);
    chooser.cmdCancel.userClicked();
  });
  editor().cmdWrite.userClicked();
  EXPECT_TRUE(unit.commands().empty());
  editor().cmdQuit.userClicked();
  EXPECT_EQ(host.settings.at("Torvane Configuration/Persist/Reset"), "True");
}

TEST_F(ReadAndWriteChoosers, ClearTheResetPreferenceWithASecondClick) {
  Global.ResetAfterWrite = True;
  auto& chooser = form<frmWrite>();
  chooser.show();
  chooser.chkReset.userClicked();
  EXPECT_EQ(Global.ResetAfterWrite, False);
}

TEST_F(ReadAndWriteChoosers, ResetTheUnitAfterAWriteIfTheBoxIsTicked) {
  atWrite([](frmWrite& chooser) {
    chooser.chkReset.userClicked();
    chooser.cmdSerial.userClicked();
    chooser.cmdCancel.userClicked();
  });
  editor().cmdWrite.userClicked();
  EXPECT_EQ(unit.commands().back(), "*Z02");
}

// ---- a run

TEST_F(ReadAndWriteChoosers, OfAWriteStayOpenAfterTheRunAndUnloadItsWindow) {
  atWrite([](frmWrite& chooser) {
    chooser.cmdSerial.userClicked();
    EXPECT_TRUE(chooser.visible());
    EXPECT_FALSE(isLoaded<frmSerial>());
    chooser.cmdCancel.userClicked();
  });
  editor().cmdWrite.userClicked();
  EXPECT_EQ(shown("frmSerial"), 1);
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(ReadAndWriteChoosers, OfAReadGoWithTheRunWhoseWindowStaysUntilTheMainWindowIsBack) {
  bool loadedAfterTheRun = false;
  bool chooserAfterTheRun = true;
  atRead([&](frmRead& chooser) {
    chooser.cmdSerial.userClicked();
    loadedAfterTheRun = isLoaded<frmSerial>();
    chooserAfterTheRun = chooser.visible();
  });
  editor().cmdOpen.userClicked();
  EXPECT_TRUE(loadedAfterTheRun);
  EXPECT_FALSE(chooserAfterTheRun);
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_FALSE(isLoaded<frmRead>());
}

struct Flags {
  std::int16_t readMode;
  std::int32_t readConfirmed;
  std::int16_t autoDetect;
};

TEST_F(ReadAndWriteChoosers, SetTheFlagsOfTheRunThatTheyStart) {
  Flags seen{};
  const auto look = [&seen] { seen = {form<frmSerial>().readMode, Global.ReadConfirmed, Global.AutoDetect}; };
  Global.AutoDetect = True;
  Global.ReadConfirmed = 1;
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdSerial.userClicked(); });
  host.whenShown("frmSerial", look);
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdCancel.userClicked(); });
  editor().cmdWrite.userClicked();
  EXPECT_EQ(seen.readMode, False);
  EXPECT_EQ(seen.readConfirmed, 0);
  EXPECT_EQ(seen.autoDetect, False);
  Global.AutoDetect = True;
  host.whenShown("frmRead", [] { form<frmRead>().cmdSerial.userClicked(); });
  host.whenShown("frmSerial", look);
  editor().cmdOpen.userClicked();
  EXPECT_EQ(seen.readMode, True);
  EXPECT_EQ(seen.readConfirmed, 1);
  EXPECT_EQ(seen.autoDetect, False);
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(ReadAndWriteChoosers, ClearTheReadThatWasDueWhenNoUnitAnswers) {
  unit.faults.silentAfter = 0;
  host.expectBox("Communication with controller cannot be established.");
  read();
  EXPECT_EQ(Global.ReadConfirmed, 0);
  EXPECT_FALSE(isLoaded<frmRead>());
}

TEST_F(ReadAndWriteChoosers, FitTheFormToTheUnitThatWasFoundWithoutAsking) {
  editor().SilentSetup = False;
  Memo[rec::monitorOnly].value = 1;
  write();
  EXPECT_FALSE(editor().tabBig.tabAvailable(9));
  EXPECT_EQ(editor().SilentSetup, False) << "it holds for one fitting";
}

// The fitting after a read is the chooser's own, not the run's: it comes even where no unit has answered.
TEST_F(ReadAndWriteChoosers, FitTheFormAfterAReadWithoutAsking) {
  for (const bool answers : {true, false}) {
    unit.faults.silentAfter = answers ? sim::unlimited : 0;
    if (!answers) host.expectBox("Communication with controller cannot be established.");
    editor().tabBig.setTabAvailable(9, false);
    host.events.clear();
    read();
    EXPECT_TRUE(editor().tabBig.tabAvailable(9)) << answers;
    EXPECT_EQ(shown("frmHardware"), 0) << answers;
    EXPECT_EQ(editor().SilentSetup, False) << answers;
  }
}

// What the tab shows by the time that the hardware dialog closes is committed by a write alone.
TEST_F(ReadAndWriteChoosers, CommitTheTabAfterTheHardwareDialogOfAWriteAlone) {
  editor().tabBig.setTab(1);
  host.toleratesBoxes = true;
  host.whenever("frmHardware", [this] {
    editor().txtSp1.setText("077.7");
    form<frmHardware>().cmdCancel.userClicked();
  });
  Global.DeviceSpecified = False;
  atRead([](frmRead& chooser) {
    chooser.cmdSerial.userClicked();
    EXPECT_EQ(Memo[rec::txtSp1].text, "000.0");
    chooser.OKButton.userClicked();
  });
  editor().cmdOpen.userClicked();
  editor().txtSp1.setText("000.0");
  atWrite([](frmWrite& chooser) {
    chooser.cmdSerial.userClicked();
    EXPECT_EQ(Memo[rec::txtSp1].text, "077.7");
    chooser.cmdCancel.userClicked();
  });
  editor().cmdWrite.userClicked();
  EXPECT_EQ(shown("frmHardware"), 2);
  EXPECT_EQ(shown("frmSerial"), 0);
}

TEST_F(ReadAndWriteChoosers, BringAUnitsSetupBackToTheTabs) {
  editor().txtSp1.setText("123.4");
  editor().txtSp2.setText("-055.0");
  write();
  editor().txtSp1.setText("000.0");
  editor().txtSp2.setText("000.0");
  read();
  EXPECT_EQ(editor().txtSp1.text(), "123.4");
  EXPECT_EQ(editor().txtSp2.text(), "-055.0");
}

TEST_F(ReadAndWriteChoosers, UseThePortThatIsChosenWhileTheyAreClosed) {
  sim::Unit other{sim::UnitSetup{}};
  host.lines[2].unit = &other;
  editor().cboCommPort.setListIndex(1);
  editor().writeMemo(11);
  write();
  EXPECT_TRUE(unit.commands().empty());
  EXPECT_FALSE(other.commands().empty());
}

}  // namespace

}  // namespace torvane
