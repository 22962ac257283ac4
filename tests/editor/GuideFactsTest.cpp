// SPDX-License-Identifier: MIT
// Facts that the guide lists as tables: row by row what the program does, in its words.
#include <fstream>

#include "core/PartNumber.h"
#include "editor/ForcedRules.h"
#include "runs/NoWay.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/BoxPages.h"

namespace torvane {

namespace {

using Row = std::vector<std::string>;

std::string pageOf(const std::string& file) {
  std::ostringstream text;
  text << std::ifstream(ASSETS "/help/" + file).rdbuf();
  return text.str();
}

// What stands between the two; `html` is left with what follows.
std::string takeBetween(std::string& html, std::string_view open, std::string_view close) {
  const std::size_t begin = html.find(open);
  const std::size_t end = html.find(close, begin);
  if (begin == html.npos || end == html.npos) return std::exchange(html, {});
  const std::string between = html.substr(begin + open.size(), end - begin - open.size());
  html.erase(0, end + close.size());
  return between;
}

// The rows of the first table after the heading, without its head.
std::vector<Row> tableAfter(const std::string& file, const std::string& heading) {
  std::string page = pageOf(file);
  takeBetween(page, "<h2>", heading + "</h2>");
  std::string table = takeBetween(page, "<table>", "</table>");
  std::vector<Row> rows;
  while (table.find("<tr>") != table.npos) {
    std::string row = takeBetween(table, "<tr>", "</tr>");
    Row cells;
    while (row.find("<td>") != row.npos) cells.push_back(simplified(takeBetween(row, "<td>", "</td>")));
    if (!cells.empty()) rows.push_back(cells);
  }
  return rows;
}

TEST(GuideFacts, WhatTheWindowChangesInASetupIsListedAsItIsDone) {
  std::vector<Row> done;
  for (const ForcedRule& rule : forcedRules()) done.push_back({rule.when, rule.becomes});
  EXPECT_EQ(tableAfter("read-from.html", "After a read"), done);
}

TEST(GuideFacts, EveryCauseOfNoWayToTheUnitIsListedInTheWordsOfTheProgram) {
  std::vector<Row> said;
  for (const NoWay* each : noWays()) said.push_back({each->cause, each->advice});
  EXPECT_EQ(tableAfter("no-way.html", "The line and the unit"), said);
}

TEST(GuideFacts, TheModelsAreThoseOfTheHardwareDialog) {
  std::string page = pageOf("hardware-setup.html");
  std::string models;
  for (const std::string& model : listedModels()) models += (models.empty() ? "" : ", ") + model;
  EXPECT_EQ(simplified(takeBetween(page, "The models: ", ".</p>")), models);
}

}  // namespace

}  // namespace torvane
