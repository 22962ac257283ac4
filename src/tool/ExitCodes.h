// SPDX-License-Identifier: MIT
// What a run of torvane-unit came to, as the shell hears it.
#pragma once

#include <array>
#include <string_view>

namespace torvane::tool {

enum class ExitCode {
  done = 0,
  differs = 1,
  usage = 2,
  noUnit = 3,
  port = 4,
  file = 5,
  cancelled = 130,
};

struct ExitFact {
  ExitCode code;
  std::string_view meaning;
};

inline constexpr std::array<ExitFact, 7> exitFacts{{
    {ExitCode::done,
     "done and verified; also a dry run, and a comparison with nothing but rounding and what a "
     "write keeps"},
    {ExitCode::differs, "something differs, or a register, a row or a line failed"},
    {ExitCode::usage, "a command line or a plan with errors; nothing was touched"},
    {ExitCode::noUnit, "no unit, or not the planned one; nothing was written"},
    {ExitCode::port, "the port or the bridge can't be used, or was lost in a run"},
    {ExitCode::file, "a file can't be read or written, or exists already"},
    {ExitCode::cancelled, "cancelled, after the register in hand"},
}};

}  // namespace torvane::tool
