// SPDX-License-Identifier: MIT
// The man page of torvane-unit, in the form that man reads.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace torvane::tool {

std::string manPage(const CLI::App& app);

}  // namespace torvane::tool
