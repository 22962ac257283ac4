// SPDX-License-Identifier: MIT
// How often a property is tried. Under the sanitizers a trial takes ten times as long: a tenth of them is
// made there, and all of them in the build that ships, by trial_tests. ALL_TRIALS in the environment makes
// all of them here too.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace torvane {

inline int trials(int all) {
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
  if (std::getenv("ALL_TRIALS") == nullptr) return std::max(1, all / 10);
#endif
#endif
  return all;
}

}  // namespace torvane
