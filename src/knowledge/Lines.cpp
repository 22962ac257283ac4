// SPDX-License-Identifier: MIT
// Whether two lines say the same.
#include "knowledge/Lines.h"

#include <cmath>

namespace torvane {

namespace {

constexpr double lowestInput = -1999;
constexpr double highestInput = 9999;
constexpr double likeSlopes = 0.01;  // of a slope: a line that is steeper by more is another line
constexpr double residue = 1e-9;

double at(const UnitLine& line, double x) { return line.slope * x + line.intercept; }

double apart(const UnitLine& one, const UnitLine& other, double x) {
  return std::abs(at(one, x) - at(other, x));
}

bool agreeEverywhere(const UnitLine& one, const UnitLine& other, double step) {
  const double limit = step / 2 + residue;
  return apart(one, other, lowestInput) <= limit && apart(one, other, highestInput) <= limit;
}

// A point is rounded in its input and in its output.
bool agreeAtPoints(const UnitLine& one, const UnitLine& other, double step, const LinePoints& points) {
  const double slope = std::abs(one.slope);
  const double limit = slope / 2 + step / 2 + residue;
  return std::abs(one.slope - other.slope) <= slope * likeSlopes && apart(one, other, points.x1) <= limit &&
         apart(one, other, points.x2) <= limit;
}

}  // namespace

bool isSameLine(const UnitLine& one, const UnitLine& other, double step,
                const std::optional<LinePoints>& points) {
  return agreeEverywhere(one, other, step) || (points && agreeAtPoints(one, other, step, *points));
}

}  // namespace torvane
