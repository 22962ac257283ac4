// SPDX-License-Identifier: MIT
// A unit on a pseudo terminal.
#include "sim/PseudoTerminal.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>
#include <vector>

#include "TestPort.h"

namespace torvane {

namespace {

using sim::Server;
using sim::Unit;

class PseudoTerminal : public testing::Test {
 protected:
  Unit unit{{.turnaround = 0}};
};

std::string testLink() { return testing::TempDir() + "sim-port-link"; }

TEST_F(PseudoTerminal, AnswersInAThreadOfItsOwn) {
  Server server(unit);
  server.start();
  const TestPort port(server.path());
  ASSERT_TRUE(port.isOpen());
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  EXPECT_EQ(port.ask("*W0726"), "W07\r");
  EXPECT_EQ(server.with([](Unit& one) { return one.registerHex("07"); }), "26");
}

TEST_F(PseudoTerminal, AnswersInTheCallersThread) {
  Server server(unit);
  const TestPort port(server.path());
  port.send("*R07\r");
  EXPECT_TRUE(server.poll(10));
  EXPECT_EQ(port.readTo('\r'), "R0704\r");
}

TEST_F(PseudoTerminal, PollReturnsWhenItsTimeIsOver) {
  Server server(unit);
  EXPECT_TRUE(server.poll(0));
  EXPECT_TRUE(server.poll(0.001));
  EXPECT_TRUE(unit.log().empty());
}

TEST_F(PseudoTerminal, OpensAndClosesAnyNumberOfTimes) {
  Server server(unit);
  server.start();
  for (int time = 0; time < 50; ++time) {
    const TestPort port(server.path());
    ASSERT_EQ(port.ask("*R07"), "R0704\r") << time;
  }
}

TEST_F(PseudoTerminal, KeepsWhatWasLeftUnread) {
  Server server(unit);
  server.with([](Unit& one) { one.faults.trailing = "R0799\r"; });
  server.start();
  {
    const TestPort port(server.path());
    EXPECT_EQ(port.ask("*R07"), "R0704\r");
    EXPECT_EQ(port.readBytes(1), "R");
  }
  const TestPort again(server.path());
  EXPECT_EQ(again.readTo('\r'), "0799\r");
}

TEST_F(PseudoTerminal, SaysTheStaleReplyBeforeAnythingIsAsked) {
  Server server(unit);
  server.start();
  server.with([](Unit& one) { one.faults.stale = "R0799\r"; });
  const TestPort port(server.path());
  EXPECT_EQ(port.readTo('\r'), "R0799\r");
}

TEST_F(PseudoTerminal, CarriesEveryByte) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  unit.faults.noiseBefore = all;
  Server server(unit);
  server.start();
  const TestPort port(server.path());
  port.send("*R07\r");
  EXPECT_EQ(port.readBytes(262), all + "R0704\r");
}

TEST_F(PseudoTerminal, CarriesAnEndlessReply) {
  unit.faults.endless = 100'000;
  Server server(unit);
  server.start();
  const TestPort port(server.path());
  port.send("*R07\r");
  EXPECT_EQ(port.readBytes(100'000).size(), 100'000U);
}

TEST_F(PseudoTerminal, KeepsTheTimesOfTheChunks) {
  unit.faults.pieces = {{1, 0.03}};
  unit.faults.late = 0.02;
  Server server(unit);
  server.start();
  const TestPort port(server.path());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST_F(PseudoTerminal, UnplugHangsUpAndTakesTheDeviceAway) {
  Server server(unit);
  server.start();
  const std::string path = server.path();
  const TestPort port(path);
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  server.unplug();
  EXPECT_TRUE(server.unplugged());
  EXPECT_TRUE(port.isHungUp());
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_FALSE(server.poll(0));
  server.unplug();
}

// Else a program that opens the port again would talk to whoever made a terminal meanwhile.
TEST_F(PseudoTerminal, UnpluggedItsNameIsNobodyElses) {
  Server server(unit);
  server.unplug();
  std::vector<std::unique_ptr<Server>> others;
  for (int i = 0; i < 20; ++i) {
    others.push_back(std::make_unique<Server>(unit));
    EXPECT_NE(others.back()->path(), server.path());
  }
}

TEST_F(PseudoTerminal, CommandThatPullsThePlug) {
  unit.faults.hangupAt = 2;
  Server server(unit);
  server.start();
  const TestPort port(server.path());
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  port.send("*R07\r");
  EXPECT_TRUE(port.isHungUp());
  EXPECT_TRUE(server.unplugged());
}

TEST_F(PseudoTerminal, ChecksTheSpeedWhereAsked) {
  Server server(unit, {.checkLine = true});
  {
    const TestPort port(server.path(), 19200);
    port.send("*R07\r");
    EXPECT_TRUE(server.poll(10));
    EXPECT_EQ(unit.commands(), std::vector<std::string>{"*R07"});
    EXPECT_FALSE(port.hasBytes());
  }
  server.start();
  EXPECT_EQ(TestPort(server.path(), 9600).ask("*R07"), "R0704\r");
}

TEST_F(PseudoTerminal, TakesAnySpeedWhereNotAsked) {
  Server server(unit);
  server.start();
  EXPECT_EQ(TestPort(server.path(), 19200).ask("*R07"), "R0704\r");
}

TEST_F(PseudoTerminal, LinkStandsAsLongAsTheServer) {
  {
    Server server(unit, {.link = testLink()});
    EXPECT_EQ(std::filesystem::read_symlink(testLink()), server.path());
    Server successor(unit, {.link = testLink()});
    EXPECT_EQ(std::filesystem::read_symlink(testLink()), successor.path());
    server.unplug();
    EXPECT_TRUE(std::filesystem::is_symlink(testLink()));
  }
  EXPECT_FALSE(std::filesystem::is_symlink(testLink()));
}

TEST_F(PseudoTerminal, LinkDoesNotReplaceAFile) {
  const std::string file = testing::TempDir() + "sim-port-file";
  std::ofstream(file) << "mine";
  EXPECT_THROW(Server(unit, {.link = file}), std::system_error);
  EXPECT_EQ(std::filesystem::file_size(file), 4U);
  std::filesystem::remove(file);
}

TEST_F(PseudoTerminal, TellsTheTraffic) {
  std::vector<std::string> told;
  int exchanges = 0;
  Server server(unit, {.onTraffic = [&](const sim::LogEntry& entry) { told.push_back(entry.text); },
                       .onExchange = [&](const Unit&) { ++exchanges; }});
  const TestPort port(server.path());
  port.send("*R07\r");
  EXPECT_TRUE(server.poll(10));
  EXPECT_EQ(told, (std::vector<std::string>{"*R07\r", "R0704\r"}));
  EXPECT_EQ(exchanges, 1);
}

TEST_F(PseudoTerminal, ClaimToBeTheOnlyOneDoesNotOutliveACommand) {
  Server server(unit);
  server.start();
  const TestPort port(server.path());
  port.claim();
  EXPECT_TRUE(port.isClaimed());
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  EXPECT_FALSE(port.isClaimed());
}

TEST_F(PseudoTerminal, StartsAgainAfterStop) {
  Server server(unit);
  server.start();
  server.start();
  server.stop();
  server.start();
  EXPECT_EQ(TestPort(server.path()).ask("*R07"), "R0704\r");
}

}  // namespace

}  // namespace torvane
