// SPDX-License-Identifier: MIT
// Numbers as text, whatever the locale: whole, fractional and hexadecimal.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// The pieces between separators; an empty text is one empty piece.
std::vector<std::string_view> splitText(std::string_view text, char separator);

// The whole text as a number, or nothing.
std::optional<int> wholeNumber(std::string_view text);
std::optional<double> fraction(std::string_view text);

// Upper-case digits only, one to eight of them, as the unit itself takes them.
std::optional<std::uint32_t> hexNumber(std::string_view text);

// Upper-case digits with leading zeros up to the width.
std::string hexText(std::uint32_t value, std::size_t width);

// Seconds with three decimals.
std::string secondsText(double seconds);

}  // namespace sim
