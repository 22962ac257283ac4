// SPDX-License-Identifier: MIT
// The serial ports of this machine, by the names of the preferences and by the system's.
#pragma once

#include <string>
#include <vector>

namespace torvane::tool {

struct Port {
  std::string name;  // "COM 1"; empty for a device that has none
  std::string device;
  std::string adapter;
};

// Names first, then the devices that no name leads to, since others were given to them all.
std::vector<Port> portsHere();

}  // namespace torvane::tool
