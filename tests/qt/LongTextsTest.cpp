// SPDX-License-Identifier: MIT
// Texts of any length from a peer or a file in the real windows: none grows beyond a laptop's screen, and its
// buttons stay on it.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmRunDetails.h"
#include "dialogs/frmSearch.h"
#include "dialogs/frmTimedMessage.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/Bounds.h"
#include "platform/qt/TextLines.h"
#include "platform/qt/io/QtText.h"
#include "protocol/frmSerial.h"
#include "qt/TestForm.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

constexpr int length = 10'000;
constexpr QRect laptop(0, 0, 1024, 768);

std::string repeated(const std::string& piece) {
  std::string text;
  while (text.size() < length) text += piece;
  return text;
}

// Without a blank, with blanks, of many lines, the widest letter, no ASCII, what looks like HTML.
const std::string longTexts[] = {
    repeated("0123456789ABCDEF"),
    repeated("R01 200000 "),
    repeated("?43\r"),
    repeated("W"),
    repeated("\xC3\xA4\xE2\x82\xAC"),
    repeated("<b>&nbsp;"),
    repeated("192.0.2.254,"),
    repeated("a\r\rb \t"),
};

// All that shows a text of a peer's or a file's; what is a caption of our own can't become long.
bool mayHoldForeignText(const Control& control) {
  return dynamic_cast<const Label*>(&control) != nullptr ||
         dynamic_cast<const ListBox*>(&control) != nullptr ||
         dynamic_cast<const TextBox*>(&control) != nullptr ||
         dynamic_cast<const ComboBox*>(&control) != nullptr;
}

void fill(Control& control, const std::string& text) {
  control.setToolTip(text);
  if (auto* label = dynamic_cast<Label*>(&control)) label->setCaption(text);
  if (auto* box = dynamic_cast<TextBox*>(&control)) box->setText(text);
  if (auto* list = dynamic_cast<ListBox*>(&control)) list->addItem(text);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) combo->setText(text);
}

template <class Kind>
class LongTexts : public QtTest {
 protected:
  // A window that comes back as large as it was in an earlier test shows nothing of what a text does to it.
  LongTexts() {
    for (const char* key : {"Left", "Top", "Width", "Height", "Sized", "Maximized"}) {
      host_.deleteSetting(std::string("Torvane Configuration/Window/") + key);
    }
  }
  ~LongTexts() override { host_.release(*form_); }

  QWidget& window() { return host_.window(*form_); }

  // The window and each of its buttons that is on show; it stands in the corner of the laptop's screen.
  void expectOnScreen() {
    host_.yield();
    EXPECT_LE(window().width(), laptop.width());
    EXPECT_LE(window().height(), laptop.height());
    for (const auto* button : window().template findChildren<QAbstractButton*>()) {
      if (!button->isVisible()) continue;
      const QRect place(button->mapTo(&window(), QPoint()), button->size());
      EXPECT_TRUE(laptop.contains(place)) << button->objectName().toStdString();
    }
  }

  std::shared_ptr<Form> form_ = std::make_shared<Kind>();
};

using ProgramForms = testing::Types<frmBigFolder, frmHardware, frmRead, frmWrite, frmSerial, frmWarning,
                                    frmCommModeWarning, frmPreferences, frmTimedMessage, frmWizard,
                                    frmRunDetails, frmSearch, frmCompare, frmRecord>;
TYPED_TEST_SUITE(LongTexts, ProgramForms);

// One after the other, so that each is the only one that could widen the window, and all together.
TYPED_TEST(LongTexts, OnShowLeaveTheWindowOnTheScreen) {
  this->host_.show(*this->form_, false);
  const int width = this->window().width();
  for (const std::string& text : longTexts) {
    for (Control* control : this->form_->controls) {
      if (!mayHoldForeignText(*control)) continue;
      SCOPED_TRACE(control->name() + ": " + text.substr(0, 8));
      const bool visible = control->visible();
      control->setVisible(true);
      fill(*control, text);
      this->expectOnScreen();
      fill(*control, "");
      control->setVisible(visible);
      if (this->HasFailure()) return;
    }
  }
  EXPECT_LE(this->window().width(), std::max(width, laptop.width()));
}

