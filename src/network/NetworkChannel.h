// SPDX-License-Identifier: MIT
// The command channel through the bridge: the serial channel's twin on one TCP connection that stays open.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Socket.h"

class NetworkChannel {
 public:
  // Takes the socket's events for itself.
  explicit NetworkChannel(Socket& socket);

  std::string NetHost;                 // from Memo[txtTCPIPAddress], taken at every command
  std::int32_t NetPort = 0;            // from Memo[txtTCPPort]
  std::int16_t socketConnected = 0;    // the connection came, or data did
  std::int16_t socketData = 0;         // data came since the last command went out
  std::string socketBuffer;            // the last arrival
  std::int16_t networkReadFailed = 0;  // the last NetworkReadSet gave up

  // Sends the command and a carriage return, and returns the next arrival without its line end: empty when no
  // connection came within 3 s, "TimeOut\r" when no reply did.
  std::string NetworkWritePort(std::string_view command);

 private:
  void connected();
  void arrived(std::size_t bytes);

  Socket& socket_;
};
