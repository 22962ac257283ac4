// SPDX-License-Identifier: MIT
// The command line of the unit simulator.
#include "sim/Options.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "sim/BridgeOptions.h"
#include "sim/FaultOptions.h"
#include "sim/Numbers.h"

namespace sim {

namespace {

bool setModel(Options& options, std::string_view text) {
  const auto model = modelNamed(text);
  if (model) options.setup.model = *model;
  return model.has_value();
}

bool setVersion(Options& options, std::string_view text) {
  options.setup.version = text;
  return !text.empty();
}

bool setAddress(Options& options, std::string_view text) {
  const auto address = wholeNumber(text);
  if (!address || *address < 0 || *address > 199) return false;
  options.setup.addressed = true;
  options.setup.address = *address;
  options.addressGiven = true;
  return true;
}

bool setLine(Options& options, std::string_view text) {
  const auto line = parseLineSettings(text);
  if (line) options.setup.line = *line;
  return line.has_value();
}

bool setPositive(double& value, std::string_view text) {
  const auto number = fraction(text);
  if (!number || *number < 0) return false;
  value = *number;
  return true;
}

bool setTurnaround(Options& options, std::string_view text) {
  return setPositive(options.setup.turnaround, text);
}

bool setLineRate(Options& options, std::string_view text) {
  return setPositive(options.setup.lineRate, text);
}

bool setFlags(Options& options, std::string_view text) {
  options.setup.idFlags = text;
  return text.size() == 2;
}

bool setRecognition(Options& options, std::string_view text) {
  options.setup.recognition = text;
  return text.size() == 2 && hexNumber(text).has_value();
}

bool setFault(Options& options, std::string_view text) { return addFault(options.faults, text); }

bool setRegisters(Options& options, std::string_view text) {
  options.registers = text;
  return !text.empty();
}

bool setLink(Options& options, std::string_view text) {
  options.link = text;
  return !text.empty();
}

bool setPort(std::optional<int>& port, std::string_view text) {
  port = wholeNumber(text);
  return port && *port >= 0 && *port <= 65535;
}

bool setTcp(Options& options, std::string_view text) { return setPort(options.tcp, text); }

bool setTerminalServer(Options& options, std::string_view text) {
  return setPort(options.terminalServer, text);
}

bool setBridge(Options& options, std::string_view text) { return addBridgeFault(options.bridge, text); }

struct Valued {
  std::string_view name;
  bool (*set)(Options&, std::string_view);
};

constexpr std::array<Valued, 14> valued{{
    {"--model", setModel},
    {"--version-text", setVersion},
    {"--address", setAddress},
    {"--line", setLine},
    {"--turnaround", setTurnaround},
    {"--line-rate", setLineRate},
    {"--flags", setFlags},
    {"--recognition", setRecognition},
    {"--fault", setFault},
    {"--registers", setRegisters},
    {"--link", setLink},
    {"--tcp", setTcp},
    {"--terminal-server", setTerminalServer},
    {"--bridge", setBridge},
}};

bool setSwitch(Options& options, std::string_view name) {
  if (name == "--analog") return options.setup.analog = true;
  if (name == "--check-line") return options.checkLine = true;
  if (name == "--quiet") return options.quiet = true;
  if (name == "--help" || name == "-h") return options.help = true;
  return false;
}

std::string modelHelp() {
  std::string text;
  for (const ModelFact& fact : modelFacts()) {
    text += "  " + std::string(fact.name) + std::string(25 - fact.name.size(), ' ') + std::string(fact.what) +
            '\n';
  }
  return text;
}

}  // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t at = 0; at < arguments.size() && options.problem.empty(); ++at) {
    const std::string& name = arguments[at];
    if (setSwitch(options, name)) continue;
    const auto option =
        std::find_if(valued.begin(), valued.end(), [&](const Valued& one) { return one.name == name; });
    if (option == valued.end()) {
      options.problem = name + " is no option of this program";
    } else if (at + 1 == arguments.size()) {
      options.problem = name + " needs a value";
    } else if (!option->set(options, arguments[++at])) {
      options.problem = name + " can't be " + arguments[at];
    }
  }
  return options;
}

std::string helpText() {
  return R"(unit-simulator: a controller on a pseudo terminal, for trying and training without hardware

It prints "port PATH" first, the port to choose in the configuration program, and with a bridge "tcp PORT" and
"terminal-server PORT", then the traffic. The bridge stands at 127.0.0.1 and ::1. End it with Ctrl+C.

  --model NAME             the kind of unit, see below (tmp)
  --version-text TEXT      its firmware version, three characters (1.4)
  --address N              on a multi-drop bus, 0 to 199; without it point-to-point
  --line B,P,D,S           its line settings (9600,o,7,1)
  --turnaround SECONDS     from a command to its reply (0.002)
  --line-rate BAUD         let the bytes take their time on the line (0: none)
  --analog                 fitted with the analog output
  --flags XX               the two letters of its identification, such as CC, EE, FF (00)
  --recognition HH         the recognition character in hexadecimal (2A)
  --registers FILE         registers taken from this file if it is there, and kept in it
  --link PATH              a symbolic link to the port, for a name that stays
  --tcp PORT               an Ethernet bridge to the same unit on this TCP port, 0 for any that is free
  --terminal-server PORT   a port at which this bridge answers with a Terminal Server's prompt
  --bridge KIND[:ARG]      something odd about the bridge at --tcp, see below; repeatable
  --check-line             be deaf to another speed or other stop bits; a pseudo terminal tells no more
  --fault KIND[:ARG]       something wrong, see below; repeatable
  --quiet                  no traffic on standard output
  --help                   this text

Models
)" + modelHelp() +
         "\nFaults\n" + faultHelp() + "\nBridge\n" + bridgeHelp();
}

}  // namespace sim
