// SPDX-License-Identifier: MIT
// The faults of the matrix: what is wrong from the beginning of a step of a run on, or while that step lasts.
#pragma once

#include <span>
#include <string>

#include "sim/Bridge.h"
#include "sim/Unit.h"
#include "tests/support/VirtualHost.h"

namespace torvane {

// What a fault can take hold of.
struct FaultScene {
  VirtualHost& host;
  sim::Unit& unit;      // the one that the run talks to
  sim::Bridge& bridge;  // in front of it, in a run over the network
  std::string reg;      // the first register of the step, "00" for the step that has none
};

enum class Over { both, serial, network };

// Runs in which a fault by itself leads to something that neither side holds: a register that takes another
// value than the one that was sent, or a good reply that isn't the answer to the command.
namespace forged {
enum : unsigned { nothing = 0, serialWrite = 1, serialRead = 2, networkWrite = 4, networkRead = 8 };
}

struct ListedFault {
  const char* name;  // as the table shows it
  Over over;         // the bodies that it can meet
  bool passing;      // lifted at the beginning of the next step
  unsigned forges;   // runs, see above
  void (*begins)(FaultScene& scene);
};

std::span<const ListedFault> listedFaults();

// All that any of them has done.
void lift(FaultScene& scene);

}  // namespace torvane
