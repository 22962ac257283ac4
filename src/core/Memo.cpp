// SPDX-License-Identifier: MIT
// The working image and its factory setup.
#include "core/Memo.h"

#include <utility>

#include "core/Model.h"
#include "platform/RuntimeError.h"

namespace torvane {

MemoArray Memo;

const MemoField& MemoArray::operator[](int index) const {
  if (index < 0 || index >= count) throw RuntimeError(Fault::subscriptOutOfRange, "Subscript out of range");
  return records_[static_cast<std::size_t>(index)];
}

MemoField& MemoArray::operator[](int index) { return const_cast<MemoField&>(std::as_const(*this)[index]); }

void MemoArray::reset() { records_.fill({}); }

namespace {

struct NumberDefault {
  int record;
  std::int16_t number;
};

struct TextDefault {
  int record;
  const char* text;
};

constexpr NumberDefault valueDefaults[] = {
    {rec::lstTCTypes, 1},       {rec::cboRTDValue, 0},
    {rec::cboRTDCurves, 1},     {rec::cboRTDWires, 0},
    {rec::lstProc, 0},          {rec::cboTUnit, 1},
    {rec::lstFiltConst, 2},     {rec::cboAl1Ctrl, 0},
    {rec::cboAl1Latch, 1},      {rec::cboAl1Closure, 0},
    {rec::cboAl1Setup, 0},      {rec::chkAl1Enabled, 0},
    {rec::chkAl1AutoPOn, 0},    {rec::cboAl2Ctrl, 0},
    {rec::cboAl2Latch, 1},      {rec::cboAl2Closure, 0},
    {rec::cboAl2Setup, 0},      {rec::chkAl2Enabled, 0},
    {rec::chkLBAEnabled, 0},    {rec::chkIDEnabled, 1},
    {rec::chkOut1Self, 0},      {43, 0},
    {rec::chkOut1AutoPID, 1},   {rec::chkOut1Anti, 0},
    {rec::chkOut1Start, 0},     {rec::HSOut1CycleT, 4},
    {rec::lstOut1DamFactor, 2}, {rec::cboOut1Ctrl, 0},
    {rec::cboOut1Action, 0},    {rec::chkOut2AutoPID, 1},
    {rec::cboOut2Ctrl, 0},      {rec::cboOut2Action, 0},
    {rec::HSOut2CycleT, 4},     {rec::chkRampEn, 0},
    {rec::chkSoakEn, 0},        {rec::chkAnalogOutputEnabled, 0},
    {rec::optIDCode + 2, 0},    {rec::chkSPDeviation, 0},
};

constexpr NumberDefault flagDefaults[] = {
    {rec::optInType, True},      {rec::optInType + 1, False}, {rec::optInType + 2, False},
    {rec::optDpoint, False},     {rec::optDpoint + 1, True},  {rec::optDpoint + 2, False},
    {rec::optDpoint + 3, False}, {rec::optAOutV, True},       {rec::optAOutI, False},
    {rec::optIDCode, True},      {rec::optIDCode + 1, False}, {rec::optIDCode + 2, False},
    {rec::opt020mA, True},       {rec::opt420mA, False},      {rec::optRS232, False},
    {rec::optRS485, False},      {rec::optNoChange, True},
};

constexpr NumberDefault extraDefaults[] = {
    {rec::cboNormalColor, 1},
    {rec::cboAl1WhenActiveColor, 0},
    {rec::cboAl2WhenActiveColor, 2},
    {rec::deviceClass, -1},
};

constexpr TextDefault textDefaults[] = {
    {rec::txtIDCode, "0000"},       {rec::txtSp1, "0000"},       {rec::txtSp2, "0000"},
    {rec::txtIn1Vi, "0000"},        {rec::txtIn2Vi, "0000"},     {rec::txtIn1, "1000"},
    {rec::txtRd1, "1000"},          {rec::txtIn2, "9000"},       {rec::txtRd2, "9000"},
    {rec::txtAl1HiSp, "400.0"},     {rec::txtAl1LoSp, "-100.0"}, {rec::txtAl2HiSp, "400.0"},
    {rec::txtAl2LoSp, "-100.0"},    {rec::txtLBATime, "00:15"},  {rec::txtTAdjust, "0000"},
    {rec::HSOut1Low, "0"},          {rec::HSOut1High, "99"},     {rec::txtOut1DeadBand, "20.0"},
    {rec::txtOut1PB, "20.0"},       {rec::txtOut1Reset, "0180"}, {rec::txtOut1Rate, "000.0"},
    {rec::txtOut2DeadBand, "20.0"}, {rec::txtOut2PB, "20.0"},    {rec::txtRampT, "00:15"},
    {rec::txtSoakT, "00:15"},       {rec::txtAOutRd1, "0000"},   {rec::txtAOutOut1, "00.00"},
    {rec::txtAOutRd2, "9999"},      {rec::txtAOutOut2, "10.00"}, {rec::txtRS485Address, "0001"},
};

}  // namespace

bool isChosen(int record) { return Memo[record].flag != False; }

void storeDefaults() {
  for (const auto& [record, number] : valueDefaults) Memo[record].value = number;
  for (const auto& [record, number] : flagDefaults) Memo[record].flag = number;
  for (const auto& [record, number] : extraDefaults) Memo[record].extra = number;
  for (const auto& [record, text] : textDefaults) Memo[record].text = text;
}

}  // namespace torvane
