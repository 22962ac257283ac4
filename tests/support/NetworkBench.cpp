// SPDX-License-Identifier: MIT
// The bench for runs over the network.
#include "tests/support/NetworkBench.h"

#include "core/Memo.h"
#include "core/Model.h"

namespace torvane {

Lines detectionTraffic(bool rkw77, const std::string& address) {
  const std::string star = "*" + address;
  const Lines once = {star + "X01", star + "R01", star + "R24", star + (rkw77 ? "R04" : "R25")};
  return once + once;
}

NetworkBench::NetworkBench(sim::UnitSetup setup) : RunBench(setup), remote(std::move(setup)) {
  host.bridges[{bridgeHost, bridgePort}] = &bridge;
  chooseWay(false);
}

void NetworkBench::chooseWay(bool serial) {
  Memo[rec::optCommunicationMode].flag = asFlag(serial);
  Memo[rec::optCommunicationMode + 1].flag = asFlag(!serial);
  form<frmBigFolder>().loadMemo(11);
}

Lines NetworkBench::commandsAfterDetection() const {
  const Lines all = remote.commands();
  const auto length = detectionTraffic(false).size();
  return all.size() < length ? Lines{} : Lines(all.begin() + static_cast<std::ptrdiff_t>(length), all.end());
}

}  // namespace torvane
