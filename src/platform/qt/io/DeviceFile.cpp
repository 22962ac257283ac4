// SPDX-License-Identifier: MIT
// What the system's file of a serial device tells: whether it is there, ours to use, or taken.
#include "platform/qt/io/DeviceFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <optional>

#include "platform/qt/io/LineLock.h"
#include "platform/qt/io/LockFile.h"
#include "platform/qt/io/Processes.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

bool hasFile(const std::string& device) { return device.starts_with('/'); }

// Where it may be.
QStringList lockFiles(const std::string& device) {
  QString name = shown(device);
  if (name.startsWith("/dev/")) name = name.mid(5);
  name.replace('/', '_');
  return {"/var/lock/LCK.." + name, "/run/lock/LCK.." + name};
}

// The first line of the lock file is the holder's process, in digits with blanks in front.
std::optional<qint64> lockHolder(const std::string& device) {
  for (const QString& path : lockFiles(device)) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) continue;
    const qint64 holder = file.readLine(100).trimmed().toLongLong();
    if (holder > 0 && isAlive(holder)) return holder;
  }
  return std::nullopt;
}

std::string heldBy(qint64 process) {
  if (process == QCoreApplication::applicationPid()) return "which this program itself has open";
  return std::string("which ") + programOf(process) + " (process " + std::to_string(process) + ") has open";
}

std::string groupOf(const std::string& device) {
  const QFileInfo file(QString::fromStdString(device));
  return file.group().isEmpty() ? std::to_string(file.groupId()) : typed(file.group());
}

std::string noRight(const std::string& device) {
  const std::string group = groupOf(device);
  return "which is yours only after joining the group " + group + ": \"sudo usermod -a -G " + group +
         " $USER\", then log out and in again";
}

bool hasOpen(const QString& process, const QString& device) {
  const QDir files("/proc/" + process + "/fd");
  const QFileInfoList links = files.entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
  return std::ranges::any_of(links, [&](const QFileInfo& link) { return link.symLinkTarget() == device; });
}

// A device may be locked under the name of a link to it, and opened under its own.
std::optional<qint64> openedBy(const std::string& device) {
  const QString file = QFileInfo(QString::fromStdString(device)).canonicalFilePath();
  if (file.isEmpty()) return std::nullopt;
  for (const QString& process : QDir("/proc").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    const qint64 number = process.toLongLong();
    if (number > 0 && number != QCoreApplication::applicationPid() && hasOpen(process, file)) return number;
  }
  return std::nullopt;
}

}  // namespace

bool isMissing(const std::string& device) {
  return hasFile(device) && !QFileInfo::exists(QString::fromStdString(device));
}

bool isForbidden(const std::string& device) {
  const QFileInfo file(QString::fromStdString(device));
  return hasFile(device) && file.exists() && !(file.isReadable() && file.isWritable());
}

bool isTaken(const std::string& device) { return lockHolder(device).has_value(); }

void removeEmptyLock(const std::string& device) {
  for (const QString& path : lockFiles(device)) removeIfEmpty(path);
}

std::string obstacle(const std::string& device) {
  if (isMissing(device)) return "which is not there";
  if (isForbidden(device)) return noRight(device);
  const auto holder = lockHolder(device);
  return holder ? heldBy(*holder) : std::string();
}

std::optional<DeviceHolder> deviceHolder(const std::string& device) {
  auto holder = lockHolder(device);
  if (holder == QCoreApplication::applicationPid()) return std::nullopt;
  if (!holder) holder = openedBy(device);
  if (const auto ofLine = LineLock(device).holder(); !holder && ofLine) holder = ofLine->process;
  if (!holder) return std::nullopt;
  return DeviceHolder{*holder, programOf(*holder)};
}

}  // namespace torvane
