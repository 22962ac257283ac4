// SPDX-License-Identifier: MIT
#include "qt/SessionBench.h"

#include <QLineEdit>

#include "dialogs/frmRead.h"
#include "dialogs/frmWrite.h"

namespace torvane {

namespace {
QuickHost* theUser = nullptr;
}

QuickHost& SessionBench::user() { return *theUser; }

void SessionBench::SetUpTestSuite() {
  theUser = new QuickHost;
  setMachine(theUser);
  theUser->saveSetting("Torvane Configuration/Persist/CommPort", "-1");
  theUser->saveSetting("Torvane Configuration/Persist/Baud", "5");
  theUser->saveSetting("Torvane Configuration/Persist/Warn", "True");
  form<frmBigFolder>();
  inHardware([](frmHardware& dialog) { click(user(), dialog, "cmdOk"); });
}

void SessionBench::TearDownTestSuite() {
  unloadAllForms();
  setMachine(nullptr);
  delete theUser;
}

SessionBench::SessionBench(sim::UnitSetup setup) : unit(std::move(setup)), server(unit) {
  user().boxes.clear();
  user().saveSetting("Torvane Configuration/Ports/COM 1", server.path());
  server.start();
  clickTab(user(), editor(), "tabBig", 11);
  editor().cboCommPort.setListIndex(-1);
  choose(user(), editor(), "cboCommPort", 0);
}

SessionBench::~SessionBench() {
  server.stop();
  EXPECT_TRUE(user().done());
}

void SessionBench::writeToUnit() {
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdSerial"); });
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdCancel"); });
  click(user(), editor(), "cmdWrite");
}

void SessionBench::readFromUnit() {
  user().whenShown("frmRead", [] { click(user(), form<frmRead>(), "cmdSerial"); });
  click(user(), editor(), "cmdOpen");
}

void SessionBench::saveTo(const std::string& path) {
  user().chosenFiles = {path};
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdFile"); });
  user().whenShown("frmWrite", [] { click(user(), form<frmWrite>(), "cmdCancel"); });
  click(user(), editor(), "cmdWrite");
}

void SessionBench::open(const std::string& path) {
  user().chosenFiles = {path};
  user().whenShown("frmRead", [] { click(user(), form<frmRead>(), "cmdFile"); });
  user().whenShown("frmHardware", [] { click(user(), form<frmHardware>(), "cmdOk"); });
  click(user(), editor(), "cmdOpen");
}

void SessionBench::inHardware(const std::function<void(frmHardware&)>& act) {
  user().whenShown("frmHardware", [act] { act(form<frmHardware>()); });
  click(user(), editor(), "cmdCnfg");
}

void SessionBench::chooseModel(int row) {
  inHardware([row](frmHardware& dialog) {
    choose(user(), dialog, "cboModel", row);
    click(user(), dialog, "cmdOk");
  });
}

void SessionBench::setSimpleMenu(bool simple) {
  inHardware([simple](frmHardware& dialog) {
    if (dialog.chkSimpleMenu.ticked() != simple) click(user(), dialog, "chkSimpleMenu");
    click(user(), dialog, "cmdOk");
  });
}

std::string SessionBench::shown(const char* box) {
  return widget<QLineEdit>(user(), editor(), box).text().toStdString();
}

}  // namespace torvane
