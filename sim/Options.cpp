// SPDX-License-Identifier: MIT
// The command line of the unit simulator.
#include "sim/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>

#include "sim/BridgeOptions.h"
#include "sim/FaultOptions.h"
#include "sim/Numbers.h"

namespace sim {

namespace {

constexpr std::size_t descriptionColumn = 25;

bool isShort(std::string_view text) { return text.size() == 2; }

bool setText(std::string& value, std::string_view text) {
  value = text;
  return !text.empty();
}

bool setFigure(double& value, std::string_view text) {
  const auto number = fraction(text);
  if (number) value = *number;
  return number && *number >= 0;
}

bool setPort(std::optional<int>& port, std::string_view text) {
  port = wholeNumber(text);
  return port && *port >= 0 && *port <= 65535;
}

template <typename Value>
bool setFound(Value& value, const std::optional<Value>& found) {
  if (found) value = *found;
  return found.has_value();
}

bool setAddress(Options& options, std::string_view text) {
  const auto address = wholeNumber(text);
  if (!address || *address < 0 || *address > 199) return false;
  options.setup.addressed = true;
  options.setup.address = *address;
  options.addressGiven = true;
  return true;
}

// One declaration for each option; what takes its value says whether the text is of its form.
class Declarations {
 public:
  explicit Declarations(CLI::App& app) : app_(app) {}

  using Take = std::function<bool(const std::string&)>;

  void value(const char* name, const char* argument, const char* what, const Take& take) {
    add(name, argument, what, take)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  }
  void repeatable(const char* name, const char* argument, const char* what, const Take& take) {
    add(name, argument, what, take)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }
  void flag(const char* name, const char* what, bool& value) { app_.add_flag(name, value, what); }

 private:
  CLI::Option* add(const std::string& name, const char* argument, const char* what, const Take& take) {
    const auto each = [name, take](const CLI::results_t& texts) {
      const auto bad = std::ranges::find_if_not(texts, take);
      if (bad != texts.end()) throw CLI::ValidationError(std::string(name).append(" can't be ").append(*bad));
      return true;
    };
    return app_.add_option(name, each, what)->type_name(argument)->allow_extra_args(false);
  }

