// SPDX-License-Identifier: MIT
// The command line of torvane-unit: declared once, for parsing, help, completion and man page.
#pragma once

#include <string>
#include <vector>

#include "tool/Arguments.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

struct Invocation {
  Arguments arguments = {};
  const Subcommand* subcommand = nullptr;  // null: print `words` and be done
  std::string words = {};                  // the help, version, completion or man page that was asked for
};

// Arguments without the program's name. Throws Problem with what is wrong.
Invocation parseCommandLine(const std::vector<std::string>& arguments);

// Whether the answer is to be JSON, also on a command line with errors.
bool wantsJson(const std::vector<std::string>& arguments);

}  // namespace torvane::tool
