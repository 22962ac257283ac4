// SPDX-License-Identifier: MIT
// The channel on a serial line: bytes become replies.
#include "protocol/SerialChannel.h"

#include <algorithm>
#include <cmath>

#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"

namespace torvane {

namespace {

constexpr ChannelRules serialRules = {
    .readTries = 3,
    .firstReadTries = 2,
    .writeTries = 5,
    .loopFailsARead = true,
    .heedsWiring = true,
    .restsWithinSteps = false,
    .failedStepsBorne = noLimit,
    .networkLabels = false,
};

constexpr double replyLimit = 1.0;   // seconds of silence, counted from a start rounded to a whole second
constexpr double babbleLimit = 2.0;  // seconds of bytes that never pause and never end a line
constexpr std::size_t babbleSize = 1 << 20;  // bytes without a line end: no reply is a thousandth of it
constexpr std::size_t mnemonicLength = 3;    // a letter and two digits

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }
bool endsLine(std::string_view text) { return !text.empty() && isLineEnd(text.back()); }

// How a reply to the command begins. The one command without "*" has no echo, and its good reply begins with
// the code of "*".
std::string echoOf(std::string_view command) {
  if (!command.starts_with('*')) return "2A";
  return std::string(command.substr(1, addressPart().size() + mnemonicLength));
}

std::string gone(const RuntimeError& error) { return std::string(reasonPortGone) + ": " + error.what(); }

// A line that never falls silent must not hold the program, nor fill its memory. What already waits when a
// process comes back late is read all the same.
bool isBabble(std::size_t received, double elapsed) {
  return received > babbleSize || (received > 0 && elapsed > babbleLimit);
}

}  // namespace

SerialChannel::SerialChannel(SerialPort& port) : Channel(serialRules), port_(port) {}

void SerialChannel::openIfClosed() {
  if (port_.isOpen()) return;
  port_.open();
  everOpened_ = true;
}

void SerialChannel::closeIfOpen() {
  if (port_.isOpen()) port_.close();
}

std::string SerialChannel::writePort(std::string_view command) {
  if (port_.inBufferCount() > 0) port_.input();
  port_.output(std::string(command) + "\r");
  const std::string echo = echoOf(command);
  std::string reply = collectReply(echo);
  if (reply.empty()) {
    givenUp_.insert(echo);
    return std::string(timeoutMarker);
  }
  if (reply.ends_with('\n')) reply.pop_back();
  if (reply.ends_with('\r')) reply.pop_back();
  return reply;
}

// With its line end; empty when the time is over.
std::string SerialChannel::collectReply(std::string_view echo) {
  const double start = std::nearbyint(host<Clock>().now());
  std::size_t received = 0;
  std::string reply;
  while (!endsLine(reply)) {
    const bool waiting = port_.inBufferCount() > 0;
    const double elapsed = host<Clock>().now() - start;
    if (waiting ? isBabble(received, elapsed) : elapsed > replyLimit) return "";
    if (!waiting) {
      port_.waitForInput(replyLimit - elapsed);
      continue;
    }
    const std::string chunk = port_.input();
    received += chunk.size();
    reply += chunk;
    if (endsLine(reply)) dropStaleLines(reply, echo);
  }
  return reply;
}

// A line feed in front of a reply belongs to the line before it; a line that echoes a command which was given
// up on is that command's reply.
void SerialChannel::dropStaleLines(std::string& reply, std::string_view echo) const {
  const auto isStale = [&](std::string_view line) {
    const auto echoes = [line](const std::string& old) { return line.starts_with(old); };
    return !line.starts_with(echo) && std::ranges::any_of(givenUp_, echoes);
  };
  while (true) {
    reply.erase(0, std::min(reply.find_first_not_of('\n'), reply.size()));
    const std::size_t end = reply.find_first_of("\r\n");
    if (end == reply.npos || !isStale(std::string_view(reply).substr(0, end))) return;
    reply.erase(0, end + 1);
  }
}

// Opened fresh for every register: that clears a port which a failure has left open.
void SerialChannel::beginRegister() {
  endRegister();
  linkFault.clear();
  try {
    port_.open();
    everOpened_ = true;
  } catch (const RuntimeError& error) {
    linkFault = gone(error);
  }
}

void SerialChannel::endRegister() {
  attempt([this] { closeIfOpen(); });
}

void SerialChannel::query(std::string_view framedCommand, std::string& reply) {
  try {
    reply = writePort(framedCommand);
    linkFault.clear();
  } catch (const RuntimeError& error) {
    if (linkFault.empty()) linkFault = gone(error);
  }
}

void SerialChannel::betweenCommands() { host<Clock>().yield(); }

}  // namespace torvane
