// SPDX-License-Identifier: MIT
// The registers of a run. The input type comes first, since a unit reads all later values in terms of it;
// each scale comes before its offset; bus format and address come last, since they may change how the unit
// answers.
#include "protocol/Steps.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "protocol/Scale.h"

namespace torvane {

namespace {

using enum StepRule;

// clang-format off
constexpr RegisterStep steps[] = {
    { 0, "07", 6,         firstContact, makeInput,         parseInput,         true,  "Input Type",            "Configuring Input Type...",             "Reading Input Type..."},
    { 1, "08", 9,         plain,        makeRdgCnfg,       parseRdgCnfg,       true,  "Reading",               "Configuring Reading...",                "Reading Reading..."},
    { 2, "01", 12,        plain,        makeSp1,           parseSp1,           true,  "Set-Point 1",           "Configuring Set-Point 1...",            "Reading Set-Point 1...", "Configuring SetPoint 1...", "Reading SetPoint 1..."},
    { 3, "02", 15,        plain,        makeSp2,           parseSp2,           true,  "Set-Point 2",           "Configuring Set-Point 2...",            "Reading Set-Point 2..."},
    { 4, "14", 18,        askedScale,   makeRdScale,       parseRdScale,       true,  "Reading Scale",         "Configuring Reading Scale...",          "Reading Reading Scale..."},
    { 4, "03", 21,        offset,       makeRdOffset,      parseRdOffset,      true,  "Reading Offset",        "Configuring Reading Offset...",         "Reading Reading Offset..."},
    { 5, "09", 24,        plain,        makeAl1Cnfg,       parseAl1Cnfg,       true,  "Alarm 1 Configuration", "Configuring Alarm 1 Configuration...",  "Reading Alarm 1 Configuration..."},
    { 6, "13", 27,        plain,        makeAl1High,       parseAl1High,       true,  "Alarm 1 High",          "Configuring Alarm 1 High Set-Pt...",    "Reading Alarm 1 High Set-Pt..."},
    { 7, "12", 30,        plain,        makeAl1Low,        parseAl1Low,        true,  "Alarm 1 Low",           "Configuring Alarm 1 Low Set-Pt...",     "Reading Alarm 1 Low Set-Pt..."},
    { 8, "0A", 33,        plain,        makeAl2Cnfg,       parseAl2Cnfg,       true,  "Alarm 2 Configuration", "Configuring Alarm 2 Configuration...",  "Reading Alarm 2 Configuration..."},
    { 9, "16", 36,        plain,        makeAl2High,       parseAl2High,       false, "Alarm 2 High",          "Configuring Alarm 2 High Set-Pt...",    "Reading Alarm 2 High Set-Pt..."},
    {10, "15", 39,        plain,        makeAl2Low,        parseAl2Low,        false, "Alarm 2 Low",           "Configuring Alarm 2 Low Set-Pt...",     "Reading Alarm 2 Low Set-Pt..."},
    {11, "0B", 42,        plain,        makeLBTime,        parseLBTime,        true,  "Loop Break Time",       "Configuring Loop Break Time...",        "Reading Loop Break Time..."},
    {12, "25", 45,        plain,        makeCJOffset,      parseCJOffset,      true,  "Cold Junction Offset",  "Configuring Cold Junction Offset...",   "Reading Cold Junction Offset..."},
    {13, "05", 48,        plain,        makeIDCode,        parseIDCode,        true,  "ID Code",               "Configuring ID Code...",                "Reading ID Code..."},
    {14, "0C", 51,        plain,        makeOut1Cnfg,      parseOut1Cnfg,      true,  "Output 1",              "Configuring Output 1...",               "Reading Output 1..."},
    {15, "0D", 54,        plain,        makeOut2Cnfg,      parseOut2Cnfg,      true,  "Output 2",              "Configuring Output 2...",               "Reading Output 2..."},
    {16, "17", 57,        plain,        makeOut1PropBand,  parseOut1PropBand,  true,  "Out 1 Prop/Dead Band",  "Configuring Out 1 Prop/Dead Band...",   "Reading Out 1 Prop/Dead Band..."},
    {17, "18", 60,        plain,        makeOut1Reset,     parseOut1Reset,     true,  "Out 1 Reset",           "Configuring Out 1 Reset...",            "Reading Out 1 Reset..."},
    {18, "19", 63,        plain,        makeOut1Rate,      parseOut1Rate,      true,  "Out 1 Rate",            "Configuring Out 1 Rate...",             "Reading Out 1 Rate..."},
    {19, "1A", 66,        plain,        makeOut1CycleT,    parseOut1CycleT,    true,  "Out 1 Cycle Time",      "Configuring Out 1 Cycle Time...",       "Reading Out 1 Cycle Time..."},
    {20, "1C", 69,        plain,        makeOut2PropBand,  parseOut2PropBand,  true,  "Out 2 Prop/Dead Band",  "Configuring Out 2 Prop/Dead Band...",   "Reading Out 2 Prop/Dead Band..."},
    {21, "1D", 72,        plain,        makeOut2CycleT,    parseOut2CycleT,    true,  "Out 2 Cycle Time",      "Configuring Out 2 Cycle Time...",       "Reading Out 2 Cycle Time..."},
    {22, "0E", 75,        plain,        makeRampT,         parseRampT,         true,  "Ramp Time",             "Configuring Ramp Time...",              "Reading Ramp Time..."},
    {23, "1E", 78,        plain,        makeSoakT,         parseSoakT,         true,  "Soak Time",             "Configuring Ramp Time...",              "Reading Ramp Time..."},
    {24, "",   81,        barOnly,      nullptr,           nullptr,            true,  "",                      "",                                      ""},
    {25, "11", 84,        plain,        makeColors,        parseColors,        false, "Colors",                "Colors.......",                         "Colors......."},
    {26, "24", 88,        plain,        makeMiscellaneous, parseMiscellaneous, false, "ID Code Protection",    "Enabling ID code protection.....",      "Enabling ID code protection....."},
    {27, "0F", 91,        quietScale,   makeAnalogScale,   parseAnalogScale,   true,  "Analog Output Scale",   "Analog output scale.... ",              "Analog output scale.... "},
    {27, "04", 94,        offset,       makeAnalogOffset,  parseAnalogOffset,  true,  "Analog Output Offset",  "Configuring Analog Output Offset...",   "Reading Analog Output Offset..."},
    {28, "27", unchanged, plain,        makeOut1Low,       parseOut1Low,       false, "Output 1 Low",          "% Output 1 low....",                    "% Output 1 low...."},
    {29, "28", unchanged, plain,        makeOut1Hi,        parseOut1Hi,        false, "Output 1 High",         " % Output 1 Hi...",                     " % Output 1 Hi..."},
    {30, "1F", unchanged, busFormat,    makeBusFormat,     parseBusFormat,     true,  "Bus Format",            " Bus Format ......",                    " Bus Format ......"},
    {30, "21", unchanged, busAddress,   makeRS485Address,  parseRS485Address,  true,  "Bus Address",           "RS 485 Address ....",                   "RS 485 Address ...."},
};
// clang-format on

// ---- what the table promises; a row out of place does not compile

constexpr bool stepsFollowEachOther() {
  int expected = 0;
  for (const RegisterStep& row : steps) {
    if (row.step != expected && row.step != expected - 1) return false;
    if (row.step == expected) ++expected;
  }
  return true;
}

// An offset or a bus address follows what it goes with, in one step; nothing else shares its step.
constexpr bool pairsBelongTogether() {
  for (std::size_t at = 1; at < std::size(steps); ++at) {
    const bool second = steps[at].rule == offset || steps[at].rule == busAddress;
    if (second != (steps[at].step == steps[at - 1].step)) return false;
    const StepRule first = steps[at - 1].rule;
    if (steps[at].rule == offset && first != askedScale && first != quietScale) return false;
    if (steps[at].rule == busAddress && first != busFormat) return false;
  }
  return true;
}

static_assert(stepsFollowEachOther(), "a gap in the steps, or a wrong order");
static_assert(pairsBelongTogether(), "rows of one step that don't belong together");
static_assert(steps[0].rule == firstContact, "all later values are in terms of the input type");
static_assert(std::end(steps)[-1].rule == busAddress, "what changes how a unit answers comes last");

constexpr auto groupCount = static_cast<std::size_t>(std::end(steps)[-1].step) + 1;

constexpr std::array<std::span<const RegisterStep>, groupCount> grouped() {
  std::array<std::span<const RegisterStep>, groupCount> result;
  for (const RegisterStep& row : steps) {
    auto& group = result[static_cast<std::size_t>(row.step)];
    group = group.empty() ? std::span(&row, 1) : std::span(group.data(), group.size() + 1);
  }
  return result;
}

constexpr auto groups = grouped();

}  // namespace

std::span<const RegisterStep> registerSteps() { return steps; }

std::span<const std::span<const RegisterStep>> stepGroups() { return groups; }

const RegisterStep* stepOf(std::string_view reg) {
  const auto* const found = std::ranges::find(steps, reg, &RegisterStep::reg);
  return reg.empty() || found == std::end(steps) ? nullptr : found;
}

const char* writeLabelOf(const RegisterStep& row, bool overNetwork) {
  return overNetwork && row.networkWriteLabel != nullptr ? row.networkWriteLabel : row.writeLabel;
}

const char* readLabelOf(const RegisterStep& row, bool overNetwork) {
  return overNetwork && row.networkReadLabel != nullptr ? row.networkReadLabel : row.readLabel;
}

}  // namespace torvane
