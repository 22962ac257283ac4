// SPDX-License-Identifier: MIT
// What is said to change is what a write changes: whole writes to random units, over both ways.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>

#include "core/NumberText.h"
#include "knowledge/Compare.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

constexpr int kinds = 5;
const int serialRounds = trials(300);  // per kind, straight from the records
const int networkRounds = trials(6);   // per kind, through the window

class PredictedWrite : public NetworkBench, public testing::WithParamInterface<int> {
 protected:
  PredictedWrite() : NetworkBench(unitOfKind(GetParam())) {
    host.toleratesBoxes = true;
    chooseKind(GetParam());
  }

  void fill() {
    fillRandomMemo(random);
    Hardware.BusMode = 0;
    Hardware.BusAddress = 1;
  }
  void randomRegisters(sim::Unit& which) {
    for (const RegisterRow& row : registerRows()) {
      if (!hasRegister(row.reg, GetParam())) continue;
      std::string digits = which.registerHex(row.reg);
      // Half of them stay near what the setup wants, so that not everything changes.
      if (between(random, 0, 1) == 1) digits = encodeSetup().registers[place(row.reg)].payload;
      for (char& digit : digits) {
        if (between(random, 0, 9) == 0) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      }
      which.setRegister(row.reg, digits);
    }
    which.setRegister("1F", "34");
  }
  static std::size_t place(const char* reg) { return static_cast<std::size_t>(registerPlace(reg)); }
  UnitImage imageOfUnit(const sim::Unit& which) const {
    UnitImage image;
    image.kind = GetParam();
    for (const RegisterRow& row : registerRows()) {
      if (hasRegister(row.reg, GetParam())) contentOf(image, row.reg).payload = which.registerHex(row.reg);
    }
    return image;
  }
  static std::set<std::string> writtenTo(const sim::Unit& which) {
    std::set<std::string> regs;
    for (const sim::LogEntry& entry : which.log()) {
      if (entry.direction == '>' && entry.body.starts_with('W')) regs.insert(entry.body.substr(1, 2));
    }
    return regs;
  }
  static void expectAsSaid(const Comparison& said, const sim::Unit& which) {
    std::set<std::string> regs;
    for (const RegisterChange& change : said.registers) {
      if (change.written) regs.insert(change.reg);
      if (!change.before.empty()) {
        EXPECT_EQ(which.registerHex(change.reg), change.after) << change.reg;
      }
    }
    EXPECT_EQ(writtenTo(which), regs);
  }
  // A register that goes out has a setting to show for it, and the other way round.
  static void expectRowsForRegisters(const Comparison& said) {
    for (const RegisterChange& change : said.registers) {
      const auto isOf = [&](const DifferingSetting& each) {
        return each.reg == change.reg && each.change != Change::kept;
      };
      if (change.written) {
        EXPECT_TRUE(std::ranges::any_of(said.settings, isOf)) << change.reg;
      }
    }
  }

  std::mt19937 random{static_cast<unsigned>(40 + GetParam())};
};

TEST_P(PredictedWrite, ChangesWhatWasSaidOverTheSerialLine) {
  for (int round = 0; round < serialRounds; ++round) {
    SCOPED_TRACE(round);
    fill();
    randomRegisters(unit);
    const Comparison said = compare(imageOfUnit(unit), encodeSetup());
    unit.takeLog();
    window().WriteConfigurationToDevice();
    expectAsSaid(said, unit);
    expectRowsForRegisters(said);
    EXPECT_TRUE(compare(imageOfUnit(unit), encodeSetup()).count(Change::written) == 0)
        << "and then nothing differs";
    if (HasFailure()) return;
  }
}

TEST_P(PredictedWrite, ChangesWhatWasSaidOverTheBridge) {
  for (int round = 0; round < networkRounds; ++round) {
    SCOPED_TRACE(round);
    fill();
    chooseKind(GetParam());
    showMemo();
    showMemo();
    chooseWay(false);
    randomRegisters(remote);
    const UnitImage before = imageOfUnit(remote);
    remote.takeLog();
    runWrite();
    ASSERT_EQ(meterKind(), GetParam());
    // The records hold now what the tabs said, and that is what went out.
    expectAsSaid(compare(before, encodeSetup()), remote);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, PredictedWrite, testing::Range(0, kinds));

}  // namespace

}  // namespace torvane
