// SPDX-License-Identifier: MIT
// What the system's file of a serial device tells: whether it is there, ours to use, or taken.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace torvane {

// Devices are paths from the root. Where the system gives them names of their own instead ("COM3"), there is
// no file to look at: nothing is missing or forbidden then, and opening alone tells.

bool isMissing(const std::string& device);
// There, but not to be read and written by this user.
bool isForbidden(const std::string& device);
// Whether another program, or another port of this one, holds the device's lock file.
bool isTaken(const std::string& device);
// A program that was killed while it took the device has left a lock file with nothing in it.
void removeEmptyLock(const std::string& device);
// What keeps this device from being opened, in words that help: missing, no right, taken; empty if nothing
// does.
std::string obstacle(const std::string& device);

struct DeviceHolder {
  std::int64_t process;
  std::string program;
};

// Who has the device open: by its lock file, else by what each process that this user may look at has open.
// This process does not count.
std::optional<DeviceHolder> deviceHolder(const std::string& device);

}  // namespace torvane
