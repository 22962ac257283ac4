// SPDX-License-Identifier: MIT
// Register encoders: what the records of Memo say, as the payload of one register and the bits it may change.
#pragma once

#include <cstdint>
#include <string>

namespace torvane {

// A message box that an encoder asks for; the payload stands all the same. Lines end in a carriage return.
struct Notice {
  const char* text;
  const char* title;  // empty: a plain box under the program's title
  bool critical;      // with the stop icon
};

// The payload is upper-case hexadecimal, as wide as the register. One that begins with "!" is an error text
// and is never sent.
struct Encoded {
  std::string payload;
  std::int32_t mask = 0;           // registerMask: the bits that may change; -1 all, 0 skips the register
  const Notice* notice = nullptr;  // lives as long as the program
};

// A value that leaves the signed 16-bit range raises an overflow error in any of these. A text that holds no
// number counts as 0.

// Register 07, 08: how the unit measures and shows.
Encoded makeInput();
Encoded makeRdgCnfg();

// Six digits: sign and decimal code, then the magnitude.
Encoded makeSp1();       // 01
Encoded makeSp2();       // 02
Encoded makeAl1High();   // 13
Encoded makeAl1Low();    // 12
Encoded makeAl2High();   // 16
Encoded makeAl2Low();    // 15
Encoded makeCJOffset();  // 25

// Bit registers of the alarms and outputs.
Encoded makeAl1Cnfg();   // 09
Encoded makeAl2Cnfg();   // 0A
Encoded makeOut1Cnfg();  // 0C
Encoded makeOut2Cnfg();  // 0D

// Times: 01:30 goes out as the decimal number 130.
Encoded makeLBTime();  // 0B, minutes and seconds
Encoded makeRampT();   // 0E, hours and minutes
Encoded makeSoakT();   // 1E, hours and minutes

Encoded makeIDCode();        // 05
Encoded makeOut1PropBand();  // 17, the dead band while output 1 is on/off
Encoded makeOut1Reset();     // 18
Encoded makeOut1Rate();      // 19, tenths, 0 to 1999
Encoded makeOut1CycleT();    // 1A, seconds, 1 to 199
Encoded makeOut2PropBand();  // 1C, the dead band while output 2 is on/off
Encoded makeOut2CycleT();    // 1D, seconds, 1 to 199
Encoded makeOut1Low();       // 27, percent
Encoded makeOut1Hi();        // 28, percent

Encoded makeColors();         // 11
Encoded makeMiscellaneous();  // 24: ID protection, self control, set point deviation
Encoded makeBusFormat();      // 1F
Encoded makeRS485Address();   // 21
// "01" if the box is checked in the way that -1 tells, else "00". No register takes it: bit 0 of 09 says the
// same of the unit.
std::string makeAnalogOutputEnable();

// The four that do arithmetic stand in protocol/Scale.h.

// The text without its first ".": "-0.50" is "-050".
std::string remDp(std::string text);
// A signed value in the unit's reading format, always six digits: "-12.3" with one decimal is "A0007B".
std::string fabASp(const std::string& text);
// The box for a set point payload that isn't six characters long, or none.
const Notice* setPointNotice(const std::string& payload);

}  // namespace torvane
