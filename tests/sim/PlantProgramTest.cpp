// SPDX-License-Identifier: MIT
// unit-simulator with a whole plant.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "Program.h"
#include "TestPort.h"
#include "TestSocket.h"

namespace torvane {

namespace {

namespace fs = std::filesystem;

class PlantProgram : public testing::Test {
 protected:
  PlantProgram() {
    fs::remove_all(folder);
    fs::create_directory(folder);
  }
  ~PlantProgram() override { fs::remove_all(folder); }

  void write(const std::string& name, const std::string& text) const { std::ofstream(folder / name) << text; }
  std::string read(const std::string& name) const {
    std::ifstream in(folder / name);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  std::vector<std::string> options(const std::string& table) const {
    write("plan.csv", table);
    return {"--plant", folder / "plan.csv", "--quiet", "--turnaround", "0"};
  }
  std::string path(const char* name) const { return (folder / name).string(); }

  fs::path folder = fs::path(testing::TempDir()) / "plant-program";
};

TEST_F(PlantProgram, BusesAndBridgesWithSeveralUnitsEach) {
  Program plant(
      options("line,address,model\n"
              "pty:bus,1,tmp\n"
              "tcp:cabinet,1,prc\n"
              "pty:bus,17,larkspur\n"
              "tcp:cabinet,2,gr2\n"
              "tcp:door,,rht\n"));
  const std::string device = plant.line();
  EXPECT_EQ(device, "pty:bus 1 " + fs::read_symlink(path("bus")).string());
  const std::string cabinet = plant.line();
  ASSERT_TRUE(cabinet.starts_with("tcp:cabinet 1 "));
  EXPECT_TRUE(plant.line().starts_with("pty:bus 17 /dev/"));
  EXPECT_EQ(plant.line(), "tcp:cabinet 2 " + cabinet.substr(14));
  TestSocket door(plant.portBehind("tcp:door "));
  TestSocket bridge(std::stoi(cabinet.substr(14)));
  const TestPort port(path("bus"));
  EXPECT_EQ(port.ask("*01U04"), "01U04 TMP\r");
  EXPECT_EQ(port.ask("*11U04"), "11U04 RKW77\r");
  EXPECT_EQ(bridge.ask("*01U04"), "01U04 PRC\r");
  EXPECT_EQ(bridge.ask("*02U04"), "02U04 GR2\r");
  EXPECT_EQ(door.ask("*U04"), "U04 RHT\r");
  EXPECT_EQ(plant.end(), 0);
  EXPECT_FALSE(fs::is_symlink(path("bus")));
}

TEST_F(PlantProgram, FaultsAreThoseOfOneUnitOrOneBridge) {
  Program plant(
      options("line,address,faults\n"
              "tcp:a,1,\n"
              "tcp:a,2,refuse:?43\n"
              "tcp:b,1,bridge:echo:1;bridge:refuse:?46\n"));
  TestSocket a(plant.portBehind("tcp:a 1 "));
  plant.line();
  TestSocket b(plant.portBehind("tcp:b 1 "));
  EXPECT_EQ(a.ask("*01U01"), "01U01\r");
  EXPECT_EQ(a.ask("*02U01"), "02?43\r");
  EXPECT_EQ(b.ask("*01U01"), "*01U01\r");
  EXPECT_EQ(b.ask("*01U01"), "?46\r");
}

TEST_F(PlantProgram, PulledPlugLeavesTheOtherLines) {
  Program plant(options("line,faults\npty:a,hangup:1\npty:b,\n"));
  plant.line();
  plant.line();
  const TestPort a(path("a"));
  a.send("*U01\r");
  EXPECT_TRUE(a.isHungUp());
  EXPECT_EQ(plant.line(), "pty:a unplugged");
  EXPECT_EQ(TestPort(path("b")).ask("*U01"), "U01\r");
  EXPECT_EQ(plant.end(SIGINT), 0);
}

TEST_F(PlantProgram, RegistersAreKeptBesideTheTable) {
  write("one.txt", "07 = 26\n");
  const auto table = options("line,address,registers\ntcp:a,1,one.txt\ntcp:a,2,two.txt\n");
  Program plant(table);
  TestSocket a(plant.portBehind("tcp:a 1 "));
  EXPECT_EQ(a.ask("*01R07"), "01R0726\r");
  EXPECT_EQ(a.ask("*02W0727"), "02W07\r");
  EXPECT_EQ(plant.end(), 0);
  EXPECT_NE(read("two.txt").find("07 = 27 "), std::string::npos);
  EXPECT_NE(read("one.txt").find("07 = 26 "), std::string::npos);
}

TEST_F(PlantProgram, BadTableIsRefusedWholeWithEveryProblem) {
  Program plant(options("line,address\npty:a,x\ncom:b,\n"));
  const std::string name = path("plan.csv");
  EXPECT_EQ(plant.line(), name + ": line 2: address can't be x");
  EXPECT_EQ(plant.line(), name + ": line 3: line can't be com:b");
  EXPECT_EQ(plant.wait(), 2);
  EXPECT_FALSE(fs::exists(path("a")));
}

TEST_F(PlantProgram, MissingTableAndOptionsOfOneUnit) {
  Program missing({"--plant", path("missing.csv")});
  EXPECT_EQ(missing.line(), path("missing.csv") + ": can't be read");
  EXPECT_EQ(missing.wait(), 2);
  Program both({"--plant", "x", "--address", "1"});
  EXPECT_EQ(both.line(), "--address excludes --plant; --help tells the options");
  EXPECT_EQ(both.wait(), 2);
}

TEST_F(PlantProgram, FiveHundredUnitsInOneProcess) {
  std::string table = "line,address\n";
  for (int line = 0; line < 25; ++line) {
    const std::string name = (line < 8 ? "pty:line" : "tcp:line") + std::to_string(line);
    for (int address = 0; address < 20; ++address) table += name + ',' + std::to_string(address) + '\n';
  }
  Program plant(options(table));
  std::vector<std::string> lines;
  for (int unit = 0; unit < 500; ++unit) lines.push_back(plant.line());
  EXPECT_EQ(TestPort(path("line7")).ask("*13U01"), "13U01\r");
  const std::string last = lines.back();
  ASSERT_TRUE(last.starts_with("tcp:line24 19 "));
  TestSocket socket(std::stoi(last.substr(14)));
  socket.send("*14U01\r");
  EXPECT_EQ(socket.ask("*13U01"), "13U01\r");
  EXPECT_EQ(plant.end(), 0);
}

}  // namespace

}  // namespace torvane
