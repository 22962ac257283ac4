// SPDX-License-Identifier: MIT
// SHA-256, by which a kept file shows that it is whole.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

// 64 lower-case hexadecimal digits.
std::string sha256(std::string_view bytes);

}  // namespace torvane
