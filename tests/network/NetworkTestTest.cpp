// SPDX-License-Identifier: MIT
// The wizard's test of the bridge and of the unit behind it: the good way, and what the first question meets.
#include "tests/network/NetworkTestBench.h"

namespace torvane {

namespace {
// The good way.

TEST_F(NetworkTest, FindsTheUnitAndStaysConnected) {
  test();
  EXPECT_EQ(says(), foundTorvane + "\rTorvane Temperature Meter");
  EXPECT_TRUE(finishes());
  EXPECT_EQ(Global.DetectionDone, 0);
  EXPECT_EQ(DeviceState.DeviceClass, 1);
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(Global.FirmwareVersion, "1.4");
  EXPECT_EQ(socket(), SocketState::connected);
  EXPECT_EQ(bridge.lines(), (std::vector<std::string>{"*U01", "*U03", "*U03", "*U03", "*U04", "^AE"}));
  EXPECT_TRUE(status.lblStatus.caption().ends_with("Version is: 1.4\rTorvane TMP Controller found"));
}

TEST_F(NetworkTest, TakesFiveSecondsToListenAndThenSomeToAsk) {
  test();
  EXPECT_GT(seconds, 5 + 0.5 + 3 * 1.0 + 2 * 0.5);
  EXPECT_LT(seconds, 5 + 0.5 + 3 * 1.0 + 2 * 0.5 + 0.5);
}

TEST_F(NetworkTest, PublishesItsStages) {
  std::vector<int> values;
  wizard().prgProgress.onRedraw = [&] { values.push_back(wizard().prgProgress.value()); };
  test();
  EXPECT_EQ(values, (std::vector{14, 28, 42, 56, 70, 98}));
}

TEST_F(NetworkTest, IsAtItsThirdStageWhenTheFirstQuestionGoesOut) {
  double thirdStage = 0;
  wizard().prgProgress.onRedraw = [&] {
    if (wizard().prgProgress.value() == 42) thirdStage = host.clock;
  };
  test();
  ASSERT_EQ(unit.log().front().text, "*U01\r");
  EXPECT_GT(thirdStage, 0);
  EXPECT_LE(thirdStage, unit.log().front().time);
}

TEST_F(NetworkTest, AsksWithTheAddress) {
  for (const std::int16_t mode : Numbers{1, 3, 4}) {
    sim::UnitSetup setup;
    setup.addressed = true;
    setup.address = 17;
    sim::Unit addressed(setup);
    sim::Bridge its(addressed);
    host.bridges[{"192.0.2.254", 1000}] = &its;
    onBus(mode, 17);
    status.winSock1->close();
    test();
    EXPECT_EQ(its.lines(),
              (std::vector<std::string>{"*11U01", "*11U03", "*11U03", "*11U03", "*11U04", "^AE11"}));
    EXPECT_EQ(says(), foundTorvane + "\rTorvane Temperature Meter") << mode;
    EXPECT_EQ(Global.FirmwareVersion, "1.4");
  }
}

struct KindCase {
  sim::Model model;
  int type;
  const char* base;
  const char* words;
};

TEST_F(NetworkTest, TellsEachKindOfUnitInItsWords) {
  const KindCase cases[] = {
      {sim::Model::larkspur, 0, "Rkw77[case]", "\rLARKSPUR Meter"},
      {sim::Model::tmp, 1, "Tv[8,16,32]", "\rTorvane Temperature Meter"},
      {sim::Model::prc, 2, "Tv[8,16,32]", "\rTorvane Strain Meter"},
      {sim::Model::str, 3, "Tv[8,16,32]", "\rTorvane Strain Meter"},
      {sim::Model::gr2, 4, "Tv[8,16,32]", "\rTorvane Gr2 Controller"},
      {sim::Model::rht, 5, "Tv[8,16,32]", "\rTorvane Hyt Meter"},
      {sim::Model::other, 6, "Tv[8,16,32]", ""},
  };
  for (const auto& [model, type, base, words] : cases) {
    sim::UnitSetup setup;
    setup.model = model;
    sim::Unit each(setup);
    sim::Bridge its(each);
    host.bridges[{"192.0.2.254", 1000}] = &its;
    status.winSock1->close();
    resetDeviceState();
    test();
    EXPECT_EQ(says(), foundTorvane + words);
    EXPECT_EQ(DeviceState.DeviceClass, type);
    EXPECT_EQ(BaseModel, base);
    EXPECT_EQ(DeviceState.IsRkw77 != False, type == 0);
  }
}

TEST_F(NetworkTest, ReadsTheUnitsOptions) {
  sim::UnitSetup setup;
  setup.analog = true;
  setup.idFlags = "CC";
  sim::Unit each(setup);
  sim::Bridge its(each);
  host.bridges[{"192.0.2.254", 1000}] = &its;
  test();
  EXPECT_EQ(DeviceState.AnalogFound, True);
  EXPECT_EQ(DeviceState.IdFlagC, 1);
}

// The bridge.

TEST_F(NetworkTest, TellsThatNoBridgeIsThere) {
  for (const sim::Reach reach : {sim::Reach::never, sim::Reach::refuses}) {
    bridge.faults.reach = reach;
    status.winSock1->close();
    wizard().cmdNext.setCaption("Next >");
    test();
    EXPECT_EQ(says(), noServer);
    EXPECT_TRUE(finishes());
    EXPECT_EQ(Global.DetectionDone, 1);
    EXPECT_NEAR(seconds, 2.0, 0.1);
  }
  EXPECT_TRUE(bridge.lines().empty());
}

TEST_F(NetworkTest, TellsABridgeThatTalksByItselfAndGoesOn) {
  bridge.faults.unasked = {"000123\r", 1, 1};
  test();
  EXPECT_EQ(says(), unasked +
                        "\rFound device connected to the web server\rFound the Torvane device\rTorvane "
                        "Temperature Meter");
  EXPECT_LT(seconds, 1 + 0.5 + 3 * 1.0 + 2 * 0.5 + 0.5);
}

TEST_F(NetworkTest, OnAnOpenConnectionAsksNothing) {
  test();
  const std::size_t asked = bridge.lines().size();
  wizard().lblCaption.setCaption("as it stood");
  wizard().cmdNext.setCaption("Next >");
  test();
  EXPECT_EQ(bridge.lines().size(), asked);
  EXPECT_EQ(bridge.connections(), 1U);
  EXPECT_EQ(says(), "as it stood");
  EXPECT_FALSE(finishes());
  EXPECT_EQ(seconds, 0);
  EXPECT_EQ(Global.DetectionDone, 1);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NetworkTest, OnAnOpenConnectionToAnotherPortSaysSo) {
  test();
  Memo[rec::txtTCPPort].text = "1234";
  host.expectBox("Port 1000 replaced Port 1234 as needed to support proper communications.");
  test();
  EXPECT_EQ(host.boxes.front().text,
            "Port 1000 replaced Port 1234 as needed to support proper communications.");
}

TEST_F(NetworkTest, BeginsAgainWhereThePeerHasClosed) {
  bridge.faults.closeAfter = 20;
  test();
  host.clock += 20;
  host.yield();
  ASSERT_EQ(socket(), SocketState::peerIsClosing);
  bridge.faults.closeAfter.reset();
  test();
  EXPECT_EQ(bridge.connections(), 2U);
  EXPECT_EQ(says(), foundTorvane + "\rTorvane Temperature Meter");
}

// What the first question is answered with.

struct Complaint {
  const char* reply;
  std::string words;
};

const Complaint complaints[] = {
    {"?50", "Device connection problem.  Parity Error"},
    {"?46", "Unknown device connected.  Format Error occurred"},
    {"?43", "Unknown device connected.  Command Error occurred"},
};

TEST_F(NetworkTest, AsksOnceMoreWhereTheUnitComplains) {
  for (const auto& [reply, words] : complaints) {
    bridge.faults.refusals = {{reply, "*U01", 1}};
    status.winSock1->close();
    const std::size_t before = bridge.connections();
    test();
    EXPECT_EQ(says(), foundTorvane + "\rTorvane Temperature Meter") << reply;
    EXPECT_EQ(bridge.connections(), before + 2);
    EXPECT_GT(seconds, 2 * (5 + 0.5) + 1 + 3);
  }
}

TEST_F(NetworkTest, TellsTheComplaintOnceWhereItComesTwice) {
  for (const auto& [reply, words] : complaints) {
    bridge.faults.refusals = {{reply, "", sim::unlimited}};
    status.winSock1->close();
    const std::size_t before = bridge.connections();
    test();
    EXPECT_EQ(says(), connected + noDevice + words);
    EXPECT_EQ(bridge.connections(), before + 2);
    EXPECT_FALSE(finishes());
    EXPECT_EQ(Global.DetectionDone, 0);
  }
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NetworkTest, TellsTheSecondComplaintAlone) {
  bridge.faults.refusals = {{"?50", "*U01", 1}, {"?43", "*U01", 1}};
  test();
  EXPECT_EQ(says(), connected + noDevice + "Unknown device connected.  Command Error occurred");
}

TEST_F(NetworkTest, TellsToLookAtTheCablesWhereNothingOrSomethingElseAnswers) {
  for (const char* reply : {"", "whatever", "?56", "U02"}) {
    unit.faults.answers = {{"U01", reply}};
    bridge.faults.silent = *reply == 0;
    status.winSock1->close();
    wizard().cmdNext.setCaption("Next >");
    const std::size_t before = bridge.connections();
    test();
    EXPECT_EQ(says(), connected + noDevice + cables) << reply;
    EXPECT_EQ(bridge.connections(), before + 1);
    EXPECT_TRUE(finishes());
    EXPECT_EQ(Global.DetectionDone, 1);
  }
}

TEST_F(NetworkTest, TellsToLookAtTheCablesAlsoAfterAComplaint) {
  bridge.faults.refusals = {{"?46", "*U01", 1}};
  unit.faults.answers = {{"U01", "whatever"}};
  test();
  EXPECT_EQ(says(), connected + noDevice + cables);
  EXPECT_TRUE(finishes());
}

TEST_F(NetworkTest, StopsTheWizardWhereTheLineEchoes) {
  wizard().prgProgress.setVisible(true);
  bridge.faults.echoes = sim::unlimited;
  test();
  EXPECT_EQ(says(), connected +
                        "\r\rThe serial port is either connected to a modem Or there exists a wiring "
                        "problem.\r\rTo leave Connection Wizard , click Cancel.");
  EXPECT_EQ(wizard().wizardStopped, True);
  EXPECT_FALSE(wizard().prgProgress.visible());
  EXPECT_FALSE(wizard().cmdNext.enabled());
  EXPECT_EQ(wizard().cmdNext.caption(), "Next >");
  EXPECT_EQ(Global.DetectionDone, 1);
  EXPECT_EQ(socket(), SocketState::closed);
  EXPECT_EQ(bridge.connections(), 1U);
}

TEST_F(NetworkTest, StopsTheWizardAlsoWhereTheLineEchoesAfterAComplaint) {
  bridge.faults.refusals = {{"?50", "*U01", 1}};
  unit.faults.loopback = sim::unlimited;
  test();
  EXPECT_EQ(wizard().wizardStopped, True);
}

struct CodeCase {
  const char* reply;
  int code;
};

TEST_F(NetworkTest, JudgesTheFirstAnswerByItsLastMark) {
  const CodeCase cases[] = {
      {"U01", 1},       {"U01F", 1},       {"*U01", -2},          {"*", -2},      {"Terminal", -1},
      {"terminal", -1}, {"*terminal", -1}, {"TERMINAL", 0},       {"?43", -43},   {"U01?43", -43},
      {"?43?46", -46},  {"?50?43", -50},   {"Terminal ?46", -46}, {"?46 *", -46}, {"?4", 0},
      {" U01", 0}};
  for (const auto& [reply, code] : cases) {
    unit.faults.answers = {{"U01", reply}};
    EXPECT_EQ(status.CheckForConnectedDevice(), code) << reply;
  }
}

TEST_F(NetworkTest, JudgesTheAnswerOfAnAddressedUnitWithItsAddress) {
  onBus(1, 17);
  for (const auto& [reply, code] : {CodeCase{"11U01", 1}, {"U01", 0}, {"12U01", 0}}) {
    bridge.faults.prompt = reply;
    EXPECT_EQ(status.CheckForConnectedDevice(), code) << reply;
  }
}

}  // namespace

}  // namespace torvane
