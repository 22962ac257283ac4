// SPDX-License-Identifier: MIT
// A whole setup at once: all of it onto the window after a file or a read, all of it off the window for a
// run.
#include <algorithm>
#include <cmath>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/AlarmSetup.h"
#include "editor/frmBigFolder.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

// They hold boxes in the reading format, or choices that another of them may take away meanwhile.
constexpr std::int16_t tabsShownTwice[] = {tab::setpoints, tab::alarm1, tab::alarm2,
                                           tab::lbAlarm,   tab::out1,   tab::out2};

bool isTooLargeForAPicture(const std::string& text) { return !std::isfinite(unboundedVal(text)); }

bool isInPicture(const std::string& text, std::string_view picture) {
  return !isTooLargeForAPicture(text) && formatText(text, picture) == text;
}

int setupCount(const ComboBox& control) {
  if (setupHasMenu(menu::simple)) return alarmSetup::simpleCount;
  return control.listIndex() > 0 ? alarmSetup::deviationCount : alarmSetup::absoluteCount;
}

}  // namespace

// The first time round, the boxes of the reading are shown in the format of the setup before, and an output
// may be judged by the other one of that setup. The second time everything that they depend on is in place.
void frmBigFolder::showRecords(const Handler& between) {
  for (std::int16_t tab = 0; tab < tabBig.tabs(); ++tab) {
    loadMemo(tab);
    if (between) between();
  }
  settleReadingFormat();
  for (std::int16_t tab : tabsShownTwice) loadMemo(tab);
  for (const SetupBox& box : setupBoxes()) {
    if (box.tabs.shown < tab::comm) attempt([&] { showNearest(box); });
  }
  showAlarmSetups();
  cboOut1Ctrl_Click();  // an analog output forces it, also where the setup before showed the same choice
  chkOut1Start.setValue(canAutoTune() ? Memo[rec::chkOut1Start].value : 0);
  simpleMenuShown_ = setupHasMenu(menu::simple);
  formatChosen_ = false;
}

// A unit that names no format counts its readings without decimals.
void frmBigFolder::settleReadingFormat() {
  if (optInType(0).value() || optInType(1).value()) rdSOffsetDisable(false);
  for (std::size_t format = 0; format < optDpoint.count(); ++format) {
    if (optDpoint(format).value()) return;
  }
  optDpoint(0).setValue(true);
}

// Of what a control refused, the end that comes nearest. The percentages of the Rkw77 line, which its tab
// doesn't show, are taken over as well: the tab commits them.
void frmBigFolder::showNearest(const SetupBox& box) {
  const MemoField& record = Memo[box.record];
  const AnyControl control = controlOf(*this, box);
  if (auto* const* list = std::get_if<ListControl*>(&control)) {
    const int index = box.copy == Copy::inExtra ? record.extra : record.value;
    if (*list != &cboAl1Setup && *list != &cboAl2Setup)
      (*list)->setListIndex(std::clamp(index, 0, (*list)->listCount() - 1));
  } else if (auto* const* bar = std::get_if<ScrollBar*>(&control)) {
    const double position = box.copy == Copy::asText ? unboundedVal(record.text) : record.value;
    (*bar)->setValue(toInt16(std::clamp<double>(position, (*bar)->min(), (*bar)->max())));
  } else if (auto* const* text = std::get_if<TextBox*>(&control)) {
    if (box.rule && box.copy != Copy::plain && isTooLargeForAPicture(record.text))
      (*text)->setText(repair(*box.rule, record.text, {formDPt(), optAOutV.value()}).text);
  }
}

// A setup that was on show before may have left either list too short or too long.
void frmBigFolder::showAlarmSetups() {
  alarmSetup::show(cboAl1Setup, setupCount(cboAl1Ctrl), Memo[rec::cboAl1Setup].value);
  alarmSetup::show(cboAl2Setup, setupCount(cboAl2Ctrl), Memo[rec::cboAl2Setup].value);
}

void frmBigFolder::commitForRun(const Handler& between) {
  for (std::int16_t tab = 0; tab < tabBig.tabs(); ++tab) {
    attempt([&] { writeMemo(tab); });
    if (between) between();
  }
  repairReadings();
  showDeadBands();
  formatChosen_ = false;
}

// A box whose tab wasn't visited since the format changed still has its point in the old place, and the unit
// would get ten times its number or a tenth. A box in the format is left alone, for a read may have put more
// into it than a user could; after a change of the format all are held against the new range. Of two boxes of
// one record only the one that was committed counts.
void frmBigFolder::repairReadings() {
  for (const SetupBox& box : setupBoxes()) {
    if (box.copy != Copy::asReading || !isInUse(box)) continue;
    const std::string& text = std::get<TextBox*>(controlOf(*this, box))->text();
    if (text != Memo[box.record].text) continue;
    if (!formatChosen_ && isInPicture(text, formDPt())) continue;
    validate(box);
    writeMemo(static_cast<std::int16_t>(box.tabs.committed));
  }
}

void frmBigFolder::followMenu() {
  if (setupHasMenu(menu::simple) == simpleMenuShown_) return;
  simpleMenuShown_ = setupHasMenu(menu::simple);
  showDeadBands();
}

void frmBigFolder::showDeadBands() {
  for (const DeadBand& band : deadBands()) {
    const std::string& text = Memo[boxOf(band.ofOutput).record].text;
    for (TextBox* box : {&(this->*band.ofAlarm), &(this->*band.ofOutput)}) {
      if (box->text() != text) attempt([&] { box->setText(formatText(text, formDPt())); });
    }
  }
}

}  // namespace torvane