TYPED_TEST(LongTexts, ThatAreThereFromTheStartLeaveTheWindowOnTheScreen) {
  for (Control* control : this->form_->controls) {
    const auto* label = this->window().template findChild<QLabel*>(shown(control->name()));
    const bool isOfOneLine = label != nullptr && !label->wordWrap();  // alone it may be long, see above
    if (mayHoldForeignText(*control) && !isOfOneLine) fill(*control, longTexts[0]);
  }
  this->form_->setCaption(longTexts[0]);
  this->host_.show(*this->form_, false);
  this->host_.yield();
  EXPECT_LE(this->window().width(), this->window().screen()->availableSize().width());
  EXPECT_LE(this->window().minimumSizeHint().width(), laptop.width());  // what it asks for there
}

TYPED_TEST(LongTexts, InATipStayInLinesThatFitTheScreenAndArePlain) {
  this->window();
  Control& control = *this->form_->controls.front();
  for (const std::string& text : longTexts) {
    control.setToolTip(text);
    const QString tip = this->window().template findChild<QWidget*>(shown(control.name()))->toolTip();
    EXPECT_LT(tip.size(), 3000);
    EXPECT_FALSE(tip.contains("<b>"));
    if (Qt::mightBeRichText(tip)) continue;
    for (const QString& line : tip.split('\n')) EXPECT_LE(line.size(), bounds::tip);
  }
}

class LongTextsOfTheStatusWindow : public LongTexts<frmSerial> {
 protected:
  frmSerial& status() { return static_cast<frmSerial&>(*form_); }
  template <class Widget>
  Widget& widget(const char* name) {
    return *window().findChild<Widget*>(name);
  }
};

// However long the replies, the window is the same to the pixel.
TEST_F(LongTextsOfTheStatusWindow, LeaveItsSizeAsItIs) {
  host_.show(status(), false);
  host_.yield();
  const QSize before = window().size();
  for (const std::string& text : longTexts) {
    status().lblStatus.setCaption("Reading Input Type...\r" + text + "Fail");
    status().lblTarget.setCaption(text);
    status().lstNarrative.addItem(text);
    expectOnScreen();
    EXPECT_EQ(window().size(), before);
  }
}

TEST_F(LongTextsOfTheStatusWindow, AreShownToABoundWithTheirEnd) {
  status().lblStatus.setCaption("Reading Input Type...\r" + longTexts[0] + "Fail");
  status().lstNarrative.addItem(longTexts[0] + "Fail");
  const QString text = widget<QLabel>("lblStatus").text();
  EXPECT_LT(text.size(), 300);
  EXPECT_TRUE(text.startsWith("Reading Input Type...\n0123456789ABCDEF"));
  EXPECT_TRUE(text.endsWith("Fail"));
  const QString row = widget<QListWidget>("lstNarrative").item(0)->text().remove(QChar(0x200B));
  EXPECT_LT(row.size(), 300);
  EXPECT_TRUE(row.endsWith("Fail"));
}

TEST(TextLinesTest, BreaksAnywhereAndEndsInDots) {
  TextLines room;
  room.setProperty("lines", 2);
  const int width = room.fontMetrics().horizontalAdvance(QString(20, QChar('W')));
  room.setText(QString(30, QChar('W')));
  QStringList lines = room.linesWithin(width);
  EXPECT_EQ(lines.join(""), room.text());
  EXPECT_EQ(lines.size(), 2);
  room.setText(QString(100, QChar('W')));
  lines = room.linesWithin(width);
  EXPECT_EQ(lines.size(), 2);
  EXPECT_TRUE(lines[1].endsWith(QChar(0x2026)) || lines[1].endsWith("..."));
  room.setText("one\ntwo\nthree");
  EXPECT_EQ(room.linesWithin(width)[0], "one");
  EXPECT_EQ(room.linesWithin(width).size(), 2);
  EXPECT_TRUE(room.linesWithin(width)[1].startsWith("two"));
  room.setText("one\ntwo");
  EXPECT_EQ(room.linesWithin(width), QStringList({"one", "two"}));
  room.setText("");
  EXPECT_EQ(room.linesWithin(width), QStringList({""}));
}

class LongTextsInBoxes : public QtTest {};

TEST_F(LongTextsInBoxes, LeaveTheBoxOnTheScreen) {
  for (const std::string& text : longTexts) {
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      host_.yield();
      EXPECT_LE(box->width(), laptop.width()) << text.substr(0, 8);
      EXPECT_LE(box->height(), laptop.height()) << text.substr(0, 8);
      box->close();
    });
    host_.messageBox(text, "", Icon::none, Buttons::ok);
  }
}

}  // namespace

}  // namespace torvane
