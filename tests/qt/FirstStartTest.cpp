// SPDX-License-Identifier: MIT
// From a first start to a unit that holds its set point and is proved to: how many clicks it takes a new
// user, who goes as the guide's first page does, and how long the program lets him wait. docs/user-guide.md
// has the figures.
#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <cstdio>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "qt/QuickHost.h"
#include "sim/PseudoTerminal.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

constexpr int firstPort = 0;  // rows of the lists
constexpr int baud19200 = 6;
constexpr const char* setPoint = "123.4";
constexpr const char* setPointHex = "2004D2";

class FirstStart : public testing::Test {
 protected:
  explicit FirstStart(const sim::LineSettings& line = {}) : unit_({.line = line}) {
    setMachine(&user_);
    forget();  // what sessions before this one have left
    for (const char* key : {"CommPort", "Baud", "Parity", "Data", "Stop", "Warn"}) {
      user_.deleteSetting(std::string(program::title) + "/Persist/" + key);
    }
    for (int port = 1; port <= 10; ++port) setPort(port, port == 1 ? device() : "/nowhere");
    server_.start();
  }
  ~FirstStart() override {
    server_.stop();
    unloadAllForms();
    for (int port = 1; port <= 10; ++port) user_.deleteSetting(portKey(port));
    setMachine(nullptr);
    forget();
    EXPECT_TRUE(user_.done());
  }
  static void forget() {
    Memo.reset();
    Global.reset();
    resetModel();
  }

  static std::string portKey(int port) {
    return std::string(program::title) + "/Ports/COM " + std::to_string(port);
  }
  void setPort(int port, const std::string& path) { user_.saveSetting(portKey(port), path); }
  std::string device() const { return folder_.filePath("adapter").toStdString(); }
  // Until then no program can open it.
  void letOpen() {
    ASSERT_TRUE(QFile::link(QString::fromStdString(server_.path()), QString::fromStdString(device())));
  }

  static frmBigFolder& editor() { return form<frmBigFolder>(); }

  void start() {
    begin_ = user_.now();
    editor();
  }
  void goTo(int tab) {
    ++clicks_;
    clickTab(user_, editor(), "tabBig", tab);
  }
  void press(Form& window, const char* button) {
    ++clicks_;
    click(user_, window, button);
  }
  // One click opens the list, one chooses.
  void pick(const char* list, int row) {
    clicks_ += 2;
    choose(user_, editor(), list, row);
  }

  // Connect, and all pages of the wizard to the end of its search, and the last button.
  void connect(const char* last) {
    user_.whenShown("frmWizard", [this, last] {
      for (int page = 0; page < 4; ++page) press(form<frmWizard>(), "cmdNext");
      said_ = form<frmWizard>().lblCaption.caption();
      press(form<frmWizard>(), last);
    });
    press(editor(), "cmdAutoDetect");
  }
  void enterSetPoint() {
    goTo(tab::setpoints);
    ++clicks_;
    type(user_, editor(), "txtSp1", setPoint);
  }
  // Where the wizard has not found it the program asks what unit it is.
  void writeAndProve(bool isAsked) {
    user_.whenShown("frmWrite", [this] { press(form<frmWrite>(), "cmdSerial"); });
    if (isAsked) user_.whenShown("frmHardware", [this] { press(form<frmHardware>(), "cmdOk"); });
    user_.whenShown("frmWrite", [this] { press(form<frmWrite>(), "cmdRecord"); });
    user_.whenShown("frmRecord", [this] {
      proof_ = form<frmRecord>().lblVerdict.caption();
      seconds_ = user_.now() - begin_;
      click(user_, form<frmRecord>(), "cmdClose");
    });
    user_.whenShown("frmWrite", [this] { click(user_, form<frmWrite>(), "cmdCancel"); });
    press(editor(), "cmdWrite");
  }
  // Each box that came up took a click as well.
  void expectProved(const char* what, int clicks) {
    clicks_ += static_cast<int>(user_.boxes.size());
    std::printf("%s: %d clicks, %.0f s of waiting\n", what, clicks_, seconds_);
    EXPECT_EQ(proof_.substr(0, 5), "PASS:") << proof_;
    EXPECT_EQ(server_.with([](sim::Unit& there) { return there.registerHex("01"); }), setPointHex);
    EXPECT_LE(clicks_, clicks);
  }

  const QTemporaryDir folder_;
  QuickHost user_;
  sim::Unit unit_;
  sim::Server server_{unit_, {.checkLine = true}};
  double begin_ = 0;
  double seconds_ = 0;
  int clicks_ = 0;
  std::string said_;  // by the wizard, at the end
  std::string proof_;
};

TEST_F(FirstStart, WhereAllIsWell) {
  letOpen();
  start();
  goTo(tab::comm);
  connect("cmdNext");
  enterSetPoint();
  writeAndProve(false);
  expectProved("all well", 12);
}

// What keeps the port shut is said at the end of the search; here it lasts until then.
TEST_F(FirstStart, WhereThePortOpensForNobody) {
  start();
  goTo(tab::comm);
  connect("cmdCancel");
  EXPECT_NE(said_.find("did not find any controller"), std::string::npos) << said_;
  letOpen();
  connect("cmdNext");
  enterSetPoint();
  writeAndProve(false);
  expectProved("no right to the port", 18);
}

class FirstStartAtAnotherSpeed : public FirstStart {
 protected:
  FirstStartAtAnotherSpeed() : FirstStart({.baud = 19200}) {}
};

// The search speaks as units do when they leave the factory; the unit's own panel shows another speed.
TEST_F(FirstStartAtAnotherSpeed, WhichTheUsersReadOffThePanel) {
  letOpen();
  start();
  goTo(tab::comm);
  connect("cmdCancel");
  pick("cboCommPort", firstPort);
  pick("cboBaud", baud19200);
  enterSetPoint();
  writeAndProve(true);
  expectProved("another speed", 18);
}

}  // namespace

}  // namespace torvane
