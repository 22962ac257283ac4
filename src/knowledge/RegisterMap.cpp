// SPDX-License-Identifier: MIT
// The register map.
#include "knowledge/RegisterMap.h"

#include <algorithm>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "knowledge/Sections.h"
#include "protocol/EncodersMasks.h"
#include "protocol/Steps.h"

namespace torvane {

namespace {

using enum FieldForm;
using namespace section;

// ---- conditions

bool simple(const UnitContext& at) { return at.kind == kind::simpleMenu; }
bool notSimple(const UnitContext& at) { return !simple(at); }
bool thermocouple(const UnitContext& at) { return at.input == 0; }
bool rtd(const UnitContext& at) { return at.input == 1; }
bool process(const UnitContext& at) { return at.input == 2; }
bool noInput(const UnitContext& at) { return !thermocouple(at) && !rtd(at) && !process(at); }
bool band1IsProportional(const UnitContext& at) { return notSimple(at) && at.out1Pid; }
bool band1IsDead(const UnitContext& at) { return notSimple(at) && !at.out1Pid; }
bool band2IsProportional(const UnitContext& at) { return notSimple(at) && at.out2Pid; }
bool band2IsDead(const UnitContext& at) { return notSimple(at) && !at.out2Pid; }

// ---- words that only codes have

// Codes count from 1.
constexpr const char* readingFormatCodes[] = {"", "XXXX.", "XXX.X", "XX.XX", "X.XXX"};
// Curve "392" counts the wires from 0, curve "385" from 3.
constexpr const char* rtdCodes[] = {"2 wires  392", "3 wires  392", "4 wires  392",
                                    "2 wires  385", "3 wires  385", "4 wires  385"};
// Two bits, one for each level.
constexpr const char* protectionCodes[] = {"None", "Setpoints", "Full", "Setpoints, Full"};

// clang-format off
constexpr RegisterRow rows[] = {
    {"07", 2, "Input Type"},          {"08", 2, "Reading"},              {"01", 6, "Set-Point 1"},
    {"02", 6, "Set-Point 2"},         {"14", 6, "Reading Scale"},        {"03", 6, "Reading Offset"},
    {"09", 2, "Alarm 1"},             {"13", 6, "Alarm 1 High"},         {"12", 6, "Alarm 1 Low"},
    {"0A", 2, "Alarm 2"},             {"16", 6, "Alarm 2 High"},         {"15", 6, "Alarm 2 Low"},
    {"0B", 4, "Loop Break Time"},     {"25", 6, "Temperature Adjust"},   {"05", 4, "ID Code"},
    {"0C", 2, "Output 1"},            {"0D", 2, "Output 2"},             {"17", 4, "Out 1 Band"},
    {"18", 4, "Out 1 Reset"},         {"19", 4, "Out 1 Rate"},           {"1A", 2, "Out 1 Cycle Time"},
    {"1C", 4, "Out 2 Band"},          {"1D", 2, "Out 2 Cycle Time"},     {"0E", 4, "Ramp Time"},
    {"1E", 4, "Soak Time"},           {"11", 2, "Display Colors"},       {"24", 2, "Protection and Self"},
    {"0F", 6, "Analog Output Scale"}, {"04", 6, "Analog Output Offset"}, {"27", 2, "Out 1 Manual % Low"},
    {"28", 2, "Out 1 Manual % High"}, {"1F", 2, "Bus Format"},           {"21", 2, "Bus Address"},
};

constexpr RegisterField fields[] = {
    {"07", 0x03, input, "Signal", choice, {rec::optInType, rec::optInType + 1, rec::optInType + 2, -1}, choices::inputTypes},
    {"07", 0xFC, input, "Thermocouple Type", choice, {rec::lstTCTypes, -1, -1, -1}, choices::thermocouples, false, thermocouple},
    {"07", 0x3C, input, "RTD Wires and Curve", choice, {rec::cboRTDWires, rec::cboRTDCurves, -1, -1}, rtdCodes, false, rtd},
    {"07", 0xC0, input, "RTD Value", choice, {rec::cboRTDValue, -1, -1, -1}, choices::rtdValues, false, rtd},
    {"07", 0xFC, input, "Process Range", choice, {rec::lstProc, -1, -1, -1}, choices::processRanges, false, process},
    {"07", 0xFC, input, nullptr, digits, {-1, -1, -1, -1}, {}, false, noInput},

    {"08", 0x07, readingTab, "Decimal Point", choice, {rec::optDpoint, rec::optDpoint + 1, rec::optDpoint + 2, rec::optDpoint + 3}, readingFormatCodes},
    {"08", 0x08, readingTab, "Temperature Unit", choice, {rec::cboTUnit, -1, -1, -1}, choices::temperatureUnits},
    {"08", 0x10, readingTab, nullptr, digits},
    {"08", 0xE0, readingTab, "Filter Constant", choice, {rec::lstFiltConst, -1, -1, -1}, choices::filters},

    {"01", all24, setPoints, "Set-Point 1", reading, {rec::txtSp1, -1, -1, -1}},
    {"02", all24, setPoints, "Set-Point 2", reading, {rec::txtSp2, -1, -1, -1}},
    {"14", all24, readingLine, "Scale", scale, {rec::txtIn1, rec::txtRd1, rec::txtIn2, rec::txtRd2}},
    {"03", all24, readingLine, "Offset", offset, {rec::txtIn1, rec::txtRd1, rec::txtIn2, rec::txtRd2}},

    // The analog output's enable is in the same bit.
    {"09", 0x01, alarm1, "Enabled", choice, {rec::chkAl1Enabled, rec::chkAnalogOutputEnabled, -1, -1}, choices::ticks},
    {"09", 0x02, alarm1, "Control", choice, {rec::cboAl1Ctrl, -1, -1, -1}, choices::alarmControls},
    {"09", 0x04, alarm1, "Latch", choice, {rec::cboAl1Latch, rec::cboAl2Latch, -1, -1}, choices::latches, true},
    {"09", 0x08, alarm1, "Closure", choice, {rec::cboAl1Closure, -1, -1, -1}, choices::closures},
    {"09", 0x30, alarm1, "Setup", choice, {rec::cboAl1Setup, -1, -1, -1}, choices::alarmSetups, false, notSimple},
    {"09", 0x30, alarm1, nullptr, digits, {-1, -1, -1, -1}, {}, false, simple},
    {"09", 0x40, loopBreak, "Enabled", choice, {rec::chkLBAEnabled, -1, -1, -1}, choices::ticks},
    {"09", 0x80, alarm1, "Auto Power-On", choice, {rec::chkAl1AutoPOn, -1, -1, -1}, choices::ticks},
    {"13", all24, alarm1, "High Set-Point", reading, {rec::txtAl1HiSp, -1, -1, -1}},
    {"12", all24, alarm1, "Low Set-Point", reading, {rec::txtAl1LoSp, -1, -1, -1}},

    {"0A", 0x01, alarm2, "Enabled", choice, {rec::chkAl2Enabled, -1, -1, -1}, choices::ticks},
    {"0A", 0x02, alarm2, "Control", choice, {rec::cboAl2Ctrl, -1, -1, -1}, choices::alarmControls},
    {"0A", 0x04, alarm2, "Latch", choice, {rec::cboAl2Latch, -1, -1, -1}, choices::latches, true},
    {"0A", 0x08, alarm2, "Closure", choice, {rec::cboAl2Closure, -1, -1, -1}, choices::closures},
    {"0A", 0x30, alarm2, "Setup", choice, {rec::cboAl2Setup, -1, -1, -1}, choices::alarmSetups, false, notSimple},
    {"0A", 0x30, alarm2, nullptr, digits, {-1, -1, -1, -1}, {}, false, simple},
    {"0A", 0x40, alarm2, nullptr, digits},
    {"0A", 0x80, analog, "Mode", choice, {rec::optAOutV, rec::optAOutI, -1, -1}, choices::analogModes},
    {"16", all24, alarm2, "High Set-Point", reading, {rec::txtAl2HiSp, -1, -1, -1}},
    {"15", all24, alarm2, "Low Set-Point", reading, {rec::txtAl2LoSp, -1, -1, -1}},

    {"0B", all16, loopBreak, "Loop Break Time", time, {rec::txtLBATime, -1, -1, -1}},
    {"25", all24, loopBreak, "Temperature Adjust", reading, {rec::txtTAdjust, -1, -1, -1}},
    {"05", all16, general, "ID Code", code, {rec::txtIDCode, -1, -1, -1}},

    {"0C", 0x01, out1, "Control Type", choice, {rec::cboOut1Ctrl, -1, -1, -1}, choices::outputControls},
    {"0C", 0x02, out1, "Action Type", choice, {rec::cboOut1Action, -1, -1, -1}, choices::outputActions, false, notSimple},
    {"0C", 0x02, alarm1, "Setup", choice, {rec::cboAl1Setup, -1, -1, -1}, Choices(choices::alarmSetups).first(2), true, simple},
    {"0C", 0x04, out1, "Auto PID", choice, {rec::chkOut1AutoPID, -1, -1, -1}, choices::abilities},
    {"0C", 0x08, out1, "Spare Bit", choice, {-1, -1, -1, -1}, choices::ticks},
    {"0C", 0x10, out1, "Anti-Integeral", choice, {rec::chkOut1Anti, -1, -1, -1}, choices::abilities},
    {"0C", 0x20, out1, "Auto-Tune Start", choice, {rec::chkOut1Start, -1, -1, -1}, choices::abilities},
    {"0C", 0x40, out1, "4-20mA Enabled", choice, {rec::opt420mA, rec::opt020mA, -1, -1}, choices::truths},
    {"0C", 0x80, out1, nullptr, digits, {-1, -1, -1, -1}, {}, false, notSimple},
    {"0C", 0x80, out1, "Simplified Menu", choice, {-1, -1, -1, -1}, choices::abilities, false, simple},

    {"0D", 0x01, out2, "Control Type", choice, {rec::cboOut2Ctrl, -1, -1, -1}, choices::outputControls},
    {"0D", 0x02, out2, "Action Type", choice, {rec::cboOut2Action, -1, -1, -1}, choices::outputActions, false, notSimple},
    {"0D", 0x02, alarm2, "Setup", choice, {rec::cboAl2Setup, -1, -1, -1}, Choices(choices::alarmSetups).first(2), true, simple},
    {"0D", 0x04, out2, "Auto PID", choice, {rec::chkOut2AutoPID, -1, -1, -1}, choices::abilities},
    {"0D", 0x08, rampSoak, "Ramp Enabled", choice, {rec::chkRampEn, -1, -1, -1}, choices::truths},
    {"0D", 0x10, rampSoak, "Soak Enabled", choice, {rec::chkSoakEn, -1, -1, -1}, choices::truths},
    {"0D", 0xE0, out1, "Damping Factor", choice, {rec::lstOut1DamFactor, -1, -1, -1}, choices::dampingFactors},

    {"17", all16, out1, "Prop. Band", band, {rec::txtOut1PB, -1, -1, -1}, {}, false, band1IsProportional},
    {"17", all16, out1, "Dead Band", band, {rec::txtOut1DeadBand, -1, -1, -1}, {}, false, band1IsDead},
    {"17", all16, alarm1, "Dead Band", band, {rec::txtOut1PB, rec::txtOut1DeadBand, -1, -1}, {}, false, simple},
    {"18", all16, out1, "Reset", code, {rec::txtOut1Reset, -1, -1, -1}},
    {"19", all16, out1, "Rate", tenths, {rec::txtOut1Rate, -1, -1, -1}},
    {"1A", 0xFF, out1, "Cycle Time", seconds, {rec::HSOut1CycleT, -1, -1, -1}},
    {"1C", all16, out2, "Prop. Band", band, {rec::txtOut2PB, -1, -1, -1}, {}, false, band2IsProportional},
    {"1C", all16, out2, "Dead Band", band, {rec::txtOut2DeadBand, -1, -1, -1}, {}, false, band2IsDead},
    {"1C", all16, alarm2, "Dead Band", band, {rec::txtOut2PB, rec::txtOut2DeadBand, -1, -1}, {}, false, simple},
    {"1D", 0xFF, out2, "Cycle Time", seconds, {rec::HSOut2CycleT, -1, -1, -1}},
    {"0E", all16, rampSoak, "Ramp Value", time, {rec::txtRampT, -1, -1, -1}},
    {"1E", all16, rampSoak, "Soak Value", time, {rec::txtSoakT, -1, -1, -1}},

    {"11", 0x03, setPoints, "Color when normal", choice, {rec::cboNormalColor, -1, -1, -1}, choices::colors, true},
    {"11", 0x0C, alarm1, "Color when active", choice, {rec::cboAl1WhenActiveColor, -1, -1, -1}, choices::colors, true},
    {"11", 0x30, alarm2, "Color when active", choice, {rec::cboAl2WhenActiveColor, -1, -1, -1}, choices::colors, true},
    {"11", 0xC0, setPoints, nullptr, digits},

    {"24", 0x03, general, nullptr, digits},
    {"24", 0x0C, general, "Protection", choice, {rec::optIDCode, rec::optIDCode + 1, rec::optIDCode + 2, -1}, protectionCodes},
    {"24", 0x10, out1, "Self Enabled", choice, {rec::chkOut1Self, -1, -1, -1}, choices::truths},
    {"24", 0x60, general, nullptr, digits},
    {"24", 0x80, setPoints, "Set-Point Deviation", choice, {rec::chkSPDeviation, -1, -1, -1}, choices::abilities},

    {"0F", all24, analog, "Scale", analogScale, {rec::txtAOutRd1, rec::txtAOutOut1, rec::txtAOutRd2, rec::txtAOutOut2}},
    {"04", all24, analog, "Offset", offset, {rec::txtAOutRd1, rec::txtAOutOut1, rec::txtAOutRd2, rec::txtAOutOut2}},
    {"27", 0xFF, out1, "Manual % low", number, {rec::HSOut1Low, -1, -1, -1}},
    {"28", 0xFF, out1, "Manual % high", number, {rec::HSOut1High, -1, -1, -1}},

    {"1F", 0x37, comm, "Bus Format", digits},
    {"1F", 0x08, comm, "Bus", choice, {rec::optRS485, -1, -1, -1}, choices::buses},
    {"1F", 0xC0, comm, nullptr, digits},
    {"21", 0xFF, comm, "Bus Address", number, {rec::txtRS485Address, -1, -1, -1}},
};
// clang-format on

std::uint32_t codeAt(const RegisterDigits& digits, std::string_view reg) {
  return static_cast<std::uint32_t>(hexValue(digitsOf(digits, reg)));
}

}  // namespace

std::span<const RegisterRow, registerCount> registerRows() { return rows; }

int registerPlace(std::string_view reg) {
  for (std::size_t place = 0; place < registerCount; ++place) {
    if (rows[place].reg == reg) return static_cast<int>(place);
  }
  return -1;
}

std::int32_t maskOf(std::string_view reg, int kind) {
  const std::int32_t index = hexValue(reg);
  const auto* const row = std::ranges::find(masks::table, index, &MaskRow::index);
  return row == std::end(masks::table) ? masks::skip : row->masks[static_cast<std::size_t>(kind)];
}

bool hasRegister(std::string_view reg, int kind) {
  const RegisterStep* const step = stepOf(reg);
  return step != nullptr && (kind != kind::rkw77 || step->onRkw77);
}

const std::string& digitsOf(const RegisterDigits& digits, std::string_view reg) {
  return digits.at(static_cast<std::size_t>(registerPlace(reg)));
}

RegisterDigits completed(RegisterDigits digits, const RegisterDigits& other) {
  for (std::size_t place = 0; place < registerCount; ++place) {
    if (digits[place].empty()) digits[place] = other[place];
  }
  return digits;
}

UnitContext contextOf(const RegisterDigits& digits, int kind) {
  UnitContext context{.kind = kind};
  if (!digitsOf(digits, "07").empty()) context.input = static_cast<int>(codeAt(digits, "07") & 3U);
  const int format = static_cast<int>(codeAt(digits, "08") & 7U);
  if (format >= 1 && format <= 4) context.decimals = format - 1;
  context.out1Pid = (codeAt(digits, "0C") & 1U) != 0;
  context.out2Pid = (codeAt(digits, "0D") & 1U) != 0;
  return context;
}

std::span<const RegisterField> registerFields() { return fields; }

std::span<const RegisterField> fieldsOf(std::string_view reg) {
  const auto isOf = [reg](const RegisterField& field) { return field.reg == reg; };
  const auto* const first = std::ranges::find_if(fields, isOf);
  return {first, std::find_if_not(first, std::end(fields), isOf)};
}

bool isSetting(const RegisterField& field) { return field.name != nullptr; }

bool appliesIn(const RegisterField& field, const UnitContext& context) {
  return field.applies == nullptr || field.applies(context);
}

}  // namespace torvane
