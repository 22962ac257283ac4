// SPDX-License-Identifier: MIT
// A user by script at whose machine ports and waits are timed.
#pragma once

#include <memory>
#include <string>

#include "platform/SerialPort.h"
#include "session/ScriptedHost.h"

// What a run has spent, in seconds.
struct RunCost {
  double begin = 0;      // moment of the first opening of the port, 0 before it
  double end = 0;        // moment of the last closing so far
  double openings = 0;   // in opening and closing
  double pauses = 0;     // in waits that were asked for, without what they took longer ...
  double waited = 0;     // ... and with it
  double processor = 0;  // processor time of those waits
  double pausesAtEnd = 0;
  double onLine = 0;  // in all other calls of the port

  double lessPauses() const { return end - begin - pausesAtEnd; }
  double lessOpenings() const { return lessPauses() - openings; }
  double between() const { return lessOpenings() - onLine; }  // encoders, narrative, painting
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
