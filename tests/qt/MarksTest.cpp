// SPDX-License-Identifier: MIT
// What is marked as an error stands in a colour that can be read on a light, a dark and a black ground, and
// follows the desktop's colours.
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <cmath>

#include "platform/qt/Ink.h"
#include "qt/TestForm.h"
#include "session/Look.h"

namespace torvane {

namespace {

double part(int level) {
  const double share = level / 255.0;
  return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * part(color.red()) + 0.7152 * part(color.green()) + 0.0722 * part(color.blue());
}

double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one) + 0.05;
  const double b = luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

class Marks : public QtTest {
 protected:
  Marks() : before_(QApplication::palette()) {}
  ~Marks() override { QApplication::setPalette(before_); }

 private:
  QPalette before_;
};

TEST_F(Marks, OfAnErrorCanBeReadOnEveryGroundAndFollowIt) {
  auto& test = show(1);
  test.lstKinds.setItemMark(1, Mark::error);
  test.lblName.setMark(Mark::error);
  auto& list = widget<QListWidget>("lstKinds");
  auto& label = widget<QLabel>("lblName");
  for (const char* look : {"", "dark", "contrast"}) {
    SCOPED_TRACE(look);
    takeLook(look);
    host_.yield();
    const QColor row = list.item(1)->foreground().color();
    EXPECT_GE(contrast(row, list.palette().color(QPalette::Base)), 4.5);
    EXPECT_NE(row, list.palette().color(QPalette::Text));
    const QColor text = label.palette().color(QPalette::WindowText);
    EXPECT_GE(contrast(text, QApplication::palette().color(QPalette::Window)), 4.5);
    EXPECT_NE(text, QApplication::palette().color(QPalette::WindowText));
    EXPECT_EQ(list.item(0)->data(Qt::ForegroundRole), QVariant());
  }
}

TEST_F(Marks, GoWhenTheyAreTakenAway) {
  auto& test = show(1);
  const QPalette before = widget<QLabel>("lblName").palette();
  test.lstKinds.setItemMark(1, Mark::error);
  test.lblName.setMark(Mark::error);
  test.lstKinds.setItemMark(1, Mark::none);
  test.lblName.setMark(Mark::none);
  EXPECT_EQ(widget<QLabel>("lblName").palette(), before);
  EXPECT_FALSE(widget<QLabel>("lblName").font().bold());
  EXPECT_EQ(widget<QListWidget>("lstKinds").item(1)->data(Qt::ForegroundRole), QVariant());
}

TEST_F(Marks, OfTheLineInViewKeepItAtTheTopOfALongList) {
  auto& test = show(1);
  for (int line = 0; line < 20; ++line) test.lstKinds.addItem("line");
  test.lstKinds.setItemMark(5, Mark::error);
  test.lstKinds.setListIndex(5);
  for (int line = 0; line < 40; ++line) test.lstKinds.addItem("line");
  auto& list = widget<QListWidget>("lstKinds");
  host_.yield();
  EXPECT_EQ(list.itemAt(2, 2), list.item(5));
}

}  // namespace

}  // namespace torvane
