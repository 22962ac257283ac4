// SPDX-License-Identifier: MIT
// A whole write at 9600 baud beside the time that its bytes need on the line, and what the program takes of
// the processor while it waits.
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "BareLine.h"
#include "Figures.h"
#include "SlowLine.h"
#include "TimedHost.h"
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"

using namespace torvane;

namespace {

constexpr int writes = 5;

using Registers = std::map<std::string, std::string>;

struct Times {
  std::vector<double> open, closed, pressed, bare, beside, between, share, silent;
};

// Every bit differs from what the last write left, so that every register is written.
Registers spoilRegisters(sim::Unit& unit) {
  Registers all;
  for (const std::string& index : unit.registerNames()) {
    if (!mayChange(index)) continue;
    all[index] = turnedOver(unit.registerHex(index));
    unit.setRegister(index, all[index]);
  }
  unit.takeLog();
  return all;
}

void restore(sim::Unit& unit, const Registers& registers) {
  for (const auto& [index, hex] : registers) unit.setRegister(index, hex);
}

// What is left when nothing of the program is in the way.
double bareRun(const std::string& device, const std::vector<sim::LogEntry>& log) {
  const BareLine line(device);
  const double start = wallClock();
  for (const sim::LogEntry& entry : log) {
    if (entry.direction == '>') line.exchange(entry.text);
  }
  return wallClock() - start;
}

void pressSerial(TimedHost& user) { click(user, form<frmWrite>(), "cmdSerial"); }

// Milliseconds by the clock, and of processor time.
void tell(const char* what, const Spent& spent) {
  std::printf("%s %.0f (%.0f), ", what, 1000 * spent.wall, 1000 * spent.processor);
}

void measureWrite(TimedHost& user, sim::Server& server, Times& times) {
  const Registers before = server.with(spoilRegisters);
  user.startRun();
  const double start = wallClock();
  pressSerial(user);
  const double pressed = wallClock() - start;
  const RunCost cost = user.endRun();
  const auto log = server.with([](sim::Unit& unit) { return unit.takeLog(); });
  const double line = timeOnLine(log);
  server.with([&](sim::Unit& unit) { restore(unit, before); });
  const double bare = bareRun(server.path(), log);
  tell("run", {cost.lessPauses(), cost.whole.processor - cost.waitsWithin.processor});
  tell("openings", cost.openings);
  tell("exchanges", cost.onLine);
  tell("between", cost.between());
  std::printf("bytes %.0f, bare %.0f ms\n", 1000 * line, 1000 * bare);
  times.open.push_back(cost.lessPauses() / line);
  times.closed.push_back(cost.lessOpenings() / line);
  times.pressed.push_back((pressed - cost.pauses) / line);
  times.bare.push_back(bare / line);
  times.beside.push_back(cost.lessOpenings() / bare);
  times.between.push_back(100 * cost.between().processor / line);
  times.share.push_back(100 * cost.waits.processor / cost.waits.wall);
}

void measureSilence(TimedHost& user, sim::Server& server, Times& times) {
  server.with([](sim::Unit& unit) { unit.faults.silentAfter = 0; });
  const double start = wallClock();
  const double processor = processorTime();
  user.startRun();
  pressSerial(user);
  user.endRun();
  times.silent.push_back(100 * (processorTime() - processor) / (wallClock() - start));
}

void plan(TimedHost& user, sim::Server& server, Times& times) {
  user.whenShown("frmBigFolder", [&] {
    Global.DeviceSpecified = True;  // no dialog comes between
    click(user, form<frmBigFolder>(), "cmdWrite");
  });
  for (int run = 0; run < writes; ++run) {
    user.whenShown("frmWrite", [&] { measureWrite(user, server, times); });
  }
  user.whenShown("frmWrite", [&] { measureSilence(user, server, times); });
  user.whenShown("frmWrite", [&] { click(user, form<frmWrite>(), "cmdCancel"); });
  user.whenShown("frmBigFolder", [&] { click(user, form<frmBigFolder>(), "cmdQuit"); });
}

void print(const Times& times) {
  printFigure("a whole write beside its bytes on the line", median(times.open), "times", 1.15);
  printFigure("... without the openings", median(times.closed), "times", 1.04);
  printFigure("... from the press of the button to the closed window", median(times.pressed), "times");
  printFigure("... the simulated unit alone, under bare system calls", median(times.bare), "times");
  printFigure("... without the openings, beside bare system calls", median(times.beside), "times");
  printFigure("... processor time between the exchanges", median(times.between), "%");
  printFigure("share of a core in the pauses of a run", median(times.share), "%", 3);
  printFigure("share of a core through a run at a silent unit", median(times.silent), "%", 3);
}

}  // namespace

int main(int argc, char** argv) {
  Times times;
  const auto makeUser = [](const std::string& device) { return std::make_unique<TimedHost>(device); };
  const bool went = runSession(
      argc, argv, makeUser, [&](TimedHost& user, sim::Server& server) { plan(user, server, times); }, 1);
  if (went) print(times);
  return went ? 0 : 1;
}
