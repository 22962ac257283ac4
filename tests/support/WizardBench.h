// SPDX-License-Identifier: MIT
// The bench for the connection wizard: ten serial ports with silent units but for COM 1, a bridge that leads
// to the unit of COM 1, and the wizard in front of the user.
#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/Bench.h"
#include "wizard/frmWizard.h"

namespace torvane {

inline constexpr const char* detectionQuestion =
    "You are about to cancel detection.  Are you sure you want to do this?";

using Numbers = std::initializer_list<std::int16_t>;

class WizardBench : public Bench {
 protected:
  explicit WizardBench(sim::UnitSetup setup = {});

  // The wizard is shown, beside the main window. Its ways of leaving are seen by its being hidden.
  frmWizard& open(bool serial = true);
  frmWizard& wizard() { return form<frmWizard>(); }
  const std::string& says() { return wizard().lblCaption.caption(); }
  // The user presses Next this many times.
  void next(int times = 1);

  // A unit on another port than COM 1, which falls silent.
  void moveUnitTo(int port);
  void silenceAll();
  // Ports on which a command was heard, in the order of their first.
  std::vector<int> portsAsked() const;

  sim::Unit& unitOn(int port) { return port == 1 ? unit : others[static_cast<std::size_t>(port) - 2]; }

  frmBigFolder& editor = start();
  std::deque<sim::Unit> others;  // COM 2 to COM 10
  sim::Bridge bridge{unit};
};

}  // namespace torvane
