// SPDX-License-Identifier: MIT
// Which units answer, and where.
#include <optional>

#include "core/Global.h"
#include "core/Model.h"
#include "platform/qt/io/Terminal.h"
#include "tool/Connection.h"
#include "tool/Models.h"
#include "tool/PortList.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"
#include "tool/Subcommands.h"

namespace torvane::tool {

namespace {

using Addresses = std::vector<std::optional<int>>;  // nothing for a unit without one

void takePort(Arguments& to, const std::string& text) { to.line.name = lineNamed("--port", text); }
void takeHost(Arguments& to, const std::string& text) { to.line.name = lineNamed("--host", text); }

void takeAddresses(Arguments& to, const std::string& text) {
  const auto addresses = parseAddresses(text);
  if (!addresses) refuse("--addresses", text, "It may be such as 0-199 or 1,5,10-12.");
  to.addresses = *addresses;
}

std::vector<OptionRow> findOptions() {
  return joined(
      {{"--port", "PORT", "COM1 or the path of a device; without it and --host all ports", takePort},
       excluding("--port", {"--host", "HOST:PORT", "host:port of a bridge", takeHost}),
       {"--addresses", "LIST", "addresses to ask, such as 0-199; without it units without one",
        takeAddresses}},
      lineSettingsOptions());
}

struct Skipped {
  std::string line;
  std::string reason;
};

// What the search has come to so far.
class Search {
 public:
  explicit Search(const Arguments& arguments)
      : arguments_(arguments),
        addresses_(arguments.addresses.begin(), arguments.addresses.end()),
        named_(arguments.line.name != LineName()) {
    if (addresses_.empty()) addresses_.emplace_back(std::nullopt);
  }

  void run() {
    const std::vector<LineName> lines = linesToAsk();
    steps_ = lines.size() * addresses_.size();
    for (const LineName& line : lines) ask(line);
  }

  const Json& units() const { return units_; }
  const std::vector<Skipped>& skipped() const { return skipped_; }
  bool searchedAny() const { return searched_; }

 private:
  std::vector<LineName> linesToAsk() const {
    if (named_) return {arguments_.line.name};
    std::vector<LineName> lines;
    for (const Port& port : portsHere())
      lines.push_back(port.name.empty() ? LineName{.device = port.device} : lineNamed("--port", port.name));
    return lines;
  }

  // A port of many that can't be used, or fails meanwhile, does not keep the others from being asked.
  void ask(const LineName& name) {
    LineArguments line = arguments_.line;
    line.name = name;
    try {
      askAll(line);
    } catch (const Problem& problem) {
      if (named_) throw;
      skipped_.push_back({lineText(name), problem.what()});
    }
  }

  void askAll(const LineArguments& line) {
    beginRecords();
    Connection connection(line);
    searched_ = true;
    for (const auto& address : addresses_) {
      if (wasInterrupted()) return;
      try {
        if (connection.answers(address)) meet(connection, line);
      } catch (const RuntimeError& fault) {
        throw Problem(ExitCode::port, lineText(line.name) + ": " + fault.what());
      }
      progress_.upProg(static_cast<std::int16_t>(++asked_ * 100 / steps_));
    }
  }

  // Something talks; what can't be named is no unit of ours.
  void meet(Connection& connection, const LineArguments& line) {
    resetDeviceState();
    DeviceState.IsRkw77 = False;
    DeviceState.DeviceClass = -1;
    Global.FirmwareVersion.clear();
    try {
      connection.meet();
    } catch (const Problem& problem) {
      if (problem.code != ExitCode::noUnit) throw;
      return;
    }
    const Json unit = unitObject(connection.outcome());
    units_.push_back({{"line", lineText(line.name)},
                      {"address", unit["address"]},
                      {"kind", unit["kind"]},
                      {"type", unit["type"]},
                      {"version", Global.FirmwareVersion}});
  }

  const Arguments& arguments_;
  Addresses addresses_;
  bool named_;
  bool searched_ = false;
  std::size_t steps_ = 0;
  std::size_t asked_ = 0;
  ShellView progress_;
  Json units_ = Json::array();
  std::vector<Skipped> skipped_;
};

std::string wordsOf(const Search& search) {
  std::vector<std::vector<std::string>> rows{{"LINE", "ADDRESS", "TYPE", "VERSION"}};
  for (const Json& unit : search.units()) {
    const std::string address = unit["address"].is_null() ? std::string() : unit["address"].dump();
    rows.push_back({unit["line"], address, unit["type"], unit["version"]});
  }
  std::string words = rows.size() > 1 ? tableText(rows) : "No unit has answered.\n";
  for (const auto& [line, reason] : search.skipped()) words.append("Not asked: ").append(reason) += '\n';
  return words;
}

ExitCode codeOf(const Search& search) {
  if (wasInterrupted()) return ExitCode::cancelled;
  if (!search.units().empty()) return ExitCode::done;
  return search.searchedAny() || search.skipped().empty() ? ExitCode::noUnit : ExitCode::port;
}

ExitCode findUnits(const Arguments& arguments, const Output& output) {
  Search search(arguments);
  search.run();
  Json object = answer("find");
  object["units"] = search.units();
  object["skipped"] = Json::array();
  for (const auto& [line, reason] : search.skipped())
    object["skipped"].push_back({{"line", line}, {"reason", reason}});
  object["verdict"] = codeOf(search) == ExitCode::done ? "pass" : "fail";
  output.print(object, wordsOf(search));
  return codeOf(search);
}

}  // namespace

Subcommand findCommand() {
  return {"find", "what answers on a port, behind a bridge, or on every port", findOptions, findUnits};
}

}  // namespace torvane::tool
