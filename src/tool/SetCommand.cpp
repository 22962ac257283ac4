// SPDX-License-Identifier: MIT
// Changes settings of a setup file.
#include "tool/Settings.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> setOptions() {
  return {required({"SETUP", "FILE", "the setup file", &Arguments::setup}),
          required({"CHANGE", "NAME=VALUE", "such as 'Setpoint 1=123.4'", &Arguments::changes}),
          required({"-o,--output", "FILE", "the setup file to write", &Arguments::out})};
}

// Also what changed because something else did: numbers follow the reading format.
Json changedSettings(const std::vector<NamedSetting>& before, const std::vector<NamedSetting>& now) {
  Json changed = Json::array();
  for (std::size_t at = 0; at < now.size() && at < before.size(); ++at) {
    if (now[at] == before[at]) continue;
    changed.push_back({{"section", now[at].section},
                       {"name", now[at].name},
                       {"before", before[at].value},
                       {"value", now[at].value}});
  }
  return changed;
}

Json listOf(const std::vector<RepairedSetting>& repaired) {
  Json list = Json::array();
  for (const auto& [section, name, given, value] : repaired)
    list.push_back({{"section", section}, {"name", name}, {"given", given}, {"value", value}});
  return list;
}

std::string wordsOf(const Json& changed, const std::vector<RepairedSetting>& repaired) {
  std::vector<std::vector<std::string>> rows{{"SECTION", "NAME", "BEFORE", "VALUE"}};
  for (const Json& one : changed) rows.push_back({one["section"], one["name"], one["before"], one["value"]});
  std::string words = rows.size() > 1 ? tableText(rows) : "Nothing has changed.\n";
  for (const auto& [section, name, given, value] : repaired)
    words.append(section)
        .append("/")
        .append(name)
        .append(": \"")
        .append(given)
        .append("\" became \"")
        .append(value)
        .append("\"\n");
  return words;
}

ExitCode changeSettings(const Arguments& arguments, const Output& output) {
  std::vector<SettingChange> changes;
  changes.reserve(arguments.changes.size());
  for (const std::string& text : arguments.changes) changes.push_back(parseChange(text));
  SetupDesk desk;
  desk.open(arguments.setup);
  const std::vector<NamedSetting> before = settingsOfRecords();
  const std::vector<RepairedSetting> repaired = applyChanges(desk.editor, changes);
  desk.save(arguments.out);
  Json object = answer("set");
  object["file"] = arguments.out;
  object["settings"] = changedSettings(before, settingsOfRecords());
  object["repaired"] = listOf(repaired);
  object["verdict"] = "pass";
  output.print(object, wordsOf(object["settings"], repaired));
  return ExitCode::done;
}

}  // namespace

Subcommand setCommand() {
  return {"set", "changes settings of a setup file by the rules of entry", setOptions, changeSettings};
}

}  // namespace torvane::tool
