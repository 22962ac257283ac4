// SPDX-License-Identifier: MIT
// What the user's actions on the widgets do to the controls.
#include <QAbstractItemView>
#include <QTimer>

#include "platform/RuntimeError.h"
#include "platform/qt/Bindings.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

using testing::ElementsAre;

class UserTest : public QtTest {
 protected:
  void click(const char* name) {
    auto& target = widget<QWidget>(name);
    QTest::mouseClick(&target, Qt::LeftButton, {}, QPoint(6, target.height() / 2));
  }
  void type(const char* name, const char* keys) { QTest::keyClicks(&widget<QWidget>(name), keys); }
  void clickTab(int index) {
    auto& bar = widget<QTabBar>("tabBig");
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
  }
  void clickItem(int row) {
    auto& list = widget<QListWidget>("lstKinds");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
  }
  void choose(const char* name, Qt::Key key) { QTest::keyClick(&widget<QComboBox>(name), key); }

  // A button pressed by its mnemonic stays down for a moment that people can see before it acts.
  bool pressMnemonicOfGo(const std::function<bool()>& acted) {
    QTest::keyClick(&widget<QLineEdit>("txtValue"), Qt::Key_G, Qt::AltModifier);
    return QTest::qWaitFor(acted);
  }

  std::vector<std::string> log_;
  Handler note(const char* what) {
    return [this, what] { log_.emplace_back(what); };
  }
};

TEST_F(UserTest, ClicksAButton) {
  auto& test = show();
  test.cmdGo.onClick = note("go");
  click("cmdGo");
  EXPECT_THAT(log_, ElementsAre("go"));
}

TEST_F(UserTest, PressesAButtonByItsMnemonic) {
  auto& test = show();
  test.cmdGo.onClick = note("go");
  EXPECT_TRUE(pressMnemonicOfGo([&] { return !log_.empty(); }));
  EXPECT_THAT(log_, ElementsAre("go"));
}

TEST_F(UserTest, PressesTheFocusedButtonByEnter) {
  auto& test = show();
  test.cmdEnd.onClick = note("end");
  widget<QPushButton>("cmdEnd").setFocus();
  QTest::keyClick(&widget<QPushButton>("cmdEnd"), Qt::Key_Return);
  EXPECT_THAT(log_, ElementsAre("end"));
  EXPECT_EQ(test.keys, 0);
}

TEST_F(UserTest, TicksABox) {
  auto& test = show();
  test.chkOn.onClick = note("click");
  click("chkOn");
  EXPECT_EQ(test.chkOn.value(), 1);
  click("chkOn");
  EXPECT_EQ(test.chkOn.value(), 0);
  EXPECT_THAT(log_, ElementsAre("click", "click"));
}

TEST_F(UserTest, ATickThatIsTakenBackShows) {
  auto& test = show();
  test.chkOn.onClick = [&] { test.chkOn.setValue(0); };
  click("chkOn");
  EXPECT_FALSE(widget<QCheckBox>("chkOn").isChecked());
}

TEST_F(UserTest, ChoosesAnOption) {
  auto& test = show();
  test.optKind(0).onClick = note("alpha");
  test.optKind(2).onClick = note("gamma");
  click("optKind_2");
  click("optKind_0");
  click("optKind_0");
  EXPECT_THAT(log_, ElementsAre("gamma", "alpha"));
  EXPECT_TRUE(widget<QRadioButton>("optKind_0").isChecked());
  EXPECT_FALSE(widget<QRadioButton>("optKind_2").isChecked());
}

TEST_F(UserTest, AnOptionThatIsRefusedShowsTheWholeGroupAsItWas) {
  auto& test = show();
  test.optKind(1).setValue(true);
  test.optKind(2).onClick = [&] { test.optKind(1).setValue(true); };
  click("optKind_2");
  EXPECT_TRUE(widget<QRadioButton>("optKind_1").isChecked());
  EXPECT_FALSE(widget<QRadioButton>("optKind_2").isChecked());
}

