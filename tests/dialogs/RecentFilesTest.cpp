// SPDX-License-Identifier: MIT
// Files as elsewhere: the title, the name that is proposed, the last files, and a file that is dropped.
#include <algorithm>

#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmRead.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

class FilesAsElsewhere : public Bench {
 protected:
  FilesAsElsewhere() {
    host.whenever("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
    editor.cmdCnfg.userClicked();
  }

  void save(const std::string& path) {
    host.chosenFiles = {path};
    editor.userTookShortcut("Ctrl+S");
  }
  void typeSetPoint(const char* text) {
    editor.tabBig.setTab(tab::setpoints);
    editor.txtSp1.userTyped(text);
  }
  // The dialog that asks for a place stays open until it is closed.
  std::vector<std::string> offered() {
    std::vector<std::string> items;
    host.whenShown("frmRead", [&] {
      items = form<frmRead>().cboRecent.items();
      EXPECT_EQ(form<frmRead>().fraRecent.visible(), !items.empty());
      form<frmRead>().OKButton.userClicked();
    });
    editor.cmdOpen.userClicked();
    return items;
  }

  frmBigFolder& editor = start();
};

TEST_F(FilesAsElsewhere, NoFileNoName) { EXPECT_EQ(editor.caption(), "Torvane Configuration"); }

TEST_F(FilesAsElsewhere, TheTitleNamesTheFileAndMarksWhatDiffers) {
  save("/home/me/oven.cfg");
  EXPECT_EQ(editor.caption(), "oven.cfg - Torvane Configuration");
  typeSetPoint("12.5");
  EXPECT_EQ(editor.caption(), "oven.cfg * - Torvane Configuration") << "also what is not committed yet";
  typeSetPoint("000.0");
  EXPECT_EQ(editor.caption(), "oven.cfg - Torvane Configuration") << "it is what the file holds again";
  typeSetPoint("12.5");
  save("/home/me/second.cfg");
  EXPECT_EQ(editor.caption(), "second.cfg - Torvane Configuration");
}

TEST_F(FilesAsElsewhere, LookingAtTabsAndChoosingAPortMarksNothing) {
  save("/oven.cfg");
  for (int tab = 0; tab < editor.tabBig.tabs(); ++tab) editor.tabBig.userClicked(tab);
  editor.cboCommPort.userChose(2);
  EXPECT_EQ(editor.caption(), "oven.cfg - Torvane Configuration");
}

TEST_F(FilesAsElsewhere, AnotherModelIsAChange) {
  save("/oven.cfg");
  Hardware.ModelNumber = "Tv32";
  editor.Form_Settled();
  EXPECT_EQ(editor.caption(), "oven.cfg * - Torvane Configuration");
}

TEST_F(FilesAsElsewhere, AnOpenedFileIsMarkedWhereTheWindowHadToChangeIt) {
  Memo[rec::cboAl1Setup].value = 3;  // Band, which an absolute alarm has not
  host.files["/band.cfg"] = configModelPart(1) + configSetupPart(1, 1);
  openNamed("/band.cfg");
  EXPECT_EQ(editor.cboAl1Setup.text(), "Above");
  EXPECT_EQ(editor.caption(), "band.cfg * - Torvane Configuration");
}

TEST_F(FilesAsElsewhere, NothingWarnsOfWhatTheWindowHadToChangeInADroppedFile) {
  Memo[rec::txtSp1].text = "5000.";
  host.files["/wide.cfg"] = configModelPart(1) + configSetupPart(tab::setpoints, 1);
  Memo[rec::txtSp1].text = "000.0";
  editor.tabBig.setTab(tab::setpoints);
  Global.WarningsOff = False;
  host.events.clear();
  editor.userDropped("/wide.cfg");
  EXPECT_EQ(editor.txtSp1.text(), "999.9");
  EXPECT_EQ(std::ranges::count(host.events, "show modal frmWarning"), 0);
  EXPECT_EQ(Global.WarningsOff, False);
}

TEST_F(FilesAsElsewhere, UndoBringsTheOldFilesNameBack) {
  save("/first.cfg");
  typeSetPoint("12.5");
  save("/second.cfg");
  openNamed("/first.cfg");
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  editor.cmdUndo.userClicked();
  EXPECT_EQ(editor.caption(), "second.cfg - Torvane Configuration");
}

TEST_F(FilesAsElsewhere, TheOpenFilesNameIsProposed) {
  save("/home/me/oven.cfg");
  host.chosenFiles.clear();
  editor.userTookShortcut("Ctrl+S");
  EXPECT_EQ(host.proposedName, "oven.cfg");
}

TEST_F(FilesAsElsewhere, WithoutAFileTheModelAndTheDayAreProposed) {
  Hardware.ModelNumber = "Tv[8,16,32]22-C24";
  editor.userTookShortcut("Ctrl+S");
  EXPECT_EQ(host.proposedName, "Tv8163222-C24-2026-03-01.cfg");
}

TEST_F(FilesAsElsewhere, TheLastEightFilesAreOfferedTheNewestFirst) {
  EXPECT_TRUE(offered().empty());
  for (int number = 1; number <= 10; ++number) save("/units/" + std::to_string(number) + ".cfg");
  save("/units/7.cfg");
  const std::vector<std::string> items = offered();
  ASSERT_EQ(items.size(), 8U);
  EXPECT_EQ(items[0], "7.cfg in /units");
  EXPECT_EQ(items[1], "10.cfg in /units");
  EXPECT_EQ(items[7], "3.cfg in /units");
}

TEST_F(FilesAsElsewhere, AFileThatHasGoneIsNotOffered) {
  save("/a.cfg");
  save("/b.cfg");
  host.missingFiles.insert("/b.cfg");
  EXPECT_EQ(offered(), std::vector<std::string>{"a.cfg in "});
}

TEST_F(FilesAsElsewhere, ARecentFileIsOpenedByItsButton) {
  save("/a.cfg");
  typeSetPoint("12.5");
  host.whenShown("frmRead", [] { form<frmRead>().cmdRecent.userClicked(); });
  editor.cmdOpen.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_FALSE(isLoaded<frmRead>());
}

TEST_F(FilesAsElsewhere, ADroppedFileIsOpenedAndCanBeUndone) {
  save("/a.cfg");
  typeSetPoint("12.5");
  Global.WarningsOff = False;
  editor.userDropped("/a.cfg");
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_EQ(Global.WarningsOff, False);
  editor.cmdUndo.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "12.5");
}

TEST_F(FilesAsElsewhere, ADropWhileADialogIsInFrontDoesNothing) {
  save("/a.cfg");
  typeSetPoint("12.5");
  host.whenShown("frmRead", [&] {
    editor.userDropped("/a.cfg");
    form<frmRead>().OKButton.userClicked();
  });
  editor.cmdOpen.userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "12.5");
}

TEST_F(FilesAsElsewhere, AFileThatIsNotThereIsToldAndNothingChanges) {
  typeSetPoint("12.5");
  host.missingFiles.insert("/none.cfg");
  host.expectBox("The file can't be opened:\r/none.cfg");
  openNamed("/none.cfg");
  EXPECT_EQ(editor.txtSp1.text(), "12.5");
}

}  // namespace

}  // namespace torvane
