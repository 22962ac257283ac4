// SPDX-License-Identifier: MIT
// What differs, as lines.
#include "knowledge/CompareRows.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

#include "knowledge/Sections.h"

namespace torvane {

namespace {

constexpr const char* notRead = "Not read";
constexpr const char* nothingToSend = "Nothing to send";

std::string valueText(const std::string& words) { return words.empty() ? "(not in use)" : words; }

const char* wordsOf(Change change) {
  switch (change) {
    case Change::written:
      return "changed by a write";
    case Change::rounding:
      return "only rounded";
    case Change::kept:
      return "left alone by a write";
  }
  return "";
}

CompareRow rowOf(const DifferingSetting& setting) {
  return {setting.section,           setting.name,
          valueText(setting.inUnit), valueText(setting.inSetup),
          wordsOf(setting.change),   {}};
}

const RegisterRow& rowNamed(std::string_view reg) {
  return registerRows()[static_cast<std::size_t>(registerPlace(reg))];
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return lower;
}

void addUnread(std::vector<CompareRow>& rows, const UnitImage& unit) {
  for (std::size_t place = 0; place < registerCount; ++place) {
    const RegisterRow& row = registerRows()[place];
    const auto& [payload, reason] = unit.registers[place];
    if (!payload.empty() || !hasRegister(row.reg, unit.kind)) continue;
    rows.push_back({notRead, row.name, {}, {}, {}, reason.empty() ? "not known" : reason});
  }
}

}  // namespace

std::vector<CompareRow> rowsOf(const Comparison& comparison, const UnitImage& unit, bool all) {
  std::vector<DifferingSetting> settings = comparison.settings;
  std::ranges::stable_sort(settings, {}, [](const auto& each) { return tabOrder(each.section); });
  std::vector<CompareRow> rows;
  for (const DifferingSetting& setting : settings) {
    if (all || setting.change == Change::written) rows.push_back(rowOf(setting));
  }
  addUnread(rows, unit);
  for (const RegisterChange& change : comparison.registers) {
    if (!change.reason.empty())
      rows.push_back({nothingToSend, rowNamed(change.reg).name, {}, {}, {}, change.reason});
  }
  return rows;
}

std::vector<CompareRow> rowsWith(std::string_view words, const std::vector<CompareRow>& rows) {
  const std::string wanted = lowerCase(words);
  std::vector<CompareRow> found;
  std::ranges::copy_if(rows, std::back_inserter(found), [&](const CompareRow& row) {
    return lowerCase(lineOf(row)).find(wanted) != std::string::npos;
  });
  return found;
}

std::string lineOf(const CompareRow& row) {
  const std::string start = row.section + " / " + row.name + ": ";
  if (!row.reason.empty()) return start + row.reason;
  const bool plain = row.change == wordsOf(Change::written);
  return start + row.inUnit + " -> " + row.inSetup + (plain ? "" : " (" + row.change + ")");
}

int tabOrder(std::string_view heading) {
  return static_cast<int>(std::distance(std::begin(section::all), std::ranges::find(section::all, heading)));
}

std::string tableRow(const std::vector<std::string>& cells) {
  std::string row;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) row += '\t';
    for (const char c : cell) row += c >= 0 && c < ' ' ? ' ' : c;
  }
  return row;
}

}  // namespace torvane
