// SPDX-License-Identifier: MIT
// The write run, in virtual time against a simulated unit.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

constexpr const char* setUpError =
    "Divide by Zero Error!\rIn1 and In2 in Reading Scale & Offset cannot be of\rthe same value."
    "Skip Reading Offset and continue?";

using WriteFromTheMainWindow = Bench;

TEST_F(WriteFromTheMainWindow, PutsTheSetupIntoTheUnit) {
  auto& editor = start();
  editor.txtSp1.setText("123.4");
  write();
  EXPECT_EQ(unit.registerHex("01"), "2004D2");
  EXPECT_TRUE(host.scriptDone());
}

// ---- every kind of unit, on both kinds of line

struct Meter {
  const char* name;
  int kind;
  sim::Model model;
  int address;  // 0: point to point
};

std::ostream& operator<<(std::ostream& out, const Meter& meter) { return out << meter.name; }

const Meter meters[] = {
    {"FullController", kind::fullController, sim::Model::tmp, 0},
    {"AlarmsOnly", kind::alarmsOnly, sim::Model::tmp, 0},
    {"SimpleMenu", kind::simpleMenu, sim::Model::tmp, 0},
    {"MonitorOnly", kind::monitorOnly, sim::Model::tmp, 0},
    {"Rkw77", kind::rkw77, sim::Model::larkspur, 0},
    {"FullControllerOnABus", kind::fullController, sim::Model::tmp, 17},
    {"AlarmsOnlyOnABus", kind::alarmsOnly, sim::Model::tmp, 5},
    {"SimpleMenuOnABus", kind::simpleMenu, sim::Model::tmp, 199},
    {"MonitorOnlyOnABus", kind::monitorOnly, sim::Model::tmp, 17},
    {"Rkw77OnABus", kind::rkw77, sim::Model::larkspur, 17},
};

sim::UnitSetup setupOf(const Meter& meter) {
  sim::UnitSetup setup;
  setup.model = meter.model;
  return meter.address == 0 ? setup : onBus(setup, meter.address);
}

class WriteToEachMeter : public RunBench, public testing::WithParamInterface<Meter> {
 protected:
  WriteToEachMeter() : RunBench(setupOf(GetParam())) {
    if (GetParam().kind != kind::rkw77) chooseKind(GetParam().kind);
    chooseSetup();
    payloads = payloadsOfSetup(GetParam().kind, GetParam().address != 0);
    before = registersOf(unit);
    if (GetParam().address != 0) digits = rs485AddressHex();
  }

  bool isRkw77() const { return GetParam().kind == kind::rkw77; }

  Payloads payloads;
  Payloads before;
  std::string digits;
};

TEST_P(WriteToEachMeter, SendsTheRegistersOfThePlanLineByLine) {
  runWrite();
  EXPECT_EQ(meterKind(), GetParam().kind);
  EXPECT_EQ(unit.commands(),
            probeTraffic(isRkw77(), digits) + writeTraffic(GetParam().kind, payloads, before, digits));
}

TEST_P(WriteToEachMeter, LeavesTheSetupInTheUnitAndAllOtherBitsAsTheyWere) {
  for (const auto& [reg, value] : before) {
    if (reg != "11" || !isRkw77()) unit.setRegister(reg, std::string(value.size(), 'F'));
  }
  unit.setRegister("1F", before.at("1F"));
  unit.setRegister("21", before.at("21"));
  const Payloads old = registersOf(unit);
  runWrite();
  EXPECT_EQ(registersOf(unit), expectedRegisters(GetParam().kind, payloads, old));
}

TEST_P(WriteToEachMeter, TellsEveryStepWithPayloadOutcomeAndPercentage) {
  runWrite();
  const std::string last = "RS 485 Address ....\r" + payloads.at("21") + "\rSuccess";
  // The Rkw77 line keeps no output limits, and its percentages are those of the window.
  EXPECT_EQ(narrative.after("3%"), (writeNarrative(payloads) + Lines{last + "Done\r", "100%"}));
}

