// SPDX-License-Identifier: MIT
// The table of a plant.
#include "sim/PlantFile.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <utility>

#include "sim/BridgeOptions.h"
#include "sim/Csv.h"
#include "sim/FaultOptions.h"
#include "sim/Numbers.h"

namespace sim {

namespace {

constexpr std::string_view bridgeMark = "bridge:";

bool takeLine(PlantUnit& unit, const std::string& text) {
  unit.line = text;
  const std::string name = lineName(text);
  if (lineKind(text) == "tcp") return !name.empty() && wholeNumber(name).value_or(0) <= 65535;
  return lineKind(text) == "pty" && !name.empty();
}

bool takeAddress(PlantUnit& unit, const std::string& text) {
  if (text.empty()) return true;
  const auto address = wholeNumber(text);
  if (!address || *address < 0 || *address > 199) return false;
  unit.setup.addressed = true;
  unit.setup.address = *address;
  return true;
}

bool takeModel(PlantUnit& unit, const std::string& text) {
  if (text.empty()) return true;
  const auto model = modelNamed(text);
  if (model) unit.setup.model = *model;
  return model.has_value();
}

bool takeRegisters(PlantUnit& unit, const std::string& text) {
  unit.registers = text;
  return true;
}

bool takeBridgeFault(PlantUnit& unit, std::string_view text) {
  unit.bridgeFaults.emplace_back(text);
  BridgeFaults trial;
  return lineKind(unit.line) == "tcp" && addBridgeFault(trial, text);
}

bool takeFaults(PlantUnit& unit, const std::string& text) {
  if (text.empty()) return true;
  const auto faults = splitText(text, ';');
  return std::ranges::all_of(faults, [&](std::string_view fault) {
    return fault.starts_with(bridgeMark) ? takeBridgeFault(unit, fault.substr(bridgeMark.size()))
                                         : addFault(unit.faults, fault);
  });
}

struct Column {
  std::string_view name;
  bool (*take)(PlantUnit&, const std::string&);
};

// In the order in which they are taken: a fault may be one of the line.
constexpr std::array<Column, 5> columns{{{"line", takeLine},
                                         {"address", takeAddress},
                                         {"model", takeModel},
                                         {"registers", takeRegisters},
                                         {"faults", takeFaults}}};

class Parser {
 public:
  explicit Parser(const PlantUnit& common) : common_(common) {}

  PlantTable parse(std::string_view text) {
    std::vector<CsvRow> rows = csvRows(text);
    if (rows.empty()) rows.push_back({1, {}});
    takeHeaders(rows.front());
    if (table_.problems.empty()) {
      for (std::size_t at = 1; at < rows.size(); ++at) takeUnit(rows[at]);
      if (table_.units.empty()) complain(rows.front().line, "is the last one: no units");
    }
    return std::move(table_);
  }

 private:
  void takeHeaders(const CsvRow& row) {
    headers_ = row.cells;
    for (const std::string& header : headers_) {
      if (std::ranges::find(columns, header, &Column::name) == columns.end()) {
        complain(row.line, "has no column " + header + " to offer: line, address, model, registers, faults");
      }
    }
    if (std::ranges::find(headers_, "line") == headers_.end()) complain(row.line, "lacks the column line");
  }

  void takeUnit(const CsvRow& row) {
    if (row.cells.size() > headers_.size()) complain(row.line, "has more cells than headers");
    PlantUnit unit = common_;
    for (const Column& column : columns) {
      const std::string cell = cellOf(row, column.name);
      if (!column.take(unit, cell)) complain(row.line, std::string(column.name) + " can't be " + cell);
    }
    mustBeAlone(row.line, unit.line + (unit.setup.addressed ? ' ' + std::to_string(unit.setup.address) : ""),
                "the same unit");
    if (!unit.registers.empty()) mustBeAlone(row.line, unit.registers, "the same file of registers");
    table_.units.push_back(std::move(unit));
  }

  std::string cellOf(const CsvRow& row, std::string_view column) const {
    const auto at = static_cast<std::size_t>(std::ranges::find(headers_, column) - headers_.begin());
    return at < row.cells.size() ? row.cells[at] : std::string();
  }

  void mustBeAlone(int line, const std::string& thing, const std::string& what) {
    const auto [first, isNew] = seen_.emplace(thing, line);
    if (!isNew) complain(line, "has " + what + " as line " + std::to_string(first->second));
  }

  void complain(int line, const std::string& what) {
    table_.problems.push_back("line " + std::to_string(line) + ": " + what);
  }

  const PlantUnit& common_;
  PlantTable table_;
  std::vector<std::string> headers_;
  std::map<std::string, int> seen_;
};

}  // namespace

std::string lineKind(const std::string& line) { return line.substr(0, line.find(':')); }

std::string lineName(const std::string& line) {
  const std::size_t colon = line.find(':');
  return colon == std::string::npos ? std::string() : line.substr(colon + 1);
}

PlantTable parsePlant(std::string_view text, const PlantUnit& common) { return Parser(common).parse(text); }

}  // namespace sim
