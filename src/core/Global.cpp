// SPDX-License-Identifier: MIT
// Shared state and the bit operations on hexadecimal text.
#include "core/Global.h"

#include "core/Model.h"
#include "core/NumberText.h"

namespace torvane {

GlobalState Global;

void fillFirmwareVersions() {
  Global.FirmwareVersions = {"1.1", "1.2", "1.3", "1.4", "1.5", "1.6", "1.7", "1.8",
                             "1.9", "2.0", "2.1", "2.2", "2.3", "2.4", "2.5"};
}

std::string rs485AddressHex() { return padLeft(hexText(Hardware.BusAddress), 2); }

std::string maskHex(std::string_view text, std::int32_t mask) {
  return padLeft(hexText(hexValue(text) & mask), text.size());
}

std::string orHex(std::string_view text, std::string_view other) {
  return padLeft(hexText(hexValue(text) | hexValue(other)), text.size());
}

}  // namespace torvane
