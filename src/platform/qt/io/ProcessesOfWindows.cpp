// SPDX-License-Identifier: MIT
// Processes of Windows.
#include <QFileInfo>

#include "platform/qt/io/Processes.h"
#include "platform/qt/io/QtText.h"
#include "platform/windows/Win32Process.h"

namespace torvane {

bool isAlive(std::int64_t process) { return win32IsAlive(process); }

std::string programOf(std::int64_t process) {
  const QString name = QFileInfo(QString::fromStdString(win32ProgramFile(process))).completeBaseName();
  return name.isEmpty() ? "another program" : typed(name);
}

}  // namespace torvane
