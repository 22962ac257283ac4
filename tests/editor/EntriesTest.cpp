// SPDX-License-Identifier: MIT
// The text boxes of the main window: when they are repaired, what the user sees, what reaches the image.
#include <random>

#include "core/NumberText.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr const char* setPoint1Changed =
    "SetPoint1 Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* setPoint2Changed =
    "SetPoint2 Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* entryChanged = "Entry changed after validation.\r\nPlease verify new value is correct.";

// A user who reads every warning and closes it.
class Entries : public EditorTest {
 protected:
  Entries() {
    host.whenever("frmWarning", [this] {
      warnings.push_back(form<frmWarning>().lblWarning.caption());
      if (meanwhile) meanwhile();
      form<frmWarning>().cmdOk.userClicked();
    });
  }

  TextBox& box(const char* name) { return dynamic_cast<TextBox&>(named(editor, name)); }
  std::vector<std::string> takeWarnings() { return std::exchange(warnings, {}); }

  // With its tab on show and everything around the box in use.
  void reach(const TextBox& target) {
    for (int tab = 0; tab < 12 && !target.reachable(); ++tab) showTab(tab);
    takeWarnings();
  }
  void openEverything() {
    for (Control* control : editor.controls) {
      control->setVisible(true);
      control->setEnabled(true);
    }
  }

  std::vector<std::string> warnings;
  std::function<void()> meanwhile;
};

using Warnings = Entries;
using Reform = Entries;
using DecimalPoint = Entries;

TEST_F(Entries, EveryFieldIsRepairedOnEnterAndOnLeaving) {
  Global.WarningsOff = True;
  openEverything();
  for (const SetupBox& row : setupBoxes()) {
    if (!row.rule) continue;
    for (const auto leave : {&TextBox::userPressedEnter, &TextBox::userLeft}) {
      TextBox& target = *std::get<TextBox*>(controlOf(editor, row));
      openEverything();
      reach(target);
      ASSERT_TRUE(target.reachable()) << target.name();
      target.userTyped("x7");
      const std::string expected = repair(*row.rule, "x7", {"000.0", true}).text;
      EXPECT_EQ(target.text(), "x7") << target.name();
      (target.*leave)();
      EXPECT_EQ(target.text(), expected) << target.name();
    }
  }
}

TEST_F(Entries, TheBoxesWithoutARuleStayAsTyped) {
  Global.WarningsOff = True;
  for (const char* name : {"txtIn1Vi", "txtIn2Vi", "txtTCPIPAddress", "txtTCPPort"}) {
    openEverything();
    reach(box(name));
    box(name).userTyped("x7");
    box(name).userLeft();
    EXPECT_EQ(box(name).text(), "x7");
  }
}

TEST_F(Entries, AnEmptySetPointIsZero) {
  showTab(1);
  editor.txtSp1.userTyped("");
  editor.txtSp1.userLeft();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_EQ(takeWarnings(), std::vector<std::string>{setPoint1Changed});
}

TEST_F(Entries, AButtonActsOnTheRepairedValue) {
  showTab(1);
  editor.txtSp1.userTyped("5000");
  editor.txtSp1.userLeft();
  editor.cmdNext.userClicked();
  EXPECT_EQ(Memo[rec::txtSp1].text, "999.9");
}

TEST_F(Entries, TheOutputDecidesHowFarItsPointsGo) {
  Global.WarningsOff = True;
  editor.AnalogOutControls(true);
  showTab(10);
  editor.optAOutI.userClicked();
  editor.txtAOutOut1.userTyped("15");
  editor.txtAOutOut1.userLeft();
  EXPECT_EQ(editor.txtAOutOut1.text(), "15.00");
  editor.optAOutV.userClicked();
  EXPECT_EQ(editor.txtAOutOut1.text(), "15.00");
  editor.txtAOutOut1.userLeft();
  EXPECT_EQ(editor.txtAOutOut1.text(), "10.00");
}

TEST_F(Warnings, StandBeforeTheRepairAndTheFormIsGoneAfterIt) {
  showTab(1);
  editor.txtSp1.userTyped("5");
  meanwhile = [&] {
    EXPECT_EQ(editor.txtSp1.text(), "5");
    EXPECT_FALSE(editor.txtSp1.reachable());
  };
  host.events.clear();
  editor.txtSp1.userPressedEnter();
  EXPECT_EQ(editor.txtSp1.text(), "005.0");
  EXPECT_EQ(takeWarnings(), std::vector<std::string>{setPoint1Changed});
  EXPECT_EQ(host.events, (std::vector<std::string>{"centre frmWarning", "show modal frmWarning",
                                                   "hide frmWarning", "release frmWarning"}));
}

TEST_F(Warnings, DoNotComeWhereNothingChanges) {
  showTab(1);
  editor.txtSp1.userTyped("005.0");
  editor.txtSp1.userLeft();
  EXPECT_TRUE(takeWarnings().empty());
  EXPECT_EQ(Global.WarningText, setPoint1Changed);
}

