// SPDX-License-Identifier: MIT
// Changes of settings by name, through the rules of entry.
#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "tool/Nearest.h"
#include "tool/SettingList.h"
#include "tool/Settings.h"
#include "tool/ToolHost.h"

namespace torvane::tool {

namespace {

constexpr const char* yes[] = {"1", "on", "yes", "true", "enabled"};
constexpr const char* no[] = {"0", "off", "no", "false", "disabled"};

std::string withoutOuterBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return "";
  return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

// ---- names

struct WantedName {
  std::string section;  // bare; empty: any
  std::string name;     // bare
};

WantedName wantedName(const std::string& text) {
  const std::size_t slash = text.rfind('/');
  if (slash == std::string::npos) return {"", bare(text)};
  return {bare(text.substr(0, slash)), bare(text.substr(slash + 1))};
}

std::string fullName(const Setting& setting) { return setting.section + '/' + setting.name; }

std::vector<Setting> settingsNamed(const std::vector<Setting>& all, const std::string& text) {
  const WantedName wanted = wantedName(text);
  std::vector<Setting> found;
  std::ranges::copy_if(all, std::back_inserter(found), [&](const Setting& one) {
    const bool isHere =
        wanted.section.empty() ? text.find('/') == std::string::npos : bare(one.section) == wanted.section;
    return isHere && bare(one.name) == wanted.name;
  });
  return found;
}

std::vector<std::string> namesLike(const std::vector<Setting>& all, const std::string& text) {
  std::vector<std::string> names;
  for (const Setting& one : all) {
    const std::string name = text.find('/') == std::string::npos ? one.name : fullName(one);
    if (std::ranges::find(names, name) == names.end()) names.push_back(name);
  }
  return names;
}

ChangeFault unknownName(const std::vector<Setting>& all, const std::string& text) {
  const std::string near = didYouMean(text, namesLike(all, text));
  return {"there is no setting \"" + text + '"',
          near.empty() ? "\"torvane-unit show --json\" lists them all." : near};
}

ChangeFault manyOfName(const std::vector<Setting>& found, const std::string& text) {
  std::string names;
  for (const Setting& one : found) names += (names.empty() ? "" : ", ") + fullName(one);
  return {"there are several settings \"" + text + '"', "It may be " + names + '.'};
}

// ---- values

bool isIn(const std::string& word, std::span<const char* const> words) {
  return std::ranges::any_of(words, [&](const char* one) { return distance(one, word) == 0; });
}

bool isYesNo(const Setting& setting) {
  return setting.form == SettingForm::tick || setting.words.data() == std::data(choices::truths);
}

std::vector<std::string> legalWords(const Setting& setting) {
  if (isYesNo(setting)) return {"on", "off"};
  std::vector<std::string> words;
  for (const char* word : setting.words) words.push_back(withoutOuterBlanks(word));
  return words;
}

// Letter by letter but for case, else without blanks and punctuation where that leaves no doubt: reading
// formats are nothing but punctuation.
std::optional<int> placeOfWord(const std::vector<std::string>& words, const std::string& value) {
  std::vector<int> alike;
  for (std::size_t place = 0; place < words.size(); ++place) {
    if (distance(words[place], value) == 0) return static_cast<int>(place);
    if (!bare(value).empty() && bare(words[place]) == bare(value)) alike.push_back(static_cast<int>(place));
  }
  return alike.size() == 1 ? std::optional(alike.front()) : std::nullopt;
}

std::optional<int> choiceFor(const Setting& setting, const std::string& value) {
  if (!isYesNo(setting)) return placeOfWord(legalWords(setting), value);
  if (isIn(value, yes)) return 1;
  return isIn(value, no) ? std::optional(0) : std::nullopt;
}

bool hasDigit(const std::string& value) { return value.find_first_of("0123456789") != std::string::npos; }

bool isNumber(const Setting& setting) {
  return setting.form == SettingForm::text || setting.form == SettingForm::position;
}

ChangeFault illegalValue(const Setting& setting, const std::string& value) {
  const std::string what = fullName(setting) + " can't be \"" + value + '"';
  if (isNumber(setting)) return {what, "It may be a number, as " + printedValue(setting) + " is."};
  const std::string near = didYouMean(value, legalWords(setting));
  if (!near.empty()) return {what, near};
  std::string words;
  for (const std::string& word : legalWords(setting)) words += (words.empty() ? "" : ", ") + word;
  return {what, "It may be " + words + '.'};
}

// A value as printed is always legal and changes nothing.
ChangeFault valueFault(const Setting& setting, const std::string& value) {
  if (printedValue(setting) == value) return {};
  if (setting.form == SettingForm::made)
    return {fullName(setting) + " can't be set", setting.parts == nullptr ? "" : setting.parts};
  const bool isLegal = isNumber(setting) ? hasDigit(value) : choiceFor(setting, value).has_value();
  return isLegal ? ChangeFault() : illegalValue(setting, value);
}

// ---- making them

struct Wish {
  Setting setting;
  std::string given;
};

// What others depend on comes first: the input decides the format, the format the numbers, an alarm's control
// its actions, the analog output's mode its limits.
int rankOf(const Wish& wish) {
  const int record = wish.setting.records.empty() ? -1 : wish.setting.records.front();
  constexpr std::array deciding = {
      static_cast<int>(rec::optInType),      static_cast<int>(rec::optDpoint),
      static_cast<int>(rec::cboAl1Ctrl),     static_cast<int>(rec::cboAl2Ctrl),
      static_cast<int>(rec::cboOut1Ctrl),    static_cast<int>(rec::cboOut2Ctrl),
      static_cast<int>(rec::chkAl1Enabled),  static_cast<int>(rec::chkOut1AutoPID),
      static_cast<int>(rec::chkOut2AutoPID), static_cast<int>(rec::optAOutV)};
  const auto* const place = std::ranges::find(deciding, record);
  const auto rank = static_cast<int>(place - deciding.begin());
  return place == deciding.end() && isNumber(wish.setting) ? rank + 1 : rank;
}

// Without an analog output its enable would switch alarm 1 on, with which it shares a bit.
bool isOutOfReach(const Setting& setting, int choice) {
  return setting.records.front() == rec::chkAnalogOutputEnabled && choice != 0 && !output1IsAnalog();
}

int positionIn(const std::string& value, int least) {
  double number = 0;
  attempt([&] { number = Val(value); });
  constexpr double beyondEveryBar = 1000;
  return static_cast<int>(std::clamp(number, static_cast<double>(least), beyondEveryBar));
}

// Of a legal value.
int chosenBy(const Setting& setting, const std::string& value) {
  return choiceFor(setting, value).value_or(0);
}

void make(SetupEditor& editor, const Setting& setting, const std::string& given) {
  if (printedValue(setting) == given) return;
  const int record = setting.records.front();
  const bool isSeconds = record == rec::HSOut1CycleT || record == rec::HSOut2CycleT;
  switch (setting.form) {
    case SettingForm::text:
      return editor.type(record, given);
    case SettingForm::position:
      return editor.choose(record, positionIn(given, isSeconds ? 1 : 0));
    case SettingForm::options:
      return editor.choose(setting.records[static_cast<std::size_t>(chosenBy(setting, given))], 1);
    case SettingForm::choice:
    case SettingForm::tick: {
      const int choice = chosenBy(setting, given);
      if (!isOutOfReach(setting, choice)) editor.choose(record, choice);
      return;
    }
    case SettingForm::made:
      return;
  }
}

std::optional<double> numberIn(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, number);
  return fault == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

// "50" and "050.0" are one number, "on" and "1" one tick.
bool meansTheSame(const Setting& setting, const std::string& given, std::string value) {
  if (given == value) return true;
  if (!isNumber(setting)) return choiceFor(setting, given) == choiceFor(setting, value);
  if (value.ends_with('s') && !given.ends_with('s')) value.pop_back();
  const auto one = numberIn(given);
  return one && one == numberIn(value);
}

std::vector<Wish> wishesOf(const std::vector<SettingChange>& changes) {
  const std::vector<Setting> all = allSettings();
  std::vector<Wish> wishes;
  std::set<std::string> names;
  std::string faults;
  std::string hints;
  for (const SettingChange& change : changes) {
    ChangeFault fault = faultOf(change);
    if (fault.what.empty()) {
      wishes.push_back({settingsNamed(all, change.name).front(), withoutOuterBlanks(change.value)});
      const std::string name = fullName(wishes.back().setting);
      if (!names.insert(name).second) fault = {name + " is given twice", "Give each setting once."};
    }
    if (fault.what.empty()) continue;
    faults += (faults.empty() ? "" : "; ") + fault.what;
    if (!fault.hint.empty()) hints += (hints.empty() ? "" : " ") + fault.hint;
  }
  if (!faults.empty()) throw Problem(ExitCode::usage, faults, hints);
  return wishes;
}

}  // namespace

SettingChange parseChange(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0)
    throw Problem(ExitCode::usage, '"' + text + "\" is no change", "Such as 'Setpoint 1=123.4'.");
  return {text.substr(0, equals), text.substr(equals + 1)};
}

