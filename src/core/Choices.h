// SPDX-License-Identifier: MIT
// The words of every list and of every value that is one of a few: what the window offers, what the report
// prints, and what a unit's codes mean.
#pragma once

#include <span>
#include <string>

namespace torvane {

using Choices = std::span<const char* const>;

namespace choices {
// By list index.
inline constexpr const char* thermocouples[] = {"J", "K", "T", "E", "N", "DIN J", "R", "S", "B", "C"};
inline constexpr const char* rtdValues[] = {"100", "500", "1000"};
inline constexpr const char* rtdCurves[] = {"385", "392"};
inline constexpr const char* rtdWires[] = {"2", "3", "4"};
inline constexpr const char* processRanges[] = {"0 - 100mV", "0 - 1V", "0 - 10V", "0 - 20mA"};
inline constexpr const char* temperatureUnits[] = {"C", "F"};
inline constexpr const char* filters[] = {"1", "2", "4", "8", "16", "32", "64", "128"};
inline constexpr const char* alarmControls[] = {"Absolute", "Deviation"};
inline constexpr const char* latches[] = {"Latch", "Unlatch"};
inline constexpr const char* closures[] = {"Norm Open", "Norm Close"};
inline constexpr const char* alarmSetups[] = {"Above", "Below", "Hi/Lo", "Band"};
inline constexpr const char* normalColors[] = {"Red ", "Green", "Amber"};  // the one list with this blank
inline constexpr const char* colors[] = {"Red", "Green", "Amber"};
inline constexpr const char* dampingFactors[] = {"0", "1", "2", "3", "4", "5", "6", "7"};
inline constexpr const char* outputControls[] = {"On/Off", "PID"};
inline constexpr const char* outputActions[] = {"Reverse", "Direct"};
inline constexpr const char* commPorts[] = {"COM 1", "COM 2", "COM 3", "COM 4"};
inline constexpr const char* bauds[] = {"300", "600", "1200", "2400", "4800", "9600", "19200"};
inline constexpr const char* parities[] = {"none", "odd", "even"};
inline constexpr const char* dataBits[] = {"7-bit", "8-bit"};
inline constexpr const char* stopBits[] = {"1-bit", "2-bit"};

// By member of an option array.
inline constexpr const char* protections[] = {"None", "Setpoints", "Full"};
inline constexpr const char* inputTypes[] = {"TC", "RTD", "Process"};
inline constexpr const char* readingFormats[] = {"XXXX.", "XXX.X", "XX.XX", "X.XXX"};
inline constexpr const char* analogModes[] = {"Volt", "Current"};
inline constexpr const char* buses[] = {"RS-232", "RS-485"};

// By yes or no: the report has three ways to say it.
inline constexpr const char* ticks[] = {"0", "1"};
inline constexpr const char* truths[] = {"False", "True"};
inline constexpr const char* abilities[] = {"Disabled", "Enabled"};
}  // namespace choices

// The items of the list whose index is kept in a record of Memo; none for any other record.
Choices choicesOf(int record);
// An item; empty outside the list.
std::string choiceAt(Choices choices, int index);

}  // namespace torvane
