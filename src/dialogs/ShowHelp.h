// SPDX-License-Identifier: MIT
// The help call.
#pragma once

#include <cstdint>
#include <string_view>

namespace torvane {

// Opens a guide: 1 is that of this program, 2 "MPL configuration", any other has no name. Whether the
// machine has it is not asked. An empty window name takes the guide's own window.
void ShowHelp(std::int16_t which, std::string_view windowName);

}  // namespace torvane
