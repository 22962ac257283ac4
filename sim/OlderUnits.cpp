// SPDX-License-Identifier: MIT
// Units of the lines before Torvane and Larkspur, as far as a program hears of them that tells families
// apart.
#include "sim/OlderUnits.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace sim {

namespace {

constexpr const char* unknownCommand = "?43";

constexpr std::array<std::string_view, 6> commands{"X01", "R01", "D05", "R24", "R25", "R04"};

struct OlderFact {
  Model model;
  std::string_view front;  // in front of every reply of a unit without an address
  std::array<std::string_view, commands.size()> values;  // after the echo; "?" begins a refusal
};

// clang-format off
constexpr std::array<OlderFact, 7> olderFacts{{
    //                     front  X01     R01       D05    R24     R25     R04
    {Model::mpl,           "00", {"0235", "04",     "?43", "?43",  "?43",  "?43"}},
    {Model::mpt,           "",   {"0235", "04",     "?43", "?43",  "?43",  "?43"}},
    {Model::quillonRate,   "",   {"0235", "200000", "?43", "00",   "04",   "C00000"}},
    {Model::quillon,       "",   {"0235", "2000",   "",    "00",   "0000", "C000"}},
    {Model::quillonStrain, "",   {"0235", "2000",   "?43", "00",   "0000", "C000"}},
    {Model::qlncac,        "",   {"0235", "200000", "?43", "0000", "0000", "C00000"}},
    {Model::stranger,      "",   {"0235", "20000",  "?43", "?43",  "?43",  "?43"}},
}};
// clang-format on

const OlderFact* find(Model model) {
  const auto fact = std::ranges::find(olderFacts, model, &OlderFact::model);
  return fact == olderFacts.end() ? nullptr : &*fact;
}

}  // namespace

bool isOlder(Model model) { return find(model) != nullptr; }

std::string olderAnswer(Model model, const Command& command) {
  const OlderFact& fact = *find(model);
  std::string reply = command.echoPrefix.empty() ? std::string(fact.front) : command.echoPrefix;
  const auto known = std::ranges::find(commands, command.body);
  if (known == commands.end()) return reply + unknownCommand;
  const std::string_view value = fact.values[static_cast<std::size_t>(known - commands.begin())];
  if (!value.starts_with('?')) reply += *known;
  return reply.append(value);
}

}  // namespace sim
