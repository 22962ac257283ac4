// SPDX-License-Identifier: MIT
// The unit's registers: what there is, how wide, what it holds.
#include "sim/Registers.h"

#include <array>

#include "sim/Numbers.h"
#include "sim/OlderUnits.h"

namespace sim {

namespace {

// clang-format off
constexpr std::array<RegisterFact, 33> registerFacts{{
    // index, name, digits, power-on value, on the Larkspur line
    {"01", "Set-point 1",                         6, "200000", true},
    {"02", "Set-point 2",                         6, "200000", true},
    {"03", "Reading offset",                      6, "700000", true},
    {"04", "Analog output offset",                6, "C00000", true},
    {"05", "ID code",                             4, "0000",   true},
    {"07", "Input type",                          2, "04",     true},
    {"08", "Reading configuration",               2, "42",     true},
    {"09", "Alarm 1 configuration",               2, "00",     true},
    {"0A", "Alarm 2 configuration",               2, "00",     true},
    {"0B", "Loop break time",                     4, "003B",   true},
    {"0C", "Output 1 configuration",              2, "00",     true},
    {"0D", "Output 2 configuration",              2, "00",     true},
    {"0E", "Ramp time",                           4, "0000",   true},
    {"0F", "Analog output scale",                 6, "6186A0", true},
    {"11", "Display colours",                     2, "09",     false},
    {"12", "Alarm 1 low set-point",               6, "A003E8", true},
    {"13", "Alarm 1 high set-point",              6, "200FA0", true},
    {"14", "Reading scale",                       6, "6186A0", true},
    {"15", "Alarm 2 low set-point",               6, "A003E8", false},
    {"16", "Alarm 2 high set-point",              6, "200FA0", false},
    {"17", "Output 1 proportional or dead band",  4, "00C8",   true},
    {"18", "Output 1 reset",                      4, "00B4",   true},
    {"19", "Output 1 rate",                       4, "0000",   true},
    {"1A", "Output 1 cycle time",                 2, "07",     true},
    {"1C", "Output 2 proportional or dead band",  4, "00C8",   true},
    {"1D", "Output 2 cycle time",                 2, "07",     true},
    {"1E", "Soak time",                           4, "0000",   true},
    {"1F", "Bus format",                          2, "34",     true},
    {"21", "Bus address",                         2, "01",     true},
    {"24", "Miscellaneous",                       2, "00",     false},
    {"25", "Cold junction offset",                6, "200000", true},
    {"27", "Output 1 low percentage",             2, "00",     false},
    {"28", "Output 1 high percentage",            2, "63",     false},
}};

// Two indices are another thing on the Larkspur line, and their width tells the lines apart.
constexpr std::array<RegisterFact, 2> larkspurFacts{{
    {"11", "Family code",                         6, "000077", true, true},
    {"24", "Family features",                     6, "000000", true, true},
}};
// clang-format on

// Of an older unit no more is known here than what frames its commands.
bool has(Model model, const RegisterFact& fact) {
  if (isOlder(model)) return fact.index == "1F" || fact.index == "21";
  return model != Model::larkspur || fact.larkspur;
}

}  // namespace

RegisterBank::RegisterBank(Model model) {
  const auto add = [this](const RegisterFact& fact) {
    cells_[std::string(fact.index)] = {fact, std::string(fact.powerOn)};
  };
  for (const RegisterFact& fact : registerFacts) {
    if (has(model, fact)) add(fact);
  }
  if (model != Model::larkspur) return;
  for (const RegisterFact& fact : larkspurFacts) add(fact);
}

std::vector<std::string> RegisterBank::indices() const {
  std::vector<std::string> all;
  all.reserve(cells_.size());
  for (const auto& [index, cell] : cells_) all.push_back(index);
  return all;
}

const RegisterFact* RegisterBank::find(std::string_view index) const {
  const auto cell = cells_.find(index);
  return cell == cells_.end() ? nullptr : &cell->second.fact;
}

std::string RegisterBank::hex(std::string_view index) const {
  const auto cell = cells_.find(index);
  return cell == cells_.end() ? std::string() : cell->second.hex;
}

bool RegisterBank::set(std::string_view index, std::string_view hex) {
  const auto cell = cells_.find(index);
  if (cell == cells_.end() || hex.size() != cell->second.fact.width || !hexNumber(hex)) return false;
  cell->second.hex = hex;
  return true;
}

}  // namespace sim
