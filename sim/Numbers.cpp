// SPDX-License-Identifier: MIT
// Numbers as text, whatever the locale: whole, fractional and hexadecimal.
#include "sim/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace sim {

namespace {

template <typename Number>
std::optional<Number> wholeText(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace

std::vector<std::string_view> splitText(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
    pieces.push_back(text.substr(0, at));
    text.remove_prefix(at + 1);
  }
  pieces.push_back(text);
  return pieces;
}

std::optional<int> wholeNumber(std::string_view text) { return wholeText<int>(text); }

std::optional<double> fraction(std::string_view text) {
  const auto number = wholeText<double>(text);
  if (number && !std::isfinite(*number)) return std::nullopt;
  return number;
}

std::optional<std::uint32_t> hexNumber(std::string_view text) {
  if (text.empty() || text.size() > 8) return std::nullopt;
  std::uint32_t value = 0;
  for (const char digit : text) {
    const std::size_t place = std::string_view("0123456789ABCDEF").find(digit);
    if (place == std::string_view::npos) return std::nullopt;
    value = value << 4 | static_cast<std::uint32_t>(place);
  }
  return value;
}

std::string hexText(std::uint32_t value, std::size_t width) {
  std::string text;
  for (; value != 0 || text.size() < width; value >>= 4) {
    text.insert(text.begin(), "0123456789ABCDEF"[value & 0xF]);
  }
  return text;
}

std::string secondsText(double seconds) {
  std::array<char, 400> digits{};
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), seconds, std::chars_format::fixed, 3);
  return {digits.data(), error == std::errc() ? end : digits.data()};
}

}  // namespace sim
