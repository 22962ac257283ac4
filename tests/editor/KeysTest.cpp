// SPDX-License-Identifier: MIT
// The keys of the main window.
#include <algorithm>

#include "dialogs/frmPreferences.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/VirtualPrinter.h"

namespace torvane {

namespace {

class Keys : public EditorTest {
 protected:
  void press(const char* keys) { editor.userTookShortcut(keys); }
};

TEST_F(Keys, GoThroughTheTabsInUseAndRoundTheEnds) {
  showTab(tab::rampSoak);
  ASSERT_FALSE(editor.tabBig.tabAvailable(tab::analog));
  for (const char* next : {"Ctrl+Tab", "Ctrl+PgDown"}) {
    showTab(tab::rampSoak);
    press(next);
    EXPECT_EQ(editor.tabBig.tab(), tab::comm) << next;
    press(next);
    EXPECT_EQ(editor.tabBig.tab(), tab::idCode) << next;
  }
  for (const char* back : {"Ctrl+Shift+Tab", "Ctrl+PgUp"}) {
    showTab(tab::idCode);
    press(back);
    EXPECT_EQ(editor.tabBig.tab(), tab::comm) << back;
    press(back);
    EXPECT_EQ(editor.tabBig.tab(), tab::rampSoak) << back;
  }
}

TEST_F(Keys, CommitTheTabThatTheyLeave) {
  showTab(tab::setpoints);
  editor.txtSp1.userTyped("12.5");
  press("Ctrl+Tab");
  EXPECT_EQ(Memo[rec::txtSp1].text, "12.5");
}

TEST_F(Keys, SaveUnderTheNameThatTheUserGives) {
  editor.txtSp1.userTyped("123.4");
  host.chosenFiles = {"/setup.cfg"};
  press("Ctrl+S");
  EXPECT_TRUE(host.files.contains("/setup.cfg"));
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
  press("Ctrl+S");
  EXPECT_EQ(host.files.size(), 1U) << "no name, no file";
}

TEST_F(Keys, PrintWhatTheTabShows) {
  host.paper = std::make_shared<Paper>();
  showTab(tab::setpoints);
  editor.txtSp1.userTyped("123.4");
  press("Ctrl+P");
  EXPECT_NE(host.paper->asText().find("123.4"), std::string::npos);
}

TEST_F(Keys, OpenTheChooserOfReads) {
  host.whenShown("frmRead", [] { form<frmRead>().OKButton.userClicked(); });
  press("Ctrl+O");
  EXPECT_TRUE(std::ranges::count(host.events, "show modal frmRead") == 1);
}

TEST_F(Keys, DoNothingWhileADialogIsInFront) {
  const std::int16_t before = editor.tabBig.tab();
  host.whenShown("frmPreferences", [&] {
    press("Ctrl+Tab");
    EXPECT_EQ(editor.tabBig.tab(), before);
    form<frmPreferences>().cmdOk.userClicked();
  });
  editor.cmdPref.userClicked();
}

TEST_F(Keys, OfOtherNamesAreNone) {
  const std::int16_t before = editor.tabBig.tab();
  press("Ctrl+X");
  EXPECT_EQ(editor.tabBig.tab(), before);
}

}  // namespace

}  // namespace torvane
