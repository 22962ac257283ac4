// SPDX-License-Identifier: MIT
// What the widgets show of the controls: every aspect of every control.
#include "platform/qt/Bindings.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

class BinderTest : public QtTest {
 protected:
  QStringList itemsOf(const QListWidget& list) {
    QStringList items;
    for (int row = 0; row < list.count(); ++row) items << list.item(row)->text();
    return items;
  }
  QStringList itemsOf(const QComboBox& list) {
    QStringList items;
    for (int row = 0; row < list.count(); ++row) items << list.itemText(row);
    return items;
  }
};

TEST_F(BinderTest, ShowsWhatTheControlsHoldAtFirst) {
  auto& test = show();
  EXPECT_EQ(host_.window(test).windowTitle(), "Test");
  EXPECT_EQ(widget<QLabel>("lblName").text(), "&Name");
  EXPECT_EQ(widget<QPushButton>("cmdGo").text(), "Be&gin");
  EXPECT_EQ(widget<QPushButton>("cmdEnd").text(), "&End");
  EXPECT_EQ(widget<QGroupBox>("fraGroup").title(), "Group");
  EXPECT_EQ(widget<QRadioButton>("optKind_0").text(), "&Alpha");
  EXPECT_FALSE(widget<QRadioButton>("optKind_0").isChecked());
  EXPECT_EQ(widget<QCheckBox>("chkOn").toolTip(), "Turns it on");
  EXPECT_EQ(widget<QTabBar>("tabBig").tabText(2), "Third");
  EXPECT_EQ(itemsOf(widget<QListWidget>("lstKinds")), QStringList({"one", "two", "three"}));
  EXPECT_EQ(itemsOf(widget<QComboBox>("cboBaud")), QStringList({"300", "600", "1200"}));
  EXPECT_EQ(widget<QSlider>("HSLevel").minimum(), 2);
  EXPECT_EQ(widget<QSlider>("HSLevel").maximum(), 9);
  EXPECT_EQ(widget<QSlider>("HSLevel").value(), 4);
  EXPECT_EQ(widget<QProgressBar>("prgRun").maximum(), 200);
  EXPECT_EQ(widget<PictureView>("imgUnit").picture(), "imgMicro");
}

TEST_F(BinderTest, EveryControlShowsItsOwnStateAndTip) {
  auto& test = show();
  for (Control* control : test.controls) {
    SCOPED_TRACE(control->name());
    auto& shownBy = widget<QWidget>(control->name().c_str());
    if (shownBy.property("follows").isValid()) continue;
    control->setEnabled(false);
    EXPECT_FALSE(shownBy.isEnabledTo(shownBy.parentWidget()));
    control->setEnabled(true);
    EXPECT_TRUE(shownBy.isEnabledTo(shownBy.parentWidget()));
    control->setVisible(false);
    EXPECT_FALSE(shownBy.isVisibleTo(shownBy.parentWidget()));
    control->setVisible(true);
    EXPECT_TRUE(shownBy.isVisibleTo(shownBy.parentWidget()));
    control->setToolTip("About it");
    EXPECT_EQ(shownBy.toolTip(), "About it");
  }
}

TEST_F(BinderTest, ADisabledFrameLeavesTheStatesOfItsContentsAlone) {
  auto& test = show();
  test.fraGroup.setEnabled(false);
  const auto& box = widget<QCheckBox>("chkOn");
  EXPECT_FALSE(box.isEnabled());
  EXPECT_TRUE(box.isEnabledTo(box.parentWidget()));
  test.chkOn.setEnabled(false);
  test.fraGroup.setEnabled(true);
  EXPECT_FALSE(box.isEnabled());
}

TEST_F(BinderTest, WhatHidesKeepsItsRoom) {
  auto& test = show();
  const int before = widget<QLineEdit>("txtValue").y();
  test.chkOn.setVisible(false);
  test.optKind(1).setVisible(false);
  host_.yield();
  EXPECT_EQ(widget<QLineEdit>("txtValue").y(), before);
}

TEST_F(BinderTest, FramesThatTakeTurnsLieOnOnePlace) {
  auto& test = show(2);
  test.fraFirst.setVisible(false);
  host_.yield();
  EXPECT_EQ(widget<QGroupBox>("fraFirst").geometry(), widget<QGroupBox>("fraSecond").geometry());
  EXPECT_EQ(widget<QGroupBox>("fraSecond").title(), "");
}

