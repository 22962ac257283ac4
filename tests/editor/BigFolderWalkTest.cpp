// SPDX-License-Identifier: MIT
// A user who does anything in any order, on any unit and over any image: the form takes it all.
#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"

namespace {

constexpr const char* typed[] = {
    "",     "0",        "-1",       "1.5",   "9999",          "1E999",  "-1E308", "&HFFFF",
    "abc",  "12:34",    "1000",     "2000",  "0.05",          ".",      "-",      "1,5",
    "  7 ", "\xC3\xA4", "\xFF\xFE", "99:99", "4711 and more", "1e-320", "+5",     "00000000000000001"};

class Walk : public EditorTest {
 protected:
  std::mt19937 random{1};

  Walk() {
    host.toleratesBoxes = true;
    host.whenever("frmWarning", [this] {
      if (pick(4) == 0) form<frmWarning>().chkWarning.userClicked();
      form<frmWarning>().cmdOk.userClicked();
    });
  }

  int pick(int count) { return between(random, 0, count - 1); }

  // As a user, who reaches only what is in use.
  void touch(Control& control) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
      box->userTyped(typed[pick(std::size(typed))]);
      box->userPressedEnter();
      box->userLeft();
    }
    if (auto* check = dynamic_cast<CheckBox*>(&control)) check->userClicked();
    if (auto* option = dynamic_cast<OptionButton*>(&control)) option->userClicked();
    if (auto* list = dynamic_cast<ListControl*>(&control)) list->userChose(pick(list->listCount() + 1) - 1);
    if (auto* bar = dynamic_cast<ScrollBar*>(&control))
      bar->userScrolled(between(random, bar->min(), bar->max()));
    if (auto* strip = dynamic_cast<TabStrip*>(&control)) strip->userClicked(pick(12));
  }

  void press() {
    CommandButton* const buttons[] = {&editor.cmdNext, &editor.cmdPrev, &editor.cmdReset,
                                      &editor.cmdFactoryDefaults};
    const auto button = static_cast<std::size_t>(pick(std::size(buttons) + 1));
    button == std::size(buttons) ? fitForm() : buttons[button]->userClicked();
  }

  void changeUnit() { chooseUnit(pick(5), pick(2) == 1); }

  // Often something on the page on show, so that a walk gets somewhere.
  void act() {
    const int kindOfDeed = pick(20);
    if (kindOfDeed == 0) return press();
    if (kindOfDeed == 1) return editor.tabBig.userClicked(pick(12));
    for (int tries = 0; tries < 30; ++tries) {
      Control& control =
          *editor.controls[static_cast<std::size_t>(pick(static_cast<int>(editor.controls.size())))];
      if (!control.reachable()) continue;
      return touch(control);
    }
  }

  void expectSound(int seed) {
    EXPECT_LE(mostOptionsSet(editor), 1) << seed;
    EXPECT_TRUE(host.failures.empty()) << seed;
    for (const Box& box : host.boxes) EXPECT_EQ(box.title, "Setpoints overrange") << seed;
    EXPECT_TRUE(isLoaded<frmBigFolder>()) << seed;
    host.failures.clear();
    host.boxes.clear();
    Global.WarningsOff = False;
  }
};

TEST_F(Walk, NeverFailsAndLeavesOneOptionSetAtMost) {
  for (unsigned seed = 1; seed <= 2000; ++seed) {
    random.seed(seed);
    changeUnit();
    for (int step = 0; step < 300; ++step) act();
    expectSound(static_cast<int>(seed));
  }
}

TEST_F(Walk, StartsFromAnyImage) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    random.seed(seed);
    fillWildMemo(random);
    Hardware.BusMode = static_cast<std::int16_t>(pick(2));  // a wild one is told in a box
    for (std::int16_t tab = 0; tab < 12; ++tab) editor.loadMemo(tab);
    for (int step = 0; step < 300; ++step) act();
    expectSound(static_cast<int>(seed));
  }
}

TEST_F(Walk, NeverShowsATabOutOfUseBehindTheHardwareButton) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    random.seed(seed);
    for (int step = 0; step < 50; ++step) act();
    changeUnit();
    fitForm();
    EXPECT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab())) << seed;
  }
}

TEST_F(Walk, FindsTheSameFormAtEveryPressOfTheHardwareButtonOnATabInUse) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    random.seed(seed);
    for (int step = 0; step < 50; ++step) act();
    changeUnit();
    showTab(pick(7));
    fitForm();
    const Looks once = looksOf(editor);
    fitForm();
    EXPECT_EQ(looksOf(editor), once) << seed;
  }
}

TEST_F(Walk, CommitsTheSameImageTwice) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    random.seed(seed);
    for (int step = 0; step < 100; ++step) act();
    editor.reCover();
    std::vector<MemoField> once;
    for (int index = 0; index < MemoArray::count; ++index) once.push_back(Memo[index]);
    editor.reCover();
    for (int index = 0; index < MemoArray::count; ++index) {
      EXPECT_EQ(Memo[index], once[static_cast<std::size_t>(index)]) << seed << " " << index;
    }
  }
}

}  // namespace
