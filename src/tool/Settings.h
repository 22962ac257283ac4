// SPDX-License-Identifier: MIT
// The settings of the records by name: the report's words, and behind them what a write sends and the report
// does not print.
#pragma once

#include <string>
#include <vector>

namespace tool {

struct NamedSetting {
  std::string section;
  std::string name;
  std::string value;
};

std::vector<NamedSetting> settingsOfRecords();

}  // namespace tool
