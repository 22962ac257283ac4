// SPDX-License-Identifier: MIT
// Which device each port name means, in the program's words and the system's.
#include "platform/qt/io/QtPorts.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/Program.h"
#include "platform/qt/io/DeviceFile.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// Milliseconds.
constexpr qint64 listLifetime = 2'000;   // reading the system's list takes some 30
constexpr qint64 longestPause = 60'000;  // between two openings in one run

std::string portName(int commPort) { return std::string("COM ").append(std::to_string(commPort)); }

// Links of one's own lead to a device under its own name.
QString canonical(const QString& path) {
  const QString target = QFileInfo(path).canonicalFilePath();
  return target.isEmpty() ? path : target;
}

}  // namespace

std::string QtPorts::chosen(int commPort) const {
  return settings_.value(std::string(program::title) + "/Ports/" + portName(commPort));
}

std::string QtPorts::device(int commPort) {
  if (commPort < 1) return {};
  std::string path = chosen(commPort);
  if (!path.empty()) return path;
  Held& held = held_[commPort];
  if (held.path.empty() || held.sinceUse.hasExpired(longestPause)) held.path = present(commPort);
  held.sinceUse.start();
  return held.path;
}

std::string QtPorts::present(int commPort) {
  if (!age_.isValid() || age_.hasExpired(listLifetime)) readList();
  const auto index = static_cast<std::size_t>(commPort - 1);
  return index < present_.size() ? typed(present_[index].path) : std::string();
}

void QtPorts::readList() {
  present_ = list_();
  age_.start();
}

std::string QtPorts::adapterAt(const std::string& path) const {
  const QString file = canonical(shown(path));
  const auto found = std::ranges::find_if(
      present_, [&](const SerialDevice& device) { return canonical(device.path) == file; });
  return found == present_.end() ? std::string() : typed(found->adapter);
}

std::string QtPorts::hint(int commPort) {
  held_.clear();
  readList();
  const std::string path = device(commPort);
  const std::string name = portName(commPort);
  if (path.empty()) {
    return name + ": no such serial device is present. A line \"" + name +
           "=<device file>\" in section [Ports] of " + settings_.fileName() + " can name one.";
  }
  const std::string adapter = adapterAt(path);
  const std::string reason = obstacle(path);
  return name + " is " + path + (adapter.empty() ? "" : " (" + adapter + ")") +
         (reason.empty() ? "." : ", " + reason + ".");
}

}  // namespace torvane
