// SPDX-License-Identifier: MIT
// Scale and offset arithmetic on the decimal text of a number: digits are picked out, places counted.
#include "protocol/Scale.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "protocol/EncodersMasks.h"

namespace torvane {

namespace {

constexpr char divideByZero[] = "!Divide by zero";
constexpr Notice scaleOverflow{
    "Scale Overflow: please write down\rReading Scale & Offset settings and\r"
    "report the problem to the software author.",
    "Algorithm difficulties...", true};
constexpr Notice offsetOverflow{
    "Offset Overflow: please write down\rReading Scale & Offset settings and\r"
    "report the problem to the software author.",
    "Algorithm difficulties...", true};

constexpr std::size_t mantissaWidth = 6;
constexpr std::int32_t powerUnit = 1 << 20;
constexpr std::int32_t scaleSign = 1 << 19;
constexpr std::int32_t offsetSign = 1 << 23;
constexpr std::int32_t highestScale = 524287;

struct Line {
  double x1, y1, x2, y2;
};

double numberIn(int record) { return Val(Memo[record].text); }

Line readingLine() {
  return {numberIn(rec::txtIn1), numberIn(rec::txtRd1), numberIn(rec::txtIn2), numberIn(rec::txtRd2)};
}

Line analogLine() {
  return {numberIn(rec::txtAOutRd1), numberIn(rec::txtAOutOut1), numberIn(rec::txtAOutRd2),
          numberIn(rec::txtAOutOut2)};
}

double checked(double number) {
  if (!std::isfinite(number)) throw RuntimeError(Fault::overflow, "Overflow");
  return number;
}

double slopeOf(const Line& line) { return checked(checked(line.y2 - line.y1) / checked(line.x2 - line.x1)); }

// What double arithmetic leaves of a zero, at the most. A true offset of points with a few decimals is a
// hundred times larger.
double residueOf(const Line& line) {
  const double highest = std::max(std::abs(line.y1), std::abs(line.y2));
  return 8 * std::numeric_limits<double>::epsilon() * highest * (1 + std::abs(line.x1 / (line.x2 - line.x1)));
}

// Of the line that has this slope and goes through the point. The second point only tells how much of it is
// residue.
double interceptOf(double x, double y, const std::string& slope, Line (*points)()) {
  const double r = checked(y - checked(Val(slope) * x));
  bool residue = false;
  attempt([&] {
    const Line line = points();
    residue = line.x2 != line.x1 && std::abs(r) <= residueOf(line);
  });
  return residue ? 0 : r;
}

std::int32_t numberOf(const Mantissa& mantissa) { return toInt32(Val(mantissa.digits)); }

// The register holds 19 bits; a sixth digit that doesn't fit is given up.
void fitScale(Mantissa& mantissa) {
  if (numberOf(mantissa) <= highestScale) return;
  mantissa.digits.resize(mantissaWidth - 1);
  ++mantissa.exponent;
}

// The power code can only divide; a number so large that it would have to multiply goes out as if divided.
std::string packed(const Mantissa& mantissa, int lowestCode, std::int32_t sign) {
  const std::int32_t code = std::abs(mantissa.exponent) + lowestCode;
  return hexText(numberOf(mantissa) + (mantissa.negative ? sign : 0) + powerUnit * code);
}

std::string packedScale(const Mantissa& mantissa) { return packed(mantissa, 1, scaleSign); }
std::string packedOffset(const Mantissa& mantissa) { return packed(mantissa, 2, offsetSign); }

const Notice* scaleNotice(const Mantissa& mantissa) {
  return mantissa.exponent + 1 > 15 ? &scaleOverflow : nullptr;
}

const Notice* offsetNotice(const Mantissa& mantissa) {
  return mantissa.exponent + 2 > 8 ? &offsetOverflow : nullptr;
}

bool isCurrentOutput() { return isChosen(rec::optAOutI); }

// Every digit is worth a place of ten, so what is cut here goes into the exponent. A number with more places
// than it has digits ends as 0.
void cutSmallOffset(Mantissa& mantissa) {
  for (; mantissa.exponent < -5; ++mantissa.exponent) {
    if (!mantissa.digits.empty()) mantissa.digits.pop_back();
  }
}

// A decimal text taken apart: digits without sign and point, the place of the point in them, and what stands
// after the "E".
struct DecimalParts {
  std::string digits;
  int point = 0;
  int exponent = 0;
  bool negative = false;
};

DecimalParts takeApart(const std::string& text, bool belowZero) {
  DecimalParts parts;
  parts.point = static_cast<int>(text.size()) - (belowZero ? 1 : 0);
  bool pointSeen = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '-' && i == 0) {
      parts.negative = true;
    } else if (c == '.') {
      parts.point = static_cast<int>(parts.digits.size());
      pointSeen = true;
    } else if (c == 'E') {
      parts.exponent = toInt16(Val(text.substr(i + 1, 3)));
      if (!pointSeen) parts.point = static_cast<int>(parts.digits.size());
      break;
    } else {
      parts.digits += c;
    }
  }
  return parts;
}

}  // namespace

