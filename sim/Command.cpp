// SPDX-License-Identifier: MIT
// A command line as a unit on the bus takes it apart.
#include "sim/Command.h"

#include "sim/Numbers.h"

namespace sim {

namespace {

constexpr std::string_view settingsQuery = "^AE";

Command parseFramed(std::string_view rest, const Framing& framing) {
  if (!framing.addressed) return {true, {}, std::string(rest)};
  const std::string digits = addressDigits(framing.address);
  if (!rest.starts_with(digits)) return {};
  return {true, digits, std::string(rest.substr(digits.size()))};
}

Command parseQuery(std::string_view rest, const Framing& framing) {
  if (!framing.addressed) return {true, {}, std::string(rest)};
  if (!rest.ends_with(addressDigits(framing.address))) return {};
  return {true, {}, std::string(rest.substr(0, rest.size() - 2))};
}

}  // namespace

std::string addressDigits(int address) { return hexText(static_cast<std::uint32_t>(address) & 0xFF, 2); }

Command parseCommand(std::string_view line, const Framing& framing) {
  const std::size_t start = line.rfind(framing.recognition);
  if (start != std::string_view::npos) return parseFramed(line.substr(start + 1), framing);
  const std::size_t query = line.find(settingsQuery);
  if (query != std::string_view::npos) return parseQuery(line.substr(query), framing);
  return {};
}

}  // namespace sim
