// SPDX-License-Identifier: MIT
// Decoders of the registers that carry one number: set points, bands, times, percentages.
#include "reading/Decoders.h"

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "reading/DecodersPayload.h"

namespace torvane {

namespace {

struct ScalePictures {
  int scale;
  const char* plain;
  const char* filled;  // with leading zeros
};

constexpr ScalePictures scalePictures[] = {
    {1, "###0", "0000"},
    {10, "##0.0", "000.0"},
    {100, "#0.00", "00.00"},
    {1000, "0.000", "0.000"},
};

const ScalePictures& picturesNow() {
  const int scale = decimalScale();
  const ScalePictures* pictures = scalePictures;
  while (pictures->scale != scale) ++pictures;
  return *pictures;
}

std::string parseSetPoint(const std::string& reply, int record) {
  return decoded(reply, [record](const std::string& payload) {
    const float value = toSingle(numberOfText(parseSignedValue(payload)));
    return Memo[record].text = formatNumber(value, picturesNow().filled);
  });
}

std::string parseNumber(const std::string& reply, int record, const char* picture) {
  return decoded(reply, [=](const std::string& payload) {
    return Memo[record].text = formatNumber(static_cast<double>(numberOfPayload(payload)), picture);
  });
}

std::string parseSeconds(const std::string& reply, int record) {
  return decoded(reply, [record](const std::string& payload) {
    const std::int32_t v = numberOfPayload(payload);
    Memo[record].value = toInt16(v);
    return numberText(v);
  });
}

std::string parseBand(const std::string& reply, int deadBandRecord, int bandRecord) {
  return decoded(reply, [=](const std::string& payload) {
    const double band = static_cast<double>(numberOfPayload(payload)) / decimalScale();
    std::string text = formatNumber(band, picturesNow().filled);
    Memo[deadBandRecord].text = text;
    Memo[bandRecord].text = text;
    return text;
  });
}

std::string twoDigits(std::int32_t number) { return formatNumber(static_cast<double>(number), "00"); }

std::string parseTime(const std::string& reply, int record) {
  return decoded(reply, [record](const std::string& payload) {
    const std::int32_t v = numberOfPayload(payload);
    return Memo[record].text = twoDigits(v / 100) + ":" + twoDigits(v % 100);
  });
}

}  // namespace

int decimalScale() {
  if (isChosen(rec::optDpoint + 3)) return 1000;
  if (isChosen(rec::optDpoint + 2)) return 100;
  if (isChosen(rec::optDpoint + 1)) return 10;
  return 1;
}

std::string parseSignedValue(const std::string& payload) {
  if (payload.size() < 3) return failed;
  const std::int32_t magnitude = numberOfPayload(payload) & 0xFFFFF;
  const bool negative = (digitAt(payload, 0) & 8) != 0;
  const float value =
      static_cast<float>(negative ? -magnitude : magnitude) / static_cast<float>(decimalScale());
  return formatNumber(value, picturesNow().plain);
}

std::string parseSp1(const std::string& reply) { return parseSetPoint(reply, rec::txtSp1); }
std::string parseSp2(const std::string& reply) { return parseSetPoint(reply, rec::txtSp2); }
std::string parseAl1High(const std::string& reply) { return parseSetPoint(reply, rec::txtAl1HiSp); }
std::string parseAl1Low(const std::string& reply) { return parseSetPoint(reply, rec::txtAl1LoSp); }
std::string parseAl2High(const std::string& reply) { return parseSetPoint(reply, rec::txtAl2HiSp); }
std::string parseAl2Low(const std::string& reply) { return parseSetPoint(reply, rec::txtAl2LoSp); }
std::string parseCJOffset(const std::string& reply) { return parseSetPoint(reply, rec::txtTAdjust); }

std::string parseLBTime(const std::string& reply) { return parseTime(reply, rec::txtLBATime); }
std::string parseRampT(const std::string& reply) { return parseTime(reply, rec::txtRampT); }
std::string parseSoakT(const std::string& reply) { return parseTime(reply, rec::txtSoakT); }

std::string parseIDCode(const std::string& reply) { return parseNumber(reply, rec::txtIDCode, "0000"); }

std::string parseOut1PropBand(const std::string& reply) {
  return parseBand(reply, rec::txtOut1DeadBand, rec::txtOut1PB);
}

std::string parseOut1Reset(const std::string& reply) { return parseNumber(reply, rec::txtOut1Reset, "0000"); }

std::string parseOut1Rate(const std::string& reply) {
  return decoded(reply, [](const std::string& payload) {
    const float rate = static_cast<float>(numberOfPayload(payload)) / 10.0F;
    return Memo[rec::txtOut1Rate].text = formatNumber(rate, "000.0");
  });
}

std::string parseOut1CycleT(const std::string& reply) { return parseSeconds(reply, rec::HSOut1CycleT); }

std::string parseOut2PropBand(const std::string& reply) {
  return parseBand(reply, rec::txtOut2DeadBand, rec::txtOut2PB);
}

std::string parseOut2CycleT(const std::string& reply) { return parseSeconds(reply, rec::HSOut2CycleT); }

std::string parseOut1Low(const std::string& reply) { return parseNumber(reply, rec::HSOut1Low, "000"); }
std::string parseOut1Hi(const std::string& reply) { return parseNumber(reply, rec::HSOut1High, "000"); }

std::string parseRS485Address(const std::string& reply) {
  return parseNumber(reply, rec::txtRS485Address, "000");
}

}  // namespace torvane
