// SPDX-License-Identifier: MIT
// Which device each port name means, and what keeps it from being opened.
#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <string>

#include "platform/qt/QtSettings.h"

class QtPorts {
 public:
  explicit QtPorts(const QtSettings& settings) : settings_(settings) {}

  // The path of "COM n", n from 1: that of the setting "COM n" in section "Ports", else that of the n-th
  // serial device present, in the system's order; empty if there is none. The system's list is read at most
  // once in two seconds, since every register opens the port afresh.
  std::string device(int commPort);
  // The same in words, with the reason if it can't be opened. Reads the system's list anew: who asks for it
  // looks at the ports, and one may have come or gone.
  std::string hint(int commPort);

 private:
  bool isStale(int commPort) const;

  const QtSettings& settings_;
  QStringList present_;
  QElapsedTimer age_;
};

// What keeps this device from being opened, in words that help: missing, no right, taken; empty if nothing
// does.
std::string obstacle(const std::string& device);
// Whether another program, or another port of this one, holds the device's lock file.
bool isTaken(const std::string& device);
