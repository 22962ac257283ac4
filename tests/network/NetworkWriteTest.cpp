// SPDX-License-Identifier: MIT
// The write run over the network, in virtual time against a simulated unit behind a bridge.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/network/Meters.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

sim::UnitSetup setupOf(const Meter& meter) {
  const sim::UnitSetup setup = unitOfKind(meter.kind);
  return meter.address == 0 ? setup : onBus(setup, meter.address);
}

// The labels of a run over the network are those of the serial line but for one.
Lines overNetwork(Lines lines) {
  const std::string serial = "Configuring Set-Point 1...";
  for (std::string& line : lines) {
    if (line.starts_with(serial)) line = "Configuring SetPoint 1..." + line.substr(serial.size());
  }
  return lines;
}

class NetworkWriteToEachMeter : public NetworkBench, public testing::WithParamInterface<Meter> {
 protected:
  NetworkWriteToEachMeter() : NetworkBench(setupOf(GetParam())) {
    if (!isRkw77()) chooseKind(GetParam().kind);
    chooseSetup();
    if (isRkw77()) DeviceState.IsRkw77 = True;
    payloads = payloadsOfSetup(GetParam().kind, GetParam().address != 0);
    before = registersOf(remote);
    if (GetParam().address != 0) digits = rs485AddressHex();
  }
  static bool isRkw77() { return GetParam().kind == kind::rkw77; }

  Payloads payloads;
  Payloads before;
  std::string digits;
};

TEST_P(NetworkWriteToEachMeter, SendsTheRegistersOfThePlanLineByLineOnOneConnection) {
  runWrite();
  EXPECT_EQ(meterKind(), GetParam().kind);
  const Lines all =
      detectionTraffic(isRkw77(), digits) + writeTraffic(GetParam().kind, payloads, before, digits);
  EXPECT_EQ(remote.commands(), all);
  EXPECT_EQ(bridge.lines(), all);
  EXPECT_EQ(bridge.connections(), 1U);
  EXPECT_TRUE(unit.commands().empty()) << "the serial line is left alone";
}

TEST_P(NetworkWriteToEachMeter, LeavesTheSetupInTheUnit) {
  runWrite();
  EXPECT_EQ(registersOf(remote), expectedRegisters(GetParam().kind, payloads, before));
}

TEST_P(NetworkWriteToEachMeter, TellsEveryStepWithPayloadOutcomeAndPercentage) {
  runWrite();
  const Lines told = narrative.after(isRkw77() ? "LARKSPUR controller found" : "Torvane controller found");
  const auto run = std::ranges::find(told, "Configuring Input Type...\r");
  const std::string last = "RS 485 Address ....\r" + payloads.at("21") + "\rSuccess and Configuration Sent\r";
  EXPECT_EQ(Lines(run, told.end()), overNetwork(writeNarrative(payloads)) + Lines({last, "100%"}));
}

TEST_P(NetworkWriteToEachMeter, SendsNothingButReadsWhenTheUnitHoldsTheSetup) {
  runWrite();
  remote.takeLog();
  Hardware.BusAddress = static_cast<std::int16_t>(GetParam().address);
  runWrite();
  EXPECT_EQ(remote.count("W"), 0U);
  EXPECT_EQ(remote.commands(), detectionTraffic(isRkw77(), digits) +
                                   writeTraffic(GetParam().kind, payloads, registersOf(remote), digits));
}

INSTANTIATE_TEST_SUITE_P(AllKinds, NetworkWriteToEachMeter, testing::ValuesIn(meters),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- what differs from the serial line

class NetworkWrite : public NetworkBench {
 protected:
  NetworkWrite() { chooseSetup(); }
};

TEST_F(NetworkWrite, HeedsNoLoopOfTheWires) {
  window().channel.wiringProblem = True;
  remote.faults.answers["R07"] = "*R07";
  remote.faults.answers["R08"] = "*R08";
  runWrite();
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(window().channel.wiringProblem, True) << "it is left as it was";
  EXPECT_TRUE(narrative.has("Configuring Input Type...\r06\rFail"));
  EXPECT_EQ(remote.registerHex("21"), "11") << "the run goes on";
}

TEST_F(NetworkWrite, ShowsAFailAndGoesOnToTheNextRegister) {
  remote.faults.stuck["01"] = 0;
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring SetPoint 1...\r2004D2\rFail"));
  EXPECT_EQ(remote.count("W01"), 5U);
  EXPECT_EQ(remote.registerHex("02"), "A001F4");
}

TEST_F(NetworkWrite, ShowsTheWordsOfAnEncoderAndSendsNothing) {
  Memo[rec::txtRampT].text = "5:30";
  showMemo();
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring Ramp Time...\r!Ramp Time Format Error\rRamp Time Format Error"));
  EXPECT_EQ(remote.count("R0E") + remote.count("W0E"), 0U);
}

TEST_F(NetworkWrite, LeavesTheBusSettingsAloneWhenTheProtocolIsLeftAsFound) {
  chooseOption(rec::optRS232, 2, -1);
  Memo[rec::optNoChange].flag = True;
  showMemo();
  runWrite();
  EXPECT_EQ(remote.count("R1F") + remote.count("R21"), 0U);
  EXPECT_EQ(status(), " Bus Format ......\r and Configuration Sent\r");
}

TEST_F(NetworkWrite, BringsTheAddressOfTheNextCommandUpToDate) {
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 17);
}

