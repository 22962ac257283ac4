// SPDX-License-Identifier: MIT
// LINE on the command line and in a plan.
#include "tool/LineName.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace torvane::tool {

namespace {

constexpr int highestAddress = 199;
constexpr int highestTcpPort = 65535;
constexpr int highestCommPort = 256;

std::string lowered(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + 32);
  }
  return lower;
}

std::optional<LineName> commPort(std::string_view text) {
  if (!lowered(text).starts_with("com")) return std::nullopt;
  text.remove_prefix(3);
  while (text.starts_with(' ')) text.remove_prefix(1);
  const auto port = wholeNumber(text, 1, highestCommPort);
  if (!port) return std::nullopt;
  return LineName{.commPort = *port};
}

// A host of version 6 figures stands in brackets, since it has colons of its own.
bool isHost(std::string_view text) {
  if (text.starts_with('[')) return text.size() > 2 && text.ends_with(']');
  return !text.empty() && text.find_first_of(": []") == std::string_view::npos;
}

std::optional<LineName> bridge(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto port = wholeNumber(text.substr(colon + 1), 1, highestTcpPort);
  const std::string_view host = text.substr(0, colon);
  if (!port || !isHost(host)) return std::nullopt;
  return LineName{.host = lowered(host), .port = *port};
}

}  // namespace

std::optional<LineName> parseLineName(std::string_view text) {
  if (auto port = commPort(text)) return port;
  if (text.find('/') != std::string_view::npos) return LineName{.device = std::string(text)};
  return bridge(text);
}

std::string lineText(const LineName& line) {
  if (line.overBridge()) return line.host + ':' + std::to_string(line.port);
  return line.commPort > 0 ? "COM " + std::to_string(line.commPort) : line.device;
}

std::optional<int> wholeNumber(std::string_view text, int least, int most) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, value);
  if (text.empty() || fault != std::errc() || stop != end || value < least || value > most)
    return std::nullopt;
  return value;
}

std::optional<std::vector<int>> parseAddresses(std::string_view text) {
  std::set<int> addresses;
  for (bool last = false; !last;) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const std::string_view piece = text.substr(0, comma);
    const std::size_t dash = std::min(piece.find('-'), piece.size());
    const auto from = wholeNumber(piece.substr(0, dash), 0, highestAddress);
    const auto to = dash < piece.size() ? wholeNumber(piece.substr(dash + 1), 0, highestAddress) : from;
    if (!from || !to || *from > *to) return std::nullopt;
    for (int address = *from; address <= *to; ++address) addresses.insert(address);
    last = comma == text.size();
    text.remove_prefix(last ? comma : comma + 1);
  }
  return std::vector<int>(addresses.begin(), addresses.end());
}

}  // namespace torvane::tool
