// SPDX-License-Identifier: MIT
// What a run tells and asks of whoever watches it, and nothing more. The status window shows it, a shell
// writes it to the terminal, a test keeps it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Boxes.h"

namespace torvane {

class RunView {
 public:
  virtual ~RunView() = default;

  // The narrative: a text in place of the present one, or after it. It carries its own carriage returns.
  virtual void upStat(bool append, std::string_view text) = 0;
  virtual void upProg(std::int16_t percent) = 0;
  virtual Answer box(std::string_view text, std::string_view title = "", Icon icon = Icon::none,
                     Buttons buttons = Buttons::ok) = 0;
  virtual void offerCancel() {}                    // from here on the user may cancel the run
  virtual void notice(std::string_view text) = 0;  // that goes by itself

  // The setup. A run works on Memo; what shows it elsewhere is brought into line here.
  virtual void commitTabs() = 0;          // before a run: what the tabs show enters Memo
  virtual void showTabs() = 0;            // after a read: the tabs show Memo as it stands
  virtual void takeAnalogOutputAway() {}  // the unit read has none to enable
  virtual void returnToReadingTab() {}    // the run ends there, for the user to mend its scale

  // The wizard, which starts the port search and the network test.
  virtual void wizardLooks(std::string_view) {}   // what is being tried
  virtual void wizardProgress(int) {}             // 0 to 100
  virtual void wizardSays(std::string_view) {}    // in place of its text
  virtual void wizardAdds(std::string_view) {}    // a further line below it
  virtual void wizardFinishes(bool /*found*/) {}  // it may end with the next click; a unit was found or not
  virtual void wizardStops() {}                   // only Cancel is to lead out

  // The communication tab follows what a search finds.
  virtual void useFactoryLine() {}
  virtual void choosePort(int /*port*/) {}  // n of "COM n"
  virtual void chooseBridgePort(int /*port*/) {}
};

// How far the wizard's bar stands after a stage of a run; seven fill it.
constexpr int wizardProgressValue(int stage) { return stage * 14; }

}  // namespace torvane
