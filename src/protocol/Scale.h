// SPDX-License-Identifier: MIT
// Two points of a straight line as the unit wants them: slope and intercept, each a mantissa and a power of
// ten.
#pragma once

#include <string>

#include "protocol/Encoders.h"

namespace torvane {

// A scale is 24 bits: power code (the magnitude is divided by 10 to the code less 1), sign in bit 19,
// magnitude up to 524287. An offset has its sign in bit 23, a power code (divided by 10 to the code less 2)
// in bits 22 to 20, a magnitude up to 999999.
//
// A scale encoder leaves its slope at full precision in Global for the offset encoder after it. An
// arithmetic result that is not finite raises an overflow error.

Encoded makeRdScale();       // 14; "!Divide by zero" if both inputs are the same
Encoded makeRdOffset();      // 03
Encoded makeAnalogScale();   // 0F; "!Divide by zero" if both readings are the same
Encoded makeAnalogOffset();  // 04

// A number as digits times 10 to the exponent.
struct Mantissa {
  std::string digits;  // six, the first of them 0 for zero only
  int exponent = 0;
  bool negative = false;
};

// Cut after six digits, not rounded.
Mantissa TextToMantissa(double r);

// Whether the analog output's scale counts in tenths: a temperature that is read with one decimal. The scale
// then is one power of ten off, on the way out and on the way back.
bool isReadInTenths();

}  // namespace torvane
