// SPDX-License-Identifier: MIT
// The man page of torvane-unit, in the form that man reads.
#pragma once

#include <string>

namespace torvane::tool {

std::string manPage();

}  // namespace torvane::tool
