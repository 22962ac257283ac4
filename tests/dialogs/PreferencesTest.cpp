// SPDX-License-Identifier: MIT
// The preferences, and the notice that closes by itself.
#include "dialogs/frmPreferences.h"

#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/frmTimedMessage.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

class Preferences : public Bench {};

TEST_F(Preferences, HaveTheirWords) {
  auto& dialog = form<frmPreferences>();
  EXPECT_EQ(dialog.caption(), "Preferences");
  EXPECT_EQ(dialog.Frame1.caption(), "Messages");
  EXPECT_EQ(dialog.chkWarnEn.caption(), "Enabled Warning During Data Entry");
  EXPECT_EQ(dialog.Frame2.caption(), "Serial Communication");
  EXPECT_EQ(dialog.chkReset.caption(), "Reset Controller After Finish Programming");
  EXPECT_EQ(dialog.cmdOk.toolTip(), "Discard change on current tab");
  EXPECT_EQ(host.events, std::vector<std::string>{"centre frmPreferences"});
}

TEST_F(Preferences, ShowWhatHolds) {
  for (std::int16_t state : {True, False}) {
    Global.WarningsOff = state;
    Global.ResetAfterWrite = state;
    EXPECT_EQ(form<frmPreferences>().chkWarnEn.value(), state == True ? 0 : 1);
    EXPECT_EQ(form<frmPreferences>().chkReset.value(), state == True ? 1 : 0);
    unload<frmPreferences>();
  }
}

TEST_F(Preferences, TakeEffectAtEveryClick) {
  auto& dialog = form<frmPreferences>();
  dialog.show();
  dialog.chkWarnEn.userClicked();
  EXPECT_EQ(Global.WarningsOff, True);
  dialog.chkWarnEn.userClicked();
  EXPECT_EQ(Global.WarningsOff, False);
  dialog.chkReset.userClicked();
  EXPECT_EQ(Global.ResetAfterWrite, True);
  dialog.chkReset.userClicked();
  EXPECT_EQ(Global.ResetAfterWrite, False);
}

TEST_F(Preferences, OpenFromTheMainWindowAndAreStoredWhenTheProgramEnds) {
  auto& editor = start();
  host.whenShown("frmPreferences", [] {
    form<frmPreferences>().chkWarnEn.userClicked();
    form<frmPreferences>().chkReset.userClicked();
    form<frmPreferences>().cmdOk.userClicked();
  });
  editor.cmdPref.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_FALSE(isLoaded<frmPreferences>());
  editor.cmdQuit.userClicked();
  EXPECT_EQ(host.settings.at("Torvane Configuration/Persist/Warn"), "True");
  EXPECT_EQ(host.settings.at("Torvane Configuration/Persist/Reset"), "True");
}

TEST_F(Preferences, CloseByTheirFrame) {
  auto& editor = start();
  host.whenShown("frmPreferences", [] { form<frmPreferences>().userClosed(); });
  editor.cmdPref.userClicked();
  EXPECT_FALSE(isLoaded<frmPreferences>());
}

class Notice : public Bench {
 protected:
  double showFor() {
    const double start = host.clock;
    auto& notice = form<frmTimedMessage>();
    notice.message = "Unable to establish network connection";
    notice.showModal();
    return host.clock - start;
  }
};

TEST_F(Notice, LeftAloneIsGoneAfterTenSeconds) {
  host.yieldTime = 0.01;
  EXPECT_NEAR(showFor(), 10.0, 0.02);
  EXPECT_FALSE(isLoaded<frmTimedMessage>());
}

TEST_F(Notice, ShowsItsMessage) {
  std::string said;
  host.whenShown("frmTimedMessage", [&] { said = form<frmTimedMessage>().Label1.caption(); });
  showFor();
  EXPECT_EQ(said, "Unable to establish network connection");
  EXPECT_EQ(form<frmTimedMessage>().caption(), "Notification");
  EXPECT_EQ(form<frmTimedMessage>().OKButton.caption(), "OK");
}

TEST_F(Notice, GoesWithItsButton) {
  host.whenShown("frmTimedMessage", [] { form<frmTimedMessage>().OKButton.userClicked(); });
  EXPECT_LT(showFor(), 9.0);
  EXPECT_FALSE(isLoaded<frmTimedMessage>());
}

TEST_F(Notice, CountsAnewAtItsNextShowing) {
  showFor();
  host.clock += 100;
  EXPECT_NEAR(showFor(), 10.0, 0.1);
}

}  // namespace

}  // namespace torvane
