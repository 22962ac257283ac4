// SPDX-License-Identifier: MIT
// Search in the setup: what is found, and the way there.
#include <algorithm>

#include "core/IndexWords.h"
#include "dialogs/frmSearch.h"
#include "editor/SetupSearch.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

class Search : public EditorTest {
 protected:
  std::vector<std::string> lines(std::string_view words) {
    std::vector<std::string> all;
    for (const FoundBox& each : searchSetup(editor, words)) all.push_back(each.line);
    return all;
  }
};

TEST_F(Search, FindsABoxWithItsTabAndWhatStandsInIt) {
  const auto found = lines("dead");
  EXPECT_TRUE(std::ranges::count(found, "Out1: Dead band: 020.0") == 1);
  EXPECT_EQ(lines("DEAD band out1").size(), 1U) << "all words, in any order and case";
  EXPECT_EQ(lines("dead xband").size() + lines("xdead").size(), 0U) << "each word from its first letter on";
}

// One box of each kind, and what stands in it before and after a change. The label beside a box comes first,
// then its own caption, then its tip up to the comma.
TEST_F(Search, ReadsEveryKindOfBox) {
  const auto expectLine = [this](const char* words, const char* line) {
    const std::vector<std::string> found = lines(words);
    EXPECT_EQ(std::ranges::count(found, line), 1) << line << ::testing::PrintToString(found);
  };
  expectLine("filter", "Reading: Filter constant: 4");
  editor.lstFiltConst.setListIndex(5);
  expectLine("filter", "Reading: Filter constant: 32");
  expectLine("temperature unit", "Reading: Temperature unit: F");
  expectLine("decimal point", "Reading: Decimal point xxx.x: chosen");
  expectLine("celsius", "Reading: Temperature unit: F");
  expectLine("alarm control", "Alarm 1: Control: Absolute");
  expectLine("deviation", "Setpoints: Setpoint 2 is a deviation from setpoint 1: off");
  editor.chkSPDeviation.setValue(1);
  expectLine("deviation", "Setpoints: Setpoint 2 is a deviation from setpoint 1: on");
  expectLine("thermocouples", "Input type: Thermocouples: chosen");
  expectLine("rtd", "Input type: RTD: not chosen");
  expectLine("color", "Setpoints: Color of the display while no alarm is active: Green");
  editor.HSOut1High.setValue(57);
  expectLine("highest", "Out1: Highest output: 57");
  expectLine("cycle time out1", "Out1: Cycle time: 4");
}

TEST_F(Search, FindsABoxByTheFrameAroundIt) {
  const std::vector<std::string> found = lines("protection full");
  EXPECT_EQ(found, std::vector<std::string>{"ID code: Full: not chosen"});
}

TEST_F(Search, AddsNothingToABoxWithoutAFrame) {
  EXPECT_EQ(lines("action out1"), std::vector<std::string>{"Out1: Action: Reverse"});
  EXPECT_EQ(lines("action out1 x"), std::vector<std::string>());
}

TEST_F(Search, FindsABoxByOtherWordsForIt) {
  EXPECT_EQ(lines("hysteresis out1"), lines("dead band out1"));
  EXPECT_EQ(lines("password"), lines("id code"));
}

// A word of the index that finds nothing would be one that nobody wants.
TEST_F(Search, EveryWordOfTheIndexIsOfSomethingInTheSetup) {
  std::string all;
  for (const Control* control : editor.controls) {
    all += control->toolTip() + " ";
    if (const auto* captioned = dynamic_cast<const CaptionedControl*>(control))
      all += captioned->caption() + " ";
  }
  for (const IndexEntry& entry : indexEntries()) {
    EXPECT_NE(lowerCase(all).find(entry.term), std::string::npos) << entry.term;
    EXPECT_EQ(lowerCase(entry.term), entry.term);
  }
}

TEST_F(Search, EveryTermOfTheIndexFindsABoxWhereAllIsInUse) {
  for (Control* control : editor.controls) control->setVisible(true);
  for (int tab = 0; tab < editor.tabBig.tabs(); ++tab) editor.tabBig.setTabAvailable(tab, true);
  for (const IndexEntry& entry : indexEntries()) EXPECT_FALSE(lines(entry.term).empty()) << entry.term;
}

TEST_F(Search, FindsNothingThatIsOutOfSightOrOutOfUse) {
  EXPECT_TRUE(lines("analog point").empty());
  EXPECT_TRUE(lines("proportional").empty());
  EXPECT_TRUE(lines("").empty());
  EXPECT_TRUE(lines("  ").empty());
  EXPECT_FALSE(lines("on/off band").empty());
  EXPECT_TRUE(lines("on/offdead").empty()) << "no word of two pieces";
}

TEST_F(Search, GoesToTheBoxByEnter) {
  int focused = 0;
  editor.txtOut1DeadBand.onFocus = [&focused] { ++focused; };
  host.whenShown("frmSearch", [] {
    form<frmSearch>().txtSearch.userTyped("dead out1");
    form<frmSearch>().txtSearch.userPressedEnter();
  });
  editor.userTookShortcut("Ctrl+F");
  EXPECT_EQ(editor.tabBig.tab(), tab::out1);
  EXPECT_EQ(focused, 1);
  EXPECT_FALSE(isLoaded<frmSearch>());
}

TEST_F(Search, BeginsUnderItsTitleWithNothingToGoTo) {
  host.whenShown("frmSearch", [] {
    auto& dialog = form<frmSearch>();
    EXPECT_EQ(dialog.caption(), "Search");
    EXPECT_EQ(dialog.lstFound.listCount(), 0);
    EXPECT_FALSE(dialog.cmdGo.enabled());
    dialog.cmdClose.userClicked();
  });
  editor.userTookShortcut("Ctrl+F");
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(Search, WithoutAHitStaysWhereItIs) {
  const std::int16_t before = editor.tabBig.tab();
  host.whenShown("frmSearch", [] {
    auto& dialog = form<frmSearch>();
    dialog.txtSearch.userTyped("no such thing");
    EXPECT_FALSE(dialog.cmdGo.enabled());
    dialog.txtSearch.userPressedEnter();
    dialog.cmdClose.userClicked();
  });
  editor.userTookShortcut("Ctrl+F");
  EXPECT_EQ(editor.tabBig.tab(), before);
}

}  // namespace

}  // namespace torvane
