// SPDX-License-Identifier: MIT
// Files of setups: where the last ones are remembered, what a save that fails leaves, and what they are
// called.
#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/frmHardware.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

class SetupMoments : public Bench {
 protected:
  static std::string place(int number) { return "Torvane Configuration/Files/" + std::to_string(number); }

  frmBigFolder& editor = start();
};

TEST_F(SetupMoments, TheLastFilesStandInTheSettingsByTheirNumbers) {
  ASSERT_TRUE(saveConfiguration("/a.cfg"));
  ASSERT_TRUE(saveConfiguration("/b.cfg"));
  EXPECT_EQ(host.settings[place(1)], "/b.cfg");
  EXPECT_EQ(host.settings[place(2)], "/a.cfg");
}

TEST_F(SetupMoments, NoOtherNumbersAreHeeded) {
  host.settings[place(0)] = "/zero.cfg";
  for (int number = 1; number <= 9; ++number)
    host.settings[place(number)] = "/" + std::to_string(number) + ".cfg";
  const std::vector<std::string> files = recentFiles();
  ASSERT_EQ(files.size(), 8U);
  EXPECT_EQ(files.front(), "/1.cfg");
  EXPECT_EQ(files.back(), "/8.cfg");
  ASSERT_TRUE(saveConfiguration("/new.cfg"));
  EXPECT_EQ(host.settings[place(8)], "/7.cfg");
  EXPECT_EQ(host.settings[place(9)], "/9.cfg");
  EXPECT_EQ(host.settings[place(0)], "/zero.cfg");
}

TEST_F(SetupMoments, AFileOfOneDayIsLikeThatOfTheNextAtTheSameTime) {
  host.clock = 5;
  const std::string first = presentConfiguration();
  host.clock += 24 * 60 * 60;
  EXPECT_EQ(presentConfiguration(), first);
  host.clock += 1;
  EXPECT_NE(presentConfiguration(), first) << "the time of the day is in it";
}

TEST_F(SetupMoments, ASaveThatFailsLeavesTheNameAndTheLastFiles) {
  ASSERT_TRUE(saveConfiguration("/a.cfg"));
  host.diskFault = "No space left on device";
  host.expectBox("The setup is not saved:\r/b.cfg\r\rNo space left on device");
  EXPECT_FALSE(saveConfiguration("/b.cfg"));
  EXPECT_EQ(Global.FileName, "/a.cfg");
  EXPECT_EQ(recentFiles(), std::vector<std::string>{"/a.cfg"});
}

TEST_F(SetupMoments, AFileThatIsRefusedIsNotOpened) {
  host.expectBox("The file can't be opened:\r/none.cfg\r\rNo such file or directory");
  EXPECT_FALSE(openConfiguration("/none.cfg"));
  host.files["/copy.cfg"] = "torvane unit copy 1\n";
  host.expectBox("This is a copy of a unit, not a setup:\r/copy.cfg");
  EXPECT_FALSE(openConfiguration("/copy.cfg"));
  host.files["/bad.cfg"] = "anything";
  host.expectBox("This is no whole setup:\r/bad.cfg\r\rThe file ");
  EXPECT_FALSE(openConfiguration("/bad.cfg"));
  EXPECT_TRUE(recentFiles().empty());
  EXPECT_EQ(Global.FileName, "");
}

// An older file ends after its second stamp and names no model: the name in memory goes through the reader,
// which takes its last character. One that is cut there says so, and is opened all the same on request.
TEST_F(SetupMoments, AFileThatEndsBeforeTheModelTakesNoModelFromItself) {
  host.whenever("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  BaseModel = "Tv16";
  Hardware.ModelNumber = "unheard of";
  const std::string whole = configModelPart(1) + configSetupPart(tab::setpoints, 1);
  const std::string stamp = whole.substr(0, sizeof(double));
  const std::size_t end = whole.find(stamp, stamp.size()) + stamp.size();
  for (const std::size_t length : {end, end + 3}) {
    host.files["/older.cfg"] = whole.substr(0, length);
    if (length > end) host.expectBox("This is no whole setup:\r/older.cfg", Answer::yes);
    BaseModel = "Rkv8";
    ASSERT_TRUE(openConfiguration("/older.cfg"));
    EXPECT_EQ(BaseModel, "Rkv") << length;
  }
}

TEST_F(SetupMoments, AnOpenedFileIsUndoneByItsName) {
  ASSERT_TRUE(saveConfiguration("/a.cfg"));
  editor.tabBig.setTab(tab::setpoints);
  editor.txtSp1.userTyped("12.5");
  host.whenever("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
  openNamed("/a.cfg");
  ASSERT_EQ(editor.txtSp1.text(), "000.0");
  editor.cmdUndo.userClicked();
  EXPECT_EQ(editor.lblNote.caption(), "Undone: the tabs show the setup from before the open");
}

TEST_F(SetupMoments, ANameThatIsNoneOfASetupGivesWayToTheModelAndTheDay) {
  Hardware.ModelNumber = "Tv-8[a]";
  for (const auto& [name, proposed] : {std::pair{"/home/oven.txt", "Tv-8a-2026-03-01.cfg"},
                                       {"oven.cfg", "oven.cfg"},
                                       {"/home/a/oven.cfg", "oven.cfg"}}) {
    Global.FileName = name;
    saveConfigurationAs();
    EXPECT_EQ(host.proposedName, proposed);
  }
}

TEST_F(SetupMoments, ARescueTellsItsFileWhole) {
  EXPECT_EQ(keepForRescue(), "Your setup is kept and is offered at the next start:\r/data/rescue.cfg");
  host.expectBox(
      "The program ended with an error. The setup of that moment was kept:\r/data/rescued-1.cfg\r\rOpen it "
      "now?",
      Answer::no);
  offerRescue();
}

}  // namespace

}  // namespace torvane
