// SPDX-License-Identifier: MIT
// A unit's registers as a text file.
#include "sim/RegisterFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace torvane {

namespace {

using sim::Unit;

std::string testFile(const char* name) { return testing::TempDir() + "sim-registers-" + name; }

TEST(RegisterFile, TextNamesEveryRegister) {
  const Unit unit{{}};
  const std::string text = sim::registerText(unit);
  EXPECT_NE(text.find("07 = 04      Input type\n"), std::string::npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 33);
}

TEST(RegisterFile, ReadsItsOwnText) {
  Unit unit{{}};
  unit.setRegister("07", "26");
  unit.setRegister("01", "A0007B");
  Unit other{{}};
  EXPECT_EQ(sim::applyRegisterText(other, sim::registerText(unit)), "");
  EXPECT_EQ(sim::registerText(other), sim::registerText(unit));
}

TEST(RegisterFile, TakesRemarksBlanksAndAnyLineEnd) {
  Unit unit{{}};
  EXPECT_EQ(sim::applyRegisterText(unit, "# mine\r\n\n  07=26\r\n08 =\t01 remark\n"), "");
  EXPECT_EQ(unit.registerHex("07"), "26");
  EXPECT_EQ(unit.registerHex("08"), "01");
}

TEST(RegisterFile, NamesTheBadLineAndSetsNothing) {
  for (const char* bad : {"99 = 00", "07 = 2", "07 = 264", "07 = xx", "07", "= 04", "07 ="}) {
    Unit unit{{}};
    const std::string problem = sim::applyRegisterText(unit, std::string("08 = 01\n") + bad + '\n');
    EXPECT_TRUE(problem.starts_with("line 2 ")) << bad;
    EXPECT_EQ(unit.registerHex("08"), "42") << bad;
  }
}

TEST(RegisterFile, SavesAndLoads) {
  const std::string file = testFile("saved");
  Unit unit{{}};
  unit.setRegister("07", "26");
  EXPECT_EQ(sim::saveRegisters(unit, file), "");
  Unit other{{}};
  EXPECT_EQ(sim::loadRegisters(other, file), "");
  EXPECT_EQ(other.registerHex("07"), "26");
  EXPECT_FALSE(std::filesystem::exists(file + ".new"));
  std::filesystem::remove(file);
}

TEST(RegisterFile, AbsentFileIsNoError) {
  Unit unit{{}};
  EXPECT_EQ(sim::loadRegisters(unit, testFile("absent")), "");
  EXPECT_EQ(unit.registerHex("07"), "04");
}

TEST(RegisterFile, FolderThatIsNotThereIsAnError) {
  EXPECT_NE(sim::saveRegisters(Unit{{}}, testFile("absent") + "/registers"), "");
}

TEST(RegisterFile, FolderInPlaceOfAFileIsAnError) {
  Unit unit{{}};
  EXPECT_NE(sim::loadRegisters(unit, testing::TempDir()), "");
}

}  // namespace

}  // namespace torvane
