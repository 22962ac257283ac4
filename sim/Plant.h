// SPDX-License-Identifier: MIT
// Many units in one process: buses on pseudo terminals, bridges on loopback ports.
#pragma once

#include <filesystem>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "sim/Keeper.h"
#include "sim/PlantFile.h"
#include "sim/PseudoTerminal.h"
#include "sim/TcpServer.h"

namespace sim {

struct PlantOptions {
  std::filesystem::path folder = {};  // where the table's own paths begin
  BridgeFaults bridge = {};           // of every bridge, beside its own
  bool checkLine = false;
  bool traffic = true;                                 // say what each unit hears and says
  std::function<void(const std::string&)> print = {};  // may be called from several threads at once
};

class Plant {
 public:
  // Throws std::runtime_error when a file of registers can't be read, and std::system_error when a line can't
  // be made. All units stand from then on until the end of this object.
  Plant(const std::vector<PlantUnit>& table, PlantOptions options);
  ~Plant();
  Plant(const Plant&) = delete;
  Plant& operator=(const Plant&) = delete;

  // One for each unit in the order of the table: line, address if it has one, and the device file or TCP
  // port.
  std::vector<std::string> announcement() const;

 private:
  struct Seat {
    std::string name;  // line and address
    std::string line;
    Unit unit;
    Keeper keeper;
  };
  struct Line {
    std::vector<Unit*> units = {};
    BridgeFaults faults = {};
    std::string place = {};  // the device file or the TCP port
  };

  void take(const PlantUnit& entry);
  void openTerminal(const std::string& name, Line& line);
  void openBridge(const std::string& name, Line& line);
  void start();
  void look(const Unit& unit);  // after each exchange
  void say(const std::string& text) const;

  PlantOptions options_;
  std::list<Seat> seats_;
  std::map<const Unit*, Seat*> seatOf_;
  std::map<std::string, Line> lines_;
  std::map<std::string, Server> terminals_;
  std::list<Bridge> bridges_;
  TcpServer tcp_;
  std::vector<std::thread> threads_;
};

}  // namespace sim
