// SPDX-License-Identifier: MIT
// A table as a text.
#include "sim/Csv.h"

#include <utility>

namespace sim {

namespace {

class Reader {
 public:
  void take(char byte) {
    if (byte == '\n') ++line_;
    if (byte == '"') return quote();
    if (quoted_) return add(byte);
    if (byte == ',') return endCell();
    if (byte == '\n') return endRow();
    if (byte != '\r') add(byte);
  }

  std::vector<CsvRow> end() {
    ++line_;
    endRow();
    return std::move(rows_);
  }

 private:
  void add(char byte) {
    cell_ += byte;
    lastWasQuote_ = false;
  }

  // A quote within quotes is one of the text when another follows.
  void quote() {
    if (!quoted_ && lastWasQuote_) cell_ += '"';
    quoted_ = !quoted_;
    lastWasQuote_ = !quoted_;
  }

  void endCell() {
    row_.cells.push_back(std::exchange(cell_, {}));
    lastWasQuote_ = false;
  }

  void endRow() {
    endCell();
    if (row_.cells.size() > 1 || !row_.cells.front().empty()) rows_.push_back(row_);
    row_ = {line_, {}};
  }

  std::vector<CsvRow> rows_;
  CsvRow row_{1, {}};
  std::string cell_;
  int line_ = 1;
  bool quoted_ = false;
  bool lastWasQuote_ = false;
};

}  // namespace

std::vector<CsvRow> csvRows(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  Reader reader;
  for (const char byte : text) reader.take(byte);
  return reader.end();
}

}  // namespace sim
