// SPDX-License-Identifier: MIT
// The read run, in virtual time against a simulated unit.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "knowledge/RegisterMap.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

// What the unit of these tests holds, and what the status window says of each register.
const Payloads held = payloadsOfSetup(kind::fullController);
const Payloads outcomes = {
    {"07", "06"},    {"08", "4A"},     {"01", "123.4"},  {"02", "-050.0"}, {"14", "2"},     {"03", "100"},
    {"09", "59"},    {"13", "300.0"},  {"12", "-100.0"}, {"0A", "24"},     {"16", "400.0"}, {"15", "-050.0"},
    {"0B", "01:30"}, {"25", "-001.5"}, {"05", "1234"},   {"0C", "55"},     {"0D", "4E"},    {"17", "012.5"},
    {"18", "0200"},  {"19", "001.5"},  {"1A", "10"},     {"1C", "005.0"},  {"1D", "20"},    {"0E", "00:45"},
    {"1E", "02:00"}, {"11", "06"},     {"24", "88"},     {"0F", "0.01"},   {"04", "1"},     {"27", "010"},
    {"28", "090"},   {"1F", "3C"},     {"21", "017"},
};
constexpr const char* lastWords = "RS 485 Address ....\r017";

class ReadBench : public RunBench {
 protected:
  explicit ReadBench(sim::UnitSetup setup = {}) : RunBench(std::move(setup)) {
    for (const auto& [reg, value] : held) {
      if (reg != "1F" && reg != "21") unit.setRegister(reg, value);
    }
    unit.faults.answers["R1F"] = answered("1F");
    unit.faults.answers["R21"] = answered("21");
  }

  frmBigFolder& editor() { return form<frmBigFolder>(); }
  // The bus settings are only shown: the unit goes on to listen as it does.
  std::string answered(const std::string& reg) const {
    const int address = unit.setup().addressed ? unit.setup().address : -1;
    return (address < 0 ? "" : rs485AddressHex()) + "R" + reg + held.at(reg);
  }
};

sim::UnitSetup larkspur() {
  sim::UnitSetup setup;
  setup.model = sim::Model::larkspur;
  return setup;
}

// ---- every kind of unit, on both kinds of line

struct Meter {
  const char* name;
  int kind;
  int address;  // 0: point to point
};

std::ostream& operator<<(std::ostream& out, const Meter& meter) { return out << meter.name; }

const Meter meters[] = {
    {"FullController", kind::fullController, 0},
    {"AlarmsOnly", kind::alarmsOnly, 0},
    {"SimpleMenu", kind::simpleMenu, 0},
    {"MonitorOnly", kind::monitorOnly, 0},
    {"Rkw77", kind::rkw77, 0},
    {"FullControllerOnABus", kind::fullController, 17},
    {"SimpleMenuOnABus", kind::simpleMenu, 5},
    {"Rkw77OnABus", kind::rkw77, 17},
};

sim::UnitSetup setupOf(const Meter& meter) {
  const sim::UnitSetup setup = meter.kind == kind::rkw77 ? larkspur() : sim::UnitSetup{};
  return meter.address == 0 ? setup : onBus(setup, meter.address);
}

class ReadOfEachMeter : public ReadBench, public testing::WithParamInterface<Meter> {
 protected:
  ReadOfEachMeter() : ReadBench(setupOf(GetParam())) {
    if (!isRkw77()) chooseKind(GetParam().kind);
    showMemo();
    if (GetParam().address != 0) digits = rs485AddressHex();
  }
  static bool isRkw77() { return GetParam().kind == kind::rkw77; }

  std::string digits;
};

TEST_P(ReadOfEachMeter, AsksForTheRegistersOfThePlanLineByLineAndWritesNone) {
  runRead();
  EXPECT_EQ(meterKind(), GetParam().kind);
  EXPECT_EQ(unit.commands(), probeTraffic(isRkw77(), digits) + readTraffic(isRkw77(), digits));
}

TEST_P(ReadOfEachMeter, TellsEveryStepWithItsResultAndPercentage) {
  runRead();
  const Lines done = {std::string(lastWords) + "Done\r", "100%"};
  EXPECT_EQ(narrative.after("3%"), readNarrative(isRkw77(), outcomes) + done);
}

TEST_P(ReadOfEachMeter, ChangesNothingInTheUnit) {
  const Payloads before = registersOf(unit);
  runRead();
  EXPECT_EQ(registersOf(unit), before);
}

