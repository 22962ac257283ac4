// SPDX-License-Identifier: MIT
// The begin of a run.
#include "runs/Run.h"

#include <utility>

#include "core/Model.h"
#include "platform/Clock.h"

namespace torvane {

void beginOutcome(Run& run, std::string line) {
  run.outcome = {.reading = run.reading, .startedAt = host<Clock>().utcNow(), .line = std::move(line)};
  if (Hardware.BusMode != 0 && Hardware.BusMode != 2) run.outcome.address = Hardware.BusAddress;
}

void publish(Run& run, int stage) {
  statement([&] { run.view.wizardProgress(wizardProgressValue(stage)); });
}

}  // namespace torvane
