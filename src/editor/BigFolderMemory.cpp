// SPDX-License-Identifier: MIT
// Tabs are shown from the records and committed to them.
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/frmBigFolder.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

std::string asShown(Copy copy, const std::string& text, const std::string& formDPt) {
  switch (copy) {
    case Copy::asFourDigits:
      return formatText(text, "0000");
    case Copy::asTenths:
      return formatText(text, "000.0");
    case Copy::asReading:
      return formatText(text, formDPt);
    default:
      return text;
  }
}

// A record onto its control.
struct Shower {
  const SetupBox& box;
  const MemoField& record;
  const std::string& formDPt;

  void operator()(TextBox* text) const { text->setText(asShown(box.copy, record.text, formDPt)); }
  // The ID code's box is checked each time the tab is shown, whatever the record holds.
  void operator()(CheckBox* check) const {
    check->setTicked(box.record == rec::chkIDEnabled || record.value != 0);
  }
  void operator()(OptionButton* option) const { option->setValue(record.flag != False); }
  void operator()(ListControl* list) const {
    list->setListIndex(box.copy == Copy::inExtra ? record.extra : record.value);
  }
  void operator()(ScrollBar* bar) const {
    if (box.copy != Copy::asText) return bar->setValue(record.value);
    if (!onRkw77Line()) bar->setValue(toInt16(Val(record.text)));
  }
};

// A control into its record.
struct Committer {
  Copy copy;
  MemoField& record;

  void operator()(const TextBox* text) const { record.text = text->text(); }
  void operator()(const CheckBox* check) const { record.value = check->value(); }
  void operator()(const OptionButton* option) const { record.flag = asFlag(option->value()); }
  void operator()(const ListControl* list) const {
    (copy == Copy::inExtra ? record.extra : record.value) = list->listIndex();
  }
  void operator()(const ScrollBar* bar) const {
    if (copy != Copy::asText) record.value = bar->value();
    if (copy == Copy::asText) record.text = numberText(std::int32_t{bar->value()});
  }
};

}  // namespace

void frmBigFolder::loadMemo(std::int16_t tab) {
  for (const SetupBox& box : setupBoxes()) {
    if (box.tabs.shown == tab && isInUse(box)) attempt([&] { load(box); });
  }
  for (const DeadBand& band : deadBands()) {
    if (band.outputTab == tab) attempt([&] { load(boxOf(band.ofAlarm)); });
  }
  if (tab == tab::inputType) attempt([this] { doInputImage(); });
  if (tab == tab::comm) loadModelCopies();
}

void frmBigFolder::writeMemo(std::int16_t tab) {
  if (tab < 0 || tab >= tab::count) return;
  commitTab(tab, Memo);
  if (setupHasMenu(menu::simple)) alignDeadBands();
  if (tab == tab::comm) storeModelCopies();
}

void frmBigFolder::commitTab(int tab, MemoArray& records) {
  for (const SetupBox& box : setupBoxes()) {
    if (box.tabs.committed == tab && isInUse(box)) store(box, records);
  }
  for (const DeadBand& band : deadBands()) {
    if (band.outputTab == tab && setupHasMenu(menu::simple)) store(boxOf(band.ofAlarm), records);
  }
}

// The outputs' boxes are out of sight then; an older text in them must not win when the menu becomes the full
// one.
void frmBigFolder::alignDeadBands() {
  for (const DeadBand& band : deadBands()) {
    (this->*band.ofOutput).setText((this->*band.ofAlarm).text());
  }
}

void frmBigFolder::reCover() {
  for (std::int16_t tab = 0; tab < tab::count; ++tab) writeMemo(tab);
}

std::size_t frmBigFolder::readingDecimals() const {
  std::size_t decimals = 0;
  while (decimals < 3 && !optDpoint(decimals).value()) ++decimals;
  return decimals;
}

std::string frmBigFolder::formDPt() const { return readingPictures[readingDecimals()]; }

void frmBigFolder::load(const SetupBox& box) {
  std::visit(Shower{box, Memo[box.record], formDPt()}, controlOf(*this, box));
}

void frmBigFolder::store(const SetupBox& box, MemoArray& records) {
  std::visit(Committer{box.copy, records[box.record]}, controlOf(*this, box));
}

// The part of the model record that a .cfg file carries with tab 11. SpareLong goes out as text and comes in
// from extra: only a file ever sets that.
void frmBigFolder::loadModelCopies() {
  DeviceState.DeviceClass = Memo[rec::deviceClass].extra;
  DeviceState.IdFlagC = Memo[rec::idFlagC].extra;
  DeviceState.SpareLong = Memo[rec::spareLong].extra;
  DeviceState.MenuKind = Memo[rec::menuKind].extra;
}

void frmBigFolder::storeModelCopies() const {
  Memo[rec::deviceClass].extra = toInt16(DeviceState.DeviceClass);
  Memo[rec::idFlagC].extra = DeviceState.IdFlagC;
  Memo[rec::spareLong].text = numberText(DeviceState.SpareLong);
  Memo[rec::menuKind].extra = toInt16(DeviceState.MenuKind);
  Memo[rec::monitorOnly].extra = 0;
}

}  // namespace torvane
