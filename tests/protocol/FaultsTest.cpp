// SPDX-License-Identifier: MIT
// Writes to a unit or over a line that something is wrong with: what is said, how the run ends, and that no
// register outside the plan is written.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "knowledge/RegisterMap.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class FaultyWrite : public RunBench {
 protected:
  FaultyWrite() : before(registersOf(unit)) { chooseSetup(); }

  // Every register that a write command names belongs to the plan, and gets as many digits as it has.
  void expectOnlyPlannedWrites() const {
    for (const std::string& command : unit.commands()) {
      if (!command.starts_with("*W")) continue;
      const std::string reg = command.substr(2, 2);
      ASSERT_TRUE(all.contains(reg)) << command;
      EXPECT_EQ(command.size(), 4 + all.at(reg).size()) << command;
    }
  }
  void expectEnd() {
    EXPECT_TRUE(status().ends_with("Done\r")) << status();
    EXPECT_EQ(window().lblPercent.caption(), "100%");
    EXPECT_FALSE(window().visible());
    expectOnlyPlannedWrites();
  }
  // Each register holds what it held, or what the setup gives it.
  void expectNothingHalfWritten() const {
    const Payloads goal = expectedRegisters(kind::fullController, all, before);
    for (const auto& [reg, value] : registersOf(unit)) {
      EXPECT_TRUE(value == before.at(reg) || value == goal.at(reg)) << reg << " holds " << value;
    }
  }
  // From the moment at which the window says so.
  void from(const std::string& status_, std::function<void(sim::Faults&)> break_) {
    host.expect([this, status_] { return status().starts_with(status_); },
                [this, break_] { break_(unit.faults); });
  }
  long outcomes(const std::string& outcome) const {
    return std::ranges::count_if(narrative.lines, [&](const auto& line) {
      return line.ends_with("\r" + outcome) && line.starts_with("Looking") == false;
    });
  }

  const Payloads all = payloadsOfSetup(kind::fullController);
  const Payloads before;
};

constexpr auto registersInAll = static_cast<long>(registerCount);

// ---- a port that can't be opened

class PortThatFails : public FaultyWrite, public testing::WithParamInterface<const char*> {
 protected:
  PortThatFails() { host.lines[1].openFault = GetParam(); }
};

TEST_P(PortThatFails, IsReportedInTheWordsOfTheSystemAndTheRunComesToItsEnd) {
  host.expectBox("Encountered an error:");
  runWrite();
  EXPECT_EQ(boxTexts(), (Lines{std::string("Encountered an error:\r") + GetParam()}));
  EXPECT_EQ(outcomes("Fail"), registersInAll);
  EXPECT_TRUE(unit.commands().empty());
  EXPECT_EQ(narrative.after("3%")[2], "Configuring Input Type...\r06\rFail");
  expectEnd();
}

TEST_P(PortThatFails, IsReportedAgainByTheReset) {
  Global.ResetAfterWrite = True;
  host.expectBox(GetParam());
  host.expectBox(GetParam());
  runWrite();
  EXPECT_TRUE(narrative.has("97%"));
  expectEnd();
}

INSTANTIATE_TEST_SUITE_P(ForEachReason, PortThatFails,
                         testing::Values("No such file or directory", "Permission denied",
                                         "Device or resource busy"),
                         [](const auto& test) { return "Reason" + std::to_string(test.index); });

TEST_F(FaultyWrite, WithoutAPortChosenTellsSoAndFailsInEveryRegister) {
  window().MSComm1->commPort = 0;
  host.expectBox("Encountered an error:\rNo port is chosen");
  runWrite();
  EXPECT_EQ(window().lblTarget.caption(), "No serial port is chosen");
  EXPECT_EQ(outcomes("Fail"), registersInAll);
  expectEnd();
}

// ---- silence

TEST_F(FaultyWrite, TakesAUnitThatFallsSilentAfterItsVersionForOneWithAWiringProblem) {
  unit.faults.silentAfter = 4;
  host.expectBox(wiringMessage);
  runWrite();
  EXPECT_EQ(boxTexts(), Lines{wiringMessage});
  EXPECT_EQ(narrative.after("3%"), (Lines{"Configuring Input Type...\r", "Configuring Input Type...\r06\r",
                                          "Configuring Input Type...\r06\rFail",
                                          "Configuring Input Type...\r06\rFailDone\r", "100%"}));
  EXPECT_FALSE(narrative.has("6%")) << "a dead line shows at 3 percent";
  expectEnd();
}

