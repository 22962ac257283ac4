// SPDX-License-Identifier: MIT
// torvane-unit and simulated units as processes.
#include "tool/Processes.h"

#include <QFile>

namespace torvane {

Ended runTool(QStringList words) {
  QProcess program;
  program.start(TORVANE_UNIT, words << "--json");
  program.waitForFinished(patience);
  return {program.exitCode(), json::parse(program.readAllStandardOutput().toStdString(), nullptr, false)};
}

Spoken speakTool(const QStringList& words) {
  QProcess program;
  program.start(TORVANE_UNIT, words);
  program.waitForFinished(patience);
  return {program.exitCode(), program.readAllStandardOutput().toStdString(),
          program.readAllStandardError().toStdString()};
}

SimulatedUnit::SimulatedUnit(const QStringList& options, Traffic traffic) {
  QStringList words{"--tcp", "0", "--turnaround", "0"};
  if (traffic == Traffic::quiet) words << "--quiet";
  simulator_.start(UNIT_SIMULATOR, words + options);
  while (bridge.isEmpty() && simulator_.waitForReadyRead(patience)) {
    while (simulator_.canReadLine()) take(QString(simulator_.readLine()).trimmed());
  }
  EXPECT_FALSE(bridge.isEmpty());
}

SimulatedUnit::~SimulatedUnit() {
  simulator_.terminate();
  simulator_.waitForFinished(patience);
}

void SimulatedUnit::take(const QString& line) {
  if (line.startsWith("port ")) {
    port = line.mid(5);
  } else if (line.startsWith("tcp ")) {
    bridge = "127.0.0.1:" + line.mid(4);
  } else {
    lines_ << line;
  }
}

QStringList SimulatedUnit::traffic() {
  while (simulator_.canReadLine() || simulator_.waitForReadyRead(200)) {
    while (simulator_.canReadLine()) take(QString(simulator_.readLine()).trimmed());
  }
  return lines_;
}

std::string ToolTest::content(const char* name) const {
  QFile stored(file(name));
  if (!stored.open(QIODevice::ReadOnly)) return "";
  return stored.readAll().toStdString();
}

}  // namespace torvane
