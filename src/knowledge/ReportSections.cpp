// SPDX-License-Identifier: MIT
// The sections of the report.
#include "knowledge/ReportSections.h"

#include "core/Choices.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "knowledge/Sections.h"

namespace torvane {

namespace {

using enum RowKind;

// ---- values

std::string text(int record) { return Memo[record].text; }
std::string number(int record) { return numberText(std::int32_t{Memo[record].value}); }
std::string seconds(int record) { return number(record) + "s"; }
std::string item(int record) { return choiceAt(choicesOf(record), Memo[record].value); }
std::string flag(int record) { return choiceAt(choices::truths, isChosen(record)); }
std::string isOne(int record) { return choiceAt(choices::truths, Memo[record].value == 1); }
std::string abled(int record) { return choiceAt(choices::abilities, Memo[record].value == 1); }

// Anything but the first two is the third.
std::string color(int record) {
  const int index = Memo[record].extra;
  return choiceAt(choices::colors, index == 0 || index == 1 ? index : 2);
}

std::string protection(int record) { return choiceAt(choices::protections, record - rec::optIDCode); }

std::string inputType(int first) {
  if (isChosen(first)) return "TC " + item(rec::lstTCTypes) + "-type";
  if (!isChosen(first + 1)) return "Process " + item(rec::lstProc);
  return "RTD " + item(rec::cboRTDValue) + " ohm  " + item(rec::cboRTDWires) + " wires  " +
         item(rec::cboRTDCurves);
}

// The first one that is set, the last one where none is.
std::string decimalPoint(int first) {
  int chosen = 0;
  while (chosen < 3 && !isChosen(first + chosen)) ++chosen;
  return choiceAt(choices::readingFormats, chosen);
}

std::string voltOrCurrent(int record) { return choiceAt(choices::analogModes, !isChosen(record)); }

// ---- conditions

bool always() { return true; }
bool never() { return false; }
bool full() { return meterKind() == kind::fullController; }
bool simple() { return meterKind() == kind::simpleMenu; }
bool notSimple() { return !simple(); }
bool readable() { return !onRkw77Line(); }
bool notReadable() { return !readable(); }

template <int record>
bool isSet() {
  return isChosen(record);
}
template <int record>
bool isOnOff() {
  return Memo[record].value == 0;
}
template <int record>
bool isPid() {
  return Memo[record].value != 0;
}

// ---- tables

// clang-format off
constexpr ReportRow protectionRows[] = {
    {boldField, "ID Code:            ", text, rec::txtIDCode, always},
    {labelOnly, "Protection:      ", nullptr, 0, always},
    {valueOnly, nullptr, protection, rec::optIDCode,     isSet<rec::optIDCode>},
    {valueOnly, nullptr, protection, rec::optIDCode + 1, isSet<rec::optIDCode + 1>},
    {valueOnly, nullptr, protection, rec::optIDCode + 2, isSet<rec::optIDCode + 2>},
};

constexpr ReportRow setPointRows[] = {
    {heading, "Set Points ", nullptr, 0, always},
    {field, "Set-Point 1:        ", text, rec::txtSp1, always},
    {field, "Set-Point 2:        ", text, rec::txtSp2, always},
    {field, "Color when normal: ", color, rec::cboNormalColor, always},
};

constexpr ReportRow inputRows[] = {
    {field, "Input Type:         ", inputType, rec::optInType, always},
};

constexpr ReportRow readingRows[] = {
    {heading, section::readingTab, nullptr, 0, always},
    {field, "Decimal Point:      ", decimalPoint, rec::optDpoint, always},
    {field, "Temperature Unit:   ", item, rec::cboTUnit, always},
    {field, "Filter Constant:    ", item, rec::lstFiltConst, always},
    {heading, section::readingLine, nullptr, 0, always},
    {field, "In 1:               ", text, rec::txtIn1, always},
    {field, "Read 1:             ", text, rec::txtRd1, always},
    {field, "In 2:               ", text, rec::txtIn2, always},
    {field, "Read 2:             ", text, rec::txtRd2, always},
};

constexpr ReportRow alarm1Rows[] = {
    {heading, section::alarm1, nullptr, 0, always},
    {field, "Enabled:            ", number, rec::chkAl1Enabled, always},
    {field, "Color when active: ", color, rec::cboAl1WhenActiveColor, always},
    {field, "Control:            ", item, rec::cboAl1Ctrl, notSimple},
    {field, "Latch:              ", item, rec::cboAl1Latch, always},
    {field, "Closure:            ", item, rec::cboAl1Closure, notSimple},
    {field, "Setup:              ", item, rec::cboAl1Setup, always},
    // The simple menu has one dead band for both alarms, and it is kept as output 1's proportional band.
    {field, "Dead Band:          ", text, rec::txtOut1PB, simple},
    {field, "Auto Power-On:      ", number, rec::chkAl1AutoPOn, notSimple},
    {field, "High Set-Point:     ", text, rec::txtAl1HiSp, notSimple},
    {field, "Low Set-Point:      ", text, rec::txtAl1LoSp, notSimple},
};

constexpr ReportRow alarm2Rows[] = {
    {heading, section::alarm2, nullptr, 0, always},
    {field, "Enabled:            ", number, rec::chkAl2Enabled, always},
    {field, "Color when active: ", color, rec::cboAl2WhenActiveColor, always},
    {field, "Control:            ", item, rec::cboAl2Ctrl, notSimple},
    {field, "Latch:              ", item, rec::cboAl2Latch, always},
    {field, "Closure:            ", item, rec::cboAl2Closure, notSimple},
    {field, "Setup:              ", item, rec::cboAl2Setup, always},
    {field, "Dead Band:          ", text, rec::txtOut1PB, simple},
    {field, "High Set-Point:     ", text, rec::txtAl2HiSp, notSimple},
    {field, "Low Set-Point:      ", text, rec::txtAl2LoSp, notSimple},
};

constexpr ReportRow loopBreakRows[] = {
    {heading, section::loopBreak, nullptr, 0, always},
    {field, "Enabled:            ", number, rec::chkLBAEnabled, full},
    {field, "Loop Break Time:    ", text, rec::txtLBATime, full},
    {field, "Temperature Adjust: ", text, rec::txtTAdjust, always},
};

constexpr ReportRow output1Rows[] = {
    {heading, section::out1, nullptr, 0, always},
    {field, "Self Enabled:       ", isOne, rec::chkOut1Self, always},
    {field, "4-20mA Enabled:     ", flag, rec::opt420mA, always},
    {field, "Control Type:       ", item, rec::cboOut1Ctrl, always},
    {field, "Action Type:        ", item, rec::cboOut1Action, always},
    {field, "Auto PID:           ", abled, rec::chkOut1AutoPID, always},
    {field, "Anti-Integeral:     ", abled, rec::chkOut1Anti, always},
    {field, "Prop. Band:         ", text, rec::txtOut1PB, isPid<rec::cboOut1Ctrl>},
    {field, "Reset:              ", text, rec::txtOut1Reset, isPid<rec::cboOut1Ctrl>},
    {field, "Rate:               ", text, rec::txtOut1Rate, isPid<rec::cboOut1Ctrl>},
    {field, "Damping Factor:     ", item, rec::lstOut1DamFactor, isPid<rec::cboOut1Ctrl>},
    {field, "Cycle Time:        ", seconds, rec::HSOut1CycleT, isPid<rec::cboOut1Ctrl>},
    {field, "Dead Band:          ", text, rec::txtOut1DeadBand, isOnOff<rec::cboOut1Ctrl>},
    {field, "Manual % low:       ", text, rec::HSOut1Low, readable},
    {field, "Manual % high:     ", text, rec::HSOut1High, readable},
    {line, "** The Proportional Output values are not readable from the meter. **", nullptr, 0, notReadable},
};

constexpr ReportRow output2Rows[] = {
    {heading, section::out2, nullptr, 0, always},
    {field, "Control Type:       ", item, rec::cboOut2Ctrl, always},
    {field, "Action Type:        ", item, rec::cboOut2Action, always},
    {field, "Auto PID            ", abled, rec::chkOut2AutoPID, always},
    {field, "Prop. Band:         ", text, rec::txtOut2PB, isPid<rec::cboOut2Ctrl>},
    {field, "Cycle Time:        ", seconds, rec::HSOut2CycleT, isPid<rec::cboOut2Ctrl>},
    {field, "Dead Band:          ", text, rec::txtOut2DeadBand, isOnOff<rec::cboOut2Ctrl>},
};

constexpr ReportRow rampAndSoakRows[] = {
    {heading, section::rampSoak, nullptr, 0, always},
    {field, "Ramp Enabled:       ", isOne, rec::chkRampEn, always},
    {field, "Soak Enabled:       ", isOne, rec::chkSoakEn, always},
    {field, "Ramp Value:         ", text, rec::txtRampT, always},
    {field, "Soak Value:         ", text, rec::txtSoakT, always},
};

constexpr ReportRow analogRows[] = {
    {heading, section::analog, nullptr, 0, always},
    {field, "Enabled:       ", number, rec::chkAnalogOutputEnabled, always},
    {field, "Mode              ", voltOrCurrent, rec::optAOutV, always},
    {field, "Read 1          ", text, rec::txtAOutRd1, always},
    {field, "Read 2          ", text, rec::txtAOutRd2, always},
    {field, "Output 1         ", text, rec::txtAOutOut1, always},
    {field, "Output 2         ", text, rec::txtAOutOut2, always},
};

constexpr ReportSection sections[] = {
    // printed, space after, rows
    {always, false, protectionRows},
    {always, true, setPointRows},
    {always, true, inputRows},
    {always, true, readingRows},
    {always, true, alarm1Rows},
    {always, true, alarm2Rows},
    {always, true, loopBreakRows},
    {full, true, output1Rows},
    {full, true, output2Rows},
    {full, true, rampAndSoakRows},
    {always, true, analogRows},
    {never, false, {}},
    {never, false, {}},
};
// clang-format on

}  // namespace

std::span<const ReportSection> reportSections() { return sections; }

}  // namespace torvane
