// SPDX-License-Identifier: MIT
// Text in the single-byte code page Windows-1252, and as UTF-8 in the program.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

// What the code page can't hold becomes "?". A text that is no UTF-8, such as a unit's reply, goes byte by
// byte.
std::string toWindows1252(std::string_view text);
std::string fromWindows1252(std::string_view bytes);

}  // namespace torvane
