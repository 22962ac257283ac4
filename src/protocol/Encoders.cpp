// SPDX-License-Identifier: MIT
// Encoders of the registers that carry one number: set points, bands, times, percentages.
#include "protocol/Encoders.h"

#include <cmath>
#include <string_view>

#include "core/Memo.h"
#include "core/NumberText.h"
#include "protocol/EncodersMasks.h"

namespace torvane {

namespace {

constexpr Notice shortSetPoint{"Setpoint data less than 6 char", "", false};
constexpr Notice badLoopBreakTime{
    "LBT format invalid: please write down\rLoop Break Time settings and\r"
    "report the problem to the software author.",
    "Algorithm difficulties...", true};

std::string hexDigits(double number, std::size_t width) { return padLeft(hexText(toInt16(number)), width); }

int decimalCode() {
  if (isChosen(rec::optDpoint)) return 1;
  if (isChosen(rec::optDpoint + 1)) return 2;
  if (isChosen(rec::optDpoint + 2)) return 3;
  return 4;
}

Encoded setPoint(int record, std::int32_t mask) {
  const std::string payload = fabASp(Memo[record].text);
  return {payload, mask, setPointNotice(payload)};
}

std::string band(const std::string& text) {
  const std::string digits = hexText(toInt16(Val(remDp(text))));
  return digits.size() > 4 ? "!Prop Band Data String Too Long" : padLeft(digits, 4);
}

const std::string& out1Band() {
  return Memo[Memo[rec::cboOut1Ctrl].value != 0 ? rec::txtOut1PB : rec::txtOut1DeadBand].text;
}

// Without automatic PID of its own, output 2 has its own band; with it, it follows output 1.
const std::string& out2Band() {
  if (Memo[rec::cboOut2Ctrl].value == 0) return Memo[rec::txtOut2DeadBand].text;
  if (Memo[rec::chkOut2AutoPID].value == 0) return Memo[rec::txtOut2PB].text;
  return out1Band();
}

bool isTime(const std::string& text) { return text.size() == 5; }

// The middle character may be anything.
std::string timeDigits(std::string_view text) {
  return hexDigits(Val(text.substr(0, 2)) * 100 + Val(text.substr(3)), 4);
}

Encoded timeOr(int record, const char* refusal, std::int32_t mask) {
  const std::string& text = Memo[record].text;
  return {isTime(text) ? timeDigits(text) : refusal, mask};
}

Encoded cycleTime(int record, const char* refusal, std::int32_t mask) {
  const std::int16_t seconds = Memo[record].value;
  return {seconds >= 1 && seconds <= 199 ? hexDigits(seconds, 2) : refusal, mask};
}

Encoded wholeNumber(int record, std::size_t width, std::int32_t mask) {
  return {hexDigits(Val(Memo[record].text), width), mask};
}

}  // namespace

std::string remDp(std::string text) {
  const std::size_t point = text.find('.');
  if (point != text.npos) text.erase(point, 1);
  return text;
}

std::string fabASp(const std::string& text) {
  const std::int16_t magnitude = toInt16(std::abs(Val(remDp(text))));
  const int sign = Val(text) < 0 ? 8 : 0;
  return hexText(sign + decimalCode()) + padLeft(hexText(magnitude), 5);
}

const Notice* setPointNotice(const std::string& payload) {
  return payload.size() == 6 ? nullptr : &shortSetPoint;
}

Encoded makeSp1() { return setPoint(rec::txtSp1, maskFor<0x01>()); }
Encoded makeSp2() { return setPoint(rec::txtSp2, maskFor<0x02>()); }
Encoded makeAl1High() { return setPoint(rec::txtAl1HiSp, maskFor<0x13>()); }
Encoded makeAl1Low() { return setPoint(rec::txtAl1LoSp, maskFor<0x12>()); }
Encoded makeAl2High() { return setPoint(rec::txtAl2HiSp, maskFor<0x16>()); }
Encoded makeAl2Low() { return setPoint(rec::txtAl2LoSp, maskFor<0x15>()); }
Encoded makeCJOffset() { return setPoint(rec::txtTAdjust, maskFor<0x25>()); }

Encoded makeLBTime() {
  const Encoded time = timeOr(rec::txtLBATime, "0000", maskFor<0x0B>());
  return {time.payload, time.mask, isTime(Memo[rec::txtLBATime].text) ? nullptr : &badLoopBreakTime};
}

Encoded makeRampT() { return timeOr(rec::txtRampT, "!Ramp Time Format Error", maskFor<0x0E>()); }
Encoded makeSoakT() { return timeOr(rec::txtSoakT, "!Soak Time Format Error", maskFor<0x1E>()); }

Encoded makeIDCode() { return wholeNumber(rec::txtIDCode, 4, maskFor<0x05>()); }
Encoded makeOut1PropBand() { return {band(out1Band()), maskFor<0x17>()}; }
Encoded makeOut1Reset() { return wholeNumber(rec::txtOut1Reset, 4, maskFor<0x18>()); }

Encoded makeOut1Rate() {
  const double rate = Val(remDp(Memo[rec::txtOut1Rate].text));
  const bool fits = rate >= 0 && rate <= 1999;
  return {fits ? hexDigits(rate, 4) : "!Out1 Rate Format Error...", maskFor<0x19>()};
}

Encoded makeOut1CycleT() {
  return cycleTime(rec::HSOut1CycleT, "!Out1 Cycle T Data Corruption Error", maskFor<0x1A>());
}

Encoded makeOut2PropBand() { return {band(out2Band()), maskFor<0x1C>()}; }

Encoded makeOut2CycleT() {
  return cycleTime(rec::HSOut2CycleT, "!Out2 Cycle T Data Corruption Error", maskFor<0x1D>());
}

Encoded makeOut1Low() { return wholeNumber(rec::HSOut1Low, 2, maskFor<0x27>()); }
Encoded makeOut1Hi() { return wholeNumber(rec::HSOut1High, 2, maskFor<0x28>()); }
Encoded makeRS485Address() { return wholeNumber(rec::txtRS485Address, 2, maskFor<0x21>()); }

}  // namespace torvane
