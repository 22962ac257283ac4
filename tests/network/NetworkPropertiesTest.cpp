// SPDX-License-Identifier: MIT
// Properties of runs over the network, over random setups and units of every kind: they do to a unit, and
// make of it, exactly what runs over the serial line do.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

const int rounds = trials(60);       // straight from the records
const int networkRuns = trials(12);  // through the tabs

struct Meter {
  int kind;
  int address;  // 0: point to point
};

void PrintTo(const Meter& meter, std::ostream* out) { *out << meter.kind << " at " << meter.address; }

// One unit on COM 1, its twin behind the bridge.
class TwinUnits : public NetworkBench, public testing::WithParamInterface<Meter> {
 protected:
  static sim::UnitSetup twin() {
    const sim::UnitSetup setup = unitOfKind(GetParam().kind);
    return GetParam().address == 0 ? setup : onBus(setup, GetParam().address);
  }
  TwinUnits() : NetworkBench(twin()) {
    host.toleratesBoxes = true;
    chooseModel();
  }

  void chooseModel() {
    chooseKind(GetParam().kind);
    Hardware.BusMode = GetParam().address == 0 ? 0 : 1;
    Hardware.BusAddress = static_cast<std::int16_t>(GetParam().address == 0 ? 1 : GetParam().address);
  }
  void fill() {
    fillRandomMemo(random);
    chooseModel();
  }
  // What 1F and 21 hold is taken by a unit at power-on alone.
  void randomRegisters() {
    for (const std::string& reg : unit.registerNames()) {
      std::string digits(unit.registerHex(reg).size(), '0');
      for (char& digit : digits) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      if (GetParam().kind == kind::rkw77 && (reg == "11" || reg == "24")) continue;
      unit.setRegister(reg, digits);
      remote.setRegister(reg, digits);
    }
  }
  static std::vector<MemoField> records() {
    std::vector<MemoField> all;
    for (int record = 0; record < MemoArray::count; ++record) all.push_back(Memo[record]);
    return all;
  }
  // Records that hold something else than these.
  static std::vector<int> different(const std::vector<MemoField>& all) {
    std::vector<int> found;
    for (int record = 0; record < MemoArray::count; ++record) {
      if (Memo[record] != all[static_cast<std::size_t>(record)]) found.push_back(record);
    }
    return found;
  }
  static void putBack(const std::vector<MemoField>& all) {
    for (int record = 0; record < MemoArray::count; ++record) {
      Memo[record] = all[static_cast<std::size_t>(record)];
    }
  }
  // Two runs begin alike, on the tabs too: what was shown before has its say in what is shown next.
  void prepare(const std::vector<MemoField>& all) {
    for (int round = 0; round < 2; ++round) {
      putBack(all);
      showMemo();
    }
    putBack(all);
    chooseModel();
  }
  void showing(bool read) {
    auto& run = form<frmSerial>();
    run.readMode = asFlag(read);
    Global.ReadConfirmed = read ? 1 : 0;
    run.showModal();
    Global.ReadConfirmed = 0;
  }

  std::mt19937 random{static_cast<unsigned>(500 + 10 * GetParam().kind + GetParam().address)};
};

TEST_P(TwinUnits, HoldTheSameWhenWrittenOverEitherWay) {
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    fill();
    randomRegisters();
    window().WriteConfigurationToDevice();
    window().NetworkWriteToDevice();
    ASSERT_EQ(registersOf(remote), registersOf(unit));
    remote.takeLog();
    window().NetworkWriteToDevice();
    ASSERT_EQ(remote.count("W"), 0U);
    unit.takeLog();
  }
}

TEST_P(TwinUnits, GiveTheSameRecordsWhenReadOverEitherWay) {
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    fill();
    randomRegisters();
    const Payloads held = registersOf(remote);
    const auto before = records();
    prepare(before);
    const bool whole = attempt([this] { window().ReadConfigurationFromDevice(); });
    const auto overSerial = records();
    prepare(before);
    Global.ReadConfirmed = 1;
    EXPECT_EQ(attempt([this] { window().NetworkReadFromDevice(); }), whole);
    ASSERT_EQ(different(overSerial), std::vector<int>{});
    ASSERT_EQ(registersOf(remote), held);
  }
}

TEST_P(TwinUnits, HoldTheSameAfterWholeRunsThroughTheTabs) {
  for (int round = 0; round < networkRuns; ++round) {
    SCOPED_TRACE(round);
    fill();
    showMemo();
    showMemo();
    randomRegisters();
    chooseWay(true);
    showing(false);
    chooseModel();
    chooseWay(false);
    showing(false);
    ASSERT_EQ(registersOf(remote), registersOf(unit));
    chooseModel();
    remote.takeLog();
    showing(false);
    ASSERT_EQ(remote.count("W"), 0U);
    unit.takeLog();
  }
}

std::string meterName(const testing::TestParamInfo<Meter>& test) {
  constexpr const char* names[] = {"FullController", "AlarmsOnly", "SimpleMenu", "MonitorOnly", "Rkw77"};
  return std::string(names[test.param.kind]) + (test.param.address == 0 ? "" : "OnABus");
}

INSTANTIATE_TEST_SUITE_P(AllKinds, TwinUnits,
                         testing::Values(Meter{0, 0}, Meter{1, 0}, Meter{2, 0}, Meter{3, 0}, Meter{4, 0},
                                         Meter{0, 17}, Meter{1, 5}, Meter{2, 199}, Meter{3, 17},
                                         Meter{4, 17}),
                         meterName);

}  // namespace

}  // namespace torvane
