// SPDX-License-Identifier: MIT
// The command line of the unit simulator.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sim/Faults.h"
#include "sim/Identity.h"

namespace sim {

struct Options {
  UnitSetup setup;
  Faults faults;
  bool addressGiven = false;  // the command line's address stands above that of the register file
  std::string registers;      // file, empty for none
  std::string link;
  bool checkLine = false;
  bool quiet = false;
  bool help = false;
  std::string problem;  // not empty: what is wrong with the command line
};

// Arguments without the program's name.
Options parseOptions(const std::vector<std::string>& arguments);

std::string helpText();

}  // namespace sim
