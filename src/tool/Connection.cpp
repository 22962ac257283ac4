// SPDX-License-Identifier: MIT
// One unit on one line: taken, opened, asked what it is. The runs with it stand in ConnectionRuns.cpp.
#include "tool/Connection.h"

#include <algorithm>
#include <utility>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "network/NetworkAccess.h"
#include "network/NetworkRuns.h"
#include "platform/Ports.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"
#include "platform/qt/io/DeviceFile.h"
#include "protocol/Probe.h"
#include "protocol/Waits.h"
#include "reading/MeterType.h"
#include "tool/LineProblems.h"
#include "tool/Models.h"
#include "tool/Setup.h"
#include "tool/ToolHost.h"

namespace torvane::tool {

namespace {

constexpr std::int16_t probeForRun = 4;
constexpr int versionLength = 3;
constexpr std::int16_t pointToPoint = 0;  // Hardware.BusMode
constexpr std::int16_t onABus = 1;
constexpr std::size_t shortestReply = 3;

std::unique_ptr<SerialPort> portOf(const LineArguments& line) {
  if (ToolHost* const machine = toolHost()) machine->device = line.name.device;
  auto port = host<Ports>().makeSerialPort();
  port->commPort = line.name.device.empty() ? line.name.commPort : 1;
  port->settings = chooseLine(line);
  return port;
}

}  // namespace

Connection::Connection(const LineArguments& line)
    : line_(line),
      port_(portOf(line)),
      serial_(*port_),
      socket_(host<Ports>().makeSocket()),
      network_(*socket_) {
  Global.CancelFlag = False;
  takeLine();
  if (!line_.name.overBridge()) mustBeOpenable();
  if (line_.name.overBridge()) view_.watchLine = [this] { watchBridge(); };
}

// For as long as there is a run with it.
void Connection::takeLine() {
  ToolHost* const machine = toolHost();
  if (machine == nullptr) return;
  const std::string line =
      line_.name.overBridge() ? lineText(line_.name) : machine->deviceOf(port_->commPort);
  if (line.empty()) return;
  lock_.emplace(line);
  if (lock_->take()) return;
  const auto holder = lock_->holder();
  throw Problem(ExitCode::port, lineText(line_.name) + " is in use",
                holder ? holder->program + " (process " + std::to_string(holder->process) + ") has it."
                       : "See torvane-unit ports.");
}

void Connection::mustBeOpenable() {
  try {
    port_->open();
    port_->close();
  } catch (const RuntimeError& fault) {
    const std::string device = toolHost() == nullptr ? "" : toolHost()->deviceOf(port_->commPort);
    const auto holder = device.empty() ? std::nullopt : deviceHolder(device);
    const std::string who = holder ? holder->program + " (process " + std::to_string(holder->process) +
                                         ") has " + device + " open."
                                   : "See torvane-unit ports.";
    throw Problem(ExitCode::port, lineText(line_.name) + ": " + fault.what(), who);
  }
}

Channel& Connection::channel() {
  if (line_.name.overBridge()) return network_;
  return serial_;
}

void Connection::begin(bool reading) {
  run_.reading = reading;
  beginOutcome(run_,
               line_.name.overBridge() ? lineText(line_.name) : lineText(line_.name) + " " + port_->settings);
}

// A register is reported when the run shows what became of it.
void Connection::onRegister(std::function<void(const RegisterOutcome&)> tell) {
  view_.onStatus = [this, tell = std::move(tell), told = std::size_t{0}]() mutable {
    const std::vector<RegisterOutcome>& registers = run_.outcome.registers;
    for (told = std::min(told, registers.size()); told < registers.size(); ++told) tell(registers[told]);
  };
}

std::string Connection::askVersionOnce() {
  if (line_.name.overBridge()) {
    connectToBridge();
    return network_.command(framed("U03"));
  }
  serial_.openIfClosed();
  std::string reply = serial_.command(framed("U03"));
  serial_.closeIfOpen();
  return reply;
}

// What another address has to say late is no answer.
bool Connection::answers(std::optional<int> address) {
  Hardware.BusMode = address ? onABus : pointToPoint;
  if (address) Hardware.BusAddress = static_cast<std::int16_t>(*address);
  const std::string reply = askVersionOnce();
  return reply.size() >= shortestReply && !contains(reply, "Time") && !contains(reply, "*") &&
         reply.starts_with(addressPart());
}

// A reply carries the address of the unit that gives it. One without an address takes that of the command for
// a part of it, and refuses what it does not know.
void Connection::mustAnswerAtItsAddress() {
  const std::string reply = askVersionOnce();
  const std::string other = reply.substr(0, reply.find("U03"));
  if (reply.starts_with(addressPart() + "U03")) return;
  if (other.size() == 2 && other.find_first_not_of("0123456789ABCDEF") == std::string::npos)
    throw WrongUnit("a unit at address " + std::to_string(hexValue(other)) + answersHere());
  mustHaveAnAddress();
}

void Connection::mustHaveAnAddress() {
  if (!isUnaddressed() && answersWithoutAddress())
    throw WrongUnit("a unit without an address" + answersHere());
}

std::string Connection::answersHere() const {
  const std::string place = " answers on " + lineText(line_.name);
  return isUnaddressed() ? place : place + " in place of address " + std::to_string(Hardware.BusAddress);
}

bool Connection::answersWithoutAddress() {
  const std::int16_t mode = std::exchange(Hardware.BusMode, std::int16_t{0});
  const std::string reply = askVersionOnce();
  Hardware.BusMode = mode;
  return reply.starts_with("U03");
}

void Connection::meet() {
  if (namesLine(line_.model)) DeviceState.IsRkw77 = asFlag(lineOf(line_.model) == UnitFamily::rkw77);
  begin(true);
  if (line_.name.overBridge()) {
    meetOverBridge();
  } else {
    meetOnSerial();
  }
  mustNotBeCancelled();
  mustFitModel();
}

void Connection::meetForSetup() {
  const std::int16_t setupIsRkw77 = DeviceState.IsRkw77;
  meet();
  if (DeviceState.IsRkw77 != setupIsRkw77) otherLine(lineText(line_.name), nothingWritten);
}

// A port that fails in the middle of the probe ends it as if a unit had been found; what it said tells.
void Connection::meetOnSerial() {
  std::int16_t mode = probeForRun;
  view_.said.clear();
  const std::string found = comOK(run_, serial_, mode);
  if (!found.empty()) noUnit(lineText(line_.name), view_.said);
  if (view_.said.starts_with("Encountered an error")) {
    throw Problem(ExitCode::port, lineText(line_.name) + ": the port failed", view_.said);
  }
}

void Connection::connectToBridge() {
  if (socket_->state() == SocketState::connected) return;
  network_.takeTarget();
  network_.connect();
  if (!waitFor(network_.socketConnected, runConnectLimit)) noBridge(lineText(line_.name));
}

void Connection::meetOverBridge() {
  connectToBridge();
  view_.said.clear();
  view_.quiet = true;
  if (!NetworkCommunicationOK(run_, network_, detection_, false)) {
    if (run_.outcome.end != RunEnd::otherLine) noUnit(lineText(line_.name), view_.said);
    DeviceState.IsRkw77 = asFlag(!onRkw77Line());
    run_.outcome.end = RunEnd::finished;
  }
  view_.quiet = false;
  const std::int16_t isRkw77 = DeviceState.IsRkw77;
  std::int16_t type = -1;
  TcpCheckForMeterType(run_, network_, type);
  DeviceState.IsRkw77 = isRkw77;
  if (type >= 0) announce(run_, type, "");
  askVersion();
}

void Connection::askVersion() {
  const std::string reply = network_.command(framed("U03"));
  const std::size_t mark = reply.find('U');
  if (mark == std::string::npos || contains(reply, "Time")) return;
  Global.FirmwareVersion = reply.size() > mark + 3 ? reply.substr(mark + 3, versionLength) : "";
}

void Connection::mustFitModel() const {
  const std::string fault = modelFault(line_.model);
  if (!fault.empty()) throw WrongUnit(fault + " on " + lineText(line_.name));
}

}  // namespace torvane::tool