INSTANTIATE_TEST_SUITE_P(AllKinds, ReadOfEachMeter, testing::ValuesIn(meters),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- what comes of it

class ReadRun : public ReadBench {
 protected:
  using ReadBench::ReadBench;
};

class ReadRunOfLarkspur : public ReadBench {
 protected:
  ReadRunOfLarkspur() : ReadBench(larkspur()) {}
};

TEST_F(ReadRun, ShowsWhatTheUnitHoldsOnAllTabs) {
  runRead();
  EXPECT_EQ(editor().txtIDCode.text(), "1234");
  EXPECT_EQ(editor().txtSp1.text(), "123.4");
  EXPECT_TRUE(editor().optInType(2).value());
  EXPECT_EQ(editor().lstProc.listIndex(), 1);
  EXPECT_TRUE(editor().optDpoint(1).value());
  EXPECT_EQ(editor().txtAl1HiSp.text(), "300.0");
  EXPECT_EQ(editor().cboAl2Setup.listIndex(), 2);
  EXPECT_EQ(editor().txtLBATime.text(), "01:30");
  EXPECT_EQ(editor().HSOut1CycleT.value(), 10);
  EXPECT_EQ(editor().HSOut1High.value(), 90);
  EXPECT_EQ(editor().txtOut2PB.text(), "005.0");
  EXPECT_EQ(editor().txtRampT.text(), "00:45");
  EXPECT_EQ(editor().chkSPDeviation.value(), 1);
  EXPECT_EQ(editor().txtRS485Address.text(), "017");
}

TEST_F(ReadRun, ShowsABusUnitAsOneUnlessItsProtocolIsLeftAsFound) {
  runRead();
  EXPECT_FALSE(editor().optRS485.value());
  EXPECT_TRUE(editor().optNoChange.value());
  editor().optRS232.setValue(true);
  runRead();
  EXPECT_TRUE(editor().optRS485.value());
}

TEST_F(ReadRun, TakesTheAddressThatTheUnitTellsForTheNextCommand) {
  runRead();
  EXPECT_EQ(Hardware.BusAddress, 17);
}

TEST_F(ReadRun, KeepsTheAddressOfAUnitThatIsNotOnABus) {
  unit.faults.answers["R1F"] = "R1F34";
  Hardware.BusAddress = 42;
  runRead();
  EXPECT_EQ(Hardware.BusAddress, 42);
}

TEST_F(ReadRun, SendsNoResetThoughItIsSetForWrites) {
  Global.ResetAfterWrite = True;
  runRead();
  EXPECT_EQ(unit.count("Z02"), 0U);
  EXPECT_FALSE(narrative.has("97%"));
}

TEST_F(ReadRun, IsNoLongerDueWhenItIsOver) {
  runRead();
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(ReadRun, ComesToNinetyFourAndLeavesTheHundredToTheWindow) {
  window().ReadConfigurationFromDevice();
  EXPECT_EQ(narrative.lines.back(), lastWords);
  EXPECT_TRUE(narrative.has("94%"));
  EXPECT_FALSE(narrative.has("100%"));
  EXPECT_EQ(window().lblPercent.caption(), "94%");
}

TEST_F(ReadRunOfLarkspur, AsksForSixRegistersLessThanOfATorvane) {
  runRead();
  EXPECT_EQ(commandsOfRun().size(), registerCount - 6);
  for (const char* reg : {"16", "15", "24", "27", "28"}) EXPECT_EQ(unit.count(std::string("R") + reg), 0U);
  EXPECT_EQ(unit.count("R11"), 1U) << "only the probe asks for it";
}

TEST_F(ReadRunOfLarkspur, ShowsNoLabelOfARegisterThatItDoesNotAskForButItsPercentage) {
  runRead();
  EXPECT_FALSE(narrative.has("Reading Alarm 2 High Set-Pt...\r"));
  EXPECT_FALSE(narrative.has("Colors.......\r"));
  for (const char* percent : {"36%", "39%", "84%", "88%"}) EXPECT_TRUE(narrative.has(percent)) << percent;
}

TEST_F(ReadRunOfLarkspur, TakesTheChoiceOfAnAnalogOutputOffTheWindow) {
  unit.faults.answers["R0A"] = "R0A80";
  editor().chkAnalogOutputEnabled.setEnabled(true);
  runRead();
  EXPECT_FALSE(editor().chkAnalogOutputEnabled.enabled());
}

TEST_F(ReadRun, KeepsTheOldRecordsOfARegisterThatDoesNotAnswer) {
  Memo[rec::txtSp2].text = "077.7";
  showMemo();
  unit.faults.answers["R02"] = "?43";
  // The probe asks for the same register: it goes on after a refusal.
  runRead();
  EXPECT_TRUE(narrative.has("Reading Set-Point 2...\rFail"));
  EXPECT_EQ(unit.count("R02"), 1U + 3U);
  EXPECT_EQ(Memo[rec::txtSp2].text, "077.7");
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
  EXPECT_EQ(Memo[rec::txtRS485Address].text, "017");
}

// ---- Cancel

TEST_F(ReadRun, CancelledDuringTheColdJunctionKeepsAndShowsWhatCameBefore) {
  cancelAt("Reading Cold Junction Offset...");
  runRead();
  EXPECT_EQ(commandsOfRun().size(), 14U);
  EXPECT_EQ(Memo[rec::txtLBATime].text, "01:30");
  EXPECT_EQ(editor().txtLBATime.text(), "01:30");
  EXPECT_EQ(editor().txtSp1.text(), "123.4");
  EXPECT_EQ(Memo[rec::txtIDCode].text, "0000");
  EXPECT_TRUE(boxTexts().empty());
  EXPECT_EQ(status(), "Reading Cold Junction Offset...\r-001.5Done\r");
}

TEST_F(ReadRun, GoesOnWhenCancelIsAnsweredNo) {
  cancelAt("Reading Cold Junction Offset...", Answer::no);
  runRead();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(commandsOfRun(), readTraffic(false));
}

struct Moment {
  const char* name;
  const char* status;
  std::size_t commands;
};

std::ostream& operator<<(std::ostream& out, const Moment& moment) { return out << moment.name; }

class CancelDuringARead : public ReadBench, public testing::WithParamInterface<Moment> {};

TEST_P(CancelDuringARead, StopsAfterTheStep) {
  cancelAt(GetParam().status);
  runRead();
  const Lines all = readTraffic(false);
  EXPECT_EQ(commandsOfRun(),
            Lines(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(GetParam().commands)));
  EXPECT_TRUE(status().ends_with("Done\r"));
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

constexpr Moment moments[] = {
    {"InputType", "Reading Input Type...", 1},
    {"ReadingScale", "Reading Reading Scale...", 6},
    {"Alarm1", "Reading Alarm 1 Configuration", 7},
    {"AnalogScale", "Analog output scale", 29},
    {"TheLast", "RS 485 Address", 33},
};

INSTANTIATE_TEST_SUITE_P(AtEachMoment, CancelDuringARead, testing::ValuesIn(moments),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- faults

TEST_F(ReadRun, ShowsTheWiringMessageOnceThenGoesOn) {
  unit.faults.answers["R07"] = "*R07";
  unit.faults.answers["R09"] = "*R09";
  host.expectBox(wiringMessage);
  runRead();
  EXPECT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].title, "");
  EXPECT_EQ(host.boxes[0].icon, Icon::none);
  EXPECT_TRUE(narrative.has("Reading Alarm 1 Configuration...\rFail"));
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

TEST_F(ReadRun, SaysNothingOfALoopThatShowsAfterTheFirstRegister) {
  unit.faults.answers["R08"] = "*R08";
  runRead();
  EXPECT_TRUE(host.boxes.empty());
}

// Two digits pass as a payload, and are no set point.
class ReadRunWithATypeFault : public ReadBench {
 protected:
  ReadRunWithATypeFault() { unit.faults.answers["R13"] = "R1312"; }
};

TEST_F(ReadRunWithATypeFault, EndsTheReadAndKeepsTheRecordsSoFar) {
  runRead();
  EXPECT_EQ(commandsOfRun().back(), "*R13");
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
  EXPECT_EQ(Memo[rec::cboAl1Setup].value, 1);
  EXPECT_EQ(Memo[rec::txtAl1HiSp].text, "400.0");
}

// Or what commits the tabs next would lose the records again.
TEST_F(ReadRunWithATypeFault, ShowsWhatWasReadSoFar) {
  runRead();
  EXPECT_EQ(editor().txtSp1.text(), "123.4");
  EXPECT_TRUE(editor().optInType(2).value());
}

TEST_F(ReadRunWithATypeFault, StillComesToDoneAndIsNoLongerDue) {
  runRead();
  EXPECT_EQ(narrative.after("24%"),
            (Lines{"Reading Alarm 1 High Set-Pt...\r", "Reading Alarm 1 High Set-Pt...\rDone\r", "100%"}));
  EXPECT_EQ(Global.ReadConfirmed, 0);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ReadRun, EndsAtANumberThatNoRecordHolds) {
  unit.faults.answers["R1A"] = "R1A12345678";
  runRead();
  EXPECT_EQ(commandsOfRun().back(), "*R1A");
  EXPECT_EQ(Memo[rec::HSOut1CycleT].value, 4);
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

}  // namespace

}  // namespace torvane
