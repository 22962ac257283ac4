// SPDX-License-Identifier: MIT
// The command channel on a serial line.
#include "protocol/SerialChannel.h"

#include <cmath>

#include "core/Global.h"
#include "core/Model.h"
#include "platform/Host.h"

namespace {

constexpr double replyLimit = 1.0;   // seconds of silence, counted from a start rounded to a whole second
constexpr double babbleLimit = 2.0;  // seconds of bytes that never pause and never end a line
constexpr std::size_t babbleSize = 1 << 20;  // bytes without a line end: no reply is a thousandth of it
constexpr int readTries = 3;
constexpr int firstReadTries = 2;
constexpr int writeTries = 5;
constexpr int starsThatTell = 2;  // loop-backs that mark a wiring fault

bool endsLine(std::string_view chunk) { return chunk.ends_with('\r') || chunk.ends_with('\n'); }

// A line that never falls silent must not hold the program, nor fill its memory. What already waits when a
// process comes back late is read all the same.
bool isBabble(std::size_t received, double elapsed) {
  return received > babbleSize || (received > 0 && elapsed > babbleLimit);
}

bool isRefused(std::string_view reply) {
  return contains(reply, "?") || contains(reply, "*") || contains(reply, "Time");
}

}  // namespace

bool isUnaddressed() { return Hardware.BusMode == 0 || Hardware.BusMode == 2; }

std::string addressPart() { return isUnaddressed() ? std::string() : rs485AddressHex(); }

std::string framed(std::string_view command) { return "*" + addressPart() + std::string(command); }

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string dataOf(const std::string& reply) {
  const std::size_t start = isUnaddressed() ? 3 : 5;
  return reply.size() > start ? reply.substr(start) : std::string();
}

std::string SerialChannel::writePort(std::string_view command) {
  if (port_.inBufferCount() > 0) port_.input();
  port_.output(std::string(command) + "\r");
  const double start = std::nearbyint(host().now());
  std::string reply;
  std::string chunk;
  while (!endsLine(chunk)) {
    const bool waiting = port_.inBufferCount() > 0;
    const double elapsed = host().now() - start;
    if (waiting ? isBabble(reply.size(), elapsed) : elapsed > replyLimit) return std::string(timeoutMarker);
    if (waiting) {
      chunk = port_.input();
      reply += chunk;
    } else {
      port_.waitForInput(replyLimit - elapsed);
    }
  }
  if (chunk.ends_with('\n')) reply.pop_back();
  if (reply.ends_with('\r')) reply.pop_back();
  return reply;
}

std::string SerialChannel::ReadSet(std::string_view reg) {
  reopen();
  const std::string command = "R" + std::string(reg.substr(reg.size() < 2 ? 0 : reg.size() - 2));
  std::string result = "Fail";
  std::string reply;
  int stars = 0;
  bool accepted = false;
  for (int tries = 0; tries < readTries && !accepted; ++tries) {
    query(command, reply);
    accepted = !reply.empty() && !isRefused(reply);
    if (accepted) result = reply;
    if (contains(reply, "*")) ++stars;
    host().yield();
  }
  if (stars >= starsThatTell) wiringProblem = True;
  close();
  return result;
}

std::string SerialChannel::writeSet(std::string_view reg, const std::string& value) {
  reopen();
  if (registerMask == 0) return "Success";
  const std::string index(reg);
  std::string reply;
  for (int tries = 0; tries < firstReadTries; ++tries) {
    query("R" + index, reply);
    if (!isRefused(reply)) break;
  }
  if (contains(reply, "?4") || contains(reply, "Time") || contains(reply, "*")) {
    wiringProblem = True;
    return "Fail";
  }
  const std::string old = dataOf(reply);
  const std::string wanted = maskHex(value, registerMask);
  std::string status = "Success";
  if (maskHex(old, registerMask) != wanted) {
    status = writeAndVerify(index, orHex(wanted, maskHex(old, ~registerMask)), reply);
  }
  close();
  return status;
}

std::string SerialChannel::writeAndVerify(std::string_view reg, const std::string& merged,
                                          std::string reply) {
  const std::string index(reg);
  const std::string write = "W" + index + merged;
  const std::string read = "R" + index;
  const std::string good = addressPart() + read + merged;
  int stars = 0;
  for (int tries = 0; tries < writeTries; ++tries) {
    query(write, reply);
    query(read, reply);
    if (reply == good) return "Success";
    if (contains(reply, "*")) ++stars;
    host().yield();
  }
  if (stars >= starsThatTell) wiringProblem = True;
  return "Fail";
}

// Opened fresh for every register: that clears a port which a failure has left open.
void SerialChannel::reopen() {
  close();
  attempt([this] { port_.open(); });
}

void SerialChannel::close() {
  attempt([this] {
    if (port_.isOpen()) port_.close();
  });
}

// A port call that fails leaves the reply as it was.
bool SerialChannel::query(std::string_view command, std::string& reply) {
  return attempt([&] { reply = writePort(framed(command)); });
}
