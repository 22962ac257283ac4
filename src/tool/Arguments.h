// SPDX-License-Identifier: MIT
// What the command line asks for, each value checked for its form.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tool/LineName.h"

namespace torvane::tool {

// Where a unit is and how its line is set; what is not given comes from the setup, the preferences, or
// 9600,o,7,1.
struct LineArguments {
  LineName name = {};
  std::optional<int> address = {};
  bool notAddressed = false;  // whatever a setup says
  std::optional<int> baud = {};
  std::string parity = {};  // "none", "odd", "even"
  std::optional<int> data = {};
  std::optional<int> stop = {};
  std::string model = {};  // a part number or a type: what the unit must be
};

struct Arguments {
  bool json = false;
  LineArguments line = {};
  std::string setup = {};     // a .cfg file to work from
  std::string out = {};       // the file to write
  std::string unitFile = {};  // a .unit file
  std::string keep = {};      // ... made by the way
  std::vector<int> addresses = {};
  bool bus = false;
  bool dryRun = false;
  bool force = false;
  bool reset = false;
  std::string record = {};
  std::string who = {};
  std::string first = {};  // of a comparison: a line or a file
  bool csv = false;
  std::string pdf = {};
  std::vector<std::string> changes = {};  // "NAME=VALUE"
  std::string plan = {};
  std::string journal = {};
  std::string results = {};
  int jobs = 0;  // 0: one for each line
  bool resume = false;
};

}  // namespace torvane::tool
