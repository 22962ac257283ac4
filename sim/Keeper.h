// SPDX-License-Identifier: MIT
// A unit's registers as they are kept in a file from one start to the next.
#pragma once

#include <string>
#include <utility>

#include "sim/Unit.h"

namespace sim {

class Keeper {
 public:
  // An empty file name keeps nothing.
  explicit Keeper(std::string file) : file_(std::move(file)) {}

  // Takes the registers from the file if it is there. The unit's own address stands above that of the file
  // where `addressHolds`. Returns what is wrong with the file, or an empty text.
  std::string load(Unit& unit, bool addressHolds) const;

  // Writes them if they have changed since the last time. Returns the fault, or an empty text.
  std::string save(const Unit& unit);

 private:
  std::string file_;
  std::string saved_;
};

}  // namespace sim