ChangeFault nameFault(const std::string& name) {
  const std::vector<Setting> all = allSettings();
  const std::vector<Setting> found = settingsNamed(all, name);
  if (found.empty()) return unknownName(all, name);
  return found.size() > 1 ? manyOfName(found, name) : ChangeFault();
}

ChangeFault faultOf(const SettingChange& change) {
  ChangeFault fault = nameFault(change.name);
  if (!fault.what.empty()) return fault;
  return valueFault(settingsNamed(allSettings(), change.name).front(), withoutOuterBlanks(change.value));
}

std::vector<RepairedSetting> applyChanges(SetupEditor& editor, const std::vector<SettingChange>& changes) {
  std::vector<Wish> wishes = wishesOf(changes);
  const Desk desk;
  std::vector<Wish> inOrder = wishes;
  std::ranges::stable_sort(inOrder, {}, rankOf);
  for (const auto& [setting, given] : inOrder) make(editor, setting, given);
  editor.commit();
  editor.takeRecords();
  std::vector<RepairedSetting> repaired;
  for (const auto& [setting, given] : wishes) {
    const std::string value = printedValue(setting);
    if (!meansTheSame(setting, given, value))
      repaired.push_back({setting.section, setting.name, given, value});
  }
  return repaired;
}

}  // namespace torvane::tool
