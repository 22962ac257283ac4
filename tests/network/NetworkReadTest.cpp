// SPDX-License-Identifier: MIT
// The read run over the network, in virtual time against a simulated unit behind a bridge.
#include <algorithm>
#include <cmath>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/network/Meters.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr const char* failedMessage = "TCP Communication with the device has failed.";

sim::UnitSetup unitAt(bool rkw77, int address) {
  sim::UnitSetup setup;
  if (rkw77) setup.model = sim::Model::larkspur;
  return address == 0 ? setup : onBus(setup, address);
}

class NetworkReadBench : public NetworkBench {
 protected:
  explicit NetworkReadBench(const sim::UnitSetup& setup = {}) : NetworkBench(setup) {
    for (const auto& [reg, value] : payloadsOfSetup(kind::fullController)) {
      if (reg != "1F" && reg != "21") remote.setRegister(reg, value);
    }
  }

  // Runs whose window can be asked afterwards: a whole read unloads it.
  void readOnly() {
    Global.ReadConfirmed = 1;
    window().readMode = True;
    window().NetworkReadFromDevice();
  }
  void refuse(const std::vector<std::string>& registers) {
    for (const std::string& reg : registers) remote.faults.refusals.push_back({"?43", "R" + reg});
  }
  std::size_t fails() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(narrative.lines, [](const auto& line) { return line.ends_with("\rFail"); }));
  }
};

class NetworkReadOfEachMeter : public NetworkReadBench, public testing::WithParamInterface<Meter> {
 protected:
  NetworkReadOfEachMeter() : NetworkReadBench(unitAt(isRkw77(), GetParam().address)) {
    chooseKind(GetParam().kind);
    showMemo();
    if (GetParam().address != 0) digits = rs485AddressHex();
  }
  static bool isRkw77() { return GetParam().kind == kind::rkw77; }

  std::string digits;
};

TEST_P(NetworkReadOfEachMeter, AsksForTheRegistersOfThePlanLineByLineAndWritesNone) {
  const Payloads before = registersOf(remote);
  runRead();
  EXPECT_EQ(meterKind(), GetParam().kind);
  EXPECT_EQ(remote.commands(), detectionTraffic(isRkw77(), digits) + readTraffic(isRkw77(), digits));
  EXPECT_EQ(bridge.connections(), 1U);
  EXPECT_EQ(registersOf(remote), before);
  EXPECT_TRUE(unit.commands().empty());
}

TEST_P(NetworkReadOfEachMeter, ShowsWhatTheUnitHoldsOnAllTabs) {
  runRead();
  auto& editor = form<frmBigFolder>();
  EXPECT_EQ(editor.txtIDCode.text(), "1234");
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
  EXPECT_EQ(editor.txtAl1HiSp.text(), "300.0");
  EXPECT_EQ(editor.txtLBATime.text(), "01:30");
  EXPECT_EQ(editor.txtRampT.text(), "00:45");
}

INSTANTIATE_TEST_SUITE_P(AllKinds, NetworkReadOfEachMeter, testing::ValuesIn(meters),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- how it begins and ends

class NetworkRead : public NetworkReadBench {};

TEST_F(NetworkRead, SaysSetPointInOneWordInItsThirdStepAlone) {
  runRead();
  EXPECT_TRUE(narrative.has("Reading SetPoint 1...\r"));
  EXPECT_TRUE(narrative.has("Reading Set-Point 2...\r"));
  EXPECT_FALSE(narrative.has("Reading Set-Point 1...\r"));
}

TEST_F(NetworkRead, SendsNothingWhenNoReadIsDue) {
  window().readMode = True;
  Global.ReadConfirmed = 0;
  form<frmBigFolder>().txtSp1.setText("077.7");
  window().NetworkReadFromDevice();
  EXPECT_EQ(bridge.connections(), 0U);
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), "077.7") << "nor is anything loaded onto the tabs";
}

