// SPDX-License-Identifier: MIT
// What a bench has found, as rows of the table that bench/run-all gathers.
#pragma once

#include <string_view>
#include <vector>

namespace torvane {

inline constexpr double noTarget = 0;

// Prints "| figure | measured | at most | share of it |"; without a target the last two are empty.
void printFigure(std::string_view figure, double measured, std::string_view unit, double target = noTarget);

// The middle one of a list that isn't empty.
double median(std::vector<double> values);
double largest(const std::vector<double>& values);

// Seconds on a clock that never steps back; of processor time that all threads, or this one, have taken.
double wallClock();
double processorTime();
double threadTime();

}  // namespace torvane
