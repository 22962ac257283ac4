// SPDX-License-Identifier: MIT
// What a unit holds: which unit it is, and the digits of its registers.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "knowledge/RegisterMap.h"

namespace torvane {

struct RegisterContent {
  std::string payload;  // as the unit holds it; empty: not known
  std::string reason;   // why it could not be read; empty with an empty payload: never asked for

  bool operator==(const RegisterContent&) const = default;
};

// A line "key: value" of a kept copy that this program doesn't know.
struct UnknownKey {
  std::string key;
  std::string value;

  bool operator==(const UnknownKey&) const = default;
};

struct UnitImage {
  std::string model;  // a part number or a type; empty: not known
  int kind = 0;       // as meterKind
  std::string version;
  std::string line;                                      // "COM 1 9600,o,7,1", or "host:port"
  std::optional<int> address;                            // of an addressed unit, 0 to 199
  std::string read;                                      // UTC, "2026-11-21T21:15:00Z"
  std::array<RegisterContent, registerCount> registers;  // in the order of a write
  std::vector<UnknownKey> others;

  bool operator==(const UnitImage&) const = default;
};

RegisterContent& contentOf(UnitImage& image, std::string_view reg);
RegisterDigits digitsIn(const UnitImage& image);
// Registers that the unit has and that could not be read.
std::size_t countUnread(const UnitImage& image);

// "Tv16D22-C24_17_2026-11-21": of model, address and date what is known.
std::string fileStem(const UnitImage& image);
std::string proposedFileName(const UnitImage& image);  // with the ending of a copy, ".unit"

}  // namespace torvane
