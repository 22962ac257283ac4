// SPDX-License-Identifier: MIT
// One exchange on an open file by system calls alone.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

// Sends the bytes and returns what comes up to a carriage return, or without one after two seconds.
std::string bareExchange(int file, std::string_view bytes);

}  // namespace torvane
