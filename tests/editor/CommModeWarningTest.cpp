// SPDX-License-Identifier: MIT
// The warning beside the main window when the unit's serial bus is to change.
#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmHardware.h"

#include <numeric>

#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

// Piece by piece, with nothing between them.
const std::string parts[] = {
    "WARNING:  Once  communication has been established with the unit using the Connection Wizard ",
    "button or the combination of Manual Setup and Hardware dialog box, the ",
    " communication standard of the unit (RS-232 or RS-485) can be changed using the Communication ",
    "Setup controls.  This change of the serial configuration will be sent to the unit during the Write to ",
    "Serial Port operation and the change will take effect after hardware reset of the unit.",
    " When no changes to the serial configuration of the unit are required, please select the Leave the Comm "
    "Protocol As Found, Do Not Change option. If the unit's  ",
    "communication standard ",
    "was RS-232 and it was switched to RS-485; a protocol converter box is needed to communicate with the "
    "unit.",
    "  If the switch was from RS-485 to RS-232, the protocol converter box needs to be removed.",
    "  When using the RS-485 communication standard, changing the address on this section will change the "
    "device address after Write to serial port and device hardware reset.",
    std::string(154, ' ') +
        "In order to find the present communication standard of the unit using the front "
        "panel buttons, press ",
    "the Menu button (leftmost button) until you see CNFG, press the Enter button once (rightmost button),  ",
    "press the Menu button until you see COMM, press Enter button once, press the Menu button until you see "
    "bUS.F,  ",
    "press the Enter button once",
    ", press the Menu button until you see StNd, press Enter button once, ",
    "press the Up button (second from the left) to switch between RS-232 or RS-485 and finally press Enter ",
    " to save changes.",
};

std::string wholeText() { return std::accumulate(std::begin(parts), std::end(parts), std::string()); }

class CommModeWarning : public EditorTest {
 protected:
  // Whether it has come since this was last asked; closes it.
  static bool came() {
    if (!isLoaded<frmCommModeWarning>()) return false;
    form<frmCommModeWarning>().cmdCommWarning.userClicked();
    return true;
  }
};

TEST_F(CommModeWarning, SaysItsText) {
  auto& warning = form<frmCommModeWarning>();
  EXPECT_EQ(warning.caption(), "Communication mode change warning");
  EXPECT_EQ(warning.txtWarning.text(), wholeText());
  EXPECT_EQ(warning.cmdCommWarning.caption(), "Close");
}

TEST_F(CommModeWarning, CannotBeChangedForLong) {
  auto& warning = form<frmCommModeWarning>();
  warning.show();
  warning.txtWarning.userTyped("other words");
  EXPECT_EQ(warning.txtWarning.text(), wholeText());
}

TEST_F(CommModeWarning, IsGoneWhenItIsClosed) {
  form<frmCommModeWarning>().show();
  EXPECT_TRUE(came());
  EXPECT_FALSE(isLoaded<frmCommModeWarning>());
  form<frmCommModeWarning>().show();
  form<frmCommModeWarning>().userClosed();
  EXPECT_FALSE(isLoaded<frmCommModeWarning>());
}

TEST_F(CommModeWarning, CanBeClosedWhileADialogIsInFrontOfTheMainWindow) {
  form<frmCommModeWarning>().show();
  host.whenShown("frmHardware", [] {
    EXPECT_TRUE(came());
    EXPECT_FALSE(isLoaded<frmCommModeWarning>());
    form<frmHardware>().cmdCancel.userClicked();
  });
  editor.cmdCnfg.userClicked();
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(CommModeWarning, DoesNotComeAtTheStart) {
  EXPECT_FALSE(came());
  for (int tab = 0; tab < 12; ++tab) showTab(tab);
  EXPECT_FALSE(came());
}

TEST_F(CommModeWarning, ComesWithEachChangeOfTheMode) {
  showTab(11);
  host.events.clear();
  editor.optRS485.userClicked();
  EXPECT_EQ(host.events, std::vector<std::string>{"show frmCommModeWarning"});
  EXPECT_TRUE(came());
  editor.optRS232.userClicked();
  EXPECT_TRUE(came());
  editor.optNoChange.userClicked();
  EXPECT_FALSE(came());
}

TEST_F(CommModeWarning, ComesWithEachChangeOfTheAddress) {
  showTab(11);
  editor.optRS485.userClicked();
  came();
  Global.WarningsOff = True;
  editor.txtRS485Address.userTyped("12");
  EXPECT_TRUE(came());
  editor.txtRS485Address.userTyped("12");
  EXPECT_FALSE(came());
  editor.txtRS485Address.userLeft();
  EXPECT_EQ(editor.txtRS485Address.text(), "0012");
  EXPECT_TRUE(came());
}

TEST_F(CommModeWarning, StandsBesideTheWindowAndComesOnceWhileItStands) {
  showTab(11);
  host.events.clear();
  editor.optRS485.userClicked();
  editor.optRS232.userClicked();
  EXPECT_EQ(host.events.size(), 1u);
  EXPECT_TRUE(editor.cmdNext.reachable());
  EXPECT_TRUE(form<frmCommModeWarning>().reachable());
}

TEST_F(CommModeWarning, ComesWhenAnImageIsShown) {
  Memo[rec::optNoChange].flag = False;
  Memo[rec::optRS485].flag = True;
  editor.loadMemo(11);
  EXPECT_TRUE(came());
  Memo[rec::txtRS485Address].text = "0009";
  editor.loadMemo(11);
  EXPECT_TRUE(came());
  editor.loadMemo(11);
  EXPECT_FALSE(came());
}

TEST_F(CommModeWarning, CanBeUsedWhileADialogIsInFront) {
  host.whenShown("frmRead", [&] {
    Memo[rec::txtRS485Address].text = "0009";
    editor.loadMemo(11);
    EXPECT_TRUE(form<frmCommModeWarning>().visible());
    EXPECT_TRUE(form<frmCommModeWarning>().reachable());
    form<frmRead>().userClosed();
  });
  editor.cmdOpen.userClicked();
  EXPECT_TRUE(form<frmCommModeWarning>().reachable());
}

TEST_F(CommModeWarning, ClosesByEscapeInTheMainWindow) {
  form<frmCommModeWarning>().show();
  editor.userTookShortcut("Esc");
  EXPECT_FALSE(isLoaded<frmCommModeWarning>());
}

TEST_F(CommModeWarning, EndsWithTheProgram) {
  form<frmWrite>();
  form<frmCommModeWarning>().show();
  host.events.clear();
  editor.cmdQuit.userClicked();
  EXPECT_FALSE(isLoaded<frmCommModeWarning>());
  EXPECT_EQ(host.events,
            (std::vector<std::string>{"hide frmBigFolder", "release frmWrite", "hide frmCommModeWarning",
                                      "release frmCommModeWarning", "release frmBigFolder"}));
}

}  // namespace

}  // namespace torvane
