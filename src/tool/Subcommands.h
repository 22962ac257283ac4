// SPDX-License-Identifier: MIT
// The commands of torvane-unit; each stands in a file of its own.
#pragma once

#include <string>
#include <vector>

#include "tool/ExitCodes.h"
#include "tool/OptionRow.h"
#include "tool/Output.h"

namespace torvane::tool {

struct Subcommand {
  const char* name;
  const char* what;  // in one line
  std::vector<OptionRow> (*options)();
  ExitCode (*run)(const Arguments& arguments, const Output& output);  // throws Problem
  const char* more = "";                                              // what the help has below the options
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

inline constexpr const char* summary =
    "Reads, writes and compares controllers of the Torvane and Larkspur lines from a shell.";

const std::vector<Subcommand>& subcommands();  // in the order of the help

// With what each has: --help before its own, --json after them.
std::vector<OptionRow> optionsOf(const Subcommand& command);
// Of the program itself; all but --json stand in a command's place.
std::vector<OptionRow> programOptions();

}  // namespace torvane::tool
