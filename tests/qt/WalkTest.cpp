// SPDX-License-Identifier: MIT
// A user who does anything in any order, on the real windows: nothing fails, nothing hangs.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <random>

#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmWarning.h"
#include "editor/frmBigFolder.h"
#include "qt/QuickHost.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

// WALK_MOVES in the environment makes the walk longer or shorter.
int walkMoves() {
  bool given = false;
  const int moves = qEnvironmentVariableIntValue("WALK_MOVES", &given);
  return given ? moves : 1500;
}

constexpr const char* typed[] = {"",   "0", "-1", "9999.99", "1E999", "abc", "12:34", "\xC3\xA4\xE2\x82\xAC",
                                 "5:3"};

// Answers whatever comes up over the main window as soon as it is there, and notes what would end the
// program.
class Wanderer : public QuickHost {
 public:
  std::mt19937 random{7};
  std::vector<std::string> failures;

  int pick(std::size_t count) {
    return std::uniform_int_distribution<int>(0, static_cast<int>(count) - 1)(random);
  }

  void idle(double seconds) override {
    QuickHost::idle(seconds);
    if (isLoaded<frmWarning>() && form<frmWarning>().reachable()) click(*this, form<frmWarning>(), "cmdOk");
    if (isLoaded<frmHardware>() && form<frmHardware>().reachable()) useHardware();
    if (isLoaded<frmCommModeWarning>() && form<frmCommModeWarning>().reachable()) useModeWarning();
    if (isLoaded<frmPreferences>() && form<frmPreferences>().reachable()) {
      click(*this, form<frmPreferences>(), "cmdOk");
    }
    if (isLoaded<frmWizard>() && form<frmWizard>().reachable()) useWizard();
  }
  void fail(const std::string& description) override { failures.push_back(description); }

  void useSomething(Form& at) {
    const auto widgets = window(at).findChildren<QWidget*>();
    for (int tries = 0; tries < 50; ++tries) {
      QWidget* widget = widgets[pick(static_cast<std::size_t>(widgets.size()))];
      if (widget->isVisible() && widget->isEnabled() && use(*widget)) return;
    }
  }

 private:
  void useHardware() {
    auto& dialog = form<frmHardware>();
    for (int step = 0; step < 5 && dialog.reachable(); ++step) useSomething(dialog);
    if (dialog.reachable()) click(*this, dialog, pick(3) == 0 ? "cmdCancel" : "cmdOk");
  }

  // On and back, and out before it searches.
  void useWizard() {
    auto& wizard = form<frmWizard>();
    const bool beforeTheSearch = wizard.wizardPage == 3 || wizard.wizardPage == 9;
    const char* button = pick(3) == 0 ? "cmdBack" : "cmdNext";
    const bool leaves =
        beforeTheSearch || pick(6) == 0 || !widget<QWidget>(*this, wizard, button).isEnabled();
    click(*this, wizard, leaves ? "cmdCancel" : button);
  }

  // It stands beside the main window: sometimes typed into, sometimes closed, sometimes left standing.
  void useModeWarning() {
    auto& warning = form<frmCommModeWarning>();
    if (pick(3) == 0) QTest::keyClicks(&widget<QWidget>(*this, warning, "txtWarning"), "x");
    if (pick(3) == 0) click(*this, warning, "cmdCommWarning");
  }

  bool use(QWidget& widget) {
    // Quit ends the walk; runs are walked elsewhere.
    static const QSet<QString> leftAlone = {"cmdQuit", "cmdWrite", "cmdOpen"};
    if (leftAlone.contains(widget.objectName())) return false;
    if (auto* box = qobject_cast<QLineEdit*>(&widget)) {
      box->setFocus();
      box->selectAll();
      QInputMethodEvent input;
      input.setCommitString(QString::fromUtf8(typed[pick(std::size(typed))]));
      QApplication::sendEvent(box, &input);
      QTest::keyClick(box, pick(2) == 0 ? Qt::Key_Return : Qt::Key_Tab);
    } else if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
      button->click();
    } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
      if (combo->count() == 0) return false;
      const int index = pick(static_cast<std::size_t>(combo->count()));
      combo->setCurrentIndex(index);
      emit combo->activated(index);
    } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
      list->setCurrentRow(pick(static_cast<std::size_t>(list->count()) + 1) - 1);
    } else if (auto* tabs = qobject_cast<QTabBar*>(&widget)) {
      QTest::mouseClick(tabs, Qt::LeftButton, {},
                        tabs->tabRect(pick(static_cast<std::size_t>(tabs->count()))).center());
    } else {
      return false;
    }
    return true;
  }
};

TEST(Walk, OverRealWindowsFailsNowhere) {
  Wanderer user;
  setMachine(&user);
  form<frmBigFolder>();
  for (int move = 0; move < walkMoves(); ++move) {
    user.useSomething(form<frmBigFolder>());
    user.yield();
  }
  EXPECT_TRUE(isLoaded<frmBigFolder>());
  EXPECT_EQ(user.failures, std::vector<std::string>());
  for (const std::string& box : user.boxes) EXPECT_EQ(box, " Reenter setpoints values");
  unloadAllForms();
  setMachine(nullptr);
}

}  // namespace

}  // namespace torvane
