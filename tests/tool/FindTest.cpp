// SPDX-License-Identifier: MIT
// torvane-unit find: what answers, and where.
#include <QFile>

#include "tool/Processes.h"

namespace torvane {

namespace {

using ToolFind = ToolTest;

// Two units on a bus, one behind a bridge.
class SmallPlant {
 public:
  explicit SmallPlant(const QString& folder) : bus(folder + "/bus") {
    QFile plan(folder + "/plant.csv");
    EXPECT_TRUE(plan.open(QIODevice::WriteOnly));
    plan.write("line,address,model,registers,faults\npty:" + bus.toUtf8() + ",5,tmp,,\npty:" + bus.toUtf8() +
               ",7,prc,,\ntcp:any,,larkspur,,\n");
    plan.close();
    simulator_.start(UNIT_SIMULATOR, {"--plant", plan.fileName(), "--quiet", "--turnaround", "0"});
    for (int lines = 0; lines < 3 && (simulator_.canReadLine() || simulator_.waitForReadyRead(patience));) {
      for (; simulator_.canReadLine(); ++lines) {
        const QString line = QString(simulator_.readLine()).trimmed();
        if (line.startsWith("tcp:")) bridge = "127.0.0.1:" + line.section(' ', -1);
      }
    }
    EXPECT_FALSE(bridge.isEmpty());
  }
  SmallPlant(const SmallPlant&) = delete;
  SmallPlant& operator=(const SmallPlant&) = delete;
  ~SmallPlant() {
    simulator_.terminate();
    simulator_.waitForFinished(patience);
  }

  QString bus;
  QString bridge;

 private:
  QProcess simulator_;
};

TEST_F(ToolFind, UnitsOnABusByTheirAddresses) {
  const SmallPlant plant(file("."));
  const Ended found = runTool({"find", "--port", plant.bus, "--addresses", "4-5,7"});
  EXPECT_EQ(found.code, 0);
  const std::string line = plant.bus.toStdString();
  const json wanted = {{{"line", line}, {"address", 5}, {"kind", 0}, {"type", "TMP"}, {"version", "1.4"}},
                       {{"line", line}, {"address", 7}, {"kind", 0}, {"type", "PRC"}, {"version", "1.4"}}};
  EXPECT_EQ(found.object["units"], wanted);
  EXPECT_EQ(found.object["schema"], "torvane-unit/1");
  const Spoken table = speakTool({"find", "--port", plant.bus, "--addresses", "7"});
  EXPECT_NE(table.out.find("7        PRC   1.4"), std::string::npos) << table.out;
  EXPECT_EQ(table.error, "");
}

TEST_F(ToolFind, AUnitOfTheOtherLineBehindABridge) {
  const SmallPlant plant(file("."));
  const Ended found = runTool({"find", "--host", plant.bridge});
  EXPECT_EQ(found.code, 0);
  ASSERT_EQ(found.object["units"].size(), 1U);
  EXPECT_EQ(found.object["units"][0]["type"], "Rkw77");
  EXPECT_EQ(found.object["units"][0]["kind"], 4);
  EXPECT_EQ(found.object["units"][0]["address"], nullptr);
  EXPECT_EQ(speakTool({"find", "--host", plant.bridge}).error, "");
}

TEST_F(ToolFind, NothingThereIsToldByTheExitCode) {
  const SimulatedUnit silent({"--fault", "silent"});
  const Ended found = runTool({"find", "--port", silent.port});
  EXPECT_EQ(found.code, 3);
  EXPECT_EQ(found.object["units"], json::array());
  EXPECT_EQ(runTool({"find", "--port", file("none/at/all")}).code, 4);
  EXPECT_EQ(runTool({"find", "--host", "127.0.0.1:1"}).code, 4);
}

}  // namespace

}  // namespace torvane
