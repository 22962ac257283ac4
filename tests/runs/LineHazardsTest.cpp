// SPDX-License-Identifier: MIT
// Whole runs over lines that are slow or untidy, but sound: every step succeeds, and no bit that a write has
// to leave alone is touched.
#include <algorithm>
#include <random>

#include "core/Memo.h"
#include "core/Model.h"
#include "protocol/Steps.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

struct Hazard {
  std::string name;
  double rate;  // baud
  void (*set)(sim::Faults& faults);
};

sim::UnitSetup atRate(double rate) {
  sim::UnitSetup setup;
  setup.lineRate = rate;
  return setup;
}

void crlfInBytes(sim::Faults& faults) {
  faults.lineEnd = "\r\n";
  faults.byteGap = 0.0001;
}
template <int tenths>
void slowWrites(sim::Faults& faults) {
  faults.slow = {{"W", tenths / 10.0}};
  faults.busy = true;
}

const Hazard hazards[] = {
    {"LineEndsInBothAt2400", 2400, crlfInBytes},
    {"LineEndsInBothAt4800", 4800, crlfInBytes},
    {"LineEndsInBothAt9600", 9600, crlfInBytes},
    {"LineEndsInBothAt19200", 19200, crlfInBytes},
    {"WritesTake600Milliseconds", 9600, slowWrites<6>},
    {"WritesTake700Milliseconds", 9600, slowWrites<7>},
    {"WritesTake800Milliseconds", 9600, slowWrites<8>},
    {"WritesTake900Milliseconds", 9600, slowWrites<9>},
    {"WritesTake1000Milliseconds", 9600, slowWrites<10>},
    {"WritesTake1100Milliseconds", 9600, slowWrites<11>},
    {"WritesTake1200Milliseconds", 9600, slowWrites<12>},
    {"WritesTake1300Milliseconds", 9600, slowWrites<13>},
    {"WritesTake1400Milliseconds", 9600, slowWrites<14>},
};

class LineHazards : public RunBench, public testing::WithParamInterface<Hazard> {
 protected:
  LineHazards() : RunBench(atRate(GetParam().rate)) {
    GetParam().set(unit.faults);
    Global.WarningsOff = True;
    host.toleratesBoxes = true;
  }

  // Bits that a write may not touch are the other way round in every register.
  void scramble(std::mt19937& random) {
    for (const std::string& reg : unit.registerNames()) {
      std::string hex = unit.registerHex(reg);
      for (char& digit : hex) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      if (reg != "1F" && reg != "21") unit.setRegister(reg, hex);
    }
  }
};

TEST_P(LineHazards, LeaveAWholeWriteSound) {
  std::mt19937 random{7};
  for (int round = 0; round < 12; ++round) {
    host.clock += between(random, 0, 999) / 1000.0;
    fillRandomMemo(random);
    showMemo();
    scramble(random);
    const Payloads before = registersOf(unit);
    runWrite();
    ASSERT_EQ(summaryOf(window().run.outcome).find("failed"), std::string::npos)
        << summaryOf(window().run.outcome);
    for (const RegisterOutcome& each : window().run.outcome.registers) {
      if (each.verdict != Verdict::written) continue;
      const auto mask = static_cast<std::uint32_t>(stepOf(each.reg)->encode().mask);
      const auto held = std::stoul(unit.registerHex(each.reg), nullptr, 16);
      EXPECT_EQ(held & ~mask, std::stoul(before.at(each.reg), nullptr, 16) & ~mask) << each.reg;
      EXPECT_EQ(held & mask, std::stoul(each.wanted, nullptr, 16) & mask) << each.reg;
    }
  }
}

TEST_P(LineHazards, LeaveAWholeReadSound) {
  std::mt19937 random{8};
  for (int round = 0; round < 6; ++round) {
    scramble(random);
    unit.setRegister("01", "2004D2");
    runRead();
    for (const RegisterOutcome& each : window().run.outcome.registers) {
      if (each.verdict == Verdict::read) EXPECT_EQ(each.before, unit.registerHex(each.reg)) << each.reg;
      EXPECT_TRUE(each.verdict == Verdict::read || each.reason == "not understood")
          << each.reg << each.reason;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, LineHazards, testing::ValuesIn(hazards),
                         [](const auto& test) { return test.param.name; });

// ---- a window that answers

// Between two commands to a silent unit the windows are served.
TEST_F(RunBench, ServesTheWindowsBetweenTheVersionQueriesOfASilentUnit) {
  unit.faults.silentAfter = 1;
  host.expectBox(noUnitMessage);
  std::vector<double> served;
  host.whenever("frmSerial", [&] { served.push_back(host.clock); });
  runWrite();
  std::vector<double> asked;
  for (const sim::LogEntry& entry : unit.log()) {
    if (entry.direction == '>') asked.push_back(entry.time);
  }
  ASSERT_EQ(asked.size(), 4U) << "the probe and three version queries";
  for (std::size_t at = 1; at < asked.size(); ++at) {
    const auto between = [&](double time) { return time > asked[at - 1] && time <= asked[at]; };
    EXPECT_TRUE(std::ranges::any_of(served, between)) << "before command " << at;
  }
}

}  // namespace

}  // namespace torvane
