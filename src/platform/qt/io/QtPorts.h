// SPDX-License-Identifier: MIT
// Which device each port name means, in the program's words and the system's.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/qt/io/QtSettings.h"
#include "platform/qt/io/SerialPorts.h"

namespace torvane {

class QtPorts {
 public:
  using List = std::function<std::vector<SerialDevice>()>;

  explicit QtPorts(const QtSettings& settings, List list = serialDevicesPresent)
      : settings_(settings), list_(std::move(list)) {}

  // The path of "COM n", n from 1: that of the setting "COM n" in section "Ports", else that of the n-th
  // serial device present, in the system's order; empty if there is none. A name keeps its path as long as it
  // is in use: every register opens the port afresh, and a run must not go on at another unit because an
  // adapter has been pulled or plugged.
  std::string device(int commPort);
  // The same in words, with the adapter's name, and the reason if it can't be opened. Gives all names their
  // paths anew: who asks for it looks at the ports, and one may have come or gone.
  std::string hint(int commPort);

 private:
  struct Held {
    std::string path;
    QElapsedTimer sinceUse;
  };

  std::string chosen(int commPort) const;
  std::string present(int commPort);
  void readList();
  std::string adapterAt(const std::string& path) const;

  const QtSettings& settings_;
  List list_;
  std::map<int, Held> held_;  // by the n of "COM n"
  std::vector<SerialDevice> present_;
  QElapsedTimer age_;
};

}  // namespace torvane
