// SPDX-License-Identifier: MIT
// The command channel through the bridge: the serial channel's twin on one TCP connection that stays open.
//
//                        serial line                           bridge
//   no reply in time     "Timeout\r" after 0.5 to 1.5 s        "TimeOut\r" after 3 s; "" without a connection
//   a reply is           bytes up to a line end                one arrival
//   reads                3 tries; a "*" fails                  5 tries; a "*" passes
//   first read of a      2 tries                               4 tries
//     change
//   a loop of the wires  is counted and marked                 is neither
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Socket.h"

// What NetworkWritePort returns when no reply came in time.
inline constexpr std::string_view networkTimeoutMarker = "TimeOut\r";

class NetworkChannel {
 public:
  // Takes the socket's events for itself.
  explicit NetworkChannel(Socket& socket);
  NetworkChannel(const NetworkChannel&) = delete;
  NetworkChannel& operator=(const NetworkChannel&) = delete;

  std::string NetHost;                 // from Memo[txtTCPIPAddress], taken at every command
  std::int32_t NetPort = 0;            // from Memo[txtTCPPort]; -1, which leads nowhere, if that is too large
  std::int16_t socketConnected = 0;    // the connection came, or data did
  std::int16_t socketData = 0;         // data came since the last command went out
  std::string socketBuffer;            // the last arrival; never matched to a command
  std::int16_t networkReadFailed = 0;  // the last NetworkReadSet gave up
  std::int32_t registerMask = 0;       // bits that the next NetworkWriteSet may change; 0 skips the register
  std::string Text1;                   // the replies one after the other, the last 4096 bytes of them

  // Adds a reply to Text1.
  void note(std::string_view reply);

  // Takes the target from the working image.
  void takeTarget();
  // Asks for a connection to it; socketConnected tells when it is there.
  void connect();

  // Sends the command and a carriage return, and returns the next arrival without its line end: empty when no
  // connection came within 3 s, the marker when no reply did.
  std::string NetworkWritePort(std::string_view command);
  // Reads a register ("07"): the whole accepted reply, or "Fail" after five tries.
  std::string NetworkReadSet(std::string_view reg);
  // Changes the masked bits of a register and verifies them: "Success", or "Fail" after five tries.
  std::string NetworkWriteSet(std::string_view reg, const std::string& data);

 private:
  void connected();
  void arrived(std::size_t bytes);
  bool reachesBridge();
  bool reconnect();
  std::string writeAndVerify(std::string_view reg, const std::string& merged);

  Socket& socket_;
};
