// SPDX-License-Identifier: MIT
// The program unit-simulator on Windows, which has no pseudo terminals: a unit behind a bridge.
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <exception>
#include <string>

#include "sim/Keeper.h"
#include "sim/Options.h"
#include "sim/TcpServer.h"
#include "sim/TrafficText.h"

namespace {

std::atomic<sim::TcpServer*> served = nullptr;
std::atomic<bool> ended = false;

// Ctrl+C, or the console's window was closed.
BOOL WINAPI endServing(DWORD) {
  ended = true;
  if (sim::TcpServer* const server = served) server->requestStop();
  return TRUE;
}

void print(std::FILE* where, const std::string& line) {
  std::fputs((line + '\n').c_str(), where);
  std::fflush(where);
}

void complain(const std::string& problem) {
  if (!problem.empty()) print(stderr, problem);
}

std::string missing(const sim::Options& options) {
  if (!options.plant.empty()) return "on Windows there is one unit at a time, and no --plant";
  if (!options.link.empty() || options.checkLine)
    return "on Windows there is no pseudo terminal, and nothing to link or check";
  if (!options.tcp && !options.terminalServer)
    return "on Windows there is no pseudo terminal: name a port with --tcp";
  return "";
}

int serve(const sim::Options& options) {
  sim::Unit unit(options.setup);
  unit.faults = options.faults;
  sim::Keeper keeper(options.registers);
  if (const std::string problem = keeper.load(unit, options.addressGiven); !problem.empty()) {
    print(stderr, problem);
    return 2;
  }
  const auto show = [&](const sim::LogEntry& entry) {
    if (!options.quiet) print(stdout, sim::trafficLine(entry));
  };
  sim::Bridge bridge(unit);
  sim::Bridge terminalServer(unit);
  bridge.faults = options.bridge;
  terminalServer.faults.prompt = sim::terminalServerPrompt;
  sim::TcpServer server(
      {.onTraffic = show, .onExchange = [&](const sim::Unit& changed) { complain(keeper.save(changed)); }});
  served = &server;
  if (options.tcp) print(stdout, "tcp " + std::to_string(server.listen(*options.tcp, bridge)));
  if (options.terminalServer) {
    print(stdout,
          "terminal-server " + std::to_string(server.listen(*options.terminalServer, terminalServer)));
  }
  if (!ended) server.run();
  served = nullptr;
  complain(keeper.save(unit));
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const sim::Options options = sim::parseOptions({arguments + 1, arguments + count});
  if (options.help) {
    print(stdout, sim::helpText());
    return 0;
  }
  const std::string problem = options.problem.empty() ? missing(options) : options.problem;
  if (!problem.empty()) {
    print(stderr, problem + "; --help tells the options");
    return 2;
  }
  SetConsoleCtrlHandler(endServing, TRUE);
  try {
    return serve(options);
  } catch (const std::exception& fault) {
    print(stderr, fault.what());
    return 1;
  }
}
