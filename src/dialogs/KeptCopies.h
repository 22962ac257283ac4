// SPDX-License-Identifier: MIT
// Copies of units as files: where the user says, and before every write if the preferences want it.
#pragma once

#include <string>

#include "knowledge/UnitImage.h"

namespace torvane {

// The preference; off at first. A change takes effect, and is stored, at once.
bool keepsCopies();
void setKeepsCopies(bool on);

// Where the user says, under a name that he may change. What is missing in it is named.
void saveCopy(const UnitImage& unit);

// In the user's data folder, under a name of its own; `path` tells it. A copy that could not be kept, or that
// lacks something, is named, and the user says whether the write goes on without it. False: it doesn't.
bool keepBeforeWrite(const UnitImage& unit, std::string& path);

}  // namespace torvane
