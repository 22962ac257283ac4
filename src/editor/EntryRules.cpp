// SPDX-License-Identifier: MIT
// How typed texts become legal ones.
#include "editor/EntryRules.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

// What each reading format can show.
struct ReadingRange {
  int record;  // the option that stands for the format; the last format has none of the others
  double maximum;
  double minimum;
  const char* maximumText;
  const char* minimumText;
};

// clang-format off
constexpr ReadingRange readingRanges[] = {
    {rec::optDpoint, 9999, -1999,
     "Maximum value possible for this field is 9999",
     "Minimum value possible for this field is -1999"},
    {rec::optDpoint + 1, 999.9, -199.9,
     "Maximum value possible for this field is currently 999.9.\r\n"
     "If you wish to represent value larger than 999.9, change the \r\n"
     "Decimal Position setting in Reading Tab from XXX.X to XXXX.",
     "Minimum value possible for this field is currently -199.9.\r\n"
     "If you wish to represent value smaller than -199.9, change the \r\n"
     "Decimal Position setting in Reading Tab from XXX.X to XXXX."},
    {rec::optDpoint + 2, 99.99, -19.99,
     "Maximum value possible for this field is currently 99.99.\r\n"
     "If you wish to represent value larger than 99.99, change the \r\n"
     "Decimal Position setting in Reading Tab to the right.",
     "Minimum value possible for this field is currently -19.99.\r\n"
     "If you wish to represent value smaller than -19.99, change the \r\n"
     "Decimal Position setting in Reading Tab to the right."},
    {rec::optDpoint + 3, 9.999, -1.999,
     "Maximum value possible for this field is currently 9.999.\r\n"
     "If you wish to represent value larger than 9.999, change the \r\n"
     "Decimal Position setting in Reading Tab to the right.",
     "Minimum value possible for this field is currently -1.999.\r\n"
     "If you wish to represent value smaller than -1.999, change the \r\n"
     "Decimal Position setting in Reading Tab to the right."},
};

constexpr const char* unsaid = nullptr;
constexpr const char* setPoint1Changed =
    "SetPoint1 Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* setPoint2Changed =
    "SetPoint2 Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* entryChanged =
    "Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* negativeDeadBand = "Entry for Dead Band can not be less than zero.";
constexpr const char* negativeBand = "Entry for Proportional Band can not be less than zero.";
constexpr const char* timeWanted =
    "Please enter value in:\r\n"
    "two digits minute (99 max), colon (:), two digits seconds \r\n"
    "(59 max).\r\n"
    "Verify your entry before continuing.";

