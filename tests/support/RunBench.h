// SPDX-License-Identifier: MIT
// The bench for whole runs: the program is started, the setup is on the tabs, the status window is listened
// to.
#pragma once

#include "tests/support/Bench.h"
#include "tests/support/RunPlan.h"

namespace torvane {

inline constexpr const char* cancelQuestion =
    "This action will abort\rcurrent communication activities\rAre you sure?";
inline constexpr const char* wiringMessage = "A communications connection/wiring problem seems to exist";
inline constexpr const char* noUnitMessage =
    "Communication with controller cannot be established.\r"
    "Please verify COM setup and connection, then try again.";

// A simulated unit that can be of a kind, one of core/Model.h.
sim::UnitSetup unitOfKind(int kind);
// The unit at an address of a bus.
sim::UnitSetup onBus(sim::UnitSetup setup, int address);

class RunBench : public Bench {
 protected:
  explicit RunBench(sim::UnitSetup setup = {});

  // Puts a setup that differs from the factory's in nearly every register on the tabs, for any kind of unit.
  void chooseSetup();
  // The tabs show what the records hold.
  void showMemo();

  // Runs as the choosers start them; the window stays loaded after them.
  void runWrite();
  void runRead();

  // The user presses Cancel as soon as the status text begins so, and answers the question.
  void cancelAt(const std::string& status, Answer answer = Answer::yes);

  frmSerial& window() { return *window_; }
  const std::string& status() { return window_->lblStatus.caption(); }
  // Boxes that came, apart from those of Cancel.
  Lines boxTexts() const;
  // Commands of the run after the probe, "Z02" included.
  Lines commandsOfRun() const;

  Narrative narrative;

 private:
  frmSerial* window_ = nullptr;
};

// What chooseSetup gives, register by register, on a unit of each kind. On an addressed line the bus format
// of an Rkw77 unit is another.
Payloads payloadsOfSetup(int kind, bool addressed = false);

}  // namespace torvane
