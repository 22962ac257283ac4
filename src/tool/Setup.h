// SPDX-License-Identifier: MIT
// Setup files and copies of units, and the line settings that a run takes.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "knowledge/EncodedSetup.h"
#include "knowledge/UnitImage.h"
#include "tool/Arguments.h"

namespace tool {

// The records as a program begins with them: factory defaults and the stored preferences.
void beginRecords();

// A setup file into the records. Throws Problem if it can't be read or is no setup.
void loadSetup(const std::string& path);
// The records into a file, in one step.
void saveSetup(const std::string& path);

UnitImage loadCopy(const std::string& path);
void saveCopy(const std::string& path, const UnitImage& copy);

// Either, as its first line tells. A setup is loaded into the records by the way.
std::variant<EncodedSetup, UnitImage> loadEither(const std::string& path);

// Options before what the records hold: the way, its settings, mode and address. Returns "9600,o,7,1".
std::string chooseLine(const LineArguments& line);

}  // namespace tool
