// SPDX-License-Identifier: MIT
// The bench for the connection wizard.
#include "tests/support/WizardBench.h"

#include <algorithm>

#include "core/Memo.h"
#include "core/Model.h"

namespace torvane {

namespace {
constexpr int ports = 10;
}

WizardBench::WizardBench(sim::UnitSetup setup) : Bench(setup) {
  for (int port = 2; port <= ports; ++port) {
    others.emplace_back(setup);
    others.back().faults.silentAfter = 0;
    host.lines[port].unit = &others.back();
  }
  host.bridges[{"192.0.2.254", 1000}] = &bridge;
  host.portOpenings = 0;
  host.events.clear();
}

frmWizard& WizardBench::open(bool serial) {
  Memo[rec::optCommunicationMode].flag = asFlag(serial);
  Memo[rec::optCommunicationMode + 1].flag = asFlag(!serial);
  wizard().show();
  return wizard();
}

void WizardBench::next(int times) {
  for (int time = 0; time < times; ++time) wizard().cmdNext.userClicked();
}

void WizardBench::moveUnitTo(int port) {
  unit.faults.silentAfter = 0;
  unitOn(port).faults.silentAfter = sim::unlimited;
}

void WizardBench::silenceAll() { unit.faults.silentAfter = 0; }

std::vector<int> WizardBench::portsAsked() const {
  std::vector<std::pair<double, int>> first;
  for (int port = 1; port <= ports; ++port) {
    const auto& log = host.lines.at(port).unit->log();
    if (!log.empty()) first.emplace_back(log.front().time, port);
  }
  std::ranges::sort(first);
  std::vector<int> asked;
  for (const auto& [time, port] : first) asked.push_back(port);
  return asked;
}

}  // namespace torvane
