// SPDX-License-Identifier: MIT
// The program unit-simulator, started as a person starts it.
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "Program.h"
#include "TestPort.h"
#include "TestSocket.h"

namespace torvane {

namespace {

std::string testPath(const char* name) { return testing::TempDir() + "simulator-program-" + name; }

TEST(SimulatorProgram, TellsItsPortAndItsTraffic) {
  Program program({});
  const TestPort port(program.port());
  ASSERT_TRUE(port.isOpen());
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  EXPECT_TRUE(program.line().ends_with(" > *R07<CR>"));
  EXPECT_TRUE(program.line().ends_with(" < R0704<CR>"));
  EXPECT_EQ(program.end(SIGINT), 0);
}

TEST(SimulatorProgram, IsTheUnitThatWasAskedFor) {
  Program program({"--model", "larkspur", "--version-text", "1.7", "--address", "17", "--quiet"});
  const TestPort port(program.port());
  EXPECT_EQ(port.ask("*11U03"), "11U031.7\r");
  EXPECT_EQ(port.ask("*11R11"), "11R11000077\r");
  EXPECT_EQ(program.end(), 0);
  EXPECT_EQ(program.line(), "");
}

TEST(SimulatorProgram, KeepsItsRegistersOverARestart) {
  const std::string file = testPath("registers");
  std::filesystem::remove(file);
  {
    Program program({"--registers", file});
    EXPECT_EQ(TestPort(program.port()).ask("*W0726"), "W07\r");
    EXPECT_EQ(program.end(), 0);
  }
  Program program({"--registers", file});
  EXPECT_EQ(TestPort(program.port()).ask("*R07"), "R0726\r");
  EXPECT_EQ(program.end(), 0);
  std::filesystem::remove(file);
}

TEST(SimulatorProgram, SavesOnChangeEvenIfKilled) {
  const std::string file = testPath("killed");
  std::filesystem::remove(file);
  Program program({"--registers", file});
  const TestPort port(program.port());
  port.ask("*W0726");
  port.ask("*R07");
  program.end(SIGKILL);
  std::ifstream in(file);
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  EXPECT_NE(text.find("07 = 26 "), std::string::npos);
  std::filesystem::remove(file);
}

TEST(SimulatorProgram, AddressOfTheFileHoldsUnlessGiven) {
  const std::string file = testPath("address");
  std::ofstream(file) << "1F = 3C\n21 = 11\n";
  {
    Program program({"--registers", file});
    EXPECT_EQ(TestPort(program.port()).ask("*11U01"), "11U01\r");
  }
  Program program({"--registers", file, "--address", "5"});
  EXPECT_EQ(TestPort(program.port()).ask("*05U01"), "05U01\r");
  program.end();
  std::filesystem::remove(file);
}

TEST(SimulatorProgram, BadRegisterFileIsLeftAsItIs) {
  const std::string file = testPath("bad");
  std::ofstream(file) << "nonsense\n";
  Program program({"--registers", file});
  EXPECT_NE(program.line().find("line 1"), std::string::npos);
  EXPECT_EQ(program.wait(), 2);
  EXPECT_EQ(std::filesystem::file_size(file), 9U);
  std::filesystem::remove(file);
}

TEST(SimulatorProgram, LinkIsThereAndGoes) {
  const std::string link = testPath("link");
  Program program({"--link", link});
  const std::string path = program.port();
  EXPECT_EQ(std::filesystem::read_symlink(link), path);
  EXPECT_EQ(TestPort(link).ask("*R07"), "R0704\r");
  EXPECT_EQ(program.end(), 0);
  EXPECT_FALSE(std::filesystem::is_symlink(link));
}

TEST(SimulatorProgram, ShowsItsFaults) {
  Program program({"--fault", "refuse:?46,W", "--fault", "hangup:2"});
  const TestPort port(program.port());
  EXPECT_EQ(port.ask("*W0726"), "?46\r");
  port.send("*R07\r");
  EXPECT_TRUE(port.isHungUp());
  EXPECT_EQ(program.wait(), 0);
}

TEST(SimulatorProgram, StandsBehindABridgeToo) {
  Program program({"--tcp", "0", "--terminal-server", "0", "--bridge", "refuse:?46,*R08,1"});
  const TestPort port(program.port());
  TestSocket bridge(program.portBehind("tcp "));
  TestSocket terminalServer(program.portBehind("terminal-server "));
  EXPECT_EQ(bridge.ask("*W0726"), "W07\r");
  EXPECT_EQ(port.ask("*R07"), "R0726\r");
  EXPECT_EQ(bridge.ask("*R08"), "?46\r");
  terminalServer.send("*R07\r");
  EXPECT_NE(terminalServer.readTo('>').find("Terminal"), std::string::npos);
  EXPECT_EQ(program.end(), 0);
}

TEST(SimulatorProgram, ShowsTheTrafficOfTheBridge) {
  Program program({"--tcp", "0", "--bridge", "refuse:?46,*R08"});
  program.port();
  TestSocket bridge(program.portBehind("tcp "));
  bridge.ask("*R07");
  bridge.ask("*R08");
  std::vector<std::string> ends{" + connection", " > *R07<CR>", " < R0704<CR>", " | *R08<CR>"};
  for (const std::string& end : ends) EXPECT_TRUE(program.line().ends_with(end)) << end;
}

TEST(SimulatorProgram, PortInUseIsReported) {
  Program program({"--tcp", "0"});
  program.port();
  const int taken = program.portBehind("tcp ");
  Program other({"--tcp", std::to_string(taken)});
  EXPECT_TRUE(other.line().starts_with("TCP port " + std::to_string(taken)));
  EXPECT_EQ(other.wait(), 1);
}

TEST(SimulatorProgram, HelpAndBadOptions) {
  Program help({"--help"});
  EXPECT_TRUE(help.line().starts_with("unit-simulator"));
  EXPECT_EQ(help.wait(), 0);
  Program bad({"--model", "toaster"});
  EXPECT_EQ(bad.line(), "--model can't be toaster; --help tells the options");
  EXPECT_EQ(bad.wait(), 2);
}

}  // namespace

}  // namespace torvane
