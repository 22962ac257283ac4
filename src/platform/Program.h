// SPDX-License-Identifier: MIT
// What the program says of itself.
#pragma once

namespace torvane {

namespace program {
inline constexpr const char* title = "Torvane Configuration";
inline constexpr const char* company = "Ashgrove Electronics";
inline constexpr const char* copyright = "Copyright 2026 Ashgrove Electronics";
inline constexpr const char* upgradeNotice =
    "Upgrades are found at https://www.example.com/torvane-configuration";
inline constexpr int majorVersion = 1;
inline constexpr int minorVersion = 0;
}  // namespace program

}  // namespace torvane
