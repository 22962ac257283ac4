// SPDX-License-Identifier: MIT
// The program's own forms in their layouts: every control has its widget, shows every change, and can be told
// apart by its mnemonic.
#include "platform/qt/Layouts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSet>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QWheelEvent>

#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmRunDetails.h"
#include "dialogs/frmSearch.h"
#include "dialogs/frmSplash.h"
#include "dialogs/frmTimedMessage.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/PictureView.h"
#include "platform/qt/RowTable.h"
#include "platform/qt/io/QtText.h"
#include "protocol/frmSerial.h"
#include "qt/TestForm.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

// A form that is bound but not loaded, so that nothing of its life runs.
template <class Kind>
class LayoutsTest : public QtTest {
 protected:
  ~LayoutsTest() override { host_.release(*form_); }

  QWidget& window() { return host_.window(*form_); }
  QWidget& widget(const Control& control) {
    return *window().template findChild<QWidget*>(shown(control.name()));
  }

  std::shared_ptr<Form> form_ = std::make_shared<Kind>();
};

using ProgramForms = testing::Types<frmBigFolder, frmHardware, frmRead, frmWrite, frmSerial, frmSplash,
                                    frmWarning, frmCommModeWarning, frmPreferences, frmTimedMessage,
                                    frmWizard, frmRunDetails, frmSearch, frmCompare, frmRecord>;
TYPED_TEST_SUITE(LayoutsTest, ProgramForms);

TYPED_TEST(LayoutsTest, FitsItsForm) {
  EXPECT_NO_THROW(this->window());
  EXPECT_FALSE(this->form_->controls.empty());
}

TYPED_TEST(LayoutsTest, ShowsStateAndTipOfEveryControl) {
  for (Control* control : this->form_->controls) {
    SCOPED_TRACE(control->name());
    const QWidget& widget = this->widget(*control);
    for (const bool on : {false, true}) {
      if (widget.property("follows").isValid()) break;  // its state is another control's
      control->setEnabled(on);
      EXPECT_EQ(widget.isEnabledTo(widget.parentWidget()), on);
      control->setVisible(on);
      EXPECT_EQ(widget.isVisibleTo(widget.parentWidget()), on);
    }
    control->setToolTip("tip");
    EXPECT_EQ(widget.toolTip(), "tip");
  }
}

TYPED_TEST(LayoutsTest, FitsALaptopsScreen) {
  EXPECT_LE(this->window().minimumSizeHint().width(), 1024);
  EXPECT_LE(this->window().minimumSizeHint().height(), 768 - 64);
  EXPECT_LE(this->window().sizeHint().width(), 1024);
}

template <class... Kinds>
bool isAny(const QWidget& widget) {
  return (... || (qobject_cast<const Kinds*>(&widget) != nullptr));
}

bool isInput(const QWidget& widget) {
  return isAny<QAbstractButton, QComboBox, QLineEdit, QListWidget, QPlainTextEdit, QSlider, QTabBar,
               RowTable>(widget);
}

TYPED_TEST(LayoutsTest, EveryInputIsReachedByKeyboardAndHasANameToSay) {
  this->window();
  for (const Control* control : this->form_->controls) {
    SCOPED_TRACE(control->name());
    const QWidget& widget = this->widget(*control);
    if (!isInput(widget) || isAny<QTabBar>(widget)) continue;
    EXPECT_TRUE(widget.focusPolicy() & Qt::TabFocus);
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const bool saysItself = button != nullptr && !button->text().isEmpty();
    EXPECT_TRUE(saysItself || !widget.accessibleName().isEmpty());
    EXPECT_NE(widget.accessibleName(), widget.objectName());
  }
}

// Where Tab alone leads, from the window back to where it has been.
QSet<const QWidget*> visitedByTab(QWidget& window) {
  QSet<const QWidget*> visited;
  window.setFocus();
  QTest::keyClick(&window, Qt::Key_Tab);
  for (QWidget* at = QApplication::focusWidget(); at != nullptr && !visited.contains(at);
       at = QApplication::focusWidget()) {
    visited.insert(at);
    QTest::keyClick(at, Qt::Key_Tab);
  }
  return visited;
}

// With everything in use, page by page.
TYPED_TEST(LayoutsTest, TabComesToEveryInputThatTheMouseReaches) {
  this->host_.show(*this->form_, false);
  QApplication::setActiveWindow(&this->window());  // no window manager does it here
  for (Control* control : this->form_->controls) {
    control->setEnabled(true);
    control->setVisible(true);
  }
  auto* pages = this->window().template findChild<QStackedWidget*>();
  const int count = pages == nullptr ? 1 : pages->count();
  int inputs = 0;
  for (int page = 0; page < count; ++page) {
    if (pages != nullptr) pages->setCurrentIndex(page);
    const auto visited = visitedByTab(this->window());
    for (const Control* control : this->form_->controls) {
      const QWidget& widget = this->widget(*control);
      if (!isInput(widget) || !widget.isVisible()) continue;
      EXPECT_TRUE(visited.contains(&widget)) << control->name();
      ++inputs;
    }
  }
  EXPECT_EQ(inputs == 0, (std::is_same_v<TypeParam, frmSplash>));
}

TYPED_TEST(LayoutsTest, TheWheelOverAClosedListABarOrTheTabsChangesNothing) {
  this->window();
  for (Control* control : this->form_->controls) {
    SCOPED_TRACE(control->name());
    QWidget& widget = this->widget(*control);
    if (!isAny<QComboBox, QSlider, QTabBar>(widget)) continue;
    widget.setFocus();
    QWheelEvent turn(QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &turn);
    EXPECT_FALSE(turn.isAccepted());
  }
}

TYPED_TEST(LayoutsTest, EveryPictureIsInTheProgram) {
  this->window();
  for (const Control* control : this->form_->controls) {
    if (const auto* picture = dynamic_cast<const Picture*>(control)) {
      EXPECT_TRUE(hasPicture(shown(picture->file()))) << picture->file();
    }
    const auto* button = dynamic_cast<const CommandButton*>(control);
    if (button != nullptr && !button->picture().empty()) {
      EXPECT_TRUE(hasPicture(shown(button->picture()))) << button->picture();
    }
  }
}

// The page of a tab strip that the widget lies on; empty outside of all pages.
QString pageOf(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const QWidget* parent = widget->parentWidget();
    if (parent != nullptr && parent->objectName().endsWith("_pages")) return widget->objectName();
  }
  return {};
}

QString mnemonicOf(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    return QKeySequence::mnemonic(button->text()).toString();
  }
  const auto* label = qobject_cast<const QLabel*>(&widget);
  return label != nullptr && label->buddy() != nullptr ? QKeySequence::mnemonic(label->text()).toString()
                                                       : QString();
}

TYPED_TEST(LayoutsTest, NoMnemonicStandsTwiceOnAPageWithTheCommands) {
  QSet<QString> used;
  QSet<QString> pages{QString()};
  const auto widgets = this->window().template findChildren<QWidget*>();
  for (const QWidget* widget : widgets) pages.insert(pageOf(widget));
  for (const QString& page : pages) {
    used.clear();
    for (const QWidget* widget : widgets) {
      const QString mnemonic = mnemonicOf(*widget);
      const QString place = pageOf(widget);
      if (mnemonic.isEmpty() || (!place.isEmpty() && place != page)) continue;
      EXPECT_FALSE(used.contains(mnemonic))
          << mnemonic.toStdString() << " of " << widget->objectName().toStdString();
      used.insert(mnemonic);
    }
  }
}

}  // namespace

}  // namespace torvane
