// SPDX-License-Identifier: MIT
// A file that is a setup or a copy of a unit, as something to be compared.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "knowledge/EncodedSetup.h"
#include "knowledge/UnitImage.h"

namespace torvane {

inline constexpr const char* eitherFilter =
    "Setups and copies of units (*.cfg *.unit)|*.cfg *.unit|All Files (*.*)|*.*";

// One of the three.
struct EitherFile {
  std::optional<EncodedSetup> setup;
  std::optional<UnitImage> copy;
  std::string fault;  // a plain sentence for the user
};

// Which it is its first line tells, not its name. Nothing of the program is changed by it.
EitherFile readEither(std::string_view bytes);
// No reader needs more bytes than this.
std::size_t longestEither();

// As one side of a comparison and as the other; a file without a fault.
UnitImage asUnit(const EitherFile& file);
EncodedSetup asSetup(const EitherFile& file, bool withBus);  // of a copy: bus format and address too

}  // namespace torvane
