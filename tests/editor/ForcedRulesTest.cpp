// SPDX-License-Identifier: MIT
// When the window changes a setup that comes in, and what: each rule holds where it should and nowhere
// beside, and each record that a rule names is changed by it.
#include "editor/ForcedRules.h"

#include <algorithm>

#include "core/NumberText.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

// The rules, in the order of the guide.
enum Forced {
  decimals,
  noPlace,
  band1,
  band2,
  actions,
  simple,
  simpleAnalog,
  noLoopBreak,
  noAnalog,
  pid,
  noAlarm1,
  noTuning,
  protection,
  bus,
  code,
  count
};

struct Incoming {
  const char* name;
  int kind;
  bool analogOutput;
  void (*change)();  // of a setup for which no rule holds
  std::set<int> rules;
};

void input(int type) { chooseOption(rec::optInType, 3, type); }

void everyReading(const char* text) {
  for (const SetupBox& box : setupBoxes()) {
    if (box.copy == Copy::asReading) Memo[box.record].text = text;
  }
}

void format(int place, const char* readings) {
  chooseOption(rec::optDpoint, 4, place);
  everyReading(readings);
}

void alarms(std::int16_t control, std::int16_t setup1, std::int16_t setup2) {
  Memo[rec::cboAl1Ctrl].value = Memo[rec::cboAl2Ctrl].value = control;
  Memo[rec::cboAl1Setup].value = setup1;
  Memo[rec::cboAl2Setup].value = setup2;
}

void allOtherThanSimple() {
  Memo[rec::chkAl1Enabled].value = Memo[rec::chkAl2Enabled].value = 0;
  Memo[rec::cboOut1Ctrl].value = Memo[rec::cboOut2Ctrl].value = 1;
  Memo[rec::chkRampEn].value = 1;
}

// Auto-tune is to start; which outputs are in PID, and which find their band themselves.
void tuning(bool pid1, bool auto1, bool pid2, bool auto2) {
  Memo[rec::chkOut1Start].value = 1;
  Memo[rec::cboOut1Ctrl].value = pid1 ? 1 : 0;
  Memo[rec::chkOut1AutoPID].value = auto1 ? 1 : 0;
  Memo[rec::cboOut2Ctrl].value = pid2 ? 1 : 0;
  Memo[rec::chkOut2AutoPID].value = auto2 ? 1 : 0;
}

void flags(std::initializer_list<int> records) {
  for (const int record : records) Memo[record].flag = True;
}

constexpr int full = kind::fullController;

const Incoming incoming[] = {
    {"nothing", full, false, [] {}, {}},
    {"an RTD", full, false, [] { input(1); }, {}},
    {"a temperature without decimals", full, false, [] { format(0, "12"); }, {}},
    {"a thermocouple, two decimals", full, false, [] { format(2, "1.23"); }, {decimals}},
    {"a thermocouple, three decimals", full, false, [] { format(3, "1.234"); }, {decimals}},
    {"an RTD, two decimals", full, false, [] { input(1), format(2, "1.23"); }, {decimals}},
    {"an RTD, three decimals", full, false, [] { input(1), format(3, "1.234"); }, {decimals}},
    {"a process, two decimals", full, false, [] { input(2), format(2, "1.23"); }, {}},
    {"a process, three decimals", full, false, [] { input(2), format(3, "1.234"); }, {}},
    {"a temperature, no format", full, false, [] { format(-1, "12"); }, {noPlace}},
    {"a process, no format", full, false, [] { input(2), format(-1, "12"); }, {noPlace}},

    {"absolute, Hi/Lo", full, false, [] { alarms(0, 2, 2); }, {}},
    {"deviation, Hi/Lo and Band", full, false, [] { alarms(1, 2, 3); }, {}},
    {"deviation, Band and Hi/Lo", full, false, [] { alarms(1, 3, 2); }, {}},
    {"absolute, Band at alarm 1", full, false, [] { alarms(0, 3, 2); }, {band1}},
    {"absolute, Band at alarm 2", full, false, [] { alarms(0, 2, 3); }, {band2}},
    {"absolute, Band at both", full, false, [] { alarms(0, 3, 3); }, {band1, band2}},
    {"alarm 1 alone absolute",
     full,
     false,
     [] { alarms(1, 3, 3), Memo[rec::cboAl1Ctrl].value = 0; },
     {band1}},

    {"simple menu, as it is", kind::simpleMenu, false, [] {}, {actions, simple}},
    {"simple menu, Hi/Lo", kind::simpleMenu, false, [] { alarms(0, 2, 2); }, {actions, simple}},
    {"simple menu, all else",
     kind::simpleMenu,
     false,
     [] {
       alarms(1, 0, 0);
       allOtherThanSimple();
     },
     {actions, simple}},
    {"simple menu, analog", kind::simpleMenu, true, [] {}, {actions, simple, simpleAnalog, pid, noAlarm1}},
    {"simple menu, tuning",
     kind::simpleMenu,
     false,
     [] { tuning(true, true, true, true); },
     {actions, simple, noTuning}},
    {"simple menu, analog, tuning",
     kind::simpleMenu,
     true,
     [] { tuning(true, true, false, false); },
     {actions, simple, simpleAnalog, pid, noAlarm1}},
    {"alarms only", kind::alarmsOnly, false, [] { Memo[rec::chkLBAEnabled].value = 1; }, {noLoopBreak}},
    {"Rkw77 line", kind::rkw77, false, [] { Memo[rec::chkAnalogOutputEnabled].value = 1; }, {noAnalog}},
    {"Rkw77 line, analog", kind::rkw77, true, [] {}, {noAnalog, pid}},
    {"analog", full, true, [] { Memo[rec::chkAl1Enabled].value = 1; }, {pid, noAlarm1}},

    {"tuning, output 1", full, false, [] { tuning(true, true, false, false); }, {}},
    {"tuning, output 2", full, false, [] { tuning(false, false, true, true); }, {}},
    {"tuning without auto PID", full, false, [] { tuning(true, false, true, false); }, {noTuning}},
    {"tuning without PID", full, false, [] { tuning(false, true, false, true); }, {noTuning}},
    {"tuning, each has one of them", full, false, [] { tuning(true, false, false, true); }, {noTuning}},
    {"tuning, the other way round", full, false, [] { tuning(false, true, true, false); }, {noTuning}},
    {"tuning, an analog output goes to PID",
     full,
     true,
     [] { tuning(false, true, false, false); },
     {pid, noAlarm1}},
    {"tuning, analog without auto PID",
     full,
     true,
     [] { tuning(false, false, false, false); },
     {pid, noAlarm1, noTuning}},

    {"protected: set points", full, false, [] { chooseOption(rec::optIDCode, 3, 1); }, {}},
    {"protected: all", full, false, [] { chooseOption(rec::optIDCode, 3, 2); }, {}},
    {"protected: both",
     full,
     false,
     [] {
       chooseOption(rec::optIDCode, 3, 1);
       flags({rec::optIDCode + 2});
     },
     {protection}},
    {"RS-232, as found",
     full,
     false,
     [] {
       flags({rec::optNoChange, rec::optRS232});
     },
     {bus}},
    {"RS-485, as found",
     full,
     false,
     [] {
       Memo[rec::optRS232].flag = False;
       flags({rec::optNoChange, rec::optRS485});
     },
     {bus}},
    {"no code in force", full, false, [] { Memo[rec::chkIDEnabled].value = 0; }, {code}},
};