TEST_F(Warnings, AreSilentWhenTheyAreOff) {
  Global.WarningsOff = True;
  showTab(1);
  editor.txtSp1.userTyped("5000");
  editor.txtSp1.userLeft();
  EXPECT_EQ(editor.txtSp1.text(), "999.9");
  EXPECT_TRUE(takeWarnings().empty());
  EXPECT_FALSE(isLoaded<frmWarning>());
}

TEST_F(Warnings, SwitchedOffInTheWarningStayAwayAndSoAtTheNextStart) {
  showTab(1);
  meanwhile = [] { form<frmWarning>().chkWarning.userClicked(); };
  editor.txtSp1.userTyped("5");
  editor.txtSp1.userLeft();
  editor.txtSp2.userTyped("5");
  editor.txtSp2.userLeft();
  EXPECT_EQ(takeWarnings(), std::vector<std::string>{setPoint1Changed});
  EXPECT_EQ(editor.txtSp2.text(), "005.0");
  editor.cmdQuit.userClicked();
  EXPECT_EQ(host.settings["Torvane Configuration/Persist/Warn"], "True");
}

TEST_F(Warnings, DoNotPileUp) {
  showTab(1);
  editor.txtSp2.setText("6");
  meanwhile = [&] { editor.txtSp2.onValidate(); };
  editor.txtSp1.userTyped("5");
  editor.txtSp1.userLeft();
  EXPECT_EQ(takeWarnings(), std::vector<std::string>{setPoint1Changed});
  EXPECT_EQ(editor.txtSp2.text(), "006.0");
}

TEST_F(Warnings, RepeatTheLastWordsWhereAFieldHasNone) {
  showTab(1);
  editor.txtSp2.userTyped("5");
  editor.txtSp2.userLeft();
  showTab(6);
  editor.txtTAdjust.userTyped("5");
  editor.txtTAdjust.userLeft();
  EXPECT_EQ(takeWarnings(), (std::vector<std::string>{setPoint2Changed, setPoint2Changed}));
}

TEST_F(Warnings, ComeAgainForAnOutputPointWithItsOwnPicture) {
  editor.AnalogOutControls(true);
  showTab(10);
  editor.txtAOutOut1.userTyped("5");
  editor.txtAOutOut1.userLeft();
  editor.txtAOutOut1.userLeft();
  EXPECT_EQ(editor.txtAOutOut1.text(), "05.00");
  EXPECT_EQ(takeWarnings().size(), 2u);
}

TEST_F(Warnings, DoNotComeAtTheStart) {
  EXPECT_TRUE(warnings.empty());
  EXPECT_FALSE(isLoaded<frmWarning>());
  for (int tab = 0; tab < 12; ++tab) showTab(tab);
  EXPECT_TRUE(warnings.empty());
}

// Tab, box, out of range as it lies in the image, as it comes on show and is committed.
struct ReformCase {
  int tab;
  int record;
  const char* box;
  const char* held;
  const char* repaired;
  bool warns;
};

constexpr ReformCase reforms[] = {
    {1, rec::txtSp1, "txtSp1", "1000", "999.9", true},
    {1, rec::txtSp2, "txtSp2", "-200", "-199.9", true},
    {4, rec::txtAl1HiSp, "txtAl1HiSp", "1000", "999.9", true},
    {4, rec::txtAl1LoSp, "txtAl1LoSp", "1000", "999.9", true},
    {5, rec::txtAl2HiSp, "txtAl2HiSp", "1000", "999.9", false},
    {5, rec::txtAl2LoSp, "txtAl2LoSp", "1000", "999.9", false},
    {7, rec::txtOut1DeadBand, "txtOut1DeadBand", "-5", "005.0", true},
    {7, rec::txtOut1PB, "txtOut1PB", "1000", "999.9", true},
    {7, rec::txtOut1Reset, "txtOut1Reset", "180", "0180", true},
    {6, rec::txtTAdjust, "txtTAdjust", "1000", "1000.0", false},
    {7, rec::txtOut1Rate, "txtOut1Rate", "1000", "1000.0", false},
    {8, rec::txtOut2PB, "txtOut2PB", "1000", "1000.0", false},
    {8, rec::txtOut2DeadBand, "txtOut2DeadBand", "-5", "-005.0", false},
};

TEST_F(Reform, RepairsAndCommitsWhatComesOnShow) {
  for (const auto& [tab, record, name, held, repaired, warns] : reforms) {
    SCOPED_TRACE(name);
    showTab(0);
    Memo[record].text = held;
    takeWarnings();
    showTab(tab);
    EXPECT_EQ(box(name).text(), repaired);
    EXPECT_EQ(takeWarnings().size(), warns ? 1u : 0u);
    showTab(0);
    EXPECT_EQ(Memo[record].text, repaired);
  }
}

