// SPDX-License-Identifier: MIT
// The pages of the connection wizard: what each shows and says, and the ways between them.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/WizardBench.h"

namespace torvane {

namespace {

constexpr const char* serialWelcomeText =
    "This wizard will help you quickly "
    "set up and verify the serial communication connection "
    "between your computer and your controller."
    "\r\rTo begin setting up your serial "
    "communication connection, click Next."
    "\r\rIf you want to set up the serial communication connection "
    "at a later time, click Cancel.";

constexpr const char* serialBusText =
    "Please specify if your controller is equipped "
    "with RS-232 or RS-485 serial communication option."
    "\r\rNOTE: your computer must support the type "
    "of serial communication that you select.";

constexpr const char* searchQuestionText =
    "If your controller is already connected, "
    "you should have the wizard detect it."
    "\r\rWhen the wizard detects a communication (COM) port with "
    "a controller connected to it, it automatically configures "
    "the software to work with that COM port."
    "\r\rDo you want the Wizard to search for your connected controller?";

constexpr const char* searchWarningText =
    "The wizard will now look for the COM port "
    "that your controller is connected to."
    "\r\rWARNING: This may take a minute, and could cause your machine "
    "to stop responding.  Save and close all your programs before "
    "beginning detection."
    "\r\rWhile detection "
    "is in progress, you will see a progress indicator.  If this "
    "indicator stops for a long time, you will need to restart your "
    "computer."
    "\r\rTo continue, click Next.";

constexpr const char* byHandText =
    "Manual configuration is accomplished "
    "by mean of the Serial COMM tab from the main screen."
    "\r\rTo leave Connection Wizard and proceed, click Cancel.";

constexpr const char* networkWelcomeText =
    "This wizard will help you quickly "
    "set up and verify the TCP/IP communication connection "
    "between your computer, your web server and the Torvane device."
    "\r\rTo begin setting up your "
    "communication connection, click Next."
    "\r\rIf you want to set up the communication connection "
    "at a later time, click Cancel.";

constexpr const char* networkBusText =
    "Please specify if the Web server is configured "
    "with RS-232 or RS-485 serial communication option.";

constexpr const char* testWarningText =
    "The wizard will now make a test connect for TCP IP address bridge.example and port 1234"
    "\r\rWARNING: This may take a minute, and could cause your machine "
    "to stop responding.  Save and close all your programs before "
    "beginning detection."
    "\r\rWhile detection "
    "is in progress, you will see a progress indicator.  If this "
    "indicator stops for a long time, you will need to restart your "
    "computer."
    "\r\rTo continue, click Next.";

class WizardPages : public WizardBench {
 protected:
  // Which of the controls that take turns are on show.
  std::string parts() {
    std::string names;
    for (const Control* part : std::initializer_list<const Control*>{
             &wizard().Frame1, &wizard().Frame2, &wizard().lblDetection, &wizard().prgProgress}) {
      if (part->visible()) names += part->name() + " ";
    }
    return names;
  }
  void turnTo(std::int16_t number) {
    wizard().wizardPage = number;
    wizard().displayMenu();
  }
};

struct PageCase {
  std::int16_t page;
  const char* text;
  const char* parts;
  bool nextEnabled;
};

TEST_F(WizardPages, SayAndShowWhatBelongsToThem) {
  Memo[rec::txtTCPIPAddress].text = "bridge.example";
  Memo[rec::txtTCPPort].text = "1234";
  const PageCase cases[] = {
      {0, serialWelcomeText, "", true},
      {1, serialBusText, "Frame1 ", true},
      {2, searchQuestionText, "Frame2 ", true},
      {3, searchWarningText, "", true},
      {5, byHandText, "", false},
      {7, networkWelcomeText, "", true},
      {8, networkBusText, "Frame1 ", true},
      {9, testWarningText, "", true},
  };
  open();
  EXPECT_EQ(wizard().caption(), "Connection Wizard");
  for (const auto& [number, text, shown, nextEnabled] : cases) {
    turnTo(number);
    EXPECT_EQ(says(), text) << number;
    EXPECT_EQ(parts(), shown) << number;
    EXPECT_EQ(wizard().cmdNext.enabled(), nextEnabled) << number;
  }
}

TEST_F(WizardPages, OfferTheWayBackWhereThereIsOne) {
  open();
  EXPECT_FALSE(wizard().cmdBack.enabled());
  for (const std::int16_t number : Numbers{1, 5, 8}) {
    wizard().cmdBack.setEnabled(false);
    turnTo(number);
    EXPECT_TRUE(wizard().cmdBack.enabled()) << number;
  }
  for (const std::int16_t number : Numbers{0, 7}) {
    turnTo(number);
    EXPECT_FALSE(wizard().cmdBack.enabled()) << number;
  }
  for (const std::int16_t number : Numbers{2, 3, 9}) {
    for (const bool before : {true, false}) {
      wizard().cmdBack.setEnabled(before);
      turnTo(number);
      EXPECT_EQ(wizard().cmdBack.enabled(), before) << number;
    }
  }
}

TEST_F(WizardPages, BeforeARunNextSaysSoAgain) {
  open();
  for (const std::int16_t number : Numbers{0, 1, 2, 5, 7, 8}) {
    wizard().cmdNext.setCaption("Finish");
    turnTo(number);
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish") << number;
  }
  for (const std::int16_t number : Numbers{3, 9}) {
    wizard().cmdNext.setCaption("Finish");
    turnTo(number);
    EXPECT_EQ(wizard().cmdNext.caption(), "Next >") << number;
  }
}

TEST_F(WizardPages, BeginWithTheModeThatIsChosen) {
  EXPECT_EQ(open().wizardPage, 0);
  EXPECT_EQ(says(), serialWelcomeText);
  torvane::unload<frmWizard>();
  EXPECT_EQ(open(false).wizardPage, 7);
  EXPECT_EQ(says(), networkWelcomeText);
}

TEST_F(WizardPages, HaveNoneOutsideTheirRange) {
  open();
  for (const std::int16_t number : Numbers{11, -1, 32767}) {
    host.expectBox("Wizard advances beyond bound error");
    turnTo(1);
    turnTo(number);
    EXPECT_EQ(parts(), "");
  }
  EXPECT_EQ(host.boxes.size(), 3U);
}

TEST_F(WizardPages, GoForwardAndBackOnTheSerialSide) {
  open();
  for (const std::int16_t number : Numbers{1, 2, 3}) {
    next();
    EXPECT_EQ(wizard().wizardPage, number);
  }
  for (const std::int16_t number : Numbers{2, 1, 0}) {
    wizard().cmdBack.userClicked();
    EXPECT_EQ(wizard().wizardPage, number);
  }
  wizard().cmdBack.userClicked();
  EXPECT_EQ(wizard().wizardPage, 0);
}

TEST_F(WizardPages, GoForwardAndBackOnTheNetworkSide) {
  open(false);
  for (const std::int16_t number : Numbers{8, 9}) {
    next();
    EXPECT_EQ(wizard().wizardPage, number);
  }
  for (const std::int16_t number : Numbers{8, 7}) {
    wizard().cmdBack.userClicked();
    EXPECT_EQ(wizard().wizardPage, number);
  }
}

TEST_F(WizardPages, LeadByHandWhereNoSearchIsWantedAndBackToTheQuestion) {
  open();
  next(2);
  EXPECT_TRUE(wizard().optYes.value());
  wizard().optNo.userClicked();
  next();
  EXPECT_EQ(wizard().wizardPage, 5);
  EXPECT_FALSE(wizard().cmdNext.enabled());
  wizard().cmdBack.userClicked();
  EXPECT_EQ(wizard().wizardPage, 2);
  EXPECT_TRUE(wizard().cmdNext.enabled());
  wizard().optYes.userClicked();
  next();
  EXPECT_EQ(wizard().wizardPage, 3);
}

TEST_F(WizardPages, OfTheTabByHandLeadsThere) {
  open();
  editor.tabBig.setTab(1);
  turnTo(6);
  EXPECT_EQ(editor.tabBig.tab(), 11);
  EXPECT_EQ(wizard().WizardManual, True);
  EXPECT_EQ(Global.StartOnCommTab, True);
  EXPECT_FALSE(wizard().visible());
}

TEST_F(WizardPages, AreShownAfreshWithTheFirstOneAlone) {
  open();
  EXPECT_EQ(wizard().wizardActive, True);
  wizard().hide();
  wizard().lblCaption.setCaption("left by a run");
  wizard().show();
  EXPECT_EQ(says(), serialWelcomeText);
  turnTo(3);
  wizard().hide();
  wizard().lblCaption.setCaption("left by a run");
  wizard().show();
  EXPECT_EQ(says(), "left by a run");
}

// Bus and address.

TEST_F(WizardPages, OfferTwoHundredAddresses) {
  open();
  EXPECT_EQ(wizard().cboAddress.listCount(), 200);
  EXPECT_EQ(wizard().cboAddress.list(0), "0000");
  EXPECT_EQ(wizard().cboAddress.list(17), "0017");
  EXPECT_EQ(wizard().cboAddress.list(199), "0199");
}

TEST_F(WizardPages, ShowTheBusOfTheModel) {
  for (const std::int16_t mode : Numbers{0, 1, 2, 3, 4, -1}) {
    torvane::unload<frmWizard>();
    Hardware.BusMode = mode;
    Hardware.BusAddress = 42;
    open();
    const bool addressed = mode != 0 && mode != 2;
    EXPECT_EQ(wizard().opt485.value(), addressed) << mode;
    EXPECT_EQ(wizard().opt232.value(), !addressed) << mode;
    EXPECT_EQ(wizard().cboAddress.enabled(), addressed) << mode;
    EXPECT_EQ(wizard().cboAddress.text(), "0042") << mode;
  }
}

TEST_F(WizardPages, TakeAnAddressThatNoUnitHasForNone) {
  for (const std::int16_t address : Numbers{200, -1, 32767}) {
    torvane::unload<frmWizard>();
    Hardware.BusAddress = address;
    open();
    EXPECT_EQ(wizard().cboAddress.listIndex(), -1) << address;
  }
}

TEST_F(WizardPages, OfferTheAddressWithRs485Alone) {
  open();
  next();
  EXPECT_FALSE(wizard().cboAddress.enabled());
  wizard().opt485.userClicked();
  EXPECT_TRUE(wizard().cboAddress.enabled());
  wizard().opt232.userClicked();
  EXPECT_FALSE(wizard().cboAddress.enabled());
}

TEST_F(WizardPages, TakeBusAndAddressOnTheWay) {
  for (const bool serial : {true, false}) {
    torvane::unload<frmWizard>();
    Hardware.BusMode = 4;
    Hardware.BusAddress = 9;
    open(serial);
    next();
    wizard().opt485.userClicked();
    wizard().cboAddress.userChose(17);
    next();
    EXPECT_EQ(Hardware.BusMode, 1);
    EXPECT_EQ(Hardware.BusAddress, 17);
    wizard().cmdBack.userClicked();
    wizard().opt232.userClicked();
    next();
    EXPECT_EQ(Hardware.BusMode, 0);
    EXPECT_EQ(Hardware.BusAddress, 17);
  }
}

TEST_F(WizardPages, WithoutAnAddressTakeOneOnTheSerialSideAndTheOldOneOnTheOther) {
  Hardware.BusAddress = 300;
  open();
  turnTo(9);
  EXPECT_EQ(Hardware.BusAddress, 300);
  turnTo(2);
  EXPECT_EQ(Hardware.BusAddress, 1);
}

TEST_F(WizardPages, TakeTheAddressFromTheBoxAsWell) {
  Hardware.BusAddress = 300;
  open();
  for (const auto& [text, address] : {std::pair{"0042", 42}, {"12x", 1}, {"99999", 1}, {"", 1}}) {
    wizard().cboAddress.setText(text);
    turnTo(2);
    EXPECT_EQ(Hardware.BusAddress, address) << text;
  }
  wizard().cboAddress.setText("0042");
  Hardware.BusAddress = 9;
  turnTo(9);
  EXPECT_EQ(Hardware.BusAddress, 9);
}

// Ways out.

TEST_F(WizardPages, EndWithFinishWhateverTheirNumber) {
  for (const std::int16_t number : Numbers{0, 1, 2, 7, 8, 11}) {
    open();
    wizard().wizardPage = number;
    wizard().cmdNext.setCaption("Finish");
    next();
    EXPECT_FALSE(wizard().visible()) << number;
    EXPECT_EQ(wizard().wizardPage, number);
  }
}

TEST_F(WizardPages, EndWithCancelAndTheTabShowsWhatIsStored) {
  for (const bool byFrame : {false, true}) {
    open();
    editor.cboBaud.setListIndex(2);
    byFrame ? wizard().userClosed() : wizard().cmdCancel.userClicked();
    EXPECT_FALSE(wizard().visible());
    EXPECT_TRUE(isLoaded<frmWizard>());
    EXPECT_EQ(editor.cboBaud.listIndex(), 5);
    EXPECT_EQ(Global.CancelFlag, False);
  }
}

}  // namespace

}  // namespace torvane
