// SPDX-License-Identifier: MIT
// A user who does anything in any order, on any unit and over any image: the form takes it all.
#include <algorithm>
#include <cstdio>
#include <ctime>

#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

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

  // What has been left holds what its own rule would make of it.
  void expectRepaired(TextBox& box) {
    const EntryForm form{editor.formDPt(), editor.optAOutV.value()};
    for (const SetupBox& row : setupBoxes()) {
      if (!row.rule || controlOf(editor, row) != AnyControl(&box) || !box.reachable()) continue;
      EXPECT_EQ(repair(*row.rule, box.text(), form).text, box.text()) << box.name();
    }
  }

  // As a user, who reaches only what is in use.
  void touch(Control& control) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
      box->userTyped(anyText(random));
      if (pick(2) == 0) box->userPressedEnter();
      box->userLeft();
      expectRepaired(*box);
    }
    if (auto* check = dynamic_cast<CheckBox*>(&control)) check->userClicked();
    if (auto* option = dynamic_cast<OptionButton*>(&control)) option->userClicked();
    if (auto* list = dynamic_cast<ListControl*>(&control)) list->userChose(pick(list->listCount() + 1) - 1);
    if (auto* bar = dynamic_cast<ScrollBar*>(&control))
      bar->userScrolled(between(random, bar->min(), bar->max()));
    if (auto* strip = dynamic_cast<TabStrip*>(&control)) strip->userClicked(pick(12));
  }

  Control& anyOf(const Form& at) {
    return *at.controls[static_cast<std::size_t>(pick(static_cast<int>(at.controls.size())))];
  }

  // Any model, a few choices, OK more often than not.
  void useHardware() {
    host.whenShown("frmHardware", [this] {
      auto& dialog = form<frmHardware>();
      dialog.cboModel.userChose(pick(dialog.cboModel.listCount()));
      for (int step = 0; step < 8; ++step) touch(anyOf(dialog));
      (pick(3) == 0 ? dialog.cmdCancel : dialog.cmdOk).userClicked();
    });
    editor.cmdCnfg.userClicked();
    EXPECT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab()));
  }

  void press() {
    CommandButton* const buttons[] = {&editor.cmdNext, &editor.cmdPrev, &editor.cmdReset,
                                      &editor.cmdFactoryDefaults};
    const auto button = static_cast<std::size_t>(pick(std::size(buttons) + 1));
    button == std::size(buttons) ? useHardware() : buttons[button]->userClicked();
  }

  // With an option that every family has.
  void changeUnit() {
    chooseUnit(pick(5), pick(2) == 1);
    Hardware.BusMode = static_cast<std::int16_t>(pick(2));
  }

  // Often something on the page on show, so that a walk gets somewhere.
  void act() {
    const int kindOfAction = pick(20);
    if (kindOfAction == 0) return press();
    if (kindOfAction == 1) return editor.tabBig.userClicked(pick(12));
    for (int tries = 0; tries < 30; ++tries) {
      Control& control = anyOf(editor);
      if (!control.reachable()) continue;
      return touch(control);
    }
  }

  // A reading keeps the range of an old format until the new one is committed and its box is left again.
  void leaveEveryBox() {
    editor.reCover();
    for (const SetupBox& box : setupBoxes()) {
      if (box.rule) std::get<TextBox*>(controlOf(editor, box))->onValidate();
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

TEST_F(Walk, NeverFailsAndEndsWithASetupThatCanBeSent) {
  for (int seed = 1; seed <= trials(1200); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    changeUnit();
    for (int step = 0; step < 300; ++step) act();
    expectSound(seed);
    leaveEveryBox();
    editor.reCover();
    EXPECT_EQ(registerWithoutAnswer(), "") << seed;
  }
}

// Of the processor's time, so that a busy machine changes nothing; the figure is printed. Under the
// sanitizers, which slow the program down several times, it must do as well.
TEST_F(Walk, OfTenThousandActionsTakesLessThanTwoSeconds) {
  random.seed(10000);
  const std::clock_t start = std::clock();
  for (int step = 0; step < 10000; ++step) act();
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  std::printf("10000 user actions: %.0f ms\n", 1000 * seconds);
  EXPECT_LT(seconds, 2.0);
  expectSound(10000);
}

TEST_F(Walk, StartsFromAnyImage) {
  for (int seed = 1; seed <= trials(300); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    fillWildMemo(random);
    Hardware.BusMode = static_cast<std::int16_t>(pick(2));  // a wild one raises a box
    for (std::int16_t tab = 0; tab < 12; ++tab) editor.loadMemo(tab);
    for (int step = 0; step < 300; ++step) act();
    expectSound(seed);
  }
}

TEST_F(Walk, NeverShowsATabOutOfUseAfterTheHardwareButton) {
  for (int seed = 1; seed <= trials(500); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    for (int step = 0; step < 50; ++step) act();
    changeUnit();
    fitForm();
    EXPECT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab())) << seed;
  }
}

TEST_F(Walk, FindsTheSameFormAtEveryPressOfTheHardwareButtonOnATabInUse) {
  for (int seed = 1; seed <= trials(500); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    for (int step = 0; step < 50; ++step) act();
    changeUnit();
    unload<frmHardware>();  // factory defaults leave one behind, which knows nothing of the unit
    showTab(pick(7));
    if (DeviceState.MenuKind == 2) editor.cboOut1Ctrl.setListIndex(0);  // else the cycle time differs
    fitForm();
    const Looks once = looksOf(editor);
    fitForm();
    for (const auto& [name, look] : looksOf(editor)) EXPECT_EQ(look, once.at(name)) << seed << " " << name;
  }
}

TEST_F(Walk, CommitsTheSameImageTwice) {
  for (int seed = 1; seed <= trials(300); ++seed) {
    random.seed(static_cast<unsigned>(seed));
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

}  // namespace torvane
