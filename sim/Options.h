// SPDX-License-Identifier: MIT
// The command line of the unit simulator.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sim/Bridge.h"
#include "sim/Faults.h"
#include "sim/Identity.h"

namespace sim {

struct Options {
  UnitSetup setup;
  Faults faults;
  bool addressGiven = false;  // the command line's address stands above that of the register file
  std::string registers;      // file, empty for none
  std::string link;
  std::optional<int> tcp;             // port of the bridge, 0 for any
  std::optional<int> terminalServer;  // port at which the bridge is a Terminal Server
  BridgeFaults bridge;
  std::string plant;  // a table of units, empty for the one that stands here
  bool checkLine = false;
  bool quiet = false;
  bool help = false;
  std::string problem;  // not empty: what is wrong with the command line
};

// Arguments without the program's name.
Options parseOptions(const std::vector<std::string>& arguments);

std::string helpText();

}  // namespace sim
