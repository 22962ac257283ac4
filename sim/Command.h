// SPDX-License-Identifier: MIT
// A command line as a unit on the bus takes it apart.
#pragma once

#include <string>
#include <string_view>

namespace sim {

struct Framing {
  char recognition = '*';
  bool addressed = false;
  int address = 1;
};

struct Command {
  bool mine = false;       // meant for this unit; otherwise it stays silent
  std::string echoPrefix;  // address digits that the reply begins with
  std::string body;        // mnemonic, index and payload
};

// Two upper-case hexadecimal digits of a bus address.
std::string addressDigits(int address);

// The line comes without its carriage return. Whatever stands in front of the last recognition character is
// passed over: a unit begins anew at each. "^AE" needs none and has the address after it.
Command parseCommand(std::string_view line, const Framing& framing);

}  // namespace sim
