// SPDX-License-Identifier: MIT
// What a read can't take over exactly.
#include "knowledge/Losses.h"

#include <algorithm>

#include "core/Model.h"
#include "core/NumberText.h"

namespace torvane {

namespace {

using Digits = RegisterDigits;
using Context = UnitContext;

constexpr std::uint32_t longestCycle = 199;
constexpr std::uint32_t highestPercent = 99;
constexpr std::uint32_t highestRate = 1999;
constexpr std::uint32_t highestHour = 99;

std::uint32_t bitsOf(const Digits& unit, std::string_view reg) {
  return static_cast<std::uint32_t>(hexValue(digitsOf(unit, reg)));
}
bool bit(const Digits& unit, std::string_view reg, int position) {
  return (bitsOf(unit, reg) >> position & 1U) != 0;
}

template <int reg>
std::string_view nameOf() {
  static const std::string name = padLeft(hexText(std::int32_t{reg}), 2);
  return name;
}

bool always(const Digits&, const Context&) { return true; }
bool isSimple(const Digits&, const Context& at) { return at.kind == kind::simpleMenu; }
bool higherThermocouple(const Digits& unit, const Context& at) {
  return at.input == 0 && bitsOf(unit, "07") >> 3 != 0;
}
bool oddRtd(const Digits& unit, const Context& at) {
  return at.input == 1 && ((bitsOf(unit, "07") >> 2 & 15U) > 5 || bitsOf(unit, "07") >> 6 == 3);
}
bool oddProcess(const Digits& unit, const Context& at) {
  return at.input == 2 && bitsOf(unit, "07") >> 2 > 3;
}
bool noInput(const Digits&, const Context& at) { return at.input == 3; }
bool noFormat(const Digits&, const Context& at) { return at.decimals < 0; }
bool tooFine(const Digits&, const Context& at) { return at.input != 2 && at.decimals > 1; }
bool formatMoves(const Digits& unit, const Context& at) { return noFormat(unit, at) || tooFine(unit, at); }
bool spareBit(const Digits& unit, const Context&) { return bit(unit, "0C", 3); }
bool bothLevels(const Digits& unit, const Context&) { return (bitsOf(unit, "24") & 0xCU) == 0xC; }
bool loopBreakOfAlarmsOnly(const Digits& unit, const Context& at) {
  return at.kind != kind::fullController && bit(unit, "09", 6);
}
bool current420OfRkw77(const Digits& unit, const Context& at) {
  return at.kind == kind::rkw77 && bit(unit, "0C", 6);
}
bool startWithoutAuto(const Digits& unit, const Context&) { return bit(unit, "0C", 5); }
bool follows(const Digits& unit, const Context& at) { return at.out2Pid && bit(unit, "0D", 2); }
template <int position>
bool colorCode3(const Digits& unit, const Context&) {
  return (bitsOf(unit, "11") >> position & 3U) == 3;
}
template <int reg>
bool bandWithAbsolute(const Digits& unit, const Context&) {
  return (bitsOf(unit, nameOf<reg>()) >> 4 & 3U) == 3 && !bit(unit, nameOf<reg>(), 1);
}
template <int reg, std::uint32_t highest>
bool above(const Digits& unit, const Context&) {
  return bitsOf(unit, nameOf<reg>()) > highest;
}
template <int reg>
bool badCycle(const Digits& unit, const Context&) {
  const std::uint32_t seconds = bitsOf(unit, nameOf<reg>());
  return seconds == 0 || seconds > longestCycle;
}
template <int reg>
bool longTime(const Digits& unit, const Context&) {
  return bitsOf(unit, nameOf<reg>()) / 100 > highestHour;
}

// Sign of nothing, or decimals that are not those of the reading.
template <int reg>
bool oddNumber(const Digits& unit, const Context& at) {
  const std::uint32_t number = bitsOf(unit, nameOf<reg>());
  const bool signedZero = (number >> 23 & 1U) != 0 && (number & 0xFFFFFU) == 0;
  const int decimals = static_cast<int>(number >> 20 & 7U) - 1;
  return signedZero || decimals != at.decimals || formatMoves(unit, at) || (number & 0xFFFFFU) > 9999;
}
template <int reg>
bool oddBand(const Digits& unit, const Context& at) {
  return formatMoves(unit, at) || above<reg, 9999>(unit, at);
}
bool oddBand2(const Digits& unit, const Context& at) { return oddBand<0x1C>(unit, at); }

constexpr const char* otherPoints = "a line is kept as two points with rounded numbers";
constexpr const char* otherDecimals = "it has other decimals than the reading, or more digits than its box";
constexpr const char* otherFormat = "it follows the reading's format, or has more digits than its box";
constexpr const char* colorless = "the color has a code without a name";
constexpr const char* bandNeedsDeviation = "Band goes with Deviation only";
constexpr const char* cycleRange = "a cycle time is 1 to 199 seconds";
constexpr const char* percentRange = "a percentage is 0 to 99";
constexpr const char* timeRange = "a time has two digits on either side";
constexpr const char* sharedBand = "output 2 with Auto PID takes output 1's band";
constexpr const char* simpleAlways = "the simple menu has it always so";

// clang-format off
constexpr KnownLoss losses[] = {
    // register, bits, new meaning, why, when, by the rules between the boxes
    {"07", 0xFC, true, "of a thermocouple's type only J and K are told apart by a read", higherThermocouple},
    {"07", 0xFC, true, "the RTD has a code without a name", oddRtd},
    {"07", 0xFC, true, "the process range has a code without a name", oddProcess},
    {"07", 0xFF, true, "the input has a code without a name", noInput},
    {"08", 0x07, true, "the reading format has a code without a name", noFormat},
    {"08", 0x07, true, "a temperature has one decimal at most", tooFine, true},
    {"01", all24, true, otherDecimals, oddNumber<0x01>},
    {"02", all24, true, otherDecimals, oddNumber<0x02>},
    {"13", all24, true, otherDecimals, oddNumber<0x13>},
    {"12", all24, true, otherDecimals, oddNumber<0x12>},
    {"16", all24, true, otherDecimals, oddNumber<0x16>},
    {"15", all24, true, otherDecimals, oddNumber<0x15>},
    {"25", all24, true, otherDecimals, oddNumber<0x25>},
    {"14", all24, false, otherPoints, always},
    {"03", all24, false, otherPoints, always},
    {"0F", all24, false, otherPoints, always},
    {"04", all24, false, otherPoints, always},
    {"09", 0x30, true, bandNeedsDeviation, bandWithAbsolute<0x09>, true},
    {"0A", 0x30, true, bandNeedsDeviation, bandWithAbsolute<0x0A>, true},
    {"09", 0x01, true, simpleAlways, isSimple},
    {"0A", 0x03, true, simpleAlways, isSimple},
    {"0C", 0x80, true, simpleAlways, isSimple},
    {"09", 0x40, true, "only a full controller has a loop break alarm", loopBreakOfAlarmsOnly, true},
    {"0C", 0x08, true, "no setting uses this bit", spareBit},
    {"0C", 0x20, true, "auto-tune starts only with Auto PID on both outputs", startWithoutAuto, true},
    {"0C", 0x41, true, "this line takes 4-20 mA back to 0-20 mA and On/Off", current420OfRkw77},
    {"0B", all16, true, timeRange, longTime<0x0B>},
    {"05", all16, true, "an ID code has four digits", above<0x05, 9999>, true},
    {"17", all16, true, otherFormat, oddBand<0x17>},
    {"17", all16, true, "this line goes back from PID to On/Off, which has a dead band", current420OfRkw77},
    {"1C", all16, true, sharedBand, follows},
    {"1C", all16, true, otherFormat, oddBand2},
    {"18", all16, true, "a reset has four digits", above<0x18, 9999>, true},
    {"19", all16, true, "a rate is 0 to 199.9", above<0x19, highestRate>, true},
    {"1A", 0xFF, true, cycleRange, badCycle<0x1A>, true},
    {"1D", 0xFF, true, cycleRange, badCycle<0x1D>, true},
    {"11", 0x03, true, colorless, colorCode3<0>},
    {"11", 0x0C, true, colorless, colorCode3<2>},
    {"11", 0x30, true, colorless, colorCode3<4>},
    {"24", 0x0C, true, "the protection is one level, not two", bothLevels, true},
    {"27", 0xFF, true, percentRange, above<0x27, highestPercent>, true},
    {"28", 0xFF, true, percentRange, above<0x28, highestPercent>, true},
};
// clang-format on

bool shows(const RegisterField& field, const KnownLoss& loss) {
  return std::string_view(loss.reg) == field.reg && (loss.bits & field.bits) != 0;
}

const KnownLoss* whyOf(const DifferingSetting& setting, const Digits& unit, const Context& context) {
  const auto* const found = std::ranges::find_if(losses, [&](const KnownLoss& loss) {
    return shows(*setting.field, loss) && loss.happens(unit, context);
  });
  return found == std::end(losses) ? nullptr : found;
}

std::string told(const FoundLoss& loss) {
  const DifferingSetting& setting = loss.setting;
  const std::string name = setting.section + ", " + setting.name;
  if (!loss.newMeaning) return name + " (the same in other digits)";
  const std::string inUnit = setting.inUnit.empty() ? "otherwise" : setting.inUnit;
  return name + " (unit " + inUnit + ", setup " + setting.inSetup + ")";
}

}  // namespace

std::span<const KnownLoss> knownLosses() { return losses; }

std::vector<FoundLoss> lossesOf(const UnitImage& read, const EncodedSetup& now) {
  const RegisterDigits digits = digitsIn(read);
  const UnitContext context = contextOf(digits, read.kind);
  std::vector<FoundLoss> found;
  for (const DifferingSetting& setting : compare(read, now).settings) {
    if (setting.change == Change::kept) continue;
    found.push_back({setting, setting.change == Change::written, whyOf(setting, digits, context)});
  }
  return found;
}

std::string lossSentence(const std::vector<FoundLoss>& found) {
  std::string text;
  for (const FoundLoss& loss : found) text += (text.empty() ? "Not taken over exactly: " : "; ") + told(loss);
  return text;
}

}  // namespace torvane
