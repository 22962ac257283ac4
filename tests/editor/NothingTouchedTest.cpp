// SPDX-License-Identifier: MIT
// Read a unit, touch nothing, write it: what changes in the unit is what can't be given back as it came, and
// nothing else, whatever the window showed before.
#include "tests/editor/EditorTest.h"
#include "tests/editor/PlausibleUnit.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

// What the unit was when it was read.
struct Unit {
  Registers registers;
  int kind = 0;
  bool analog = false;

  int bits(const char* index) const { return std::stoi(registers.at(index), nullptr, 16); }
  bool process() const { return (bits("07") & 3) == 2; }
  bool full() const { return kind != kind::simpleMenu; }
};

// A loss that the registers or the model themselves make unavoidable.
struct Loss {
  const char* registers;
  int bits;
  const char* when;
  bool (*happens)(const Unit& unit);
};

constexpr int wholeRegister = 0xFFFFFF;

// clang-format off
const Loss losses[] = {
    {"07", 0xFC, "a thermocouple: only the lowest bit of its type is read",
     [](const Unit& u) { return (u.bits("07") & 3) == 0; }},
    {"14 03 0F 04", wholeRegister, "a line comes back from two points of it",
     [](const Unit&) { return true; }},
    {"08 01 02 12 13 15 16 25 17 1C", wholeRegister, "a temperature with two or three decimals: rounded to one",
     [](const Unit& u) { return !u.process() && (u.bits("08") & 7) > 2; }},
    {"09", 0x01, "the simple menu: alarm 1 is always on", [](const Unit& u) { return !u.full(); }},
    {"09", 0x04, "an analog output takes alarm 2's latch over", [](const Unit& u) { return u.analog; }},
    {"09", 0x30, "alarm 1 has a band without deviation",
     [](const Unit& u) { return (u.bits("09") & 0x32) == 0x30; }},
    {"09", 0x40, "alarms only: no loop break alarm", [](const Unit& u) { return u.kind == kind::alarmsOnly; }},
    {"0A", 0x03, "the simple menu: alarm 2 is always on and absolute", [](const Unit& u) { return !u.full(); }},
    {"0A", 0x30, "alarm 2 has a band without deviation",
     [](const Unit& u) { return (u.bits("0A") & 0x32) == 0x30; }},
    {"0C", 0x01, "an analog output works in PID alone", [](const Unit& u) { return u.analog; }},
    {"0C", 0x08, "bit 3 belongs to no setting", [](const Unit&) { return true; }},
    {"0C", 0x20, "auto-tune is to start, and no output is in PID with auto PID",
     [](const Unit& u) {
       const bool first = (u.analog || (u.bits("0C") & 1) != 0) && (u.bits("0C") & 4) != 0;
       return !first && (u.bits("0D") & 5) != 5;
     }},
    {"0C", 0x41, "the Rkw77 line with 4-20 mA",
     [](const Unit& u) { return u.kind == kind::rkw77 && (u.bits("0C") & 0x40) != 0; }},
    {"0C", 0x80, "the simple menu marks itself", [](const Unit& u) { return !u.full(); }},
    {"1C", wholeRegister, "output 2 in PID with auto PID has the band of output 1",
     [](const Unit& u) { return u.full() && (u.bits("0D") & 5) == 5; }},
    {"24", 0x04, "both levels of the ID protection at once",
     [](const Unit& u) { return (u.bits("24") & 0xC) == 0xC; }},
};
// clang-format on

bool isAllowed(const Unit& unit, const std::string& index, int changed) {
  int bits = 0;
  for (const Loss& loss : losses) {
    if (std::string_view(loss.registers).find(index) != std::string_view::npos && loss.happens(unit)) {
      bits |= loss.bits;
    }
  }
  return (changed & ~bits) == 0;
}

class NothingTouched : public EditorTest {
 protected:
  std::mt19937 random{12};

  NothingTouched() { host.toleratesBoxes = true; }

  Unit anyUnit() {
    Unit unit{plausibleRegisters(random), between(random, 0, 4), between(random, 0, 3) == 0};
    chooseUnit(unit.kind, unit.analog);
    return unit;
  }

  // As a read and the fit after it; the setup of the unit before is still on the window.
  void readAndFit(const Unit& unit) {
    Global.WarningsOff = True;
    decodeAll(unit.registers);
    editor.showRecords();
    editor.SilentSetup = True;
    editor.cmdCnfg_Click();
    Global.WarningsOff = False;
  }

  void expectNothingElseLost(const Unit& unit, int round) {
    editor.commitForRun();
    for (const auto& [index, after] : afterWrite(unit.registers)) {
      const int changed = std::stoi(after, nullptr, 16) ^ unit.bits(index.c_str());
      if (changed == 0) continue;
      EXPECT_TRUE(isAllowed(unit, index, changed))
          << round << ", kind " << unit.kind << (unit.analog ? " analog, " : ", ") << index << " was "
          << unit.registers.at(index) << ", is " << after << "; 07 " << unit.registers.at("07") << " 08 "
          << unit.registers.at("08") << " 09 " << unit.registers.at("09") << " 0C " << unit.registers.at("0C")
          << " 0D " << unit.registers.at("0D");
    }
  }
};

TEST_F(NothingTouched, OfTenThousandUnitsKeepsEveryBitThatCanBeKept) {
  for (int round = 0; round < trials(10000) && !HasFailure(); ++round) {
    const Unit unit = anyUnit();
    readAndFit(unit);
    expectNothingElseLost(unit, round);
  }
}

TEST_F(NothingTouched, ThreeDecimalsStayInAWindowThatShowedOne) {
  Unit unit{plausibleRegisters(random), kind::fullController, false};
  chooseUnit(unit.kind, unit.analog);
  unit.registers["07"] = "02";
  unit.registers["08"] = "4C";
  unit.registers["01"] = "4004D2";
  readAndFit(unit);
  EXPECT_EQ(editor.txtSp1.text(), "1.234");
  EXPECT_EQ(Memo[rec::txtSp1].text, "1.234");
  editor.commitForRun();
  EXPECT_EQ(afterWrite(unit.registers).at("01"), "4004D2");
}

TEST_F(NothingTouched, AReadOfAUnitWithoutAFormatKeepsItsDigits) {
  Unit unit{plausibleRegisters(random), kind::fullController, false};
  chooseUnit(unit.kind, unit.analog);
  unit.registers["07"] = "02";
  unit.registers["08"] = "48";
  unit.registers["01"] = "0004D2";
  readAndFit(unit);
  EXPECT_EQ(editor.txtSp1.text(), "1234.");
  EXPECT_TRUE(editor.optDpoint(0).value());
  editor.commitForRun();
  EXPECT_EQ(afterWrite(unit.registers).at("01"), "1004D2");
}

}  // namespace

}  // namespace torvane
