// SPDX-License-Identifier: MIT
// Numbers as text, done on decimal digits and by the locale-free conversions only.
#include "core/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/RuntimeError.h"

namespace torvane {

namespace {

// A decimal number as 0.digits times 10 to the point; digits neither begin nor end with a zero, and zero has
// none.
struct Decimal {
  bool negative = false;
  std::string digits;
  std::int64_t point = 0;
};

[[noreturn]] void failOverflow() { throw RuntimeError(Fault::overflow, "Overflow"); }

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// -1 for what is no hexadecimal digit.
int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// The take... functions remove what they take from the front of the text.
bool takeOneOf(std::string_view& text, std::string_view wanted) {
  if (text.empty() || wanted.find(text.front()) == wanted.npos) return false;
  text.remove_prefix(1);
  return true;
}

void takeBlanks(std::string_view& text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
}

bool takeSign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  takeOneOf(text, "+-");
  return negative;
}

std::string_view takeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  const std::string_view digits(text.begin(), end);
  text.remove_prefix(digits.size());
  return digits;
}

// An exponent too long to matter counts as a thousand million: no text is long enough to bring it back.
std::int64_t takeExponent(std::string_view& text) {
  std::string_view rest = text;
  if (!takeOneOf(rest, "Ee")) return 0;
  const bool negative = takeSign(rest);
  const std::string_view digits = takeDigits(rest);
  if (digits.empty()) return 0;
  text = rest;
  std::int64_t exponent = 0;
  for (char c : digits) exponent = std::min<std::int64_t>(exponent * 10 + (c - '0'), 1'000'000'000);
  return negative ? -exponent : exponent;
}

void trimZeros(Decimal& number) {
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  const std::size_t leading = std::min(number.digits.find_first_not_of('0'), number.digits.size());
  number.digits.erase(0, leading);
  number.point -= static_cast<std::int64_t>(leading);
  if (number.digits.empty()) number.point = 0;
}

std::optional<Decimal> takeDecimal(std::string_view& text) {
  Decimal number;
  number.negative = takeSign(text);
  const std::string_view whole = takeDigits(text);
  std::string_view fraction;
  if (takeOneOf(text, ".")) fraction = takeDigits(text);
  if (whole.empty() && fraction.empty()) return std::nullopt;
  number.digits.append(whole).append(fraction);
  number.point = static_cast<std::int64_t>(whole.size()) + takeExponent(text);
  trimZeros(number);
  return number;
}

// Infinite for what is too large.
double valueOf(const Decimal& number) {
  if (number.digits.empty()) return 0;
  const std::string text = "0." + number.digits + "E" + std::to_string(number.point);
  double value = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (fault != std::errc()) {
    if (number.point <= 0) return 0;
    value = std::numeric_limits<double>::infinity();
  }
  return number.negative ? -value : value;
}

double finite(double value) {
  if (!std::isfinite(value)) failOverflow();
  return value;
}

std::string_view hexDigitsOf(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char c) { return hexDigit(c) < 0; });
  return {text.begin(), end};
}

double valueOfHex(std::string_view text) {
  const std::string_view digits = hexDigitsOf(text);
  if (digits.size() <= 4) return static_cast<std::int16_t>(hexValue(digits));
  if (digits.size() <= 8) return hexValue(digits);
  double value = 0;
  for (char c : digits) value = value * 16 + hexDigit(c);
  return value;
}

std::string hexOf(std::uint32_t bits) {
  std::string text;
  do text.insert(text.begin(), "0123456789ABCDEF"[bits % 16]);
  while ((bits /= 16) != 0);
  return text;
}

template <class Real>
std::string realText(Real value, int digits) {
  if (value == 0) return "0";
  std::array<char, 32> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits)
          .ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  return {buffer.data(), end};
}

// One more in the last place; the zero in front takes what is carried out of the digits.
void countUp(Decimal& number) {
  number.digits.insert(0, 1, '0');
  ++number.point;
  while (number.digits.ends_with('9')) number.digits.pop_back();
  ++number.digits.back();
}

void roundTo(Decimal& number, std::size_t places) {
  const std::int64_t kept = number.point + static_cast<std::int64_t>(places);
  if (kept >= static_cast<std::int64_t>(number.digits.size())) return;
  const bool up = kept >= 0 && number.digits[static_cast<std::size_t>(kept)] >= '5';
  number.digits.resize(static_cast<std::size_t>(std::max<std::int64_t>(kept, 0)));
  if (up) countUp(number);
  trimZeros(number);
}

