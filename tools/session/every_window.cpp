// SPDX-License-Identifier: MIT
// Shows every window of the program and says what of it could not be seen on this screen, a line for each
// misfit; the last line counts the windows. Pictures go into the folder that is named on the command line, if
// one is. DEMO_LOOK=dark or =contrast in the environment shows the windows as people see them who have set
// their desktop so, DEMO_FONT=large with letters two sizes larger and bold, QT_STYLE_OVERRIDE in another
// style, QT_SCALE_FACTOR=2 twice as large.
#include <QApplication>
#include <QDir>
#include <QStyle>
#include <cstdio>

#include "platform/Program.h"
#include "platform/qt/Outlines.h"
#include "session/EveryWindow.h"
#include "session/Fit.h"
#include "session/Look.h"

using namespace torvane;

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(program::title);
  QApplication::setOrganizationName(program::company);
  const QString style = QApplication::style()->name();
  takeOutlines();
  takeLook(qEnvironmentVariable("DEMO_LOOK"));
  takeFont(qEnvironmentVariable("DEMO_FONT"));
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
  if (!folder.isEmpty() && !QDir().mkpath(folder)) return 2;
  int windows = 0;
  int misfits = 0;
  showEveryWindow([&](const QWidget& window, const std::string& what) {
    ++windows;
    for (const QString& misfit : misfitsOf(window)) {
      ++misfits;
      std::printf("%s: %s\n", what.c_str(), qPrintable(misfit));
    }
    if (folder.isEmpty() || what.find("-opt") != std::string::npos)
      return;  // an option more is no other picture
    const QString file = QDir(folder).filePath(QString::fromStdString(what + ".png"));
    const_cast<QWidget&>(window).grab().save(file);
  });
  std::printf("%d windows, %d misfits, style %s\n", windows, misfits, qPrintable(style));
  return misfits == 0 ? 0 : 1;
}
