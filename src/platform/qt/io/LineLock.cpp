// SPDX-License-Identifier: MIT
// A line that one program has.
#include "platform/qt/io/LineLock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "platform/qt/io/LockFile.h"
#include "platform/qt/io/Processes.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// A name alone is a device in /dev, as it is for who opens it; a port of Windows or a bridge's address is no
// file.
QString lockFile(const std::string& line) {
  QString name = QString::fromStdString(line);
  const QString device = QFileInfo(name.contains('/') ? name : "/dev/" + name).canonicalFilePath();
  if (!device.isEmpty()) name = device;
  for (QChar& letter : name) {
    if (!letter.isLetterOrNumber() && letter != '.') letter = '_';
  }
  return QDir::tempPath() + "/torvane-line-" + name + ".lock";
}

}  // namespace

LineLock::LineLock(const std::string& line) : file_(lockFile(line)) {}

// Where no lock file can be made the line is open to all, as without one.
bool LineLock::take() { return takeLock(file_) || file_.error() != QLockFile::LockFailedError; }

std::optional<LineHolder> LineLock::holder() const {
  qint64 process = 0;
  QString host;
  QString program;
  if (!file_.getLockInfo(&process, &host, &program) || process <= 0) return std::nullopt;
  if (!isAlive(process) || process == QCoreApplication::applicationPid()) return std::nullopt;
  return LineHolder{process, typed(program)};
}

}  // namespace torvane
