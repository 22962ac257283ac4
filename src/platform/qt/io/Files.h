// SPDX-License-Identifier: MIT
// Files on the disk: reading, and the exchange in one step.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

// Where the user's own data of this program lies; made if need be.
std::string dataFolder();
void renameWhole(const std::string& from, const std::string& to);

std::string readWhole(const std::string& path, std::size_t most);
// In one step: what fails leaves the old file whole. Where the folder takes no second file beside it the old
// file is written over in place, and what fails puts its bytes back; until then they are kept in memory and,
// if possible, in the data folder. The tail of a longer old file stays ...
void exchangeWhole(const std::string& path, std::string_view bytes);
// ... or goes.
void replaceWhole(const std::string& path, std::string_view bytes);
// What exchangeWhole does where the folder takes no second file.
void overwriteWhole(const std::string& path, std::string_view bytes);

}  // namespace torvane
