// SPDX-License-Identifier: MIT
// Arguments of faults in the forms that several kinds share. Each is false, or nothing, when the
// text is not of its form.
#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "sim/Faults.h"

namespace sim {

bool setCount(int& count, std::string_view text);         // 0 and above
bool setSeconds(double& seconds, std::string_view text);  // 0 and above

std::optional<Refusal> refusalOf(std::string_view text);                        // CODE[,BEGIN[,N]]
std::optional<std::pair<std::size_t, double>> piecesOf(std::string_view text);  // SIZE,GAP; a size above 0

// "KIND:ARG" as its two parts; no colon is an empty argument.
std::pair<std::string_view, std::string_view> kindAndArgument(std::string_view text);

}  // namespace sim
