// SPDX-License-Identifier: MIT
// A unit read whole and put back, in virtual time.
#include "runs/ImageRun.h"

#include <random>

#include "core/Memo.h"
#include "core/Model.h"
#include "knowledge/Compare.h"
#include "protocol/EncodersMasks.h"
#include "protocol/Steps.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

class ImageRun : public RunBench {
 protected:
  // As any unit might be, but for what decides how it is spoken to.
  void scramble() {
    for (const std::string& reg : unit.registerNames()) {
      std::string hex = unit.registerHex(reg);
      for (char& digit : hex) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      if (reg != "1F" && reg != "21") unit.setRegister(reg, hex);
    }
  }
  UnitImage read() {
    window().history.begin();  // a window's history is that of one run
    beginOutcome(window().run, "COM 1");
    return readImage(window().run, window().channel);
  }
  void putBack(const UnitImage& copy) {
    beginOutcome(window().run, "COM 1");
    writeEncoded(window().run, window().channel, setupOf(copy, false));
  }

  std::mt19937 random{21};
};

TEST_F(ImageRun, HoldsEveryRegisterOfTheUnitAndTouchesNothing) {
  for (int round = 0; round < trials(50); ++round) {
    scramble();
    fillRandomMemo(random);
    const MemoArray memo = Memo;
    const Payloads before = registersOf(unit);
    const UnitImage image = read();
    for (const RegisterStep& row : registerSteps()) {
      if (row.rule == StepRule::barOnly) continue;
      EXPECT_EQ(digitsIn(image).at(static_cast<std::size_t>(registerPlace(row.reg))), before.at(row.reg));
    }
    EXPECT_EQ(registersOf(unit), before);
    MemoArray left = memo;
    for (int index = 0; index < MemoArray::count; ++index) EXPECT_EQ(Memo[index], left[index]) << index;
  }
  EXPECT_EQ(unit.count("W"), 0U);
}

TEST_F(ImageRun, SaysWhyARegisterCouldNotBeRead) {
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}, {"", "R05", sim::unlimited}};
  UnitImage image = read();
  EXPECT_EQ(contentOf(image, "16").reason, "refused \"?43\"");
  EXPECT_EQ(contentOf(image, "05").reason, "no answer");
  EXPECT_EQ(contentOf(image, "01").reason, "");
}

TEST_F(ImageRun, LeavesTheSixRegistersThatTheRkw77LineHasNot) {
  DeviceState.IsRkw77 = True;
  read();
  for (const char* reg : {"16", "15", "11", "24", "27", "28"}) {
    EXPECT_EQ(unit.count("R" + std::string(reg)), 0U) << reg;
  }
  EXPECT_EQ(unit.count("R"), 27U);
}

// Keep, change anything, put back: every bit that may be changed is as before.
TEST_F(ImageRun, PutsBackEveryBitThatMayBeChanged) {
  for (int round = 0; round < trials(1000); ++round) {
    chooseKind(between(random, 0, 3));
    scramble();
    const UnitImage copy = read();
    const Payloads kept = registersOf(unit);
    scramble();
    putBack(copy);
    ASSERT_TRUE(window().run.outcome.passed()) << summaryOf(window().run.outcome);
    for (const RegisterStep& row : registerSteps()) {
      if (row.rule == StepRule::barOnly || row.rule == StepRule::busFormat ||
          row.rule == StepRule::busAddress)
        continue;
      const auto mask = static_cast<std::uint32_t>(row.encode().mask);
      const auto number = [](const std::string& hex) { return std::stoul(hex, nullptr, 16); };
      EXPECT_EQ(number(unit.registerHex(row.reg)) & mask, number(kept.at(row.reg)) & mask) << row.reg;
    }
  }
}

TEST_F(ImageRun, PutsBackTheRestAfterACableWasPulled) {
  scramble();
  const UnitImage copy = read();
  scramble();
  unit.faults.silentAfter = 30;
  putBack(copy);
  EXPECT_EQ(window().run.outcome.end, RunEnd::wiring);
  unit.faults.silentAfter = sim::unlimited;
  putBack(copy);
  EXPECT_TRUE(window().run.outcome.passed());
  beginOutcome(window().run, "COM 1");
  EXPECT_TRUE(compare(read(), setupOf(copy, false)).same());
}

TEST_F(ImageRun, EndsAfterTheRegisterInHandWhenTheUserCancels) {
  host.whenever("frmSerial", [] {});
  Global.CancelFlag = True;
  read();
  EXPECT_EQ(window().run.outcome.end, RunEnd::cancelled);
  EXPECT_EQ(window().run.outcome.registers.size(), 1U);
}

}  // namespace

}  // namespace torvane