TEST_F(FaultyWrite, StopsAtTheRegisterBeforeWhichTheUnitFallsSilent) {
  from("Configuring Set-Point 2...\rA001F4\rSuccess", [](sim::Faults& faults) { faults.silentAfter = 0; });
  host.expectBox(wiringMessage);
  runWrite();
  EXPECT_EQ(boxTexts(), Lines{wiringMessage});
  EXPECT_EQ(host.boxes[0].icon, Icon::none);
  EXPECT_EQ(host.boxes[0].title, "");
  EXPECT_EQ(commandsOfRun().back(), "*R03") << "a step with two registers is done whole";
  EXPECT_EQ(unit.registerHex("02"), "A001F4") << "earlier registers stay written";
  EXPECT_EQ(status(), "Configuring Reading Offset...\r5186A0\rFailDone\r");
  expectEnd();
}

TEST_F(FaultyWrite, FailsInTheRegisterWithinWhichTheUnitFallsSilentAndStopsAtTheNext) {
  unit.faults.silentAfter = 6 + 3 + 1;  // the probe, the input type, the read of the next
  host.expectBox(wiringMessage);
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring Reading...\r4A\rFail"));
  EXPECT_EQ(status(), "Configuring Set-Point 1...\r2004D2\rFailDone\r");
  EXPECT_EQ(unit.count("W08"), 5U);
  expectEnd();
}

TEST_F(FaultyWrite, ComesToItsEndWheneverTheUnitFallsSilent) {
  host.toleratesBoxes = true;
  for (int heard = 4; heard < 96; ++heard) {
    SCOPED_TRACE(heard);
    for (const auto& [reg, value] : before) unit.setRegister(reg, value);
    unit.faults.silentAfter = heard;
    host.boxes.clear();
    runWrite();
    // Without an answer to its fifth question the probe takes the recognition character for another.
    EXPECT_LE(host.boxes.size(), heard == 5 ? 2U : 1U);
    expectEnd();
    expectNothingHalfWritten();
    unit.takeLog();
    Hardware.BusAddress = 1;
  }
}

// ---- the adapter goes away

TEST_F(FaultyWrite, GoesOnToTheEndOfThePlanWhenTheAdapterGoesAway) {
  unit.faults.hangupAt = 6 + 3 + 2;  // in the write of the second register
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring Reading...\r4A\rFail"));
  EXPECT_EQ(outcomes("Fail"), registersInAll - 1);
  EXPECT_TRUE(boxTexts().empty());
  EXPECT_EQ(unit.registerHex("07"), "06");
  expectEnd();
}

TEST_F(FaultyWrite, ComesToItsEndWheneverTheAdapterGoesAway) {
  host.toleratesBoxes = true;
  for (int heard = 1; heard < 96; ++heard) {
    SCOPED_TRACE(heard);
    unit.powerOn();
    for (const auto& [reg, value] : before) unit.setRegister(reg, value);
    unit.faults.hangupAt = heard;
    host.boxes.clear();
    runWrite();
    // Only the probe tells of it.
    EXPECT_EQ(boxTexts(), heard <= 6 ? Lines{"Encountered an error:\rInput/output error"} : Lines{});
    expectEnd();
    expectNothingHalfWritten();
    unit.takeLog();
    unit.faults.hangupAt = sim::unlimited;
  }
}

// ---- a loop in the wiring

TEST_F(FaultyWrite, TellsALoopFromTheStartAndTouchesNothing) {
  unit.faults.loopback = sim::unlimited;
  host.expectBox(noUnitMessage);
  runWrite();
  EXPECT_TRUE(
      status().ends_with("CommPort is either connected to a modem Or there exists a wiring problem."));
  EXPECT_EQ(unit.commands(), Lines{"*R02"});
}

TEST_F(FaultyWrite, StopsWithTheWiringMessageWhenALoopAppears) {
  from("Configuring Alarm 1 Low", [](sim::Faults& faults) { faults.loopback = sim::unlimited; });
  host.expectBox(wiringMessage);
  runWrite();
  EXPECT_EQ(boxTexts(), Lines{wiringMessage});
  EXPECT_EQ(status(), "Configuring Alarm 2 Configuration...\r24\rFailDone\r");
  EXPECT_EQ(unit.count("W0A"), 0U);
  EXPECT_TRUE(narrative.has("33%"));
  expectEnd();
}

TEST_F(FaultyWrite, StopsWithTheWiringMessageWhenALoopAppearsInAWrite) {
  unit.faults.answers["W08"] = "*W08";
  unit.faults.refusals.push_back({"", "R08", 0});
  host.expect([this] { return unit.count("W08") == 1; }, [this] { unit.faults.answers["R08"] = "*R08"; });
  host.expectBox(wiringMessage);
  runWrite();
  EXPECT_EQ(unit.count("W08"), 5U);
  EXPECT_EQ(status(), "Configuring Reading...\r4A\rFailDone\r");
  expectEnd();
}

