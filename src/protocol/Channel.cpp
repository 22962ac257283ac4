// SPDX-License-Identifier: MIT
// Registers read and changed: the same for every channel.
#include "protocol/Channel.h"

#include <algorithm>

#include "core/Global.h"
#include "core/Model.h"
#include "platform/Clock.h"

namespace torvane {

namespace {

constexpr int loopsThatTell = 2;  // echoes of a command that mark a wiring fault
constexpr std::size_t mostShown = 60;

std::string shortened(std::string_view text) {
  return std::string(text.substr(0, mostShown)) + (text.size() > mostShown ? "..." : "");
}

std::string indexOf(std::string_view reg) {
  return std::string(reg.substr(reg.size() < 2 ? 0 : reg.size() - 2));
}

}  // namespace

bool isUnaddressed() { return Hardware.BusMode == 0 || Hardware.BusMode == 2; }

std::string addressPart() { return isUnaddressed() ? std::string() : rs485AddressHex(); }

std::string framed(std::string_view command) { return "*" + addressPart() + std::string(command); }

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

bool isSame(std::string_view a, std::string_view b) { return a == b; }

std::string dataOf(const std::string& reply) {
  const std::size_t start = isUnaddressed() ? 3 : 5;
  return reply.size() > start ? reply.substr(start) : std::string();
}

std::string Channel::readRegister(std::string_view reg) {
  beginRegister();
  trace_ = {};
  readFailed = False;
  const std::string read = framed("R" + indexOf(reg));
  std::string reply;
  int loops = 0;
  bool accepted = false;
  for (int tries = 0; tries < rules_.readTries && !accepted; ++tries) {
    query(read, reply);
    noteReply(reply);
    accepted = !reply.empty() && !isRefused(reply);
    if (contains(reply, "*")) ++loops;
    host<Clock>().yield();
  }
  countLoops(loops);
  endRegister();
  if (accepted) {
    trace_.before = dataOf(reply);
    return reply;
  }
  trace_.reason = reasonOf(reply);
  readFailed = True;
  return "Fail";
}

// A register that can't even be read is given up; over a line that is heeded it marks a wiring fault, and the
// way stays open. Other refusals pass for an old value and fail the comparison at the end.
std::string Channel::changeRegister(std::string_view reg, const std::string& value) {
  beginRegister();
  trace_ = {};
  if (registerMask == 0) return "Success";
  const std::string index(reg);
  std::string reply;
  for (int tries = 0; tries < rules_.firstReadTries; ++tries) {
    query(framed("R" + index), reply);
    betweenCommands();
    if (!contains(reply, "?") && !contains(reply, "*") && !contains(reply, "Time")) break;
  }
  if (contains(reply, "?4") || contains(reply, "Time") || contains(reply, "*")) {
    if (rules_.heedsWiring) wiringProblem = True;
    trace_.reason = reasonOf(reply);
    return "Fail";
  }
  trace_.before = trace_.after = dataOf(reply);
  const std::string wanted = maskHex(value, registerMask);
  std::string status = "Success";
  if (!isSame(maskHex(trace_.before, registerMask), wanted)) {
    status = writeAndVerify(index, orHex(wanted, maskHex(trace_.before, ~registerMask)), reply);
  }
  endRegister();
  return status;
}

std::string Channel::writeAndVerify(const std::string& reg, const std::string& merged, std::string reply) {
  const std::string good = addressPart() + "R" + reg + merged;
  const std::string write = framed("W" + reg + merged);
  const std::string read = framed("R" + reg);
  trace_.sent = merged;
  int loops = 0;
  for (int tries = 0; tries < rules_.writeTries; ++tries) {
    query(write, reply);
    betweenCommands();
    query(read, reply);
    noteReply(reply);
    trace_.after = isRefused(reply) ? "" : dataOf(reply);
    if (isSame(reply, good)) return "Success";
    if (contains(reply, "*")) ++loops;
    host<Clock>().yield();
  }
  countLoops(loops);
  trace_.reason =
      trace_.after.empty() ? reasonOf(reply) : "differs after five writes: " + shortened(trace_.after);
  return "Fail";
}

bool Channel::isRefused(std::string_view reply) const {
  return contains(reply, "?") || contains(reply, "Time") || (rules_.loopFailsARead && contains(reply, "*"));
}

void Channel::countLoops(int loops) {
  if (rules_.heedsWiring && loops >= loopsThatTell) wiringProblem = True;
}

std::string Channel::reasonOf(std::string_view reply) const {
  if (!linkFault.empty()) return shortened(linkFault);
  if (contains(reply, "*")) return std::string(reasonLineEchoes);
  if (const auto mark = reply.find('?'); mark != reply.npos) {
    return "refused \"" + std::string(reply.substr(mark, 3)) + "\"";
  }
  return "no answer";
}

}  // namespace torvane
