// SPDX-License-Identifier: MIT
// The wizard's test of the bridge: Terminal Server mode, version and model, and a bridge that dies on the
// way.
#include <random>

#include "tests/network/NetworkTestBench.h"

namespace torvane {

namespace {
// Terminal Server mode.

class TerminalServer : public NetworkTest {
 protected:
  TerminalServer() {
    terminal.faults.prompt = sim::terminalServerPrompt;
    host.bridges[{"192.0.2.254", 1000}] = &terminal;
    host.bridges[{"192.0.2.254", 2000}] = &bridge;
  }
  sim::Bridge terminal{unit};
};

TEST_F(TerminalServer, IsLeftForPort2000) {
  host.expectBox("Port 2000 replaced Port 1000 as needed to support proper communications.");
  test();
  EXPECT_EQ(says(), foundTorvane + "\rTorvane Temperature Meter");
  EXPECT_EQ(terminal.connections(), 1U);
  EXPECT_EQ(bridge.connections(), 1U);
  EXPECT_EQ(status.winSock1->remotePort, 2000);
  EXPECT_EQ(editor.txtTCPPort.text(), "2000");
  EXPECT_TRUE(editor.optPortNum(1).value());
  EXPECT_EQ(Memo[rec::txtTCPPort].text, "1000");
  EXPECT_EQ(host.boxes.front().icon, Icon::none);
}

TEST_F(TerminalServer, IsNotSpokenOfAtAUnitOfNoKnownModel) {
  unit.faults.answers = {{"U04", "U04"}, {"R11", "R11123456789A"}};
  test();
  EXPECT_EQ(says(), foundTorvane + "\rThe device found is not a LARKSPUR or an Torvane model");
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TerminalServer, OnBothPortsIsReported) {
  bridge.faults.prompt = sim::terminalServerPrompt;
  test();
  EXPECT_EQ(says(), connected + noDevice + terminalServer);
  EXPECT_EQ(editor.txtTCPPort.text(), "2000");
  EXPECT_FALSE(finishes());
  EXPECT_EQ(Global.DetectionDone, 0);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TerminalServer, AfterAComplaintIsReported) {
  terminal.faults.prompt.clear();
  terminal.faults.refusals = {{"?43", "*U01", 1}};
  host.expect([this] { return terminal.connections() == 2; },
              [this] { terminal.faults.prompt = sim::terminalServerPrompt; });
  test();
  EXPECT_EQ(says(), connected + noDevice + terminalServer);
  EXPECT_EQ(status.winSock1->remotePort, 2000);
  EXPECT_EQ(status.network->NetPort, 2000);
  EXPECT_EQ(editor.txtTCPPort.text(), "1000");
  EXPECT_EQ(bridge.connections(), 0U);
}

TEST_F(TerminalServer, WithNothingOnPort2000IsNoServerAtAll) {
  host.bridges.erase({"192.0.2.254", 2000});
  test();
  EXPECT_EQ(says(), noServer);
  EXPECT_EQ(editor.txtTCPPort.text(), "2000");
}

TEST_F(TerminalServer, OnPort2000BeforeAComplaintTellsThat) {
  bridge.faults.refusals = {{"?46", "*U01", 1}};
  test();
  EXPECT_EQ(says(), connected + noDevice + "Unknown device connected.  Format Error occurred");
}

// Version and model.

TEST_F(NetworkTest, AsksThriceForTheVersionAndTakesTheLast) {
  bridge.faults.refusals = {{"?43", "*U03", 2}};
  test();
  EXPECT_EQ(Global.FirmwareVersion, "1.4");
  EXPECT_TRUE(finishes());
  EXPECT_EQ(says(), foundTorvane + "\rTorvane Temperature Meter");
}

TEST_F(NetworkTest, TellsAUnitWithoutAVersion) {
  for (const char* reply : {"?43", "U02", "whatever"}) {
    unit.faults.answers = {{"U03", reply}};
    status.winSock1->close();
    test();
    EXPECT_EQ(says(), foundDevice + "\rThe device found is not an Torvane or LARKSPUR model");
    EXPECT_TRUE(finishes());
    EXPECT_EQ(Global.DetectionDone, 1);
  }
  EXPECT_EQ(bridge.unit().count("U04"), 0U);
}

TEST_F(NetworkTest, TakesTheVersionFromAnywhereInTheReply) {
  unit.faults.answers = {{"U03", "..U032.1x"}};
  test();
  EXPECT_EQ(Global.FirmwareVersion, "2.1x");
}

TEST_F(NetworkTest, TellsTheRevisionByTheVersion) {
  struct {
    const char* reply;
    std::int16_t before;
    std::int16_t after;
  } const cases[] = {{"U031.0", 0, 2}, {"U031.0", 3, 2}, {"U031.1", 0, 0}, {"U031.1", 2, 3}, {"U03x", 3, 2}};
  for (const auto& [reply, before, after] : cases) {
    unit.faults.answers = {{"U03", reply}};
    status.winSock1->close();
    status.revisionClass = before;
    test();
    EXPECT_EQ(status.revisionClass, after) << reply;
  }
}

TEST_F(NetworkTest, TellsAUnitOfNoKnownModel) {
  unit.faults.answers = {{"U04", "U04"}, {"R11", "R11123456789A"}};
  Memo[rec::txtTCPPort].text = "1000";
  test();
  EXPECT_EQ(says(), foundTorvane + "\rThe device found is not a LARKSPUR or an Torvane model");
  EXPECT_TRUE(finishes());
  EXPECT_EQ(Global.DetectionDone, 1);
  EXPECT_EQ(DeviceState.DeviceClass, -1);
  EXPECT_EQ(DeviceState.IsRkw77, True);
}

TEST_F(NetworkTest, WarnsOfAnotherRecognitionCharacter) {
  unit.faults.answers = {{"^AE", "2B00010B01"}};
  host.expectBox("Meter must be set with  \"*\" Recognition Character.");
  test();
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

// A bridge that dies.

TEST_F(NetworkTest, EndsWhereverTheBridgeDies) {
  host.toleratesBoxes = true;  // what answers nothing to "^AE" counts as set to another character
  for (int line = 1; line <= 6; ++line) {
    for (const sim::Reach reach : {sim::Reach::accepts, sim::Reach::refuses, sim::Reach::never}) {
      bridge.faults = {};
      bridge.faults.dropAt = line;
      bridge.faults.afterDrop = reach;
      status.winSock1->close();
      test();
      EXPECT_LT(seconds, 60) << line;
      EXPECT_FALSE(says().empty());
    }
  }
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(NetworkTest, EndsWithAVerdictWhateverIsAnswered) {
  host.toleratesBoxes = true;
  std::minstd_rand random(1);
  const std::string alphabet = std::string("U0134?*R2AS\x80\xff\x01 \n") + '\0';
  for (int round = 0; round < 200; ++round) {
    for (const char* command : {"U01", "U03", "U04", "R11", "^AE"}) {
      std::string noise = random() % 2 == 0 ? std::string(command) : std::string();
      for (auto length = random() % 20; length > 0; --length) noise += alphabet[random() % alphabet.size()];
      unit.faults.answers[command] = noise;
    }
    status.winSock1->close();
    test();
    EXPECT_TRUE(says().starts_with(connected)) << round;
    EXPECT_LT(seconds, 40);
  }
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(NetworkTest, AnAddressThatLeadsNowhereIsNoServer) {
  for (const char* port : {"", "abc", "-5", "65536", "99999999999"}) {
    Memo[rec::txtTCPPort].text = port;
    status.winSock1->close();
    test();
    EXPECT_EQ(says(), noServer) << port;
  }
}

}  // namespace

}  // namespace torvane
