// SPDX-License-Identifier: MIT
// What can be in the way to a unit, and what helps, in the same words wherever it is said.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "runs/Outcome.h"

namespace torvane {

struct NoWay {
  const char* cause;   // as a heading of the guide
  const char* advice;  // one sentence or two
};

namespace noWay {
extern const NoWay silent;
extern const NoWay loop;
extern const NoWay otherDevice;
extern const NoWay otherLine;
extern const NoWay unplugged;
extern const NoWay noPortChosen;
extern const NoWay noPortOpens;  // the wizard says it in front of what the system says of the port
}  // namespace noWay

// All of them. The system says what keeps a port from being opened: Ports::serialPortHint.
std::span<const NoWay* const> noWays();

// Of a run that did not reach its unit, judged by how it ended and by the last words of the search; empty
// where nothing was in the way.
std::string adviceFor(const RunOutcome& outcome, std::string_view lastWords);

}  // namespace torvane
