// SPDX-License-Identifier: MIT
// Decoders of the bit registers, bit by bit.
#include <gtest/gtest.h>

#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "platform/RuntimeError.h"
#include "reading/Decoders.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

using Parse = std::string (*)(const std::string&);

class DecodersBits : public testing::Test {
 protected:
  void SetUp() override { freshSetup(); }
};

std::string reply(int v) {
  static constexpr char hexadecimal[] = "0123456789ABCDEF";
  return std::string("R07") + hexadecimal[v >> 4] + hexadecimal[v & 15];
}

struct Expectation {
  int record;
  std::int16_t value;
};

// A payload and the values it leaves.
void expectValues(Parse parse, const std::string& payload, const std::vector<Expectation>& values) {
  EXPECT_EQ(parse("R07" + payload), payload);
  for (const auto& [record, value] : values) {
    EXPECT_EQ(Memo[record].value, value) << payload << ", record " << record;
  }
}

// One bit of a register decides over one record's value: `whenSet` with the bit alone, `whenClear` with all
// others.
void expectBit(Parse parse, int position, int record, std::int16_t whenSet, std::int16_t whenClear) {
  parse(reply(1 << position));
  EXPECT_EQ(Memo[record].value, whenSet) << "bit " << position << ", record " << record;
  parse(reply(255 - (1 << position)));
  EXPECT_EQ(Memo[record].value, whenClear) << "bit " << position << ", record " << record;
}

void expectFlagBit(Parse parse, int position, int record, std::int16_t whenSet) {
  parse(reply(1 << position));
  EXPECT_EQ(Memo[record].flag, whenSet) << "bit " << position << ", record " << record;
  parse(reply(255 - (1 << position)));
  EXPECT_EQ(Memo[record].flag, static_cast<std::int16_t>(-1 - whenSet)) << "bit " << position;
}

void expectFlags(int firstRecord, int count, int chosen) {
  for (int i = 0; i < count; ++i) {
    EXPECT_EQ(Memo[firstRecord + i].flag, asFlag(i == chosen)) << firstRecord + i;
  }
}

TEST_F(DecodersBits, ThermocoupleTypeIsBit2Alone) {
  for (int type = 0; type < 10; ++type) {
    Memo[rec::lstTCTypes].value = 99;
    parseInput(reply(type * 4));
    EXPECT_EQ(Memo[rec::lstTCTypes].value, type % 2) << type;
    expectFlags(rec::optInType, 3, 0);
  }
}

TEST_F(DecodersBits, ThermocoupleType5WrittenReadsBackAs1) {
  chooseOption(rec::optInType, 3, 0);
  Memo[rec::lstTCTypes].value = 5;
  parseInput("R07" + makeInput().payload);
  EXPECT_EQ(Memo[rec::lstTCTypes].value, 1);
}

TEST_F(DecodersBits, RTDCodesBelow3AreCurve392) {
  for (std::int16_t wires : std::vector<std::int16_t>{0, 1, 2}) {
    parseInput(reply(1 + wires * 4));
    expectFlags(rec::optInType, 3, 1);
    EXPECT_EQ(Memo[rec::cboRTDCurves].value, 1);
    EXPECT_EQ(Memo[rec::cboRTDWires].value, wires);
  }
}

TEST_F(DecodersBits, RTDCodes3To5AreCurve385) {
  for (std::int16_t wires : std::vector<std::int16_t>{0, 1, 2}) {
    parseInput(reply(13 + wires * 4));
    EXPECT_EQ(Memo[rec::cboRTDCurves].value, 0);
    EXPECT_EQ(Memo[rec::cboRTDWires].value, wires);
  }
}

TEST_F(DecodersBits, LargerRTDCodesLeaveTheWires) {
  Memo[rec::cboRTDWires].value = 2;
  parseInput(reply(1 + 6 * 4));
  EXPECT_EQ(Memo[rec::cboRTDCurves].value, 0);
  EXPECT_EQ(Memo[rec::cboRTDWires].value, 2);
}

