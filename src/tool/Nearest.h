// SPDX-License-Identifier: MIT
// The legal words nearest to one that is not.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane::tool {

// Letters to add, drop or change on the way from one word to the other, without regard to case.
std::size_t distance(std::string_view one, std::string_view other);

// At most three, the nearest first; none where nothing comes near.
std::vector<std::string> nearest(std::string_view word, const std::vector<std::string>& legal);

// "Did you mean A, B or C?", or an empty text.
std::string didYouMean(std::string_view word, const std::vector<std::string>& legal);

}  // namespace torvane::tool
