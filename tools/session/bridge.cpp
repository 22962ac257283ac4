// SPDX-License-Identifier: MIT
// usage: bridge-session FOLDER ADDRESS PORT. A user by script writes a set point through an Ethernet bridge,
// changes it, reads the unit back and saves what was read as bridge.cfg in the folder, with pictures. Ends
// well when the unit gave back what was written.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <cstdio>

#include "dialogs/frmHardware.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "platform/qt/Outlines.h"
#include "protocol/frmSerial.h"
#include "session/ScriptedHost.h"

using namespace torvane;

namespace {

constexpr int setpointsTab = 1;
constexpr int commTab = 11;
constexpr const char* wanted = "123.4";

QDir folder;
bool cameBack = false;

frmBigFolder& editor() { return form<frmBigFolder>(); }

QString fileFor(const char* name) { return folder.filePath(QLatin1String(name)); }

void picture(Form& of, const char* name) {
  if (!screenshot(of, fileFor(name))) std::printf("could not write %s\n", name);
}

bool halfWay() { return isLoaded<frmSerial>() && form<frmSerial>().lblProgress.value() > 2000; }

void nameBridge(ScriptedHost& user, const char* address, const char* port) {
  clickTab(user, editor(), "tabBig", commTab);
  click(user, editor(), "optCommunicationMode_1");
  type(user, editor(), "txtTCPIPAddress", address);
  type(user, editor(), "txtTCPPort", port);
  picture(editor(), "bridge-comm.png");
  clickTab(user, editor(), "tabBig", setpointsTab);
}

void planWrite(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] {
    type(user, editor(), "txtSp1", wanted);
    click(user, editor(), "cmdWrite");
  });
  user.whenShown("frmWrite", [&user] { click(user, form<frmWrite>(), "cmdNetwork"); });
  user.then(halfWay, [] { picture(form<frmSerial>(), "bridge-write.png"); });
  user.whenShown("frmWrite", [&user] { click(user, form<frmWrite>(), "cmdCancel"); });
}

void planRead(ScriptedHost& user) {
  user.whenShown("frmBigFolder", [&user] {
    type(user, editor(), "txtSp1", "000.0");
    click(user, editor(), "cmdOpen");
  });
  user.whenShown("frmRead", [&user] { click(user, form<frmRead>(), "cmdNetwork"); });
  user.whenShown("frmBigFolder", [&user] {
    cameBack = widget<QLineEdit>(user, editor(), "txtSp1").text() == wanted;
    picture(editor(), "bridge-read.png");
    click(user, editor(), "cmdWrite");
  });
}

void planSave(ScriptedHost& user) {
  user.whenShown("frmWrite", [&user] {
    user.chosenFiles = {fileFor("bridge.cfg").toStdString()};
    click(user, form<frmWrite>(), "cmdFile");
    click(user, form<frmWrite>(), "cmdCancel");
  });
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdQuit"); });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(program::title);
  QApplication::setOrganizationName(program::company);
  takeOutlines();
  if (argc != 4 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::fputs("usage: bridge-session FOLDER ADDRESS PORT\n", stderr);
    return 2;
  }
  folder = QDir(QString::fromLocal8Bit(argv[1]));
  ScriptedHost user;
  setMachine(&user);
  user.whenShown("frmBigFolder", [&user] { click(user, editor(), "cmdCnfg"); });
  user.whenShown("frmHardware", [&user] { click(user, form<frmHardware>(), "cmdOk"); });
  user.whenShown("frmBigFolder", [&user, argv] { nameBridge(user, argv[2], argv[3]); });
  planWrite(user);
  planRead(user);
  planSave(user);
  playToTheEnd(user);
  return cameBack && user.done() ? 0 : 1;
}
