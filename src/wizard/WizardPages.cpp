// SPDX-License-Identifier: MIT
// The pages of the connection wizard. A carriage return is a line end.
#include "wizard/WizardPages.h"

#include <iterator>

#include "core/Memo.h"

namespace torvane {

namespace {

constexpr const char* serialWelcomeText =
    "This wizard will help you quickly set up and verify the serial communication connection between your "
    "computer and your controller."
    "\r\rTo begin setting up your serial communication connection, click Next."
    "\r\rIf you want to set up the serial communication connection at a later time, click Cancel.";

constexpr const char* serialBusText =
    "Please specify if your controller is equipped with RS-232 or RS-485 serial communication option."
    "\r\rNOTE: your computer must support the type of serial communication that you select.";

constexpr const char* searchQuestionText =
    "If your controller is already connected, you should have the wizard detect it."
    "\r\rWhen the wizard detects a communication (COM) port with a controller connected to it, it "
    "automatically configures the software to work with that COM port."
    "\r\rDo you want the Wizard to search for your connected controller?";

constexpr const char* runWarning =
    "\r\rWARNING: This may take a minute, and could cause your machine to stop responding.  Save and close "
    "all your programs before beginning detection."
    "\r\rWhile detection is in progress, you will see a progress indicator.  If this indicator stops for a "
    "long time, you will need to restart your computer."
    "\r\rTo continue, click Next.";

constexpr const char* searchWarningText =
    "The wizard will now look for the COM port that your controller is connected to.";

constexpr const char* byHandText =
    "Manual configuration is accomplished by mean of the Serial COMM tab from the main screen."
    "\r\rTo leave Connection Wizard and proceed, click Cancel.";

constexpr const char* networkWelcomeText =
    "This wizard will help you quickly set up and verify the TCP/IP communication connection between your "
    "computer, your web server and the Torvane device."
    "\r\rTo begin setting up your communication connection, click Next."
    "\r\rIf you want to set up the communication connection at a later time, click Cancel.";

constexpr const char* networkBusText =
    "Please specify if the Web server is configured with RS-232 or RS-485 serial communication option.";

constexpr const char* testTargetText = "The wizard will now make a test connect for TCP IP address ";

using enum BackButton;

// clang-format off
// In the order of their numbers.
constexpr WizardPage pages[] = {
    {Part::nothing,  disabled, true,  false, Action::none,          serialWelcomeText, ""},
    {Part::bus,      enabled,  true,  false, Action::none,          serialBusText, ""},
    {Part::question, asItIs,   true,  false, Action::takeBusByText, searchQuestionText, ""},
    {Part::nothing,  asItIs,   true,  true,  Action::none,          searchWarningText, runWarning},
    {Part::progress, disabled, false, false, Action::search,        nullptr, ""},
    {Part::nothing,  enabled,  false, false, Action::none,          byHandText, ""},
    {Part::nothing,  asItIs,   true,  false, Action::leaveForTab,   nullptr, ""},
    {Part::nothing,  disabled, true,  false, Action::none,          networkWelcomeText, ""},
    {Part::bus,      enabled,  true,  false, Action::none,          networkBusText, ""},
    {Part::nothing,  asItIs,   true,  true,  Action::takeBus,       testTargetText, runWarning},
    {Part::progress, disabled, false, false, Action::test,          nullptr, ""},
};
// clang-format on
static_assert(std::size(pages) == page::networkTest + 1);

}  // namespace

const WizardPage* wizardPageAt(std::int16_t number) {
  return number >= 0 && number <= page::networkTest ? &pages[number] : nullptr;
}

std::string wizardText(const WizardPage& page) {
  std::string text = page.text;
  if (&page == &pages[page::testWarning]) {
    text += Memo[rec::txtTCPIPAddress].text + " and port " + Memo[rec::txtTCPPort].text;
  }
  return text + page.ending;
}

}  // namespace torvane
