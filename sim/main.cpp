// SPDX-License-Identifier: MIT
// The program unit-simulator: a unit on a pseudo terminal, and behind a bridge if asked for; or a whole
// plant.
#include <atomic>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sim/Keeper.h"
#include "sim/Options.h"
#include "sim/Plant.h"
#include "sim/PlantFile.h"
#include "sim/PseudoTerminal.h"
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

void complain(const std::string& problem) {
  if (!problem.empty()) print(stderr, problem);
}

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

int serve(sim::Unit& unit, const sim::Options& options, sim::Keeper& keeper) {
  const auto show = [&](const sim::LogEntry& entry) {
    if (!options.quiet) print(stdout, sim::trafficLine(entry));
  };
  const auto keep = [&](const sim::Unit& changed) { complain(keeper.save(changed)); };
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
  keep(unit);
  return 0;
}

int serve(const sim::Options& options) {
  sim::Unit unit(options.setup);
  unit.faults = options.faults;
  sim::Keeper keeper(options.registers);
  if (const std::string problem = keeper.load(unit, options.addressGiven); !problem.empty()) {
    print(stderr, problem);
    return 2;
  }
  return serve(unit, options, keeper);
}

// A signal that comes before or between the waits stays until the next of them.
void waitForTheEnd(const sigset_t& signals) {
  int signal = 0;
  sigwait(&signals, &signal);
}

sigset_t heldBack(std::initializer_list<int> signals) {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : signals) sigaddset(&set, signal);
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  return set;
}

int servePlant(const sim::Options& options) {
  std::ifstream in(options.plant, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) {
    print(stderr, options.plant + ": can't be read");
    return 2;
  }
  const sim::PlantTable table = sim::parsePlant(text, {.setup = options.setup, .faults = options.faults});
  for (const std::string& problem : table.problems) print(stderr, options.plant + ": " + problem);
  if (!table.problems.empty()) return 2;
  const sigset_t ends = heldBack({SIGINT, SIGTERM, SIGHUP});
  sim::PlantOptions serving{.folder = std::filesystem::path(options.plant).parent_path()};
  serving.checkLine = options.checkLine;
  serving.traffic = !options.quiet;
  serving.bridge = options.bridge;
  serving.print = [](const std::string& line) { print(stdout, line); };
  const sim::Plant plant(table.units, serving);
  for (const std::string& line : plant.announcement()) print(stdout, line);
  waitForTheEnd(ends);
  return 0;
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
    return options.plant.empty() ? serve(options) : servePlant(options);
  } catch (const std::exception& fault) {
    print(stderr, fault.what());
    return 1;
  }
}
