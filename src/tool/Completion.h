// SPDX-License-Identifier: MIT
// What bash needs to complete a command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace torvane::tool {

std::string bashCompletion(const CLI::App& app);

}  // namespace torvane::tool
