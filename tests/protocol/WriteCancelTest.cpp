// SPDX-License-Identifier: MIT
// Cancel during a write: it is heard at the end of a step, at every step.
#include "core/Global.h"
#include "core/Model.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class WriteThatIsCancelled : public RunBench {
 protected:
  WriteThatIsCancelled() { chooseSetup(); }
};

struct CancelMoment {
  const char* name;
  int step;
  const char* status;  // what the window says at the moment of the click
};

std::ostream& operator<<(std::ostream& out, const CancelMoment& moment) { return out << moment.name; }

const CancelMoment moments[] = {
    {"InputType", 0, "Configuring Input Type..."},
    {"SetPoint1", 2, "Configuring Set-Point 1..."},
    {"ReadingScale", 4, "Configuring Reading Scale..."},
    {"ReadingOffset", 4, "Configuring Reading Offset..."},
    {"Alarm2", 8, "Configuring Alarm 2 Configuration..."},
    {"ColdJunction", 12, "Configuring Cold Junction Offset..."},
    {"SoakUnderTheLabelOfTheRamp", 23, "Configuring Ramp Time...\r00C8"},
    {"AnalogScale", 27, "Analog output scale.... "},
    {"Out1High", 29, " % Output 1 Hi..."},
};

class CancelDuringAWrite : public WriteThatIsCancelled, public testing::WithParamInterface<CancelMoment> {
 protected:
  CancelDuringAWrite() : before(registersOf(unit)) {
    for (const PlanRow& row : runPlan()) {
      if (*row.reg != 0 && row.step <= GetParam().step) reached[row.reg] = all.at(row.reg);
    }
  }

  const Payloads all = payloadsOfSetup(kind::fullController);
  const Payloads before;
  Payloads reached;
};

TEST_P(CancelDuringAWrite, StopsAtTheEndOfTheStepWithoutABoxOfItsOwn) {
  cancelAt(GetParam().status);
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(commandsOfRun(), writeTraffic(kind::fullController, reached, before));
  EXPECT_EQ(registersOf(unit), expectedRegisters(kind::fullController, reached, before));
  EXPECT_TRUE(boxTexts().empty());
  EXPECT_TRUE(status().ends_with("Done\r"));
}

TEST_P(CancelDuringAWrite, GoesOnUnchangedWhenAnsweredNo) {
  cancelAt(GetParam().status, Answer::no);
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(commandsOfRun(), writeTraffic(kind::fullController, all, before));
  EXPECT_EQ(narrative.after("3%"),
            (writeNarrative(all) + Lines{"RS 485 Address ....\r11\rSuccessDone\r", "100%"}));
}

TEST_P(CancelDuringAWrite, StillSendsTheResetAndThenSaysDone) {
  Global.ResetAfterWrite = True;
  cancelAt(GetParam().status);
  runWrite();
  EXPECT_EQ(commandsOfRun(), writeTraffic(kind::fullController, reached, before) + Lines{"*Z02"});
  EXPECT_EQ(status(), "Resetting...\rDone\r");
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

INSTANTIATE_TEST_SUITE_P(AtEachMoment, CancelDuringAWrite, testing::ValuesIn(moments),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(WriteThatIsCancelled, IsCompleteWhenCancelledDuringTheLastStep) {
  const Payloads before = registersOf(unit);
  cancelAt("RS 485 Address");
  runWrite();
  const Payloads all = payloadsOfSetup(kind::fullController);
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(registersOf(unit), expectedRegisters(kind::fullController, all, before));
  EXPECT_EQ(narrative.after("3%"),
            (writeNarrative(all) + Lines{"RS 485 Address ....\r11\rSuccessDone\r", "100%"}));
}

TEST_F(WriteThatIsCancelled, WritesTheFirstRegisterOnlyWhenCancelledDuringTheProbe) {
  cancelAt("Looking for Torvane");
  runWrite();
  EXPECT_EQ(commandsOfRun(), (Lines{"*R07", "*W0706", "*R07"}));
}

TEST_F(WriteThatIsCancelled, BreaksNoReadModifyWriteInTwoWhenCancelledInARetry) {
  unit.faults.refusals.push_back({"?50", "W07", 2});
  cancelAt("Configuring Input Type");
  runWrite();
  EXPECT_EQ(unit.registerHex("07"), "06");
  EXPECT_EQ(unit.count("W07"), 3U);
  EXPECT_EQ(unit.count("R08"), 0U);
}

TEST_F(WriteThatIsCancelled, ForgetsTheCancelOfAnEarlierRun) {
  Global.CancelFlag = True;
  runWrite();
  EXPECT_EQ(unit.registerHex("21"), "11");
}

}  // namespace

}  // namespace torvane
