// SPDX-License-Identifier: MIT
// The wizard's test of the bridge and of the unit behind it.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"
#include "network/NetworkChannel.h"
#include "platform/Host.h"
#include "protocol/SerialChannel.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"
#include "wizard/frmWizard.h"

namespace {

// Seconds.
constexpr double connectLimit = 2.0;
constexpr double listenLimit = 5.0;  // after the call for a connection: does the bridge talk by itself?
constexpr double settle = 0.5;       // before the first question
constexpr double retryRest = 1.0;
constexpr double versionRest = 1.0;

constexpr int versionTries = 3;
constexpr int terminalServerPort = 2000;

enum : std::int16_t { unitAnswers = 1, somethingElse = 0, terminalServer = -1, lineEchoes = -2 };

// What the first answer may hold, in the order in which one overrides another. Each is worth a second try.
struct Complaint {
  std::int16_t code;
  const char* mark;
  const char* words;
};

constexpr Complaint complaints[] = {
    {terminalServer, "erminal",
     "Relayon response indicates that the Terminal Server mode has been activated.  Terminal Server mode "
     "uses Port 2000 by default."},
    {-43, "?43", "Unknown device connected.  Command Error occurred"},
    {-46, "?46", "Unknown device connected.  Format Error occurred"},
    {-50, "?50", "Device connection problem.  Parity Error"},
};

const Complaint* complaintOf(std::int16_t code) {
  for (const Complaint& complaint : complaints) {
    if (complaint.code == code) return &complaint;
  }
  return nullptr;
}

frmWizard& wizard() { return form<frmWizard>(); }

// The wizard is to end with what it says now.
void endWizard() {
  wizard().offerFinish();
  Global.DetectionDone = 1;
}

void tellNoDevice(const char* words) {
  wizard().addToCaption("\rFound no device connected to the web server\r\r" + std::string(words));
}

void tellCables() {
  tellNoDevice(
      "Check cable connections between web server and device. Also check device communication settings such "
      "as  communication protocol, and baud rate. Then try the Wizard again.");
  endWizard();
}

}  // namespace

void frmSerial::NetworkTestConnect() {
  network->takeTarget();
  if (winSock1->state() == SocketState::peerIsClosing) winSock1->close();
  if (winSock1->state() != SocketState::connected) {
    std::string lastReply;
    if (!findsUnitBehindBridge() || !hearsVersion(lastReply) || !knowsModel(lastReply)) return;
  }
  tellReplacedPort();
}

// Tries a second time where that may help. False: the verdict stands in the wizard.
bool frmSerial::findsUnitBehindBridge() {
  for (const bool lastTry : {false, true}) {
    Global.DetectionDone = 0;
    if (!connectsToBridge()) return false;
    publish(2);
    const std::int16_t code = CheckForConnectedDevice();
    publish(3);
    Global.DetectionDone = 0;
    if (code == unitAnswers) return true;
    if (code == terminalServer) winSock1->remotePort = network->NetPort = terminalServerPort;
    if (lastTry || complaintOf(code) == nullptr) {
      tellWhatAnswered(code);
      return false;
    }
    prepareSecondTry(code == terminalServer);
  }
  return false;
}

bool frmSerial::connectsToBridge() {
  wizard().lblDetection.setCaption("Testing the connection to " + network->NetHost + ", port " +
                                   numberText(network->NetPort) + "...");
  const double start = host().now();
  network->connect();
  publish(1);
  if (!waitFor(network->socketConnected, connectLimit)) {
    wizard().lblCaption.setCaption(
        "Web server not found.  Check the TCP/IP address and port number and make sure that the web server "
        "is connected properly and try again");
    endWizard();
    return false;
  }
  wizard().lblCaption.setCaption("The connection with the web server was done");
  network->socketData = False;
  if (waitFor(network->socketData, listenLimit - (host().now() - start))) {
    wizard().lblCaption.setCaption(
        "Data has unexpectedly been received.  If using Relayon/Ethernet hardware, please disable Host or "
        "Continuous mode");
  }
  return true;
}

std::int16_t frmSerial::CheckForConnectedDevice() {
  waitOut(settle);
  publish(3);
  const std::string reply = network->NetworkWritePort(framed("U01"));
  std::int16_t code = somethingElse;
  if (reply.starts_with(addressPart() + "U01")) code = unitAnswers;
  if (reply.starts_with('*')) code = lineEchoes;
  for (const Complaint& complaint : complaints) {
    if (contains(reply, complaint.mark)) code = complaint.code;
  }
  return code;
}

void frmSerial::prepareSecondTry(bool onTerminalServerPort) {
  winSock1->close();
  if (onTerminalServerPort) {
    form<frmBigFolder>().txtTCPPort.setText(numberText(std::int32_t{terminalServerPort}));
  }
  waitOut(retryRest);
}

void frmSerial::tellWhatAnswered(std::int16_t code) {
  const Complaint* complaint = complaintOf(code);
  if (code == lineEchoes) {
    stopAtEcho();
  } else if (complaint != nullptr) {
    tellNoDevice(complaint->words);
  } else {
    tellCables();
  }
}

// The line returns what it is told: a modem or a wiring fault, and nothing that a further try would mend.
void frmSerial::stopAtEcho() {
  winSock1->close();
  Global.DetectionDone = 1;
  wizard().stop();
  wizard().addToCaption(
      "\rThe serial port is either connected to a modem Or there exists a wiring problem.\r\rTo leave "
      "Connection Wizard , click Cancel.");
}

bool frmSerial::hearsVersion(std::string& lastReply) {
  wizard().addToCaption("Found device connected to the web server");
  bool heard = false;
  for (int tries = 0; tries < versionTries; ++tries) {
    waitOut(versionRest);
    lastReply = network->NetworkWritePort(framed("U03"));
    const std::size_t mark = lastReply.find("U03");
    if (mark == std::string::npos) continue;
    heard = true;
    Global.FirmwareVersion = lastReply.substr(mark + 3);
  }
  judgeVersion();
  publish(4);
  if (heard) return true;
  wizard().addToCaption("The device found is not an Torvane or LARKSPUR model");
  endWizard();
  return false;
}

bool frmSerial::knowsModel(const std::string& lastReply) {
  wizard().addToCaption("Found the Torvane device");
  endWizard();
  std::int16_t type = -1;
  TcpCheckForMeterType(type);
  if (type < 0) {
    wizard().addToCaption("The device found is not a LARKSPUR or an Torvane model");
    return false;
  }
  Global.DetectionDone = 0;
  announce(type, lastReply);
  return true;
}

// The user should know when the bridge was reached by another port than he has typed.
void frmSerial::tellReplacedPort() const {
  const std::string& typed = Memo[rec::txtTCPPort].text;
  if (Val(typed) == winSock1->remotePort) return;
  messageBox("Port " + numberText(std::int32_t{winSock1->remotePort}) + " replaced Port " + typed +
             " as needed to support proper communications.");
}
