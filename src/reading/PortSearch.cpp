// SPDX-License-Identifier: MIT
// The wizard's search for a unit on the computer's serial ports.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"
#include "platform/Host.h"
#include "protocol/frmSerial.h"
#include "wizard/frmWizard.h"

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

void showFactoryLine() {
  auto& editor = form<frmBigFolder>();
  editor.cboBaud.setListIndex(5);
  editor.cboStop.setListIndex(0);
  editor.cboParity.setListIndex(1);
  editor.cboData.setListIndex(0);
}

std::string nameOf(int port) { return "COM " + numberText(std::int32_t{port}); }

// A port beyond the list is used all the same, under its number.
void choosePort(int port) {
  auto& editor = form<frmBigFolder>();
  const bool listed = port <= editor.cboCommPort.listCount();
  editor.cboCommPort.setListIndex(listed ? port - 1 : -1);
  if (listed) return;
  editor.usePort(port);
  editor.cboCommPort.setText(nameOf(port));
}

void tellFound(int port) {
  auto& wizard = form<frmWizard>();
  wizard.addToCaption("Connection Wizard detected your controller on COM" + numberText(std::int32_t{port}) +
                      ".\r\rTo finalize the configuration, click Finish.");
  wizard.offerFinish();
}

}  // namespace

void frmSerial::SerialTestConnect() {
  cmdCancel.setCaption("Cancel");
  MSComm1->settings = factoryLine;
  showFactoryLine();
  Global.DetectionDone = 0;
  const int chosen = Memo[rec::cboCommPort].value + 1;
  std::optional<int> found;
  if (findsUnitOn(chosen, 0)) found = chosen;
  if (!found && readMode == False) found = scanPorts(chosen, firstProgress);
  upProg(100);
  if (!found) return form<frmWizard>().lblCaption.setCaption(nothingFound);
  choosePort(*found);
  tellFound(*found);
  Global.DetectionDone = 1;
}

// Ends at the user's word as well.
std::optional<int> frmSerial::scanPorts(int except, int progress) {
  for (int port = 1; port <= lastPort; ++port, progress += portProgress) {
    if (port == except) continue;
    if (findsUnitOn(port, progress)) return port;
    if (Global.CancelFlag != False) return {};
  }
  return {};
}

// Behind a port without a unit the user who has pressed Cancel is asked whether he means it.
bool frmSerial::findsUnitOn(int port, int progress) {
  auto& wizard = form<frmWizard>();
  wizard.lblDetection.setCaption("Looking for a controller on " + nameOf(port) + "...");
  MSComm1->commPort = port;
  std::int16_t mode = 0;
  const bool found = comOK(mode).empty();
  wizard.prgProgress.setValue(progress);
  if (found || Global.CancelFlag == False) return found;
  const Answer answer = messageBox(cancelQuestion, "", Icon::question, Buttons::yesNo);
  if (answer != Answer::yes) Global.CancelFlag = False;
  return false;
}
