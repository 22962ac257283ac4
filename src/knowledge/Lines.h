// SPDX-License-Identifier: MIT
// Whether two lines, each a slope and an intercept in registers, say the same.
#pragma once

#include <optional>

#include "knowledge/EncodedSetup.h"

namespace torvane {

struct UnitLine {
  double slope;
  double intercept;
};

// `step` is the last place of an output as the boxes show it; inputs are shown as whole numbers. With the two
// points known the lines may differ there by what their boxes round away; else, and for a line between two
// points close together, only by half a step over the whole range.
bool isSameLine(const UnitLine& one, const UnitLine& other, double step,
                const std::optional<LinePoints>& points);

}  // namespace torvane
