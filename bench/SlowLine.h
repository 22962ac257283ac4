// SPDX-License-Identifier: MIT
// A unit at 9600 baud that answers at once, and a whole session in front of it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "TimedHost.h"
#include "sim/PseudoTerminal.h"

namespace torvane {

// A unit whose replies take as long as their bytes and no longer.
sim::UnitSetup setup();
// The time that the bytes of a log need on the line, in seconds.
double timeOnLine(const std::vector<sim::LogEntry>& log);
// Whether a bench may change a register: bus format and address say how the unit is spoken to.
bool mayChange(const std::string& index);
// The same digits with every bit the other way.
std::string turnedOver(std::string hex);

// The program in front of a user who has a plan, until the main window has gone. Says so and is false where
// the runs didn't go as planned: where a step is left, or `boxes` message boxes did not come.
using MakeUser = std::function<std::unique_ptr<TimedHost>(const std::string& device)>;
bool runSession(int argc, char** argv, const MakeUser& makeUser,
                const std::function<void(TimedHost&, sim::Server&)>& plan, std::size_t boxes);

}  // namespace torvane
