// SPDX-License-Identifier: MIT
// The calls of Windows that a serial port needs, as Windows has them.
#pragma once

#include <memory>

#include "platform/windows/SerialCalls.h"

namespace torvane {

std::unique_ptr<SerialCalls> win32SerialCalls();

}  // namespace torvane
