// SPDX-License-Identifier: MIT
// Options that several commands share.
#include "tool/Declare.h"

#include <algorithm>

#include "tool/Models.h"
#include "tool/Nearest.h"
#include "tool/Problem.h"

namespace torvane::tool {

namespace {

std::string listed(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

std::string hintFor(const std::string& text, const std::vector<std::string>& legal) {
  const std::string near = didYouMean(text, legal);
  return near.empty() ? "It may be " + listed(legal, ", ") + '.' : near;
}

void declareAddress(CLI::App& app, LineArguments& line) {
  const auto take = [&line](const std::string& text) {
    const auto addresses = parseAddresses(text);
    if (!addresses || addresses->size() != 1) refuse("--address", text, "It may be 0 to 199.");
    line.address = addresses->front();
  };
  app.add_option_function<std::string>("--address", take, "the unit's address on a bus, 0 to 199")
      ->type_name("N");
}

}  // namespace

void refuse(const std::string& option, const std::string& text, const std::string& hint) {
  throw Problem(ExitCode::usage, option + " can't be \"" + text + '"', hint);
}

LineName lineNamed(const std::string& text) {
  const auto name = parseLineName(text);
  if (!name) refuse("LINE", text, "It may be COM1, the path of a device, or host:port.");
  return *name;
}

void declareLine(CLI::App& app, LineArguments& line) {
  const auto take = [&line](const std::string& text) { line.name = lineNamed(text); };
  app.add_option_function<std::string>("LINE", take, "COM1, the path of a device, or host:port of a bridge")
      ->required()
      ->type_name("LINE");
  declareUnit(app, line);
}

void declareUnit(CLI::App& app, LineArguments& line) {
  declareAddress(app, line);
  declareLineSettings(app, line);
  const auto takeModel = [&line](const std::string& text) {
    const std::string fault = modelTextFault(text);
    if (!fault.empty()) throw Problem(ExitCode::usage, fault);
    line.model = text;
  };
  app.add_option_function<std::string>("--model", takeModel,
                                       "what the unit must be: a part number, or " + typeNames())
      ->type_name("MODEL");
}

void declareLineSettings(CLI::App& app, LineArguments& line) {
  using Texts = const std::string&;
  declareChoice(
      app, "--baud", {"300", "600", "1200", "2400", "4800", "9600", "19200"}, "speed of the line",
      [](LineArguments& to, Texts text) { to.baud = std::stoi(text); }, line);
  declareChoice(
      app, "--parity", {"none", "odd", "even"}, "parity of a character",
      [](LineArguments& to, Texts text) { to.parity = text; }, line);
  declareChoice(
      app, "--data", {"7", "8"}, "data bits of a character",
      [](LineArguments& to, Texts text) { to.data = std::stoi(text); }, line);
  declareChoice(
      app, "--stop", {"1", "2"}, "stop bits of a character",
      [](LineArguments& to, Texts text) { to.stop = std::stoi(text); }, line);
}

CLI::Option* declareFile(CLI::App& app, const std::string& names, std::string& file,
                         const std::string& what) {
  return app.add_option(names, file, what)->type_name("FILE");
}

CLI::Option* declareChoice(CLI::App& app, const std::string& names, const std::vector<std::string>& legal,
                           const std::string& what, void (*take)(LineArguments&, const std::string&),
                           LineArguments& line) {
  const auto checked = [names, legal, take, &line](const std::string& text) {
    if (std::ranges::find(legal, text) == legal.end()) refuse(names, text, hintFor(text, legal));
    take(line, text);
  };
  return app.add_option_function<std::string>(names, checked, what)->type_name(listed(legal, "|"));
}

}  // namespace torvane::tool
