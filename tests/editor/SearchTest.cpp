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

TEST_F(Search, FindsNothingThatIsOutOfSightOrOutOfUse) {
  EXPECT_TRUE(lines("analog point").empty());
  EXPECT_TRUE(lines("proportional").empty());
  EXPECT_TRUE(lines("").empty());
  EXPECT_TRUE(lines("  ").empty());
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
