// SPDX-License-Identifier: MIT
// The registers of a run. The input type comes first, since a unit reads all later values in terms of it;
// each scale comes before its offset; bus format and address come last, since they may change how the unit
// answers.
#include "protocol/Steps.h"

#include <algorithm>

#include "protocol/Scale.h"
#include "reading/Decoders.h"

namespace {

// clang-format off
constexpr RegisterStep steps[] = {
    { 0, "07",  6, makeInput,         parseInput,         true,  "Configuring Input Type...",             "Reading Input Type..."},
    { 1, "08",  9, makeRdgCnfg,       parseRdgCnfg,       true,  "Configuring Reading...",                "Reading Reading..."},
    { 2, "01", 12, makeSp1,           parseSp1,           true,  "Configuring Set-Point 1...",            "Reading Set-Point 1..."},
    { 3, "02", 15, makeSp2,           parseSp2,           true,  "Configuring Set-Point 2...",            "Reading Set-Point 2..."},
    { 4, "14", 18, makeRdScale,       parseRdScale,       true,  "Configuring Reading Scale...",          "Reading Reading Scale..."},
    { 4, "03", 21, makeRdOffset,      parseRdOffset,      true,  "Configuring Reading Offset...",         "Reading Reading Offset..."},
    { 5, "09", 24, makeAl1Cnfg,       parseAl1Cnfg,       true,  "Configuring Alarm 1 Configuration...",  "Reading Alarm 1 Configuration..."},
    { 6, "13", 27, makeAl1High,       parseAl1High,       true,  "Configuring Alarm 1 High Set-Pt...",    "Reading Alarm 1 High Set-Pt..."},
    { 7, "12", 30, makeAl1Low,        parseAl1Low,        true,  "Configuring Alarm 1 Low Set-Pt...",     "Reading Alarm 1 Low Set-Pt..."},
    { 8, "0A", 33, makeAl2Cnfg,       parseAl2Cnfg,       true,  "Configuring Alarm 2 Configuration...",  "Reading Alarm 2 Configuration..."},
    { 9, "16", 36, makeAl2High,       parseAl2High,       false, "Configuring Alarm 2 High Set-Pt...",    "Reading Alarm 2 High Set-Pt..."},
    {10, "15", 39, makeAl2Low,        parseAl2Low,        false, "Configuring Alarm 2 Low Set-Pt...",     "Reading Alarm 2 Low Set-Pt..."},
    {11, "0B", 42, makeLBTime,        parseLBTime,        true,  "Configuring Loop Break Time...",        "Reading Loop Break Time..."},
    {12, "25", 45, makeCJOffset,      parseCJOffset,      true,  "Configuring Cold Junction Offset...",   "Reading Cold Junction Offset..."},
    {13, "05", 48, makeIDCode,        parseIDCode,        true,  "Configuring ID Code...",                "Reading ID Code..."},
    {14, "0C", 51, makeOut1Cnfg,      parseOut1Cnfg,      true,  "Configuring Output 1...",               "Reading Output 1..."},
    {15, "0D", 54, makeOut2Cnfg,      parseOut2Cnfg,      true,  "Configuring Output 2...",               "Reading Output 2..."},
    {16, "17", 57, makeOut1PropBand,  parseOut1PropBand,  true,  "Configuring Out 1 Prop/Dead Band...",   "Reading Out 1 Prop/Dead Band..."},
    {17, "18", 60, makeOut1Reset,     parseOut1Reset,     true,  "Configuring Out 1 Reset...",            "Reading Out 1 Reset..."},
    {18, "19", 63, makeOut1Rate,      parseOut1Rate,      true,  "Configuring Out 1 Rate...",             "Reading Out 1 Rate..."},
    {19, "1A", 66, makeOut1CycleT,    parseOut1CycleT,    true,  "Configuring Out 1 Cycle Time...",       "Reading Out 1 Cycle Time..."},
    {20, "1C", 69, makeOut2PropBand,  parseOut2PropBand,  true,  "Configuring Out 2 Prop/Dead Band...",   "Reading Out 2 Prop/Dead Band..."},
    {21, "1D", 72, makeOut2CycleT,    parseOut2CycleT,    true,  "Configuring Out 2 Cycle Time...",       "Reading Out 2 Cycle Time..."},
    {22, "0E", 75, makeRampT,         parseRampT,         true,  "Configuring Ramp Time...",              "Reading Ramp Time..."},
    {23, "1E", 78, makeSoakT,         parseSoakT,         true,  "Configuring Ramp Time...",              "Reading Ramp Time..."},
    {25, "11", 84, makeColors,        parseColors,        false, "Colors.......",                         "Colors......."},
    {26, "24", 88, makeMiscellaneous, parseMiscellaneous, false, "Enabling ID code protection.....",      "Enabling ID code protection....."},
    {27, "0F", 91, makeAnalogScale,   parseAnalogScale,   true,  "Analog output scale.... ",              "Analog output scale.... "},
    {27, "04", 94, makeAnalogOffset,  parseAnalogOffset,  true,  "Configuring Analog Output Offset...",   "Reading Analog Output Offset..."},
    {28, "27", unchanged, makeOut1Low,      parseOut1Low,      false, "% Output 1 low....",    "% Output 1 low...."},
    {29, "28", unchanged, makeOut1Hi,       parseOut1Hi,       false, " % Output 1 Hi...",     " % Output 1 Hi..."},
    {30, "1F", unchanged, makeBusFormat,    parseBusFormat,    true,  " Bus Format ......",    " Bus Format ......"},
    {30, "21", unchanged, makeRS485Address, parseRS485Address, true,  "RS 485 Address ....",   "RS 485 Address ...."},
};
// clang-format on

}  // namespace

std::span<const RegisterStep> rowsOf(int step) {
  const auto rows = std::ranges::equal_range(steps, step, {}, &RegisterStep::step);
  return {rows.begin(), rows.end()};
}
