// SPDX-License-Identifier: MIT
// The program: picks the host and shows the main window, whose life is the program's.
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <exception>

#include "dialogs/SetupFiles.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "platform/qt/Drawings.h"
#include "platform/qt/Outlines.h"
#include "platform/qt/QtHost.h"

using namespace torvane;

namespace {

QIcon programIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128}) icon.addPixmap(drawn("app", {}, QSize(size, size), 1.0));
  return icon;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(program::title);
  QApplication::setOrganizationName(program::company);
  takeOutlines();
  QApplication::setWindowIcon(programIcon());
  QtHost machine;
  setMachine(&machine);
  try {
    form<frmBigFolder>();
    machine.beforeTheEnd = keepForRescue;
    offerRescue();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) openNamed(QFileInfo(arguments[1]).absoluteFilePath().toStdString());
  } catch (const std::exception& error) {
    machine.fail(error.what());
  }
  while (isLoaded<frmBigFolder>()) machine.idle(1.0);
  unloadAllForms();
  return 0;
}
