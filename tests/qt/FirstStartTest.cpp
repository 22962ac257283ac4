// SPDX-License-Identifier: MIT
// From a first start to a verified unit: how many clicks it takes, and how long one waits, when all is well,
// when the port would not open, and when the unit talks at another speed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <cstdio>
#include <memory>

#include "core/Global.h"
#include "core/Memo.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "qt/QuickHost.h"
#include "sim/PseudoTerminal.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

class ClickCounter : public QObject {
 public:
  int clicks = 0;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) ++clicks;
    return false;
  }
};

class FirstStart : public testing::Test {
 protected:
  FirstStart() {
    setHost(&user_);
    for (const char* key : {"CommPort", "Baud", "Parity", "DataBits", "StopBits"}) {
      user_.deleteSetting(std::string("Torvane Configuration/Persist/") + key);
    }
    user_.saveSetting("Torvane Configuration/Persist/Warn", "True");
    for (int port = 2; port <= 10; ++port) setPort(port, "/nowhere");  // this machine's own are left alone
  }
  ~FirstStart() override {
    server_.stop();
    unloadAllForms();
    for (int port = 1; port <= 10; ++port) {
      user_.deleteSetting("Torvane Configuration/Ports/COM " + std::to_string(port));
    }
    setHost(nullptr);
    Memo.reset();
    Global = {};
  }

  void setPort(int port, const std::string& device) {
    user_.saveSetting("Torvane Configuration/Ports/COM " + std::to_string(port), device);
  }
  static frmBigFolder& editor() { return form<frmBigFolder>(); }

  void start(const std::string& device) {
    setPort(1, device);
    server_.start();
    begin_ = user_.now();
    editor();
    QApplication::instance()->installEventFilter(&counter_);
    clickTab(user_, editor(), "tabBig", tab::comm);
  }
  // Opens a list and chooses in it.
  void pick(const char* list, int row) {
    counter_.clicks += 2;
    choose(user_, editor(), list, row);
  }
  // The program asks what unit it is before it writes.
  void sayWhichUnit() {
    user_.whenShown("frmHardware", [this] { click(user_, form<frmHardware>(), "cmdOk"); });
    click(user_, editor(), "cmdCnfg");
  }
  void writeAndVerify() {
    user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdSerial"); });
    user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdRecord"); });
    user_.whenShown("frmRecord", [this] {
      verdict_ = widget<QLabel>(user_, form<frmRecord>(), "lblVerdict").text().toStdString();
      clicks_ = counter_.clicks;
      seconds_ = user_.now() - begin_;
      click(user_, form<frmRecord>(), "cmdClose");
    });
    user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdCancel"); });
    click(user_, editor(), "cmdWrite");
    EXPECT_TRUE(user_.done());
    EXPECT_EQ(verdict_.substr(0, 5), "PASS:");
  }
  void expectAtMost(const char* what, int clicks, double seconds) {
    std::printf("%s: %d clicks, %.0f s\n", what, clicks_, seconds_);
    EXPECT_LE(clicks_, clicks);
    EXPECT_LE(seconds_, seconds);
  }

  QuickHost user_;
  sim::Unit unit_{sim::UnitSetup{}};
  sim::Server server_{unit_, {.checkLine = true}};
  ClickCounter counter_;
  double begin_ = 0;
  std::string verdict_;
  int clicks_ = 0;
  double seconds_ = 0;
};

TEST_F(FirstStart, WhereAllIsWell) {
  start(server_.path());
  pick("cboCommPort", 0);
  sayWhichUnit();
  writeAndVerify();
  expectAtMost("all well", 8, 60);
}

TEST_F(FirstStart, WhereThePortWouldNotOpen) {
  start("/nowhere");
  pick("cboCommPort", 0);
  EXPECT_NE(editor().lblCommStat.caption(), "Port is available");
  setPort(1, server_.path());
  editor().cboCommPort.setListIndex(-1);
  pick("cboCommPort", 0);
  sayWhichUnit();
  writeAndVerify();
  expectAtMost("no way to the port", 10, 60);
}

TEST_F(FirstStart, WhereTheUnitTalksAtAnotherSpeed) {
  start(server_.path());
  pick("cboCommPort", 0);
  sayWhichUnit();
  choose(user_, editor(), "cboBaud", 6);  // as it was left for another unit
  user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdSerial"); });
  user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdCancel"); });
  click(user_, editor(), "cmdWrite");
  EXPECT_EQ(user_.boxes.size(), 1U);
  counter_.clicks += static_cast<int>(user_.boxes.size());
  user_.whenShown("frmWizard", [this] {
    for (int page = 0; page < 5; ++page) click(user_, form<frmWizard>(), "cmdNext");
  });
  click(user_, editor(), "cmdAutoDetect");
  writeAndVerify();
  expectAtMost("wrong speed", 18, 120);
}

}  // namespace

}  // namespace torvane
