// SPDX-License-Identifier: MIT
// What every run works with, beside its channel: who watches, which way it goes, and what it comes to.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/Global.h"
#include "platform/RuntimeError.h"
#include "runs/Outcome.h"
#include "runs/RunView.h"

namespace torvane {

struct Run {
  RunView& view;
  bool reading = false;            // a read run rather than a write run
  std::int16_t revisionClass = 0;  // written by the probe and the type check: 2 the simple menu, 3 no more
  RunOutcome outcome = {};
};

class Channel;

// What is done with a unit that has answered.
using UnitJob = std::function<void(Run&, Channel&)>;

// A new outcome for a run that begins now over this line.
void beginOutcome(Run& run, std::string line);

// Shows the wizard's user how far the run is; the wizard is there to be looked at or not.
void publish(Run& run, int stage);

// During the wizard's own search a failing statement is skipped; otherwise the first error ends the probe.
template <class Statement>
void statement(Statement&& run) {
  if (Global.AutoDetect == 0) {
    run();
  } else {
    attempt(run);
  }
}

}  // namespace torvane