TEST_F(Reform, BringsTheReadingsIntoTheNewFormat) {
  showTab(1);
  editor.txtSp1.userTyped("500.0");
  showTab(3);
  editor.optDpoint(2).setEnabled(true);
  host.expectBox(" Reenter setpoints values");
  editor.optDpoint(2).userClicked();
  takeWarnings();
  showTab(1);
  EXPECT_EQ(editor.txtSp1.text(), "99.99");
  EXPECT_EQ(Memo[rec::txtSp1].text, "99.99");
  EXPECT_EQ(editor.txtSp2.text(), "00.00");
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_TRUE(warnings.front().starts_with("Maximum value possible for this field is currently 99.99."));
  showTab(7);
  EXPECT_EQ(editor.txtOut1PB.text(), "20.00");
  EXPECT_EQ(editor.txtOut1DeadBand.text(), "20.00");
}

struct PointCase {
  std::size_t option;
  const char* setPoint1;
  const char* setPoint2;
  bool asks;
};

constexpr PointCase points[] = {
    {0, "9999", "9999", false}, {0, "1E999", "1E999", false}, {1, "999.9", "0", false},
    {1, "1000", "0", true},     {1, "0", "1000", true},       {1, "0", "999.9", false},
    {2, "99.99", "0", false},   {2, "100", "0", true},        {3, "9.99", "0", false},
    {3, "9.991", "0", true},    {3, "0", "9.999", true},      {3, "-500", "-500", false},
    {2, "1E999", "0", true},    {3, "x", "-1E999", false},
};

TEST_F(DecimalPoint, AsksForSetPointsThatNoLongerFit) {
  Global.WarningsOff = True;
  for (const auto& [option, setPoint1, setPoint2, asks] : points) {
    SCOPED_TRACE(std::string(setPoint1) + " " + setPoint2);
    for (TextBox* setPoint : {&editor.txtSp1, &editor.txtSp2}) setPoint->setText("0");
    editor.optDpoint(option == 0 ? 1 : 0).setValue(true);
    host.boxes.clear();
    editor.txtSp1.setText(setPoint1);
    editor.txtSp2.setText(setPoint2);
    if (asks) host.expectBox(" Reenter setpoints values");
    editor.optDpoint(option).setValue(true);
    ASSERT_EQ(host.boxes.size(), asks ? 1u : 0u);
    if (!asks) continue;
    EXPECT_EQ(host.boxes.front().text, " Reenter setpoints values");
    EXPECT_EQ(host.boxes.front().title, "Setpoints overrange");
    EXPECT_EQ(host.boxes.front().icon, Icon::none);
  }
}

TEST_F(DecimalPoint, RepairsSetPointsAndBandInItsPictureAndTheOldRange) {
  showTab(3);
  editor.optDpoint(2).setEnabled(true);
  editor.txtSp1.setText("500.0");
  host.expectBox(" Reenter setpoints values");
  editor.optDpoint(2).userClicked();
  EXPECT_EQ(editor.txtSp1.text(), "500.00");
  EXPECT_EQ(editor.txtSp2.text(), "00.00");
  EXPECT_EQ(editor.txtOut1PB.text(), "20.00");
  EXPECT_EQ(takeWarnings(), (std::vector<std::string>{setPoint1Changed, setPoint2Changed, entryChanged}));
  EXPECT_FALSE(isLoaded<frmWarning>());
}

TEST_F(DecimalPoint, IsSilentWhileASetupComesIn) {
  host.whenShown("frmRead", [&] {
    chooseFormat(0);
    Memo[rec::txtSp1].text = "5";
    for (std::int16_t tab = 0; tab < 12; ++tab) editor.loadMemo(tab);
    form<frmRead>().userClosed();
  });
  editor.cmdOpen.userClicked();
  EXPECT_TRUE(takeWarnings().empty());
  EXPECT_EQ(editor.txtSp1.text(), "0005.");
  EXPECT_EQ(Global.WarningsOff, False);
}

// The two boxes "Vi" only help the user to reckon and reach no register.
TEST_F(Entries, WhateverIsTypedTheEncodersTakeOrAnswer) {
  std::mt19937 random(6);
  Global.WarningsOff = True;
  host.toleratesBoxes = true;
  for (int round = 0; round < 1500; ++round) {
    chooseUnit(round % 5, between(random, 0, 1) == 1);
    chooseFormat(between(random, 0, 3));
    editor.loadMemo(3);
    for (const SetupBox& row : setupBoxes()) {
      if (!row.rule) continue;
      TextBox& target = *std::get<TextBox*>(controlOf(editor, row));
      target.setText(anyText(random));
      target.onValidate();
    }
    editor.reCover();
    EXPECT_EQ(registerWithoutAnswer(), "") << round;
  }
  EXPECT_TRUE(host.failures.empty());
}

}  // namespace

}  // namespace torvane