TEST_F(DecodersBits, ResistanceIsTheHighestTwoBits) {
  for (const int resistance : {0, 1, 2, 3}) {
    parseInput(reply(1 + 15 * 4 + resistance * 64));
    EXPECT_EQ(Memo[rec::cboRTDValue].value, resistance);
  }
}

TEST_F(DecodersBits, RTDCodeIsFourBitsWideAndSharesTwoWithTheResistance) {
  Memo[rec::cboRTDWires].value = 2;
  expectValues(parseInput, "41", {{rec::cboRTDValue, 1}, {rec::cboRTDCurves, 1}, {rec::cboRTDWires, 0}});
  expectValues(parseInput, "8D", {{rec::cboRTDValue, 2}, {rec::cboRTDCurves, 0}, {rec::cboRTDWires, 0}});
  expectValues(parseInput, "C1", {{rec::cboRTDValue, 3}});
}

TEST_F(DecodersBits, ProcessRangeIsFourBits) {
  for (std::int16_t range : std::vector<std::int16_t>{0, 1, 2, 3, 15}) {
    parseInput(reply(2 + range * 4));
    expectFlags(rec::optInType, 3, 2);
    EXPECT_EQ(Memo[rec::lstProc].value, range);
  }
}

TEST_F(DecodersBits, InputTypeOf3LeavesNoneChosenAndEverythingElse) {
  Memo[rec::lstTCTypes].value = 7;
  Memo[rec::lstProc].value = 2;
  EXPECT_EQ(parseInput("R07FF"), "FF");
  expectFlags(rec::optInType, 3, -1);
  EXPECT_EQ(Memo[rec::lstTCTypes].value, 7);
  EXPECT_EQ(Memo[rec::lstProc].value, 2);
  EXPECT_EQ(Memo[rec::cboRTDWires].value, 0);
}

TEST_F(DecodersBits, InputOfANegativeNumberCutsTowardZero) {
  // -3: an RTD whose code is 0.
  expectValues(parseInput, "FFFD", {{rec::cboRTDCurves, 1}, {rec::cboRTDWires, 0}, {rec::cboRTDValue, 0}});
}

TEST_F(DecodersBits, ReadingFormatCodes1To4ChooseTheFormat) {
  for (int code = 1; code <= 4; ++code) {
    parseRdgCnfg(reply(code));
    expectFlags(rec::optDpoint, 4, code - 1);
  }
}

TEST_F(DecodersBits, ReadingFormatCode0ChoosesNoneAndTheScaleIsOne) {
  parseRdgCnfg("R0800");
  expectFlags(rec::optDpoint, 4, -1);
  EXPECT_EQ(decimalScale(), 1);
}

TEST_F(DecodersBits, ReadingFormatCodesAbove4ChooseNone) {
  for (int code : {5, 6, 7}) {
    chooseFormat(1);
    parseRdgCnfg(reply(code));
    expectFlags(rec::optDpoint, 4, -1);
  }
}

TEST_F(DecodersBits, ReadingConfigurationHoldsUnitAndFilter) {
  expectBit(parseRdgCnfg, 3, rec::cboTUnit, 1, 0);
  expectValues(parseRdgCnfg, "E2", {{rec::lstFiltConst, 7}, {rec::cboTUnit, 0}});
  expectValues(parseRdgCnfg, "12", {{rec::lstFiltConst, 0}, {rec::cboTUnit, 0}});
}

TEST_F(DecodersBits, FilterIsNotMasked) {
  expectValues(parseRdgCnfg, "122", {{rec::lstFiltConst, 9}});
  expectValues(parseRdgCnfg, "FFFF", {{rec::lstFiltConst, 0}});
  expectValues(parseRdgCnfg, "FFC0", {{rec::lstFiltConst, -2}});
}

TEST_F(DecodersBits, FilterThatDoesNotFitItsRecordIsAnOverflow) {
  EXPECT_THROW(parseRdgCnfg("R0800100000"), RuntimeError);
  EXPECT_EQ(parseRdgCnfg("R08000FFFE0"), "000FFFE0");
  EXPECT_EQ(Memo[rec::lstFiltConst].value, 32767);
}