TEST_F(NetworkRead, EndsWithItsWordsAndThenItsWindowIsUnloaded) {
  std::string caption;
  std::string last;
  double end = 0;
  host.expect([this] { return window().cmdCancel.caption() == "Close"; },
              [&] {
                last = status();
                end = host.clock;
              });
  host.events.clear();
  runRead();
  EXPECT_EQ(last, "RS 485 Address ....\r001 and Configuration Read\r");
  EXPECT_EQ(narrative.lines.back(), "100%");
  EXPECT_LE(host.clock - end, 1.01) << "the end stays on the screen for a second";
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_EQ(std::ranges::count(host.events, "release frmSerial"), 1);
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(NetworkRead, SendsNoResetThoughItIsSetForWrites) {
  Global.ResetAfterWrite = True;
  runRead();
  EXPECT_EQ(remote.count("Z02"), 0U);
}

TEST_F(NetworkRead, SaysNothingOfALoopOfTheWires) {
  remote.faults.answers["R07"] = "*R07";
  runRead();
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(remote.count("R07"), 1U) << "a star does not disqualify a reply";
}

TEST_F(NetworkRead, CancelledDuringTheColdJunctionKeepsAndShowsWhatCameBefore) {
  cancelAt("Reading Cold Junction Offset...");
  runRead();
  EXPECT_EQ(commandsAfterDetection().size(), 14U);
  EXPECT_EQ(form<frmBigFolder>().txtLBATime.text(), "01:30");
  EXPECT_EQ(Memo[rec::txtIDCode].text, "0000");
  EXPECT_TRUE(boxTexts().empty());
}

// ---- the rest between two registers of one step

struct Pair {
  const char* label;
  const char* first;
  const char* second;
};

class NetworkReadOfAPair : public NetworkReadBench, public testing::WithParamInterface<Pair> {
 protected:
  // Seconds from the first register to the second, when the clock shows this fraction at the first.
  double rest(double fraction) {
    host.expect([this] { return status().starts_with(GetParam().label); },
                [this, fraction] { host.clock = std::ceil(host.clock) + fraction; });
    readOnly();
    EXPECT_TRUE(host.scriptDone());
    return timeOf(GetParam().second) - timeOf(GetParam().first);
  }
  double timeOf(const std::string& reg) const {
    const auto found = std::ranges::find(remote.log(), "*R" + reg + "\r", &sim::LogEntry::text);
    return found == remote.log().end() ? -1 : found->time;
  }
};

TEST_P(NetworkReadOfAPair, WaitsForTheWholeSecondInItsLaterHalf) {
  const double second = rest(0.6);
  EXPECT_GT(second, 0.35);
  const double at = timeOf(GetParam().second);
  EXPECT_NEAR(at, std::nearbyint(at), 0.02);
}

TEST_P(NetworkReadOfAPair, WaitsForNothingInItsEarlierHalf) {
  rest(0.1);
  const double at = timeOf(GetParam().second);
  EXPECT_NEAR(at - std::floor(at), 0.1, 0.05);
}

INSTANTIATE_TEST_SUITE_P(OfEachStep, NetworkReadOfAPair,
                         testing::Values(Pair{"Reading Reading Scale...", "14", "03"},
                                         Pair{"Analog output scale.... ", "0F", "04"},
                                         Pair{" Bus Format ......", "1F", "21"}),
                         [](const auto& test) { return std::string("Register") + test.param.first; });

// ---- the failure limit

TEST_F(NetworkRead, BearsThreeFailedSteps) {
  refuse({"09", "12", "18"});
  runRead();
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(fails(), 3U);
  EXPECT_EQ(remote.count("R12"), 5U);
  EXPECT_EQ(remote.count("R21"), 1U);
}

TEST_F(NetworkRead, StopsAtTheFourthFailedStepAndShowsWhatItHas) {
  refuse({"09", "12", "18", "1A"});
  host.expectBox(failedMessage);
  runRead();
  EXPECT_EQ(boxTexts(), Lines{failedMessage});
  EXPECT_EQ(fails(), 4U);
  EXPECT_EQ(commandsAfterDetection().back(), "*R1A");
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), "123.4");
  EXPECT_EQ(form<frmBigFolder>().txtOut1Reset.text(), "0180") << "not read";
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(NetworkRead, StopsAtFourFailedStepsInARow) {
  refuse({"09", "13", "12", "0A", "16", "15"});
  host.expectBox(failedMessage);
  runRead();
  EXPECT_EQ(commandsAfterDetection().back(), "*R0A");
}

TEST_F(NetworkRead, CountsAPairByItsSecondRegisterAlone) {
  refuse({"14", "0F", "1F", "09", "12", "18"});
  runRead();
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(fails(), 6U);
}

TEST_F(NetworkRead, CountsAPairWhoseSecondRegisterFails) {
  refuse({"03", "09", "12", "18"});
  host.expectBox(failedMessage);
  runRead();
  EXPECT_EQ(commandsAfterDetection().back(), "*R18");
}

TEST_F(NetworkRead, CountsAFailureAgainInAStepThatReadsNothing) {
  refuse({"18", "19", "1E"});
  host.expectBox(failedMessage);
  runRead();
  EXPECT_EQ(commandsAfterDetection().back(), "*R1E");
  EXPECT_TRUE(narrative.has("81%"));
}

TEST_F(NetworkRead, BeginsToCountAgainInEveryRun) {
  refuse({"09", "12", "18"});
  readOnly();
  readOnly();
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NetworkRead, SaysNothingMoreWhenTheFourthFailureIsCancelled) {
  refuse({"09", "12", "18", "1A"});
  cancelAt("Reading Out 1 Cycle Time...");
  runRead();
  EXPECT_TRUE(boxTexts().empty());
}

TEST_F(NetworkRead, ForgivesFourRefusalsOfOneRegister) {
  remote.faults.refusals.push_back({"?43", "R09", 4});
  runRead();
  EXPECT_EQ(fails(), 0U);
  EXPECT_EQ(remote.count("R09"), 5U);
}

}  // namespace

}  // namespace torvane
