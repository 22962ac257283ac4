// SPDX-License-Identifier: MIT
// A table as a text: cells between commas, in quotes where they hold commas, quotes (twice) or line ends.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct CsvRow {
  int line = 0;  // of the text, at which it begins; from 1
  std::vector<std::string> cells;
};

// Rows without anything in them are left out.
std::vector<CsvRow> csvRows(std::string_view text);

}  // namespace sim
