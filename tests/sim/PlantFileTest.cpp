// SPDX-License-Identifier: MIT
// The table of a plant.
#include "sim/PlantFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sim/Csv.h"

namespace torvane {

namespace {

using testing::ElementsAre;

sim::PlantTable parsed(const std::string& text) { return sim::parsePlant(text, {}); }

TEST(Csv, CellsRowsAndQuotes) {
  const auto rows = sim::csvRows("a,b\r\n\n\"x,\"\"y\"\"\nz\",\n,1");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_THAT(rows[0].cells, ElementsAre("a", "b"));
  EXPECT_THAT(rows[1].cells, ElementsAre("x,\"y\"\nz", ""));
  EXPECT_EQ(rows[1].line, 3);
  EXPECT_THAT(rows[2].cells, ElementsAre("", "1"));
  EXPECT_EQ(rows[2].line, 5);
}

TEST(Csv, BytesInFrontOfATextOfSomeEditors) {
  EXPECT_THAT(sim::csvRows("\xEF\xBB\xBFline").at(0).cells, ElementsAre("line"));
}

TEST(PlantFile, UnitsWithAllThatTheyHave) {
  const auto table = parsed(
      "model,line,address,faults,registers\n"
      "larkspur,pty:bus,17,\"late:0.5;refuse:?43,W07\",unit.txt\n"
      ",tcp:1000,,bridge:drop:3;busy,\n");
  EXPECT_THAT(table.problems, ElementsAre());
  ASSERT_EQ(table.units.size(), 2U);
  const sim::PlantUnit& first = table.units[0];
  EXPECT_EQ(first.line, "pty:bus");
  EXPECT_EQ(first.setup.model, sim::Model::larkspur);
  EXPECT_TRUE(first.setup.addressed);
  EXPECT_EQ(first.setup.address, 17);
  EXPECT_DOUBLE_EQ(first.faults.late, 0.5);
  EXPECT_EQ(first.faults.refusals.at(0).prefix, "W07");
  EXPECT_EQ(first.registers, "unit.txt");
  const sim::PlantUnit& second = table.units[1];
  EXPECT_EQ(second.setup.model, sim::Model::tmp);
  EXPECT_FALSE(second.setup.addressed);
  EXPECT_TRUE(second.faults.busy);
  EXPECT_THAT(second.bridgeFaults, ElementsAre("drop:3"));
}

TEST(PlantFile, WhatIsLeftOpenIsThatOfAll) {
  sim::PlantUnit common;
  common.setup.model = sim::Model::prc;
  common.setup.lineRate = 9600;
  common.faults.late = 1;
  const auto table = sim::parsePlant("line,model\npty:a,\npty:b,gr2\n", common);
  ASSERT_EQ(table.units.size(), 2U);
  EXPECT_EQ(table.units[0].setup.model, sim::Model::prc);
  EXPECT_EQ(table.units[1].setup.model, sim::Model::gr2);
  EXPECT_DOUBLE_EQ(table.units[1].setup.lineRate, 9600);
  EXPECT_DOUBLE_EQ(table.units[1].faults.late, 1);
}

TEST(PlantFile, EveryProblemIsReportedWithItsLine) {
  const auto table = parsed(
      "line,address,model,registers,faults\n"
      "com:1,200,toaster,,unknown\n"
      "pty:a,1,,x,bridge:drop:3\n"
      "pty:a,1,,x,,more\n"
      "tcp:65536\n");
  EXPECT_THAT(
      table.problems,
      ElementsAre("line 2: line can't be com:1", "line 2: address can't be 200",
                  "line 2: model can't be toaster", "line 2: faults can't be unknown",
                  "line 3: faults can't be bridge:drop:3", "line 4: has more cells than headers",
                  "line 4: has the same unit as line 3", "line 4: has the same file of registers as line 3",
                  "line 5: line can't be tcp:65536"));
}

TEST(PlantFile, HeadersAndUnitsMustBeThere) {
  EXPECT_THAT(parsed("").problems, ElementsAre("line 1: lacks the column line"));
  EXPECT_THAT(parsed("line,address\n").problems, ElementsAre("line 1: is the last one: no units"));
  EXPECT_THAT(parsed("line,colour\npty:a,red\n").problems,
              ElementsAre("line 1: has no column colour to offer: line, address, model, registers, faults"));
}

}  // namespace

}  // namespace torvane
