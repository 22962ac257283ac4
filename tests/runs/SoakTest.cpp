// SPDX-License-Identifier: MIT
// A thousand cycles of writes and reads in one life of the program, for each kind of unit over each body.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

const int cycles = trials(1000);
constexpr std::size_t fewForms = 6;  // main, splash, status, hardware, and two warnings

struct SoakedUnit {
  int kind;
  bool serial;
};

void PrintTo(const SoakedUnit& soaked, std::ostream* out) {
  *out << soaked.kind << (soaked.serial ? " serial" : "");
}

class Soak : public NetworkBench, public testing::WithParamInterface<SoakedUnit> {
 protected:
  Soak() : NetworkBench(unitOfKind(GetParam().kind)) {
    host.toleratesBoxes = true;
    chooseUnit();
    chooseWay(GetParam().serial);
  }

  sim::Unit& talkedTo() { return GetParam().serial ? unit : remote; }

  void chooseUnit() {
    chooseKind(GetParam().kind);
    Hardware.BusMode = 0;
    Hardware.BusAddress = 1;
  }
  // Another setup on the tabs; the unit holds the one before, point to point.
  void edit() {
    fillRandomMemo(random);
    chooseUnit();
    // Set points are shown before the reading format, so it takes a second look to show them in it.
    showMemo();
    showMemo();
    chooseWay(GetParam().serial);
    talkedTo().setRegister("1F", "34");
  }
  void showing(bool read) {
    auto& run = form<frmSerial>();
    run.readMode = asFlag(read);
    Global.ReadConfirmed = read ? 1 : 0;
    run.showModal();
    Global.ReadConfirmed = 0;
    Hardware.BusAddress = 1;
  }
  // What tests note down grows, and is no part of the program.
  void forget() {
    unit.takeLog();
    remote.takeLog();
    bridge.takeLog();
    host.events.clear();
    host.boxes.clear();
    host.savedOrder.clear();
    narrative.lines.clear();
  }
  void expectWritten() {
    showing(false);
    EXPECT_GT(talkedTo().count("R"), 18U) << "the run came to its end";
    talkedTo().takeLog();
    showing(false);
    EXPECT_EQ(talkedTo().count("W"), 0U) << "the unit holds what was written";
  }
  void expectRead() {
    const Payloads held = registersOf(talkedTo());
    talkedTo().takeLog();
    showing(true);
    EXPECT_GT(talkedTo().count("R"), 20U) << "the run came to its end";
    EXPECT_EQ(talkedTo().count("W"), 0U);
    EXPECT_EQ(registersOf(talkedTo()), held);
  }

  std::mt19937 random{static_cast<unsigned>(900 + 2 * GetParam().kind + (GetParam().serial ? 1 : 0))};
};

TEST_P(Soak, WritesAndReadsAsOnTheFirstDay) {
  for (int cycle = 0; cycle < cycles && !HasFailure(); ++cycle) {
    SCOPED_TRACE(cycle);
    edit();
    expectWritten();
    expectRead();
    EXPECT_FALSE(form<frmSerial>().visible());
    EXPECT_LE(loadedForms().size(), fewForms);
    EXPECT_TRUE(host.failures.empty());
    forget();
  }
}

std::string soakName(const testing::TestParamInfo<SoakedUnit>& test) {
  constexpr const char* names[] = {"FullController", "AlarmsOnly", "SimpleMenu", "MonitorOnly", "Rkw77"};
  return std::string(names[test.param.kind]) + (test.param.serial ? "OverTheSerialLine" : "OverTheNetwork");
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, Soak,
                         testing::Values(SoakedUnit{0, true}, SoakedUnit{1, true}, SoakedUnit{2, true},
                                         SoakedUnit{3, true}, SoakedUnit{4, true}, SoakedUnit{0, false},
                                         SoakedUnit{1, false}, SoakedUnit{2, false}, SoakedUnit{3, false},
                                         SoakedUnit{4, false}),
                         soakName);

}  // namespace

}  // namespace torvane
