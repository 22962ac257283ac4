// SPDX-License-Identifier: MIT
// The wizard in front of a bridge, and the words of the test's verdicts.
#pragma once

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "network/NetworkChannel.h"
#include "tests/support/WizardBench.h"

namespace torvane {

inline const std::string connected = "The connection with the web server was done";
inline const std::string noDevice = "\r\rFound no device connected to the web server\r\r";
inline const std::string foundDevice = connected + "\rFound device connected to the web server";
inline const std::string foundTorvane = foundDevice + "\rFound the Torvane device";
inline const std::string noServer =
    "Web server not found.  Check the TCP/IP address and port number"
    " and make sure that the web server is connected properly and try again";
inline const std::string cables =
    "Check cable connections between web server and device. Also check device communication settings such as "
    " communication protocol, and baud rate. Then try the Wizard again.";
inline const std::string terminalServer =
    "Relayon response indicates that the Terminal Server mode has been activated.  Terminal Server mode uses "
    "Port 2000 by default.";
inline const std::string unasked =
    "Data has unexpectedly been received.  If using Relayon/Ethernet hardware, please disable Host or "
    "Continuous mode";

class NetworkTest : public WizardBench {
 protected:
  NetworkTest() {
    open(false);
    Global.AutoDetect = True;
    resetDeviceState();
  }

  void test() {
    Global.DetectionDone = 1;
    const double start = host.clock;
    status.NetworkTestConnect();
    seconds = host.clock - start;
  }
  bool finishes() { return wizard().cmdNext.caption() == "Finish"; }
  SocketState socket() { return status.winSock1->state(); }
  void onBus(std::int16_t mode, std::int16_t address) {
    Hardware.BusMode = mode;
    Hardware.BusAddress = address;
  }

  frmSerial& status = form<frmSerial>();
  double seconds = 0;
};

}  // namespace torvane
