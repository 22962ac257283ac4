// SPDX-License-Identifier: MIT
// What --model and the column "model" may say.
#include "tool/Models.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "core/Model.h"
#include "core/PartNumber.h"
#include "tool/Nearest.h"

namespace torvane::tool {

namespace {

bool isType(const std::string& model) {
  return std::ranges::any_of(unitTypes, [&](const char* type) { return distance(type, model) == 0; });
}

// The first digit of the outputs, after the model and its brackets: 5 is an analog output.
bool wantsAnalog(const std::string& partNumber) {
  const std::size_t dash = std::min(partNumber.find('-'), partNumber.size());
  std::string_view digits = std::string_view(partNumber).substr(0, dash);
  return digits.size() >= 2 && digits[digits.size() - 2] == '5';
}

}  // namespace

UnitFamily lineOf(const std::string& model) {
  const bool rkw77 = distance(unitTypes[0], model) == 0 || namesRkw77(model);
  return rkw77 ? UnitFamily::rkw77 : UnitFamily::torvane;
}

std::string typeNames() {
  std::string names;
  for (std::size_t type = 1; type < std::size(unitTypes); ++type) names.append(unitTypes[type]).append(", ");
  return names + unitTypes[0];
}

std::string typeOfUnit() {
  if (onRkw77Line()) return unitTypes[0];
  const auto place = static_cast<std::size_t>(DeviceState.DeviceClass);
  return DeviceState.DeviceClass > 0 && place < std::size(unitTypes) ? unitTypes[place] : "";
}

std::string typeIn(const std::string& unit) {
  if (unit == "Larkspur") return unitTypes[0];
  const std::size_t blank = unit.find(' ');
  return blank == std::string::npos ? std::string() : unit.substr(blank + 1);
}

std::string modelFault(const std::string& model) {
  if (model.empty()) return "";
  const std::string type = typeOfUnit();
  const UnitFamily family = onRkw77Line() ? UnitFamily::rkw77 : UnitFamily::torvane;
  const std::string is = type.empty() ? std::string("a unit") : "a unit of type " + type;
  if (lineOf(model) != family) return is + " answers in place of " + model;
  if (isType(model)) return distance(type, model) == 0 ? "" : is + " answers in place of " + model;
  if (wantsAnalog(model) && family == UnitFamily::torvane && DeviceState.AnalogFound == False)
    return is + " without an analog output answers in place of " + model;
  return "";
}

std::string modelTextFault(const std::string& model) {
  constexpr std::array<std::string_view, 3> beginnings = {"Tv", "Mqv", "Rkv"};
  const auto begins = [&](std::string_view start) { return std::string_view(model).starts_with(start); };
  if (isType(model) || namesRkw77(model) || std::ranges::any_of(beginnings, begins)) return "";
  return '"' + model + "\" is no part number and no type: " + typeNames();
}

}  // namespace torvane::tool
