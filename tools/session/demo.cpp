// SPDX-License-Identifier: MIT
// A walk through a session with the simulated unit, for a machine without a display: edits a setup, writes
// it, reads it back, saves and prints it, and leaves the report and pictures of the windows in the folder
// that is named on the command line. DEMO_LOOK=dark or =contrast in the environment shows them as people see
// them who have set their desktop so, QT_SCALE_FACTOR=2 twice as large.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRecord.h"
#include "dialogs/frmSearch.h"
#include "dialogs/frmSplash.h"
#include "dialogs/frmTimedMessage.h"
#include "dialogs/frmWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/Outlines.h"
#include "protocol/frmSerial.h"
#include "session/Look.h"
#include "session/ScriptedHost.h"
#include "wizard/frmWizard.h"

using namespace torvane;

namespace {

constexpr int setpointsTab = 1;
constexpr int commTab = 11;

QDir folder;

QString fileFor(const std::string& name) { return folder.filePath(QString::fromStdString(name + ".png")); }

void tell(bool written, const QString& file) {
  std::printf("%s %s\n", written ? "wrote" : "could not write", qPrintable(file));
}

// What has just come is laid out first.
void picture(Form& of, const std::string& name) {
  for (int turn = 0; turn < 3; ++turn) QApplication::processEvents();
  tell(screenshot(of, fileFor(name)), fileFor(name));
}

frmBigFolder& editor() { return form<frmBigFolder>(); }

bool halfWay() { return isLoaded<frmSerial>() && form<frmSerial>().lblProgress.value() > 2000; }

bool atTheEnd() { return isLoaded<frmSerial>() && form<frmSerial>().lblPercent.caption() == "100%"; }

void pictureEveryTab(const std::string& kind = "") {
  for (int tab = 0; tab < editor().tabBig.tabs(); ++tab) {
    editor().tabBig.setTab(tab);
    picture(editor(), kind + "tab" + std::to_string(tab));
  }
  editor().tabBig.setTab(setpointsTab);
}

void editSetup(ScriptedHost& user) {
  type(user, editor(), "txtSp1", "123.4");
  type(user, editor(), "txtSp2", "150.0");
  choose(user, editor(), "cboNormalColor", 2);
}

// A set point out of range, and a change of the unit's bus that is taken back again.
void pictureWarnings(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] {
    type(user, editor(), "txtSp1", "5000");
    click(user, editor(), "cmdReset");
  });
  user.whenShown("frmWarning", [&user] {
    picture(form<frmWarning>(), "warning");
    click(user, form<frmWarning>(), "cmdOk");
  });
  user.whenShown("frmBigFolder", [&user] {
    editor().tabBig.setTab(commTab);
    click(user, editor(), "optRS485");
  });
  user.whenShown("frmCommModeWarning", [&user] {
    picture(form<frmCommModeWarning>(), "comm-mode-warning");
    click(user, form<frmCommModeWarning>(), "cmdCommWarning");
    click(user, editor(), "optNoChange");
    editor().tabBig.setTab(setpointsTab);
  });
}

void printReport(ScriptedHost& user) {
  user.pdf = folder.filePath("report.pdf");
  click(user, form<frmWrite>(), "cmdPrint");
  tell(QFileInfo::exists(user.pdf), user.pdf);
}

void saveFile(ScriptedHost& user) {
  user.chosenFiles = {folder.filePath("setup.cfg").toStdString()};
  click(user, form<frmWrite>(), "cmdFile");
}

// The model is asked for again.
void openFile(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdOpen"); });
  user.whenShown("frmRead", [&user] {
    user.chosenFiles = {folder.filePath("setup.cfg").toStdString()};
    click(user, form<frmRead>(), "cmdFile");
  });
  user.whenShown("frmHardware", [&user] { click(user, form<frmHardware>(), "cmdOk"); });
  user.whenShown("frmBigFolder", [] { picture(editor(), "opened"); });
}

void picturePreferences(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdPref"); });
  user.whenShown("frmPreferences", [&user] {
    picture(form<frmPreferences>(), "preferences");
    click(user, form<frmPreferences>(), "cmdOk");
  });
  user.whenShown("frmBigFolder", [] {
    form<frmTimedMessage>().message = "Unable to establish network connection";
    form<frmTimedMessage>().showModal();
  });
  user.whenShown("frmTimedMessage", [&user] {
    picture(form<frmTimedMessage>(), "notification");
    click(user, form<frmTimedMessage>(), "OKButton");
  });
}

void pictureHelp(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdHelp"); });
  user.whenShown("frmBigFolder", [] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* help = dynamic_cast<HelpWindow*>(window);
      if (help == nullptr) continue;
      tell(help->grab().save(fileFor("help")), fileFor("help"));
      help->hide();
    }
  });
}

// A tab on show takes what the setup holds, so its boxes are filled after it has come.
void pictureChart(int tab, const std::function<void(frmBigFolder&)>& fill) {
  editor().tabBig.setTab(tab);
  fill(editor());
  picture(editor(), "charts-tab" + std::to_string(tab));
}

