// SPDX-License-Identifier: MIT
// The pages of the connection wizard: what each shows, says and does.
#pragma once

#include <cstdint>
#include <string>

namespace torvane {

// 0 to 6 belong to the serial line, 7 to 10 to the network.
namespace page {
enum : std::int16_t {
  serialWelcome = 0,
  serialBus = 1,
  searchQuestion = 2,
  searchWarning = 3,
  search = 4,
  byHand = 5,
  leaveForTab = 6,
  networkWelcome = 7,
  networkBus = 8,
  testWarning = 9,
  networkTest = 10,
};
}

enum class Part { nothing, bus, question, progress };
enum class BackButton { asItIs, enabled, disabled };
enum class Action {
  none,
  takeBusByText,  // bus mode and address go to the model record; the box's text counts, and its list
  takeBus,        // the same by the list alone
  search,
  leaveForTab,
  test,
};

struct WizardPage {
  Part part;  // beside the text: what the user chooses, or how the run goes
  BackButton back;
  bool nextEnabled;
  bool nextAgain;      // the Next button says "Next >", whatever an earlier run has made of it
  Action action;       // done when the page shows
  const char* text;    // null: what the label says stays
  const char* ending;  // after the text and what it names
};

// Null where there is no such page.
const WizardPage* wizardPageAt(std::int16_t number);
// The text of a page that has one; that of the network's last warning names the target that Memo holds.
std::string wizardText(const WizardPage& page);

}  // namespace torvane
