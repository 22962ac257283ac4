// SPDX-License-Identifier: MIT
// The first probe of a unit: is one there, what version is it, can it be configured?
#include "protocol/Probe.h"

#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "protocol/SerialChannel.h"
#include "protocol/Waits.h"
#include "reading/MeterType.h"

namespace torvane {

namespace {

constexpr std::int16_t probeAll = 0;
constexpr std::int16_t resetOnly = 1;
constexpr std::int16_t probeForRun = 4;
constexpr std::int16_t probePause = 3;  // seconds between probe and version query
constexpr int versionTries = 3;
constexpr int versionHeard = 3;  // the stage that a heard version query sets

struct TypeWords {
  const char* unit;
  const char* status;
  const char* wizard;
};

// Of each type, 0 to 5; any other is the last. Process and strain units share the wizard's words.
constexpr TypeWords typeWords[] = {
    {"Larkspur", "LARKSPUR Controller found", "LARKSPUR Meter"},
    {"Torvane TMP", "Torvane TMP Controller found", "Torvane Temperature Meter"},
    {"Torvane PRC", "Torvane PRC Controller found", "Torvane Strain Meter"},
    {"Torvane STR", "Torvane STR Controller found", "Torvane Strain Meter"},
    {"Torvane GR2", "Torvane Gr2 Controller found", "Torvane Gr2 Controller"},
    {"Torvane RHT", "Torvane Hyt Controller found", "Torvane Hyt Meter"},
    {"Torvane", "Torvane Controller found", nullptr},
};

constexpr const char* wiringWords =
    "CommPort is either connected to a modem Or there exists a wiring problem.";

// One command of the probe. The windows are served after it: three silent ones must not hold them.
std::string ask(SerialChannel& channel, std::string_view command) {
  std::string reply = channel.writePort(framed(command));
  host<Clock>().yield();
  return reply;
}

// False: nothing that could be a unit, and the probe ends here.
bool screenShape(Run& run, const std::string& reply) {
  const bool echoed = contains(reply, "*");
  if (!echoed && reply.size() >= 3) return true;
  run.view.upStat(true, echoed ? wiringWords : "Not enough information returned");
  if (!echoed) return false;
  statement([&] {
    run.view.wizardSays(
        std::string(wiringWords) +
        "\rSelect 'Cancel' button then make any necessary comm port selections or wiring changes.");
  });
  return false;
}

// For the narrative only, but for the stage; option 4 is addressed and yet never passes here.
void judgeContent(Run& run, const std::string& reply, int& stage) {
  const bool plain = isUnaddressed() && reply.starts_with("R02");
  const bool addressed =
      (Hardware.BusMode == 1 || Hardware.BusMode == 3) && reply.starts_with(rs485AddressHex() + "R02");
  if (plain || addressed) {
    run.view.upStat(true, " So far so good...");
    ++stage;
  } else if (contains(reply, "Time")) {
    run.view.upStat(true, "No response.  TimeOut occurred.");
  } else if (contains(reply, "?")) {
    run.view.upStat(true, " Error was received. Command will be resent.");
  } else {
    run.view.upStat(true, " Something responded, but not an Torvane");
  }
}

// Asks three times, always; a later answer counts more than an earlier one. Returns the last reply.
std::string askVersion(Run& run, SerialChannel& channel, int& stage) {
  run.view.upStat(false, "Looking for version#...\r");
  std::string reply;
  for (int tries = 0; tries < versionTries; ++tries) {
    statement([&] { reply = ask(channel, "U03"); });
    if (contains(reply, "Time")) continue;
    const std::size_t mark = reply.find('U');
    if (mark != std::string::npos)
      Global.FirmwareVersion = reply.size() > mark + 3 ? reply.substr(mark + 3, 3) : "";
    stage = versionHeard;
  }
  judgeVersion(run);
  return reply;
}

void probe(Run& run, SerialChannel& channel, std::string& result) {
  run.view.upStat(false, "Looking for Torvane or LARKSPUR...");
  statement([&] { channel.openIfClosed(); });
  std::string reply;
  statement([&] { reply = ask(channel, "R02"); });
  publish(run, 1);
  run.view.upStat(true, "\rGot: " + reply);
  result = "ng";
  if (!screenShape(run, reply)) return;
  int stage = 0;
  judgeContent(run, reply, stage);
  pause(probePause);
  publish(run, 2);
  const std::string lastReply = askVersion(run, channel, stage);
  publish(run, 3);
  std::int16_t type = -1;
  if (stage >= versionHeard) statement([&] { ComCheckForMeterType(run, channel, type); });
  if (type < 0) {
    run.view.upStat(true, "not Ok");
    return;
  }
  result.clear();
  statement([&] { run.view.wizardSays("Meter detected.\r"); });
  announce(run, type, lastReply);
}

void shortCommand(Run& run, SerialChannel& channel, std::int16_t mode) {
  run.view.upStat(false, "Resetting...\r");
  statement([&] { channel.openIfClosed(); });
  statement([&] { ask(channel, mode == resetOnly ? "Z02" : "D03"); });
  publish(run, 1);
}

}  // namespace

std::string comOK(Run& run, SerialChannel& channel, std::int16_t& mode) {
  std::string result;
  const auto close = [&] { channel.closeIfOpen(); };
  try {
    if (mode == probeAll || mode == probeForRun) {
      if (mode == probeAll) resetDeviceState();
      mode = probeAll;
      probe(run, channel, result);
    } else {
      shortCommand(run, channel, mode);
    }
    statement(close);
  } catch (const RuntimeError& error) {
    run.view.box("Encountered an error:\r" + std::string(error.what()));
    result.clear();
    attempt(close);
  }
  return result;
}

void judgeVersion(Run& run) {
  if (Val(Global.FirmwareVersion) < 1.1) {
    run.revisionClass = revision::simpleMenu;
  } else if (run.revisionClass == revision::simpleMenu) {
    run.revisionClass = revision::simpleNoMore;
  }
}

void announce(Run& run, std::int16_t type, const std::string& lastReply) {
  DeviceState.DeviceClass = type;
  BaseModel = type == 0 ? rkw77BaseModel : factoryBaseModel;
  const std::string version = lastReply.size() > 3 ? lastReply.substr(3, 3) : "";
  constexpr std::size_t last = std::size(typeWords) - 1;
  const TypeWords& words = typeWords[type < static_cast<int>(last) ? static_cast<std::size_t>(type) : last];
  run.outcome.unit = words.unit;
  run.view.upStat(true, "Version is: " + version + "\r" + words.status);
  if (words.wizard == nullptr) return;
  statement([&] { run.view.wizardAdds(words.wizard); });
}

}  // namespace torvane
