// SPDX-License-Identifier: MIT
// The index: other words for what a setup has, as people look for it. The search of the main window and the
// guide's search both know a setting by these.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace torvane {

struct IndexEntry {
  const char* term;   // lower case, as labels, tips and pages have it
  const char* words;  // other words for it, with blanks between
};

std::span<const IndexEntry> indexEntries();

// The other words for all terms that the text has, each with a blank after it.
std::string otherWords(std::string_view text);
// In lower case, without the locale.
std::string lowerCase(std::string_view text);

}  // namespace torvane