TEST_F(NetworkWrite, KeepsTheWindowLoadedAndTheConnectionOpen) {
  runWrite();
  EXPECT_TRUE(isLoaded<frmSerial>());
  EXPECT_FALSE(window().visible());
  EXPECT_EQ(window().winSock1->state(), SocketState::connected);
  torvane::unload<frmSerial>();
  EXPECT_FALSE(isLoaded<frmSerial>());
}

TEST_F(NetworkWrite, EndsAtAnOverflowAndStillComesToItsEnd) {
  Memo[rec::txtSp2].text = "9999.9";
  showMemo();
  runWrite();
  EXPECT_EQ(remote.count("W02") + remote.count("R02"), 0U);
  EXPECT_EQ(remote.registerHex("01"), "2004D2");
  EXPECT_EQ(status(), "Configuring Set-Point 2...\r and Configuration Sent\r");
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

class NetworkWriteOfAnImpossibleScale : public NetworkWrite {
 protected:
  NetworkWriteOfAnImpossibleScale() {
    Memo[rec::txtIn1].text = "0500";
    Memo[rec::txtIn2].text = "0500";
    showMemo();
  }
};

TEST_F(NetworkWriteOfAnImpossibleScale, OnYesGoesOnWithoutScaleAndOffset) {
  host.expectBox("Skip Reading Offset and continue?", Answer::yes);
  runWrite();
  EXPECT_EQ(remote.count("R14") + remote.count("R03"), 0U);
  EXPECT_EQ(remote.registerHex("21"), "11");
}

TEST_F(NetworkWriteOfAnImpossibleScale, OnNoEndsWithNoFurtherStepAndTheReadingTabOnShow) {
  host.expectBox("Skip Reading Offset and continue?", Answer::no);
  runWrite();
  EXPECT_EQ(form<frmBigFolder>().tabBig.tab(), 3);
  EXPECT_EQ(remote.count("R09"), 0U);
  EXPECT_EQ(commandsAfterDetection().back(), "*R02");
  EXPECT_TRUE(status().ends_with("Reading Scale and Offset error and Configuration Sent\r"));
}

// ---- Cancel

TEST_F(NetworkWrite, StopsAtTheEndOfTheStepWhenCancelled) {
  cancelAt("Configuring Cold Junction Offset...");
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(commandsAfterDetection().back(), "*R25");
  EXPECT_EQ(remote.registerHex("25"), "A0000F") << "the step is finished";
  EXPECT_EQ(remote.count("R05"), 0U);
  EXPECT_TRUE(boxTexts().empty());
}

TEST_F(NetworkWrite, GoesOnWhenCancelIsAnsweredNo) {
  cancelAt("Configuring Cold Junction Offset...", Answer::no);
  runWrite();
  EXPECT_EQ(remote.registerHex("21"), "11");
}

TEST_F(NetworkWrite, CancelledDuringTheSearchStopsAfterTheFirstRegister) {
  cancelAt("Looking for device");
  runWrite();
  EXPECT_EQ(remote.registerHex("07"), "06");
  EXPECT_EQ(remote.count("R08"), 0U);
}

// ---- reset

TEST_F(NetworkWrite, SendsNoResetUnlessItIsAskedFor) {
  runWrite();
  EXPECT_EQ(remote.count("Z02"), 0U);
  EXPECT_FALSE(narrative.has("97%"));
}

TEST_F(NetworkWrite, SendsTheResetWhenAllIsWrittenThreeSecondsLater) {
  Global.ResetAfterWrite = True;
  runWrite();
  const auto& log = remote.log();
  ASSERT_GE(log.size(), 4U);
  EXPECT_EQ(log[log.size() - 2].text, "*Z02\r");
  EXPECT_GE(log[log.size() - 2].time - log[log.size() - 3].time, 3.0);
  EXPECT_LE(log[log.size() - 2].time - log[log.size() - 3].time, 3.04);
  const std::string testing = "Test access to the unit";
  EXPECT_EQ(narrative.after("RS 485 Address ....\r11\rSuccess"),
            (Lines{testing, testing + "Got Z02\r", testing + "Got Z02\rRequest done", "97%",
                   testing + "Got Z02\rRequest done and Configuration Sent\r", "100%"}));
  EXPECT_EQ(window().network->Text1, "Z02");
}

TEST_F(NetworkWrite, TellsAResetThatIsRefused) {
  Global.ResetAfterWrite = True;
  remote.faults.refusals.push_back({"?43", "Z02"});
  runWrite();
  EXPECT_EQ(status(), "Test access to the unitGot ?43\rRequest failed and Configuration Sent\r");
}

TEST_F(NetworkWrite, StillResetsTheUnitAfterACancel) {
  Global.ResetAfterWrite = True;
  cancelAt("Configuring Alarm 1 Configuration...");
  runWrite();
  EXPECT_EQ(remote.commands().back(), "*Z02");
}

}  // namespace

}  // namespace torvane
