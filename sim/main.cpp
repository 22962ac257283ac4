// SPDX-License-Identifier: MIT
// The program unit-simulator: a unit on a pseudo terminal.
#include <atomic>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "sim/Numbers.h"
#include "sim/Options.h"
#include "sim/PseudoTerminal.h"
#include "sim/RegisterFile.h"
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

int serve(const sim::Options& options) {
  sim::Unit unit(options.setup);
  unit.faults = options.faults;
  Keeper keeper(options);
  if (const std::string problem = keeper.load(unit); !problem.empty()) {
    print(stderr, problem);
    return 2;
  }
  sim::ServerOptions serving{.link = options.link, .checkLine = options.checkLine};
  serving.onTraffic = [&](const sim::LogEntry& entry) {
    if (!options.quiet) print(stdout, sim::trafficLine(entry));
  };
  serving.onExchange = [&](const sim::Unit& changed) { keeper.save(changed); };
  sim::Server server(unit, serving);
  served = &server;
  if (ended) server.requestStop();
  print(stdout, "port " + server.path());
  server.run();
  served = nullptr;
  if (server.unplugged()) print(stdout, "unplugged");
  keeper.save(unit);
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
    return serve(options);
  } catch (const std::exception& fault) {
    print(stderr, fault.what());
    return 1;
  }
}