TEST_F(UserTest, ArrowKeysWalkThroughTheOptionsThatCanBeReached) {
  auto& test = show();
  test.optKind(1).setEnabled(false);
  click("optKind_0");
  QTest::keyClick(&widget<QRadioButton>("optKind_0"), Qt::Key_Down);
  EXPECT_TRUE(test.optKind(2).value());
  EXPECT_TRUE(widget<QRadioButton>("optKind_2").hasFocus());
  QTest::keyClick(&widget<QRadioButton>("optKind_2"), Qt::Key_Right);
  EXPECT_TRUE(test.optKind(0).value());
  QTest::keyClick(&widget<QRadioButton>("optKind_0"), Qt::Key_Up);
  EXPECT_TRUE(test.optKind(2).value());
}

TEST_F(UserTest, TypesIntoATextBox) {
  auto& test = show();
  test.txtValue.onChange = note("change");
  test.txtValue.onKeyPress = note("enter");
  widget<QLineEdit>("txtValue").setFocus();
  type("txtValue", "42");
  EXPECT_EQ(test.txtValue.text(), "42");
  QTest::keyClick(&widget<QLineEdit>("txtValue"), Qt::Key_Return);
  EXPECT_THAT(log_, ElementsAre("change", "change", "enter"));
}

TEST_F(UserTest, ARepairedTextShowsAndTheCursorStays) {
  auto& test = show();
  test.txtValue.setText("1234");
  test.txtValue.onChange = [&] {
    if (test.txtValue.text().find('x') != std::string::npos) test.txtValue.setText("9934");
  };
  auto& box = widget<QLineEdit>("txtValue");
  box.setFocus();
  box.setCursorPosition(1);
  type("txtValue", "x");
  EXPECT_EQ(box.text(), "9934");
  EXPECT_EQ(box.cursorPosition(), 2);
}

TEST_F(UserTest, TypesIntoATextBoxOfManyLines) {
  auto& test = show(1);
  widget<QPlainTextEdit>("txtMany").setFocus();
  type("txtMany", "ab");
  EXPECT_EQ(test.txtMany.text(), "ab");
  test.txtMany.onChange = [&] { test.txtMany.setText("fixed"); };
  type("txtMany", "c");
  EXPECT_EQ(widget<QPlainTextEdit>("txtMany").toPlainText(), "fixed");
}

TEST_F(UserTest, LeavingATextBoxRunsItsValidatorOnce) {
  auto& test = show();
  test.txtValue.onValidate = note("validate");
  widget<QLineEdit>("txtValue").setFocus();
  type("txtValue", "1");
  widget<QCheckBox>("chkOn").setFocus();
  EXPECT_THAT(log_, ElementsAre("validate"));
}

TEST_F(UserTest, TheValidatorRunsBeforeWhatTheUserTurnsTo) {
  auto& test = show();
  test.txtValue.onValidate = note("validate");
  test.cmdGo.onClick = note("go");
  widget<QLineEdit>("txtValue").setFocus();
  type("txtValue", "1");
  EXPECT_TRUE(pressMnemonicOfGo([&] { return log_.size() == 2; }));
  EXPECT_THAT(log_, ElementsAre("validate", "go"));
  type("txtValue", "2");
  click("cmdGo");
  EXPECT_THAT(log_, ElementsAre("validate", "go", "validate", "go"));
}

// A validator's warning stands until it is closed; only then does the click act.
TEST_F(UserTest, AWarningOfTheValidatorComesBeforeTheClick) {
  auto& test = show();
  test.txtValue.onValidate = [&] {
    QTimer::singleShot(0, [&] {
      log_.emplace_back("warning");
      QApplication::activeModalWidget()->close();
    });
    host_.messageBox("Repaired", "", Icon::none, Buttons::ok);
    test.txtValue.setText("7");
  };
  test.cmdGo.onClick = [&] { log_.push_back("go with " + test.txtValue.text()); };
  widget<QLineEdit>("txtValue").setFocus();
  type("txtValue", "1");
  click("cmdGo");
  EXPECT_THAT(log_, ElementsAre("warning", "go with 7"));
  EXPECT_FALSE(widget<QPushButton>("cmdGo").isDown());
}

