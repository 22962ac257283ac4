// SPDX-License-Identifier: MIT
// A comparison as JSON and as words.
#pragma once

#include <string>

#include "knowledge/Compare.h"
#include "tool/Output.h"

namespace torvane::tool {

Json differingSettings(const Comparison& comparison);  // section, name, value, unit, change
Json registerChanges(const Comparison& comparison);    // index, before, after, verdict, reason
std::string comparisonTable(const Comparison& comparison);

}  // namespace torvane::tool