TEST_P(WriteToEachMeter, ReadsEveryRegisterOnceAndWritesNoneWhenTheUnitHoldsTheSetup) {
  runWrite();
  unit.takeLog();
  Hardware.BusAddress = static_cast<std::int16_t>(GetParam().address);
  runWrite();
  const Payloads now = registersOf(unit);
  EXPECT_EQ(unit.count("W"), 0U);
  EXPECT_EQ(unit.commands(),
            probeTraffic(isRkw77(), digits) + writeTraffic(GetParam().kind, payloads, now, digits));
}

INSTANTIATE_TEST_SUITE_P(AllKinds, WriteToEachMeter, testing::ValuesIn(meters),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- what a kind of unit is spared

class WriteRun : public RunBench {
 protected:
  explicit WriteRun(sim::UnitSetup setup = {}) : RunBench(std::move(setup)) { chooseSetup(); }

  std::size_t commandsFor(const char* reg) const {
    return unit.count(std::string("R") + reg) + unit.count(std::string("W") + reg);
  }
};

class WriteRunToLarkspur : public WriteRun {
 protected:
  WriteRunToLarkspur() : WriteRun(larkspur()) {}
  static sim::UnitSetup larkspur() {
    sim::UnitSetup setup;
    setup.model = sim::Model::larkspur;
    return setup;
  }
};

TEST_F(WriteRunToLarkspur, ShowsTheRegistersThatItSkipsInSilence) {
  runWrite();
  for (const char* reg : {"16", "15", "0A", "24", "27", "28"}) EXPECT_EQ(commandsFor(reg), 0U) << reg;
  EXPECT_EQ(commandsFor("11"), 1U) << "only the probe asks for it";
  EXPECT_TRUE(narrative.has("Colors.......\r06\rSuccess"));
  EXPECT_TRUE(narrative.has("Configuring Alarm 2 High Set-Pt...\r200FA0\rSuccess"));
}

TEST_F(WriteRun, SparesTheSimpleMenuMostRegisters) {
  chooseKind(kind::simpleMenu);
  showMemo();
  runWrite();
  for (const char* reg : {"13", "12", "16", "15", "0B", "18", "19", "1A", "1D", "0E", "1E", "27", "28"}) {
    EXPECT_EQ(commandsFor(reg), 0U) << reg;
  }
  for (const char* reg : {"09", "0A", "0C", "0D", "24"}) EXPECT_NE(commandsFor(reg), 0U) << reg;
}

TEST_F(WriteRun, ChangesNoRecord) {
  for (int step : {0, 1}) {
    std::vector<MemoField> before;
    for (int record = 0; record < MemoArray::count; ++record) before.push_back(Memo[record]);
    window().WriteConfigurationToDevice();
    for (int record = 0; record < MemoArray::count; ++record) {
      EXPECT_EQ(Memo[record], before[static_cast<std::size_t>(record)]) << record << " in run " << step;
    }
  }
}

// ---- the reading scale

class ImpossibleReadingScale : public WriteRun {
 protected:
  ImpossibleReadingScale() {
    Memo[rec::txtIn1].text = "0500";
    Memo[rec::txtIn2].text = "0500";
    showMemo();
  }
};

TEST_F(ImpossibleReadingScale, AsksInTheseWords) {
  host.expectBox("Divide by Zero", Answer::yes);
  runWrite();
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, setUpError);
  EXPECT_EQ(host.boxes[0].title, "Set-Up Error(s)...");
  EXPECT_EQ(host.boxes[0].icon, Icon::critical);
  EXPECT_EQ(host.boxes[0].buttons, Buttons::yesNo);
}

TEST_F(ImpossibleReadingScale, IsReported) {
  host.expectBox("Divide by Zero", Answer::yes);
  runWrite();
  const std::string label = "Configuring Reading Scale...\r";
  const Lines told = narrative.after("15%");
  const Lines expected = {label, label + "!Divide by zero\r", "18%",
                          label + "!Divide by zero\rReading Scale and Offset error",
                          "Configuring Alarm 1 Configuration...\r"};
  ASSERT_GE(told.size(), expected.size());
  EXPECT_EQ(Lines(told.begin(), told.begin() + 5), expected);
  EXPECT_FALSE(narrative.has("21%"));
}

