// SPDX-License-Identifier: MIT
// Text that is JSON, for what the window saves: members in order, two blanks for each level.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torvane {

// In quotation marks; what is no UTF-8 is replaced.
std::string jsonString(std::string_view text);
// Of values that are JSON already, made for one level more than `level`.
using JsonMember = std::pair<std::string, std::string>;
std::string jsonObject(const std::vector<JsonMember>& members, int level);
std::string jsonArray(const std::vector<std::string>& values, int level);

}  // namespace torvane
