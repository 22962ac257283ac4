// SPDX-License-Identifier: MIT
// What a bench has found, as rows of the table that bench/run-all gathers.
#include "Figures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>

namespace torvane {

namespace {

constexpr int digits = 4;

// With a decimal point whatever the user's language is.
std::string inWords(double number, std::string_view unit) {
  std::array<char, 32> text{};
  const bool large = std::abs(number) >= 1000;
  const auto format = large ? std::chars_format::fixed : std::chars_format::general;
  const auto end = std::to_chars(text.begin(), text.end(), number, format, large ? 0 : digits).ptr;
  return std::string(text.data(), end) + " " + std::string(unit);
}

double secondsOn(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

}  // namespace

void printFigure(std::string_view figure, double measured, std::string_view unit, double target) {
  const bool wanted = target > noTarget;
  const std::string most = wanted ? inWords(target, unit) : "";
  const std::string share = wanted ? inWords(std::round(100 * measured / target), "%") : "";
  std::printf("| %-62s | %12s | %10s | %6s |\n", std::string(figure).c_str(), inWords(measured, unit).c_str(),
              most.c_str(), share.c_str());
  std::fflush(stdout);
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

double largest(const std::vector<double>& values) { return *std::ranges::max_element(values); }

double wallClock() { return secondsOn(CLOCK_MONOTONIC); }

double processorTime() { return secondsOn(CLOCK_PROCESS_CPUTIME_ID); }

double threadTime() { return secondsOn(CLOCK_THREAD_CPUTIME_ID); }

}  // namespace torvane
