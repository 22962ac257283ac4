// SPDX-License-Identifier: MIT
// Tables of commas.
#include "tool/Csv.h"

#include <algorithm>
#include <utility>

namespace torvane::tool {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Takes the text from its front, cell by cell.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  CsvTable read() {
    while (!rest_.empty()) readRow();
    return std::move(table_);
  }

 private:
  void readRow() {
    CsvRow row{line_};
    do {
      row.cells.push_back(readCell());
    } while (takeIf(','));
    takeIf('\r');
    if (takeIf('\n')) ++line_;
    const bool isEmpty = std::ranges::all_of(row.cells, &std::string::empty);
    if (!isEmpty) table_.rows.push_back(std::move(row));
  }

  std::string readCell() {
    const std::size_t first = std::min(rest_.find_first_not_of(" \t"), rest_.size());
    if (rest_.substr(first).starts_with('"')) {
      rest_.remove_prefix(first + 1);
      return readQuoted() + trimmed(readPlain());
    }
    return trimmed(readPlain());
  }

  std::string readPlain() {
    const std::size_t size = std::min(rest_.find_first_of(",\r\n"), rest_.size());
    return take(size);
  }

  std::string readQuoted() {
    const int opened = line_;
    std::string cell;
    for (;;) {
      const std::size_t quote = rest_.find('"');
      if (quote == std::string_view::npos) table_.openQuoteAt = opened;
      cell += take(std::min(quote, rest_.size()));
      if (!takeIf('"') || !takeIf('"')) return cell;
      cell += '"';
    }
  }

  std::string take(std::size_t size) {
    std::string piece(rest_.substr(0, size));
    line_ += static_cast<int>(std::ranges::count(piece, '\n'));
    rest_.remove_prefix(size);
    return piece;
  }

  bool takeIf(char byte) {
    if (!rest_.starts_with(byte)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string_view rest_;
  int line_ = 1;
  CsvTable table_;
};

std::string csvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos && text == trimmed(text)) return text;
  std::string cell = "\"";
  for (const char letter : text) cell += letter == '"' ? std::string("\"\"") : std::string(1, letter);
  return cell + '"';
}

}  // namespace

CsvTable parseCsv(std::string_view text) {
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  return Reader(text).read();
}

std::string csvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) line += csvCell(cell) + ',';
  if (!line.empty()) line.pop_back();
  return line + "\r\n";
}

}  // namespace torvane::tool
