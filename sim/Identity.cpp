// SPDX-License-Identifier: MIT
// What a unit is, and what it says of itself.
#include "sim/Identity.h"

#include <algorithm>
#include <array>

namespace sim {

namespace {

constexpr std::array<ModelFact, 7> facts{{
    {Model::tmp, "tmp", " TMP", "Torvane temperature controller"},
    {Model::prc, "prc", " PRC", "Torvane process controller"},
    {Model::str, "str", " STR", "Torvane strain controller"},
    {Model::gr2, "gr2", " GR2", "Torvane Gr2 controller"},
    {Model::rht, "rht", " RHT", "Torvane humidity and temperature controller"},
    {Model::larkspur, "larkspur", " RKW77", "Larkspur controller"},
    {Model::other, "other", " UNIT", "Torvane controller that names none of the known types"},
}};

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
