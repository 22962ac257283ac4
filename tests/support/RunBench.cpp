// SPDX-License-Identifier: MIT
// The bench for whole runs.
#include "tests/support/RunBench.h"

#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr std::size_t probeLength = 6;  // commands

struct TextChoice {
  int record;
  const char* text;
};

constexpr TextChoice texts[] = {
    {rec::txtSp1, "123.4"},      {rec::txtSp2, "-050.0"},        {rec::txtIn1, "0000"},
    {rec::txtRd1, "0100"},       {rec::txtIn2, "1000"},          {rec::txtRd2, "2100"},
    {rec::txtAl1HiSp, "300.0"},  {rec::txtAl1LoSp, "-100.0"},    {rec::txtAl2HiSp, "400.0"},
    {rec::txtAl2LoSp, "-050.0"}, {rec::txtLBATime, "01:30"},     {rec::txtTAdjust, "-001.5"},
    {rec::txtIDCode, "1234"},    {rec::txtOut1PB, "012.5"},      {rec::txtOut1Reset, "0200"},
    {rec::txtOut1Rate, "001.5"}, {rec::txtRampT, "00:45"},       {rec::txtOut2DeadBand, "005.0"},
    {rec::txtSoakT, "02:00"},    {rec::txtAOutRd1, "0000"},      {rec::txtAOutOut1, "1.00"},
    {rec::txtAOutRd2, "0800"},   {rec::txtAOutOut2, "9.00"},     {rec::HSOut1Low, "10"},
    {rec::HSOut1High, "90"},     {rec::txtRS485Address, "0017"},
};

struct ValueChoice {
  int record;
  std::int16_t value;
};

constexpr ValueChoice values[] = {
    {rec::lstProc, 1},       {rec::cboTUnit, 1},      {rec::lstFiltConst, 2},  {rec::chkAl1Enabled, 1},
    {rec::cboAl1Closure, 1}, {rec::cboAl1Setup, 1},   {rec::chkLBAEnabled, 1}, {rec::cboAl2Latch, 0},
    {rec::cboAl2Setup, 2},   {rec::cboOut1Ctrl, 1},   {rec::chkOut1Anti, 1},   {rec::cboOut2Action, 1},
    {rec::chkRampEn, 1},     {rec::HSOut1CycleT, 10}, {rec::HSOut2CycleT, 20}, {rec::chkSPDeviation, 1},
};

// A full controller, point to point.
const Payloads& fullController() {
  static const Payloads payloads = {
      {"07", "06"},     {"08", "4A"},     {"01", "2004D2"}, {"02", "A001F4"}, {"14", "630D40"},
      {"03", "5186A0"}, {"09", "59"},     {"13", "200BB8"}, {"12", "A003E8"}, {"0A", "24"},
      {"16", "200FA0"}, {"15", "A001F4"}, {"0B", "0082"},   {"25", "A0000F"}, {"05", "04D2"},
      {"0C", "55"},     {"0D", "4E"},     {"17", "007D"},   {"18", "00C8"},   {"19", "000F"},
      {"1A", "0A"},     {"1C", "0032"},   {"1D", "14"},     {"0E", "002D"},   {"1E", "00C8"},
      {"11", "06"},     {"24", "88"},     {"0F", "8186A0"}, {"04", "7186A0"}, {"27", "0A"},
      {"28", "5A"},     {"1F", "3C"},     {"21", "11"},
  };
  return payloads;
}

}  // namespace

sim::UnitSetup unitOfKind(int kind) {
  sim::UnitSetup setup;
  setup.model = kind == kind::rkw77 ? sim::Model::larkspur : sim::Model::tmp;
  return setup;
}

sim::UnitSetup onBus(sim::UnitSetup setup, int address) {
  setup.addressed = true;
  setup.address = address;
  return setup;
}

Payloads payloadsOfSetup(int kind, bool addressed) {
  Payloads payloads = fullController();
  if (kind == kind::simpleMenu) {
    payloads["0A"] = "25";
    payloads["0C"] = "D5";
    payloads["0D"] = "4C";
  }
  if (kind == kind::rkw77) {
    payloads["0C"] = "94";
    if (!addressed) payloads["1F"] = "34";
  }
  return payloads;
}

RunBench::RunBench(sim::UnitSetup setup) : Bench(std::move(setup)) {
  start();
  if (unit.setup().addressed) {
    Hardware.BusMode = 1;
    Hardware.BusAddress = static_cast<std::int16_t>(unit.setup().address);
  }
  window_ = &form<frmSerial>();
  narrative.listen(*window_);
  host.boxes.clear();
}

void RunBench::chooseSetup() {
  chooseOption(rec::optInType, 3, 2);
  chooseOption(rec::optIDCode, 3, 2);
  chooseFormat(1);
  chooseOption(rec::opt020mA, 2, 1);
  chooseOption(rec::optRS232, 2, 1);
  Memo[rec::optNoChange].flag = False;
  for (const auto& [record, text] : texts) Memo[record].text = text;
  for (const auto& [record, value] : values) Memo[record].value = value;
  Memo[rec::cboNormalColor].extra = 0;
  Memo[rec::cboAl1WhenActiveColor].extra = 1;
  Memo[rec::cboAl2WhenActiveColor].extra = 2;
  showMemo();
}

void RunBench::showMemo() {
  auto& editor = form<frmBigFolder>();
  for (std::int16_t tab = 0; tab < editor.tabBig.tabs(); ++tab) editor.loadMemo(tab);
}

void RunBench::runWrite() {
  Global.ReadConfirmed = 0;
  window_->readMode = False;
  window_->showModal();
}

void RunBench::runRead() {
  Global.ReadConfirmed = 1;
  window_->readMode = True;
  window_->showModal();
}

void RunBench::cancelAt(const std::string& status, Answer answer) {
  host.expectBox(cancelQuestion, answer);
  host.expect([this, status] { return window_->lblStatus.caption().starts_with(status); },
              [this] { window_->cmdCancel.userClicked(); });
}

Lines RunBench::boxTexts() const {
  Lines texts_;
  for (const Box& box : host.boxes) {
    if (box.text != cancelQuestion) texts_.push_back(box.text);
  }
  return texts_;
}

Lines RunBench::commandsOfRun() const {
  const Lines all = unit.commands();
  return Lines(all.begin() + static_cast<std::ptrdiff_t>(std::min(all.size(), probeLength)), all.end());
}

}  // namespace torvane
