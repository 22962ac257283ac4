// SPDX-License-Identifier: MIT
// The sections of the report: what each row says, where its value comes from, and when it is printed.
#pragma once

#include <span>
#include <string>

namespace torvane {

enum class RowKind {
  heading,    // a bold line
  field,      // label and value on one line
  boldField,  // the same with a bold label
  labelOnly,  // no value and no end of the line: the next row stands beside it
  valueOnly,
  line,  // a line of text
};

struct ReportRow {
  RowKind kind;
  const char* label;
  std::string (*value)(int record);  // the text of a record of Memo; none for rows without a value
  int record;
  bool (*printed)();
};

struct ReportSection {
  bool (*printed)();
  bool spaceAfter;
  std::span<const ReportRow> rows;
};

// Sections 0 to 12, in the order of printing.
std::span<const ReportSection> reportSections();

}  // namespace torvane
