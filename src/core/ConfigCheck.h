// SPDX-License-Identifier: MIT
// A look at the bytes of a file before they are opened: is this a setup, and how long is its BaseModel?
#pragma once

#include <string>
#include <string_view>

namespace torvane {

struct ConfigCheck {
  std::string fault;      // why this is no setup, to go after "The file"; empty: it is one
  bool older = false;     // ends with the second stamp, and names no model
  std::string baseModel;  // its bytes in the code page; a reader must have as many in memory
};

// The file does not say how long BaseModel is, and after DeviceState the tail of an older, longer file may
// follow. DeviceState is where its fields agree with their copies in Memo and make sense.
ConfigCheck examineConfiguration(std::string_view bytes);

}  // namespace torvane
