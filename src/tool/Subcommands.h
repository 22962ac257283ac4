// SPDX-License-Identifier: MIT
// The commands of torvane-unit; each stands in a file of its own.
#pragma once

#include <string>
#include <vector>

#include "tool/Arguments.h"
#include "tool/ExitCodes.h"
#include "tool/Output.h"

namespace CLI {  // NOLINT(readability-identifier-naming): the library's own
class App;
}

namespace torvane::tool {

struct Subcommand {
  const char* name;
  const char* what;  // in one line
  void (*declare)(CLI::App& app, Arguments& arguments);
  ExitCode (*run)(const Arguments& arguments, const Output& output);  // throws Problem
};

Subcommand portsCommand();
Subcommand findCommand();
Subcommand identifyCommand();
Subcommand readCommand();
Subcommand writeCommand();
Subcommand compareCommand();
Subcommand keepCommand();
Subcommand putBackCommand();
Subcommand showCommand();
Subcommand setCommand();
Subcommand batchCommand();

const std::vector<Subcommand>& subcommands();  // in the order of the help

}  // namespace torvane::tool
