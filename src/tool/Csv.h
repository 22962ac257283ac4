// SPDX-License-Identifier: MIT
// Tables of commas: cells in quotes where they hold commas, quotes (twice) or line ends.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane::tool {

struct CsvRow {
  int line = 0;  // of the text, at which it begins; from 1
  std::vector<std::string> cells = {};
};

struct CsvTable {
  std::vector<CsvRow> rows = {};  // those with anything in them
  int openQuoteAt = 0;            // the line of a quote that is never closed; 0 for none
};

// Blanks around a cell that stands in no quotes don't count.
CsvTable parseCsv(std::string_view text);

// One row with its line end.
std::string csvLine(const std::vector<std::string>& cells);

}  // namespace torvane::tool
