// SPDX-License-Identifier: MIT
// Decoders of the bit registers, each bit in the order of the unit's manual.
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "reading/Decoders.h"
#include "reading/DecodersPayload.h"

namespace torvane {

namespace {

// The bits go into the records; what the status shows is the payload as it came.
template <class Store>
std::string decodedBits(const std::string& reply, Store store) {
  return decoded(reply, [&store](const std::string& payload) {
    store(numberOfPayload(payload));
    return payload;
  });
}

std::int16_t bit(std::int32_t v, int position) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(v) >> position & 1U);
}

std::int16_t field(std::int32_t v, int position, std::uint32_t ones) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(v) >> position & ones);
}

std::int16_t flagOf(std::int32_t v, int position) { return asFlag(bit(v, position) != 0); }
std::int16_t inverted(std::int16_t oneBit) { return oneBit == 0 ? 1 : 0; }

void storeFlags(int firstRecord, int count, int chosen) {
  for (int i = 0; i < count; ++i) Memo[firstRecord + i].flag = asFlag(i == chosen);
}

// Wires 3 to 5 belong to curve "385", 0 to 2 to curve "392"; any other leaves the wires as they were.
void storeRTD(std::int32_t v) {
  const std::int32_t code = v / 4 & 15;
  Memo[rec::cboRTDCurves].value = code < 3 ? 1 : 0;
  if (code < 6) Memo[rec::cboRTDWires].value = static_cast<std::int16_t>(code % 3);
  Memo[rec::cboRTDValue].value = static_cast<std::int16_t>(v / 64 & 3);
}

// Of a thermocouple only the lowest bit of the type is read back, though the whole type was written.
void storeInput(std::int32_t v) {
  storeFlags(rec::optInType, 3, v & 3);
  switch (v & 3) {
    case 0:
      Memo[rec::lstTCTypes].value = static_cast<std::int16_t>((v & 7) / 4);
      break;
    case 1:
      storeRTD(v);
      break;
    case 2:
      Memo[rec::lstProc].value = static_cast<std::int16_t>(v / 4 & 15);
      break;
    default:
      break;
  }
}

void storeColor(int record, std::int16_t code) {
  if (code <= 2) Memo[record].extra = static_cast<std::int16_t>(2 - code);
}

}  // namespace

std::string parseInput(const std::string& reply) { return decodedBits(reply, storeInput); }

std::string parseRdgCnfg(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    storeFlags(rec::optDpoint, 4, (v & 7) - 1);
    Memo[rec::cboTUnit].value = bit(v, 3);
    const std::int32_t filter = v / 32;
    Memo[rec::lstFiltConst].value = toInt16(filter);
  });
}

// Bit 0 was set for either of two enables, so it counts for both.
std::string parseAl1Cnfg(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    Memo[rec::chkAnalogOutputEnabled].value = bit(v, 0);
    Memo[rec::chkAl1Enabled].value = bit(v, 0);
    Memo[rec::cboAl1Ctrl].value = bit(v, 1);
    Memo[rec::cboAl1Latch].value = inverted(bit(v, 2));
    Memo[rec::cboAl1Closure].value = bit(v, 3);
    Memo[rec::cboAl1Setup].value = field(v, 4, 3);
    Memo[rec::chkLBAEnabled].value = bit(v, 6);
    Memo[rec::chkAl1AutoPOn].value = bit(v, 7);
  });
}

std::string parseAl2Cnfg(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    Memo[rec::chkAl2Enabled].value = bit(v, 0);
    Memo[rec::cboAl2Ctrl].value = bit(v, 1);
    Memo[rec::cboAl2Latch].value = inverted(bit(v, 2));
    Memo[rec::cboAl2Closure].value = bit(v, 3);
    Memo[rec::cboAl2Setup].value = field(v, 4, 3);
    if (onRkw77Line()) return;
    Memo[rec::optAOutV].flag = asFlag(bit(v, 7) == 0);
    Memo[rec::optAOutI].flag = flagOf(v, 7);
  });
}

std::string parseOut1Cnfg(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    Memo[rec::cboOut1Ctrl].value = bit(v, 0);
    Memo[rec::cboOut1Action].value = bit(v, 1);
    Memo[rec::chkOut1AutoPID].value = bit(v, 2);
    Memo[rec::chkOut1Anti].value = bit(v, 4);
    Memo[rec::chkOut1Start].value = bit(v, 5);
    Memo[rec::opt420mA].flag = flagOf(v, 6);
    Memo[rec::opt020mA].flag = asFlag(bit(v, 6) == 0);
    if (isSimpleMenuUnit()) Memo[rec::cboAl1Setup].value = inverted(bit(v, 1));
  });
}

std::string parseOut2Cnfg(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    Memo[rec::cboOut2Ctrl].value = bit(v, 0);
    Memo[rec::cboOut2Action].value = bit(v, 1);
    Memo[rec::chkOut2AutoPID].value = bit(v, 2);
    Memo[rec::chkRampEn].value = bit(v, 3);
    Memo[rec::chkSoakEn].value = bit(v, 4);
    Memo[rec::lstOut1DamFactor].value = field(v, 5, 7);
    if (isSimpleMenuUnit()) Memo[rec::cboAl2Setup].value = inverted(bit(v, 1));
  });
}

std::string parseColors(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    storeColor(rec::cboNormalColor, field(v, 0, 3));
    storeColor(rec::cboAl1WhenActiveColor, field(v, 2, 3));
    storeColor(rec::cboAl2WhenActiveColor, field(v, 4, 3));
  });
}

std::string parseMiscellaneous(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) {
    Memo[rec::optIDCode].flag = asFlag((v & 0xC) == 0);
    Memo[rec::optIDCode + 1].flag = flagOf(v, 2);
    Memo[rec::optIDCode + 2].flag = flagOf(v, 3);
    Memo[rec::chkOut1Self].value = flagOf(v, 4);
    Memo[rec::chkSPDeviation].value = flagOf(v, 7);
  });
}

std::string parseBusFormat(const std::string& reply) {
  return decodedBits(reply, [](std::int32_t v) { Memo[rec::optRS485].flag = flagOf(v, 3); });
}

}  // namespace torvane
