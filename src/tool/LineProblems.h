// SPDX-License-Identifier: MIT
// Why a run on a line can't go on. `line` is as the user named it: "COM 3", a device or a bridge.
#pragma once

#include <string>

namespace torvane::tool {

inline constexpr const char* nothingWritten = "Nothing was written.";

// What a run has said of something that did answer tells more than any advice; empty: nothing was said.
[[noreturn]] void noUnit(const std::string& line, const std::string& said);
[[noreturn]] void noBridge(const std::string& line);
// A unit of the other line than the setup's answers; `hint` says what the user can do.
[[noreturn]] void otherLine(const std::string& line, const char* hint);
// Throws when the user has interrupted the program, before anything was written.
void mustNotBeCancelled();

}  // namespace torvane::tool