TEST_F(ImpossibleReadingScale, OnYesGoesOnAndKeepsTheOldScaleAndOffset) {
  unit.setRegister("14", "512345");
  unit.setRegister("03", "212345");
  host.expectBox("Divide by Zero", Answer::yes);
  runWrite();
  EXPECT_EQ(unit.registerHex("14"), "512345");
  EXPECT_EQ(unit.registerHex("03"), "212345");
  EXPECT_EQ(commandsFor("14") + commandsFor("03"), 0U);
  EXPECT_EQ(unit.registerHex("09"), "59");
  EXPECT_EQ(unit.registerHex("21"), "11");
}

TEST_F(ImpossibleReadingScale, OnNoStopsWithTheReadingTabOnShow) {
  host.expectBox("Divide by Zero", Answer::no);
  runWrite();
  EXPECT_EQ(form<frmBigFolder>().tabBig.tab(), 3);
  EXPECT_EQ(commandsOfRun().back(), "*R02");
  EXPECT_EQ(unit.count("Z02"), 0U);
}

TEST_F(ImpossibleReadingScale, OnNoHidesTheWindowAtOnceAndStillComesToItsEnd) {
  host.expectBox("Divide by Zero", Answer::no, [this] { host.events.clear(); });
  runWrite();
  EXPECT_EQ(std::ranges::count(host.events, "hide frmSerial"), 1);
  EXPECT_TRUE(status().ends_with("Reading Scale and Offset errorDone\r"));
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

TEST_F(ImpossibleReadingScale, OnNoTheUnitIsStillReset) {
  Global.ResetAfterWrite = True;
  host.expectBox("Divide by Zero", Answer::no);
  runWrite();
  EXPECT_EQ(commandsOfRun().back(), "*Z02");
}

// ---- the analog output

TEST_F(WriteRun, PassesAnImpossibleAnalogScaleInSilence) {
  Memo[rec::txtAOutRd1].text = "0800";
  showMemo();
  runWrite();
  EXPECT_EQ(commandsFor("0F") + commandsFor("04"), 0U);
  EXPECT_TRUE(host.boxes.empty());
  const Lines told = narrative.after("88%");
  const std::string label = "Analog output scale.... \r";
  EXPECT_EQ(Lines(told.begin(), told.begin() + 4),
            (Lines{label, label + "!Divide by zero\r", "91%", "% Output 1 low....\r"}));
  EXPECT_FALSE(narrative.has("94%"));
}

// ---- the communication settings of the unit

TEST_F(WriteRun, LeavesTheBusSettingsAloneWhenTheProtocolIsLeftAsFound) {
  chooseOption(rec::optRS232, 2, -1);
  Memo[rec::optNoChange].flag = True;
  showMemo();
  runWrite();
  EXPECT_EQ(commandsFor("1F") + commandsFor("21"), 0U);
  EXPECT_EQ(status(), " Bus Format ......\rDone\r");
}

TEST_F(WriteRun, WritesNoAddressToAnRs232Unit) {
  chooseOption(rec::optRS232, 2, 0);
  showMemo();
  unit.setRegister("1F", "3C");
  runWrite();
  EXPECT_EQ(unit.registerHex("1F"), "34");
  EXPECT_EQ(commandsFor("21"), 0U);
  EXPECT_EQ(status(), " Bus Format ......\r34\rSuccessDone\r");
}

TEST_F(WriteRun, BringsTheAddressOfTheNextCommandUpToDate) {
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 17);
}

TEST_F(WriteRun, KeepsTheAddressWhenTheUnitIsNotMadeABusUnit) {
  chooseOption(rec::optRS232, 2, 0);
  showMemo();
  Hardware.BusAddress = 42;
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 42);
}

// ---- outcomes that aren't "Success"

struct Refused {
  const char* name;
  int record;
  const char* text;
  std::int16_t value;
  const char* reg;
  const char* outcome;  // label, payload, outcome
};

std::ostream& operator<<(std::ostream& out, const Refused& refused) { return out << refused.name; }

const Refused refusals[] = {
    {"RampTime", rec::txtRampT, "5:30", 0, "0E",
     "Configuring Ramp Time...\r!Ramp Time Format Error\rRamp Time Format Error"},
    {"SoakTime", rec::txtSoakT, "", 0, "1E",
     "Configuring Ramp Time...\r!Soak Time Format Error\rSoak Time Format Error"},
    {"Rate", rec::txtOut1Rate, "200.0", 0, "19",
     "Configuring Out 1 Rate...\r!Out1 Rate Format Error...\rOut1 Rate Format Error..."},
};

