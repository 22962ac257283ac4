// SPDX-License-Identifier: MIT
// The list of an alarm's action: "Above" and "Below" for every alarm, "Hi/Lo" not in the simple menu, "Band"
// for deviation alarms. It is always a beginning of these four, in this order.
#pragma once

namespace torvane {

class ComboBox;

namespace alarmSetup {

enum : int { above = 0, below = 1, hiLo = 2, band = 3 };
inline constexpr int simpleCount = 2;
inline constexpr int absoluteCount = 3;
inline constexpr int deviationCount = 4;

// Each looks at the present length first. An action that is taken away leaves "Above" in its place.
void offerHiLo(ComboBox& setup);
void offerBand(ComboBox& setup);
void withdrawHiLo(ComboBox& setup);
void withdrawBand(ComboBox& setup);
void shorten(ComboBox& setup);  // to the two actions of the simple menu

// Gives the list `count` items and chooses `action`, or "Above" where the list hasn't got it.
void show(ComboBox& setup, int count, int action);

}  // namespace alarmSetup

}  // namespace torvane
