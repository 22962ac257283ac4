// SPDX-License-Identifier: MIT
// What the unit on a line is.
#include "tool/Connection.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

ExitCode identifyUnit(const Arguments& arguments, const Output& output) {
  beginRecords();
  Connection connection(arguments.line);
  connection.meet();
  Json object = answer("identify");
  object["line"] = lineText(arguments.line.name);
  object["unit"] = unitObject(connection.outcome());
  object["verdict"] = "pass";
  std::string words;
  for (const auto& [key, value] : object["unit"].items()) {
    if (value.is_null()) continue;
    const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
    if (!text.empty()) words.append(key).append(": ").append(text).append("\n");
  }
  output.print(object, words);
  return ExitCode::done;
}

}  // namespace

Subcommand identifyCommand() { return {"identify", "what the unit on a line is", lineOptions, identifyUnit}; }

}  // namespace torvane::tool
