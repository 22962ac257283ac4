// SPDX-License-Identifier: MIT
// The .unit file: a copy of a unit as text that a person can read and a version tool can compare.
//
//   torvane unit copy 1
//   model: Tv16D22-C24          what is known; unknown keys are kept and written back
//   kind: 0
//   read: 2026-11-21T21:15:00Z
//
//   R07 04        # words for a person, never read back
//   R16 -         # no answer
//   sha256: <64 hexadecimal digits over all bytes before this line>
//
// UTF-8, each line ended by a line feed, registers in the order of a write.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "knowledge/UnitImage.h"

namespace torvane {

inline constexpr const char* unitFilter = "Copies of units (*.unit)|*.unit|All Files (*.*)|*.*";
// No reader needs more bytes than this.
inline constexpr std::size_t longestUnitFile = 1 << 16;

// The first line says which file is which, not by its name.
bool isUnitFile(std::string_view bytes);

std::string unitFileText(const UnitImage& image);

// Either the copy, or a plain sentence for the user.
struct UnitFileContent {
  std::optional<UnitImage> image;
  std::string fault;
};
UnitFileContent readUnitFile(std::string_view bytes);

}  // namespace torvane
