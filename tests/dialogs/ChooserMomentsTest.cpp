// SPDX-License-Identifier: MIT
// The chooser of a read: files that were open last, and a read that is undone.
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/frmHardware.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

class ChooserMoments : public Bench {
 protected:
  ChooserMoments() {
    Global.DeviceSpecified = True;
    host.whenever("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
  }
  void saveWithSetPoint(const std::string& path, const char* text) {
    editor.tabBig.setTab(tab::setpoints);
    editor.txtSp1.userTyped(text);
    ASSERT_TRUE(saveConfiguration(path));
  }

  frmBigFolder& editor = start();
};

TEST_F(ChooserMoments, OpensTheRecentFileThatIsChosen) {
  saveWithSetPoint("b.cfg", "002.0");
  saveWithSetPoint("/home/a.cfg", "001.0");
  for (const int row : {0, 1}) {
    editor.txtSp1.userTyped("009.0");
    host.whenShown("frmRead", [row] {
      auto& chooser = form<frmRead>();
      EXPECT_EQ(chooser.cboRecent.listIndex(), 0);
      if (row == 0)
        EXPECT_EQ(chooser.cboRecent.items(), (std::vector<std::string>{"a.cfg in /home", "b.cfg"}));
      chooser.cboRecent.userChose(row);
      chooser.cmdRecent.userClicked();
    });
    editor.cmdOpen.userClicked();
    EXPECT_EQ(editor.txtSp1.text(), row == 0 ? "001.0" : "002.0");
  }
}

TEST_F(ChooserMoments, OpensNoRecentFileWhereNoneIsChosen) {
  saveWithSetPoint("/a.cfg", "001.0");
  editor.txtSp1.userTyped("009.0");
  host.whenShown("frmRead", [] {
    form<frmRead>().cboRecent.setListIndex(-1);
    form<frmRead>().cmdRecent.userClicked();
    ASSERT_TRUE(isLoaded<frmRead>());
    form<frmRead>().OKButton.userClicked();
  });
  editor.cmdOpen.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "009.0");
}

TEST_F(ChooserMoments, AReadIsUndoneByItsName) {
  unit.setRegister("01", "2004D2");
  read();
  ASSERT_EQ(editor.txtSp1.text(), "123.4");
  editor.cmdUndo.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_EQ(editor.lblNote.caption(), "Undone: the tabs show the setup from before the read");
}

}  // namespace

}  // namespace torvane
