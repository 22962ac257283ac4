// SPDX-License-Identifier: MIT
// LINE on the command line and in a plan: "COM1", a device path, or "host:port".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvane::tool {

struct LineName {
  int commPort = 0;         // n of "COM n", 0 for none
  std::string device = {};  // a path, empty for none
  std::string host = {};    // of a bridge, empty for none ...
  int port = 0;             // ... and its TCP port

  bool overBridge() const { return !host.empty(); }
  bool operator==(const LineName&) const = default;
};

// Nothing when the text is none of the three.
std::optional<LineName> parseLineName(std::string_view text);

// "COM 1", the path, or "host:port" with the host in lower case: equal for two texts of one line.
std::string lineText(const LineName& line);

// The whole text as a number in these bounds, or nothing.
std::optional<int> wholeNumber(std::string_view text, int least, int most);

// "0-199", "1,5,10-12", ascending and each once; nothing when the text is not of that form.
std::optional<std::vector<int>> parseAddresses(std::string_view text);

}  // namespace torvane::tool
