// SPDX-License-Identifier: MIT
// The first access to a unit behind the bridge, and its reset.
#include "network/NetworkAccess.h"

#include <algorithm>
#include <iterator>

#include "core/Model.h"
#include "network/NetworkChannel.h"
#include "protocol/Waits.h"
#include "reading/DeviceDetection.h"

namespace torvane {

namespace {

constexpr double restBeforeReset = 3.0;  // seconds
constexpr double restBeforeWrite = 3.0;
constexpr double restAfterDetection = 1.0;

enum class Chosen { any, torvane, larkspur };  // the line that the setup is made for

struct AccessVerdict {
  std::int32_t result;
  Chosen chosen;
  bool granted;
  const char* status;  // null: the status stays
  const char* box;     // null: no message
};

// A result that isn't here is refused without a word.
constexpr AccessVerdict verdicts[] = {
    {family::torvane, Chosen::torvane, true, "Torvane controller found", nullptr},
    {family::torvane, Chosen::larkspur, false, "Torvane controller found",
     "An Torvane controller was found instead of device you specified. "
     "Please specify proper part number for connected device."},
    {family::larkspur, Chosen::larkspur, true, "LARKSPUR controller found", nullptr},
    {family::larkspur, Chosen::torvane, false, "LARKSPUR controller found",
     "A LARKSPUR controller was found instead of device you specified. "
     "Please specify proper part number for connected device."},
    {family::rateTotalizer, Chosen::any, false,
     "Quillon rate/totalizer controller was found but can't operate with this program",
     "Quillon rate/totalizer. Device access has been cancelled."},
    {family::quillon, Chosen::any, false, nullptr,
     "Quillon device was found but can't operate with this program. Device access has been cancelled."},
    {family::quillonStrain, Chosen::any, false, nullptr,
     "Quillon strain device was found but can't operate with this program. Device access has been "
     "cancelled."},
    {family::currentOrVoltage, Chosen::any, false, "QLNCAC-current or voltage controller found",
     "Quillon controller was found but can't operate with this program. Device access has been cancelled."},
    {family::unknown, Chosen::any, false, nullptr,
     "Device not recognized. Device access has been cancelled."},
};

const AccessVerdict* verdictOn(std::int32_t result) {
  const Chosen chosen = onRkw77Line() ? Chosen::larkspur : Chosen::torvane;
  const auto found = std::ranges::find_if(verdicts, [&](const AccessVerdict& each) {
    return each.result == result && (each.chosen == Chosen::any || each.chosen == chosen);
  });
  return found == std::end(verdicts) ? nullptr : found;
}

bool resetUnit(Run& run, NetworkChannel& channel) {
  run.view.upStat(false, "Test access to the unit");
  waitOut(restBeforeReset);
  const std::string reply = channel.NetworkWritePort(framed("Z02"));
  channel.Text1.clear();
  channel.note(reply);
  run.view.upStat(true, "Got " + reply + "\r");
  const bool done = reply.starts_with(addressPart() + "Z02");
  run.view.upStat(true, done ? "Request done" : "Request failed");
  return done;
}

std::int32_t detectFamily(NetworkChannel& channel, DeviceDetection& detection) {
  detection.Reset();
  std::int32_t result = family::undecided;
  while (result == family::undecided) {
    const std::string command = framed(detection.DetectionString());
    std::string reply = channel.NetworkWritePort(command);
    if (contains(reply, "Time")) reply = channel.NetworkWritePort(command);
    detection.CheckResponse(reply, result);
  }
  return result;
}

void tell(Run& run, const AccessVerdict& verdict) {
  if (verdict.status != nullptr) run.view.upStat(false, verdict.status);
  if (verdict.box != nullptr) run.view.box(verdict.box);
  if (verdict.result == family::torvane) run.outcome.unit = "Torvane";
  if (verdict.result == family::larkspur) run.outcome.unit = "Larkspur";
  const bool ofOtherLine = verdict.result == family::torvane || verdict.result == family::larkspur;
  if (!verdict.granted && ofOtherLine) run.outcome.end = RunEnd::otherLine;
}

}  // namespace

// No probe is sent in front of the detection: whatever stands behind the bridge counts as found until then.
bool NetworkCommunicationOK(Run& run, NetworkChannel& channel, DeviceDetection& detection, bool reset) {
  if (reset) return resetUnit(run, channel);
  run.view.upStat(false, "Looking for device");
  if (!run.reading) waitOut(restBeforeWrite);
  run.view.upStat(false, "Found device");
  const AccessVerdict* const verdict = verdictOn(detectFamily(channel, detection));
  if (verdict != nullptr) tell(run, *verdict);
  waitOut(restAfterDetection);
  return verdict != nullptr && verdict->granted;
}

}  // namespace torvane
