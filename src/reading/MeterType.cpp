// SPDX-License-Identifier: MIT
// Finding out what a unit is, from the end of one reply and the length of another. The serial line rests
// after a command, the bridge before each.
#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "network/NetworkChannel.h"
#include "platform/Host.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"

namespace {

constexpr float settle = 0.5F;  // seconds of rest

struct TypeCode {
  const char* ending;  // of the U04 reply
  std::int16_t type;
};

constexpr TypeCode typeCodes[] = {{"TMP", 1}, {"PRC", 2}, {"STR", 3}, {"GR2", 4}, {"RHT", 5}};
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

}  // namespace

void frmSerial::ComCheckForMeterType(std::int16_t& type) {
  checkMeterType(type, [this](const std::string& command, bool settles) {
    std::string reply = withoutReturn(channel.writePort(command));
    if (settles) Delay(settle);
    return reply;
  });
}

void frmSerial::TcpCheckForMeterType(std::int16_t& type) {
  checkMeterType(type, [this](const std::string& command, bool) {
    Delay(settle);
    return network->NetworkWritePort(command);
  });
}

void frmSerial::checkMeterType(std::int16_t& type, const TypeQuery& query) {
  type = none;
  const std::string reply = query(framed("U04"), false);
  publish(5);
  for (const auto& [ending, code] : typeCodes) {
    if (reply.ends_with(ending)) type = code;
  }
  if (type == 4) DeviceState.IsGr2 = 1;
  if (type == 5) DeviceState.IsHyt = 1;
  if (type == none) {
    type = anyOther;
    const std::string colours = query(framed("R11"), true);
    publish(6);
    type = typeByLength(colours.size());
  } else {
    // The command goes without "*": it is meant for units whose recognition character may be another.
    const std::string settings = query("^AE" + addressPart(), true);
    publish(7);
    checkBusSettings(type, settings);
  }
}

void frmSerial::checkBusSettings(std::int16_t& type, const std::string& reply) {
  if (!reply.starts_with("2A")) {
    messageBox(
        "Meter must be set with  \"*\" Recognition Character.  The configuraiton program will not be able to "
        "configure the meter.");
  } else if (reply.size() < 7) {
    type = none;
  } else if (type <= lastWithOptions) {
    const std::string flags = reply.substr(2, 2);
    if ((hexValue(reply.substr(4, 1)) & 8) != 0) DeviceState.AnalogFound = True;
    if (flags == "CC") DeviceState.IdFlagC = 1;
    if (flags.starts_with('S')) revisionClass = 2;
    if (flags == "EE" || flags == "FF") DeviceState.IdFlagE = 1;
  }
}
