// SPDX-License-Identifier: MIT
// A user by script for whom rests pass ten times faster: a session mostly waits, for the splash and for units
// that need their pauses. A reply over a serial line has all the time that it has in the field, since no rest
// is part of it.
#pragma once

#include "session/ScriptedHost.h"

namespace torvane {

class QuickHost : public ScriptedHost {
 public:
  double speed = 10;  // 1: true

  double now() override { return ScriptedHost::now() + skipped_; }
  void idle(double seconds) override {
    const double start = ScriptedHost::now();
    ScriptedHost::idle(seconds / speed);
    skipped_ += (ScriptedHost::now() - start) * (speed - 1);
  }

 private:
  double skipped_ = 0;
};

// In a test: one session of each way stays at true speed.
class TrueSpeed {
 public:
  explicit TrueSpeed(QuickHost& host) : host_(host), before_(host.speed) { host_.speed = 1; }
  TrueSpeed(const TrueSpeed&) = delete;
  TrueSpeed& operator=(const TrueSpeed&) = delete;
  ~TrueSpeed() { host_.speed = before_; }

 private:
  QuickHost& host_;
  double before_;
};

}  // namespace torvane
