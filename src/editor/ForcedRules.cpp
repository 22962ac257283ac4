// SPDX-License-Identifier: MIT
// What the window changes in a setup that is opened or read.
#include "editor/ForcedRules.h"

#include "core/Memo.h"
#include "core/Model.h"
#include "editor/AlarmSetup.h"

namespace torvane {

namespace {

bool ticked(int record) { return Memo[record].value != 0; }
bool isAlarmsOnly() { return setupHasMenu(menu::alarmsOnly); }
bool isSimpleMenu() { return setupHasMenu(menu::simple); }

bool isTemperature() { return isChosen(rec::optInType) || isChosen(rec::optInType + 1); }
bool hasFineFormat() { return isChosen(rec::optDpoint + 2) || isChosen(rec::optDpoint + 3); }

bool hasNoFormat() { return !isChosen(rec::optDpoint) && !isChosen(rec::optDpoint + 1) && !hasFineFormat(); }

bool isBandWithoutDeviation(int control, int setup) {
  return Memo[control].value == 0 && Memo[setup].value >= alarmSetup::band;
}

bool isInPid(int control, int automatic) { return ticked(control) && ticked(automatic); }

bool startsTuningInVain() {
  const bool first = !isSimpleMenu() && isInPid(rec::cboOut1Ctrl, rec::chkOut1AutoPID);
  const bool second = !isSimpleMenu() && isInPid(rec::cboOut2Ctrl, rec::chkOut2AutoPID);
  const bool forced = output1IsAnalog() && ticked(rec::chkOut1AutoPID);
  return ticked(rec::chkOut1Start) && !first && !second && !forced;
}

bool areBothLevelsSet() { return isChosen(rec::optIDCode + 1) && isChosen(rec::optIDCode + 2); }

}  // namespace

std::span<const ForcedRule> forcedRules() {
  static const std::vector<ForcedRule> rules = {
      {{rec::optDpoint + 1, rec::optDpoint + 2, rec::optDpoint + 3, rec::txtSp1, rec::txtSp2, rec::txtAl1HiSp,
        rec::txtAl1LoSp, rec::txtAl2HiSp, rec::txtAl2LoSp, rec::txtTAdjust, rec::txtOut1DeadBand,
        rec::txtOut1PB, rec::txtOut2DeadBand, rec::txtOut2PB},
       "The input is a thermocouple or an RTD, and the reading has two or three decimals",
       "One decimal, and all numbers in the format of the reading are rounded to it",
       [] { return isTemperature() && hasFineFormat(); }},
      {{rec::optDpoint},
       "The decimal point is at no place that the tab Reading offers",
       "xxxx.",
       hasNoFormat},
      {{rec::cboAl1Setup},
       "Alarm 1 is Absolute and Band",
       "Above",
       [] { return isBandWithoutDeviation(rec::cboAl1Ctrl, rec::cboAl1Setup); }},
      {{rec::cboAl2Setup},
       "Alarm 2 is Absolute and Band",
       "Above",
       [] { return isBandWithoutDeviation(rec::cboAl2Ctrl, rec::cboAl2Setup); }},
      {{rec::cboAl1Setup, rec::cboAl2Setup},
       "Simple menu, and an alarm is Hi/Lo or Band",
       "Above",
       isSimpleMenu},
      {{rec::cboAl1Ctrl, rec::cboAl2Ctrl, rec::chkAl1Enabled, rec::chkAl2Enabled, rec::cboOut1Ctrl,
        rec::cboOut2Ctrl, rec::chkRampEn},
       "Simple menu",
       "Both alarms are on and Absolute, both outputs On/Off, the ramp is off",
       isSimpleMenu},
      {{rec::chkAnalogOutputEnabled},
       "Simple menu with an analog output",
       "The analog output is on",
       [] { return isSimpleMenu() && output1IsAnalog(); }},
      {{rec::chkLBAEnabled}, "Alarms only", "The loop break alarm is off", isAlarmsOnly},
      {{rec::chkAnalogOutputEnabled}, "Rkw77 line", "The analog output is off", onRkw77Line},
      {{rec::cboOut1Ctrl}, "Output 1 is analog", "PID", output1IsAnalog},
      {{rec::chkAl1Enabled},
       "Output 1 is analog and takes alarm 1's place",
       "Alarm 1 is off",
       [] { return output1IsAnalog() && !onRkw77Line(); }},
      {{rec::chkOut1Start},
       "Auto-tune is to start, and no output is in PID with auto PID",
       "It doesn't start",
       startsTuningInVain},
      {{rec::optIDCode + 1}, "Both levels of the ID code's protection at once", "Full", areBothLevelsSet},
      {{rec::optRS232, rec::optRS485},
       "The bus is chosen, and it is to be left as found",
       "Left as found",
       [] { return isChosen(rec::optNoChange); }},
      {{rec::chkIDEnabled},
       "The ID code is not in force",
       "It is in force",
       [] { return !ticked(rec::chkIDEnabled); }},
  };
  return rules;
}

}  // namespace torvane
