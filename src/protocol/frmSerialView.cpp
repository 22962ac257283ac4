// SPDX-License-Identifier: MIT
// The communications status window: what a run shows in it, in the wizard and on the main window.
#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmTimedMessage.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "protocol/frmSerial.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

constexpr std::size_t mostTold = 2000;  // bytes of one status; what a peer may add has no bound
constexpr std::size_t toldEnd = 500;    // the outcome stands at the end

frmWizard& wizard() { return form<frmWizard>(); }

bool isInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// The beginning and the end, whole characters of both.
std::string bounded(std::string text) {
  if (text.size() <= mostTold) return text;
  std::size_t from = mostTold - toldEnd;
  std::size_t to = text.size() - toldEnd;
  while (isInsideCharacter(text[from])) --from;
  while (to < text.size() && isInsideCharacter(text[to])) ++to;
  return text.replace(from, to - from, "...");
}

}  // namespace

void frmSerial::upStat(bool append, std::string_view text) {
  lblStatus.setCaption(bounded(append ? lblStatus.caption() + std::string(text) : std::string(text)));
  history.tell(lblStatus.caption(), append);
  history.judge(run.outcome);
  lblStatus.refresh();
}

void frmSerial::upProg(std::int16_t percent) {
  lblProgress.setValue(percent * fullBar / 100);
  lblPercent.setCaption(numberText(std::int32_t{percent}) + "%");
}

Answer frmSerial::box(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  return messageBox(text, title, icon, buttons);
}

void frmSerial::offerCancel() { cmdCancel.setCaption("Cancel"); }

void frmSerial::notice(std::string_view text) {
  auto& notice = form<frmTimedMessage>();
  notice.message = text;
  notice.showModal();
}

// What is on the main window enters Memo before any run.
void frmSerial::commitTabs() {
  form<frmBigFolder>().commitForRun([] { host<Clock>().yield(); });
}

void frmSerial::showTabs() {
  form<frmBigFolder>().showRecords([] { host<Clock>().yield(); });
}

void frmSerial::takeAnalogOutputAway() {
  auto& editor = form<frmBigFolder>();
  editor.chkAnalogOutputEnabled.setEnabled(false);
  editor.chkAnalogOutputEnabled.setTicked(false);
}

void frmSerial::returnToReadingTab() {
  form<frmBigFolder>().tabBig.setTab(tab::reading);
  hide();
}

void frmSerial::wizardLooks(std::string_view text) { wizard().lblDetection.setCaption(text); }

void frmSerial::wizardProgress(int value) { wizard().prgProgress.setValue(value); }

void frmSerial::wizardSays(std::string_view text) { wizard().lblCaption.setCaption(text); }

void frmSerial::wizardAdds(std::string_view text) { wizard().addToCaption(text); }

void frmSerial::wizardFinishes(bool found) {
  wizard().offerFinish();
  if (found) wizard().unitFound = True;
}

void frmSerial::wizardStops() { wizard().stop(); }

void frmSerial::useFactoryLine() {
  auto& editor = form<frmBigFolder>();
  editor.cboBaud.setListIndex(5);
  editor.cboStop.setListIndex(0);
  editor.cboParity.setListIndex(1);
  editor.cboData.setListIndex(0);
}

// A port beyond the list is used all the same, under its number.
void frmSerial::choosePort(int port) {
  auto& editor = form<frmBigFolder>();
  const bool listed = port <= editor.cboCommPort.listCount();
  editor.cboCommPort.setListIndex(listed ? port - 1 : -1);
  if (listed) return;
  editor.usePort(port);
  editor.cboCommPort.setText("COM " + numberText(std::int32_t{port}));
}

void frmSerial::chooseBridgePort(int port) {
  form<frmBigFolder>().txtTCPPort.setText(numberText(std::int32_t{port}));
}

}  // namespace torvane
