// SPDX-License-Identifier: MIT
// torvane-unit and simulated units as processes.
#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

namespace torvane {

using nlohmann::json;

inline constexpr int patience = 120'000;  // milliseconds

struct Ended {
  int code;
  json object;  // of --json
};
// With --json added.
Ended runTool(QStringList words);

struct Spoken {
  int code;
  std::string out;
  std::string error;
};
Spoken speakTool(const QStringList& words);

enum class Traffic { quiet, heard };

// A unit on a pseudo terminal and behind a bridge.
class SimulatedUnit {
 public:
  explicit SimulatedUnit(const QStringList& options = {}, Traffic traffic = Traffic::quiet);
  SimulatedUnit(const SimulatedUnit&) = delete;
  SimulatedUnit& operator=(const SimulatedUnit&) = delete;
  ~SimulatedUnit();

  QStringList traffic();  // its lines so far

  QString port;
  QString bridge;

 private:
  void take(const QString& line);

  QProcess simulator_;
  QStringList lines_;
};

class ToolTest : public testing::Test {
 protected:
  QString file(const char* name) const { return folder_.filePath(name); }
  // Bytes of a file; an empty text where there is none.
  std::string content(const char* name) const;

 private:
  QTemporaryDir folder_;
};

}  // namespace torvane
