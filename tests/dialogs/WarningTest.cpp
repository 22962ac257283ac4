// SPDX-License-Identifier: MIT
// The warning that an entry has been repaired, and its switch.
#include "dialogs/frmWarning.h"

#include "core/Global.h"
#include "core/Model.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

class Warning : public Bench {
 protected:
  ~Warning() override { Global.reset(); }

  frmWarning& load(std::int16_t warningsOff) {
    Global.WarningText = "Entry changed";
    Global.WarningsOff = warningsOff;
    return form<frmWarning>();
  }
};

TEST_F(Warning, SaysWhatTheValidatorLeft) {
  EXPECT_EQ(load(False).lblWarning.caption(), "Entry changed");
  EXPECT_EQ(form<frmWarning>().caption(), "Warning...");
  EXPECT_EQ(host.events, std::vector<std::string>{"centre frmWarning"});
}

TEST_F(Warning, HasItsWordsAndTips) {
  EXPECT_EQ(load(False).chkWarning.caption(), "Enabled Warning During Data Entry");
  EXPECT_EQ(form<frmWarning>().cmdOk.toolTip(), "Discard change on current tab");
}

TEST_F(Warning, IsTickedWhileWarningsAreOn) {
  EXPECT_EQ(load(False).chkWarning.value(), 1);
  EXPECT_EQ(Global.WarningsOff, False);
}

TEST_F(Warning, IsNotTickedWhileWarningsAreOff) {
  EXPECT_EQ(load(True).chkWarning.value(), 0);
  EXPECT_EQ(Global.WarningsOff, True);
}

TEST_F(Warning, SwitchesTheWarningsAtOnce) {
  load(False).show();
  form<frmWarning>().chkWarning.userClicked();
  EXPECT_EQ(Global.WarningsOff, True);
  form<frmWarning>().chkWarning.userClicked();
  EXPECT_EQ(Global.WarningsOff, False);
}

TEST_F(Warning, IsHiddenByItsButtonAndKeepsTheSwitchAsItIs) {
  load(False);
  host.whenShown("frmWarning", [] {
    form<frmWarning>().chkWarning.userClicked();
    form<frmWarning>().cmdOk.userClicked();
  });
  form<frmWarning>().showModal();
  EXPECT_TRUE(isLoaded<frmWarning>());
  EXPECT_FALSE(form<frmWarning>().visible());
  EXPECT_EQ(Global.WarningsOff, True);
}

TEST_F(Warning, MayBeClosedByItsFrame) {
  load(False);
  host.whenShown("frmWarning", [] { form<frmWarning>().userClosed(); });
  form<frmWarning>().showModal();
  EXPECT_FALSE(isLoaded<frmWarning>());
}

}  // namespace

}  // namespace torvane
