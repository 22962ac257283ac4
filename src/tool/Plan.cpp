// SPDX-License-Identifier: MIT
// The plan of a batch.
#include "tool/Plan.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "tool/Csv.h"

namespace torvane::tool {

namespace {

constexpr std::array<std::string_view, 5> ownColumns{"line", "address", "model", "setup", "serial"};

bool isOwn(std::string_view header) { return std::ranges::find(ownColumns, header) != ownColumns.end(); }

std::string at(int line) { return "line " + std::to_string(line); }

class Reader {
 public:
  explicit Reader(const PlanChecks& checks) : checks_(checks) {}

  Plan read(std::string_view text) {
    const CsvTable table = parseCsv(text);
    if (table.openQuoteAt > 0) complain(table.openQuoteAt, "a quote is opened and never closed");
    if (table.rows.empty()) {
      complain(1, "the headers are missing: line,address,model,setup,serial");
    } else {
      takeTable(table.rows);
    }
    std::ranges::stable_sort(found_, {}, &Found::line);
    for (const Found& found : found_) plan_.problems.push_back(at(found.line) + ": " + found.what);
    return std::move(plan_);
  }

 private:
  struct Found {
    int line;
    std::string what;
  };

  void takeTable(const std::vector<CsvRow>& rows) {
    takeHeaders(rows.front());
    for (std::size_t row = 1; row < rows.size(); ++row) takeRow(rows[row], static_cast<int>(row));
    if (rows.size() == 1) complain(rows.front().line, "there is no unit below the headers");
    checkLines();
  }

  void takeHeaders(const CsvRow& row) {
    headers_ = row.cells;
    std::set<std::string> seen;
    for (const std::string& header : headers_) {
      if (!seen.insert(header).second) complain(row.line, "the column \"" + header + "\" is there twice");
      if (!isOwn(header)) complainOf(row.line, checks_.setting, header);
    }
    for (const char* const needed : {"line", "setup"}) {
      if (!seen.contains(needed)) complain(row.line, std::string("the column ") + needed + " is missing");
    }
  }

  void takeRow(const CsvRow& cells, int number) {
    PlanRow row{.row = number, .line = cells.line};
    if (cells.cells.size() > headers_.size()) complain(cells.line, "there are more cells than headers");
    for (std::size_t column = 0; column < std::min(headers_.size(), cells.cells.size()); ++column) {
      takeCell(row, headers_[column], cells.cells[column]);
    }
    for (const char* const needed : {"line", "setup"}) mustBeFilled(cells, needed);
    if (checks_.values) {
      for (std::string& what : checks_.values(row)) complain(row.line, std::move(what));
    }
    mustBeTheOnly(serials_, row.serial, row.line, "serial " + row.serial);
    plan_.rows.push_back(std::move(row));
  }

  void takeCell(PlanRow& row, const std::string& header, const std::string& cell) {
    if (cell.empty()) return;
    if (header == "line") return takeLine(row, cell);
    if (header == "address") return takeAddress(row, cell);
    if (header == "serial") return void(row.serial = cell);
    if (header == "model") {
      row.model = cell;
      return complainOf(row.line, checks_.model, cell);
    }
    if (header == "setup") {
      row.setup = cell;
      return complainOf(row.line, checks_.setup, cell);
    }
    row.settings.emplace_back(header, cell);
  }

  void takeLine(PlanRow& row, const std::string& cell) {
    auto line = parseLineName(cell);
    if (!line && checks_.device && checks_.device(cell)) line = LineName{.device = cell};
    if (!line) return complain(row.line, '"' + cell + "\" is no line: COM1, a device path, or host:port");
    row.on = *line;
    row.place = placeOf(*line);
  }

  void takeAddress(PlanRow& row, const std::string& cell) {
    const auto addresses = parseAddresses(cell);
    if (addresses && addresses->size() == 1) {
      row.address = addresses->front();
    } else {
      complain(row.line, '"' + cell + "\" is no address: 0 to 199, or nothing");
    }
  }

  void mustBeFilled(const CsvRow& row, std::string_view header) {
    const auto column = static_cast<std::size_t>(std::ranges::find(headers_, header) - headers_.begin());
    if (column == headers_.size()) return;
    if (column >= row.cells.size() || row.cells[column].empty()) {
      complain(row.line, std::string(header) + " is empty");
    }
  }

  // On a line with one unit nothing needs an address; on a bus each unit has its own.
  void checkLines() {
    std::map<std::string, std::vector<const PlanRow*>> lines;
    for (const PlanRow& row : plan_.rows) {
      if (!row.place.empty()) lines[row.place].push_back(&row);
    }
    for (const auto& [place, rows] : lines) checkLine(lineText(rows.front()->on), rows);
  }

  std::string placeOf(const LineName& line) const {
    return checks_.place ? checks_.place(line) : lineText(line);
  }

  void checkLine(const std::string& name, const std::vector<const PlanRow*>& rows) {
    std::map<std::string, int> addresses;
    for (const PlanRow* const row : rows) {
      if (!row->address && rows.size() > 1) {
        const PlanRow* const other = row == rows.front() ? rows[1] : rows.front();
        complain(row->line, "no address, and " + at(other->line) + " is on " + name + " too");
      }
      if (!row->address) continue;
      const std::string address = std::to_string(*row->address);
      std::string what = "address ";
      what.append(address).append(" on ").append(name);
      mustBeTheOnly(addresses, address, row->line, what);
    }
  }

  void mustBeTheOnly(std::map<std::string, int>& seen, const std::string& key, int line,
                     const std::string& what) {
    if (key.empty()) return;
    const auto [first, isNew] = seen.emplace(key, line);
    if (!isNew) complain(line, what + " is in " + at(first->second) + " already");
  }

  void complainOf(int line, const std::function<std::string(const std::string&)>& check,
                  const std::string& text) {
    if (check) complainIf(line, check(text));
  }

  void complainIf(int line, std::string what) {
    if (!what.empty()) complain(line, std::move(what));
  }

  void complain(int line, std::string what) { found_.push_back({line, std::move(what)}); }

  const PlanChecks& checks_;
  Plan plan_;
  std::vector<std::string> headers_;
  std::vector<Found> found_;
  std::map<std::string, int> serials_;
};

}  // namespace

Plan parsePlan(std::string_view text, const PlanChecks& checks) { return Reader(checks).read(text); }

}  // namespace torvane::tool
