// SPDX-License-Identifier: MIT
// The table of a plant: which units stand on which line, and what is wrong with each.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/Faults.h"
#include "sim/Identity.h"

namespace sim {

struct PlantUnit {
  std::string line = {};  // "pty:NAME" or "tcp:PORT"
  UnitSetup setup = {};
  Faults faults = {};
  std::string registers = {};                  // a file, empty for none
  std::vector<std::string> bridgeFaults = {};  // of its line, as addBridgeFault takes them
};

struct PlantTable {
  std::vector<PlantUnit> units;
  std::vector<std::string> problems;  // each with its line; a table with any is not for use
};

// What a unit's own line of the table leaves open is that of `common`.
PlantTable parsePlant(std::string_view text, const PlantUnit& common);

// The kind, "pty" or "tcp", and the name behind it.
std::string lineKind(const std::string& line);
std::string lineName(const std::string& line);

}  // namespace sim
