// SPDX-License-Identifier: MIT
// Every setting with the record that holds it.
#include "tool/SettingList.h"

#include <algorithm>
#include <array>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/SetupEditor.h"
#include "knowledge/EncodedSetup.h"
#include "knowledge/Sections.h"

namespace torvane::tool {

namespace {

constexpr const char* busWords[] = {"RS-232", "RS-485", "As found"};

// One of several records; the first one names the group.
struct OptionGroup {
  std::array<int, 4> records;
  Choices words;
};

constexpr OptionGroup groups[] = {
    {{rec::optIDCode, rec::optIDCode + 1, rec::optIDCode + 2, -1}, choices::protections},
    {{rec::optInType, rec::optInType + 1, rec::optInType + 2, -1}, choices::inputTypes},
    {{rec::optDpoint, rec::optDpoint + 1, rec::optDpoint + 2, rec::optDpoint + 3}, choices::readingFormats},
    {{rec::opt020mA, rec::opt420mA, -1, -1}, choices::truths},
    {{rec::optAOutV, rec::optAOutI, -1, -1}, choices::analogModes},
    {{rec::optRS232, rec::optRS485, rec::optNoChange, -1}, busWords},
};

// What the report prints without a heading of its own.
constexpr const char* unnamedSections[] = {section::general, "", section::input};

// The settings that the report prints as one.
struct Part {
  const char* name;
  int record;
};
constexpr const char* inputType = "Input Type";
constexpr const char* signalName = "Signal";
constexpr Part inputParts[] = {{signalName, rec::optInType},     {"Thermocouple Type", rec::lstTCTypes},
                               {"RTD Value", rec::cboRTDValue},  {"RTD Wires", rec::cboRTDWires},
                               {"RTD Curve", rec::cboRTDCurves}, {"Process Range", rec::lstProc}};
constexpr const char* partsOfInput =
    "It is made of Signal, Thermocouple Type, RTD Value, RTD Wires, RTD Curve and Process Range.";
constexpr const char* partsOfLine = "It is made of the two points of the line.";
constexpr const char* partsOfWires = "It is made of RTD Wires and RTD Curve.";
constexpr const char* partsOfBus = "It is made of Bus and of what every unit needs.";

std::string trimmed(std::string text) {
  const auto isOuter = [](char letter) { return letter == ' ' || letter == ':'; };
  while (!text.empty() && isOuter(text.back())) text.pop_back();
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

bool isSimpleMenu() { return meterKind() == kind::simpleMenu; }

const OptionGroup* groupOf(int record) {
  const auto* const found = std::ranges::find_if(groups, [&](const OptionGroup& group) {
    return std::ranges::find(group.records, record) != group.records.end();
  });
  return found == std::end(groups) ? nullptr : found;
}

SettingForm formOf(EntryControl control) {
  if (control == EntryControl::tick) return SettingForm::tick;
  return control == EntryControl::bar ? SettingForm::position : SettingForm::text;
}

void fillOf(Setting& setting, int record) {
  const OptionGroup* const group = groupOf(record);
  setting.records = {record};
  setting.words = choicesOf(record);
  if (group != nullptr) {
    setting.form = SettingForm::options;
    setting.words = group->words;
    setting.records.assign(group->records.begin(),
                           group->records.begin() + static_cast<std::ptrdiff_t>(group->words.size()));
  } else if (!setting.words.empty()) {
    setting.form = SettingForm::choice;
  } else {
    setting.form = formOf(controlOfRecord(record));
  }
}

class List {
 public:
  std::vector<Setting> settings;

  void take(const ReportSection& section, std::size_t place) {
    heading_ = place < std::size(unnamedSections) ? unnamedSections[place] : "";
    for (const ReportRow& row : section.rows) {
      if (row.kind == RowKind::heading) heading_ = trimmed(row.label);
      if (row.kind == RowKind::labelOnly) label_ = trimmed(row.label);
      if (row.value != nullptr) take(row);
    }
  }

  void take(const RegisterField& field) {
    const bool isMade = field.form == FieldForm::scale || field.form == FieldForm::analogScale ||
                        field.form == FieldForm::offset || field.records[0] < 0;
    if (has(field.section, field.name) || (isMade && !hasWords(field))) return;
    Setting setting{.section = field.section, .name = field.name, .field = &field};
    if (isWires(field)) {
      setting.parts = partsOfWires;
    } else if (isMade) {
      setting.parts = field.records[0] < 0 ? partsOfBus : partsOfLine;
    } else {
      fillOf(setting, field.records[0]);
    }
    settings.insert(endOfSection(setting.section), std::move(setting));
  }

 private:
  std::vector<Setting>::iterator endOfSection(const std::string& section) {
    const auto last = std::find_if(settings.rbegin(), settings.rend(),
                                   [&](const Setting& one) { return one.section == section; });
    return last == settings.rend() ? settings.end() : last.base();
  }

  // Bits that are always the same say nothing.
  static bool hasWords(const RegisterField& field) {
    return field.form != FieldForm::choice || field.records[0] >= 0;
  }
  static bool isWires(const RegisterField& field) { return field.records[0] == rec::cboRTDWires; }

  bool has(const std::string& section, const std::string& name) const {
    return std::ranges::any_of(
        settings, [&](const Setting& one) { return one.section == section && one.name == name; });
  }

  void take(const ReportRow& row) {
    Setting setting{.section = heading_, .name = row.label == nullptr ? label_ : trimmed(row.label)};
    if (has(setting.section, setting.name) || isOfTheOtherMenu(row)) return;
    setting.row = &row;
    if (setting.name == inputType) {
      setting.parts = partsOfInput;
      settings.push_back(std::move(setting));
      for (const auto& [name, record] : inputParts) add(name, record);
      return;
    }
    fillOf(setting, row.record);
    settings.push_back(std::move(setting));
  }

  void add(const char* name, int record) {
    settings.push_back({.section = heading_, .name = name});
    fillOf(settings.back(), record);
  }

  // The simple menu has its dead bands with the alarms, the full one with the outputs. The report prints
  // output 1's proportional band for the former; here stands what the unit gets.
  bool isOfTheOtherMenu(const ReportRow& row) const {
    if (trimmed(row.label == nullptr ? "" : row.label) != "Dead Band") return false;
    return heading_.starts_with("Alarm") || isSimpleMenu();
  }

  std::string heading_;
  std::string label_;
};

bool belongsToMenu(const RegisterField& field) {
  const bool ofAlarm = std::string_view(field.section).starts_with("Alarm");
  return std::string_view(field.name) != "Dead Band" || ofAlarm == isSimpleMenu();
}

std::string describedNow(const RegisterField& field) {
  const EncodedSetup setup = encodeSetup();
  const RegisterDigits digits = digitsIn(setup);
  const std::string& payload = digitsOf(digits, field.reg);
  return payload.empty() ? std::string() : describe(field, payload, contextOf(digits, setup.kind));
}

// Also while the input is another.
std::string wiresAndCurve() {
  return choiceAt(choices::rtdWires, Memo[rec::cboRTDWires].value) + " wires  " +
         choiceAt(choices::rtdCurves, Memo[rec::cboRTDCurves].value);
}

std::string chosenWord(const Setting& setting) {
  for (std::size_t place = 0; place < setting.records.size(); ++place) {
    if (isChosen(setting.records[place])) return setting.words[place];
  }
  return "";
}

bool isColor(int record) { return record >= rec::cboNormalColor && record <= rec::cboAl2WhenActiveColor; }

}  // namespace

std::string bare(std::string_view text) {
  std::string letters;
  for (const char letter : text) {
    const bool isUpper = letter >= 'A' && letter <= 'Z';
    const bool isKept = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') ||
                        (static_cast<unsigned char>(letter) & 0x80U) != 0;
    if (isUpper || isKept) letters += isUpper ? static_cast<char>(letter + 32) : letter;
  }
  return letters;
}

std::vector<Setting> allSettings() {
  List list;
  std::size_t place = 0;
  for (const ReportSection& section : reportSections()) list.take(section, place++);
  for (const RegisterField& field : registerFields()) {
    if (isSetting(field) && belongsToMenu(field)) list.take(field);
  }
  return list.settings;
}

std::string printedValue(const Setting& setting) {
  const MemoField none;
  const MemoField& record = setting.records.empty() ? none : Memo[setting.records.front()];
  const bool isRowOfOneWord = !setting.records.empty() && setting.records.front() == rec::optIDCode;
  if (isRowOfOneWord) return chosenWord(setting);
  if (setting.row != nullptr) return trimmed(setting.row->value(setting.row->record));
  switch (setting.form) {
    case SettingForm::text:
      return record.text;
    case SettingForm::choice:
      return trimmed(choiceAt(setting.words, isColor(setting.records.front()) ? record.extra : record.value));
    case SettingForm::tick:
      return choiceAt(choices::abilities, record.value == 1);
    case SettingForm::position:
      return numberText(std::int32_t{record.value});
    case SettingForm::options:
      return chosenWord(setting);
    case SettingForm::made:
      return setting.parts == partsOfWires ? wiresAndCurve() : describedNow(*setting.field);
  }
  return "";
}

}  // namespace torvane::tool
