// SPDX-License-Identifier: MIT
// A TCP connection on Qt.
#pragma once

#include <QTcpSocket>

#include "platform/Socket.h"

class QtSocket : public Socket {
 public:
  QtSocket();

  SocketState state() const override;
  void connect() override;
  void close() override;
  void sendData(std::string_view bytes) override;
  std::string getData() override;

 private:
  void takeArrival();

  QTcpSocket socket_;
  std::string arrived_;
  bool failed_ = false;
};
