// SPDX-License-Identifier: MIT
// Decoders of the scales and offsets: a slope and an intercept become two points of the same line.
#include <cmath>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "protocol/Scale.h"
#include "reading/Decoders.h"
#include "reading/DecodersPayload.h"

namespace torvane {

namespace {

constexpr double highestInput = 9999;
constexpr double smallestScale = 0.001;  // keeps the division by the scale possible

struct Points {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
};

double scaleIn(const std::string& payload, int power) {
  const double magnitude = (numberOfPayload(payload) & 0x7FFFF) / std::pow(10.0, power);
  const bool negative = (digitAt(payload, 1) & 8) != 0;
  return negative ? 0 - magnitude : magnitude;
}

float offsetIn(const std::string& payload) {
  const std::size_t tail = payload.size() > 5 ? payload.size() - 5 : 0;
  const int first = digitAt(payload, 0);
  const double magnitude = numberOfPayload(payload.substr(tail)) / std::pow(10.0, (first & 7) - 2);
  return toSingle((first & 8) != 0 ? 0 - magnitude : magnitude);
}

// A negative scale that is too small turns positive.
double flooredScale(std::string& scaleText) {
  const double scale = Val(scaleText);
  if (std::abs(scale) >= smallestScale) return scale;
  scaleText = numberText(smallestScale);
  return smallestScale;
}

double startingY2(int record, double full) {
  const double y2 = Val(Memo[record].text);
  return y2 > full || y2 <= 0 ? full : y2;
}

// The line y = s * x + o, as the display knows it: two points with inputs that the display can hold. `y2` is
// where the second point would like to be, `highestY1` where the first one has to stay below.
struct Rebuild {
  double s;
  double o;
  double y2;
  double full;
  double highestY1;

  Points points() const {
    if (s >= 0) return o >= 0 ? fromZero() : risingFromBelow();
    return o >= 0 ? falling() : wholeRange();
  }

 private:
  void limit(double& x, double& y) const {
    if (x <= highestInput) return;
    x = highestInput;
    y = s * x + o;
  }

  Points fromZero() const {
    Points at{0, o, (y2 - o) / s, y2};
    limit(at.x2, at.y2);
    return at;
  }

  // Both inputs are positive here, so the display's lower end of -1999 is out of reach.
  Points risingFromBelow() const {
    Points at{-o / s, 0, (y2 - o) / s, y2};
    limit(at.x1, at.y1);
    limit(at.x2, at.y2);
    return at;
  }

  Points falling() const {
    Points at{0, o, -o / s, y2};
    if (at.y1 > highestY1) {
      at.y1 = highestY1;
      at.x1 = (highestY1 - o) / s;
    }
    limit(at.x2, at.y2);
    return at;
  }

  Points wholeRange() const { return {0, 0, highestInput, full}; }
};

void store(int record, double number, const char* picture) {
  Memo[record].text = formatNumber(number, picture);
}

}  // namespace

std::string parseRdScale(const std::string& reply) {
  return decoded(reply, [](const std::string& payload) {
    return Global.RdScale = numberText(scaleIn(payload, digitAt(payload, 0) - 1));
  });
}

std::string parseAnalogScale(const std::string& reply) {
  return decoded(reply, [](const std::string& payload) {
    const int power = digitAt(payload, 0) - (isReadInTenths() ? 0 : 1);
    return Global.AnalogScale = numberText(scaleIn(payload, power));
  });
}

std::string parseRdOffset(const std::string& reply) {
  return decoded(reply, [](const std::string& payload) {
    constexpr double full = 9999;
    const float offset = offsetIn(payload);
    const double y2 = startingY2(rec::txtRd2, full);
    const Points at = Rebuild{flooredScale(Global.RdScale), offset, y2, full, full}.points();
    store(rec::txtRd1, at.y1, "0000");
    store(rec::txtRd2, at.y2, "0000");
    store(rec::txtIn1, at.x1, "0000");
    store(rec::txtIn2, at.x2, "0000");
    return numberText(offset);
  });
}

std::string parseAnalogOffset(const std::string& reply) {
  return decoded(reply, [](const std::string& payload) {
    const double full = isChosen(rec::optAOutI) ? 20 : 10;  // mA or V
    const float offset = offsetIn(payload);
    const double y2 = startingY2(rec::txtAOutOut2, full);
    const Points at = Rebuild{flooredScale(Global.AnalogScale), offset, y2, full, y2}.points();
    store(rec::txtAOutOut1, at.y1, "##0.0##");
    store(rec::txtAOutOut2, at.y2, "##0.0##");
    store(rec::txtAOutRd1, at.x1, "0000");
    store(rec::txtAOutRd2, at.x2, "0000");
    return numberText(offset);
  });
}

}  // namespace torvane
