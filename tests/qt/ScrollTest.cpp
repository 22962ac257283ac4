// SPDX-License-Identifier: MIT
// Windows that have less room than they want: what scrolls, and what stays on show.
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

#include "core/Global.h"
#include "dialogs/frmRead.h"
#include "editor/frmBigFolder.h"
#include "platform/qt/ButtonRow.h"
#include "protocol/frmSerial.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

class Scroll : public QtTest {
 protected:
  Scroll() { Global.WarningsOff = True; }  // its boxes are empty, since it is not loaded
  ~Scroll() override {
    host_.release(*editor_);
    Global.WarningsOff = False;
  }

  // The main window as large as this, with this page in front.
  QWidget& editor(QSize size, int page) {
    editor_->tabBig.setTab(page);
    host_.show(*editor_, false);
    QWidget& window = host_.window(*editor_);
    window.setMinimumSize(1, 1);
    window.resize(size);
    host_.yield();
    QApplication::setActiveWindow(&window);
    return window;
  }
  static bool seen(const QWidget& widget, const QWidget& window) {
    const QRect place(widget.mapTo(&window, QPoint()), widget.size());
    return window.rect().contains(place) && !widget.visibleRegion().isEmpty() &&
           widget.visibleRegion().boundingRect() == widget.rect();
  }

  std::shared_ptr<frmBigFolder> editor_ = std::make_shared<frmBigFolder>();
};

TEST_F(Scroll, TheKeyboardComesToNothingUnseen) {
  for (int page = 0; page < editor_->tabBig.tabs(); ++page) {
    QWidget& window = editor({480, 360}, page);
    window.setFocus();
    for (int step = 0; step < 40; ++step) {
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
      const QWidget& at = *window.focusWidget();
      const bool isBox = at.height() < 60 && at.width() < 300;
      if (isBox) {
        EXPECT_TRUE(seen(at, window))
            << page << ' ' << at.objectName().toStdString() << " step " << step << " at "
            << at.mapTo(&window, QPoint()).x() << ',' << at.mapTo(&window, QPoint()).y() << ' ' << at.width()
            << 'x' << at.height() << " seen " << at.visibleRegion().boundingRect().x() << ','
            << at.visibleRegion().boundingRect().y() << ' ' << at.visibleRegion().boundingRect().width()
            << 'x' << at.visibleRegion().boundingRect().height();
      }
    }
  }
}

TEST_F(Scroll, TheCommandsStayOnShowInAsManyLinesAsTheyTake) {
  for (const int width : {1100, 819, 640, 512, 400}) {
    QWidget& window = editor({width, 384}, tab::comm);
    for (const char* name : {"cmdHelp", "cmdWrite", "cmdFactoryDefaults", "cmdNext", "cmdQuit"}) {
      EXPECT_TRUE(seen(*window.findChild<QWidget*>(name), window)) << width << ' ' << name;
    }
  }
}

TEST_F(Scroll, TheGapsBetweenTheCommandsShrinkBeforeTheirRowBreaks) {
  QWidget& window = editor({1200, 700}, tab::comm);
  const auto* row = window.findChild<ButtonRow*>();
  int gaps = 0;
  for (int index = 0; index < row->count(); ++index) {
    if (row->itemAt(index)->widget() == nullptr) gaps += row->itemAt(index)->sizeHint().width();
  }
  ASSERT_GT(gaps, 30);
  const int margins = window.width() - row->geometry().width();
  for (const int lack : {0, 1, gaps / 2, gaps}) {
    const int width = row->sizeHint().width() - lack;
    EXPECT_EQ(row->heightForWidth(width), row->sizeHint().height()) << lack;
    window.resize(width + margins, 700);
    host_.yield();
    int right = 0;
    for (int index = 0; index < row->count(); ++index) {
      const QRect place = row->itemAt(index)->geometry();
      if (row->itemAt(index)->widget() == nullptr) continue;
      EXPECT_GE(place.left(), right) << lack;
      EXPECT_GE(place.width(), row->itemAt(index)->sizeHint().width()) << lack;
      right = place.right();
    }
    EXPECT_LE(right, row->geometry().right()) << lack;
  }
  EXPECT_GT(row->heightForWidth(row->sizeHint().width() - gaps - 1), row->sizeHint().height());
}

TEST_F(Scroll, TheCommandsThatGoOnInASecondLineStayTogether) {
  QWidget& window = editor({819, 600}, tab::comm);
  const auto top = [&](const char* name) { return window.findChild<QWidget*>(name)->y(); };
  ASSERT_GT(top("cmdNext"), top("cmdHelp"));
  EXPECT_EQ(top("cmdPrev"), top("cmdNext"));
  EXPECT_EQ(top("cmdQuit"), top("cmdNext"));
  EXPECT_EQ(top("cmdReset"), top("cmdHelp"));
}

TEST_F(Scroll, NothingScrollsWhereThereIsRoom) {
  QWidget& window = editor({1200, 900}, tab::comm);
  int areas = 0;
  for (const auto* area : window.findChildren<QScrollArea*>()) {
    if (!area->isVisible()) continue;
    ++areas;
    EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << area->objectName().toStdString();
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible()) << area->objectName().toStdString();
  }
  EXPECT_EQ(areas, 2);
}

// On a small screen the list gives way, so that one sees how far a run has come.
TEST_F(Scroll, TheProgressOfARunStaysOnShow) {
  const auto status = std::make_shared<frmSerial>();
  host_.show(*status, false);
  QWidget& window = host_.window(*status);
  window.setMinimumSize(1, 1);
  window.resize(512, 359);  // a screen of 1024x768 at 200 %, without the title
  host_.yield();
  EXPECT_TRUE(seen(*window.findChild<QWidget*>("lblProgress"), window));
  EXPECT_TRUE(seen(*window.findChild<QWidget*>("lblPercent"), window));
  host_.release(*status);
}

// As large as it asks to be, and after it was too small for a time.
TEST_F(Scroll, ABarGoesWhenThereIsRoom) {
  const auto dialog = std::make_shared<frmRead>();
  host_.show(*dialog, false);
  QWidget& window = host_.window(*dialog);
  const auto* area = window.findChild<QScrollArea*>("box_scroll");
  host_.yield();
  EXPECT_FALSE(area->verticalScrollBar()->isVisible());
  const QSize first = window.size();
  window.setMinimumSize(1, 1);
  window.resize(first.width(), first.height() / 2);
  host_.yield();
  EXPECT_TRUE(area->verticalScrollBar()->isVisible());
  window.resize(first);
  host_.yield();
  EXPECT_FALSE(area->verticalScrollBar()->isVisible());
  host_.release(*dialog);
}

}  // namespace

}  // namespace torvane
