// SPDX-License-Identifier: MIT
// Every window of the program, one after the other.
#include "session/EveryWindow.h"

#include <QApplication>
#include <QRadioButton>

#include "core/Global.h"
#include "dialogs/ShowHelp.h"
#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmRunDetails.h"
#include "dialogs/frmSearch.h"
#include "dialogs/frmTimedMessage.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "knowledge/CompareRows.h"
#include "platform/Program.h"
#include "platform/qt/HelpWindow.h"
#include "protocol/frmSerial.h"
#include "runs/NoWay.h"
#include "session/ScriptedHost.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

// The user waits for nothing, and dismisses what comes up unasked.
class Tour : public ScriptedHost {
 public:
  explicit Tour(const Looker& looker) : looker_(looker) {}

  double now() override { return ScriptedHost::now() + skipped_; }
  void idle(double seconds) override {
    yield();
    skipped_ += seconds;
  }
  void show(Form& form, bool modal) override {
    ScriptedHost::show(form, modal);
    if (form.containerName() == "frmSplash") look(form, "splash");
    if (modal) whenShown(form.containerName(), [&form] { form.userClosed(); });
  }

  void look(Form& form, const std::string& what) { look(window(form), what); }
  void look(const QWidget& window, const std::string& what) {
    for (int turn = 0; turn < 3; ++turn) QApplication::processEvents();
    looker_(window, what);
  }

 private:
  const Looker& looker_;
  double skipped_ = 0;
};

struct KindOfUnit {
  const char* name;
  int model;            // row of the list
  const char* variant;  // the box that is ticked, or none
};

constexpr KindOfUnit kinds[] = {
    {"full", 7, nullptr},
    {"alarms-only", 7, "chkAlarmsOnly"},
    {"simple-menu", 7, "chkSimpleMenu"},
    {"monitor-only", 7, "chkMonitor"},
    {"rkw77", 0, nullptr},
};

frmBigFolder& editor() { return form<frmBigFolder>(); }

// One that needs nobody's answer.
template <class Kind>
void visit(Tour& user, const std::string& what, const std::function<void(Kind&)>& fill = {}) {
  auto& shown = form<Kind>();
  if (fill) fill(shown);
  user.show(shown, false);
  user.look(shown, what);
  unload<Kind>();
}

void visitHardware(Tour& user, const KindOfUnit& kind) {
  auto& dialog = form<frmHardware>();
  user.show(dialog, false);
  choose(user, dialog, "cboModel", kind.model);
  if (kind.variant != nullptr) click(user, dialog, kind.variant);
  user.look(dialog, std::string("hardware-") + kind.name);
  dialog.cmdOk_Click();
  unload<frmHardware>();
}

// The tab as it comes, and with each of its options chosen: what they bring up takes turns.
void visitTab(Tour& user, int tab, const std::string& kind) {
  editor().tabBig.setTab(tab);
  const std::string what = kind + "-tab" + (tab < 10 ? "0" : "") + std::to_string(tab);
  user.look(editor(), what);
  for (auto* option : user.window(editor()).findChildren<QRadioButton*>()) {
    if (!option->isVisible() || !option->isEnabled() || option->isChecked()) continue;
    option->click();
    user.look(editor(), what + "-" + option->objectName().toStdString());
  }
}

void visitMain(Tour& user) {
  for (const KindOfUnit& kind : kinds) {
    visitHardware(user, kind);
    user.show(editor(), false);
    for (int tab = 0; tab < editor().tabBig.tabs(); ++tab) visitTab(user, tab, kind.name);
    unload<frmCommModeWarning>();
  }
  editor().lblVerdict.setCaption(
      "Failed: 14:25, COM 10 115200,n,8,1, address 199, write to Torvane TMP. 31 steps: 28 written, 3 "
      "failed: "
      "Set-Point 1, Alarm 1 High, Alarm 2 Low");
  editor().lblNote.setCaption("Reading is given in tenths; 4 settings of the file have been rounded.");
  user.look(editor(), "verdict");
}

