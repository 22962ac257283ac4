// SPDX-License-Identifier: MIT
// The ways out of this machine.
#pragma once

#include <memory>
#include <string>

#include "platform/Host.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"

namespace torvane {

class Ports {
 public:
  virtual ~Ports() = default;

  virtual std::unique_ptr<SerialPort> makeSerialPort() = 0;
  // Which device "COM n" is, and what may keep it from being opened, in words for a tool tip.
  virtual std::string serialPortHint(int commPort) = 0;
  virtual std::unique_ptr<Socket> makeSocket() = 0;
};

}  // namespace torvane
