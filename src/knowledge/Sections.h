// SPDX-License-Identifier: MIT
// The sections under which settings are printed, compared and named in a shell.
#pragma once

namespace torvane::section {

inline constexpr const char* general = "General";
inline constexpr const char* setPoints = "Set Points";
inline constexpr const char* input = "Input";
inline constexpr const char* readingTab = "Reading Configuration";
inline constexpr const char* readingLine = "Reading Scale & Offset";
inline constexpr const char* alarm1 = "Alarm 1";
inline constexpr const char* alarm2 = "Alarm 2";
inline constexpr const char* loopBreak = "Loop Break Alarm / Reading Adjust";
inline constexpr const char* out1 = "Out 1";
inline constexpr const char* out2 = "Out 2";
inline constexpr const char* rampSoak = "Ramp & Soak";
inline constexpr const char* analog = "Analog Output";
inline constexpr const char* comm = "Comm";

// In the order of the tabs that show them.
inline constexpr const char* all[] = {general,   setPoints, input, readingTab, readingLine, alarm1, alarm2,
                                      loopBreak, out1,      out2,  rampSoak,   analog,      comm};

}  // namespace torvane::section
