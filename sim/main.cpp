// SPDX-License-Identifier: MIT
// The program unit-simulator: a unit on a pseudo terminal, and behind a bridge if told.
#include <atomic>
#include <csignal>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sim/Numbers.h"
#include "sim/Options.h"
#include "sim/PseudoTerminal.h"
#include "sim/RegisterFile.h"
#include "sim/TcpServer.h"
#include "sim/TrafficText.h"

namespace {

std::atomic<sim::Server*> served = nullptr;
std::atomic<bool> ended = false;

void endServing(int) {
  ended = true;
  if (sim::Server* const server = served) server->requestStop();
}

void handleSignals() {
  struct sigaction action = {};
  action.sa_handler = endServing;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
  // Whoever reads the log may go before the unit does.
  std::signal(SIGPIPE, SIG_IGN);
}

void print(std::FILE* where, const std::string& line) {
  std::fputs((line + '\n').c_str(), where);
  std::fflush(where);
}

// Registers as they are kept from one start to the next.
class Keeper {
 public:
  explicit Keeper(const sim::Options& options) : options_(options) {}

  std::string load(sim::Unit& unit) const {
    if (options_.registers.empty()) return {};
    std::string problem = sim::loadRegisters(unit, options_.registers);
    if (options_.addressGiven) restoreAddress(unit);
    unit.powerOn();
    return problem;
  }

  void save(const sim::Unit& unit) {
    if (options_.registers.empty()) return;
    const std::string text = sim::registerText(unit);
    if (text == saved_) return;
    const std::string problem = sim::saveRegisters(unit, options_.registers);
    if (!problem.empty()) print(stderr, problem);
    saved_ = text;
  }

 private:
  void restoreAddress(sim::Unit& unit) const {
    const sim::Unit asTold(options_.setup);
    for (const char* index : {"1F", "21"}) unit.setRegister(index, asTold.registerHex(index));
  }

  const sim::Options& options_;
  std::string saved_;
};

// The ports of the bridge that the command line asks for.
class BridgePorts {
 public:
  BridgePorts(sim::Unit& unit, const sim::Options& options, sim::TcpOptions serving)
      : bridge_(unit), terminalServer_(unit), server_(std::move(serving)) {
    bridge_.faults = options.bridge;
    terminalServer_.faults.prompt = sim::terminalServerPrompt;
    open("tcp ", options.tcp, bridge_);
    open("terminal-server ", options.terminalServer, terminalServer_);
  }

  void announce() const {
    for (const std::string& line : lines_) print(stdout, line);
  }
  int file() const { return server_.file(); }
  void serve() { server_.poll(0); }

 private:
  void open(const char* name, std::optional<int> port, sim::Bridge& bridge) {
    if (port) lines_.push_back(name + std::to_string(server_.listen(*port, bridge)));
  }

  sim::Bridge bridge_;
  sim::Bridge terminalServer_;
  sim::TcpServer server_;
  std::vector<std::string> lines_;
};

int serve(sim::Unit& unit, const sim::Options& options, Keeper& keeper) {
  const auto show = [&](const sim::LogEntry& entry) {
    if (!options.quiet) print(stdout, sim::trafficLine(entry));
  };
  const auto keep = [&](const sim::Unit& changed) { keeper.save(changed); };
  // What went on to the unit shows in the unit's own traffic.
  const auto showUnlessPassed = [&](const sim::LogEntry& entry) {
    if (entry.direction != '>') show(entry);
  };
  const auto now = [] { return served.load()->now(); };
  BridgePorts bridge(unit, options, {now, showUnlessPassed, keep});
  sim::ServerOptions serving{.link = options.link, .checkLine = options.checkLine};
  serving.onTraffic = show;
  serving.onExchange = keep;
  serving.otherFile = bridge.file();
  serving.onOther = [&] { bridge.serve(); };
  sim::Server server(unit, serving);
  served = &server;
  if (ended) server.requestStop();
  print(stdout, "port " + server.path());
  bridge.announce();
  server.run();
  served = nullptr;
  if (server.unplugged()) print(stdout, "unplugged");
  keeper.save(unit);
  return 0;
}

int serve(const sim::Options& options) {
  sim::Unit unit(options.setup);
  unit.faults = options.faults;
  Keeper keeper(options);
  if (const std::string problem = keeper.load(unit); !problem.empty()) {
    print(stderr, problem);
    return 2;
  }
  return serve(unit, options, keeper);
}

}  // namespace

int main(int count, char** arguments) {
  const sim::Options options = sim::parseOptions({arguments + 1, arguments + count});
  if (options.help) {
    print(stdout, sim::helpText());
    return 0;
  }
  if (!options.problem.empty()) {
    print(stderr, options.problem + "; --help tells the options");
    return 2;
  }
  handleSignals();
  try {
    return serve(options);
  } catch (const std::exception& fault) {
    print(stderr, fault.what());
    return 1;
  }
}
