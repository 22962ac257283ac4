// SPDX-License-Identifier: MIT
// The serial ports that Windows has, and what their adapters call themselves.
#pragma once

#include <string>
#include <vector>

namespace torvane {

struct Win32Port {
  std::string name;     // "COM12"
  std::string adapter;  // may be empty
};

// All that are present, by number.
std::vector<Win32Port> win32Ports();

}  // namespace torvane
