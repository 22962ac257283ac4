// SPDX-License-Identifier: MIT
// The commands of torvane-unit.
#include "tool/Subcommands.h"

namespace torvane::tool {

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> all{
      portsCommand(), findCommand(),    identifyCommand(), readCommand(), writeCommand(), compareCommand(),
      keepCommand(),  putBackCommand(), showCommand(),     setCommand(),  batchCommand()};
  return all;
}

}  // namespace torvane::tool
