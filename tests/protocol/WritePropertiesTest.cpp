// SPDX-License-Identifier: MIT
// Properties of writes and reads over thousands of random setups, for every kind of unit.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

const int sequences = trials(1000);  // per kind of unit, straight from the records
const int roundTrips = trials(300);  // per kind of unit that takes every register
const int serialRuns = trials(40);   // per kind of unit, through the tabs

class RandomSetups : public RunBench, public testing::WithParamInterface<int> {
 protected:
  RandomSetups() : RunBench(unitOfKind(GetParam())) {
    host.toleratesBoxes = true;
    chooseKind(GetParam());
  }

  void fill() {
    fillRandomMemo(random);
    Hardware.BusMode = 0;
    Hardware.BusAddress = 1;
  }
  void randomRegisters() {
    for (const std::string& reg : unit.registerNames()) {
      if (GetParam() == kind::rkw77 && reg == "11") continue;
      std::string digits(unit.registerHex(reg).size(), '0');
      for (char& digit : digits) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      unit.setRegister(reg, digits);
    }
  }
  std::vector<MemoField> records() const {
    std::vector<MemoField> all;
    for (int record = 0; record < MemoArray::count; ++record) all.push_back(Memo[record]);
    return all;
  }
  void expectOnlyMaskedChanges(const Payloads& before) {
    const Payloads after = registersOf(unit);
    for (const PlanRow& row : runPlan()) {
      if (!after.contains(row.reg)) continue;
      const std::uint32_t kept = ~row.masks[static_cast<std::size_t>(GetParam())] & 0xFFFFFF;
      const auto old = static_cast<std::uint32_t>(hexValue(before.at(row.reg)));
      const auto now = static_cast<std::uint32_t>(hexValue(after.at(row.reg)));
      EXPECT_EQ(now & kept, old & kept) << row.reg;
    }
  }
  bool failed() const {
    return std::ranges::any_of(narrative.lines, [](const auto& line) { return line.ends_with("Fail"); });
  }

  std::mt19937 random{static_cast<unsigned>(20 + GetParam())};
};

TEST_P(RandomSetups, LeaveBitsOutsideTheMasksAloneAndAreHeldSoThatASecondWriteSendsNoW) {
  for (int round = 0; round < sequences; ++round) {
    SCOPED_TRACE(round);
    fill();
    randomRegisters();
    const Payloads before = registersOf(unit);
    window().WriteConfigurationToDevice();
    expectOnlyMaskedChanges(before);
    unit.takeLog();
    window().WriteConfigurationToDevice();
    ASSERT_EQ(unit.count("W"), 0U);
    ASSERT_FALSE(failed());
    narrative.lines.clear();
    window().lstNarrative.clear();
  }
}

TEST_P(RandomSetups, AreLeftAsTheyAreByAWrite) {
  for (int round = 0; round < serialRuns; ++round) {
    fill();
    const auto before = records();
    window().WriteConfigurationToDevice();
    ASSERT_EQ(records(), before) << "in round " << round;
  }
}

// What the layouts carry both ways, for units that take every register.
constexpr int texts[] = {rec::txtSp1,      rec::txtSp2,     rec::txtAl1HiSp, rec::txtAl1LoSp,
                         rec::txtAl2HiSp,  rec::txtAl2LoSp, rec::txtTAdjust, rec::txtOut1Reset,
                         rec::txtIDCode,   rec::txtLBATime, rec::txtRampT,   rec::txtSoakT,
                         rec::txtOut1Rate, rec::HSOut1Low,  rec::HSOut1High};
constexpr int values[] = {
    rec::cboTUnit,       rec::lstFiltConst,   rec::cboAl1Ctrl,       rec::cboAl1Latch,  rec::cboAl1Closure,
    rec::cboAl1Setup,    rec::chkAl1AutoPOn,  rec::chkLBAEnabled,    rec::cboAl2Ctrl,   rec::cboAl2Latch,
    rec::cboAl2Closure,  rec::cboAl2Setup,    rec::chkAl2Enabled,    rec::cboOut1Ctrl,  rec::cboOut1Action,
    rec::chkOut1AutoPID, rec::chkOut1Anti,    rec::chkOut1Start,     rec::HSOut1CycleT, rec::cboOut2Ctrl,
    rec::cboOut2Action,  rec::chkOut2AutoPID, rec::lstOut1DamFactor, rec::HSOut2CycleT, rec::chkRampEn,
    rec::chkSoakEn,
};
constexpr int flags[] = {rec::optInType,     rec::optInType + 1, rec::optInType + 2, rec::optDpoint,
                         rec::optDpoint + 1, rec::optDpoint + 2, rec::optDpoint + 3, rec::optIDCode,
                         rec::optIDCode + 1, rec::optIDCode + 2, rec::optAOutV,      rec::optAOutI,
                         rec::opt020mA,      rec::opt420mA};
