// SPDX-License-Identifier: MIT
// A serial port on a device file: opened exclusively, without handshake.
#include "platform/qt/io/QtSerialPort.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <system_error>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/qt/io/DeviceFile.h"
#include "platform/qt/io/PaintDue.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constinit std::vector<QtSerialPort*> ports;  // all there are, written by constructor and destructor
constexpr int writeLimit = 1000;             // milliseconds in which a command must have gone out

std::string wordsOf(std::errc error) { return std::make_error_code(error).message(); }

[[noreturn]] void fail(std::errc error) { throw RuntimeError(Fault::portFault, wordsOf(error)); }

// Faults that leave the port as good as it was: a wait that ran out, or something this device can't do.
bool isHarmless(QSerialPort::SerialPortError error) {
  return error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
         error == QSerialPort::UnsupportedOperationError || error == QSerialPort::NotOpenError;
}

// A read at a line that has hung up gives nothing rather than an error, and the toolkit then quotes an older
// one.
bool isHangUp(QSerialPort::SerialPortError error) {
  return error == QSerialPort::ResourceError || error == QSerialPort::ReadError;
}

QSerialPort::Parity parityOf(const QString& letter) {
  if (letter.startsWith('o', Qt::CaseInsensitive)) return QSerialPort::OddParity;
  if (letter.startsWith('e', Qt::CaseInsensitive)) return QSerialPort::EvenParity;
  return QSerialPort::NoParity;
}

}  // namespace

QtSerialPort::QtSerialPort(std::function<std::string(int)> deviceOf) : deviceOf_(std::move(deviceOf)) {
  ports.push_back(this);
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                   [this](QSerialPort::SerialPortError error) { noteFault(error); });
}

QtSerialPort::~QtSerialPort() {
  std::erase(ports, this);
  QtSerialPort::close();
}

void QtSerialPort::open() {
  if (isOpen()) throw RuntimeError(Fault::portFault, "The port is already open");
  close();
  if (commPort == 0) throw RuntimeError(Fault::portFault, "No port is chosen");
  device_ = deviceOf_(commPort);
  if (device_.empty() || isMissing(device_)) fail(std::errc::no_such_file_or_directory);
  if (isForbidden(device_)) fail(std::errc::permission_denied);
  removeEmptyLock(device_);
  port_.setPortName(shown(device_));
  applySettings();
  opening_ = true;
  const bool opened = port_.open(QIODevice::ReadWrite) || openAfterAKill();
  opening_ = false;
  fault_.clear();
  if (opened) return;
  // The toolkit's words for another program's lock speak of a missing right.
  if (isTaken(device_)) fail(std::errc::device_or_resource_busy);
  throw RuntimeError(Fault::portFault, typed(port_.errorString()));
}

// Before opening: a pseudo terminal then takes what it can't do without a word, later it would refuse.
void QtSerialPort::applySettings() {
  const QStringList parts = shown(settings).split(',');
  port_.setBaudRate(parts.value(0).toInt());
  port_.setParity(parityOf(parts.value(1)));
  port_.setDataBits(parts.value(2) == "7" ? QSerialPort::Data7 : QSerialPort::Data8);
  port_.setStopBits(parts.value(3) == "2" ? QSerialPort::TwoStop : QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
}

// A program that was killed leaves the device as it had set it. Where a device can't do all of the settings,
// the system then refuses them for making no difference at all; other stop bits in between make one.
bool QtSerialPort::openAfterAKill() {
  if (port_.error() != QSerialPort::UnsupportedOperationError) return false;
  const QSerialPort::StopBits wanted = port_.stopBits();
  port_.setStopBits(wanted == QSerialPort::OneStop ? QSerialPort::TwoStop : QSerialPort::OneStop);
  const bool opened = port_.open(QIODevice::ReadWrite);
  return port_.setStopBits(wanted) && opened;
}

void QtSerialPort::close() {
  fault_.clear();
  if (port_.isOpen()) port_.close();
}

bool QtSerialPort::isOpen() const { return port_.isOpen() && fault_.empty(); }

// A line that has hung up raises errors without end while the port is open; it is closed as soon as the
// toolkit's own code, which raised this one, has returned.
void QtSerialPort::noteFault(QSerialPort::SerialPortError error) {
  if (opening_ || isHarmless(error) || !fault_.empty()) return;
  fault_ = isHangUp(error) ? wordsOf(std::errc::io_error) : typed(port_.errorString());
  QMetaObject::invokeMethod(
      &port_,
      [this] {
        if (!fault_.empty() && port_.isOpen()) port_.close();
      },
      Qt::QueuedConnection);
}

void QtSerialPort::throwFault() {
  if (fault_.empty()) return;
  const std::string words = fault_;
  close();
  throw RuntimeError(Fault::portFault, words);
}

void QtSerialPort::mustBeOpen() {
  throwFault();
  if (!port_.isOpen()) throw RuntimeError(Fault::portNotOpen, "The port is not open");
}

// Some drivers say nothing when their adapter is pulled out.
void QtSerialPort::checkDevice() {
  if (!isMissing(device_)) return;
  close();
  fail(std::errc::no_such_device);
}

std::size_t QtSerialPort::inBufferCount() {
  mustBeOpen();
  if (port_.bytesAvailable() == 0) port_.waitForReadyRead(0);
  throwFault();
  return static_cast<std::size_t>(port_.bytesAvailable());
}

std::string QtSerialPort::input() {
  inBufferCount();
  return port_.readAll().toStdString();
}

void QtSerialPort::output(std::string_view bytes) {
  mustBeOpen();
  port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
  port_.flush();
  while (fault_.empty() && port_.bytesToWrite() > 0 && port_.waitForBytesWritten(writeLimit)) {
  }
  throwFault();
  // What a stuck line has not taken by now must not go out with a later command.
  if (port_.bytesToWrite() > 0) port_.clear(QSerialPort::Output);
}

void QtSerialPort::waitForInput(double seconds) {
  mustBeOpen();
  if (port_.bytesAvailable() > 0) return;
  paintWhatIsDue();
  const bool came = port_.waitForReadyRead(static_cast<int>(std::ceil(std::max(seconds, 0.0) * 1000)));
  throwFault();
  if (!came) checkDevice();
}

void closeAllQtSerialPorts() {
  for (QtSerialPort* port : ports) port->close();
}

}  // namespace torvane
