// SPDX-License-Identifier: MIT
// The settings by name: the report's words, and after them what a write sends and the report does not print.
#pragma once

#include <string>
#include <vector>

#include "editor/SetupEditor.h"
#include "tool/Problem.h"

namespace torvane::tool {

// ---- what there is

struct NamedSetting {
  std::string section;
  std::string name;
  std::string value;  // as printed

  bool operator==(const NamedSetting&) const = default;
};

// All settings of the records, in the order of the report.
std::vector<NamedSetting> settingsOfRecords();

// ---- changes

// A setting as a user calls it, "Setpoint 1" or "alarm 1/high setpoint", and its new value.
struct SettingChange {
  std::string name;
  std::string value;
};

// "NAME=VALUE". Throws Problem.
SettingChange parseChange(const std::string& text);

// Why there is no such setting, or none that can have this value; nothing for a change that can be made.
struct ChangeFault {
  std::string what;  // empty: none
  std::string hint;  // the nearest legal ones
};
ChangeFault nameFault(const std::string& name);
ChangeFault faultOf(const SettingChange& change);

struct RepairedSetting {
  std::string section;
  std::string name;
  std::string given;
  std::string value;  // as printed, what the rules made of it
};

// Makes all changes by the rules of entry, in an order in which each finds what it depends on, whatever order
// they come in. Tells which came out as another value. Throws Problem with all faults before anything is
// changed.
std::vector<RepairedSetting> applyChanges(SetupEditor& editor, const std::vector<SettingChange>& changes);

}  // namespace torvane::tool
