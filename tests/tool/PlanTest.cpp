// SPDX-License-Identifier: MIT
// Plans of a batch, good and bad.
#include "tool/Plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace torvane {

namespace {

using testing::ElementsAre;
using testing::Pair;

tool::PlanChecks checks() {
  tool::PlanChecks all;
  all.setting = [](const std::string& header) {
    return header == "Setpoint 1" ? "" : '"' + header + "\" is no setting";
  };
  all.values = [](const tool::PlanRow& row) {
    std::vector<std::string> faults;
    for (const auto& [name, value] : row.settings) {
      if (value == "bad") faults.emplace_back("\"bad\" is no number");
    }
    return faults;
  };
  all.device = [](const std::string& name) { return name == "bus1"; };
  all.place = [](const tool::LineName& line) {
    return line.device == "/dev/link" ? "/dev/real" : tool::lineText(line);
  };
  all.model = [](const std::string& model) { return model == "toaster" ? "\"toaster\" is no model" : ""; };
  all.setup = [](const std::string& path) { return path == "none.cfg" ? "none.cfg is not there" : ""; };
  return all;
}

tool::Plan parsed(const std::string& text) { return tool::parsePlan(text, checks()); }

TEST(Plan, RowsWithAllTheyHave) {
  const tool::Plan plan = parsed(
      "line,address,model,setup,serial,Setpoint 1\n"
      "COM1,17,TMP,a.cfg,S-1,123.4\n"
      "\n"
      "host:2000,,,b.cfg,,\n");
  EXPECT_THAT(plan.problems, ElementsAre());
  ASSERT_EQ(plan.rows.size(), 2U);
  EXPECT_EQ(plan.rows[0].row, 1);
  EXPECT_EQ(plan.rows[0].line, 2);
  EXPECT_EQ(plan.rows[0].on, tool::LineName{.commPort = 1});
  EXPECT_EQ(plan.rows[0].address, 17);
  EXPECT_EQ(plan.rows[0].model, "TMP");
  EXPECT_EQ(plan.rows[0].setup, "a.cfg");
  EXPECT_EQ(plan.rows[0].serial, "S-1");
  EXPECT_THAT(plan.rows[0].settings, ElementsAre(Pair("Setpoint 1", "123.4")));
  EXPECT_EQ(plan.rows[1].row, 2);
  EXPECT_EQ(plan.rows[1].line, 4);
  EXPECT_FALSE(plan.rows[1].address);
  EXPECT_THAT(plan.rows[1].settings, ElementsAre());
}

TEST(Plan, ColumnsStandInAnyOrder) {
  const tool::Plan plan = parsed("setup,line\na.cfg,COM1\n");
  EXPECT_THAT(plan.problems, ElementsAre());
  EXPECT_EQ(plan.rows.at(0).setup, "a.cfg");
}

TEST(Plan, EveryErrorIsToldWithItsLineInOrder) {
  const tool::Plan plan = parsed(
      "line,address,model,setup,serial,Setpoint 1,Colour\n"
      "COM1,200,toaster,none.cfg,S-1,bad\n"
      "nowhere,,,a.cfg,S-1\n"
      "COM1,3,,\n"
      "COM1,3,,a.cfg\n"
      "com 1,,,a.cfg\n"
      ",4,,a.cfg\n"
      "COM2,,,a.cfg,,,,more\n");
  EXPECT_THAT(plan.problems,
              ElementsAre("line 1: \"Colour\" is no setting",  //
                          "line 2: \"200\" is no address: 0 to 199, or nothing",
                          "line 2: \"toaster\" is no model", "line 2: none.cfg is not there",
                          "line 2: \"bad\" is no number", "line 2: no address, and line 4 is on COM 1 too",
                          "line 3: \"nowhere\" is no line: COM1, a device path, or host:port",
                          "line 3: serial S-1 is in line 2 already", "line 4: setup is empty",
                          "line 5: address 3 on COM 1 is in line 4 already",
                          "line 6: no address, and line 2 is on COM 1 too", "line 7: line is empty",
                          "line 8: there are more cells than headers"));
}

TEST(Plan, HeadersMustBeThereOnce) {
  EXPECT_THAT(parsed("").problems,
              ElementsAre("line 1: the headers are missing: line,address,model,setup,serial"));
  EXPECT_THAT(parsed("line,line\n").problems,
              ElementsAre("line 1: the column \"line\" is there twice", "line 1: the column setup is missing",
                          "line 1: there is no unit below the headers"));
  EXPECT_THAT(parsed("line,setup\nCOM1,\"a\n").problems,
              ElementsAre("line 2: a quote is opened and never closed"));
}

TEST(Plan, ADeviceBesideThePlanNeedsNoFolder) {
  const tool::Plan plan = parsed("line,setup\nbus1,a.cfg\n");
  EXPECT_THAT(plan.problems, ElementsAre());
  EXPECT_EQ(plan.rows.at(0).on.device, "bus1");
}

TEST(Plan, TwoNamesOfOnePortAreOneLine) {
  EXPECT_THAT(parsed("line,address,setup\n/dev/link,1,a\n/dev/real,1,a\n").problems,
              ElementsAre("line 3: address 1 on /dev/link is in line 2 already"));
}

TEST(Plan, SameAddressOnOtherLinesIsFine) {
  EXPECT_THAT(parsed("line,address,setup\nCOM1,1,a\nCOM2,1,a\nhost:1,1,a\nhost:2,1,a\n").problems,
              ElementsAre());
}

}  // namespace

}  // namespace torvane
