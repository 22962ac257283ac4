// SPDX-License-Identifier: MIT
// The window of a run shows every text in the end, and paints far fewer times than the texts change.
#include "platform/qt/PaintRate.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QTest>

#include "platform/qt/Layouts.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

class Paints : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

struct LiveForm : Form {
  LiveForm() : Form("frmLive", "Live") {}
  Label lblStatus{*this, "lblStatus"};
};

void buildLive(QWidget& window) {
  window.setObjectName("frmLive");
  window.setProperty("live", true);
  window.setMinimumSize(300, 100);
  auto* label = new QLabel(&window);
  label->setObjectName("lblStatus");
  label->resize(200, 40);
}

class PaintRateTest : public QtTest {
 protected:
  PaintRateTest() {
    layouts().push_back({"frmLive", buildLive});
    form_.show();
    EXPECT_TRUE(takesKeys(host_.window(form_)));
    label().installEventFilter(&paints_);
  }
  ~PaintRateTest() override {
    unloadAllForms();
    layouts().pop_back();
  }

  QLabel& label() { return *host_.window(form_).findChild<QLabel*>("lblStatus"); }
  // Changes the text again and again for so long, with a wait after each change; how often it changed.
  int change(double seconds, const std::function<void()>& wait) {
    int changes = 0;
    paints_.count = 0;
    QElapsedTimer time;
    for (time.start(); static_cast<double>(time.elapsed()) < seconds * 1000; ++changes) {
      form_.lblStatus.setCaption(std::to_string(changes));
      form_.lblStatus.refresh();
      wait();
    }
    return changes;
  }

  LiveForm& form_ = form<LiveForm>();
  Paints paints_;
};

TEST_F(PaintRateTest, AtMostSixtyTimesASecondInWaits) {
  const int changes = change(0.5, [this] { host_.idle(0.001); });
  EXPECT_GT(changes, 60);
  EXPECT_GT(paints_.count, 3);
  EXPECT_LE(paints_.count, 32);
}

TEST_F(PaintRateTest, AtMostTenTimesASecondBetweenCommands) {
  change(0.5, [this] { host_.yield(); });
  EXPECT_GT(paints_.count, 1);
  EXPECT_LE(paints_.count, 6);
}

TEST_F(PaintRateTest, TheLastTextIsShownSoonAfter) {
  const int changes = change(0.2, [this] { host_.yield(); });
  const QString last = QString::number(changes - 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return label().text() == last; }, 200)) << label().text().toStdString();
}

TEST_F(PaintRateTest, ATextThatChangesAsTheWindowGoesIsThereWhenItComesBack) {
  change(0.05, [this] { host_.yield(); });
  form_.lblStatus.setCaption("the end");
  form_.hide();
  EXPECT_EQ(label().text(), "the end");
}

}  // namespace

}  // namespace torvane
