// SPDX-License-Identifier: MIT
// The boxes of a setup: tabs, records, controls, and how what is typed becomes legal.
#include "editor/SetupBoxes.h"

#include <algorithm>
#include <stdexcept>

#include "core/Memo.h"
#include "core/Model.h"

namespace torvane {

namespace {

// The words are those that users know: rate and reset speak of the proportional band, the second output of
// "Read 1", and the times of ramp and soak, which are hours and minutes, of minutes and seconds.
constexpr const char* unsaid = nullptr;
constexpr const char* setPoint1Changed =
    "SetPoint1 Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* setPoint2Changed =
    "SetPoint2 Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* entryChanged = "Entry changed after validation.\r\nPlease verify new value is correct.";
constexpr const char* negativeDeadBand = "Entry for Dead Band can not be less than zero.";
constexpr const char* negativeBand = "Entry for Proportional Band can not be less than zero.";
constexpr const char* timeWanted =
    "Please enter value in:\r\n"
    "two digits minute (99 max), colon (:), two digits seconds \r\n"
    "(59 max).\r\n"
    "Verify your entry before continuing.";

// Rules: how the value comes about, what is said of a repair and of a value below 0, the pictures in which it
// is compared and shown, limits and what is said above them.
constexpr EntryRule setPoint(const char* changedText) {
  return {Value::reading, changedText, unsaid, inReadingFormat, inReadingFormat};
}

constexpr EntryRule band(const char* negativeText) {
  return {Value::absReading, entryChanged, negativeText, inReadingFormat, inReadingFormat};
}

constexpr EntryRule wholeNumber(const char* negativeText, Limits limits) {
  return {Value::absInt, unsaid, negativeText, "0000", "0000", limits};
}

constexpr EntryRule outputPoint(const char* negativeText, const char* above10, const char* above20) {
  return {Value::abs, unsaid, negativeText, "0000", "00.00", {0, 10, above10}, {0, 20, above20}};
}

constexpr EntryRule reading = setPoint(unsaid);
constexpr EntryRule silentReading = {Value::reading, unsaid, unsaid, noWarning, inReadingFormat};
constexpr EntryRule readingCounts = {Value::signedInt, unsaid, unsaid, noWarning, "0000", {-999, 9999}};
constexpr EntryRule rate = {Value::abs, entryChanged, negativeBand, "000.0", "000.0", {0, 399.9}};
constexpr EntryRule reset = {Value::absIntOf4, entryChanged,
                             negativeBand,     "0000",
                             "0000",           {0, 3999, "Entry for Reset can not exceed 3999."}};
constexpr EntryRule timeRule = {Value::time, timeWanted, unsaid, asIs, asIs};
constexpr EntryRule idCodeRule = {Value::code, unsaid, unsaid, noWarning, asIs};

using B = BigFolderControls;
using enum Copy;
using enum Arrival;
using enum InUse;

// clang-format off
constexpr SetupBox boxes[] = {
    // tab (the protection is shown with one and committed with the next), record, control, copy, rule
    {{tab::idCode, tab::setpoints}, rec::optIDCode,     OptionOf{&B::optIDCode, 0}},
    {{tab::idCode, tab::setpoints}, rec::optIDCode + 1, OptionOf{&B::optIDCode, 1}},
    {{tab::idCode, tab::setpoints}, rec::optIDCode + 2, OptionOf{&B::optIDCode, 2}},
    {tab::idCode, rec::txtIDCode, &B::txtIDCode, asFourDigits, idCodeRule},

    {tab::setpoints, rec::txtSp1, &B::txtSp1, asReading, setPoint(setPoint1Changed), repaired},
    {tab::setpoints, rec::txtSp2, &B::txtSp2, asReading, setPoint(setPoint2Changed), repaired},
    {tab::setpoints, rec::cboNormalColor, &B::cboNormalColor, inExtra},
    {tab::setpoints, rec::chkSPDeviation, &B::chkSPDeviation},

    {tab::inputType, rec::optInType,     OptionOf{&B::optInType, 0}},
    {tab::inputType, rec::optInType + 1, OptionOf{&B::optInType, 1}},
    {tab::inputType, rec::optInType + 2, OptionOf{&B::optInType, 2}},
    {tab::inputType, rec::lstTCTypes, &B::lstTCTypes},
    {tab::inputType, rec::cboRTDValue, &B::cboRTDValue},
    {tab::inputType, rec::cboRTDCurves, &B::cboRTDCurves},
    {tab::inputType, rec::cboRTDWires, &B::cboRTDWires},
    {tab::inputType, rec::lstProc, &B::lstProc},

    {tab::reading, rec::optDpoint,     OptionOf{&B::optDpoint, 0}},
    {tab::reading, rec::optDpoint + 1, OptionOf{&B::optDpoint, 1}},
    {tab::reading, rec::optDpoint + 2, OptionOf{&B::optDpoint, 2}},
    {tab::reading, rec::optDpoint + 3, OptionOf{&B::optDpoint, 3}},
    {tab::reading, rec::cboTUnit, &B::cboTUnit},
    {tab::reading, rec::lstFiltConst, &B::lstFiltConst},
    {tab::reading, rec::txtIn1Vi, &B::txtIn1Vi},
    {tab::reading, rec::txtIn2Vi, &B::txtIn2Vi},
    {tab::reading, rec::txtIn1, &B::txtIn1, asFourDigits,
     wholeNumber("Entry value for In 1 cannot be less than 0.", {0, 9999, "Entry value for In 1 cannot exceed 9999."})},
    {tab::reading, rec::txtRd1, &B::txtRd1, asFourDigits, readingCounts},
    {tab::reading, rec::txtIn2, &B::txtIn2, asFourDigits,
     wholeNumber("Entry for In 2 cannot be less than 0.", {0, 9999, "Entry for In 2 cannot exceed 9999."})},
    {tab::reading, rec::txtRd2, &B::txtRd2, asFourDigits, readingCounts},

    {tab::alarm1, rec::cboAl1Ctrl, &B::cboAl1Ctrl},
    {tab::alarm1, rec::cboAl1Latch, &B::cboAl1Latch},
    {tab::alarm1, rec::cboAl1Closure, &B::cboAl1Closure},
    {tab::alarm1, rec::cboAl1Setup, &B::cboAl1Setup},
    {tab::alarm1, rec::chkAl1Enabled, &B::chkAl1Enabled},
    {tab::alarm1, rec::chkAl1AutoPOn, &B::chkAl1AutoPOn},
    {tab::alarm1, rec::cboAl1WhenActiveColor, &B::cboAl1WhenActiveColor, inExtra},
    {tab::alarm1, rec::txtAl1HiSp, &B::txtAl1HiSp, asReading, reading, repaired},
    {tab::alarm1, rec::txtAl1LoSp, &B::txtAl1LoSp, asReading, reading, repaired},
    {tab::alarm1, rec::txtOut1DeadBand, &B::txtAl1Deadband, asReading, band(negativeDeadBand), asItIs, inSimpleMenu},

    {tab::alarm2, rec::cboAl2Ctrl, &B::cboAl2Ctrl},
    {tab::alarm2, rec::cboAl2Latch, &B::cboAl2Latch},
    {tab::alarm2, rec::cboAl2Closure, &B::cboAl2Closure},
    {tab::alarm2, rec::cboAl2Setup, &B::cboAl2Setup},
    {tab::alarm2, rec::chkAl2Enabled, &B::chkAl2Enabled},
    {tab::alarm2, rec::cboAl2WhenActiveColor, &B::cboAl2WhenActiveColor, inExtra},
    {tab::alarm2, rec::txtAl2HiSp, &B::txtAl2HiSp, asReading, silentReading, repaired},
    {tab::alarm2, rec::txtAl2LoSp, &B::txtAl2LoSp, asReading, silentReading, repaired},
    {tab::alarm2, rec::txtOut2DeadBand, &B::txtAl2Deadband, asReading, band(negativeDeadBand), asItIs, inSimpleMenu},

    {tab::lbAlarm, rec::chkLBAEnabled, &B::chkLBAEnabled},
    {tab::lbAlarm, rec::chkIDEnabled, &B::chkIDEnabled},
    {tab::lbAlarm, rec::txtLBATime, &B::txtLBATime, plain, timeRule},
    {tab::lbAlarm, rec::txtTAdjust, &B::txtTAdjust, asReading, reading},

    {tab::out1, rec::chkOut1Self, &B::chkOut1Self},
    {tab::out1, rec::chkOut1AutoPID, &B::chkOut1AutoPID},
    {tab::out1, rec::chkOut1Anti, &B::chkOut1Anti},
    {tab::out1, rec::chkOut1Start, &B::chkOut1Start},
    {tab::out1, rec::HSOut1Low, &B::HSOut1Low, asText},
    {tab::out1, rec::HSOut1High, &B::HSOut1High, asText},
    {tab::out1, rec::HSOut1CycleT, &B::HSOut1CycleT},
    {tab::out1, rec::lstOut1DamFactor, &B::lstOut1DamFactor},
    {tab::out1, rec::cboOut1Ctrl, &B::cboOut1Ctrl},
    {tab::out1, rec::cboOut1Action, &B::cboOut1Action},
    {tab::out1, rec::txtOut1DeadBand, &B::txtOut1DeadBand, asReading, band(negativeBand), repaired},
    {tab::out1, rec::txtOut1PB, &B::txtOut1PB, asReading, band(negativeBand), repaired},
    {tab::out1, rec::txtOut1Rate, &B::txtOut1Rate, asTenths, rate},
    {tab::out1, rec::txtOut1Reset, &B::txtOut1Reset, plain, reset, repaired},
    {tab::out1, rec::opt020mA, &B::opt020mA},
    {tab::out1, rec::opt420mA, &B::opt420mA},

    {tab::out2, rec::chkOut2AutoPID, &B::chkOut2AutoPID},
    {tab::out2, rec::cboOut2Ctrl, &B::cboOut2Ctrl},
    {tab::out2, rec::cboOut2Action, &B::cboOut2Action},
    {tab::out2, rec::HSOut2CycleT, &B::HSOut2CycleT},
    {tab::out2, rec::txtOut2DeadBand, &B::txtOut2DeadBand, asReading, band(negativeBand)},
    {tab::out2, rec::txtOut2PB, &B::txtOut2PB, asReading, band(negativeBand)},

    {tab::rampSoak, rec::chkRampEn, &B::chkRampEn},
    {tab::rampSoak, rec::chkSoakEn, &B::chkSoakEn},
    {tab::rampSoak, rec::txtRampT, &B::txtRampT, plain, timeRule},
    {tab::rampSoak, rec::txtSoakT, &B::txtSoakT, plain, timeRule},

    {tab::analog, rec::optAOutV, &B::optAOutV},
    {tab::analog, rec::optAOutI, &B::optAOutI},
    {tab::analog, rec::txtAOutRd1, &B::txtAOutRd1, plain,
     wholeNumber("Entry value for Read 1  cannot be less than 0", {0, 9999, "Entry value for Read 1 cannot exceed 9999"})},
    {tab::analog, rec::txtAOutOut1, &B::txtAOutOut1, plain,
     outputPoint("Entry value for Output 1  cannot be less than 0", "Entry value for Output 1 cannot exceed 10.00",
                 "Entry value for Output 1 cannot exceed 20.00")},
    {tab::analog, rec::txtAOutRd2, &B::txtAOutRd2, plain,
     wholeNumber("Entry value for Read 2  cannot be less than 0", {0, 9999, "Entry value for Read 2 cannot exceed 9999"})},
    {tab::analog, rec::txtAOutOut2, &B::txtAOutOut2, plain,
     outputPoint("Entry value for Read 1  cannot be less than 0", "Entry value for Read 1 cannot exceed 10.00",
                 "Entry value for Read 1 cannot exceed 20.00")},
    {tab::analog, rec::chkAnalogOutputEnabled, &B::chkAnalogOutputEnabled},

    {tab::comm, rec::cboCommPort, &B::cboCommPort},
    {tab::comm, rec::cboBaud, &B::cboBaud},
    {tab::comm, rec::cboParity, &B::cboParity},
    {tab::comm, rec::cboData, &B::cboData},
    {tab::comm, rec::cboStop, &B::cboStop},
    {tab::comm, rec::optRS232, &B::optRS232},
    {tab::comm, rec::optRS485, &B::optRS485},
    {tab::comm, rec::txtRS485Address, &B::txtRS485Address, plain,
     wholeNumber("Entry value for RS-485 Address  cannot be less than 0",
                 {0, 199, "Entry value for RS-485 Address cannot exceed 199"})},
    {tab::comm, rec::optNoChange, &B::optNoChange},
    {tab::comm, rec::optCommunicationMode,     OptionOf{&B::optCommunicationMode, 0}},
    {tab::comm, rec::optCommunicationMode + 1, OptionOf{&B::optCommunicationMode, 1}},
    {tab::comm, rec::txtTCPIPAddress, &B::txtTCPIPAddress},
    {tab::comm, rec::txtTCPPort, &B::txtTCPPort},
};
// clang-format on

constexpr DeadBand twins[] = {
    {&B::txtAl1Deadband, &B::txtOut1DeadBand, tab::out1},
    {&B::txtAl2Deadband, &B::txtOut2DeadBand, tab::out2},
};

struct ControlFinder {
  BigFolderControls& window;

  AnyControl operator()(OptionOf option) const { return &(window.*option.array)(option.index); }
  template <class Kind>
  AnyControl operator()(Kind BigFolderControls::*control) const {
    return &(window.*control);
  }
};

}  // namespace

bool isInUse(const SetupBox& box) { return box.inUse == InUse::always || setupHasMenu(menu::simple); }

std::span<const SetupBox> setupBoxes() { return boxes; }

const SetupBox& boxOf(TextBox BigFolderControls::*control) {
  const auto* found = std::ranges::find_if(boxes, [&](const SetupBox& box) {
    const auto* const text = std::get_if<TextBox BigFolderControls::*>(&box.control);
    return text != nullptr && *text == control;
  });
  if (found == std::end(boxes)) throw std::logic_error("a text box without a record");
  return *found;
}

std::span<const DeadBand> deadBands() { return twins; }

AnyControl controlOf(BigFolderControls& window, const SetupBox& box) {
  return std::visit(ControlFinder{window}, box.control);
}

}  // namespace torvane
