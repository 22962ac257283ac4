// SPDX-License-Identifier: MIT
// The first access to a unit behind the bridge, and its reset.
#include <algorithm>
#include <iterator>

#include "core/Model.h"
#include "network/NetworkChannel.h"
#include "platform/Host.h"
#include "protocol/SerialChannel.h"
#include "protocol/Waits.h"
#include "protocol/frmSerial.h"
#include "reading/DeviceDetection.h"

namespace {

constexpr double restBeforeReset = 3.0;  // seconds
constexpr double restBeforeWrite = 3.0;
constexpr double restBehindDetection = 1.0;

enum class Chosen { any, torvane, larkspur };  // the line that the setup is made for

struct Verdict {
  std::int32_t result;
  Chosen chosen;
  bool granted;
  const char* status;  // null: the status stays
  const char* box;     // null: no message
};

// A result that isn't here is refused without a word.
constexpr Verdict verdicts[] = {
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

const Verdict* verdictOn(std::int32_t result) {
  const Chosen chosen = DeviceState.IsRkw77 != False ? Chosen::larkspur : Chosen::torvane;
  const auto found = std::ranges::find_if(verdicts, [&](const Verdict& each) {
    return each.result == result && (each.chosen == Chosen::any || each.chosen == chosen);
  });
  return found == std::end(verdicts) ? nullptr : found;
}

}  // namespace

// No probe is sent in front of the detection: whatever stands behind the bridge counts as found until then.
bool frmSerial::NetworkCommunicationOK(bool reset) {
  if (reset) return resetOverNetwork();
  upStat(false, "Looking for device");
  if (readMode == False) waitOut(restBeforeWrite);
  upStat(false, "Found device");
  const Verdict* const verdict = verdictOn(detectFamily());
  if (verdict != nullptr) {
    if (verdict->status != nullptr) upStat(false, verdict->status);
    if (verdict->box != nullptr) messageBox(verdict->box);
  }
  waitOut(restBehindDetection);
  return verdict != nullptr && verdict->granted;
}

bool frmSerial::resetOverNetwork() {
  upStat(false, "Test access to the unit");
  waitOut(restBeforeReset);
  const std::string reply = network->NetworkWritePort(framed("Z02"));
  network->Text1.clear();
  network->note(reply);
  upStat(true, "Got " + reply + "\r");
  const bool done = reply.starts_with(addressPart() + "Z02");
  upStat(true, done ? "Request done" : "Request failed");
  return done;
}

std::int32_t frmSerial::detectFamily() {
  detection->Reset();
  std::int32_t result = family::undecided;
  while (result == family::undecided) {
    const std::string command = framed(detection->DetectionString());
    std::string reply = network->NetworkWritePort(command);
    if (contains(reply, "Time")) reply = network->NetworkWritePort(command);
    detection->CheckResponse(reply, result);
  }
  return result;
}
