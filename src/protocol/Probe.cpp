// SPDX-License-Identifier: MIT
// The first probe of a unit: is one there, what version is it, can it be configured?
#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/Host.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"
#include "wizard/frmWizard.h"

namespace {

// During the wizard's own search a failing statement is skipped; otherwise the first error ends the probe.
template <class Statement>
void statement(Statement&& run) {
  if (Global.AutoDetect == False) {
    run();
  } else {
    attempt(run);
  }
}

constexpr std::int16_t probeAll = 0;
constexpr std::int16_t resetOnly = 1;
constexpr std::int16_t probeForRun = 4;
constexpr std::int16_t probePause = 3;  // seconds between probe and version query
constexpr int versionTries = 3;
constexpr int versionHeard = 3;  // the stage that a heard version query sets

struct TypeWords {
  const char* status;
  const char* wizard;
};

// Of each type, 0 to 5; any other is the last. Process and strain units share the wizard's words.
constexpr TypeWords typeWords[] = {
    {"LARKSPUR Controller found", "LARKSPUR Meter"},
    {"Torvane TMP Controller found", "Torvane Temperature Meter"},
    {"Torvane PRC Controller found", "Torvane Strain Meter"},
    {"Torvane STR Controller found", "Torvane Strain Meter"},
    {"Torvane Gr2 Controller found", "Torvane Gr2 Controller"},
    {"Torvane Hyt Controller found", "Torvane Hyt Meter"},
    {"Torvane Controller found", nullptr},
};

constexpr const char* wiringWords =
    "CommPort is either connected to a modem Or there exists a wiring problem.";

void sayInWizard(const std::string& text) {
  statement([&] { form<frmWizard>().lblCaption.setCaption(text); });
}

}  // namespace

std::string frmSerial::comOK(std::int16_t& mode) {
  std::string result;
  const auto close = [this] {
    if (MSComm1->isOpen()) MSComm1->close();
  };
  try {
    if (mode == probeAll || mode == probeForRun) {
      if (mode == probeAll) resetDeviceState();
      mode = probeAll;
      probe(result);
    } else {
      shortCommand(mode);
    }
    statement(close);
  } catch (const RuntimeError& error) {
    messageBox("Encountered an error:\r" + std::string(error.what()));
    result.clear();
    attempt(close);
  }
  return result;
}

void frmSerial::probe(std::string& result) {
  upStat(false, "Looking for Torvane or LARKSPUR...");
  statement([this] {
    if (!MSComm1->isOpen()) MSComm1->open();
  });
  std::string reply;
  statement([&] { reply = ask("R02"); });
  publish(1);
  upStat(true, "\rGot: " + reply);
  result = "ng";
  if (!screenShape(reply)) return;
  int stage = 0;
  judgeContent(reply, stage);
  pause(probePause);
  publish(2);
  const std::string lastReply = askVersion(stage);
  publish(3);
  std::int16_t type = -1;
  if (stage >= versionHeard) statement([&] { ComCheckForMeterType(type); });
  if (type < 0) {
    upStat(true, "not Ok");
    return;
  }
  result.clear();
  sayInWizard("Meter detected.\r");
  announce(type, lastReply);
}

// False: nothing that could be a unit, and the probe ends here.
bool frmSerial::screenShape(const std::string& reply) {
  const bool echoed = contains(reply, "*");
  if (!echoed && reply.size() >= 3) return true;
  upStat(true, echoed ? wiringWords : "Not enough information returned");
  if (echoed) {
    sayInWizard(std::string(wiringWords) +
                "\rSelect 'Cancel' button then make any necessary comm port selections or wiring changes.");
  }
  return false;
}

// For the narrative only, but for the stage; option 4 is addressed and yet never passes here.
void frmSerial::judgeContent(const std::string& reply, int& stage) {
  const bool plain = isUnaddressed() && reply.starts_with("R02");
  const bool addressed =
      (Hardware.BusMode == 1 || Hardware.BusMode == 3) && reply.starts_with(rs485AddressHex() + "R02");
  if (plain || addressed) {
    upStat(true, " So far so good...");
    ++stage;
  } else if (contains(reply, "Time")) {
    upStat(true, "No response.  TimeOut occurred.");
  } else if (contains(reply, "?")) {
    upStat(true, " Error was received. Command will be resent.");
  } else {
    upStat(true, " Something responded, but not an Torvane");
  }
}

// Asks three times, always; a later answer counts more than an earlier one. Returns the last reply.
std::string frmSerial::askVersion(int& stage) {
  upStat(false, "Looking for version#...\r");
  std::string reply;
  for (int tries = 0; tries < versionTries; ++tries) {
    statement([&] { reply = ask("U03"); });
    if (contains(reply, "Time")) continue;
    const std::size_t mark = reply.find('U');
    if (mark != std::string::npos)
      Global.FirmwareVersion = reply.size() > mark + 3 ? reply.substr(mark + 3, 3) : "";
    stage = versionHeard;
  }
  judgeVersion();
  return reply;
}

void frmSerial::judgeVersion() {
  if (Val(Global.FirmwareVersion) < 1.1) {
    revisionClass = 2;
  } else if (revisionClass == 2) {
    revisionClass = 3;
  }
}

void frmSerial::announce(std::int16_t type, const std::string& lastReply) {
  DeviceState.DeviceClass = type;
  BaseModel = type == 0 ? "Rkw77[case]" : factoryBaseModel;
  const std::string version = lastReply.size() > 3 ? lastReply.substr(3, 3) : "";
  constexpr std::size_t last = std::size(typeWords) - 1;
  const TypeWords& words = typeWords[type < static_cast<int>(last) ? static_cast<std::size_t>(type) : last];
  upStat(true, "Version is: " + version + "\r" + words.status);
  if (words.wizard == nullptr) return;
  statement([&] { form<frmWizard>().addToCaption(words.wizard); });
}

// Shows the wizard's user how far the run is; the wizard is there to be looked at or not.
void frmSerial::publish(int stage) {
  statement([stage] { form<frmWizard>().prgProgress.setValue(wizardProgressValue(stage)); });
}

void frmSerial::shortCommand(std::int16_t mode) {
  upStat(false, "Resetting...\r");
  statement([this] {
    if (!MSComm1->isOpen()) MSComm1->open();
  });
  statement([&] { ask(mode == resetOnly ? "Z02" : "D03"); });
  publish(1);
}

std::string frmSerial::ask(std::string_view command) { return channel.writePort(framed(command)); }
