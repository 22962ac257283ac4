// SPDX-License-Identifier: MIT
// The setup of one unit of a plan.
#include "tool/OwnValues.h"

#include "tool/Settings.h"
#include "tool/Setup.h"

namespace torvane::tool {

namespace {

std::string textOf(const ChangeFault& fault) {
  return fault.what + (fault.hint.empty() ? "" : ". " + fault.hint);
}

std::vector<SettingChange> changesOf(const PlanRow& row) {
  std::vector<SettingChange> changes;
  changes.reserve(row.settings.size());
  for (const auto& [name, value] : row.settings) changes.push_back({name, value});
  return changes;
}

}  // namespace

std::string columnFault(const std::string& header) {
  beginRecords();
  return textOf(nameFault(header));
}

Json takeSetup(const PlanRow& row) {
  SetupDesk desk;
  desk.open(row.setupFile);
  Json list = Json::array();
  for (const auto& [section, name, given, value] : applyChanges(desk.editor, changesOf(row)))
    list.push_back({{"section", section}, {"name", name}, {"given", given}, {"value", value}});
  return list;
}

std::vector<std::string> valueFaults(const PlanRow& row) {
  std::vector<std::string> faults;
  for (const SettingChange& change : changesOf(row)) {
    // A wrong column name is reported once, with the headers.
    if (!nameFault(change.name).what.empty()) continue;
    if (std::string fault = textOf(faultOf(change)); !fault.empty()) faults.push_back(std::move(fault));
  }
  return faults;
}

}  // namespace torvane::tool
