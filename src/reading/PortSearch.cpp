// SPDX-License-Identifier: MIT
// The wizard's search for a unit on the computer's serial ports.
#include "reading/PortSearch.h"

#include <optional>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/Boxes.h"
#include "platform/Ports.h"
#include "protocol/Probe.h"
#include "protocol/SerialChannel.h"
#include "runs/NoWay.h"

namespace torvane {

namespace {

constexpr int lastPort = 10;
constexpr int firstProgress = 25;  // of the port that the configuration names
constexpr int portProgress = 12;   // of each other port

constexpr const char* cancelQuestion =
    "You are about to cancel detection.  Are you sure you want to do this?";

constexpr const char* nothingFound =
    "     Connection Wizard has finished scanning the COM ports, but did not find any controller.  Please "
    "verify that the communication parameters on the controller are set to: \r"
    "     Baud: 9600,  Parity: odd,   Data bit: 7, Stop bit: 1, \r"
    "     Echo: on,\r"
    "     Mode: command, \r"
    "     Line feed:  no\r"
    "     Standard:  232C\r"
    "and try again.\r"
    "\r"
    "Manual configuration is accomplished by mean of the COMM tab from the main screen.\r"
    "Click 'Cancel' to make communication settings changes.";

// The factory's line settings; a unit that speaks others isn't looked for.
constexpr const char* factoryLine = "9600,o,7,1";

std::string nameOf(int port) { return "COM " + numberText(std::int32_t{port}); }

// After a port without a unit the user who has pressed Cancel is asked whether he means it.
bool findsUnitOn(Run& run, SerialChannel& channel, int port, int progress) {
  run.view.wizardLooks("Looking for a controller on " + nameOf(port) + "...");
  channel.port().commPort = port;
  std::int16_t mode = 0;
  const bool found = comOK(run, channel, mode).empty();
  run.view.wizardProgress(progress);
  if (found || !isCancelled()) return found;
  const Answer answer = run.view.box(cancelQuestion, "", Icon::question, Buttons::noYes);
  if (answer != Answer::yes) Global.CancelFlag = False;
  return false;
}

// Ends at the user's word as well.
std::optional<int> scanPorts(Run& run, SerialChannel& channel, int except) {
  int progress = firstProgress;
  for (int port = 1; port <= lastPort; ++port, progress += portProgress) {
    if (port == except) continue;
    if (findsUnitOn(run, channel, port, progress)) return port;
    if (isCancelled()) return {};
  }
  return {};
}

// What the text asks of the controller is not the reason where no port could be opened; what the system says
// of the chosen port is.
void sayNothingFound(Run& run, const SerialChannel& channel, int chosen) {
  run.view.wizardSays(nothingFound);
  if (channel.everOpened()) return;
  run.view.wizardAdds("\r" + std::string(noWay::noPortOpens.advice) + ". " +
                      host<Ports>().serialPortHint(chosen));
}

}  // namespace

void SerialTestConnect(Run& run, SerialChannel& channel) {
  run.view.offerCancel();
  channel.port().settings = factoryLine;
  run.view.useFactoryLine();
  Global.DetectionDone = 0;
  const int chosen = Memo[rec::cboCommPort].value + 1;
  std::optional<int> found;
  if (findsUnitOn(run, channel, chosen, 0)) found = chosen;
  if (!found && !run.reading) found = scanPorts(run, channel, chosen);
  run.view.upProg(100);
  if (!found) return sayNothingFound(run, channel, chosen);
  run.view.choosePort(*found);
  run.view.wizardAdds("Connection Wizard detected your controller on COM" + numberText(std::int32_t{*found}) +
                      ".\r\rTo finalize the configuration, click Finish.");
  run.view.wizardFinishes(true);
  Global.DetectionDone = 1;
}

}  // namespace torvane
