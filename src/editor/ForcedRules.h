// SPDX-License-Identifier: MIT
// What the window changes in a setup that is opened or read, because the unit that it is for can't be set up
// so or because a control has no such choice. Everything else comes back as it was.
#pragma once

#include <span>
#include <vector>

namespace torvane {

struct ForcedRule {
  std::vector<int> records;
  const char* when;     // in the guide's words
  const char* becomes;  // what the records are afterwards
  bool (*holds)();      // of the records and the model as they were opened or read
};

// The guide lists the same rows on its page about reading.
std::span<const ForcedRule> forcedRules();

}  // namespace torvane