// Each chart with something to draw.
void pictureCharts(ScriptedHost& user) {
  editor().tabBig.setTab(tab::inputType);
  editor().optInType(2).setValue(true);
  pictureChart(tab::reading, [&user](frmBigFolder& of) {
    of.optDpoint(1).setValue(true);
    for (const auto& [box, text] : {std::pair{"txtIn1", "2000"}, std::pair{"txtRd1", "0000"},
                                    std::pair{"txtIn2", "9999"}, std::pair{"txtRd2", "1000"}}) {
      type(user, of, box, text);
    }
  });
  pictureChart(tab::alarm1, [](frmBigFolder& of) {
    of.chkAl1Enabled.setValue(1);
    of.cboAl1Setup.setListIndex(2);
  });
  pictureChart(tab::alarm2, [&user](frmBigFolder& of) {
    of.chkAl2Enabled.setValue(1);
    of.cboAl2Ctrl.setListIndex(1);
    of.cboAl2Setup.setListIndex(3);
    type(user, of, "txtAl2HiSp", "020.0");
  });
  pictureChart(tab::rampSoak, [](frmBigFolder& of) {
    of.chkRampEn.setValue(1);
    of.chkSoakEn.setValue(1);
  });
  pictureChart(tab::analog, [](frmBigFolder& of) { of.chkAnalogOutputEnabled.setValue(1); });
  editor().tabBig.setTab(setpointsTab);
}

// Every kind of model once, the last of them for good.
void chooseHardware(ScriptedHost& user) {
  auto& dialog = form<frmHardware>();
  picture(dialog, "hardware");
  for (int model : {0, 17, 2}) {
    choose(user, dialog, "cboModel", model);
    click(user, dialog, model == 0 ? "optOut_7" : model == 17 ? "chkMonitor" : "optOut_0");
    picture(dialog, "hardware-model" + std::to_string(model));
    if (model == 17) click(user, dialog, "chkMonitor");
  }
  click(user, dialog, "cmdOk");
}

struct KindOfUnit {
  const char* name;
  int model;            // row of the list
  const char* variant;  // the box that is ticked, or none
};

constexpr KindOfUnit kindsOfUnit[] = {
    {"alarms-only-", 7, "chkAlarmsOnly"},
    {"simple-menu-", 7, "chkSimpleMenu"},
    {"monitor-only-", 7, "chkMonitor"},
    {"rkw77-", 0, nullptr},
};

void pictureEveryKind(ScriptedHost& user) {
  for (const KindOfUnit& kind : kindsOfUnit) {
    user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdCnfg"); });
    user.whenShown("frmHardware", [&user, kind] {
      auto& dialog = form<frmHardware>();
      choose(user, dialog, "cboModel", kind.model);
      if (kind.variant != nullptr) click(user, dialog, kind.variant);
      click(user, dialog, "cmdOk");
    });
    user.whenShown("frmBigFolder", [kind] { pictureEveryTab(kind.name); });
  }
}

bool searching() { return isLoaded<frmWizard>() && form<frmWizard>().prgProgress.value() >= 28; }

// Each page on the way to the unit, and the one for those who want no search.
void searchWithWizard(ScriptedHost& user) {
  auto& wizard = form<frmWizard>();
  picture(wizard, "wizard-welcome");
  click(user, wizard, "cmdNext");
  picture(wizard, "wizard-bus");
  click(user, wizard, "cmdNext");
  picture(wizard, "wizard-question");
  click(user, wizard, "optNo");
  click(user, wizard, "cmdNext");
  picture(wizard, "wizard-by-hand");
  click(user, wizard, "cmdBack");
  click(user, wizard, "optYes");
  click(user, wizard, "cmdNext");
  picture(wizard, "wizard-warning");
  click(user, wizard, "cmdNext");
  picture(wizard, "wizard-found");
  click(user, wizard, "cmdNext");
}

void planWizard(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] {
    clickTab(user, editor(), "tabBig", 11);
    click(user, editor(), "cmdAutoDetect");
  });
  user.whenShown("frmWizard", [&user] { searchWithWizard(user); });
  user.then(searching, [] { picture(form<frmWizard>(), "wizard-search"); });
}

void pictureSearch(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [] { editor().userTookShortcut("Ctrl+F"); });
  user.whenShown("frmSearch", [&user] {
    type(user, form<frmSearch>(), "txtSearch", "dead");
    picture(form<frmSearch>(), "search");
    click(user, form<frmSearch>(), "cmdClose");
  });
}

// A record never replaces one of an earlier walk.
void chooseNew(ScriptedHost& user, const char* name) {
  const QString path = folder.filePath(name);
  QFile::remove(path);
  user.chosenFiles = {path.toStdString()};
}

