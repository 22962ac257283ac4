// SPDX-License-Identifier: MIT
// Setups for tests.
#include "support/RandomMemo.h"

#include <cstdint>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "protocol/Scale.h"
#include "reading/Decoders.h"

namespace torvane {

namespace {

constexpr RegisterUnderTest registers[] = {
    {"07", 2, makeInput, parseInput},
    {"08", 2, makeRdgCnfg, parseRdgCnfg},
    {"01", 6, makeSp1, parseSp1},
    {"02", 6, makeSp2, parseSp2},
    {"14", 6, makeRdScale, parseRdScale},
    {"03", 6, makeRdOffset, parseRdOffset},
    {"09", 2, makeAl1Cnfg, parseAl1Cnfg},
    {"13", 6, makeAl1High, parseAl1High},
    {"12", 6, makeAl1Low, parseAl1Low},
    {"0A", 2, makeAl2Cnfg, parseAl2Cnfg},
    {"16", 6, makeAl2High, parseAl2High},
    {"15", 6, makeAl2Low, parseAl2Low},
    {"0B", 4, makeLBTime, parseLBTime},
    {"25", 6, makeCJOffset, parseCJOffset},
    {"05", 4, makeIDCode, parseIDCode},
    {"0C", 2, makeOut1Cnfg, parseOut1Cnfg},
    {"0D", 2, makeOut2Cnfg, parseOut2Cnfg},
    {"17", 4, makeOut1PropBand, parseOut1PropBand},
    {"18", 4, makeOut1Reset, parseOut1Reset},
    {"19", 4, makeOut1Rate, parseOut1Rate},
    {"1A", 2, makeOut1CycleT, parseOut1CycleT},
    {"1C", 4, makeOut2PropBand, parseOut2PropBand},
    {"1D", 2, makeOut2CycleT, parseOut2CycleT},
    {"0E", 4, makeRampT, parseRampT},
    {"1E", 4, makeSoakT, parseSoakT},
    {"11", 2, makeColors, parseColors},
    {"24", 2, makeMiscellaneous, parseMiscellaneous},
    {"0F", 6, makeAnalogScale, parseAnalogScale},
    {"04", 6, makeAnalogOffset, parseAnalogOffset},
    {"27", 2, makeOut1Low, parseOut1Low},
    {"28", 2, makeOut1Hi, parseOut1Hi},
    {"1F", 2, makeBusFormat, parseBusFormat},
    {"21", 2, makeRS485Address, parseRS485Address},
};

struct ValueRange {
  int record;
  int highest;
};

constexpr ValueRange lists[] = {
    {rec::lstTCTypes, 9},       {rec::cboRTDValue, 2},  {rec::cboRTDCurves, 1},
    {rec::cboRTDWires, 2},      {rec::lstProc, 3},      {rec::cboTUnit, 1},
    {rec::lstFiltConst, 7},     {rec::cboAl1Ctrl, 1},   {rec::cboAl1Latch, 1},
    {rec::cboAl1Closure, 1},    {rec::cboAl1Setup, 3},  {rec::chkAl1Enabled, 1},
    {rec::chkAl1AutoPOn, 1},    {rec::cboAl2Ctrl, 1},   {rec::cboAl2Latch, 1},
    {rec::cboAl2Closure, 1},    {rec::cboAl2Setup, 3},  {rec::chkAl2Enabled, 1},
    {rec::chkLBAEnabled, 1},    {rec::chkIDEnabled, 1}, {rec::chkOut1Self, 1},
    {rec::chkOut1AutoPID, 1},   {rec::chkOut1Anti, 1},  {rec::chkOut1Start, 1},
    {rec::lstOut1DamFactor, 7}, {rec::cboOut1Ctrl, 1},  {rec::cboOut1Action, 1},
    {rec::chkOut2AutoPID, 1},   {rec::cboOut2Ctrl, 1},  {rec::cboOut2Action, 1},
    {rec::chkRampEn, 1},        {rec::chkSoakEn, 1},    {rec::chkAnalogOutputEnabled, 1},
    {rec::chkSPDeviation, 1},
};

struct OptionGroup {
  int firstRecord;
  int count;
};

constexpr OptionGroup options[] = {{rec::optInType, 3}, {rec::optDpoint, 4}, {rec::optAOutV, 2},
                                   {rec::optIDCode, 3}, {rec::opt020mA, 2},  {rec::optRS232, 2}};

constexpr int signedReadings[] = {rec::txtSp1,     rec::txtSp2,     rec::txtAl1HiSp, rec::txtAl1LoSp,
                                  rec::txtAl2HiSp, rec::txtAl2LoSp, rec::txtTAdjust};
constexpr int bands[] = {rec::txtOut1DeadBand, rec::txtOut1PB, rec::txtOut2DeadBand, rec::txtOut2PB};
constexpr int colors[] = {rec::cboNormalColor, rec::cboAl1WhenActiveColor, rec::cboAl2WhenActiveColor};

std::string digits(int number, std::size_t width) {
  return padLeft(numberText(std::int32_t{number < 0 ? -number : number}), width);
}

std::string withPoint(int number, std::size_t decimals) {
  std::string text = digits(number, 4);
  if (decimals > 0) text.insert(text.size() - decimals, ".");
  return (number < 0 ? "-" : "") + text;
}

void fillReadings(std::mt19937& random) {
  const int decimals = between(random, 0, 3);
  chooseFormat(decimals);
  // The editor's own picture of a whole number ends in a point.
  const std::string tail = decimals == 0 && between(random, 0, 1) == 1 ? "." : "";
  for (int record : signedReadings) {
    Memo[record].text = withPoint(between(random, -1999, 9999), static_cast<std::size_t>(decimals)) + tail;
  }
  for (int record : bands) {
    Memo[record].text = withPoint(between(random, 0, 9999), static_cast<std::size_t>(decimals)) + tail;
  }
}

int differentFrom(int other, std::mt19937& random) {
  int number = other;
  while (number == other) number = between(random, -1999, 9999);
  return number;
}

void fillLines(std::mt19937& random) {
  const int in1 = between(random, -1999, 9999);
  const int reading1 = between(random, -1999, 9999);
  const int fullOutput = Memo[rec::optAOutI].flag != False ? 2000 : 1000;
  Memo[rec::txtIn1].text = withPoint(in1, 0);
  Memo[rec::txtIn2].text = withPoint(differentFrom(in1, random), 0);
  Memo[rec::txtRd1].text = withPoint(between(random, -1999, 9999), 0);
  Memo[rec::txtRd2].text = withPoint(between(random, -1999, 9999), 0);
  Memo[rec::txtAOutRd1].text = withPoint(reading1, 0);
  Memo[rec::txtAOutRd2].text = withPoint(differentFrom(reading1, random), 0);
  Memo[rec::txtAOutOut1].text = withPoint(between(random, 0, fullOutput), 2);
  Memo[rec::txtAOutOut2].text = withPoint(between(random, 0, fullOutput), 2);
}

std::string randomTime(std::mt19937& random) {
  return digits(between(random, 0, 99), 2) + ":" + digits(between(random, 0, 59), 2);
}

void fillNumbers(std::mt19937& random) {
  for (int record : {rec::txtLBATime, rec::txtRampT, rec::txtSoakT}) Memo[record].text = randomTime(random);
  for (int record : {rec::HSOut1CycleT, rec::HSOut2CycleT}) {
    Memo[record].value = static_cast<std::int16_t>(between(random, 1, 199));
  }
  Memo[rec::txtIDCode].text = digits(between(random, 0, 9999), 4);
  Memo[rec::txtOut1Reset].text = digits(between(random, 0, 3999), 4);
  Memo[rec::txtOut1Rate].text = withPoint(between(random, 0, 1999), 1);
  Memo[rec::HSOut1Low].text = digits(between(random, 0, 99), 1);
  Memo[rec::HSOut1High].text = digits(between(random, 0, 99), 1);
  Memo[rec::txtRS485Address].text = digits(between(random, 1, 199), 4);
  Memo[rec::txtIn1Vi].text = digits(between(random, 0, 9999), 4);
  Memo[rec::txtIn2Vi].text = digits(between(random, 0, 9999), 4);
}

std::string wildText(std::mt19937& random) {
  static constexpr const char* extremes[] = {"1E300", "-1E308", "1E999",  "1E-320", "32767",
                                             "32768", "-32768", "-32769", "&HFFFF", "-0.0",
                                             "",      "100000", ".5",     "1E15"};
  static constexpr std::string_view letters = "0123456789012345678901234567890123456789..--+E &HaZ:\xE4";
  if (between(random, 0, 3) == 0) return extremes[between(random, 0, std::size(extremes) - 1)];
  std::string text(static_cast<std::size_t>(between(random, 0, 9)), ' ');
  for (char& c : text) c = letters[static_cast<std::size_t>(between(random, 0, letters.size() - 1))];
  return text;
}

std::int16_t wildNumber(std::mt19937& random) {
  const bool near = between(random, 0, 1) == 1;
  return static_cast<std::int16_t>(near ? between(random, -1, 3) : between(random, -32768, 32767));
}

}  // namespace

int between(std::mt19937& random, int low, int high) {
  return std::uniform_int_distribution<int>(low, high)(random);
}

void freshSetup() {
  Memo.reset();
  resetModel();
  Global.reset();
  storeDefaults();
}

void chooseKind(int kind) {
  Memo[rec::menuKind].extra = 0;
  Memo[rec::monitorOnly].value = 0;
  DeviceState.IsRkw77 = asFlag(kind == kind::rkw77);
  if (kind == kind::alarmsOnly || kind == kind::simpleMenu) {
    Memo[rec::menuKind].extra = static_cast<std::int16_t>(kind);
  }
  if (kind == kind::monitorOnly) Memo[rec::monitorOnly].value = 1;
}

void chooseFormat(int decimals) { chooseOption(rec::optDpoint, 4, decimals); }

void chooseOption(int firstRecord, int count, int chosen) {
  for (int i = 0; i < count; ++i) Memo[firstRecord + i].flag = asFlag(i == chosen);
}

void fillRandomMemo(std::mt19937& random) {
  for (const auto& [record, highest] : lists) {
    Memo[record].value = static_cast<std::int16_t>(between(random, 0, highest));
  }
  for (const auto& [record, count] : options) chooseOption(record, count, between(random, 0, count - 1));
  for (int record : colors) Memo[record].extra = static_cast<std::int16_t>(between(random, 0, 2));
  Memo[rec::optNoChange].flag = asFlag(between(random, 0, 1) == 1);
  fillReadings(random);
  fillLines(random);
  fillNumbers(random);
}

void fillWildMemo(std::mt19937& random) {
  for (int record = 0; record < MemoArray::count; ++record) {
    Memo[record] = {wildNumber(random), wildNumber(random), wildText(random), wildNumber(random)};
  }
  Hardware.BusMode = wildNumber(random);
  Hardware.Out1.Analog = asFlag(between(random, 0, 1) == 1);
  DeviceState.IsRkw77 = asFlag(between(random, 0, 4) == 0);
}

std::string anyText(std::mt19937& random) {
  // clang-format off
  static const std::string pieces[] = {
      "0", "1", "9", "5", "12", "99", "345", "4567", "0.05", "00000", "12345678901234567890",
      ".", "-", "+", " ", "\t", "\n", "\r\n", ":", ",", "99:99", "%", "\"",
      "E", "e", "E9", "E-9", "E308", "E999", "&H", "F", "abc",
      "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xD9\xA3", "\xEF\xBC\x91", "\xC2\xA0",
      "\xFF", "\x80", "\xC3"};
  // clang-format on
  std::string text;
  for (int count = between(random, 0, 6); count > 0; --count) {
    text += pieces[between(random, 0, static_cast<int>(std::size(pieces)) - 1)];
  }
  if (between(random, 0, 20) == 0) text += '\0';
  return text;
}

std::string wildReply(std::mt19937& random) {
  static constexpr std::string_view hexadecimal = "0123456789ABCDEF";
  const bool tidy = between(random, 0, 3) != 0;
  std::string reply = between(random, 0, 9) == 0 ? "" : between(random, 0, 1) == 1 ? "R01" : "11R01";
  const int count = between(random, 0, 12);
  for (int i = 0; i < count; ++i) {
    reply += tidy ? hexadecimal[static_cast<std::size_t>(between(random, 0, 15))]
                  : static_cast<char>(between(random, 0, 255));
  }
  return reply;
}

std::span<const RegisterUnderTest> allRegisters() { return registers; }

std::string registerWithoutAnswer() {
  for (const RegisterUnderTest& reg : allRegisters()) {
    std::string payload;
    const bool made = attempt([&] { payload = reg.make().payload; });
    const bool digits = payload.find_first_not_of("0123456789ABCDEF") == payload.npos;
    if (!made || !(digits || payload.starts_with('!'))) return reg.index;
  }
  return "";
}

}  // namespace torvane