TEST_F(BinderTest, FollowersGoWithTheirControl) {
  auto& test = show();
  const auto& unit = widget<QLabel>("text_value");
  test.txtValue.setEnabled(false);
  EXPECT_FALSE(unit.isEnabled());
  test.txtValue.setVisible(false);
  EXPECT_FALSE(unit.isVisible());
  test.txtValue.setVisible(true);
  EXPECT_TRUE(unit.isVisible());
}

TEST_F(BinderTest, CaptionsFollow) {
  auto& test = show();
  test.setCaption("Other");
  EXPECT_EQ(host_.window(test).windowTitle(), "Other");
  test.lblName.setCaption("No such letter: N");
  EXPECT_EQ(widget<QLabel>("lblName").text(), "&No such letter: N");
  test.cmdGo.setCaption("Write");
  EXPECT_EQ(widget<QPushButton>("cmdGo").text(), "Write");
  test.fraGroup.setCaption("Set");
  EXPECT_EQ(widget<QGroupBox>("fraGroup").title(), "Set");
  test.chkOn.setCaption("Off");
  EXPECT_EQ(widget<QCheckBox>("chkOn").text(), "&Off");
  test.optKind(2).setCaption("Delta");
  EXPECT_EQ(widget<QRadioButton>("optKind_2").text(), "Delta");
}

TEST_F(BinderTest, LabelsShowBytesOfAnyKindAsPlainText) {
  auto& test = show();
  const auto& label = widget<QLabel>("lblGround");
  test.lblGround.setCaption("a\r\nb\rc\nd");
  EXPECT_EQ(label.text(), "a\nb\nc\nd");
  test.lblGround.setCaption("\xB0");
  EXPECT_EQ(label.text(), QString(QChar(0xB0)));
  test.lblGround.setCaption("\xC2\xB0");
  EXPECT_EQ(label.text(), QString(QChar(0xB0)));
  test.lblGround.setCaption(std::string_view("x\0y", 3));
  EXPECT_EQ(label.text(), QString("x%1y").arg(QChar(QChar::ReplacementCharacter)));
  test.lblGround.setCaption("<b>R07</b>");
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  EXPECT_EQ(label.text(), "<b>R07</b>");
}

TEST_F(BinderTest, ALabelsGroundCarriesReadableText) {
  auto& test = show();
  const auto& label = widget<QLabel>("lblGround");
  EXPECT_FALSE(label.autoFillBackground());
  test.lblGround.setBackColor(255);
  EXPECT_TRUE(label.autoFillBackground());
  EXPECT_EQ(label.palette().color(QPalette::Window), QColor(255, 0, 0));
  EXPECT_EQ(label.palette().color(QPalette::WindowText).rgb(), QColor(Qt::black).rgb());
  test.lblGround.setBackColor(65280);
  EXPECT_EQ(label.palette().color(QPalette::Window), QColor(0, 255, 0));
  EXPECT_EQ(label.palette().color(QPalette::WindowText).rgb(), QColor(Qt::black).rgb());
  test.lblGround.setBackColor(0x800000);
  EXPECT_EQ(label.palette().color(QPalette::Window), QColor(0, 0, 128));
  EXPECT_EQ(label.palette().color(QPalette::WindowText).rgb(), QColor(Qt::white).rgb());
}

TEST_F(BinderTest, ValuesFollow) {
  auto& test = show();
  test.chkOn.setValue(-1);
  EXPECT_TRUE(widget<QCheckBox>("chkOn").isChecked());
  test.chkOn.setValue(0);
  EXPECT_FALSE(widget<QCheckBox>("chkOn").isChecked());
  test.optKind(1).setValue(true);
  test.optKind(2).setValue(true);
  EXPECT_FALSE(widget<QRadioButton>("optKind_1").isChecked());
  EXPECT_TRUE(widget<QRadioButton>("optKind_2").isChecked());
  test.optKind(2).setValue(false);
  EXPECT_FALSE(widget<QRadioButton>("optKind_2").isChecked());
  test.HSLevel.setValue(9);
  EXPECT_EQ(widget<QSlider>("HSLevel").value(), 9);
  test.prgRun.setValue(50);
  EXPECT_EQ(widget<QProgressBar>("prgRun").value(), 50);
  EXPECT_FALSE(widget<QProgressBar>("prgRun").isTextVisible());
  test.txtValue.setText("12.5");
  EXPECT_EQ(widget<QLineEdit>("txtValue").text(), "12.5");
  test.txtMany.setText("one\rtwo");
  EXPECT_EQ(widget<QPlainTextEdit>("txtMany").toPlainText(), "one\ntwo");
}

