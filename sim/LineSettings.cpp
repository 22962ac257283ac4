// SPDX-License-Identifier: MIT
// How characters travel on a serial line: speed and frame.
#include "sim/LineSettings.h"

#include "sim/Numbers.h"

namespace sim {

namespace {

bool inRange(const LineSettings& line) {
  const bool parity = line.parity == 'n' || line.parity == 'e' || line.parity == 'o';
  const bool data = line.dataBits == 7 || line.dataBits == 8;
  const bool stop = line.stopBits == 1 || line.stopBits == 2;
  return line.baud > 0 && parity && data && stop;
}

}  // namespace

std::optional<LineSettings> parseLineSettings(std::string_view text) {
  const auto fields = splitText(text, ',');
  if (fields.size() != 4 || fields[1].size() != 1) return std::nullopt;
  const auto baud = wholeNumber(fields[0]);
  const auto data = wholeNumber(fields[2]);
  const auto stop = wholeNumber(fields[3]);
  if (!baud || !data || !stop) return std::nullopt;
  const LineSettings line{*baud, fields[1][0], *data, *stop};
  if (!inRange(line)) return std::nullopt;
  return line;
}

std::string lineSettingsText(const LineSettings& line) {
  return std::to_string(line.baud) + ',' + line.parity + ',' + std::to_string(line.dataBits) + ',' +
         std::to_string(line.stopBits);
}

int bitsPerCharacter(const LineSettings& line) {
  return 1 + line.dataBits + (line.parity == 'n' ? 0 : 1) + line.stopBits;
}

}  // namespace sim
