// SPDX-License-Identifier: MIT
// Which device each port name means, and what keeps it from being opened.
#include "platform/qt/QtPorts.h"

#include <fcntl.h>
#include <grp.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QSerialPortInfo>
#include <cerrno>
#include <optional>

#include "platform/qt/QtText.h"

namespace {

// Milliseconds. Reading the system's list takes some 30 ms, and every register opens its port afresh.
constexpr qint64 listLifetime = 60'000;
constexpr qint64 retryAfter = 2'000;  // where the list does not hold what is asked for

std::string portName(int commPort) { return std::string("COM ").append(std::to_string(commPort)); }

QStringList devicesPresent() {
  QStringList paths;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) paths << info.systemLocation();
  return paths;
}

// The first line of the lock file is the holder's process, in digits with blanks in front.
std::optional<pid_t> lockHolder(const std::string& device) {
  QString name = shown(device);
  if (name.startsWith("/dev/")) name = name.mid(5);
  name.replace('/', '_');
  for (const char* folder : {"/var/lock/LCK..", "/run/lock/LCK.."}) {
    QFile file(folder + name);
    if (!file.open(QIODevice::ReadOnly)) continue;
    bool isNumber = false;
    const int holder = file.readLine(100).trimmed().toInt(&isNumber);
    if (isNumber && holder > 0 && (kill(holder, 0) == 0 || errno == EPERM)) return holder;
  }
  return std::nullopt;
}

std::string processName(pid_t process) {
  QFile file(QStringLiteral("/proc/%1/comm").arg(process));
  if (!file.open(QIODevice::ReadOnly)) return "another program";
  return typed(QString::fromUtf8(file.readLine(100).trimmed()));
}

std::string heldBy(pid_t process) {
  if (process == getpid()) return "which this program itself has open";
  return std::string("which ") + processName(process) + " (process " + std::to_string(process) + ") has open";
}

std::string groupOf(const std::string& device) {
  struct stat facts {};
  if (stat(device.c_str(), &facts) != 0) return {};
  const group* found = getgrgid(facts.st_gid);
  return found == nullptr ? std::to_string(facts.st_gid) : found->gr_name;
}

std::string noRight(const std::string& device) {
  const std::string group = groupOf(device);
  return "which is yours only after joining the group " + group + ": \"sudo usermod -a -G " + group +
         " $USER\", then log out and in again";
}

}  // namespace

bool isTaken(const std::string& device) { return lockHolder(device).has_value(); }

std::string obstacle(const std::string& device) {
  if (access(device.c_str(), F_OK) != 0) return "which is not there";
  if (faccessat(AT_FDCWD, device.c_str(), R_OK | W_OK, AT_EACCESS) != 0) return noRight(device);
  const auto holder = lockHolder(device);
  return holder ? heldBy(*holder) : std::string();
}

std::string QtPorts::device(int commPort) {
  if (commPort < 1) return {};
  std::string chosen = settings_.value(std::string(programTitle) + "/Ports/" + portName(commPort));
  if (!chosen.empty()) return chosen;
  if (isStale(commPort)) {
    present_ = devicesPresent();
    age_.start();
  }
  return commPort <= present_.size() ? typed(present_[commPort - 1]) : std::string();
}

bool QtPorts::isStale(int commPort) const {
  if (!age_.isValid() || age_.hasExpired(listLifetime)) return true;
  const bool isThere = commPort <= present_.size() && QFile::exists(present_[commPort - 1]);
  return !isThere && age_.hasExpired(retryAfter);
}

std::string QtPorts::hint(int commPort) {
  age_.invalidate();
  const std::string path = device(commPort);
  const std::string name = portName(commPort);
  if (path.empty()) {
    return name + ": no such serial device is present. A line \"" + name +
           "=<device file>\" in section [Ports] of " + settings_.fileName() + " can name one.";
  }
  const std::string reason = obstacle(path);
  return name + " is " + path + (reason.empty() ? "." : ", " + reason + ".");
}