TEST_F(UserTest, TheValidatorRunsBeforeATabChanges) {
  auto& test = show();
  test.txtValue.onValidate = [&] { log_.push_back("validate on " + std::to_string(test.tabBig.tab())); };
  test.tabBig.onClick = [&](std::int16_t) { log_.emplace_back("tab"); };
  widget<QLineEdit>("txtValue").setFocus();
  clickTab(1);
  EXPECT_THAT(log_, ElementsAre("validate on 0", "tab"));
}

TEST_F(UserTest, CodeThatHidesATextBoxRunsNoValidator) {
  auto& test = show();
  test.txtValue.onValidate = note("validate");
  widget<QLineEdit>("txtValue").setFocus();
  test.txtValue.setVisible(false);
  EXPECT_TRUE(log_.empty());
}

TEST_F(UserTest, ChoosesInAList) {
  auto& test = show(1);
  test.lstKinds.onClick = note("list");
  clickItem(1);
  EXPECT_EQ(test.lstKinds.listIndex(), 1);
  QTest::keyClick(&widget<QListWidget>("lstKinds"), Qt::Key_Down);
  EXPECT_EQ(test.lstKinds.listIndex(), 2);
  EXPECT_THAT(log_, ElementsAre("list", "list"));
}

TEST_F(UserTest, AListThatGetsTheKeyboardChoosesNothing) {
  auto& test = show(1);
  widget<QListWidget>("lstKinds").setFocus();
  EXPECT_TRUE(widget<QListWidget>("lstKinds").hasFocus());
  EXPECT_EQ(test.lstKinds.listIndex(), -1);
}

TEST_F(UserTest, ARefusedIndexIsPushedBack) {
  auto& test = show(1);
  test.lstKinds.setListIndex(0);
  test.lstKinds.onClick = [&] { test.lstKinds.setListIndex(0); };
  clickItem(2);
  EXPECT_EQ(widget<QListWidget>("lstKinds").currentRow(), 0);
  EXPECT_TRUE(widget<QListWidget>("lstKinds").item(0)->isSelected());
  test.cboBaud.setListIndex(2);
  test.cboBaud.onClick = [&] { test.cboBaud.setListIndex(2); };
  choose("cboBaud", Qt::Key_Up);
  EXPECT_EQ(widget<QComboBox>("cboBaud").currentIndex(), 2);
}

TEST_F(UserTest, TakingASelectionBackIsNoChoice) {
  auto& test = show(1);
  test.lstKinds.setListIndex(1);
  auto& list = widget<QListWidget>("lstKinds");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                    list.visualItemRect(list.item(1)).center());
  EXPECT_EQ(test.lstKinds.listIndex(), 1);
  EXPECT_TRUE(list.item(1)->isSelected());
}

TEST_F(UserTest, ChoosesInACombo) {
  auto& test = show(1);
  test.cboBaud.onClick = note("combo");
  test.cboBaud.setListIndex(0);
  log_.clear();
  choose("cboBaud", Qt::Key_Down);
  EXPECT_EQ(test.cboBaud.listIndex(), 1);
  EXPECT_EQ(test.cboBaud.text(), "600");
  EXPECT_THAT(log_, ElementsAre("combo"));
}

TEST_F(UserTest, OpeningAListIsNoticedAndSoIsChoosingTheSameAgain) {
  auto& test = show(1);
  test.cboBaud.setListIndex(1);
  test.cboBaud.onUse = note("use");
  test.cboBaud.onClick = note("click");
  auto& combo = widget<QComboBox>("cboBaud");
  combo.showPopup();
  EXPECT_THAT(log_, ElementsAre("use"));
  QTest::keyClick(combo.view(), Qt::Key_Return);
  EXPECT_THAT(log_, ElementsAre("use", "use"));
  EXPECT_EQ(test.cboBaud.listIndex(), 1);
}

