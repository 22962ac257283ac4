// SPDX-License-Identifier: MIT
// The line that stays after a run: when, where, which way, which unit, and what it came to.
#include <algorithm>
#include <cmath>
#include <set>

#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmRunDetails.h"
#include "dialogs/frmWrite.h"
#include "editor/SetupBoxes.h"
#include "editor/frmBigFolder.h"
#include "knowledge/EncodedSetup.h"
#include "knowledge/Losses.h"
#include "knowledge/RegisterMap.h"
#include "knowledge/UnitImage.h"
#include "platform/Clock.h"

namespace torvane {

namespace {

// The tabs that show what a register holds in a unit with this menu: those of the boxes that a write takes it
// from.
std::set<int> tabsOf(std::string_view reg) {
  std::set<int> tabs;
  for (const RegisterField& field : fieldsOf(reg)) {
    if (!appliesIn(field, {.kind = meterKind()})) continue;
    for (const SetupBox& box : setupBoxes()) {
      const bool shown = std::ranges::find(field.records, box.record) != field.records.end();
      if (shown && isInUse(box)) tabs.insert(box.tabs.shown);
    }
  }
  return tabs;
}

bool isTold(const RunOutcome& outcome, const std::string& reg) {
  return std::ranges::find(outcome.registers, reg, &RegisterOutcome::reg) != outcome.registers.end();
}

// A register that a whole read has passed over is none of this unit's.
bool keepsOldValue(const RunOutcome& outcome, const std::string& reg) {
  const auto isOld = [&](const RegisterOutcome& each) {
    return each.reg == reg && each.verdict == Verdict::failed;
  };
  if (std::ranges::any_of(outcome.registers, isOld)) return true;
  return outcome.end != RunEnd::finished && !isTold(outcome, reg);
}

std::set<int> tabsWithOldSetup(const RunOutcome& outcome) {
  std::set<int> tabs;
  for (const RegisterRow& row : registerRows()) {
    if (keepsOldValue(outcome, row.reg)) tabs.merge(tabsOf(row.reg));
  }
  return tabs;
}

std::string oldSetupSentence(const RunOutcome& outcome, const TabStrip& strip) {
  const std::set<int> old = outcome.reading ? tabsWithOldSetup(outcome) : std::set<int>();
  if (old.empty()) return {};
  if (static_cast<int>(old.size()) == strip.tabs()) return "All tabs show the old setup. ";
  std::string names;
  for (const int tab : old) {
    names += (names.empty() ? "" : ", ") + strip.page(static_cast<std::size_t>(tab)).caption;
  }
  return (old.size() == 1 ? "The tab " : "The tabs ") + names +
         (old.size() == 1 ? " shows the old setup, wholly or in part. "
                          : " show the old setup, wholly or in part. ");
}

const char* verdictWord(const RunOutcome& outcome) {
  if (outcome.passed()) return "Good: ";
  return outcome.end == RunEnd::cancelled ? "STOPPED: " : "FAILED: ";
}

// As "14:05".
std::string timeOfDay() {
  const auto minutes = static_cast<int>(std::fmod(host<Clock>().now(), 86400.0) / 60);
  const auto twoDigits = [](int number) { return formatNumber(static_cast<double>(number), "00"); };
  return twoDigits(minutes / 60) + ":" + twoDigits(minutes % 60);
}

// The text of the line may name the address itself.
std::string whereOf(const RunOutcome& outcome) {
  const bool named = !outcome.address || outcome.line.find("address") != std::string::npos;
  return named ? outcome.line : outcome.line + ", address " + std::to_string(*outcome.address);
}

std::string wayOf(const RunOutcome& outcome) {
  const std::string unit = outcome.unit.empty() ? "the unit" : outcome.unit;
  return (outcome.reading ? "read from " : "write to ") + unit;
}

UnitImage imageOf(const RunOutcome& read) {
  UnitImage image;
  image.kind = meterKind();
  for (const RegisterOutcome& each : read.registers) {
    if (each.verdict == Verdict::read) {
      image.registers[static_cast<std::size_t>(registerPlace(each.reg))].payload = each.before;
    }
  }
  return image;
}

}  // namespace

void frmBigFolder::wireVerdict() {
  cmdDetails.onClick = [] { form<frmRunDetails>().showModal(); };
  cmdDetails.setEnabled(false);
}

void frmBigFolder::forgetRun() {
  lastRun = {};
  setVerdict("", false);
  setNote("", false);
  cmdDetails.setEnabled(false);
}

void frmBigFolder::keepRun(const RunOutcome& outcome, std::vector<HistoryLine> history) {
  const std::string summary = summaryOf(outcome);
  lastRun = {outcome,
             verdictWord(outcome) + timeOfDay() + ", " + whereOf(outcome) + ", " + wayOf(outcome) + ". " +
                 oldSetupSentence(outcome, tabBig) + summary,
             std::move(history)};
  setVerdict(lastRun.verdict, !outcome.passed());
  cmdDetails.setEnabled(true);
}

void frmBigFolder::noteLosses() {
  if (!lastRun.outcome.reading) return;
  const std::string sentence = lossSentence(lossesOf(imageOf(lastRun.outcome), encodeSetup()));
  if (!sentence.empty()) setNote(sentence, true);
}

void frmBigFolder::setVerdict(std::string_view text, bool bad) {
  lblVerdict.setCaption(text);
  lblVerdict.setMark(bad ? Mark::error : Mark::none);
  if (isLoaded<frmWrite>()) form<frmWrite>().showVerdict();
}

void frmBigFolder::setNote(std::string_view text, bool bad) {
  lblNote.setCaption(text);
  lblNote.setMark(bad ? Mark::error : Mark::none);
}

}  // namespace torvane
