// SPDX-License-Identifier: MIT
// The settings of the records by name.
#include "tool/Settings.h"

#include <algorithm>

#include "knowledge/EncodedSetup.h"
#include "knowledge/RegisterMap.h"
#include "knowledge/ReportSections.h"

namespace tool {

namespace {

std::string trimmed(std::string text) {
  const auto isOuter = [](char letter) { return letter == ' ' || letter == ':'; };
  while (!text.empty() && isOuter(text.back())) text.pop_back();
  text.erase(0, text.find_first_not_of(' '));
  return text;
}

// What the report prints without a heading of its own.
constexpr const char* unnamedSections[] = {"General", "", "Input"};

class Printed {
 public:
  std::vector<NamedSetting> settings;

  void take(const ReportSection& section, std::size_t place) {
    heading_ = place < std::size(unnamedSections) ? unnamedSections[place] : "";
    for (const ReportRow& row : section.rows) {
      if (row.printed()) take(row);
    }
  }

 private:
  void take(const ReportRow& row) {
    if (row.kind == RowKind::heading) heading_ = trimmed(row.label);
    if (row.kind == RowKind::labelOnly) label_ = trimmed(row.label);
    if (row.value == nullptr) return;
    const std::string name = row.label == nullptr ? label_ : trimmed(row.label);
    settings.push_back({heading_, name, trimmed(row.value(row.record))});
  }

  std::string heading_;
  std::string label_;
};

bool has(const std::vector<NamedSetting>& settings, const RegisterField& field) {
  return std::ranges::any_of(settings, [&](const NamedSetting& one) {
    return one.section == field.section && one.name == field.name;
  });
}

void addUnprinted(std::vector<NamedSetting>& settings) {
  const EncodedSetup setup = encodeSetup();
  const RegisterDigits digits = digitsIn(setup);
  const UnitContext context = contextOf(digits, setup.kind);
  for (const RegisterField& field : registerFields()) {
    const std::string& payload = digitsOf(digits, field.reg);
    const bool shown = isSetting(field) && hasRegister(field.reg, setup.kind) && appliesIn(field, context);
    if (!shown || payload.empty() || has(settings, field)) continue;
    settings.push_back({field.section, field.name, describe(field, payload, context)});
  }
}

}  // namespace

std::vector<NamedSetting> settingsOfRecords() {
  Printed printed;
  std::size_t place = 0;
  for (const ReportSection& section : reportSections()) {
    if (section.printed()) printed.take(section, place);
    ++place;
  }
  addUnprinted(printed.settings);
  return printed.settings;
}

}  // namespace tool
