// SPDX-License-Identifier: MIT
// Which units answer, and where.
#include "tool/Declare.h"
#include "tool/Subcommands.h"
#include "tool/Unfinished.h"

namespace tool {

namespace {

void declare(CLI::App& app, Arguments& arguments) {
  LineArguments& line = arguments.line;
  CLI::Option* const port =
      app.add_option_function<std::string>(
             "--port", [&line](const std::string& text) { line.name = lineNamed(text); },
             "COM1 or the path of a device; without it and --host all ports")
          ->type_name("PORT");
  app.add_option_function<std::string>(
         "--host", [&line](const std::string& text) { line.name = lineNamed(text); }, "host:port of a bridge")
      ->type_name("HOST:PORT")
      ->excludes(port);
  const auto take = [&arguments](const std::string& text) {
    const auto addresses = parseAddresses(text);
    if (!addresses) refuse("--addresses", text, "It may be such as 0-199 or 1,5,10-12.");
    arguments.addresses = *addresses;
  };
  app.add_option_function<std::string>("--addresses", take,
                                       "addresses to ask, such as 0-199; without it units without one")
      ->type_name("LIST");
  declareLineSettings(app, line);
}

}  // namespace

Subcommand findCommand() {
  return {"find", "what answers on a port, behind a bridge, or on every port", declare, unfinished};
}

}  // namespace tool