void saveRecord(ScriptedHost& user) {
  auto& record = form<frmRecord>();
  type(user, record, "txtWho", "R. Tester");
  picture(record, "record");
  for (const auto& [button, name] :
       {std::pair{"cmdJson", "record.json"}, std::pair{"cmdPdf", "record.pdf"}}) {
    chooseNew(user, name);
    click(user, record, button);
    tell(QFileInfo::exists(folder.filePath(name)), folder.filePath(name));
  }
  click(user, record, "cmdClose");
}

// Keeps a copy, sees what a write would change, writes, records, and looks at what a put-back would do.
void compareAndRecord(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdOpen"); });
  user.whenShown("frmRead", [&user] {
    chooseNew(user, "unit.unit");
    click(user, form<frmRead>(), "cmdKeep");
  });
  user.whenShown("frmRead", [&user] { click(user, form<frmRead>(), "OKButton"); });
  user.whenShown("frmBigFolder", [&user] {
    type(user, editor(), "txtSp1", "100.0");
    type(user, editor(), "txtSp2", "175.0");
    choose(user, editor(), "cboNormalColor", 0);
    click(user, editor(), "cmdWrite");
  });
  user.whenShown("frmWrite", [&user] { click(user, form<frmWrite>(), "cmdCompare"); });
  user.whenShown("frmCompare", [&user] {
    picture(form<frmCompare>(), "compare");
    click(user, form<frmCompare>(), "cmdWrite");
  });
  user.whenShown("frmWrite", [&user] { click(user, form<frmWrite>(), "cmdRecord"); });
  user.whenShown("frmRecord", [&user] { saveRecord(user); });
  user.whenShown("frmWrite", [&user] {
    picture(form<frmWrite>(), "write-to-after");
    user.chosenFiles = {folder.filePath("unit.unit").toStdString()};
    click(user, form<frmWrite>(), "cmdPutBack");
  });
  user.whenShown("frmCompare", [&user] {
    picture(form<frmCompare>(), "put-back");
    click(user, form<frmCompare>(), "cmdClose");
  });
  user.whenShown("frmWrite", [&user] { click(user, form<frmWrite>(), "cmdCancel"); });
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdOpen"); });
  user.whenShown("frmRead", [&user] { click(user, form<frmRead>(), "cmdFiles"); });
  user.whenShown("frmCompare", [&user] {
    for (const char* button : {"cmdFirst", "cmdSecond"}) {
      user.chosenFiles = {folder.filePath("unit.unit").toStdString()};
      click(user, form<frmCompare>(), button);
    }
    picture(form<frmCompare>(), "compare-files");
    click(user, form<frmCompare>(), "cmdClose");
  });
  user.whenShown("frmRead", [&user] { click(user, form<frmRead>(), "OKButton"); });
}

void planSession(ScriptedHost& user) {
  user.whenShown("frmSplash", [] { picture(form<frmSplash>(), "splash"); });
  user.whenShown("frmBigFolder", [] { pictureEveryTab(); });
  pictureWarnings(user);
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdCnfg"); });
  user.whenShown("frmHardware", [&user] { chooseHardware(user); });
  user.whenShown("frmBigFolder", [&user] {
    editSetup(user);
    picture(editor(), "edited");
    click(user, editor(), "cmdWrite");
  });
  user.whenShown("frmWrite", [&user] {
    picture(form<frmWrite>(), "write-to");
    click(user, form<frmWrite>(), "cmdSerial");
  });
  user.then(halfWay, [] { picture(form<frmSerial>(), "status-write"); });
  user.then(atTheEnd, [] { picture(form<frmSerial>(), "status-write-end"); });
  user.whenShown("frmWrite", [&user] { click(user, form<frmWrite>(), "cmdCancel"); });
  compareAndRecord(user);
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdOpen"); });
  user.whenShown("frmRead", [&user] {
    picture(form<frmRead>(), "read-from");
    click(user, form<frmRead>(), "cmdSerial");
  });
  user.then(halfWay, [] { picture(form<frmSerial>(), "status-read"); });
  user.whenShown("frmBigFolder", [&user] {
    picture(editor(), "read-back");
    click(user, editor(), "cmdWrite");
  });
  user.whenShown("frmWrite", [&user] {
    saveFile(user);
    printReport(user);
    click(user, form<frmWrite>(), "cmdCancel");
  });
  pictureSearch(user);
  planWizard(user);
  openFile(user);
  picturePreferences(user);
  pictureHelp(user);
  user.whenShown("frmBigFolder", [&user] { pictureCharts(user); });
  pictureEveryKind(user);
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdQuit"); });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(program::title);
  QApplication::setOrganizationName(program::company);
  takeOutlines();
  if (argc < 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::fputs("usage: demo-session FOLDER\n", stderr);
    return 2;
  }
  folder = QDir(QString::fromLocal8Bit(argv[1]));
  takeLook(qEnvironmentVariable("DEMO_LOOK"));
  ScriptedHost user;
  setMachine(&user);
  planSession(user);
  playToTheEnd(user);
  return user.done() && user.boxes.empty() ? 0 : 1;
}
