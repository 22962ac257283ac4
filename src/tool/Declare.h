// SPDX-License-Identifier: MIT
// Options that several commands share, and how their values are checked.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tool/Arguments.h"

namespace torvane::tool {

void declareLine(CLI::App& app, LineArguments& line);          // LINE, and what declareUnit declares
void declareUnit(CLI::App& app, LineArguments& line);          // --address, --model, and the line settings
void declareLineSettings(CLI::App& app, LineArguments& line);  // --baud, --parity, --data, --stop

// A file that is read, or one that is written: so it stands in the help, and the shell completes it.
CLI::Option* declareFile(CLI::App& app, const std::string& names, std::string& file, const std::string& what);

// A value out of a short list, which the help and the shell offer.
CLI::Option* declareChoice(CLI::App& app, const std::string& names, const std::vector<std::string>& legal,
                           const std::string& what, void (*take)(LineArguments&, const std::string&),
                           LineArguments& line);

// For what reads a value by a function of its own: the text, or a Problem that names option and text.
[[noreturn]] void refuse(const std::string& option, const std::string& text, const std::string& hint);

LineName lineNamed(const std::string& text);

}  // namespace torvane::tool