// The words are those that users know: rate and reset speak of the proportional band, the second output of
// "Read 1", and the times of ramp and soak, which are hours and minutes, of minutes and seconds.
constexpr EntryField fields[] = {
    // box, value, said of a repair, said below 0, compared, shown, limits and what is said above them
    {"txtSp1", Value::reading, setPoint1Changed, unsaid, inReadingFormat, inReadingFormat},
    {"txtSp2", Value::reading, setPoint2Changed, unsaid, inReadingFormat, inReadingFormat},
    {"txtAl1HiSp", Value::reading, unsaid, unsaid, inReadingFormat, inReadingFormat},
    {"txtAl1LoSp", Value::reading, unsaid, unsaid, inReadingFormat, inReadingFormat},
    {"txtTAdjust", Value::reading, unsaid, unsaid, inReadingFormat, inReadingFormat},
    {"txtAl2HiSp", Value::reading, unsaid, unsaid, noWarning, inReadingFormat},
    {"txtAl2LoSp", Value::reading, unsaid, unsaid, noWarning, inReadingFormat},
    {"txtAl1Deadband", Value::absReading, entryChanged, negativeDeadBand, inReadingFormat, inReadingFormat},
    {"txtAl2Deadband", Value::absReading, entryChanged, negativeDeadBand, inReadingFormat, inReadingFormat},
    {"txtOut1DeadBand", Value::absReading, entryChanged, negativeBand, inReadingFormat, inReadingFormat},
    {"txtOut2DeadBand", Value::absReading, entryChanged, negativeBand, inReadingFormat, inReadingFormat},
    {"txtOut1PB", Value::absReading, entryChanged, negativeBand, inReadingFormat, inReadingFormat},
    {"txtOut2PB", Value::absReading, entryChanged, negativeBand, inReadingFormat, inReadingFormat},
    {"txtOut1Rate", Value::abs, entryChanged, negativeBand, "000.0", "000.0", {0, 399.9}},
    {"txtOut1Reset", Value::absIntOf4, entryChanged, negativeBand, "0000", "0000",
     {0, 3999, "Entry for Reset can not exceed 3999."}},
    {"txtIn1", Value::absInt, unsaid, "Entry value for In 1 cannot be less than 0.", "0000", "0000",
     {0, 9999, "Entry value for In 1 cannot exceed 9999."}},
    {"txtIn2", Value::absInt, unsaid, "Entry for In 2 cannot be less than 0.", "0000", "0000",
     {0, 9999, "Entry for In 2 cannot exceed 9999."}},
    {"txtRd1", Value::signedInt, unsaid, unsaid, noWarning, "0000", {-999, 9999}},
    {"txtRd2", Value::signedInt, unsaid, unsaid, noWarning, "0000", {-999, 9999}},
    {"txtAOutRd1", Value::absInt, unsaid, "Entry value for Read 1  cannot be less than 0", "0000", "0000",
     {0, 9999, "Entry value for Read 1 cannot exceed 9999"}},
    {"txtAOutRd2", Value::absInt, unsaid, "Entry value for Read 2  cannot be less than 0", "0000", "0000",
     {0, 9999, "Entry value for Read 2 cannot exceed 9999"}},
    {"txtAOutOut1", Value::abs, unsaid, "Entry value for Output 1  cannot be less than 0", "0000", "00.00",
     {0, 10, "Entry value for Output 1 cannot exceed 10.00"},
     {0, 20, "Entry value for Output 1 cannot exceed 20.00"}},
    {"txtAOutOut2", Value::abs, unsaid, "Entry value for Read 1  cannot be less than 0", "0000", "00.00",
     {0, 10, "Entry value for Read 1 cannot exceed 10.00"},
     {0, 20, "Entry value for Read 1 cannot exceed 20.00"}},
    {"txtRS485Address", Value::absInt, unsaid, "Entry value for RS-485 Address  cannot be less than 0",
     "0000", "0000", {0, 199, "Entry value for RS-485 Address cannot exceed 199"}},
    {"txtLBATime", Value::time, timeWanted, unsaid, asIs, asIs},
    {"txtRampT", Value::time, timeWanted, unsaid, asIs, asIs},
    {"txtSoakT", Value::time, timeWanted, unsaid, asIs, asIs},
    {"txtIDCode", Value::code, unsaid, unsaid, noWarning, asIs},
};
// clang-format on

const ReadingRange& readingRange() {
  const auto* last = std::end(readingRanges) - 1;
  return *std::find_if(readingRanges, last,
                       [](const ReadingRange& range) { return Memo[range.record].flag != False; });
}

// As text it has 15 digits, and that text is what is tested.
std::string withinReading(double number) {
  const double value = std::isfinite(number) ? entryNumber(numberText(number)) : number;
  const ReadingRange& range = readingRange();
  if (value > range.maximum) {
    Global.WarningText = range.maximumText;
    return numberText(range.maximum);
  }
  if (value < range.minimum) {
    Global.WarningText = range.minimumText;
    return numberText(range.minimum);
  }
  return numberText(value);
}

std::string withinLimits(double number, const Limits& limits) {
  if (number > limits.maximum) {
    if (limits.maximumText != nullptr) Global.WarningText = limits.maximumText;
    number = limits.maximum;
  }
  return numberText(std::max(number, limits.minimum));
}

