// SPDX-License-Identifier: MIT
// The time, and the events and rests in which it passes.
#pragma once

#include <string>

#include "platform/Host.h"

namespace torvane {

class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds since midnight of the day on which the program was started; never runs backward.
  virtual double now() = 0;
  // Serves pending window events and returns at once.
  virtual void yield() = 0;
  // Serves window events; sleeps while there are none, for at most this many seconds.
  virtual void idle(double seconds) = 0;

  // "2026-03-01" in the form of the user's locale.
  virtual std::string today() = 0;
  // "2026-03-01T09:30:00Z": now, UTC.
  virtual std::string utcNow() = 0;
};

}  // namespace torvane
