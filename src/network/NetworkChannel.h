// SPDX-License-Identifier: MIT
// The channel through the bridge, on one TCP connection that stays open.
//
//                        serial line                           bridge
//   no reply in time     "Timeout\r" after 0.5 to 1.5 s        "TimeOut\r" after 3 s; "" without a connection
//   a reply is           bytes up to a line end                one arrival
//   a late reply         is passed over                        is taken for the next one
//
// What else differs stands in the rules of the two channels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Socket.h"
#include "protocol/Channel.h"

namespace torvane {

// What NetworkWritePort returns when no reply came in time.
inline constexpr std::string_view networkTimeoutMarker = "TimeOut\r";

class NetworkChannel : public Channel {
 public:
  // Takes the socket's events for itself.
  explicit NetworkChannel(Socket& socket);

  Socket& socket() { return socket_; }

  std::string NetHost;               // from Memo[txtTCPIPAddress], taken at every command
  std::int32_t NetPort = 0;          // from Memo[txtTCPPort]; -1, which leads nowhere, if that is too large
  std::int16_t socketConnected = 0;  // the connection came, or data did
  std::int16_t socketData = 0;       // data came since the last command went out
  std::string socketBuffer;          // the last arrival; never matched to a command
  std::int16_t& networkReadFailed = readFailed;
  std::string Text1;  // the replies one after the other, the last 4096 bytes of them

  // Adds a reply to Text1.
  void note(std::string_view reply);

  // Takes the target from the working image.
  void takeTarget();
  // Asks for a connection to it; socketConnected tells when it is there.
  void connect();

  // Sends the command and a carriage return, and returns the next arrival without its line end: empty when no
  // connection came within 3 s, the marker when no reply did.
  std::string NetworkWritePort(std::string_view command);
  std::string NetworkReadSet(std::string_view reg) { return readRegister(reg); }
  std::string NetworkWriteSet(std::string_view reg, const std::string& data) {
    return changeRegister(reg, data);
  }

  std::string command(std::string_view line) override { return NetworkWritePort(line); }

 private:
  void query(std::string_view framedCommand, std::string& reply) override;
  void noteReply(std::string_view reply) override { note(reply); }
  void connected();
  void arrived(std::size_t bytes);
  bool reachesBridge();
  bool reconnect();

  Socket& socket_;
};

}  // namespace torvane
