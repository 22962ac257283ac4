// SPDX-License-Identifier: MIT
// Register decoders: the reply to one read command, taken apart into the records of Memo.
#pragma once

#include <string>

namespace torvane {

using ReadParser = std::string (*)(const std::string& reply);

// A decoder takes the whole reply line. What stands after the first "R" and two more characters is the
// payload; a reply without one gives "Fail" and leaves the records as they were. Otherwise the result is what
// the status shows: the text that was stored, the number, or for a register of bits the payload itself.
//
// Order matters: parseInput and parseRdgCnfg go before everything that has a decimal point, each scale before
// its offset. A number that doesn't fit its record raises an overflow error, a set point payload of fewer
// than three digits a type fault.

std::string parseInput(const std::string& reply);    // 07
std::string parseRdgCnfg(const std::string& reply);  // 08

// Set points, in the reading format of Memo whatever the payload says of its point.
std::string parseSp1(const std::string& reply);       // 01
std::string parseSp2(const std::string& reply);       // 02
std::string parseAl1High(const std::string& reply);   // 13
std::string parseAl1Low(const std::string& reply);    // 12
std::string parseAl2High(const std::string& reply);   // 16
std::string parseAl2Low(const std::string& reply);    // 15
std::string parseCJOffset(const std::string& reply);  // 25

// Lines. The scale stays in Global for the offset, which rebuilds two points of the same line from both.
std::string parseRdScale(const std::string& reply);       // 14
std::string parseRdOffset(const std::string& reply);      // 03
std::string parseAnalogScale(const std::string& reply);   // 0F
std::string parseAnalogOffset(const std::string& reply);  // 04

std::string parseAl1Cnfg(const std::string& reply);  // 09
// Knows no window: on the Rkw77 line, where the analog output's mode isn't in this register, whoever reads a
// unit has to set chkAnalogOutputEnabled of the main window disabled and 0 after a good reply.
std::string parseAl2Cnfg(const std::string& reply);   // 0A
std::string parseOut1Cnfg(const std::string& reply);  // 0C
std::string parseOut2Cnfg(const std::string& reply);  // 0D

std::string parseLBTime(const std::string& reply);  // 0B, minutes and seconds
std::string parseRampT(const std::string& reply);   // 0E, hours and minutes
std::string parseSoakT(const std::string& reply);   // 1E, hours and minutes

std::string parseIDCode(const std::string& reply);  // 05
// A band may be the proportional or the dead band; it is stored as both.
std::string parseOut1PropBand(const std::string& reply);  // 17
std::string parseOut1Reset(const std::string& reply);     // 18
std::string parseOut1Rate(const std::string& reply);      // 19, tenths
std::string parseOut1CycleT(const std::string& reply);    // 1A, seconds
std::string parseOut2PropBand(const std::string& reply);  // 1C
std::string parseOut2CycleT(const std::string& reply);    // 1D, seconds
std::string parseOut1Low(const std::string& reply);       // 27, percent
std::string parseOut1Hi(const std::string& reply);        // 28, percent

std::string parseColors(const std::string& reply);  // 11
// Leaves -1 in the two check box records when they are set; the editor's check boxes make it 1.
std::string parseMiscellaneous(const std::string& reply);  // 24
std::string parseBusFormat(const std::string& reply);      // 1F
std::string parseRS485Address(const std::string& reply);   // 21

// 1, 10, 100 or 1000, by the reading format in Memo; 1 when none is chosen.
int decimalScale();
// A signed payload as a number in the reading format, "-10.0"; "Fail" when shorter than three characters.
std::string parseSignedValue(const std::string& payload);

}  // namespace torvane
