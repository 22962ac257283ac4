// SPDX-License-Identifier: MIT
// A user by script at whose machine ports and waits are timed.
#pragma once

#include <memory>
#include <string>

#include "platform/SerialPort.h"
#include "session/ScriptedHost.h"

namespace torvane {

// Seconds by the clock and seconds of this thread's processor time; the latter hardly feel the machine's
// load.
struct Spent {
  double wall = 0;
  double processor = 0;
};
Spent spentSoFar();
Spent operator-(const Spent& one, const Spent& other);
Spent& operator+=(Spent& sum, const Spent& more);

struct RunCost {
  Spent begin;        // at the first opening of the port
  Spent whole;        // from there to the last closing so far
  Spent openings;     // in opening and closing
  Spent onLine;       // in all other calls of the port
  Spent waits;        // in waits that were asked for ...
  double pauses = 0;  // ... the part of them that was asked for
  Spent waitsWithin;  // both as they stood at the last closing
  double pausesWithin = 0;

  double lessPauses() const { return whole.wall - pausesWithin; }
  double lessOpenings() const { return lessPauses() - openings.wall; }
  Spent between() const { return whole - waitsWithin - openings - onLine; }  // encoders, narrative, painting
};

class TimedHost : public ScriptedHost {
 public:
  explicit TimedHost(std::string device);  // what every "COM n" is

  // From here until the next call of either; the user looks on without acting.
  void startRun();
  RunCost endRun();

  void idle(double seconds) override;
  std::unique_ptr<SerialPort> makeSerialPort() override;

 private:
  std::string device_;
  RunCost cost_;
  bool running_ = false;
};

}  // namespace torvane