// ---- refusals

struct Refusal {
  const char* code;
  bool stopsTheRun;  // when a first read meets it
};

std::ostream& operator<<(std::ostream& out, const Refusal& refusal) { return out << refusal.code; }

class RefusedWrite : public FaultyWrite, public testing::WithParamInterface<Refusal> {
 protected:
  std::string code = GetParam().code;
};

TEST_P(RefusedWrite, OfAReadStopsTheRunOnlyIfTheCommandOrItsFormIsBlamed) {
  unit.faults.refusals.push_back({code, "R08"});
  if (GetParam().stopsTheRun) host.expectBox(wiringMessage);
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring Reading...\r4A\rFail"));
  EXPECT_EQ(unit.count("W08"), GetParam().stopsTheRun ? 0U : 5U);
  EXPECT_EQ(unit.count("R21"), GetParam().stopsTheRun ? 0U : 2U);
  expectEnd();
}

TEST_P(RefusedWrite, OfAReadIsForgivenOnce) {
  unit.faults.refusals.push_back({code, "R08", 1});
  runWrite();
  EXPECT_EQ(outcomes("Success"), registersInAll);
  expectNothingHalfWritten();
  expectEnd();
}

TEST_P(RefusedWrite, OfAWriteIsTriedFiveTimesAndThePlanGoesOn) {
  unit.faults.refusals.push_back({code, "W08"});
  runWrite();
  EXPECT_EQ(unit.count("W08"), 5U);
  EXPECT_EQ(outcomes("Fail"), 1);
  EXPECT_EQ(unit.registerHex("08"), before.at("08"));
  EXPECT_EQ(unit.registerHex("21"), "11");
  EXPECT_TRUE(boxTexts().empty());
  expectEnd();
}

TEST_P(RefusedWrite, OfTheFirstWritesSucceedsInTheEnd) {
  unit.faults.refusals.push_back({code, "W08", 4});
  runWrite();
  EXPECT_EQ(outcomes("Success"), registersInAll);
  expectEnd();
}

TEST_P(RefusedWrite, OfEverythingEndsTheRun) {
  unit.faults.refusals.push_back({code, "R0"});
  unit.faults.refusals.push_back({code, "W"});
  host.toleratesBoxes = true;
  runWrite();
  EXPECT_EQ(narrative.has("6%"), !GetParam().stopsTheRun);
  expectEnd();
}

constexpr Refusal refusals[] = {{"?43", true}, {"?46", true}, {"?50", false}, {"?56", false}};

INSTANTIATE_TEST_SUITE_P(WithEachCode, RefusedWrite, testing::ValuesIn(refusals),
                         [](const auto& test) { return "Code" + std::string(test.param.code).substr(1); });

// ---- a register that never verifies

class StuckRegister : public FaultyWrite, public testing::WithParamInterface<std::string> {};

TEST_P(StuckRegister, FailsAloneAfterFiveWrites) {
  const std::string reg = GetParam();
  const std::string value(all.at(reg).size(), '2');
  if (reg != "1F" && reg != "21") unit.setRegister(reg, value);
  unit.faults.stuck[reg] = 0;
  runWrite();
  EXPECT_EQ(unit.count("W" + reg), 5U);
  EXPECT_EQ(outcomes("Fail"), 1);
  EXPECT_EQ(outcomes("Success"), registersInAll - 1);
  expectEnd();
}

TEST_P(StuckRegister, FailsAloneWhenABitTurnsOver) {
  const std::string reg = GetParam();
  if (reg != "1F" && reg != "21") unit.setRegister(reg, std::string(all.at(reg).size(), '2'));
  unit.faults.stuck[reg] = 1;
  runWrite();
  EXPECT_EQ(unit.count("W" + reg), 5U);
  EXPECT_EQ(outcomes("Fail"), 1);
  expectEnd();
}

std::vector<std::string> writtenRegisters() {
  std::vector<std::string> registers;
  for (const PlanRow& row : runPlan()) {
    if (*row.reg != 0) registers.emplace_back(row.reg);
  }
  return registers;
}

INSTANTIATE_TEST_SUITE_P(InEachRegister, StuckRegister, testing::ValuesIn(writtenRegisters()),
                         [](const auto& test) { return "Register" + test.param; });

}  // namespace

}  // namespace torvane
