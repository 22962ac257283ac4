// SPDX-License-Identifier: MIT
// A plant of simulated units in a folder of its own.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <string>
#include <vector>

#include "tool/Processes.h"

namespace torvane {

struct PlantUnit {
  QString line;  // "pty:bus1" or "tcp:b1"
  int address = -1;
  QString model = "tmp";
  QString registers = {};  // what its registers begin with, beside the factory's: "01 = 2004D2\n"
  QString faults = {};
};

class PlantBench {
 public:
  explicit PlantBench(const std::vector<PlantUnit>& units, const QStringList& options = {});
  PlantBench(const PlantBench&) = delete;
  PlantBench& operator=(const PlantBench&) = delete;
  ~PlantBench();

  QString path(const QString& name) const { return folder_.filePath(name); }
  void write(const QString& name, const QString& text) const;
  std::string text(const QString& name) const;

  // How a plan names the line of the unit at this place of the table.
  QString line(std::size_t unit) const { return lines_.at(unit); }
  // Its registers as they stand now, one a line.
  std::map<std::string, std::string> registers(std::size_t unit) const;
  // A setup read from it.
  void readSetup(std::size_t unit, const QString& name) const;

 private:
  QString fileOf(std::size_t unit) const { return path("unit" + QString::number(unit) + ".registers"); }

  QTemporaryDir folder_;
  QProcess simulator_;
  std::vector<PlantUnit> units_;
  std::vector<QString> lines_;
};

// The lines of a journal; a test fails where one is no JSON of its form.
std::vector<json> journalOf(const std::string& text);

}  // namespace torvane
