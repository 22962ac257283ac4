// SPDX-License-Identifier: MIT
// The settings of a setup file.
#include "core/Model.h"
#include "dialogs/Report.h"
#include "tool/Csv.h"
#include "tool/Settings.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

std::vector<OptionRow> showOptions() {
  return {required({"SETUP", "FILE", "the setup file", &Arguments::setup}),
          {"--csv", "", "as a table of commas", &Arguments::csv},
          {"--pdf", "FILE", "the report as a PDF", &Arguments::pdf}};
}

Json objectOf(const std::string& file, const std::vector<NamedSetting>& settings) {
  Json object = answer("show");
  object["file"] = file;
  object["unit"] = {{"kind", meterKind()}, {"model", Hardware.ModelNumber}};
  object["settings"] = Json::array();
  for (const auto& [section, name, value] : settings)
    object["settings"].push_back({{"section", section}, {"name", name}, {"value", value}});
  return object;
}

std::string csvOf(const std::vector<NamedSetting>& settings) {
  std::string text = csvLine({"section", "name", "value"});
  for (const auto& [section, name, value] : settings) text += csvLine({section, name, value});
  return text;
}

std::string wordsOf(const std::vector<NamedSetting>& settings) {
  std::vector<std::vector<std::string>> rows{{"SECTION", "NAME", "VALUE"}};
  for (const auto& [section, name, value] : settings) rows.push_back({section, name, value});
  return tableText(rows);
}

// In place of an older file, in one step.
void print(const std::string& file) {
  const Desk desk;
  toolHost()->pdf = file;
  if (!printReport()) throw Problem(ExitCode::file, file + ": the report can't be written there");
}

ExitCode showSettings(const Arguments& arguments, const Output& output) {
  SetupDesk desk;
  desk.open(arguments.setup);
  const std::vector<NamedSetting> settings = settingsOfRecords();
  Json object = objectOf(arguments.setup, settings);
  if (arguments.pdf.empty()) {
    output.print(object, arguments.csv ? csvOf(settings) : wordsOf(settings));
    return ExitCode::done;
  }
  print(arguments.pdf);
  object["pdf"] = arguments.pdf;
  output.print(object, arguments.csv ? csvOf(settings) : std::string());
  return ExitCode::done;
}

}  // namespace

Subcommand showCommand() {
  return {"show", "the settings of a setup file in the report's words", showOptions, showSettings};
}

}  // namespace torvane::tool
