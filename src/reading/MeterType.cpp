// SPDX-License-Identifier: MIT
// Finding out what a unit is.
#include "reading/MeterType.h"

#include <functional>
#include <iterator>

#include "core/Model.h"
#include "core/NumberText.h"
#include "network/NetworkChannel.h"
#include "platform/Clock.h"
#include "protocol/SerialChannel.h"
#include "protocol/Waits.h"

namespace torvane {

namespace {

constexpr float settle = 0.5F;  // seconds of rest

constexpr std::int16_t lastWithOptions = 3;
constexpr std::int16_t anyOther = 6;
constexpr std::int16_t rkw77Line = 0;
constexpr std::int16_t none = -1;

std::string withoutReturn(std::string reply) {
  if (reply.ends_with('\r')) reply.pop_back();
  return reply;
}

std::int16_t typeByLength(std::size_t length) {
  if (length < 9) return anyOther;
  DeviceState.IsRkw77 = True;
  return length > 12 ? none : rkw77Line;
}

void checkBusSettings(Run& run, std::int16_t& type, const std::string& reply) {
  if (!reply.starts_with("2A")) {
    run.view.box(
        "Meter must be set with  \"*\" Recognition Character.  The configuraiton program will not be able to "
        "configure the meter.");
  } else if (reply.size() < 7) {
    type = none;
  } else if (type <= lastWithOptions) {
    const std::string flags = reply.substr(2, 2);
    if ((hexValue(reply.substr(4, 1)) & 8) != 0) DeviceState.AnalogFound = True;
    if (flags == "CC") DeviceState.IdFlagC = 1;
    if (flags.starts_with('S')) run.revisionClass = revision::simpleMenu;
    if (flags == "EE" || flags == "FF") DeviceState.IdFlagE = 1;
  }
}

// Sends a command and returns the reply without a carriage return; `settles`: the unit needs a rest after it.
using TypeQuery = std::function<std::string(const std::string& command, bool settles)>;

// A unit that says what it is isn't of the Rkw77 line, whatever was there before it.
void takeType(std::int16_t type) {
  DeviceState.IsRkw77 = False;
  if (type == 4) DeviceState.IsGr2 = 1;
  if (type == 5) DeviceState.IsHyt = 1;
}

void checkMeterType(Run& run, std::int16_t& type, const TypeQuery& query) {
  type = none;
  const std::string reply = query(framed("U04"), false);
  publish(run, 5);
  for (std::size_t code = 1; code < std::size(unitTypes); ++code) {
    if (reply.ends_with(unitTypes[code])) type = static_cast<std::int16_t>(code);
  }
  if (type == none) {
    type = anyOther;
    const std::string colours = query(framed("R11"), true);
    publish(run, 6);
    type = typeByLength(colours.size());
  } else {
    takeType(type);
    // The command goes without "*": it is meant for units whose recognition character may be another.
    const std::string settings = query("^AE" + addressPart(), true);
    publish(run, 7);
    checkBusSettings(run, type, settings);
  }
}

}  // namespace

void ComCheckForMeterType(Run& run, SerialChannel& channel, std::int16_t& type) {
  checkMeterType(run, type, [&channel](const std::string& command, bool settles) {
    std::string reply = withoutReturn(channel.writePort(command));
    host<Clock>().yield();
    if (settles) Delay(settle);
    return reply;
  });
}

void TcpCheckForMeterType(Run& run, NetworkChannel& channel, std::int16_t& type) {
  checkMeterType(run, type, [&channel](const std::string& command, bool) {
    Delay(settle);
    return channel.NetworkWritePort(command);
  });
}

}  // namespace torvane
