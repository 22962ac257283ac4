// SPDX-License-Identifier: MIT
// A TCP connection on Qt: as a client alone, and straight to the address, whatever proxies the system has.
#pragma once

#include <QObject>
#include <QTcpSocket>

#include "platform/Socket.h"

namespace torvane {

class QtSocket : public Socket {
 public:
  QtSocket();
  QtSocket(const QtSocket&) = delete;
  QtSocket& operator=(const QtSocket&) = delete;
  ~QtSocket() override = default;

  SocketState state() const override;
  void connect() override;
  void close() override;
  void sendData(std::string_view bytes) override;
  std::string getData() override;

 private:
  void takeArrival();
  void noteEnd(QAbstractSocket::SocketError error);

  QObject events_;  // receives what must wait for the event loop
  QTcpSocket socket_;
  std::string arrived_;                    // and not taken yet
  SocketState end_ = SocketState::closed;  // how the connection ended by itself: peerIsClosing or error
};

}  // namespace torvane