TEST_F(DecodersBits, Alarm1HasABitForEachChoice) {
  expectBit(parseAl1Cnfg, 0, rec::chkAl1Enabled, 1, 0);
  expectBit(parseAl1Cnfg, 0, rec::chkAnalogOutputEnabled, 1, 0);
  expectBit(parseAl1Cnfg, 1, rec::cboAl1Ctrl, 1, 0);
  expectBit(parseAl1Cnfg, 2, rec::cboAl1Latch, 0, 1);
  expectBit(parseAl1Cnfg, 3, rec::cboAl1Closure, 1, 0);
  expectBit(parseAl1Cnfg, 4, rec::cboAl1Setup, 1, 2);
  expectBit(parseAl1Cnfg, 5, rec::cboAl1Setup, 2, 1);
  expectBit(parseAl1Cnfg, 6, rec::chkLBAEnabled, 1, 0);
  expectBit(parseAl1Cnfg, 7, rec::chkAl1AutoPOn, 1, 0);
}

TEST_F(DecodersBits, Alarm2HasABitForEachChoice) {
  expectBit(parseAl2Cnfg, 0, rec::chkAl2Enabled, 1, 0);
  expectBit(parseAl2Cnfg, 1, rec::cboAl2Ctrl, 1, 0);
  expectBit(parseAl2Cnfg, 2, rec::cboAl2Latch, 0, 1);
  expectBit(parseAl2Cnfg, 3, rec::cboAl2Closure, 1, 0);
  expectBit(parseAl2Cnfg, 4, rec::cboAl2Setup, 1, 2);
  expectBit(parseAl2Cnfg, 5, rec::cboAl2Setup, 2, 1);
}

TEST_F(DecodersBits, Alarm2CarriesTheAnalogOutputsMode) {
  expectFlagBit(parseAl2Cnfg, 7, rec::optAOutI, True);
  expectFlagBit(parseAl2Cnfg, 7, rec::optAOutV, False);
}

TEST_F(DecodersBits, Alarm2OfTheRkw77LineLeavesTheAnalogOutputsMode) {
  chooseKind(kind::rkw77);
  EXPECT_EQ(parseAl2Cnfg("R0AFF"), "FF");
  expectFlags(rec::optAOutV, 2, 0);
  EXPECT_EQ(Memo[rec::cboAl2Setup].value, 3);
}

TEST_F(DecodersBits, Output1HasABitForEachChoice) {
  expectBit(parseOut1Cnfg, 0, rec::cboOut1Ctrl, 1, 0);
  expectBit(parseOut1Cnfg, 1, rec::cboOut1Action, 1, 0);
  expectBit(parseOut1Cnfg, 2, rec::chkOut1AutoPID, 1, 0);
  expectBit(parseOut1Cnfg, 4, rec::chkOut1Anti, 1, 0);
  expectBit(parseOut1Cnfg, 5, rec::chkOut1Start, 1, 0);
  expectFlagBit(parseOut1Cnfg, 6, rec::opt420mA, True);
  expectFlagBit(parseOut1Cnfg, 6, rec::opt020mA, False);
}

TEST_F(DecodersBits, Output1HoldsAlarm1sSetupInTheSimpleMenuOnly) {
  Memo[rec::cboAl1Setup].value = 3;
  for (int kind : {0, 1, 3, 4}) {
    chooseKind(kind);
    parseOut1Cnfg("R0C02");
    EXPECT_EQ(Memo[rec::cboAl1Setup].value, 3) << kind;
  }
  chooseKind(kind::simpleMenu);
  expectBit(parseOut1Cnfg, 1, rec::cboAl1Setup, 0, 1);
}