const Limits& limitsOf(const EntryField& field, const EntryForm& form) {
  return !form.voltage && field.currentLimits.maximum > 0 ? field.currentLimits : field.limits;
}

// An infinite value has no characters to keep.
double ofFourCharacters(double number) {
  return std::isfinite(number) ? Val(firstCharacters(numberText(number), 4)) : number;
}

std::string newValue(const EntryField& field, const std::string& typed, const EntryForm& form) {
  const double number = entryNumber(typed);
  const Limits& limits = limitsOf(field, form);
  switch (field.value) {
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
      return valTime(typed);
    case Value::code:
      return valCode(typed);
  }
  return typed;
}

std::string inPicture(const std::string& value, std::string_view picture, const EntryForm& form) {
  if (picture == asIs) return value;
  return formatText(value, picture == inReadingFormat ? std::string_view(form.formDPt) : picture);
}

// The minus sign of a whole reading takes the place of a digit.
std::string_view shownIn(const EntryField& field, const std::string& value) {
  const std::string_view picture = field.show;
  return field.value == Value::signedInt && Val(value) < 0 ? picture.substr(1) : picture;
}

std::string twoDigits(std::string_view part) {
  std::string digits;
  std::ranges::copy_if(part, std::back_inserter(digits), [](char c) { return c >= '0' && c <= '9'; });
  digits.resize(2, '0');
  return digits;
}

}  // namespace

std::span<const EntryField> entryFields() { return fields; }

const EntryField& entryField(std::string_view box) {
  const auto* found = std::ranges::find(fields, box, &EntryField::box);
  if (found == std::end(fields)) throw std::logic_error(std::string(box) + " has no validator");
  return *found;
}

Repair repair(const EntryField& field, const std::string& typed, const EntryForm& form) {
  if (field.changedText != nullptr) Global.WarningText = field.changedText;
  if (field.negativeText != nullptr && entryNumber(typed) < 0) Global.WarningText = field.negativeText;
  const std::string value = newValue(field, typed, form);
  const bool differs = field.compare != noWarning && inPicture(value, field.compare, form) != typed;
  return {inPicture(value, shownIn(field, value), form), differs};
}

std::string readingRangeText(const EntryField& field, const EntryForm& form) {
  if (field.value != Value::reading && field.value != Value::absReading) return "";
  constexpr std::string_view pictures[] = {"0000.", "000.0", "00.00", "0.000"};
  const auto at = std::ranges::find(pictures, form.formDPt) - std::begin(pictures);
  const ReadingRange& range = readingRanges[std::min<std::ptrdiff_t>(at, std::ssize(pictures) - 1)];
  const double least = field.value == Value::absReading ? 0 : range.minimum;
  return numberText(least) + " to " + numberText(range.maximum);
}

std::string valSp(std::string_view text) { return withinReading(entryNumber(text)); }

std::string valTime(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string left = twoDigits(text.substr(0, colon));
  const std::string right = colon == text.npos ? "00" : twoDigits(text.substr(colon + 1));
  return left + ":" + std::min<std::string>(right, "59");
}

// An exponent makes numbers longer than the code is.
std::string valCode(std::string_view text) {
  const double number = std::trunc(entryNumber(firstCharacters(text, 4)));
  std::string code = numberText(std::clamp(number, -999.0, 9999.0));
  code.resize(4, '0');
  return code;
}

double entryNumber(std::string_view text) {
  double number = 0;
  if (attempt([&] { number = Val(text); })) return number;
  const std::size_t first = text.find_first_not_of(" \t\n");
  const bool negative = first != text.npos && text[first] == '-';
  return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

std::string firstCharacters(std::string_view text, std::size_t count) {
  const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  const auto end = std::ranges::find_if(text, [&](char byte) { return begins(byte) && count-- == 0; });
  return {text.begin(), end};
}

}  // namespace torvane