// Puts the zeros in that stand between the digits and the point, on either side.
void spellOut(Decimal& number) {
  if (number.point < 0) number.digits.insert(0, static_cast<std::size_t>(-number.point), '0');
  number.point = std::max<std::int64_t>(number.point, 0);
  const auto width = static_cast<std::size_t>(number.point);
  number.digits.resize(std::max(number.digits.size(), width), '0');
}

std::string formatDecimal(Decimal number, std::string_view picture) {
  const std::size_t point = picture.find('.');
  const std::string_view whole = picture.substr(0, point);
  const std::string_view decimals = point == picture.npos ? "" : picture.substr(point + 1);
  const std::size_t wholeWidth = whole.size() - std::min(whole.find('0'), whole.size());
  const std::size_t decimalsWidth = decimals.rfind('0') + 1;  // none found counts as 0

  roundTo(number, decimals.size());
  std::string text = number.negative && !number.digits.empty() ? "-" : "";
  spellOut(number);
  const auto wholeCount = static_cast<std::size_t>(number.point);
  std::string fraction = number.digits.substr(wholeCount);
  fraction.resize(std::max(fraction.size(), decimalsWidth), '0');
  text += padLeft(number.digits.substr(0, wholeCount), wholeWidth);
  if (point != picture.npos) text += "." + fraction;
  return text;
}

// What has no digits, as an infinite value, shows as it is.
std::string formatDigits(const std::string& text, std::string_view picture) {
  std::string_view rest = text;
  const std::optional<Decimal> number = takeDecimal(rest);
  return number ? formatDecimal(*number, picture) : text;
}

template <class Whole>
Whole toWhole(double value) {
  const double nearest = value - std::remainder(value, 1.0);
  if (!(nearest >= std::numeric_limits<Whole>::min() && nearest <= std::numeric_limits<Whole>::max())) {
    failOverflow();
  }
  return static_cast<Whole>(nearest);
}

}  // namespace

double Val(std::string_view text) { return finite(unboundedVal(text)); }

double unboundedVal(std::string_view text) {
  takeBlanks(text);
  if (text.starts_with("&H") || text.starts_with("&h")) return valueOfHex(text.substr(2));
  std::string dense(text);
  std::erase_if(dense, isBlank);
  std::string_view rest = dense;
  return valueOf(takeDecimal(rest).value_or(Decimal()));
}

std::int32_t hexValue(std::string_view hexText) {
  hexText.remove_prefix(std::min(hexText.find_first_not_of('0'), hexText.size()));
  std::uint32_t bits = 0;
  for (char c : hexDigitsOf(hexText.substr(0, 8))) bits = bits << 4 | static_cast<std::uint32_t>(hexDigit(c));
  return static_cast<std::int32_t>(bits);
}

std::string hexText(std::int16_t value) { return hexOf(static_cast<std::uint16_t>(value)); }
std::string hexText(std::int32_t value) { return hexOf(static_cast<std::uint32_t>(value)); }

std::string padLeft(std::string text, std::size_t width, char with) {
  if (text.size() < width) text.insert(0, width - text.size(), with);
  return text;
}

std::string numberText(double value) { return realText(value, 15); }
std::string numberText(float value) { return realText(value, 7); }
std::string numberText(std::int32_t value) { return std::to_string(value); }

std::string exactText(double value) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  return {buffer.data(), end};
}

std::string formatNumber(double value, std::string_view picture) {
  return formatDigits(numberText(value), picture);
}
std::string formatNumber(float value, std::string_view picture) {
  return formatDigits(numberText(value), picture);
}
std::string formatText(std::string_view text, std::string_view picture) {
  return formatNumber(Val(text), picture);
}

std::int16_t toInt16(double value) { return toWhole<std::int16_t>(value); }
std::int32_t toInt32(double value) { return toWhole<std::int32_t>(value); }

float toSingle(double value) {
  if (!(std::abs(value) <= std::numeric_limits<float>::max())) failOverflow();
  return static_cast<float>(value);
}

double numberOfText(std::string_view text) {
  takeBlanks(text);
  const std::optional<Decimal> number = takeDecimal(text);
  takeBlanks(text);
  if (!number || !text.empty()) throw RuntimeError(Fault::typeMismatch, "Type mismatch");
  return finite(valueOf(*number));
}

}  // namespace torvane
