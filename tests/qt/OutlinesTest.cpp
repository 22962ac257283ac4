// SPDX-License-Identifier: MIT
// Boxes and buttons that can be seen on any ground.
#include "platform/qt/Outlines.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QImage>
#include <QLineEdit>
#include <QProxyStyle>
#include <QRadioButton>

#include "qt/TestForm.h"

namespace torvane {

namespace {

class OutlinesTest : public QtTest {
 protected:
  OutlinesTest() : before_(QApplication::style()->name()) {}
  ~OutlinesTest() override { QApplication::setStyle(before_); }

  // The lightest that the widget shows on this ground, without its text.
  template <class Widget>
  static int lightest(const QColor& ground) {
    QPalette palette(Qt::white, ground, Qt::white, Qt::black, Qt::darkGray, Qt::white, Qt::white, ground,
                     ground);
    QWidget page;
    page.setPalette(palette);
    Widget widget(&page);
    widget.resize(120, 40);
    page.ensurePolished();
    const QImage shown = page.grab(widget.rect()).toImage();
    int most = 0;
    for (int y = 0; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width(); ++x) most = std::max(most, qGray(shown.pixel(x, y)));
    }
    return most;
  }

 private:
  QString before_;
};

TEST_F(OutlinesTest, AreSeenOnBlack) {
  QApplication::setStyle("fusion");
  const int plain = lightest<QCheckBox>(Qt::black);
  takeOutlines();
  EXPECT_LT(plain, 64);
  EXPECT_GT(lightest<QCheckBox>(Qt::black), 100);
  EXPECT_GT(lightest<QRadioButton>(Qt::black), 100);
  EXPECT_GT(lightest<QLineEdit>(Qt::black), 100);
  EXPECT_GT(lightest<QGroupBox>(Qt::black), 100);
  EXPECT_GT(lightest<QPushButton>(Qt::black), 100);
}

TEST_F(OutlinesTest, LeaveALightGroundAndOtherStylesAlone) {
  QApplication::setStyle("fusion");
  const int plain = lightest<QCheckBox>(QColor(200, 200, 200));
  takeOutlines();
  EXPECT_EQ(lightest<QCheckBox>(QColor(200, 200, 200)), plain);
  QApplication::setStyle("windows");
  takeOutlines();
  EXPECT_EQ(qobject_cast<QProxyStyle*>(QApplication::style()), nullptr);
}

}  // namespace

}  // namespace torvane