TEST_F(UserTest, TypesIntoAnEditableCombo) {
  form<TestForm>().cboFree.editable = true;
  auto& test = show(1);
  auto& combo = widget<QComboBox>("cboFree");
  ASSERT_TRUE(combo.isEditable());
  QTest::keyClicks(combo.lineEdit(), "xyz");
  EXPECT_EQ(test.cboFree.text(), "xyz");
  EXPECT_EQ(test.cboFree.listCount(), 2);
  test.cboFree.setText("other");
  EXPECT_EQ(combo.currentText(), "other");
}

TEST_F(UserTest, MovesASlider) {
  auto& test = show(1);
  test.HSLevel.onChange = note("scroll");
  widget<QSlider>("HSLevel").triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(test.HSLevel.value(), 5);
  EXPECT_THAT(log_, ElementsAre("scroll"));
  test.HSLevel.onChange = [&] { test.HSLevel.setValue(2); };
  widget<QSlider>("HSLevel").triggerAction(QAbstractSlider::SliderToMaximum);
  EXPECT_EQ(widget<QSlider>("HSLevel").value(), 2);
}

TEST_F(UserTest, ClicksATab) {
  auto& test = show();
  std::int16_t previous = -1;
  test.tabBig.onClick = [&](std::int16_t tab) { previous = tab; };
  clickTab(2);
  EXPECT_EQ(test.tabBig.tab(), 2);
  EXPECT_EQ(previous, 0);
  EXPECT_EQ(widget<QStackedWidget>("tabBig_pages").currentIndex(), 2);
}

TEST_F(UserTest, ARefusedTabIsPushedBack) {
  auto& test = show();
  test.tabBig.setTabAvailable(1, false);
  clickTab(1);
  EXPECT_EQ(test.tabBig.tab(), 0);
  test.tabBig.onClick = [&](std::int16_t previous) {
    if (test.tabBig.tab() == 2) test.tabBig.setTab(previous);
  };
  clickTab(2);
  EXPECT_EQ(widget<QTabBar>("tabBig").currentIndex(), 0);
  EXPECT_EQ(widget<QStackedWidget>("tabBig_pages").currentIndex(), 0);
}

TEST_F(UserTest, AHandlerMayCloseItsOwnForm) {
  auto& test = show();
  bool wentOn = false;
  test.cmdEnd.onClick = [&] {
    unload<TestForm>();
    wentOn = true;
  };
  click("cmdEnd");
  EXPECT_TRUE(wentOn);
  EXPECT_FALSE(isLoaded<TestForm>());
  host_.yield();
  EXPECT_TRUE(host_.failures.empty());
}

TEST_F(UserTest, AValidatorMayCloseItsOwnForm) {
  auto& test = show();
  test.txtValue.onValidate = [] { unload<TestForm>(); };
  test.cmdGo.onClick = note("go");
  widget<QLineEdit>("txtValue").setFocus();
  EXPECT_TRUE(isLoaded<TestForm>());
  EXPECT_TRUE(pressMnemonicOfGo([] { return !isLoaded<TestForm>(); }));
  EXPECT_TRUE(log_.empty());
}

TEST_F(UserTest, AnErrorOfAHandlerReachesTheHost) {
  auto& test = show();
  test.cmdGo.onClick = [] { throw RuntimeError(Fault::overflow, "Overflow"); };
  click("cmdGo");
  test.cmdEnd.onClick = [] { throw std::logic_error("Odd"); };
  click("cmdEnd");
  test.chkOn.onClick = [] { throw 1; };
  click("chkOn");
  EXPECT_THAT(host_.failures, ElementsAre("Overflow", "Odd", "An unknown error has occurred"));
  EXPECT_TRUE(widget<QCheckBox>("chkOn").isChecked());
}

}  // namespace

}  // namespace torvane
