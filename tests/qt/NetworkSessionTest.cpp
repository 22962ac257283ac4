// SPDX-License-Identifier: MIT
// Whole sessions over the network: the real windows, a user with mouse and keyboard, a real connection, the
// simulated bridge.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <memory>
#include <string>

#include "core/Global.h"
#include "core/Memo.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmWrite.h"
#include "protocol/frmSerial.h"
#include "qt/UserSession.h"
#include "sim/TcpServer.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

class NetworkSession : public UserSession {
 protected:
  NetworkSession() : port(server.listen(0, bridge)) {
    server.start();
    user->boxes.clear();
    clickTab(*user, editor(), "tabBig", 11);
    click(*user, editor(), "optCommunicationMode_1");
    type(*user, editor(), "txtTCPIPAddress", "localhost");
    type(*user, editor(), "txtTCPPort", std::to_string(port).c_str());
    clickTab(*user, editor(), "tabBig", 1);
  }
  ~NetworkSession() override { server.stop(); }

  static void writeToUnit() {
    user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdNetwork"); });
    user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdCancel"); });
    click(*user, editor(), "cmdWrite");
  }
  static void readFromUnit() {
    user->whenShown("frmRead", [] { click(*user, form<frmRead>(), "cmdNetwork"); });
    click(*user, editor(), "cmdOpen");
  }
  std::string registerHex(const char* index) {
    return server.with([&] { return unit.registerHex(index); });
  }

  sim::Unit unit{sim::UnitSetup{}};
  sim::Bridge bridge{unit};
  sim::TcpServer server;
  int port;
};

TEST_F(NetworkSession, WhatIsTypedReachesTheUnitAndWhatTheUnitHoldsIsShown) {
  const TrueSpeed here(*user);
  type(*user, editor(), "txtSp1", "123.4");
  std::string target;
  user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdNetwork"); });
  user->then([] { return isLoaded<frmSerial>() && form<frmSerial>().lblProgress.value() > 1000; },
             [&] { target = widget<QLabel>(*user, form<frmSerial>(), "lblTarget").text().toStdString(); });
  user->whenShown("frmWrite", [] { click(*user, form<frmWrite>(), "cmdCancel"); });
  click(*user, editor(), "cmdWrite");
  EXPECT_TRUE(user->boxes.empty());
  EXPECT_EQ(target, "localhost, port " + std::to_string(port));
  EXPECT_EQ(registerHex("01"), "2004D2");

  server.with([&] { unit.setRegister("01", "200064"); });
  readFromUnit();
  EXPECT_TRUE(user->boxes.empty());
  EXPECT_EQ(widget<QLineEdit>(*user, editor(), "txtSp1").text(), "010.0");
  EXPECT_FALSE(isLoaded<frmSerial>());
}

TEST_F(NetworkSession, ASecondWriteSendsNothing) {
  writeToUnit();
  server.with([&] { unit.takeLog(); });
  writeToUnit();
  EXPECT_EQ(server.with([&] { return unit.count("W"); }), 0U);
  EXPECT_GE(server.with([&] { return unit.count("R"); }), 30U);
}

TEST_F(NetworkSession, TheWizardTestsTheBridgeAndTheUnitBehindIt) {
  clickTab(*user, editor(), "tabBig", 11);
  std::string verdict;
  user->whenShown("frmWizard", [&] {
    auto& wizard = form<frmWizard>();
    for (int turned = 0; turned < 3; ++turned) click(*user, wizard, "cmdNext");
    verdict = wizard.lblCaption.caption();
    EXPECT_EQ(wizard.cmdNext.caption(), "Finish");
    click(*user, wizard, "cmdNext");
  });
  click(*user, editor(), "cmdAutoDetect");
  EXPECT_EQ(verdict,
            "The connection with the web server was done\rFound device connected to the web server\r"
            "Found the Torvane device\rTorvane Temperature Meter");
  EXPECT_FALSE(isLoaded<frmWizard>());
  EXPECT_EQ(server.with([&] { return unit.count("U01"); }), 1U);
  EXPECT_TRUE(user->boxes.empty());
}

TEST_F(NetworkSession, ABridgeThatIsNotThereIsToldAndTheProgramStaysAlive) {
  server.with([&] { bridge.faults.reach = sim::Reach::refuses; });
  writeToUnit();
  EXPECT_EQ(user->boxes.size(), 1U);
  EXPECT_EQ(user->boxes.front(), "Failed to connnect to Relayon");
  EXPECT_TRUE(editor().visible());
}

TEST_F(NetworkSession, ABridgeThatDiesDuringAReadEndsTheReadAndNotTheProgram) {
  server.with([&] {
    bridge.faults.dropAt = 20;
    bridge.faults.afterDrop = sim::Reach::accepts;
  });
  readFromUnit();
  EXPECT_TRUE(user->boxes.empty()) << "it comes back, and nothing is lost but a try";
  EXPECT_TRUE(editor().visible());
}

}  // namespace

}  // namespace torvane
