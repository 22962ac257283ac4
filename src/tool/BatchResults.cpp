// SPDX-License-Identifier: MIT
// What a batch came to.
#include "tool/BatchResults.h"

#include <algorithm>
#include <array>

#include "tool/Csv.h"
#include "tool/Output.h"

namespace torvane::tool {

namespace {

struct StandingWord {
  Standing standing;
  const char* word;
};

constexpr std::array<StandingWord, 5> standingWords{{{Standing::verified, "verified"},
                                                     {Standing::failed, "failed"},
                                                     {Standing::refused, "refused"},
                                                     {Standing::half, "half written"},
                                                     {Standing::untouched, "left"}}};

std::string wordOf(Standing standing) {
  return std::ranges::find(standingWords, standing, &StandingWord::standing)->word;
}

using Cell = std::string (*)(const RowResult&);

struct Column {
  const char* name;
  Cell cell;
};

constexpr std::array<Column, 10> columns{{
    {"row", [](const RowResult& one) { return std::to_string(one.row->row); }},
    {"line", [](const RowResult& one) { return lineText(one.row->on); }},
    {"address",
     [](const RowResult& one) { return one.row->address ? std::to_string(*one.row->address) : ""; }},
    {"serial", [](const RowResult& one) { return one.row->serial; }},
    {"model", [](const RowResult& one) { return one.row->model; }},
    {"setup", [](const RowResult& one) { return one.row->setup; }},
    {"result", [](const RowResult& one) { return wordOf(one.progress.standing); }},
    {"reason", [](const RowResult& one) { return one.progress.reason; }},
    {"kept", [](const RowResult& one) { return one.progress.kept; }},
    {"record", [](const RowResult& one) { return one.progress.record; }},
}};

// What a person looks for first.
constexpr std::array<std::string_view, 6> shown{"row", "line", "address", "serial", "result", "reason"};

std::string upper(std::string text) {
  for (char& letter : text) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 32);
  }
  return text;
}

std::size_t count(const std::vector<RowResult>& results, Standing standing) {
  return static_cast<std::size_t>(std::ranges::count_if(
      results, [standing](const RowResult& one) { return one.progress.standing == standing; }));
}

std::string summaryOf(const std::vector<RowResult>& results) {
  std::string text = std::to_string(results.size()) + (results.size() == 1 ? " unit" : " units");
  const char* between = ": ";
  for (const auto& [standing, word] : standingWords) {
    const std::size_t number = count(results, standing);
    if (number > 0) text += between + std::to_string(number) + ' ' + word;
    if (number > 0) between = ", ";
  }
  return text + '\n';
}

Json objectOf(const RowResult& one) {
  Json object;
  object["row"] = one.row->row;
  object["line"] = lineText(one.row->on);
  object["address"] = nullptr;
  if (one.row->address) object["address"] = *one.row->address;
  object["serial"] = one.row->serial;
  object["model"] = one.row->model;
  object["setup"] = one.row->setup;
  object["result"] = wordOf(one.progress.standing);
  object["reason"] = one.progress.reason;
  object["half"] = one.progress.wasHalf;
  object["kept"] = one.progress.kept;
  object["record"] = one.progress.record;
  object["repaired"] = one.repaired;
  return object;
}

}  // namespace

std::vector<RowResult> resultsOf(const BatchPlan& plan, const std::map<int, RowProgress>& progress) {
  std::vector<RowResult> results;
  for (const PlanRow& row : plan.plan.rows) {
    const auto found = progress.find(row.row);
    const auto repaired = plan.repaired.find(row.row);
    results.push_back({&row, found == progress.end() ? RowProgress() : found->second,
                       repaired == plan.repaired.end() ? Json::array() : repaired->second});
  }
  return results;
}

std::string resultsTable(const std::vector<RowResult>& results) {
  std::vector<std::vector<std::string>> rows(results.size() + 1);
  for (const Column& column : columns) {
    if (std::ranges::find(shown, column.name) == shown.end()) continue;
    rows[0].push_back(upper(column.name));
    for (std::size_t at = 0; at < results.size(); ++at) rows[at + 1].push_back(column.cell(results[at]));
  }
  return tableText(rows) + summaryOf(results);
}

std::string resultsCsv(const std::vector<RowResult>& results) {
  std::vector<std::string> cells;
  cells.reserve(columns.size());
  for (const Column& column : columns) cells.emplace_back(column.name);
  std::string text = csvLine(cells);
  for (const RowResult& one : results) {
    cells.clear();
    for (const Column& column : columns) cells.push_back(column.cell(one));
    text += csvLine(cells);
  }
  return text;
}

Json resultsJson(const std::vector<RowResult>& results) {
  Json rows = Json::array();
  for (const RowResult& one : results) rows.push_back(objectOf(one));
  return rows;
}

ExitCode exitCodeOf(const std::vector<RowResult>& results) {
  const std::size_t refused = count(results, Standing::refused);
  if (count(results, Standing::verified) + refused < results.size()) return ExitCode::differs;
  return refused == 0 ? ExitCode::done : ExitCode::noUnit;
}

}  // namespace torvane::tool
