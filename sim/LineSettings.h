// SPDX-License-Identifier: MIT
// How characters travel on a serial line: speed and frame.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim {

struct LineSettings {
  int baud = 9600;
  char parity = 'o';  // 'n', 'e' or 'o'
  int dataBits = 7;   // 7 or 8
  int stopBits = 1;   // 1 or 2

  bool operator==(const LineSettings&) const = default;
};

// Reads "9600,o,7,1"; nothing when the text is not of that form or a figure is out of range.
std::optional<LineSettings> parseLineSettings(std::string_view text);

// The form that parseLineSettings reads.
std::string lineSettingsText(const LineSettings& line);

// Bits that one character takes on the line: start bit, data, parity if any, stop bits.
int bitsPerCharacter(const LineSettings& line);

}  // namespace sim
