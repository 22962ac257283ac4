// SPDX-License-Identifier: MIT
// Processes as the system's files tell of them.
#include <QFile>
#include <QFileInfo>

#include "platform/qt/io/Processes.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

bool isAlive(std::int64_t process) { return QFileInfo::exists(QStringLiteral("/proc/%1").arg(process)); }

std::string programOf(std::int64_t process) {
  QFile file(QStringLiteral("/proc/%1/comm").arg(process));
  if (!file.open(QIODevice::ReadOnly)) return "another program";
  return typed(QString::fromUtf8(file.readLine(100).trimmed()));
}

}  // namespace torvane