  CLI::App& app_;
};

void declareUnit(Declarations& has, Options& options) {
  UnitSetup& setup = options.setup;
  has.value("--model", "NAME", "the kind of unit, see below (tmp)",
            [&](const auto& text) { return setFound(setup.model, modelNamed(text)); });
  has.value("--version-text", "TEXT", "its firmware version, three characters (1.4)",
            [&](const auto& text) { return setText(setup.version, text); });
  has.value("--address", "N", "on a multi-drop bus, 0 to 199; without it point-to-point",
            [&](const auto& text) { return setAddress(options, text); });
  has.value("--line", "B,P,D,S", "its line settings (9600,o,7,1)",
            [&](const auto& text) { return setFound(setup.line, parseLineSettings(text)); });
  has.value("--turnaround", "SECONDS", "from a command to its reply (0.002)",
            [&](const auto& text) { return setFigure(setup.turnaround, text); });
  has.value("--line-rate", "BAUD", "let the bytes take their time on the line (0: none)",
            [&](const auto& text) { return setFigure(setup.lineRate, text); });
  has.flag("--analog", "fitted with the analog output", setup.analog);
  has.value("--flags", "XX", "the two letters of its identification, such as CC, EE, FF (00)",
            [&](const auto& text) { return setText(setup.idFlags, text) && isShort(text); });
  has.value("--recognition", "HH", "the recognition character in hexadecimal (2A)", [&](const auto& text) {
    return setText(setup.recognition, text) && isShort(text) && hexNumber(text);
  });
  has.value("--registers", "FILE", "registers taken from this file if it is there, and kept in it",
            [&](const auto& text) { return setText(options.registers, text); });
}

void declareLine(Declarations& has, Options& options) {
  has.value("--link", "PATH", "a symbolic link to the port, for a name that stays",
            [&](const auto& text) { return setText(options.link, text); });
  has.value("--tcp", "PORT", "an Ethernet bridge to the same unit on this TCP port, 0 for any that is free",
            [&](const auto& text) { return setPort(options.tcp, text); });
  has.value("--terminal-server", "PORT",
            "a port at which this bridge answers with a Terminal Server's prompt",
            [&](const auto& text) { return setPort(options.terminalServer, text); });
  has.repeatable("--bridge", "KIND[:ARG]", "something odd about the bridge at --tcp, see below; repeatable",
                 [&](const auto& text) { return addBridgeFault(options.bridge, text); });
  has.flag("--check-line", "be deaf to another speed or other stop bits; a pseudo terminal tells no more",
           options.checkLine);
  has.repeatable("--fault", "KIND[:ARG]", "something wrong, see below; repeatable",
                 [&](const auto& text) { return addFault(options.faults, text); });
}

void declareProgram(CLI::App& app, Declarations& has, Options& options) {
  has.value("--plant", "FILE", "many units at once, see below; what the other options say holds for each",
            [&](const auto& text) { return setText(options.plant, text); });
  has.flag("--quiet", "no traffic on standard output", options.quiet);
  app.set_help_flag();
  has.flag("--help,-h", "this text", options.help);
  for (const char* const single : {"--address", "--registers", "--link", "--tcp", "--terminal-server"}) {
    app.get_option("--plant")->excludes(app.get_option(single));
  }
}

void declare(CLI::App& app, Options& options) {
  Declarations has(app);
  declareUnit(has, options);
  declareLine(has, options);
  declareProgram(app, has, options);
}

// The name that the words of the parser's own complaint begin with.
std::string firstWord(const std::string& text) { return text.substr(0, text.find_first_of(": ")); }

std::string problemOf(const CLI::App& app, const CLI::ParseError& fault) {
  if (dynamic_cast<const CLI::ExtrasError*>(&fault) != nullptr) {
    return app.remaining().front() + " is no option of this program";
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&fault) != nullptr) {
    return firstWord(fault.what()) + " needs a value";
  }
  return fault.what();
}

std::string padded(std::string text) {
  text.resize(std::max(text.size(), descriptionColumn), ' ');
  return text;
}

std::string optionHelp() {
  CLI::App app;
  Options unused;
  declare(app, unused);
  std::string text;
  for (const CLI::Option* const option : app.get_options()) {
    const std::string argument = option->get_type_size() == 0 ? "" : ' ' + option->get_type_name();
    const std::string name = "--" + option->get_lnames().front() + argument;
    text += "  " + padded(name) + option->get_description() + '\n';
  }
  return text;
}

std::string modelHelp() {
  std::string text;
  for (const ModelFact& fact : modelFacts()) {
    text += "  " + padded(std::string(fact.name)) + std::string(fact.what) + '\n';
  }
  return text;
}

constexpr std::string_view introduction =
    R"(unit-simulator: a controller on a pseudo terminal, for trying and training without hardware

It prints "port PATH" first, the port to choose in the configuration program, and with a bridge "tcp PORT" and
"terminal-server PORT", then the traffic. The bridge stands at 127.0.0.1 and ::1. End it with Ctrl+C.

)";

constexpr std::string_view plantHelp = R"(
Plant
  A table of commas with one unit a line below the headers, which may stand in any order:
  line                     pty:NAME, a bus on a pseudo terminal with NAME as a symbolic link to it; tcp:PORT, a
                           bridge on this TCP port, or on any that is free where PORT is no number
  address                  0 to 199; empty for point-to-point
  model                    see above; empty for that of --model
  registers                a file, as --registers takes it
  faults                   as --fault takes them, with ";" between them; bridge:KIND[:ARG] as --bridge takes it
  Paths are relative to the table. It prints a line for each unit when all are ready: line, address, and the
  device file or the TCP port.
)";

}  // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
  Options options;
  CLI::App app;
  declare(app, options);
  try {
    // The parser takes them from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& fault) {
    options.problem = problemOf(app, fault);
  }
  return options;
}

std::string helpText() {
  return std::string(introduction) + optionHelp() + "\nModels\n" + modelHelp() + "\nFaults\n" + faultHelp() +
         "\nBridge\n" + bridgeHelp() + std::string(plantHelp);
}

}  // namespace sim
