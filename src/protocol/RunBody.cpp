// SPDX-License-Identifier: MIT
// The two bodies of a run, side by side.
#include "protocol/RunBody.h"

#include "core/Model.h"
#include "network/NetworkChannel.h"
#include "protocol/Steps.h"
#include "protocol/frmSerial.h"

namespace {

constexpr int setPoint1Step = 2;
constexpr int irrelevant = 0;

std::int32_t& serialMask(frmSerial& window) { return window.channel.registerMask; }
std::int32_t& networkMask(frmSerial& window) { return window.network->registerMask; }

bool neverFailed(const frmSerial&) { return false; }
bool networkFailed(const frmSerial& window) { return window.network->networkReadFailed != False; }

}  // namespace

const RunBody serialBody = {
    .readRegister = &frmSerial::ReadSerial,
    .writeRegister = &frmSerial::writeSerial,
    .registerMask = serialMask,
    .heedsWiring = true,
    .restsWithinSteps = false,
    .lastReadFailed = neverFailed,
    .failedStepsBorne = irrelevant,
    .writeSetPoint1 = "Configuring Set-Point 1...",
    .readSetPoint1 = "Reading Set-Point 1...",
};

const RunBody networkBody = {
    .readRegister = &frmSerial::NetworkReadSerial,
    .writeRegister = &frmSerial::NetworkWriteSerial,
    .registerMask = networkMask,
    .heedsWiring = false,
    .restsWithinSteps = true,
    .lastReadFailed = networkFailed,
    .failedStepsBorne = 3,
    .writeSetPoint1 = "Configuring SetPoint 1...",
    .readSetPoint1 = "Reading SetPoint 1...",
};

std::string RunBody::writeLabel(const RegisterStep& row) const {
  return row.step == setPoint1Step ? writeSetPoint1 : row.writeLabel;
}

std::string RunBody::readLabel(const RegisterStep& row) const {
  return row.step == setPoint1Step ? readSetPoint1 : row.readLabel;
}
