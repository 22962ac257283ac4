// SPDX-License-Identifier: MIT
// What the user can reach: tabs, frames, hidden pages, forms behind a modal one; and what becomes of errors.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/platform/PanelTest.h"

namespace torvane {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct Front : Form {
  Front() : Form("frmFront", "Front") {}
};

using ReachTest = PanelTest;

TEST_F(ReachTest, PutsATabOnShowAndTellsTheOneBefore) {
  std::vector<int> from;
  panel.tabs.onClick = [&](std::int16_t previous) { from.push_back(previous); };
  panel.tabs.setTab(0);
  panel.tabs.setTab(2);
  panel.tabs.setTab(2);
  panel.tabs.userClicked(1);
  EXPECT_THAT(from, ElementsAre(0, 2));
  EXPECT_EQ(panel.tabs.tab(), 1);
}

TEST_F(ReachTest, RefusesATabThatIsNotThere) {
  expectRefused([&] { panel.tabs.setTab(3); });
  expectRefused([&] { panel.tabs.setTab(-1); });
  expectRefused([&] { panel.tabs.setTabAvailable(3, false); });
  panel.tabs.userClicked(3);
  panel.tabs.userClicked(-1);
  EXPECT_EQ(panel.tabs.tab(), 0);
  EXPECT_THAT(host.failures, IsEmpty());
}

TEST_F(ReachTest, LetsCodeButNotTheUserShowAnUnavailableTab) {
  panel.tabs.setTabAvailable(1, false);
  EXPECT_FALSE(panel.tabs.tabAvailable(1));
  panel.tabs.userClicked(1);
  EXPECT_EQ(panel.tabs.tab(), 0);
  panel.tabs.setTab(1);
  EXPECT_EQ(panel.tabs.tab(), 1);
  panel.cmdSecond.onClick = counts(runs);
  panel.cmdSecond.userClicked();
  EXPECT_EQ(runs, 1);
}

TEST_F(ReachTest, KeepsPresenceApartFromAvailability) {
  EXPECT_TRUE(panel.tabs.page(1).present);
  panel.tabs.page(1).present = false;
  EXPECT_TRUE(panel.tabs.tabAvailable(1));
  panel.tabs.setTabAvailable(2, false);
  EXPECT_TRUE(panel.tabs.page(2).present);
}

TEST_F(ReachTest, DoesNothingForTheUserWhileDisabledOrInvisible) {
  panel.cmdDo.onClick = counts(runs);
  panel.cmdDo.setEnabled(false);
  panel.cmdDo.userClicked();
  panel.cmdDo.setEnabled(true);
  panel.cmdDo.setVisible(false);
  panel.cmdDo.userClicked();
  EXPECT_EQ(runs, 0);
  panel.cmdDo.setVisible(true);
  panel.cmdDo.userClicked();
  EXPECT_EQ(runs, 1);
}

TEST_F(ReachTest, ClosesEveryUserDoorOfADisabledControl) {
  for (Control* control : panel.controls) control->setEnabled(false);
  panel.txtValue.onValidate = panel.txtValue.onKeyPress = counts(runs);
  panel.txtValue.userTyped("x");
  panel.txtValue.userLeft();
  panel.txtValue.userPressedEnter();
  panel.chkEnabled.userClicked();
  panel.optOther.userClicked();
  panel.lstItems.userChose(1);
  panel.HSTime.userScrolled(9);
  panel.tabs.userClicked(1);
  EXPECT_EQ(runs, 0);
  EXPECT_EQ(panel.txtValue.text(), "");
  EXPECT_EQ(panel.chkEnabled.value(), 0);
  EXPECT_FALSE(panel.optOther.value());
  EXPECT_EQ(panel.lstItems.listIndex(), -1);
  EXPECT_EQ(panel.HSTime.value(), 4);
  EXPECT_EQ(panel.tabs.tab(), 0);
}

TEST_F(ReachTest, RunsHandlersOfDisabledControlsForCode) {
  panel.txtValue.onChange = counts(runs);
  panel.txtValue.setEnabled(false);
  panel.txtValue.setVisible(false);
  panel.txtValue.setText("by code");
  EXPECT_EQ(runs, 1);
}

TEST_F(ReachTest, MakesTheContentsOfAFrameUnusableWithoutChangingTheirs) {
  EXPECT_TRUE(panel.cmdInner.reachable());
  panel.fraGroup.setEnabled(false);
  EXPECT_FALSE(panel.cmdInner.reachable());
  EXPECT_FALSE(panel.optFramed(0).reachable());
  EXPECT_TRUE(panel.cmdInner.enabled());
  EXPECT_TRUE(panel.fraInner.enabled());
  panel.fraGroup.setEnabled(true);
  panel.fraGroup.setVisible(false);
  EXPECT_FALSE(panel.cmdInner.reachable());
  EXPECT_TRUE(panel.cmdInner.visible());
}

TEST_F(ReachTest, ReachesTheControlsOfTheTabOnShowOnly) {
  EXPECT_TRUE(panel.cmdFirst.reachable());
  EXPECT_FALSE(panel.cmdSecond.reachable());
  panel.tabs.setTab(1);
  EXPECT_FALSE(panel.cmdFirst.reachable());
  EXPECT_TRUE(panel.cmdSecond.reachable());
  panel.tabs.setVisible(false);
  EXPECT_FALSE(panel.cmdSecond.reachable());
}

TEST_F(ReachTest, IsOutOfReachBehindAModalFormAndOnAHiddenOne) {
  panel.cmdDo.onClick = counts(runs);
  host.user.push_back([&] {
    EXPECT_FALSE(panel.cmdDo.reachable());
    panel.cmdDo.userClicked();
    form<Front>().hide();
  });
  form<Front>().showModal();
  EXPECT_EQ(runs, 0);
  EXPECT_TRUE(panel.cmdDo.reachable());
  panel.hide();
  panel.cmdDo.userClicked();
  EXPECT_EQ(runs, 0);
}

TEST_F(ReachTest, EndsTheProgramOnAnErrorThatNoHandlerCaught) {
  panel.cmdDo.onClick = [] { throw RuntimeError(Fault::overflow, "Overflow"); };
  panel.cmdDo.userClicked();
  EXPECT_THAT(host.failures, ElementsAre("Overflow"));
  panel.lstItems.userChose(7);
  EXPECT_EQ(host.failures.size(), 2U);
}

TEST_F(ReachTest, HandsAnErrorToTheCodeThatSetTheValue) {
  panel.txtValue.onChange = [] { throw RuntimeError(Fault::typeMismatch, "Type mismatch"); };
  EXPECT_THROW(panel.txtValue.setText("x"), RuntimeError);
  EXPECT_EQ(panel.txtValue.text(), "x");
  EXPECT_FALSE(attempt([&] { panel.txtValue.setText("y"); }));
  EXPECT_THAT(host.failures, IsEmpty());
}

}  // namespace

}  // namespace torvane
