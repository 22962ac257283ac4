// SPDX-License-Identifier: MIT
// A TCP connection on Qt.
#include "platform/qt/io/QtSocket.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

bool isPort(int number) { return number >= 0 && number <= std::numeric_limits<quint16>::max(); }

}  // namespace

QtSocket::QtSocket() {
  socket_.setProxy(QNetworkProxy::NoProxy);
  socket_.setReadBufferSize(mostKept);
  // The option is set before anybody hears of the connection, and so before the first byte.
  QObject::connect(&socket_, &QTcpSocket::connected, &socket_,
                   [this] { socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1); });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_,
                   [this](QAbstractSocket::SocketError error) { noteEnd(error); });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_, [this] { takeArrival(); });
  // Asking for a connection may bring it, or its failure, at once.
  const auto raiseConnect = [this] {
    if (onConnect) onConnect();
  };
  QObject::connect(&socket_, &QTcpSocket::connected, &events_, raiseConnect, Qt::QueuedConnection);
}

SocketState QtSocket::state() const {
  if (end_ != SocketState::closed) return end_;
  switch (socket_.state()) {
    case QAbstractSocket::ConnectedState:
      return SocketState::connected;
    case QAbstractSocket::HostLookupState:
    case QAbstractSocket::ConnectingState:
      return SocketState::connecting;
    default:
      return SocketState::closed;
  }
}

void QtSocket::connect() {
  close();
  if (isPort(remotePort)) {
    socket_.connectToHost(shown(remoteHost), static_cast<quint16>(remotePort));
  } else {
    noteEnd(QAbstractSocket::UnsupportedSocketOperationError);
  }
}

void QtSocket::close() {
  socket_.abort();
  QCoreApplication::removePostedEvents(&events_);
  arrived_.clear();
  end_ = SocketState::closed;
}

void QtSocket::sendData(std::string_view bytes) {
  if (state() != SocketState::connected) return;
  socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
  socket_.flush();
}

std::string QtSocket::getData() { return std::exchange(arrived_, {}); }

void QtSocket::takeArrival() {
  const QByteArray bytes = socket_.readAll();
  if (bytes.isEmpty()) return;
  const auto size = static_cast<std::size_t>(bytes.size());
  arrived_.append(bytes.constData(), std::min(size, mostKept - arrived_.size()));
  if (onDataArrival) onDataArrival(size);
}

void QtSocket::noteEnd(QAbstractSocket::SocketError error) {
  if (error == QAbstractSocket::RemoteHostClosedError) {
    end_ = SocketState::peerIsClosing;
    return;
  }
  end_ = SocketState::error;
  const auto raiseError = [this] {
    if (onError) onError();
  };
  QMetaObject::invokeMethod(&events_, raiseError, Qt::QueuedConnection);
}

}  // namespace torvane
