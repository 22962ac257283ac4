// SPDX-License-Identifier: MIT
// The wizard's test of the bridge and of the unit behind it.
#include "network/NetworkTest.h"

#include "core/BridgePorts.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "network/NetworkChannel.h"
#include "platform/Clock.h"
#include "protocol/Probe.h"
#include "protocol/Waits.h"
#include "reading/MeterType.h"

namespace torvane {

namespace {

// Seconds.
constexpr double testConnectLimit = 2.0;
constexpr double listenLimit = 5.0;  // after the call for a connection: does the bridge talk by itself?
constexpr double settle = 0.5;       // before the first question
constexpr double retryRest = 1.0;
constexpr double versionRest = 1.0;

constexpr int versionTries = 3;

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

// The wizard is to end with what it says now.
void endWizard(Run& run) {
  run.view.wizardFinishes(false);
  Global.DetectionDone = 1;
}

void tellNoDevice(Run& run, const char* words) {
  run.view.wizardAdds("\rFound no device connected to the web server\r\r" + std::string(words));
}

void tellCables(Run& run) {
  tellNoDevice(
      run,
      "Check cable connections between web server and device. Also check device communication settings such "
      "as  communication protocol, and baud rate. Then try the Wizard again.");
  endWizard(run);
}

bool connectsToBridge(Run& run, NetworkChannel& channel) {
  run.view.wizardLooks("Testing the connection to " + channel.NetHost + ", port " +
                       numberText(channel.NetPort) + "...");
  const double start = host<Clock>().now();
  channel.connect();
  publish(run, 1);
  if (!waitFor(channel.socketConnected, testConnectLimit)) {
    run.view.wizardSays(
        "Web server not found.  Check the TCP/IP address and port number and make sure that the web server "
        "is connected properly and try again");
    endWizard(run);
    return false;
  }
  run.view.wizardSays("The connection with the web server was done");
  channel.socketData = False;
  if (waitFor(channel.socketData, listenLimit - (host<Clock>().now() - start))) {
    run.view.wizardSays(
        "Data has unexpectedly been received.  If using Relayon/Ethernet hardware, please disable Host or "
        "Continuous mode");
  }
  return true;
}

void prepareSecondTry(Run& run, NetworkChannel& channel, bool onTerminalServerPort) {
  channel.socket().close();
  if (onTerminalServerPort) run.view.chooseBridgePort(bridgePort::terminalServer);
  waitOut(retryRest);
}

// The line returns what is sent: a modem or a wiring fault, and nothing that a further try would mend.
void stopAtEcho(Run& run, NetworkChannel& channel) {
  channel.socket().close();
  Global.DetectionDone = 1;
  run.view.wizardStops();
  run.view.wizardAdds(
      "\rThe serial port is either connected to a modem Or there exists a wiring problem.\r\rTo leave "
      "Connection Wizard , click Cancel.");
}

void tellWhatAnswered(Run& run, NetworkChannel& channel, std::int16_t code) {
  const Complaint* complaint = complaintOf(code);
  if (code == lineEchoes) {
    stopAtEcho(run, channel);
  } else if (complaint != nullptr) {
    tellNoDevice(run, complaint->words);
  } else {
    tellCables(run);
  }
}

// Tries a second time where that may help. False: the verdict stands in the wizard.
bool findsUnitBehindBridge(Run& run, NetworkChannel& channel) {
  for (bool lastTry = false;; lastTry = true) {
    Global.DetectionDone = 0;
    if (!connectsToBridge(run, channel)) return false;
    publish(run, 2);
    const std::int16_t code = CheckForConnectedDevice(run, channel);
    publish(run, 3);
    Global.DetectionDone = 0;
    if (code == unitAnswers) return true;
    if (code == terminalServer) channel.socket().remotePort = channel.NetPort = bridgePort::terminalServer;
    if (lastTry || complaintOf(code) == nullptr) {
      tellWhatAnswered(run, channel, code);
      return false;
    }
    prepareSecondTry(run, channel, code == terminalServer);
  }
}

bool hearsVersion(Run& run, NetworkChannel& channel, std::string& lastReply) {
  run.view.wizardAdds("Found device connected to the web server");
  bool heard = false;
  for (int tries = 0; tries < versionTries; ++tries) {
    waitOut(versionRest);
    lastReply = channel.NetworkWritePort(framed("U03"));
    const std::size_t mark = lastReply.find("U03");
    if (mark == std::string::npos) continue;
    heard = true;
    Global.FirmwareVersion = lastReply.substr(mark + 3);
  }
  judgeVersion(run);
  publish(run, 4);
  if (heard) return true;
  run.view.wizardAdds("The device found is not an Torvane or LARKSPUR model");
  endWizard(run);
  return false;
}

bool knowsModel(Run& run, NetworkChannel& channel, const std::string& lastReply) {
  run.view.wizardAdds("Found the Torvane device");
  endWizard(run);
  std::int16_t type{};
  TcpCheckForMeterType(run, channel, type);
  if (type < 0) {
    run.view.wizardAdds("The device found is not a LARKSPUR or an Torvane model");
    return false;
  }
  Global.DetectionDone = 0;
  announce(run, type, lastReply);
  run.view.wizardFinishes(true);
  return true;
}

// The user should know when the bridge was reached by another port than he has typed.
void tellReplacedPort(Run& run, NetworkChannel& channel) {
  const std::string& typed = Memo[rec::txtTCPPort].text;
  const int port = channel.socket().remotePort;
  if (Val(typed) == port) return;
  run.view.box("Port " + numberText(std::int32_t{port}) + " replaced Port " + typed +
               " as needed to support proper communications.");
}

}  // namespace

void NetworkTestConnect(Run& run, NetworkChannel& channel) {
  channel.takeTarget();
  if (channel.socket().state() == SocketState::peerIsClosing) channel.socket().close();
  if (channel.socket().state() != SocketState::connected) {
    std::string lastReply;
    if (!findsUnitBehindBridge(run, channel) || !hearsVersion(run, channel, lastReply) ||
        !knowsModel(run, channel, lastReply)) {
      return;
    }
  }
  tellReplacedPort(run, channel);
}

std::int16_t CheckForConnectedDevice(Run& run, NetworkChannel& channel) {
  waitOut(settle);
  publish(run, 3);
  const std::string reply = channel.NetworkWritePort(framed("U01"));
  std::int16_t code = somethingElse;
  if (reply.starts_with(addressPart() + "U01")) code = unitAnswers;
  if (reply.starts_with('*')) code = lineEchoes;
  for (const Complaint& complaint : complaints) {
    if (contains(reply, complaint.mark)) code = complaint.code;
  }
  return code;
}

}  // namespace torvane
