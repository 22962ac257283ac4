// SPDX-License-Identifier: MIT
// How typed texts become legal ones.
#include "editor/EntryRules.h"

#include <algorithm>
#include <cmath>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"

namespace torvane {

namespace {

// What each reading format can show, by its decimals.
struct ReadingRange {
  double maximum;
  double minimum;
  const char* maximumText;
  const char* minimumText;
};

// clang-format off
constexpr ReadingRange readingRanges[] = {
    {9999, -1999,
     "Maximum value possible for this field is 9999",
     "Minimum value possible for this field is -1999"},
    {999.9, -199.9,
     "Maximum value possible for this field is currently 999.9.\r\n"
     "If you wish to represent value larger than 999.9, change the \r\n"
     "Decimal Position setting in Reading Tab from XXX.X to XXXX.",
     "Minimum value possible for this field is currently -199.9.\r\n"
     "If you wish to represent value smaller than -199.9, change the \r\n"
     "Decimal Position setting in Reading Tab from XXX.X to XXXX."},
    {99.99, -19.99,
     "Maximum value possible for this field is currently 99.99.\r\n"
     "If you wish to represent value larger than 99.99, change the \r\n"
     "Decimal Position setting in Reading Tab to the right.",
     "Minimum value possible for this field is currently -19.99.\r\n"
     "If you wish to represent value smaller than -19.99, change the \r\n"
     "Decimal Position setting in Reading Tab to the right."},
    {9.999, -1.999,
     "Maximum value possible for this field is currently 9.999.\r\n"
     "If you wish to represent value larger than 9.999, change the \r\n"
     "Decimal Position setting in Reading Tab to the right.",
     "Minimum value possible for this field is currently -1.999.\r\n"
     "If you wish to represent value smaller than -1.999, change the \r\n"
     "Decimal Position setting in Reading Tab to the right."},
};
// clang-format on

const ReadingRange& readingRange() {
  int decimals = 0;
  while (decimals < 3 && !isChosen(rec::optDpoint + decimals)) ++decimals;
  return readingRanges[decimals];
}

// As text it has 15 digits, and that text is what is tested.
Limited withinReading(double number) {
  const double value = std::isfinite(number) ? unboundedVal(numberText(number)) : number;
  const ReadingRange& range = readingRange();
  if (value > range.maximum) return {numberText(range.maximum), range.maximumText};
  if (value < range.minimum) return {numberText(range.minimum), range.minimumText};
  return {numberText(value)};
}

Limited withinLimits(double number, const Limits& limits) {
  if (number > limits.maximum) return {numberText(limits.maximum), limits.maximumText};
  return {numberText(std::max(number, limits.minimum))};
}

const Limits& limitsOf(const EntryRule& rule, const EntryForm& form) {
  return !form.voltage && rule.currentLimits.maximum > 0 ? rule.currentLimits : rule.limits;
}

// An infinite value has no characters to keep.
double ofFourCharacters(double number) {
  return std::isfinite(number) ? Val(firstCharacters(numberText(number), 4)) : number;
}

Limited newValue(const EntryRule& rule, const std::string& typed, const EntryForm& form) {
  const double number = unboundedVal(typed);
  const Limits& limits = limitsOf(rule, form);
  switch (rule.value) {
    case Value::reading:
      return withinReading(number);
    case Value::absReading:
      return withinReading(std::abs(number));
    case Value::abs:
      return withinLimits(std::abs(number), limits);
    case Value::absInt:
      return withinLimits(std::trunc(std::abs(number)), limits);
    case Value::absIntOf4:
      return withinLimits(ofFourCharacters(std::trunc(std::abs(number))), limits);
    case Value::signedInt:
      return withinLimits(std::trunc(number), limits);
    case Value::time:
      return {valTime(typed)};
    case Value::code:
      return {valCode(typed)};
  }
  return {typed};
}

std::string inPicture(const std::string& value, std::string_view picture, const EntryForm& form) {
  if (picture == asIs) return value;
  return formatText(value, picture == inReadingFormat ? std::string_view(form.formDPt) : picture);
}

// The minus sign of a whole reading takes the place of a digit.
std::string_view shownIn(const EntryRule& rule, const std::string& value) {
  const std::string_view picture = rule.show;
  return rule.value == Value::signedInt && Val(value) < 0 ? picture.substr(1) : picture;
}

std::string twoDigits(std::string_view part) {
  std::string digits;
  std::ranges::copy_if(part, std::back_inserter(digits), [](char c) { return c >= '0' && c <= '9'; });
  digits.resize(2, '0');
  return digits;
}

}  // namespace

Repair repair(const EntryRule& rule, const std::string& typed, const EntryForm& form) {
  const auto [value, limitText] = newValue(rule, typed, form);
  const bool negative = rule.negativeText != nullptr && unboundedVal(typed) < 0;
  const char* const entryText = negative ? rule.negativeText : rule.changedText;
  const bool differs = rule.compare != noWarning && inPicture(value, rule.compare, form) != typed;
  return {.text = inPicture(value, shownIn(rule, value), form),
          .differs = differs,
          .warning = limitText != nullptr ? limitText : entryText};
}

std::string readingRangeText(const EntryRule& rule, const EntryForm& form) {
  if (!isOfReading(rule)) return "";
  const auto at = std::ranges::find(readingPictures, form.formDPt) - std::begin(readingPictures);
  const ReadingRange& range = readingRanges[at];
  const double least = rule.value == Value::absReading ? 0 : range.minimum;
  return numberText(least) + " to " + numberText(range.maximum);
}

Limited valSp(std::string_view text) { return withinReading(unboundedVal(text)); }

std::string valTime(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string left = twoDigits(text.substr(0, colon));
  const std::string right = colon == text.npos ? "00" : twoDigits(text.substr(colon + 1));
  return left + ":" + std::min<std::string>(right, "59");
}

// An exponent makes numbers longer than the code is.
std::string valCode(std::string_view text) {
  const double number = std::trunc(unboundedVal(firstCharacters(text, 4)));
  std::string code = numberText(std::clamp(number, -999.0, 9999.0));
  code.resize(4, '0');
  return code;
}

std::string firstCharacters(std::string_view text, std::size_t count) {
  const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  const auto end = std::ranges::find_if(text, [&](char byte) { return begins(byte) && count-- == 0; });
  return {text.begin(), end};
}

}  // namespace torvane