constexpr int colors[] = {rec::cboNormalColor, rec::cboAl1WhenActiveColor, rec::cboAl2WhenActiveColor};

class RandomSetupsOfFullUnits : public RandomSetups {
 protected:
  void expectCarried(const std::vector<MemoField>& written) {
    const auto at = [&](int record) { return written[static_cast<std::size_t>(record)]; };
    for (int record : texts) EXPECT_EQ(Val(Memo[record].text), Val(at(record).text)) << "text " << record;
    for (int record : values) EXPECT_EQ(Memo[record].value, at(record).value) << "value " << record;
    for (int record : flags) EXPECT_EQ(Memo[record].flag, at(record).flag) << "flag " << record;
    for (int record : colors) EXPECT_EQ(Memo[record].extra, at(record).extra) << "colour " << record;
  }
};

TEST_P(RandomSetupsOfFullUnits, ComeBackFromTheUnitAsFarAsTheLayoutsCarryThem) {
  for (int round = 0; round < roundTrips; ++round) {
    SCOPED_TRACE(round);
    fill();
    // Only a process signal has more than one decimal: for any other the editor takes them away.
    if (Memo[rec::optDpoint + 2].flag != False || Memo[rec::optDpoint + 3].flag != False) {
      chooseOption(rec::optInType, 3, 2);
    }
    const auto written = records();
    window().WriteConfigurationToDevice();
    for (int record = 0; record < MemoArray::count; ++record) {
      if (record < rec::cboCommPort || record > rec::cboStop) Memo[record] = {};
    }
    chooseKind(GetParam());
    window().ReadConfigurationFromDevice();
    expectCarried(written);
    unit.takeLog();
    if (HasFailure()) return;
  }
}

TEST_P(RandomSetups, AreHeldAlsoWhenTheyGoThroughTheTabsInWholeRuns) {
  for (int round = 0; round < serialRuns; ++round) {
    SCOPED_TRACE(round);
    fill();
    chooseKind(GetParam());
    // Set points are shown before the reading format, so it takes a second look to show them in it.
    showMemo();
    showMemo();
    randomRegisters();
    unit.setRegister("1F", "34");
    const Payloads before = registersOf(unit);
    runWrite();
    ASSERT_EQ(meterKind(), GetParam());
    expectOnlyMaskedChanges(before);
    unit.takeLog();
    Hardware.BusAddress = 1;
    runWrite();
    ASSERT_EQ(unit.count("W"), 0U);
    ASSERT_GT(unit.count("R"), 18U) << "the run came to its end";
  }
}

TEST_P(RandomSetups, ChangeNothingInTheUnitWhenTheyAreReadBack) {
  for (int round = 0; round < serialRuns; ++round) {
    SCOPED_TRACE(round);
    randomRegisters();
    unit.setRegister("1F", "34");
    const Payloads before = registersOf(unit);
    runRead();
    ASSERT_EQ(registersOf(unit), before);
    EXPECT_EQ(unit.count("W"), 0U);
    unit.takeLog();
    Hardware.BusAddress = 1;
  }
}

std::string kindName(const testing::TestParamInfo<int>& test) {
  constexpr const char* names[] = {"FullController", "AlarmsOnly", "SimpleMenu", "MonitorOnly", "Rkw77"};
  return names[test.param];
}

INSTANTIATE_TEST_SUITE_P(AllKinds, RandomSetups, testing::Range(0, 5), kindName);
INSTANTIATE_TEST_SUITE_P(WithAllRegisters, RandomSetupsOfFullUnits,
                         testing::Values(kind::fullController, kind::alarmsOnly, kind::monitorOnly),
                         kindName);

}  // namespace

}  // namespace torvane
