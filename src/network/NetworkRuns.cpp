// SPDX-License-Identifier: MIT
// The runs through the bridge.
#include "network/NetworkRuns.h"

#include "core/Global.h"
#include "core/Model.h"
#include "network/NetworkAccess.h"
#include "network/NetworkChannel.h"
#include "protocol/Waits.h"
#include "protocol/WriteRun.h"
#include "reading/ReadRun.h"

namespace torvane {

namespace {

constexpr double restAfterConnecting = 0.5;

void doJob(Run& run, NetworkChannel& channel) {
  if (!run.reading) {
    NetworkWriteToDevice(run, channel);
  } else if (Global.ReadConfirmed != 0) {
    NetworkReadFromDevice(run, channel);
    Global.ReadConfirmed = 0;
  } else {
    run.view.box("endless loop");
  }
}

bool findsBridge(Run& run, NetworkChannel& channel) {
  run.view.upStat(false, "Looking for the web server...");
  if (channel.socket().state() != SocketState::closed) channel.socket().close();
  channel.takeTarget();
  channel.connect();
  if (!waitFor(channel.socketConnected, runConnectLimit)) {
    run.view.upStat(false, "Could not found web server...");
    return false;
  }
  run.view.upStat(false, "Found web server...");
  waitOut(restAfterConnecting);
  return true;
}

// A refusal that names its own reason keeps it.
void endWithoutUnit(Run& run) {
  if (run.outcome.end == RunEnd::finished) run.outcome.end = RunEnd::noUnit;
}

}  // namespace

std::int16_t NetworkFullConnect(Run& run, NetworkChannel& channel, DeviceDetection& detection,
                                const UnitJob& job) {
  run.view.offerCancel();
  if (!findsBridge(run, channel)) {
    run.outcome.end = RunEnd::noBridge;
    return job::noBridge;
  }
  if (!NetworkCommunicationOK(run, channel, detection, false)) {
    endWithoutUnit(run);
    return job::noUnit;
  }
  if (NetworkCommunicationOK(run, channel, detection, false)) {
    if (job) {
      job(run, channel);
    } else {
      run.view.commitTabs();
      doJob(run, channel);
    }
  } else {
    endWithoutUnit(run);
    run.view.notice("Unable to establish network connection");
  }
  return job::tookPlace;
}

void NetworkWriteToDevice(Run& run, NetworkChannel& channel) { writeConfiguration(run, channel); }

void NetworkReadFromDevice(Run& run, NetworkChannel& channel) {
  if (Global.ReadConfirmed != 0) readConfiguration(run, channel);
}

}  // namespace torvane
