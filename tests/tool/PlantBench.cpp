// SPDX-License-Identifier: MIT
// A plant of simulated units.
#include "tool/PlantBench.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sstream>

namespace torvane {

PlantBench::PlantBench(const std::vector<PlantUnit>& units, const QStringList& options) : units_(units) {
  QString table = "line,address,model,registers,faults\n";
  for (std::size_t at = 0; at < units.size(); ++at) {
    const PlantUnit& unit = units[at];
    const QString address = unit.address < 0 ? QString() : QString::number(unit.address);
    const QString file = "unit" + QString::number(at) + ".registers";
    write(file, unit.registers + "# from here on the simulator's\n");
    table += QStringList{unit.line, address, unit.model, file, '"' + unit.faults + '"'}.join(',') + '\n';
  }
  write("plant.csv", table);
  simulator_.start(UNIT_SIMULATOR,
                   QStringList{"--plant", path("plant.csv"), "--quiet", "--turnaround", "0"} + options);
  while (lines_.size() < units.size() &&
         (simulator_.canReadLine() || simulator_.waitForReadyRead(patience))) {
    const QString place = QString(simulator_.readLine()).trimmed().section(' ', -1);
    if (!place.isEmpty()) lines_.push_back(place.contains('/') ? place : "127.0.0.1:" + place);
  }
  EXPECT_EQ(lines_.size(), units.size()) << simulator_.readAllStandardError().toStdString();
}

PlantBench::~PlantBench() {
  EXPECT_EQ(simulator_.state(), QProcess::Running)
      << "the plant ended with " << simulator_.exitCode() << simulator_.readAllStandardError().toStdString();
  simulator_.terminate();
  simulator_.waitForFinished(patience);
}

void PlantBench::write(const QString& name, const QString& text) const {
  QFile file(path(name));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text.toUtf8());
}

std::string PlantBench::text(const QString& name) const {
  QFile file(path(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

std::map<std::string, std::string> PlantBench::registers(std::size_t unit) const {
  std::istringstream in(text("unit" + QString::number(unit) + ".registers"));
  std::map<std::string, std::string> found;
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string index;
    std::string sign;
    std::string value;
    if (words >> index >> sign >> value && sign == "=") found[index] = value;
  }
  return found;
}

void PlantBench::readSetup(std::size_t unit, const QString& name) const {
  QStringList words{"read", line(unit), "-o", path(name)};
  if (units_.at(unit).address >= 0) words << "--address" << QString::number(units_.at(unit).address);
  const Ended read = runTool(words);
  EXPECT_EQ(read.code, 0) << read.object;
}

std::vector<json> journalOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<json> lines;
  for (std::string line; std::getline(in, line);) {
    lines.push_back(json::parse(line, nullptr, false));
    const json& object = lines.back();
    EXPECT_TRUE(object.is_object() && object.contains("event")) << line;
    for (const char* key : {"time", "row", "line", "serial"}) EXPECT_TRUE(object.contains(key)) << line;
  }
  return lines;
}

}  // namespace torvane
