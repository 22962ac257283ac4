// SPDX-License-Identifier: MIT
// What a unit is, and what it says of itself.
#include "sim/Identity.h"

#include <algorithm>
#include <array>

namespace sim {

namespace {

// clang-format off
constexpr std::array<ModelFact, 14> facts{{
    // model, name, type, what, family
    {Model::tmp,           "tmp",            " TMP",   "Torvane temperature controller", 2},
    {Model::prc,           "prc",            " PRC",   "Torvane process controller", 2},
    {Model::str,           "str",            " STR",   "Torvane strain controller", 2},
    {Model::gr2,           "gr2",            " GR2",   "Torvane Gr2 controller", 2},
    {Model::rht,           "rht",            " RHT",   "Torvane humidity and temperature controller", 2},
    {Model::larkspur,      "larkspur",       " RKW77", "Larkspur controller", 3},
    {Model::other,         "other",          " UNIT",  "Torvane controller that names no known type", 2},
    {Model::mpl,           "mpl",            "",       "older meter that says two digits before its echo", 0},
    {Model::mpt,           "mpt",            "",       "older meter", 1},
    {Model::quillonRate,   "quillon-rate",   "",       "older Quillon rate/totalizer", 4},
    {Model::quillon,       "quillon",        "",       "older Quillon controller", 5},
    {Model::quillonStrain, "quillon-strain", "",       "older Quillon strain controller", 6},
    {Model::qlncac,        "qlncac",         "",       "older QLNCAC current or voltage controller", 9},
    {Model::stranger,      "stranger",       "",       "unit of no known line", -2},
}};
// clang-format on

}  // namespace

std::span<const ModelFact> modelFacts() { return facts; }

const ModelFact& modelFact(Model model) {
  return *std::find_if(facts.begin(), facts.end(),
                       [&](const ModelFact& fact) { return fact.model == model; });
}

std::optional<Model> modelNamed(std::string_view name) {
  const auto found =
      std::find_if(facts.begin(), facts.end(), [&](const ModelFact& fact) { return fact.name == name; });
  if (found == facts.end()) return std::nullopt;
  return found->model;
}

std::string busSettingsText(const UnitSetup& setup, std::string_view busFormatHex,
                            std::string_view addressHex) {
  std::string text = setup.recognition + setup.idFlags;
  text += setup.analog ? '8' : '0';
  text += busFormatHex;
  text += addressHex;
  return text;
}

}  // namespace sim
