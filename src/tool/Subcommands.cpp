// SPDX-License-Identifier: MIT
// The commands of torvane-unit.
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

OptionRow help() { return {"-h,--help", "", "this text"}; }
OptionRow json() { return {"--json", "", "the answer as one JSON object", &Arguments::json}; }

void refuseShell(Arguments&, const std::string& shell) { refuse("--completion", shell, "It may be bash."); }

}  // namespace

const std::vector<Subcommand>& subcommands() {
  static const std::vector<Subcommand> all{
      portsCommand(), findCommand(),    identifyCommand(), readCommand(), writeCommand(), compareCommand(),
      keepCommand(),  putBackCommand(), showCommand(),     setCommand(),  batchCommand()};
  return all;
}

std::vector<OptionRow> optionsOf(const Subcommand& command) {
  return joined(joined({help()}, command.options()), {json()});
}

std::vector<OptionRow> programOptions() {
  return {help(),
          {"--version", "", "the version of the program"},
          {"--completion", "bash", "what a shell needs to complete the command line; alone on its line",
           refuseShell},
          json()};
}

}  // namespace torvane::tool