TEST_F(BinderTest, ListsFollow) {
  auto& test = show(1);
  auto& list = widget<QListWidget>("lstKinds");
  test.lstKinds.setListIndex(2);
  EXPECT_EQ(list.currentRow(), 2);
  test.lstKinds.addItem("four");
  EXPECT_EQ(itemsOf(list), QStringList({"one", "two", "three", "four"}));
  EXPECT_EQ(list.currentRow(), 2);
  test.lstKinds.removeItem(2);
  EXPECT_EQ(itemsOf(list), QStringList({"one", "two", "four"}));
  EXPECT_TRUE(list.selectedItems().empty());
  test.lstKinds.clear();
  EXPECT_EQ(list.count(), 0);
}

TEST_F(BinderTest, CombosFollow) {
  auto& test = show(1);
  auto& combo = widget<QComboBox>("cboBaud");
  EXPECT_EQ(combo.currentIndex(), -1);
  test.cboBaud.setListIndex(1);
  EXPECT_EQ(combo.currentText(), "600");
  test.cboBaud.setListIndex(-1);
  test.cboBaud.setText("unselect");
  EXPECT_EQ(combo.currentIndex(), -1);
  EXPECT_EQ(combo.placeholderText(), "unselect");
  test.cboBaud.setListIndex(0);
  EXPECT_EQ(combo.currentText(), "300");
  EXPECT_EQ(combo.placeholderText(), "");
  test.cboBaud.clear();
  EXPECT_EQ(combo.count(), 0);
}

TEST_F(BinderTest, TabsFollowEvenToAPageThatCannotBeChosen) {
  auto& test = show();
  const auto& bar = widget<QTabBar>("tabBig");
  const auto& pages = widget<QStackedWidget>("tabBig_pages");
  test.tabBig.setTabAvailable(2, false);
  EXPECT_FALSE(bar.isTabEnabled(2));
  test.tabBig.setTab(2);
  EXPECT_EQ(bar.currentIndex(), 2);
  EXPECT_EQ(pages.currentIndex(), 2);
  EXPECT_TRUE(widget<QCheckBox>("chkLast").isEnabled());
  test.tabBig.setTab(1);
  test.tabBig.setTabAvailable(1, false);
  EXPECT_EQ(bar.currentIndex(), 1);
  test.tabBig.setTabAvailable(1, true);
  EXPECT_TRUE(bar.isTabEnabled(1));
}

TEST_F(BinderTest, ShowingRaisesNothing) {
  auto& test = form<TestForm>();
  int raised = 0;
  const Handler count = [&] { ++raised; };
  test.chkOn.onClick = test.lstKinds.onClick = test.cboBaud.onClick = test.HSLevel.onChange = count;
  test.txtValue.onChange = test.txtMany.onChange = test.txtValue.onValidate = test.optKind(0).onClick = count;
  test.tabBig.onClick = [&](std::int16_t) { ++raised; };
  show();
  EXPECT_EQ(raised, 0);
  test.lstKinds.addItem("x");
  test.cboBaud.addItem("x");
  test.tabBig.setTabAvailable(0, false);
  EXPECT_EQ(raised, 0);
}

TEST_F(BinderTest, ColumnsGiveWidthsThatGrowWithTheFont) {
  show();
  auto& box = widget<QLineEdit>("txtValue");
  const int digit = box.fontMetrics().horizontalAdvance('0');
  EXPECT_GE(box.width(), 6 * digit);
  EXPECT_LE(box.width(), 6 * digit + 3 * digit);
  const int before = box.width();
  QFont larger = box.window()->font();
  larger.setPointSizeF(larger.pointSizeF() * 2);
  box.window()->setFont(larger);
  host_.yield();
  EXPECT_GT(box.width(), before * 3 / 2);
}

TEST_F(BinderTest, RefreshPaintsInTheNextWait) {
  auto& test = show();
  struct Paints : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++count;
      return false;
    }
    int count = 0;
  } paints;
  widget<QLabel>("lblGround").installEventFilter(&paints);
  test.lblGround.setCaption("Now");
  EXPECT_EQ(paints.count, 0);
  test.lblGround.refresh();
  host_.yield();
  EXPECT_EQ(paints.count, 1);
}

}  // namespace

}  // namespace torvane
