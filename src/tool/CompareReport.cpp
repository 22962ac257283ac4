// SPDX-License-Identifier: MIT
// A comparison as JSON and as words.
#include "tool/CompareReport.h"

namespace torvane::tool {

namespace {

const char* wordOf(Change change) {
  switch (change) {
    case Change::written:
      return "written";
    case Change::rounding:
      return "rounding";
    case Change::kept:
      return "kept";
  }
  return "";
}

const char* verdictOf(const RegisterChange& change) {
  if (change.before.empty()) return "failed";
  if (change.written) return "differs";
  return change.after.empty() ? "skipped" : "same";
}

}  // namespace

Json differingSettings(const Comparison& comparison) {
  Json settings = Json::array();
  for (const DifferingSetting& each : comparison.settings) {
    settings.push_back({{"section", each.section},
                        {"name", each.name},
                        {"value", each.inSetup},
                        {"unit", each.inUnit},
                        {"change", wordOf(each.change)}});
  }
  return settings;
}

Json registerChanges(const Comparison& comparison) {
  Json registers = Json::array();
  for (const RegisterChange& each : comparison.registers) {
    registers.push_back({{"index", each.reg},
                         {"before", each.before},
                         {"after", each.after},
                         {"verdict", verdictOf(each)},
                         {"reason", each.reason}});
  }
  return registers;
}

std::string comparisonTable(const Comparison& comparison) {
  std::vector<std::vector<std::string>> rows{{"SECTION", "NAME", "UNIT", "SETUP", "CHANGE"}};
  for (const DifferingSetting& each : comparison.settings)
    rows.push_back({each.section, each.name, each.inUnit, each.inSetup, wordOf(each.change)});
  return (rows.size() > 1 ? tableText(rows) : std::string()) + summaryOf(comparison) + '\n';
}

}  // namespace torvane::tool
