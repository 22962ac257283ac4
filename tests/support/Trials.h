// SPDX-License-Identifier: MIT
// How often a property is tried. Under the sanitizers a trial takes ten times as long: a tenth of them is
// made there, and all of them in the build that ships, by trial_tests. TRIALS in the environment has it
// otherwise: "all" or "tenth".
#pragma once

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace torvane {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr std::string_view usualTrials = "tenth";
#else
inline constexpr std::string_view usualTrials = "all";
#endif
#else
inline constexpr std::string_view usualTrials = "all";
#endif

inline int trials(int all) {
  const char* const wanted = std::getenv("TRIALS");
  return (wanted == nullptr ? usualTrials : wanted) == "all" ? all : std::max(1, all / 10);
}

}  // namespace torvane
