// SPDX-License-Identifier: MIT
// The runs of torvane-unit as a user starts them, against a simulated unit on a pseudo terminal and behind a
// bridge.
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;

constexpr int patience = 60'000;  // milliseconds

struct Ended {
  int code;
  json object;
};

Ended run(QStringList words) {
  QProcess program;
  program.start(TORVANE_UNIT, words << "--json");
  program.waitForFinished(patience);
  return {program.exitCode(), json::parse(program.readAllStandardOutput().toStdString(), nullptr, false)};
}

class SimulatedUnit {
 public:
  explicit SimulatedUnit(const QStringList& options = {}) {
    simulator_.start(UNIT_SIMULATOR, QStringList{"--quiet", "--tcp", "0", "--turnaround", "0"} + options);
    while (bridge.isEmpty() && simulator_.waitForReadyRead(patience)) {
      while (simulator_.canReadLine()) take(QString(simulator_.readLine()).trimmed());
    }
    EXPECT_FALSE(bridge.isEmpty());
  }
  SimulatedUnit(const SimulatedUnit&) = delete;
  SimulatedUnit& operator=(const SimulatedUnit&) = delete;
  ~SimulatedUnit() {
    simulator_.terminate();
    simulator_.waitForFinished(patience);
  }

  QString port;
  QString bridge;

 private:
  void take(const QString& line) {
    if (line.startsWith("port ")) port = line.mid(5);
    if (line.startsWith("tcp ")) bridge = "127.0.0.1:" + line.mid(4);
  }

  QProcess simulator_;
};

class ToolRuns : public testing::Test {
 protected:
  QString file(const char* name) const { return folder_.filePath(name); }

 private:
  QTemporaryDir folder_;
};

TEST_F(ToolRuns, AUnitIsNamedOnBothWays) {
  const SimulatedUnit unit({"--model", "prc"});
  for (const QString& line : {unit.port, unit.bridge}) {
    const Ended asked = run({"identify", line});
    EXPECT_EQ(asked.code, 0);
    EXPECT_EQ(asked.object["unit"]["type"], "PRC");
    EXPECT_EQ(asked.object["unit"]["kind"], 0);
    EXPECT_EQ(asked.object["unit"]["version"], "1.4");
  }
  EXPECT_EQ(run({"identify", unit.port, "--model", "TMP"}).code, 3);
}

TEST_F(ToolRuns, AUnitOfTheOtherLineIsReadWithoutBeingNamedBefore) {
  const SimulatedUnit unit({"--model", "larkspur"});
  const Ended read = run({"read", unit.bridge, "-o", file("a.cfg")});
  EXPECT_EQ(read.code, 0);
  EXPECT_EQ(read.object["unit"]["kind"], 4);
  EXPECT_EQ(read.object["registers"].size(), 27U);
}

TEST_F(ToolRuns, WhatIsReadIsWrittenComparedKeptAndPutBack) {
  const SimulatedUnit unit;
  EXPECT_EQ(run({"read", unit.port, "-o", file("a.cfg"), "--keep", file("a.unit")}).code, 0);
  const Ended first = run({"write", unit.bridge, file("a.cfg"), "--record", file("r.json")});
  EXPECT_EQ(first.code, 0);
  EXPECT_EQ(first.object["verdict"], "pass");
  EXPECT_TRUE(QFile::exists(file("r.json")));
  EXPECT_EQ(run({"write", unit.bridge, file("a.cfg"), "--record", file("r.json")}).code, 5);
  EXPECT_EQ(run({"compare", unit.port, file("a.cfg")}).code, 0);
  EXPECT_EQ(run({"put-back", unit.bridge, file("a.unit")}).code, 0);
  EXPECT_EQ(run({"keep", unit.port, "-o", file("b.unit")}).code, 0);
  EXPECT_EQ(run({"compare", file("a.unit"), file("b.unit")}).code, 0);
}

TEST_F(ToolRuns, ASetupIsShownInTheWordsOfTheReport) {
  const SimulatedUnit unit;
  ASSERT_EQ(run({"read", unit.port, "-o", file("a.cfg")}).code, 0);
  const Ended shown = run({"show", file("a.cfg")});
  EXPECT_EQ(shown.code, 0);
  const json wanted = {{"section", "Input"}, {"name", "Input Type"}, {"value", "TC K-type"}};
  const auto& settings = shown.object["settings"];
  EXPECT_NE(std::find(settings.begin(), settings.end(), wanted), settings.end());
}

TEST_F(ToolRuns, AUnitOfTheOtherLineIsNotWrittenTo) {
  const SimulatedUnit unit({"--model", "larkspur"});
  ASSERT_EQ(run({"read", unit.port, "-o", file("rkw.cfg")}).code, 0);
  ASSERT_EQ(run({"keep", unit.port, "-o", file("rkw.unit")}).code, 0);
  const SimulatedUnit other;
  for (const QString& line : {other.port, other.bridge}) {
    EXPECT_EQ(run({"write", line, file("rkw.cfg")}).code, 3);
    EXPECT_EQ(run({"put-back", line, file("rkw.unit")}).code, 3);
    EXPECT_EQ(run({"compare", line, file("rkw.cfg")}).code, 3);
  }
}

TEST_F(ToolRuns, WhatIsNotThereIsTold) {
  EXPECT_EQ(run({"identify", file("no-device")}).code, 4);
  EXPECT_EQ(run({"identify", "127.0.0.1:1"}).code, 4);
  EXPECT_EQ(run({"show", file("none.cfg")}).code, 5);
  const SimulatedUnit unit({"--fault", "silent"});
  EXPECT_EQ(run({"identify", unit.port}).code, 3);
}

}  // namespace
