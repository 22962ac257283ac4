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

// What a run says of the unit's menu.
namespace revision {
inline constexpr std::int16_t simpleMenu = 2;
inline constexpr std::int16_t simpleNoMore = 3;  // the unit that is there now has a newer version
}  // namespace revision

struct Run {
  RunView& view;
  bool reading = false;            // a read run rather than a write run
  std::int16_t revisionClass = 0;  // of revision; written by the probe and the type check
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
