// SPDX-License-Identifier: MIT
// The connection wizard: its buttons, its pages, and the runs that it starts.
#include "wizard/frmWizard.h"

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"
#include "protocol/frmSerial.h"

namespace torvane {

namespace {

constexpr int addresses = 200;
enum : std::int16_t { pointToPoint = 0, onBus = 1 };

// What is known of the unit, to be put back.
class ModelBefore {
 public:
  void putBack() const {
    Hardware.Out1 = out1_;
    Hardware.Out2 = out2_;
    DeviceState = state_;
    BaseModel = baseModel_;
    Global.FirmwareVersion = version_;
  }

 private:
  OutputFit out1_ = Hardware.Out1;
  OutputFit out2_ = Hardware.Out2;
  DeviceStateRecord state_ = DeviceState;
  std::string baseModel_ = BaseModel;
  std::string version_ = Global.FirmwareVersion;
};

}  // namespace

frmWizard::frmWizard() : Form("frmWizard", "Connection Wizard") {
  optYes.setValue(true);
  opt232.onClick = opt485.onClick = [this] { cboAddress.setEnabled(opt485.value()); };
  cmdNext.onClick = [this] { cmdNext_Click(); };
  cmdBack.onClick = [this] { cmdBack_Click(); };
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmWizard::Form_Load() {
  centre();
  fillAddresses();
  (Hardware.BusMode == 0 || Hardware.BusMode == 2 ? opt232 : opt485).setValue(true);
  // A stored address may be one that no unit has.
  attempt([this] { cboAddress.setListIndex(Hardware.BusAddress); });
  wizardPage = overSerial() ? page::serialWelcome : page::networkWelcome;
  displayMenu();
}

void frmWizard::fillAddresses() {
  for (int address = 0; address < addresses; ++address) {
    cboAddress.addItem(formatNumber(static_cast<double>(address), "0000"));
  }
}

void frmWizard::Form_Activate() {
  wizardActive = True;
  if (wizardPage == page::serialWelcome || wizardPage == page::networkWelcome) displayMenu();
}

bool frmWizard::Form_QueryUnload() {
  cmdCancel_Click();
  return true;
}

void frmWizard::cmdNext_Click() {
  if (cmdNext.caption() == finishCaption) return hide();
  if (wizardPage == page::searchQuestion) {
    wizardPage = optYes.value() ? page::searchWarning : page::byHand;
  } else {
    ++wizardPage;
  }
  displayMenu();
}

void frmWizard::cmdBack_Click() {
  if (wizardPage == page::byHand) {
    wizardPage = optYes.value() ? page::search : page::searchQuestion;
  } else {
    --wizardPage;
  }
  displayMenu();
}

// A run that is under way asks the user itself, at its next chance.
void frmWizard::cmdCancel_Click() {
  if (prgProgress.visible()) {
    Global.CancelFlag = True;
    return;
  }
  form<frmBigFolder>().loadMemo(tab::comm);
  hide();
}

void frmWizard::displayMenu() {
  const WizardPage* page = wizardPageAt(wizardPage);
  showPart(page == nullptr ? Part::nothing : page->part);
  if (page == nullptr) {
    messageBox("Wizard advances beyond bound error");
    return;
  }
  if (page->back != BackButton::asItIs) cmdBack.setEnabled(page->back == BackButton::enabled);
  cmdNext.setEnabled(page->nextEnabled);
  if (page->nextAgain) cmdNext.setCaption(nextCaption);
  if (page->text != nullptr) lblCaption.setCaption(wizardText(*page));
  perform(page->action);
}

void frmWizard::addToCaption(std::string_view text) {
  lblCaption.setCaption(lblCaption.caption() + "\r" + std::string(text));
}

void frmWizard::stop() {
  showPart(Part::nothing);
  cmdNext.setEnabled(false);
  wizardStopped = True;
}

void frmWizard::showPart(Part part) {
  Frame1.setVisible(part == Part::bus);
  Frame2.setVisible(part == Part::question);
  lblDetection.setVisible(part == Part::progress);
  prgProgress.setVisible(part == Part::progress);
}

void frmWizard::perform(Action action) {
  switch (action) {
    case Action::none:
      return;
    case Action::takeBusByText:
    case Action::takeBus:
      return takeBus(action == Action::takeBusByText);
    case Action::search:
      return search();
    case Action::leaveForTab:
      return leaveForTab();
    case Action::test:
      return test();
  }
}

// What is no number leaves the address as it stands.
void frmWizard::takeBus(bool byText) {
  Hardware.BusMode = opt485.value() ? onBus : pointToPoint;
  const auto take = [](const std::string& text) {
    attempt([&] { Hardware.BusAddress = toInt16(numberOfText(text)); });
  };
  if (byText) {
    Hardware.BusAddress = 1;
    take(cboAddress.text());
  }
  take(cboAddress.list(cboAddress.listIndex()));
}

void frmWizard::leaveForTab() {
  form<frmBigFolder>().tabBig.setTab(tab::comm);
  WizardManual = True;
  Global.StartOnCommTab = True;
  hide();
}

// A run that has found nothing leaves the model record as it was before: looking for a unit forgets the one
// that was known.
void frmWizard::search() {
  const ModelBefore before;
  const std::int16_t found = run();
  if (!hasFoundUnit()) {
    before.putBack();
  } else if (found == revision::simpleMenu || found == revision::simpleNoMore) {
    wizardResultMode = found == revision::simpleMenu ? menu::simple : menu::full;
    DeviceState.MenuKind = wizardResultMode;
  }
  endRun();
}

void frmWizard::test() {
  const ModelBefore before;
  resetDeviceState();
  const std::int16_t revision = run();
  if (!hasFoundUnit()) {
    before.putBack();
  } else if (revision != 0) {
    wizardResultMode = menu::simple;
  }
  if (wizardStopped == False) endRun();
}

// The status window works without being shown, and may be gone after its work: what it tells of the unit's
// revision is taken before. It may have been used for a read earlier, which is over.
std::int16_t frmWizard::run() {
  prgProgress.setValue(0);
  host<WindowSystem>().repaint(*this);
  Global.AutoDetect = True;
  auto& status = form<frmSerial>();
  status.readMode = False;
  const HandlerScope alive(status);
  status.Form_Activate();
  return status.revisionClass;
}

void frmWizard::endRun() {
  if (hasFoundUnit()) form<frmBigFolder>().applyDeviceClass();
  torvane::unload<frmHardware>();
  torvane::unload<frmSerial>();
  showPart(Part::nothing);
  cmdNext.setEnabled(true);
  cmdBack.setEnabled(true);
  if (isCancelled()) hide();
}

}  // namespace torvane
