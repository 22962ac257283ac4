// SPDX-License-Identifier: MIT
// What differs, as lines.
#include "knowledge/CompareRows.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace {

// The sections of the report in the order of the tabs that show them.
constexpr std::string_view sections[] = {"General",
                                         "Set Points",
                                         "Input",
                                         "Reading Configuration",
                                         "Reading Scale & Offset",
                                         "Alarm 1",
                                         "Alarm 2",
                                         "Loop Break Alarm / Reading Adjust",
                                         "Out 1",
                                         "Out 2",
                                         "Ramp & Soak",
                                         "Analog Output",
                                         "Comm"};

auto tabOrder(const DifferingSetting& setting) {
  return std::distance(std::begin(sections), std::ranges::find(sections, setting.section));
}

std::string valueText(const std::string& words) { return words.empty() ? "(not in use)" : words; }

std::string noteOf(Change change) {
  if (change == Change::rounding) return " (only rounded)";
  return change == Change::kept ? " (left alone by a write)" : "";
}

CompareRow rowOf(const DifferingSetting& setting) {
  return {setting.section + " / " + setting.name + ": " + valueText(setting.inUnit) + " -> " +
          valueText(setting.inSetup) + noteOf(setting.change)};
}

const char* nameOf(std::string_view reg) {
  return registerRows()[static_cast<std::size_t>(registerPlace(reg))].name;
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return lower;
}

}  // namespace

std::vector<CompareRow> rowsOf(const Comparison& comparison, const UnitImage& unit, bool all) {
  std::vector<DifferingSetting> settings = comparison.settings;
  std::ranges::stable_sort(settings, {}, tabOrder);
  std::vector<CompareRow> rows;
  for (const DifferingSetting& setting : settings) {
    if (all || setting.change == Change::written) rows.push_back(rowOf(setting));
  }
  for (const RegisterRow& row : registerRows()) {
    const std::string& reason = unit.registers[static_cast<std::size_t>(registerPlace(row.reg))].reason;
    if (!reason.empty()) rows.push_back({std::string("Not read: ") + row.name + ": " + reason, true});
  }
  for (const RegisterChange& change : comparison.registers) {
    if (change.reason.empty()) continue;
    rows.push_back({std::string("Nothing to send: ") + nameOf(change.reg) + ": " + change.reason, true});
  }
  return rows;
}

std::vector<CompareRow> rowsWith(std::string_view words, const std::vector<CompareRow>& rows) {
  const std::string wanted = lowerCase(words);
  std::vector<CompareRow> found;
  std::ranges::copy_if(rows, std::back_inserter(found), [&](const CompareRow& row) {
    return lowerCase(row.text).find(wanted) != std::string::npos;
  });
  return found;
}
