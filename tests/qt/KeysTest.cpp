// SPDX-License-Identifier: MIT
// Keys and the keyboard's place in the real windows.
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>

#include "core/Global.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

class KeysInWindows : public QtTest {
 protected:
  KeysInWindows() { Global.WarningsOff = True; }
  ~KeysInWindows() override {
    host_.release(*editor_);
    Global = {};
  }

  // The main window, bound but not loaded, on show.
  QWidget& window() {
    QWidget& made = host_.window(*editor_);
    if (!editor_->visible()) {
      editor_->show();
      EXPECT_TRUE(takesKeys(made));
    }
    return made;
  }
  void press(Qt::Key key, Qt::KeyboardModifiers with) {
    QTest::keyClick(window().focusWidget() != nullptr ? window().focusWidget() : &window(), key, with);
  }

  std::shared_ptr<frmBigFolder> editor_ = std::make_shared<frmBigFolder>();
};

TEST_F(KeysInWindows, ChangeTheTab) {
  window();
  editor_->tabBig.setTab(0);
  press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(editor_->tabBig.tab(), 1);
  press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(editor_->tabBig.tab(), 2);
  press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(editor_->tabBig.tab(), 1);
  press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(editor_->tabBig.tab(), 0);
}

TEST_F(KeysInWindows, GoWithATabChangeToSomethingThatShowsIt) {
  auto& pages = *window().findChild<QStackedWidget*>("tabBig_pages");
  editor_->tabBig.setTab(tab::setpoints);
  auto& box = *window().findChild<QLineEdit*>("txtSp1");
  box.setFocus();
  ASSERT_EQ(window().focusWidget(), &box);
  for (int step = 0; step < 24; ++step) {
    press(Qt::Key_Tab, Qt::ControlModifier);
    QWidget* keyboard = window().focusWidget();
    ASSERT_NE(keyboard, nullptr) << step;
    EXPECT_TRUE(keyboard->isVisible() && keyboard->isEnabled()) << keyboard->objectName().toStdString();
    EXPECT_TRUE(pages.currentWidget()->isAncestorOf(keyboard) || qobject_cast<QTabBar*>(keyboard) != nullptr)
        << keyboard->objectName().toStdString();
    EXPECT_TRUE(window().testAttribute(Qt::WA_KeyboardFocusChange)) << "the focus is drawn";
  }
}

TEST_F(KeysInWindows, StayOnNextWhileTheUserPressesIt) {
  auto& next = *window().findChild<QPushButton*>("cmdNext");
  next.setFocus();
  editor_->tabBig.setTab(5);
  EXPECT_TRUE(next.hasFocus());
}

// A letter with Alt must not put a whole setup away.
TEST_F(KeysInWindows, LeaveFactoryDefaultsAlone) {
  EXPECT_FALSE(window().findChild<QPushButton*>("cmdFactoryDefaults")->text().contains('&'));
  const int discard = window().findChild<QPushButton*>("cmdReset")->x();
  const int defaults = window().findChild<QPushButton*>("cmdFactoryDefaults")->x();
  EXPECT_LT(defaults, discard);
  EXPECT_GT(discard - defaults, 3 * window().findChild<QPushButton*>("cmdFactoryDefaults")->height());
}

TEST_F(KeysInWindows, PressNoButtonOfTheWriteChooserByEnterBeforeOneIsChosen) {
  auto& chooser = form<frmWrite>();
  std::vector<std::string> pressed;
  for (CommandButton* each : {&chooser.cmdFile, &chooser.cmdPrint, &chooser.cmdSerial, &chooser.cmdNetwork,
                              &chooser.cmdCompare, &chooser.cmdPutBack, &chooser.cmdCancel}) {
    each->onClick = [&pressed, each] { pressed.push_back(each->name()); };
  }
  chooser.show();
  QWidget& dialog = host_.window(chooser);
  ASSERT_TRUE(takesKeys(dialog));
  QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
  EXPECT_TRUE(pressed.empty());
  QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab);
  QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
  EXPECT_EQ(pressed.size(), 1U);
}

}  // namespace

}  // namespace torvane
