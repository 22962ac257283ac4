// SPDX-License-Identifier: MIT
// One unit on one line, and the runs with it.
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
#include "platform/qt/io/Terminal.h"
#include "protocol/Probe.h"
#include "protocol/Waits.h"
#include "protocol/WriteRun.h"
#include "reading/MeterType.h"
#include "reading/ReadRun.h"
#include "runs/ImageRun.h"
#include "tool/Models.h"
#include "tool/Setup.h"
#include "tool/ToolHost.h"

namespace torvane::tool {

namespace {

constexpr std::int16_t probeForRun = 4;
constexpr std::int16_t resetOnly = 1;
constexpr int versionLength = 3;
constexpr std::int16_t pointToPoint = 0;  // Hardware.BusMode
constexpr std::int16_t onABus = 1;
constexpr std::size_t shortestReply = 3;

constexpr const char* checkLine = "Check the wiring, the line settings and the address.";
constexpr const char* otherLineHint = "Nothing was written. Use the setup of this unit's line, or --force.";
constexpr const char* nothingWritten = "Nothing was written.";

// What a run has said of something that did answer tells more than any advice.
[[noreturn]] void noUnit(const std::string& line, const std::string& said) {
  throw Problem(ExitCode::noUnit, "no unit answers on " + line,
                (said.empty() ? said : said + " ") + checkLine);
}

[[noreturn]] void noBridge(const std::string& line) {
  throw Problem(ExitCode::port, "no connection to the bridge at " + line,
                "Check its address, its port and the network.");
}

void mustNotBeCancelled() {
  if (wasInterrupted()) throw Problem(ExitCode::cancelled, "cancelled", nothingWritten);
}

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
  if (DeviceState.IsRkw77 != setupIsRkw77) otherLine(nothingWritten);
}

void Connection::otherLine(const char* hint) const {
  throw WrongUnit("a unit of the other line than the setup's answers on " + lineText(line_.name), hint);
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

UnitImage Connection::readAll() {
  UnitImage image = readImage(run_, channel());
  image.line = run_.outcome.line;
  noteLostLine(true);
  return image;
}

void Connection::putBack(const EncodedSetup& setup) {
  run_.reading = false;
  run_.outcome.registers.clear();
  const bool cameToItsEnd = attempt([&] { writeEncoded(run_, channel(), setup); });
  noteLostLine(cameToItsEnd);
}

// What the window does on the serial line, with a refusal in front of the first byte of a write.
void Connection::write(bool reset, bool force) {
  const std::int16_t isRkw77 = DeviceState.IsRkw77;
  const bool checksType = line_.name.overBridge() && !line_.model.empty();
  if (checksType) {
    meet();
    socket_->close();
    DeviceState.IsRkw77 = isRkw77;
  }
  begin(false);
  if (!line_.name.overBridge()) return writeOnSerial(reset, force, isRkw77);
  overBridge();
  if (reset && run_.outcome.end != RunEnd::noBridge && run_.outcome.end != RunEnd::noUnit &&
      run_.outcome.end != RunEnd::otherLine)
    attempt([this] { NetworkCommunicationOK(run_, network_, detection_, true); });
}

void Connection::overSerial(const std::function<void()>& job) { noteLostLine(attempt(job)); }

// A run that broke off, or a line that went away meanwhile, is a fault of the line, however many registers
// took before it or afterwards.
void Connection::noteLostLine(bool cameToItsEnd) {
  if (bridgeIsLost_ && !wasInterrupted()) run_.outcome.end = RunEnd::wiring;
  if (run_.outcome.end != RunEnd::finished) return;
  const bool goesOn =
      run_.outcome.count(Verdict::failed) == 0 || (!run_.outcome.lostItsPort() && isReachable());
  if (!cameToItsEnd || !goesOn) run_.outcome.end = RunEnd::wiring;
}

// A register without a bridge takes a quarter of a minute to fail; the others are not tried then.
void Connection::watchBridge() {
  const std::vector<RegisterOutcome>& registers = run_.outcome.registers;
  if (bridgeIsLost_ || registers.size() == registersWatched_) return;
  registersWatched_ = registers.size();
  if (registers.empty() || registers.back().verdict != Verdict::failed || isReachable()) return;
  bridgeIsLost_ = true;
  Global.CancelFlag = True;
}

bool Connection::isReachable() {
  try {
    if (line_.name.overBridge()) {
      connectToBridge();
    } else {
      port_->open();
      port_->close();
    }
    return true;
  } catch (const RuntimeError&) {
  } catch (const Problem&) {
  }
  return false;
}

void Connection::writeOnSerial(bool reset, bool force, std::int16_t isRkw77) {
  meetOnSerial();
  mustNotBeCancelled();
  if (DeviceState.IsRkw77 != isRkw77 && !force) otherLine(otherLineHint);
  mustFitModel();
  view_.upProg(3);
  overSerial([this] { writeConfiguration(run_, serial_); });
  if (!reset || run_.outcome.end == RunEnd::wiring) return;
  std::int16_t mode = resetOnly;
  comOK(run_, serial_, mode);
}

void Connection::overBridge() {
  view_.said.clear();
  view_.quiet = true;
  const std::int16_t came = NetworkFullConnect(run_, network_, detection_);
  if (came == job::noBridge) noBridge(lineText(line_.name));
  view_.quiet = false;
  if (came == job::noUnit && run_.outcome.end != RunEnd::otherLine) noUnit(lineText(line_.name), view_.said);
  if (run_.outcome.end == RunEnd::otherLine && !run_.reading) otherLine(nothingWritten);
  noteLostLine(true);
}

// Without a setup nothing tells which line the unit behind a bridge is of; it is asked, and then read as
// such.
void Connection::read() {
  if (namesLine(line_.model)) DeviceState.IsRkw77 = asFlag(lineOf(line_.model) == UnitFamily::rkw77);
  begin(true);
  Global.ReadConfirmed = 1;
  if (!line_.name.overBridge()) {
    meetOnSerial();
    mustFitModel();
    overSerial([this] { readConfiguration(run_, serial_); });
    return;
  }
  overBridge();
  if (run_.outcome.end != RunEnd::otherLine) return;
  if (namesLine(line_.model))
    noUnit(lineText(line_.name), "A unit of the other line than " + line_.model + " answers there.");
  DeviceState.IsRkw77 = asFlag(!onRkw77Line());
  begin(true);
  Global.ReadConfirmed = 1;
  overBridge();
}

}  // namespace torvane::tool
