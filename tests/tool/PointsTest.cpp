// SPDX-License-Identifier: MIT
// What a script relies on: exit codes, who has a line, what a run that broke off says.
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <functional>

#include "platform/qt/io/LineLock.h"
#include "tool/Processes.h"

namespace torvane {

namespace {

class ToolPoints : public ToolTest {
 protected:
  QString setup() {
    const SimulatedUnit unit;
    EXPECT_EQ(runTool({"read", unit.port, "-o", file("a.cfg")}).code, 0);
    return file("a.cfg");
  }
};

// A tool at work, interrupted as by Ctrl+C.
class UnderWay {
 public:
  explicit UnderWay(QStringList words) { program_.start(TORVANE_UNIT, words << "--json"); }

  bool comesTo(const std::function<bool()>& what) {
    QElapsedTimer clock;
    clock.start();
    while (!what() && clock.elapsed() < patience) program_.waitForFinished(10);
    return what();
  }
  void mustHave(const QString& line) {
    comesTo([&] { return LineLock(line.toStdString()).holder().has_value(); });
  }
  Ended interrupt() {
    kill(static_cast<pid_t>(program_.processId()), SIGINT);
    return end();
  }
  Ended end() {
    program_.waitForFinished(patience);
    return {program_.exitCode(), json::parse(program_.readAllStandardOutput().toStdString(), nullptr, false)};
  }

 private:
  QProcess program_;
};

TEST_F(ToolPoints, ALineBelongsToOneToolForAWholeRun) {
  const QString config = setup();
  const SimulatedUnit unit;
  for (const QString& line : {unit.port, unit.bridge}) {
    UnderWay writing({"write", line, config});
    writing.mustHave(line);
    const Ended second = runTool({"keep", line, "-o", file("x.unit")});
    EXPECT_EQ(second.code, 4);
    EXPECT_NE(second.object.value("hint", "").find("torvane-unit (process "), std::string::npos);
    EXPECT_EQ(writing.end().code, 0);
  }
}

TEST_F(ToolPoints, CtrlCEndsEachCommandWithItsOwnCode) {
  const QString config = setup();
  const SimulatedUnit unit({"--fault", "late:0.2"});
  for (const QStringList& words : {QStringList{"write", unit.port, config},
                                   {"read", unit.port, "-o", file("b.cfg")},
                                   {"keep", unit.port, "-o", file("b.unit")},
                                   {"compare", unit.port, config},
                                   {"identify", unit.port}}) {
    UnderWay running(words);
    running.mustHave(unit.port);
    EXPECT_EQ(running.interrupt().code, 130) << words.first().toStdString();
  }
  EXPECT_FALSE(QFile::exists(file("b.cfg")));
  EXPECT_FALSE(QFile::exists(file("b.unit")));
}

TEST_F(ToolPoints, ACablePulledInARunIsAFaultOfThePortWithTheRegistersSoFar) {
  const QString config = setup();
  for (const QStringList& words : {QStringList{"write", config}, {"keep", "-o", file("c.unit")}}) {
    const SimulatedUnit unit({"--fault", "hangup:20"});
    QStringList call = words;
    call.insert(1, unit.port);
    const Ended pulled = runTool(call);
    EXPECT_EQ(pulled.code, 4);
    EXPECT_EQ(pulled.object["verdict"], "fail");
    EXPECT_GT(pulled.object["registers"].size(), 2U);
    EXPECT_NE(pulled.object["registers"][0]["verdict"], "failed");
  }
  EXPECT_FALSE(QFile::exists(file("c.unit")));
}

TEST_F(ToolPoints, ACablePulledAndPutBackInARunIsAFaultOfThePort) {
  const QString config = setup();
  const QString cable = file("cable");
  const SimulatedUnit pulled({"--fault", "hangup:20", "--link", cable});
  const SimulatedUnit putBack;
  UnderWay writing({"write", cable, config});
  ASSERT_TRUE(writing.comesTo([&] { return !QFileInfo(cable).isSymLink(); }));
  ASSERT_TRUE(QFile::link(putBack.port, cable));
  const Ended ended = writing.end();
  EXPECT_EQ(ended.code, 4);
  EXPECT_NE(ended.object["registers"].back()["verdict"], "failed");
}

TEST_F(ToolPoints, ABridgeThatIsGoneEndsARun) {
  const SimulatedUnit unit({"--bridge", "drop:20,0,refuses"});
  const Ended lost = runTool({"keep", unit.bridge, "-o", file("c.unit")});
  EXPECT_EQ(lost.code, 4);
  EXPECT_EQ(lost.object["registers"].back()["verdict"], "failed");
  EXPECT_LT(lost.object["registers"].size(), 20U);
}

TEST_F(ToolPoints, ARegisterThatDoesNotAnswerIsToldAndTheRestIsKept) {
  const SimulatedUnit unit({"--fault", "refuse:?43,R13"});
  EXPECT_EQ(runTool({"keep", unit.port, "-o", file("c.unit")}).code, 1);
  EXPECT_NE(content("c.unit").find("\nR13 -"), std::string::npos);
  EXPECT_EQ(runTool({"read", unit.port, "-o", file("c.cfg")}).code, 1);
  EXPECT_TRUE(QFile::exists(file("c.cfg")));
}

TEST_F(ToolPoints, WhatCannotBeWrittenIsRefusedBeforeAnythingIsSent) {
  const QString config = setup();
  SimulatedUnit unit({}, Traffic::heard);
  QFile record(file("r.json"));
  ASSERT_TRUE(record.open(QIODevice::WriteOnly));
  EXPECT_EQ(runTool({"write", unit.port, config, "--record", file("r.json")}).code, 5);
  EXPECT_EQ(runTool({"write", unit.port, config, "--record", file("none/r.json")}).code, 5);
  EXPECT_EQ(runTool({"read", unit.port, "-o", file("none/b.cfg")}).code, 5);
  EXPECT_EQ(runTool({"keep", unit.port, "-o", file("none/b.unit")}).code, 5);
  EXPECT_EQ(runTool({"write", unit.port, config, "--model", "nonsense"}).code, 2);
  EXPECT_EQ(unit.traffic(), QStringList());
}

TEST_F(ToolPoints, AnErrorIsOneObjectWithAHint) {
  for (const QStringList& words : {QStringList{"ports", "x"},
                                   {"find", "--addresses", "x"},
                                   {"identify", "x"},
                                   {"read", "COM1"},
                                   {"write", "COM1"},
                                   {"compare", "x"},
                                   {"keep", "COM1"},
                                   {"put-back", "COM1"},
                                   {"show", "none.cfg"},
                                   {"set", "none.cfg", "A=1", "-o", file("x.cfg")},
                                   {"batch", "none.csv", "--journal", file("j")}}) {
    const Ended refused = runTool(words);
    EXPECT_TRUE(refused.code == 2 || refused.code == 5) << words.first().toStdString();
    EXPECT_EQ(refused.object["schema"], "torvane-unit/1");
    EXPECT_NE(refused.object["error"], "");
    EXPECT_TRUE(refused.object["hint"].is_string());
  }
}

}  // namespace

}  // namespace torvane