bool isReadInTenths() {
  const bool temperature = isChosen(rec::optInType) || isChosen(rec::optInType + 1);
  return temperature && isChosen(rec::optDpoint + 1);
}

Mantissa TextToMantissa(double r) {
  DecimalParts parts = takeApart(numberText(r), r < 0);
  const std::string significant = numberText(Val(parts.digits));
  parts.exponent += static_cast<int>(significant.size()) - static_cast<int>(parts.digits.size());
  parts.digits = significant;
  parts.digits.resize(mantissaWidth, '0');
  return {parts.digits, parts.point + parts.exponent - static_cast<int>(mantissaWidth), parts.negative};
}

Encoded makeRdScale() {
  Global.RdScale = "0";
  const Line line = readingLine();
  if (line.x2 - line.x1 == 0) return {divideByZero, maskFor<0x14>()};
  const double r = slopeOf(line);
  Global.RdScale = exactText(r);
  Mantissa mantissa = TextToMantissa(r);
  const Notice* const notice = scaleNotice(mantissa);
  fitScale(mantissa);
  return {packedScale(mantissa), maskFor<0x14>(), notice};
}

Encoded makeRdOffset() {
  const double r = interceptOf(numberIn(rec::txtIn1), numberIn(rec::txtRd1), Global.RdScale, readingLine);
  const Mantissa mantissa = TextToMantissa(r);
  return {packedOffset(mantissa), maskFor<0x03>(), offsetNotice(mantissa)};
}

// A current's slope is worked out in amperes, and the power puts it back. What the offset takes over is the
// slope as it came out of the division. By now the reading's slope has done its work, and is the one to be
// cleared.
Encoded makeAnalogScale() {
  Global.RdScale = "0";
  Line line = analogLine();
  if (isCurrentOutput()) {
    line.y1 /= 1000;
    line.y2 /= 1000;
  }
  if (line.x2 - line.x1 == 0) return {divideByZero, maskFor<0x0F>()};
  const double r = slopeOf(line);
  Global.AnalogScale = exactText(r);
  Mantissa mantissa = TextToMantissa(r);
  const Notice* const notice = scaleNotice(mantissa);
  fitScale(mantissa);
  if (isReadInTenths()) ++mantissa.exponent;
  if (isCurrentOutput()) mantissa.exponent += 3;
  return {packedScale(mantissa), maskFor<0x0F>(), notice};
}

Encoded makeAnalogOffset() {
  const double r =
      interceptOf(numberIn(rec::txtAOutRd1), numberIn(rec::txtAOutOut1), Global.AnalogScale, analogLine);
  Mantissa mantissa = TextToMantissa(r);
  cutSmallOffset(mantissa);
  const std::string payload = r == 0 ? "C00000" : packedOffset(mantissa);
  return {payload, maskFor<0x04>(), offsetNotice(mantissa)};
}

}  // namespace torvane