bool meansTheSame(const MemoField& one, const MemoField& other) {
  const bool sameText =
      one.text == other.text || (one.text.find(':') == one.text.npos && Val(one.text) == Val(other.text));
  return one.value == other.value && one.flag == other.flag && one.extra == other.extra && sameText;
}

bool isLineOfThisComputer(int record) { return record >= rec::cboCommPort && record <= rec::cboStop; }

class Forcing : public EditorTest {
 protected:
  // A setup of the unit that no rule changes, but for the row's change.
  void bring(const Incoming& row) {
    freshSetup();
    Global.WarningsOff = True;
    chooseUnit(row.kind, row.analogOutput);
    Memo[rec::deviceClass].extra = static_cast<std::int16_t>(DeviceState.DeviceClass);
    Memo[rec::optNoChange].flag = False;
    Memo[rec::optRS232].flag = True;
    row.change();
  }

  static std::set<int> holding() {
    std::set<int> rules;
    for (int rule = 0; rule < count; ++rule) {
      if (forcedRules()[static_cast<std::size_t>(rule)].holds()) rules.insert(rule);
    }
    return rules;
  }

  // What the window leaves of the records in another meaning.
  std::set<int> changedByTheWindow() {
    const MemoArray before = Memo;
    editor.showRecords();
    editor.SilentSetup = True;
    editor.cmdCnfg_Click();
    editor.writeMemo(tab::idCode);
    std::set<int> changed;
    for (int record = 0; record <= rec::optNoChange; ++record) {
      if (!isLineOfThisComputer(record) && !meansTheSame(Memo[record], before[record]))
        changed.insert(record);
    }
    return changed;
  }
};

std::vector<int> rulesNaming(int record, const std::set<int>& rules) {
  std::vector<int> naming;
  for (const int rule : rules) {
    const auto& records = forcedRules()[static_cast<std::size_t>(rule)].records;
    if (std::ranges::find(records, record) != records.end()) naming.push_back(rule);
  }
  return naming;
}

TEST_F(Forcing, HoldsWhereItShouldAndNowhereBeside) {
  ASSERT_EQ(forcedRules().size(), count);
  for (const Incoming& row : incoming) {
    bring(row);
    EXPECT_EQ(holding(), row.rules) << row.name;
  }
}

TEST_F(Forcing, ChangesEveryRecordThatARuleNamesAndNoOther) {
  std::set<std::pair<int, int>> seen;  // rule and record, where no other rule could have been the cause
  for (const Incoming& row : incoming) {
    bring(row);
    for (const int record : changedByTheWindow()) {
      const std::vector<int> naming = rulesNaming(record, row.rules);
      EXPECT_FALSE(naming.empty()) << row.name << ", record " << record;
      if (naming.size() == 1) seen.emplace(naming.front(), record);
    }
  }
  for (int rule = 0; rule < count; ++rule) {
    for (const int record : forcedRules()[static_cast<std::size_t>(rule)].records) {
      EXPECT_TRUE(seen.contains({rule, record})) << "rule " << rule << ", record " << record;
    }
  }
}

}  // namespace

}  // namespace torvane
