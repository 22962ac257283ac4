// SPDX-License-Identifier: MIT
// Many units in one process.
#include "sim/Plant.h"

#include <stdexcept>
#include <utility>

#include "sim/BridgeOptions.h"
#include "sim/Numbers.h"
#include "sim/TrafficText.h"

namespace sim {

namespace {

std::string nameOf(const PlantUnit& entry) {
  return entry.setup.addressed ? entry.line + ' ' + std::to_string(entry.setup.address) : entry.line;
}

std::string pathIn(const std::filesystem::path& folder, const std::string& path) {
  return path.empty() ? path : (folder / path).string();
}

}  // namespace

Plant::Plant(const std::vector<PlantUnit>& table, PlantOptions options)
    : options_(std::move(options)),
      tcp_({.onTraffic = [](const LogEntry&) {},  // the units' own logs tell more
            .onExchange = [this](const Unit& unit) { look(unit); }}) {
  for (const PlantUnit& entry : table) take(entry);
  for (auto& [name, line] : lines_) {
    if (lineKind(name) == "pty") {
      openTerminal(name, line);
    } else {
      openBridge(name, line);
    }
  }
  start();
}

Plant::~Plant() {
  for (auto& [name, terminal] : terminals_) terminal.requestStop();
  for (std::thread& thread : threads_) thread.join();
  tcp_.stop();
  for (Seat& seat : seats_) say(seat.keeper.save(seat.unit));
}

void Plant::take(const PlantUnit& entry) {
  Seat& seat = seats_.emplace_back(
      Seat{nameOf(entry), entry.line, Unit(entry.setup), Keeper(pathIn(options_.folder, entry.registers))});
  seat.unit.faults = entry.faults;
  const std::string problem = seat.keeper.load(seat.unit, entry.setup.addressed);
  if (!problem.empty()) throw std::runtime_error(problem);
  seatOf_[&seat.unit] = &seat;
  Line& line = lines_.try_emplace(entry.line, Line{.faults = options_.bridge}).first->second;
  line.units.push_back(&seat.unit);
  for (const std::string& fault : entry.bridgeFaults) addBridgeFault(line.faults, fault);
}

void Plant::openTerminal(const std::string& name, Line& line) {
  ServerOptions serving{.link = pathIn(options_.folder, lineName(name)), .checkLine = options_.checkLine};
  serving.onExchange = [this](const Unit& unit) { look(unit); };
  line.place = terminals_.try_emplace(name, Bus(line.units), serving).first->second.path();
}

void Plant::openBridge(const std::string& name, Line& line) {
  Bridge& bridge = bridges_.emplace_back(Bus(line.units));
  bridge.faults = line.faults;
  line.place = std::to_string(tcp_.listen(wholeNumber(lineName(name)).value_or(0), bridge));
}

void Plant::start() {
  for (auto& [name, terminal] : terminals_) {
    threads_.emplace_back([this, line = name, server = &terminal] {
      server->run();
      if (server->unplugged()) say(line + " unplugged");
    });
  }
  if (!bridges_.empty()) tcp_.start();
}

void Plant::look(const Unit& unit) {
  Seat& seat = *seatOf_.at(&unit);
  for (const LogEntry& entry : seat.unit.takeLog()) {
    const bool own = entry.direction == '<' || !entry.body.empty();
    if (options_.traffic && own) say(seat.name + ' ' + trafficLine(entry));
  }
  say(seat.keeper.save(unit));
}

void Plant::say(const std::string& text) const {
  if (!text.empty() && options_.print) options_.print(text);
}

std::vector<std::string> Plant::announcement() const {
  std::vector<std::string> lines;
  for (const Seat& seat : seats_) lines.push_back(seat.name + ' ' + lines_.at(seat.line).place);
  return lines;
}

}  // namespace sim
