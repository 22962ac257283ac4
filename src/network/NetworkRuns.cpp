// SPDX-License-Identifier: MIT
// The runs of the status window through the bridge.
#include "core/Global.h"
#include "core/Model.h"
#include "dialogs/frmTimedMessage.h"
#include "network/NetworkChannel.h"
#include "platform/Host.h"
#include "protocol/RunBody.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"

namespace {

constexpr double connectLimit = 2.0;  // seconds
constexpr double restBehindConnecting = 0.5;

enum : std::int16_t { tookPlace = 0, noBridge = -1, noUnit = -2 };

void tellNoConnection() {
  auto& notice = form<frmTimedMessage>();
  notice.message = "Unable to establish network connection";
  notice.showModal();
}

}  // namespace

std::int16_t frmSerial::NetworkFullConnect() {
  cmdCancel.setCaption("Cancel");
  upStat(false, "Looking for the web server...");
  if (winSock1->state() != SocketState::closed) winSock1->close();
  network->takeTarget();
  network->connect();
  if (!waitFor(network->socketConnected, connectLimit)) {
    upStat(false, "Could not found web server...");
    return noBridge;
  }
  upStat(false, "Found web server...");
  waitOut(restBehindConnecting);
  if (!NetworkCommunicationOK(false)) return noUnit;
  if (NetworkCommunicationOK(false)) {
    commitTabs();
    runOverNetwork();
  } else {
    tellNoConnection();
  }
  return tookPlace;
}

void frmSerial::runOverNetwork() {
  if (readMode == False) {
    NetworkWriteToDevice();
  } else if (Global.ReadConfirmed != 0) {
    NetworkReadFromDevice();
    Global.ReadConfirmed = 0;
  } else {
    messageBox("endless loop");
  }
}

void frmSerial::NetworkWriteToDevice() { writeConfiguration(networkBody); }

void frmSerial::NetworkReadFromDevice() {
  if (Global.ReadConfirmed != 0) readConfiguration(networkBody);
}
