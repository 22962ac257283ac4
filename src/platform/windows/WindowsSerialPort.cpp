// SPDX-License-Identifier: MIT
// A serial port of Windows, for builds without the toolkit's own.
#include "platform/windows/WindowsSerialPort.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constinit std::vector<WindowsSerialPort*> ports;  // all there are, written by constructor and destructor
constexpr std::uint32_t writeLimit = 1000;  // milliseconds in which some of a command must have gone out
constexpr double longestWait = 60.0;        // seconds; nobody waits that long for a reply

// The system's numbers of two faults that are found without asking it.
constexpr SystemError fileNotFound = 2;
constexpr SystemError deviceNotWorking = 31;

std::string_view nextPart(std::string_view& text) {
  const std::size_t comma = std::min(text.find(','), text.size());
  const std::string_view part = text.substr(0, comma);
  text.remove_prefix(std::min(comma + 1, text.size()));
  return part;
}

LineState::Parity parityOf(std::string_view letter) {
  if (letter.starts_with('o') || letter.starts_with('O')) return LineState::Parity::odd;
  if (letter.starts_with('e') || letter.starts_with('E')) return LineState::Parity::even;
  return LineState::Parity::none;
}

}  // namespace

std::string portPath(const std::string& device) {
  return device.starts_with("\\\\") ? device : "\\\\.\\" + device;
}

LineState lineStateOf(const std::string& settings) {
  std::string_view rest = settings;
  LineState line;
  const std::string_view baud = nextPart(rest);
  std::from_chars(baud.data(), baud.data() + baud.size(), line.baud);
  line.parity = parityOf(nextPart(rest));
  line.dataBits = nextPart(rest) == "7" ? 7 : 8;
  line.stopBits = nextPart(rest) == "2" ? 2 : 1;
  return line;
}

WindowsSerialPort::WindowsSerialPort(std::unique_ptr<SerialCalls> calls, Surroundings surroundings)
    : calls_(std::move(calls)), surroundings_(std::move(surroundings)) {
  ports.push_back(this);
}

WindowsSerialPort::~WindowsSerialPort() {
  std::erase(ports, this);
  WindowsSerialPort::close();
}

void WindowsSerialPort::open() {
  if (open_) throw RuntimeError(Fault::portFault, "The port is already open");
  if (commPort == 0) throw RuntimeError(Fault::portFault, "No port is chosen");
  const std::string device = surroundings_.deviceOf(commPort);
  if (device.empty()) fail(fileNotFound);
  if (const SystemError error = calls_->open(portPath(device)); error != 0) fail(error);
  open_ = true;
  if (const SystemError error = calls_->configure(lineStateOf(settings)); error != 0) fail(error);
}

void WindowsSerialPort::close() {
  waiting_.clear();
  if (std::exchange(open_, false)) calls_->close();
}

void WindowsSerialPort::fail(SystemError error) {
  close();
  throw RuntimeError(Fault::portFault, calls_->words(error));
}

void WindowsSerialPort::mustBeOpen() const {
  if (!open_) throw RuntimeError(Fault::portNotOpen, "The port is not open");
}

void WindowsSerialPort::endIfFaulty(const Transfer& transfer) {
  if (transfer.hangs) fail(deviceNotWorking);
  if (transfer.error != 0) fail(transfer.error);
}

void WindowsSerialPort::take(std::uint32_t milliseconds) {
  std::string bytes;
  const Transfer transfer = calls_->read(bytes, milliseconds);
  waiting_ += bytes;
  endIfFaulty(transfer);
  if (!bytes.empty()) return;
  if (const SystemError error = calls_->check(); error != 0) fail(error);
}

std::size_t WindowsSerialPort::inBufferCount() {
  mustBeOpen();
  if (waiting_.empty()) take(0);
  return waiting_.size();
}

std::string WindowsSerialPort::input() {
  mustBeOpen();
  take(0);
  return std::exchange(waiting_, {});
}

void WindowsSerialPort::output(std::string_view bytes) {
  mustBeOpen();
  while (!bytes.empty()) {
    const Transfer sent = calls_->write(bytes, writeLimit);
    endIfFaulty(sent);
    if (sent.bytes == 0) break;
    bytes.remove_prefix(std::min(sent.bytes, bytes.size()));
  }
  // What a stuck line has not taken by now must not go out with a later command.
  if (!bytes.empty()) calls_->dropUnsent();
}

void WindowsSerialPort::waitForInput(double seconds) {
  mustBeOpen();
  if (!waiting_.empty()) return;
  surroundings_.beforeWait();
  take(static_cast<std::uint32_t>(std::ceil(std::clamp(seconds, 0.0, longestWait) * 1000)));
}

void closeAllWindowsSerialPorts() {
  for (WindowsSerialPort* port : ports) port->close();
}

}  // namespace torvane
