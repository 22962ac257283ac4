// SPDX-License-Identifier: MIT
// The as-left record.
#include "knowledge/AsLeft.h"

#include <algorithm>

#include "knowledge/CompareRows.h"
#include "knowledge/JsonText.h"

namespace torvane {

namespace {

constexpr const char* schema = "torvane-unit/1";
constexpr std::size_t nameColumn = 28;  // widths on paper
constexpr std::size_t valueColumn = 22;

const char* verdictOf(const AsLeft& record) { return record.passed ? "pass" : "fail"; }

std::string wordsOf(const RegisterField& field, const UnitImage& image, const UnitContext& context) {
  const std::string& payload = image.registers[static_cast<std::size_t>(registerPlace(field.reg))].payload;
  return payload.empty() || !appliesIn(field, context) ? "" : describe(field, payload, context);
}

// ---- as text

std::string column(const std::string& text, std::size_t width) {
  return text.size() < width ? text + std::string(width - text.size(), ' ') : text + "  ";
}

std::string shownValue(const std::string& words) { return words.empty() ? "-" : words; }

void addField(std::string& text, const std::string& label, const std::string& value) {
  if (!value.empty()) text += column(label, 12) + value + "\n";
}

std::string headOf(const AsLeft& record) {
  std::string text = "As-left record\n\n";
  addField(text, "Verdict:", summaryOf(record));
  addField(text, "Time:", record.time);
  addField(text, "Read again:", record.left.read);
  addField(text, "By:", record.who);
  addField(text, "Unit:", record.left.model);
  addField(text, "Type:", record.type);
  addField(text, "Version:", record.left.version);
  if (record.left.address) addField(text, "Address:", std::to_string(*record.left.address));
  addField(text, "Line:", record.left.line);
  return text;
}

std::string settingLine(const SettingLeft& setting) {
  const bool changed = setting.found != setting.left;
  return column(std::string(changed ? "* " : "  ") + setting.name, nameColumn) +
         column(shownValue(setting.found), valueColumn) + shownValue(setting.left) + "\n";
}

std::string settingLines(const AsLeft& record) {
  std::vector<SettingLeft> settings = settingsOf(record);
  std::ranges::stable_sort(settings, {}, [](const auto& each) { return tabOrder(each.section); });
  std::string text;
  std::string section;
  for (const SettingLeft& setting : settings) {
    if (setting.section != section) text += "\n" + setting.section + "\n";
    section = setting.section;
    text += settingLine(setting);
  }
  return text;
}

std::string registerLines(const AsLeft& record) {
  std::string text = "\nRegisters\n";
  for (const RegisterLeft& each : record.registers) {
    text += column("  " + each.reg + " " + each.name, nameColumn) + column(shownValue(each.before), 11) +
            column(shownValue(each.after), 11) + each.verdict +
            (each.reason.empty() ? "" : ": " + each.reason) + "\n";
  }
  return text;
}

// ---- as JSON

std::string unitObject(const AsLeft& record) {
  const UnitImage& unit = record.left;
  std::vector<JsonMember> members = {{"type", jsonString(record.type)},
                                     {"kind", std::to_string(unit.kind)},
                                     {"model", jsonString(unit.model)}};
  if (!unit.version.empty()) members.emplace_back("version", jsonString(unit.version));
  members.emplace_back("address", unit.address ? std::to_string(*unit.address) : "null");
  return jsonObject(members, 1);
}

std::string settingsArray(const AsLeft& record) {
  std::vector<std::string> values;
  for (const SettingLeft& each : settingsOf(record)) {
    values.push_back(jsonObject({{"section", jsonString(each.section)},
                                 {"name", jsonString(each.name)},
                                 {"found", jsonString(each.found)},
                                 {"left", jsonString(each.left)}},
                                2));
  }
  return jsonArray(values, 1);
}

std::string registersArray(const AsLeft& record) {
  std::vector<std::string> values;
  values.reserve(record.registers.size());
  for (const RegisterLeft& each : record.registers) {
    values.push_back(jsonObject({{"index", jsonString(each.reg)},
                                 {"before", jsonString(each.before)},
                                 {"after", jsonString(each.after)},
                                 {"verdict", jsonString(each.verdict)},
                                 {"reason", jsonString(each.reason)}},
                                2));
  }
  return jsonArray(values, 1);
}

}  // namespace

std::vector<SettingLeft> settingsOf(const AsLeft& record) {
  const RegisterDigits left = digitsIn(record.left);
  const RegisterDigits found = digitsIn(record.found);
  const UnitContext before = contextOf(completed(found, left), record.left.kind);
  const UnitContext now = contextOf(completed(left, found), record.left.kind);
  std::vector<SettingLeft> settings;
  for (const RegisterField& field : registerFields()) {
    const bool applies = appliesIn(field, before) || appliesIn(field, now);
    if (!isSetting(field) || !applies || !hasRegister(field.reg, record.left.kind)) continue;
    settings.push_back(
        {field.section, field.name, wordsOf(field, record.found, before), wordsOf(field, record.left, now)});
  }
  return settings;
}

std::string summaryOf(const AsLeft& record) {
  const auto settings = settingsOf(record);
  const auto changed =
      std::ranges::count_if(settings, [](const auto& each) { return each.found != each.left; });
  const auto failed = std::ranges::count(record.registers, "failed", &RegisterLeft::verdict);
  std::string text = record.passed ? "PASS: " : "FAIL: ";
  text += std::to_string(changed) + (changed == 1 ? " setting changed, " : " settings changed, ");
  text += std::to_string(record.registers.size()) + " registers read again";
  return failed == 0 ? text : text + ", " + std::to_string(failed) + " failed";
}

std::string textOf(const AsLeft& record) {
  return headOf(record) + "\n" + column("Setting", nameColumn) + column("As found", valueColumn) +
         "As left\n" + settingLines(record) + registerLines(record);
}

std::string jsonOf(const AsLeft& record) {
  return jsonObject({{"schema", jsonString(schema)},
                     {"command", jsonString("record")},
                     {"time", jsonString(record.time)},
                     {"who", jsonString(record.who)},
                     {"line", jsonString(record.left.line)},
                     {"unit", unitObject(record)},
                     {"settings", settingsArray(record)},
                     {"registers", registersArray(record)},
                     {"verdict", jsonString(verdictOf(record))}},
                    0) +
         "\n";
}

std::string proposedFileName(const AsLeft& record, const std::string& ending) {
  constexpr std::size_t timeAt = 11;  // in "2026-11-21T21:15:00Z"
  std::string time = record.left.read.size() > timeAt ? record.left.read.substr(timeAt, 8) : "";
  std::erase(time, ':');
  return fileStem(record.left) + (time.empty() ? "" : "_" + time) + "_as-left." + ending;
}

}  // namespace torvane
