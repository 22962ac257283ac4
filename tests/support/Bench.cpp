// SPDX-License-Identifier: MIT
// The bench that tests stand at.
#include "tests/support/Bench.h"

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/PartNumber.h"

namespace torvane {

void resetSharedState() {
  Memo.reset();
  Global.reset();
  resetModel();
  PartNumber.reset();
}

Bench::Bench(sim::UnitSetup setup) : unit(std::move(setup)) {
  resetSharedState();
  host.lines[1].unit = &unit;
  host.whenever("frmWarning", [] { form<frmWarning>().cmdOk.userClicked(); });
  const std::string persist = "Torvane Configuration/Persist/";
  host.settings[persist + "CommPort"] = "0";
  host.settings[persist + "Baud"] = "5";
}

Bench::~Bench() {
  unloadAllForms();
  resetSharedState();
}

frmBigFolder& Bench::start() { return form<frmBigFolder>(); }

void Bench::write() {
  Global.DeviceSpecified = True;
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdSerial.userClicked(); });
  host.expect([] { return isLoaded<frmWrite>() && form<frmWrite>().reachable(); },
              [] { form<frmWrite>().cmdCancel.userClicked(); });
  form<frmBigFolder>().cmdWrite.userClicked();
}

void Bench::read() {
  Global.DeviceSpecified = True;
  host.whenShown("frmRead", [] { form<frmRead>().cmdSerial.userClicked(); });
  form<frmBigFolder>().cmdOpen.userClicked();
}

frmSerial& Bench::channelWindow() {
  auto& window = form<frmSerial>();
  window.MSComm1->commPort = 1;
  window.MSComm1->settings = "9600,o,7,1";
  return window;
}

}  // namespace torvane
