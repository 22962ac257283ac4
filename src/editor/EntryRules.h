// SPDX-License-Identifier: MIT
// How typed texts become legal ones: what a rule for a text box consists of, and the arithmetic.
//
// Nothing is refused. A number too large for the machine counts as infinite, and so as the limit of its
// box. Which box has which rule stands in SetupBoxes.cpp.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

// How the new value of a box comes from what was typed.
enum class Value {
  reading,     // valSp
  absReading,  // the absolute value, then valSp
  abs,         // the absolute value
  absInt,      // the absolute value without its fraction
  absIntOf4,   // the same, and of its text the first four characters
  signedInt,   // the number without its fraction
  time,        // valTime
  code,        // valCode
};

// Limits of a box that has them itself; one kept to the range of the reading has none here.
struct Limits {
  double minimum = 0;
  double maximum = 0;
  const char* maximumText = nullptr;  // says that the maximum was exceeded; none: nothing of its own
};

struct EntryRule {
  Value value;               // how
  const char* changedText;   // what is said of a repair; none: the words of the repair before it stand
  const char* negativeText;  // what is said of a value below 0; none: not looked for
  const char* compare;  // picture in which the new value is compared with what was typed; none: no warning
  const char* show;     // picture in which it is shown; a negative value of signedInt in one digit less
  Limits limits = {};
  Limits currentLimits = {};  // in place of the limits while the analog output is a current; none: the same
};

// Pictures besides those of numbers.
inline constexpr const char* inReadingFormat = "reading";
inline constexpr const char* asIs = "";
inline constexpr const char* noWarning = nullptr;

inline bool isOfReading(const EntryRule& rule) {
  return rule.value == Value::reading || rule.value == Value::absReading;
}

// Pictures of the reading, by its decimals.
inline constexpr const char* readingPictures[] = {"0000.", "000.0", "00.00", "0.000"};

// What the form tells of itself.
struct EntryForm {
  std::string formDPt;  // picture of the reading format, one of readingPictures
  bool voltage = true;  // the analog output is a voltage
};

struct Repair {
  std::string text;               // what the box is to hold
  bool differs = false;           // from what was typed, as far as the rule warns of it
  const char* warning = nullptr;  // what there is to say; none: the words of the repair before it stand
};

// The common validator.
Repair repair(const EntryRule& rule, const std::string& typed, const EntryForm& form);

// What a box of the reading may hold, as "-199.9 to 999.9"; empty for a rule with limits of its own.
std::string readingRangeText(const EntryRule& rule, const EntryForm& form);

// A value not yet formatted, and what is said of it where a limit took its place; none: nothing.
struct Limited {
  std::string text;
  const char* warning = nullptr;
};

// The number at the start of the text, kept to the range of the reading format of the records.
Limited valSp(std::string_view text);
// "5:3" is "50:30", "1:75" is "10:59": two digits, a colon, two digits of at most 59.
std::string valTime(std::string_view text);
// A whole number of four characters, filled up on its right: "12" is "1200".
std::string valCode(std::string_view text);

// The first `count` characters of a UTF-8 text, none of them cut.
std::string firstCharacters(std::string_view text, std::size_t count);

}  // namespace torvane
