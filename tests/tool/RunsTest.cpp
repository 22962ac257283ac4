// SPDX-License-Identifier: MIT
// The runs of torvane-unit as a user starts them, against a simulated unit on a pseudo terminal and behind a
// bridge.
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

#include "tool/Processes.h"

namespace torvane {

namespace {

using ToolRuns = ToolTest;

TEST_F(ToolRuns, AUnitIsNamedOnBothWays) {
  const SimulatedUnit unit({"--model", "prc"});
  for (const QString& line : {unit.port, unit.bridge}) {
    const Ended asked = runTool({"identify", line});
    EXPECT_EQ(asked.code, 0);
    EXPECT_EQ(asked.object["unit"]["type"], "PRC");
    EXPECT_EQ(asked.object["unit"]["kind"], 0);
    EXPECT_EQ(asked.object["unit"]["version"], "1.4");
  }
  EXPECT_EQ(runTool({"identify", unit.port, "--model", "TMP"}).code, 3);
}

TEST_F(ToolRuns, AUnitOfTheOtherLineIsReadWithoutBeingNamedBefore) {
  const SimulatedUnit unit({"--model", "larkspur"});
  const Ended read = runTool({"read", unit.bridge, "-o", file("a.cfg")});
  EXPECT_EQ(read.code, 0);
  EXPECT_EQ(read.object["unit"]["kind"], 4);
  EXPECT_EQ(read.object["registers"].size(), 27U);
}

TEST_F(ToolRuns, WhatIsReadIsWrittenComparedKeptAndPutBack) {
  const SimulatedUnit unit;
  EXPECT_EQ(runTool({"read", unit.port, "-o", file("a.cfg"), "--keep", file("a.unit")}).code, 0);
  const Ended first = runTool({"write", unit.bridge, file("a.cfg"), "--record", file("r.json")});
  EXPECT_EQ(first.code, 0);
  EXPECT_EQ(first.object["verdict"], "pass");
  EXPECT_TRUE(QFile::exists(file("r.json")));
  EXPECT_EQ(runTool({"write", unit.bridge, file("a.cfg"), "--record", file("r.json")}).code, 5);
  EXPECT_EQ(runTool({"compare", unit.port, file("a.cfg")}).code, 0);
  EXPECT_EQ(runTool({"put-back", unit.bridge, file("a.unit")}).code, 0);
  EXPECT_EQ(runTool({"keep", unit.port, "-o", file("b.unit")}).code, 0);
  EXPECT_EQ(runTool({"compare", file("a.unit"), file("b.unit")}).code, 0);
}

TEST_F(ToolRuns, ASetupIsShownInTheWordsOfTheReport) {
  const SimulatedUnit unit;
  ASSERT_EQ(runTool({"read", unit.port, "-o", file("a.cfg")}).code, 0);
  const Ended shown = runTool({"show", file("a.cfg")});
  EXPECT_EQ(shown.code, 0);
  const json wanted = {{"section", "Input"}, {"name", "Input Type"}, {"value", "TC K-type"}};
  const auto& settings = shown.object["settings"];
  EXPECT_NE(std::find(settings.begin(), settings.end(), wanted), settings.end());
}

TEST_F(ToolRuns, TheReportIsADocumentOfItsOwn) {
  const SimulatedUnit unit;
  ASSERT_EQ(runTool({"read", unit.port, "-o", file("a.cfg")}).code, 0);
  EXPECT_EQ(runTool({"show", file("a.cfg"), "--pdf", file("a.pdf")}).code, 0);
  const std::string pdf = content("a.pdf");
  EXPECT_EQ(pdf.substr(0, 8), "%PDF-1.4");
  for (const char* part : {"(Set-Point)", "(Alarm)", "(400.0)", "(Page: 1)", "/Count 2", "%%EOF"})
    EXPECT_NE(pdf.find(part), std::string::npos) << part;
  EXPECT_EQ(runTool({"show", file("a.cfg"), "--pdf", file("none/a.pdf")}).code, 5);
}

TEST_F(ToolRuns, AUnitOfTheOtherLineIsNotWrittenTo) {
  const SimulatedUnit unit({"--model", "larkspur"});
  ASSERT_EQ(runTool({"read", unit.port, "-o", file("rkw.cfg")}).code, 0);
  ASSERT_EQ(runTool({"keep", unit.port, "-o", file("rkw.unit")}).code, 0);
  const SimulatedUnit other;
  for (const QString& line : {other.port, other.bridge}) {
    EXPECT_EQ(runTool({"write", line, file("rkw.cfg")}).code, 3);
    EXPECT_EQ(runTool({"put-back", line, file("rkw.unit")}).code, 3);
    EXPECT_EQ(runTool({"compare", line, file("rkw.cfg")}).code, 3);
  }
}

TEST_F(ToolRuns, WhatIsNotThereIsTold) {
  EXPECT_EQ(runTool({"identify", file("no-device")}).code, 4);
  EXPECT_EQ(runTool({"identify", "127.0.0.1:1"}).code, 4);
  EXPECT_EQ(runTool({"show", file("none.cfg")}).code, 5);
  const SimulatedUnit unit({"--fault", "silent"});
  EXPECT_EQ(runTool({"identify", unit.port}).code, 3);
}

}  // namespace

}  // namespace torvane
