// SPDX-License-Identifier: MIT
// Numbers as text, blind to the locale: a decimal comma never appears and is never understood.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace torvane {

// The number at the start of a text: blanks are skipped, then an optional sign, digits, one point and an
// optional exponent are taken; anything else ends it, and no number gives 0. "&H" in front means hexadecimal:
// digits up to the first other character, up to four a signed 16-bit number ("&HFFFF" is -1), five to eight a
// signed 32-bit one.
// A number too large for the machine is an overflow error.
double Val(std::string_view text);
// The same, but such a number is infinite.
double unboundedVal(std::string_view text);

// The digits at the start of a hexadecimal text without "&H", up to eight after any zeros, as 32 bits:
// "FFF6" is 65526; none is 0. What was padded to any length thus keeps its value.
std::int32_t hexValue(std::string_view hexText);
// Upper case, as short as possible; a negative number in two's complement of its width.
std::string hexText(std::int16_t value);  // two's complement of 16 bits: -10 is "FFF6"
std::string hexText(std::int32_t value);
std::string padLeft(std::string text, std::size_t width, char with = '0');

// Decimal text as short as possible: up to 15 significant digits, 7 for a single; "0.5", "-12.5", "1E-07".
std::string numberText(double value);
std::string numberText(float value);
std::string numberText(std::int32_t value);
// The shortest text that reads back as the very same number: up to 17 digits.
std::string exactText(double value);

// A number by a picture such as "0000", "000.0" or "###0": 0 is a digit always shown, # one shown only if
// significant. Rounds half away from zero on the decimal digits of the number's text; a picture that ends in
// a point shows the point. What rounds to zero has no sign.
std::string formatNumber(double value, std::string_view picture);
std::string formatNumber(float value, std::string_view picture);
// The same for the number at the start of a text.
std::string formatText(std::string_view text, std::string_view picture);

// Whole numbers: the nearest, halves to even. Out of range is an overflow error, as is a value that isn't
// finite.
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);
float toSingle(double value);  // a value beyond the single range is an overflow error
// A whole text that is a number, as a value; anything else is a type fault.
double numberOfText(std::string_view text);

}  // namespace torvane