TEST_F(DecodersBits, Output2HasABitForEachChoice) {
  expectBit(parseOut2Cnfg, 0, rec::cboOut2Ctrl, 1, 0);
  expectBit(parseOut2Cnfg, 1, rec::cboOut2Action, 1, 0);
  expectBit(parseOut2Cnfg, 2, rec::chkOut2AutoPID, 1, 0);
  expectBit(parseOut2Cnfg, 3, rec::chkRampEn, 1, 0);
  expectBit(parseOut2Cnfg, 4, rec::chkSoakEn, 1, 0);
  expectBit(parseOut2Cnfg, 5, rec::lstOut1DamFactor, 1, 6);
  expectBit(parseOut2Cnfg, 6, rec::lstOut1DamFactor, 2, 5);
  expectBit(parseOut2Cnfg, 7, rec::lstOut1DamFactor, 4, 3);
}

TEST_F(DecodersBits, Output2HoldsAlarm2sSetupInTheSimpleMenuOnly) {
  Memo[rec::cboAl2Setup].value = 3;
  for (int kind : {0, 1, 3, 4}) {
    chooseKind(kind);
    parseOut2Cnfg("R0D02");
    EXPECT_EQ(Memo[rec::cboAl2Setup].value, 3) << kind;
  }
  chooseKind(kind::simpleMenu);
  expectBit(parseOut2Cnfg, 1, rec::cboAl2Setup, 0, 1);
}

TEST_F(DecodersBits, MiscellaneousHoldsTheLevelOfProtection) {
  const Expectation levels[] = {{0x00, 0}, {0x04, 1}, {0x08, 2}, {0xF3, 0}};
  for (const auto& [v, level] : levels) {
    parseMiscellaneous(reply(v));
    expectFlags(rec::optIDCode, 3, level);
  }
  parseMiscellaneous("R240C");
  EXPECT_EQ(Memo[rec::optIDCode].flag, False);
  EXPECT_EQ(Memo[rec::optIDCode + 1].flag, True);
  EXPECT_EQ(Memo[rec::optIDCode + 2].flag, True);
}

// The options are stored as a row of flags; what stands after the row is another control's.
TEST_F(DecodersBits, OptionsEndWithTheirLast) {
  Memo[rec::lstTCTypes].flag = 77;
  Memo[rec::cboTUnit].flag = 77;
  for (int v = 0; v < 8; ++v) {
    parseInput(reply(v));
    parseRdgCnfg(reply(v));
  }
  EXPECT_EQ(Memo[rec::lstTCTypes].flag, 77);
  EXPECT_EQ(Memo[rec::cboTUnit].flag, 77);
}

TEST_F(DecodersBits, MiscellaneousTicksItsBoxesWithMinusOne) {
  expectBit(parseMiscellaneous, 4, rec::chkOut1Self, -1, 0);
  expectBit(parseMiscellaneous, 7, rec::chkSPDeviation, -1, 0);
}

TEST_F(DecodersBits, ColoursAreTwoBitsEachFromTheLowEnd) {
  const int records[] = {81, 82, 83};
  for (int place = 0; place < 3; ++place) {
    const int record = records[place];
    for (int code : {0, 1, 2}) {
      parseColors(reply(code << 2 * place));
      EXPECT_EQ(Memo[record].extra, 2 - code) << record;
    }
  }
}

TEST_F(DecodersBits, ColourCode3LeavesItsRecord) {
  for (int record : {81, 82, 83}) Memo[record].extra = 7;
  EXPECT_EQ(parseColors("R113F"), "3F");
  for (int record : {81, 82, 83}) EXPECT_EQ(Memo[record].extra, 7) << record;
  parseColors("R110C");
  EXPECT_EQ(Memo[81].extra, 2);
  EXPECT_EQ(Memo[82].extra, 7);
  EXPECT_EQ(Memo[83].extra, 2);
}

TEST_F(DecodersBits, BusFormatReadsBit3AndLeavesTheOtherBus) {
  Memo[rec::optRS232].flag = True;
  parseBusFormat("R1F3C");
  EXPECT_EQ(Memo[rec::optRS485].flag, True);
  EXPECT_EQ(Memo[rec::optRS232].flag, True);
  Memo[rec::optRS232].flag = False;
  parseBusFormat("R1FF7");
  EXPECT_EQ(Memo[rec::optRS485].flag, False);
  EXPECT_EQ(Memo[rec::optRS232].flag, False);
}

}  // namespace

}  // namespace torvane
