// SPDX-License-Identifier: MIT
// Undo: after each kind of replacement the whole setup comes back as it was, down to the last control.
#include "dialogs/frmHardware.h"
#include "editor/Replacement.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"
#include "tests/support/WizardBench.h"

namespace torvane {

namespace {

class Undo : public EditorTest {
 protected:
  Undo() { host.toleratesBoxes = true; }

  void randomSetup(std::mt19937& random) {
    chooseUnit(between(random, 0, 4), between(random, 0, 1) != 0);
    Global.DeviceSpecified = True;
    fitForm();
    fillRandomMemo(random);
    for (std::int16_t tab = 0; tab < editor.tabBig.tabs(); ++tab) editor.loadMemo(tab);
    showTab(between(random, 0, 11));
    Global.FileName = "before.cfg";
    Global.DeviceSpecified = True;
  }

  void factoryDefaults() { editor.cmdFactoryDefaults.userClicked(); }
  void readUnit() { read(); }
  void openFile() {
    host.chosenFiles = {"other.cfg"};
    host.whenShown("frmRead", [] { form<frmRead>().cmdFile.userClicked(); });
    host.expect([] { return isLoaded<frmHardware>() && form<frmHardware>().reachable(); },
                [] { form<frmHardware>().cmdOk.userClicked(); });
    editor.cmdOpen.userClicked();
  }

  // Saved with another setup on the tabs.
  void makeFile(std::mt19937& random) {
    randomSetup(random);
    host.chosenFiles = {"other.cfg"};
    host.whenShown("frmWrite", [] {
      form<frmWrite>().cmdFile.userClicked();
      form<frmWrite>().cmdCancel.userClicked();
    });
    editor.cmdWrite.userClicked();
  }

  // The chooser commits the tab on show before anything is replaced.
  SetupSnapshot committed() {
    editor.writeMemo(editor.tabBig.tab());
    editor.loadMemo(tab::comm);
    return takeSnapshot(editor);
  }
  void expectSame(const SetupSnapshot& before) {
    const SetupSnapshot after = takeSnapshot(editor);
    for (int record = 0; record < MemoArray::count; ++record) {
      EXPECT_EQ(SetupSnapshot(after).memo[record], SetupSnapshot(before).memo[record]) << record;
    }
    EXPECT_EQ(after.controls, before.controls);
    EXPECT_TRUE(after == before);
  }
};

TEST_F(Undo, IsOutOfReachUntilSomethingIsReplaced) {
  EXPECT_FALSE(editor.cmdUndo.enabled());
  EXPECT_EQ(editor.cmdUndo.caption(), "Undo");
  EXPECT_EQ(editor.cmdUndo.toolTip(),
            "Brings back the setup before the last read, opened file, wizard or factory defaults");
}

TEST_F(Undo, BringsBackWhatFactoryDefaultsReplaced) {
  std::mt19937 random(1);
  for (int round = 0; round < trials(60); ++round) {
    randomSetup(random);
    const SetupSnapshot before = takeSnapshot(editor);
    const Looks looks = looksOf(editor);
    factoryDefaults();
    ASSERT_TRUE(editor.cmdUndo.enabled());
    EXPECT_EQ(editor.cmdUndo.caption(), "Undo defaults");
    editor.cmdUndo.userClicked();
    expectSame(before);
    Looks now = looksOf(editor);
    for (const char* own : {"cmdUndo", "lblNote"}) now[own] = looks.at(own);
    EXPECT_EQ(now, looks);
    if (HasFailure()) return;
  }
}

TEST_F(Undo, BringsBackWhatAReadReplaced) {
  std::mt19937 random(2);
  for (int round = 0; round < trials(20); ++round) {
    randomSetup(random);
    const SetupSnapshot before = committed();
    readUnit();
    ASSERT_TRUE(editor.cmdUndo.enabled());
    EXPECT_EQ(editor.cmdUndo.caption(), "Undo read");
    editor.cmdUndo.userClicked();
    expectSame(before);
    if (HasFailure()) return;
  }
}

TEST_F(Undo, BringsBackWhatAnOpenedFileReplaced) {
  std::mt19937 random(3);
  for (int round = 0; round < trials(20); ++round) {
    makeFile(random);
    randomSetup(random);
    const SetupSnapshot before = committed();
    openFile();
    ASSERT_TRUE(editor.cmdUndo.enabled());
    EXPECT_EQ(editor.cmdUndo.caption(), "Undo open");
    editor.cmdUndo.userClicked();
    expectSame(before);
    if (HasFailure()) return;
  }
}

TEST_F(Undo, WorksOnce) {
  factoryDefaults();
  std::mt19937 random(4);
  randomSetup(random);
  factoryDefaults();
  editor.cmdUndo.userClicked();
  EXPECT_FALSE(editor.cmdUndo.enabled());
  const SetupSnapshot now = takeSnapshot(editor);
  editor.cmdUndo.userClicked();
  expectSame(now);
}

TEST_F(Undo, IsOfTheLastReplacementAndSurvivesOneThatChangedNothing) {
  std::mt19937 random(5);
  randomSetup(random);
  const SetupSnapshot before = takeSnapshot(editor);
  factoryDefaults();
  factoryDefaults();
  editor.cmdUndo.userClicked();
  expectSame(before);
}

TEST_F(Undo, GivesUpWhatWasEditedSince) {
  std::mt19937 random(6);
  randomSetup(random);
  const SetupSnapshot before = takeSnapshot(editor);
  factoryDefaults();
  showTab(tab::setpoints);
  editor.txtSp1.userTyped("123.4");
  showTab(tab::out1);
  editor.cmdUndo.userClicked();
  expectSame(before);
  EXPECT_EQ(editor.lblNote.caption(), "Undone: the tabs show the setup from before the defaults");
  EXPECT_EQ(editor.lblNote.mark(), Mark::none);
}

TEST_F(Undo, SaysInItsTipWhatGoes) {
  std::mt19937 random(7);
  randomSetup(random);
  factoryDefaults();
  EXPECT_EQ(
      editor.cmdUndo.toolTip(),
      "Brings back the setup as it was before the defaults, the model and the tab too; what was changed "
      "since then goes. Nothing is sent to the unit");
}

TEST_F(Undo, SendsNothingAndAsksNothing) {
  std::mt19937 random(8);
  randomSetup(random);
  factoryDefaults();
  const auto commands = unit.commands().size();
  host.boxes.clear();
  editor.cmdUndo.userClicked();
  EXPECT_EQ(unit.commands().size(), commands);
  EXPECT_TRUE(host.boxes.empty());
}

class UndoOfTheWizard : public WizardBench {};

TEST_F(UndoOfTheWizard, BringsBackPortModelAndFit) {
  moveUnitTo(3);
  editor.tabBig.setTab(tab::comm);
  editor.cboBaud.setListIndex(6);
  editor.writeMemo(tab::comm);
  const SetupSnapshot before = takeSnapshot(editor);
  host.whenShown("frmWizard", [this] { next(5); });
  editor.cmdAutoDetect.userClicked();
  EXPECT_EQ(editor.cboCommPort.listIndex(), 2);
  EXPECT_EQ(editor.cmdUndo.caption(), "Undo wizard");
  editor.cmdUndo.userClicked();
  EXPECT_TRUE(takeSnapshot(editor) == before);
  EXPECT_EQ(editor.cboBaud.listIndex(), 6);
}

}  // namespace

}  // namespace torvane