void visitWizard(Tour& user) {
  auto& wizard = form<frmWizard>();
  user.show(wizard, false);
  for (const std::int16_t number :
       {page::serialWelcome, page::serialBus, page::searchQuestion, page::searchWarning, page::byHand}) {
    wizard.wizardPage = number;
    wizard.displayMenu();
    user.look(wizard, "wizard-" + std::to_string(number));
  }
  wizard.lblCaption.setCaption(
      "     Connection Wizard has finished scanning the COM ports, but did not find any controller.  Please "
      "verify that the communication parameters on the controller are set to: \r     Baud: 9600,  Parity: "
      "odd,   Data bit: 7, Stop bit: 1, \r     Echo: on,\r     Mode: command, \r     Line feed:  no\r     "
      "Standard:  232C\rand try again.\r\rManual configuration is accomplished by mean of the COMM tab from "
      "the main screen.\rClick 'Cancel' to make communication settings changes.");
  user.look(wizard, "wizard-not-found");
  unload<frmWizard>();
}

void visitStatus(Tour& user) {
  const auto status = std::make_shared<frmSerial>();
  user.show(*status, false);
  status->lblTarget.setCaption("COM 10 115200,n,8,1, address 199");
  status->lblStatus.setCaption("Configuring Alarm 1 High ...\r?43\rConfiguring Alarm 1 High ...\r?43\rFail");
  for (int step = 0; step < 40; ++step)
    status->lstNarrative.addItem("Configuring Out 2 Prop/Dead Band... 00C8 Success");
  status->lblProgress.setValue(status->lblProgress.max());
  status->lblPercent.setCaption("100%");
  user.look(*status, "status");
  user.release(*status);
}

void fill(Table& table, std::size_t columns) {
  table.addItem("Ramp and soak");
  for (int row = 0; row < 40; ++row) {
    table.addItem(tableRow(std::vector<std::string>(columns, "Alarm 1 high set point")));
  }
}

void visitDialogs(Tour& user) {
  visit<frmWrite>(user, "write-to", [](frmWrite& dialog) {
    dialog.lblVerdict.setCaption("Good: 05:36, COM 1, 9600,o,7,1, write to Torvane TMP. 31 steps: 3 written");
  });
  visit<frmRead>(user, "read-from");
  visit<frmPreferences>(user, "preferences");
  visit<frmCommModeWarning>(user, "bus-note");
  visit<frmRunDetails>(user, "run-details", [](frmRunDetails& dialog) {
    for (int step = 0; step < 40; ++step) dialog.lstHistory.addItem("Configuring Ramp Time... 000F Success");
  });
  visit<frmSearch>(user, "search", [](frmSearch& dialog) { dialog.txtSearch.setText("set"); });
  visit<frmTimedMessage>(user, "notification", [](frmTimedMessage& dialog) {
    dialog.Label1.setCaption("Unable to establish network connection");
  });
  Global.WarningText =
      "Maximum value possible for this field is currently 999.9.\rIf you wish to represent value larger than "
      "999.9, change the Decimal Position setting in Reading Tab from XXX.X to XXXX.";
  Global.WarningReason = "Only zeros were added in front: the value is the one that was typed.";
  visit<frmWarning>(user, "warning");
  visit<frmCompare>(user, "compare", [](frmCompare& dialog) {
    dialog.lblSummary.setCaption("31 settings differ, 33 agree, 1 register could not be read");
    dialog.lstDifferences.setHeadings({"Setting", "In the unit", "In this setup", "Change"});
    fill(dialog.lstDifferences, 4);
  });
  visit<frmRecord>(user, "record", [](frmRecord& dialog) {
    dialog.lblVerdict.setCaption("PASS: 3 settings changed, 33 registers read again");
    fill(dialog.lstRecord, 4);
  });
}

void visitGuide(Tour& user) {
  ShowHelp(1, "");
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (dynamic_cast<HelpWindow*>(window) != nullptr) user.look(*window, "help");
  }
}

}  // namespace

void showEveryWindow(const Looker& looker) {
  Tour user(looker);
  setMachine(&user);
  form<frmBigFolder>();
  Global.WarningsOff = True;
  visitMain(user);
  visitWizard(user);
  visitStatus(user);
  visitDialogs(user);
  visitGuide(user);
  unloadAllForms();
  setMachine(nullptr);
}

}  // namespace torvane
