// SPDX-License-Identifier: MIT
// Text between the program, which has UTF-8, and Windows.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

std::wstring wide(std::string_view text);
std::string narrow(std::wstring_view text);

}  // namespace torvane