class WriteOfWhatAnEncoderRefuses : public WriteRun, public testing::WithParamInterface<Refused> {};

TEST_P(WriteOfWhatAnEncoderRefuses, ShowsTheWordsAndLeavesTheRegisterAlone) {
  Memo[GetParam().record].text = GetParam().text;
  showMemo();
  runWrite();
  EXPECT_TRUE(narrative.has(GetParam().outcome));
  EXPECT_EQ(commandsFor(GetParam().reg), 0U);
  EXPECT_EQ(unit.registerHex("21"), "11") << "the run goes on";
  EXPECT_TRUE(host.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(InBandTexts, WriteOfWhatAnEncoderRefuses, testing::ValuesIn(refusals),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(WriteRun, WritesNoLoopBreakTimeWithoutABox) {
  Memo[rec::txtLBATime].text = "5:30";
  showMemo();
  unit.setRegister("0B", "1234");
  host.expectBox("LBT format invalid");
  runWrite();
  EXPECT_EQ(host.boxes[0].title, "Algorithm difficulties...");
  EXPECT_EQ(host.boxes[0].icon, Icon::critical);
  EXPECT_EQ(unit.registerHex("0B"), "0000");
}

TEST_F(WriteRun, ShowsAFailAndGoesOnToTheNextRegister) {
  unit.faults.stuck["01"] = 0;
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring Set-Point 1...\r2004D2\rFail"));
  EXPECT_EQ(unit.count("W01"), 5U);
  EXPECT_EQ(unit.registerHex("02"), "A001F4");
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(WriteRun, EndsAtAnOverflowWithTheEarlierRegistersWrittenAndStillSaysDone) {
  Memo[rec::txtSp2].text = "9999.9";
  showMemo();
  const Payloads before = registersOf(unit);
  Payloads reached;
  for (const char* reg : {"07", "08", "01"}) reached[reg] = payloadsOfSetup(kind::fullController).at(reg);
  runWrite();
  EXPECT_EQ(registersOf(unit), expectedRegisters(kind::fullController, reached, before));
  EXPECT_EQ(commandsOfRun(), writeTraffic(kind::fullController, reached, before));
  EXPECT_EQ(narrative.after("12%"),
            (Lines{"Configuring Set-Point 2...\r", "Configuring Set-Point 2...\rDone\r", "100%"}));
}

TEST_F(WriteRun, StillResetsTheUnitAfterAnOverflow) {
  Memo[rec::txtIDCode].text = "40000";
  showMemo();
  Global.ResetAfterWrite = True;
  runWrite();
  EXPECT_EQ(commandsOfRun().back(), "*Z02");
  EXPECT_EQ(narrative.lines.back(), "100%");
}

// ---- reset

TEST_F(WriteRun, SendsNoResetUnlessItIsAskedFor) {
  runWrite();
  EXPECT_EQ(unit.count("Z02"), 0U);
  EXPECT_FALSE(narrative.has("97%"));
}

TEST_F(WriteRun, SendsTheResetWhenAllIsWritten) {
  Global.ResetAfterWrite = True;
  runWrite();
  EXPECT_EQ(commandsOfRun().back(), "*Z02");
  EXPECT_EQ(unit.count("Z02"), 1U);
  EXPECT_EQ(narrative.after("94%").back(), "100%");
  EXPECT_EQ(narrative.after("RS 485 Address ....\r11\rSuccess"),
            (Lines{"Resetting...\r", "97%", "Resetting...\rDone\r", "100%"}));
  EXPECT_FALSE(window().MSComm1->isOpen());
}

TEST_F(WriteRun, ReachesTheUnitAtItsNewAddressInTheNextRun) {
  Global.ResetAfterWrite = True;
  runWrite();
  Hardware.BusMode = 1;  // the unit is on a bus from now on, and the user has said so
  unit.takeLog();
  runWrite();
  EXPECT_EQ(unit.commands().front(), "*11R02");
  EXPECT_EQ(unit.count("W"), 0U);
}

}  // namespace

}  // namespace torvane
