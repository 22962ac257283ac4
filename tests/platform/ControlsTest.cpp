// SPDX-License-Identifier: MIT
// What the controls promise: when handlers run, what is refused, and what the view hears.
#include "platform/Controls.h"
#include "platform/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/PanelTest.h"

namespace torvane {

using ::testing::ElementsAre;

namespace {

using ControlsTest = PanelTest;

TEST_F(ControlsTest, RunsTheChangeHandlerOfATextOnRealChangesOnly) {
  panel.txtValue.onChange = counts(runs);
  panel.txtValue.setText("");
  EXPECT_EQ(runs, 0);
  panel.txtValue.setText("12.5");
  EXPECT_EQ(runs, 1);
  panel.txtValue.setText("12.5");
  EXPECT_EQ(runs, 1);
  panel.txtValue.userTyped("12.5");
  EXPECT_EQ(runs, 1);
  panel.txtValue.userTyped("12.55");
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(panel.txtValue.text(), "12.55");
}

TEST_F(ControlsTest, ShowsTheNewTextToItsChangeHandler) {
  std::string seen;
  panel.txtValue.onChange = [&] { seen = panel.txtValue.text(); };
  panel.txtValue.setText("new");
  EXPECT_EQ(seen, "new");
}

TEST_F(ControlsTest, ValidatesWhenTheUserLeavesAndNeverByCode) {
  panel.txtValue.onValidate = counts(runs);
  panel.txtValue.setText("99");
  panel.txtValue.userTyped("98");
  EXPECT_EQ(runs, 0);
  panel.txtValue.userLeft();
  panel.txtValue.userLeft();
  EXPECT_EQ(runs, 2);
}

TEST_F(ControlsTest, RaisesTheKeyOnEnterWithoutAChange) {
  int changes = 0;
  panel.txtValue.onKeyPress = counts(runs);
  panel.txtValue.onChange = counts(changes);
  panel.txtValue.userPressedEnter();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(changes, 0);
}

TEST_F(ControlsTest, TicksACheckBoxByAnyValueButNought) {
  panel.chkEnabled.onClick = counts(runs);
  panel.chkEnabled.setValue(-1);
  EXPECT_EQ(panel.chkEnabled.value(), 1);
  EXPECT_EQ(runs, 1);
  panel.chkEnabled.setValue(65536);
  EXPECT_EQ(panel.chkEnabled.value(), 1);
  EXPECT_EQ(runs, 1);
  panel.chkEnabled.setValue(0);
  EXPECT_EQ(panel.chkEnabled.value(), 0);
  EXPECT_EQ(runs, 2);
  panel.chkEnabled.setValue(0);
  EXPECT_EQ(runs, 2);
}

TEST_F(ControlsTest, TurnsACheckBoxOverOnTheUsersClick) {
  panel.chkEnabled.onClick = counts(runs);
  panel.chkEnabled.userClicked();
  EXPECT_EQ(panel.chkEnabled.value(), 1);
  panel.chkEnabled.userClicked();
  EXPECT_EQ(panel.chkEnabled.value(), 0);
  EXPECT_EQ(runs, 2);
}

TEST_F(ControlsTest, SetsOneOptionOfAGroupAndRaisesItsClickAlone) {
  std::vector<std::string> clicks;
  for (std::size_t i = 0; i < panel.optFramed.count(); ++i) {
    OptionButton& option = panel.optFramed(i);
    option.onClick = [&clicks, &option] { clicks.push_back(option.name()); };
  }
  panel.optFramed(0).setValue(true);
  panel.optFramed(2).setValue(true);
  panel.optFramed(2).setValue(true);
  panel.optFramed(2).userClicked();
  panel.optFramed(1).userClicked();
  EXPECT_THAT(clicks, ElementsAre("optFramed_0", "optFramed_2", "optFramed_1"));
  EXPECT_FALSE(panel.optFramed(0).value());
  EXPECT_TRUE(panel.optFramed(1).value());
  EXPECT_FALSE(panel.optFramed(2).value());
}

TEST_F(ControlsTest, MayLeaveAnOptionGroupWithNoneSet) {
  panel.optFramed(1).onClick = counts(runs);
  panel.optFramed(1).setValue(true);
  panel.optFramed(1).setValue(false);
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(panel.optFramed(0).value() || panel.optFramed(1).value() || panel.optFramed(2).value());
}

TEST_F(ControlsTest, GroupsOptionsByTheirContainerWhateverTheirNames) {
  panel.optFramed(1).setValue(true);
  panel.optPlain(0).setValue(true);
  EXPECT_TRUE(panel.optFramed(1).value());
  panel.optOther.setValue(true);
  EXPECT_FALSE(panel.optPlain(0).value());
  EXPECT_TRUE(panel.optFramed(1).value());
}

TEST_F(ControlsTest, ClearsTheOldOptionBeforeTheClickRuns) {
  panel.optPlain(0).setValue(true);
  bool cleared = false;
  panel.optPlain(1).onClick = [&] { cleared = !panel.optPlain(0).value(); };
  panel.optPlain(1).setValue(true);
  EXPECT_TRUE(cleared);
}

TEST_F(ControlsTest, ChoosesInAListOnRealChangesOnly) {
  panel.lstItems.onClick = counts(runs);
  EXPECT_EQ(panel.lstItems.listIndex(), -1);
  panel.lstItems.setListIndex(-1);
  EXPECT_EQ(runs, 0);
  panel.lstItems.setListIndex(2);
  panel.lstItems.setListIndex(2);
  EXPECT_EQ(runs, 1);
  panel.lstItems.userChose(0);
  EXPECT_EQ(runs, 2);
  panel.lstItems.setListIndex(-1);
  EXPECT_EQ(runs, 3);
}

TEST_F(ControlsTest, RefusesAnIndexBeyondTheList) {
  panel.lstItems.onClick = counts(runs);
  panel.lstItems.setListIndex(1);
  for (int index : {3, -2, 32767, -32768, 65536}) {
    expectRefused([&] { panel.lstItems.setListIndex(index); });
    EXPECT_EQ(panel.lstItems.listIndex(), 1);
  }
  EXPECT_EQ(runs, 1);
}

TEST_F(ControlsTest, GivesAnEmptyTextForAnIndexOutsideTheList) {
  EXPECT_EQ(panel.lstItems.list(0), "red");
  EXPECT_EQ(panel.lstItems.list(2), "amber");
  EXPECT_EQ(panel.lstItems.list(-1), "");
  EXPECT_EQ(panel.lstItems.list(3), "");
}

TEST_F(ControlsTest, LeavesNoneChosenWhenTheChosenItemIsRemoved) {
  panel.cboItems.setListIndex(1);
  panel.cboItems.onClick = counts(runs);
  panel.cboItems.removeItem(1);
  EXPECT_EQ(panel.cboItems.listIndex(), -1);
  EXPECT_EQ(panel.cboItems.text(), "");
  EXPECT_THAT(panel.cboItems.items(), ElementsAre("one", "three"));
  EXPECT_EQ(runs, 0);
}

TEST_F(ControlsTest, KeepsTheChosenItemWhenAnotherIsRemoved) {
  panel.cboItems.setListIndex(1);
  panel.cboItems.onClick = counts(runs);
  panel.cboItems.removeItem(2);
  EXPECT_EQ(panel.cboItems.listIndex(), 1);
  panel.cboItems.removeItem(0);
  EXPECT_EQ(panel.cboItems.listIndex(), 0);
  EXPECT_EQ(panel.cboItems.list(0), "two");
  EXPECT_EQ(panel.cboItems.text(), "two");
  EXPECT_EQ(runs, 0);
}

TEST_F(ControlsTest, RefusesToRemoveWhatIsNotThere) {
  expectRefused([&] { panel.lstItems.removeItem(-1); });
  expectRefused([&] { panel.lstItems.removeItem(3); });
  EXPECT_EQ(panel.lstItems.listCount(), 3);
}

TEST_F(ControlsTest, ChangesTheTextOfAnItemAndKeepsTheChoice) {
  panel.lstItems.setListIndex(1);
  panel.lstItems.onClick = counts(runs);
  panel.lstItems.setItem(1, "changed");
  EXPECT_EQ(panel.lstItems.list(1), "changed");
  EXPECT_EQ(panel.lstItems.listIndex(), 1);
  EXPECT_EQ(runs, 0);
  expectRefused([&] { panel.lstItems.setItem(3, "beyond"); });
}

TEST_F(ControlsTest, TakesNewItemsAndForgetsAll) {
  panel.cboItems.addItem("four");
  panel.cboItems.setListIndex(3);
  EXPECT_EQ(panel.cboItems.text(), "four");
  panel.cboItems.clear();
  EXPECT_EQ(panel.cboItems.listCount(), 0);
  EXPECT_EQ(panel.cboItems.listIndex(), -1);
  EXPECT_EQ(panel.cboItems.text(), "");
}

TEST_F(ControlsTest, LetsTheTextOfAComboFollowTheIndexWithoutAChange) {
  int changes = 0;
  panel.cboItems.onChange = counts(changes);
  panel.cboItems.onClick = counts(runs);
  panel.cboItems.userChose(2);
  EXPECT_EQ(panel.cboItems.text(), "three");
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(changes, 0);
  panel.cboItems.setText("five");
  EXPECT_EQ(panel.cboItems.listIndex(), 2);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(changes, 1);
}

TEST_F(ControlsTest, LetsTheUserTypeIntoAnEditableComboOnly) {
  panel.cboItems.onChange = counts(runs);
  panel.cboItems.userTyped("six");
  EXPECT_EQ(panel.cboItems.text(), "");
  panel.cboItems.editable = true;
  panel.cboItems.userTyped("six");
  EXPECT_EQ(panel.cboItems.text(), "six");
  EXPECT_EQ(runs, 1);
}

TEST_F(ControlsTest, ScrollsWithinTheRangeAndRefusesTheRest) {
  panel.HSTime.onChange = counts(runs);
  EXPECT_EQ(panel.HSTime.value(), 4);
  panel.HSTime.setValue(4);
  EXPECT_EQ(runs, 0);
  panel.HSTime.setValue(1);
  panel.HSTime.userScrolled(199);
  EXPECT_EQ(runs, 2);
  for (int value : {0, 200, -1, 65537}) {
    expectRefused([&] { panel.HSTime.setValue(value); });
    EXPECT_EQ(panel.HSTime.value(), 199);
  }
  EXPECT_EQ(runs, 2);
}

TEST_F(ControlsTest, KeepsTheBarWithinItsRange) {
  panel.prgRun.setValue(50);
  EXPECT_EQ(panel.prgRun.value(), 50);
  panel.prgRun.setValue(120);
  EXPECT_EQ(panel.prgRun.value(), 100);
  panel.prgRun.setValue(-5);
  EXPECT_EQ(panel.prgRun.value(), 0);
}

TEST_F(ControlsTest, RefusesAnAnimationThatIsNotThere) {
  host.files.missingFiles = {"/program/none.avi"};
  panel.aniRun.open("/program/search.avi");
  EXPECT_EQ(panel.aniRun.file(), "/program/search.avi");
  EXPECT_THROW(panel.aniRun.open("/program/none.avi"), RuntimeError);
  EXPECT_EQ(panel.aniRun.file(), "/program/search.avi");
}

TEST_F(ControlsTest, TellsTheViewOfRealChangesOnly) {
  panel.lblText.onRedraw = counts(runs);
  panel.lblText.setCaption("Text");
  panel.lblText.setEnabled(true);
  panel.lblText.setToolTip("");
  EXPECT_EQ(runs, 0);
  panel.lblText.setCaption("New");
  panel.lblText.setEnabled(false);
  panel.lblText.setVisible(false);
  panel.lblText.setToolTip("tip");
  panel.lblText.setBackColor(0x0000FF);
  panel.lblText.setBackColor(0x0000FF);
  EXPECT_EQ(runs, 5);
}

TEST_F(ControlsTest, TellsTheViewOfAnOptionThatWasCleared) {
  panel.optPlain(0).setValue(true);
  panel.optPlain(0).onRedraw = counts(runs);
  panel.optPlain(1).setValue(true);
  EXPECT_EQ(runs, 1);
}

TEST_F(ControlsTest, ShowsAChangeBeforeItsHandlerRuns) {
  std::vector<std::string> order;
  panel.cboItems.onRedraw = [&] { order.push_back("redraw"); };
  panel.cboItems.onClick = [&] { order.push_back("click"); };
  panel.cboItems.setListIndex(0);
  EXPECT_THAT(order, ElementsAre("redraw", "click"));
}

TEST_F(ControlsTest, AsksTheViewToPaint) {
  panel.lblText.refresh();
  panel.lblText.onRefresh = counts(runs);
  panel.lblText.refresh();
  EXPECT_EQ(runs, 1);
}

TEST_F(ControlsTest, AreListedByTheirFormUnderTheirNames) {
  std::vector<std::string> names;
  for (const Control* control : panel.controls) names.push_back(control->name());
  EXPECT_THAT(names, ElementsAre("lblText", "txtValue", "chkEnabled", "cmdDo", "optPlain_0", "optPlain_1",
                                 "optOther", "fraGroup", "optFramed_0", "optFramed_1", "optFramed_2",
                                 "fraInner", "cmdInner", "lstItems", "cboItems", "HSTime", "prgRun", "aniRun",
                                 "tabs", "cmdFirst", "cmdSecond"));
}

}  // namespace

}  // namespace torvane
