// SPDX-License-Identifier: MIT
// A TCP connection on Qt.
#include "platform/qt/QtSocket.h"

#include "platform/qt/QtText.h"

QtSocket::QtSocket() {
  QObject::connect(&socket_, &QTcpSocket::connected, &socket_, [this] {
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (onConnect) onConnect();
  });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_, [this] { takeArrival(); });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_, [this] {
    failed_ = true;
    if (onError) onError();
  });
}

SocketState QtSocket::state() const {
  if (socket_.state() == QAbstractSocket::ConnectedState) return SocketState::connected;
  if (failed_) return SocketState::error;
  if (socket_.state() == QAbstractSocket::UnconnectedState) return SocketState::closed;
  return socket_.state() == QAbstractSocket::ClosingState ? SocketState::peerIsClosing
                                                          : SocketState::connecting;
}

void QtSocket::connect() {
  close();
  socket_.connectToHost(shown(remoteHost), static_cast<quint16>(remotePort));
}

void QtSocket::close() {
  socket_.abort();
  arrived_.clear();
  failed_ = false;
}

void QtSocket::sendData(std::string_view bytes) {
  socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string QtSocket::getData() { return std::exchange(arrived_, {}); }

void QtSocket::takeArrival() {
  const QByteArray bytes = socket_.readAll();
  arrived_.append(bytes.constData(),
                  std::min<std::size_t>(static_cast<std::size_t>(bytes.size()), mostKept - arrived_.size()));
  if (onDataArrival) onDataArrival(static_cast<std::size_t>(bytes.size()));
}
