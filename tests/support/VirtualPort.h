// SPDX-License-Identifier: MIT
// A serial port of the virtual machine.
#pragma once

#include "platform/SerialPort.h"

namespace torvane {

class VirtualHost;
struct Line;

class VirtualPort : public SerialPort {
 public:
  explicit VirtualPort(VirtualHost& host) : host_(host) {}

  void open() override;
  void close() override { open_ = false; }
  bool isOpen() const override { return open_; }
  std::size_t inBufferCount() override;
  std::string input() override;
  void output(std::string_view bytes) override;
  void waitForInput(double seconds) override;

 private:
  Line& line();

  VirtualHost& host_;
  bool open_ = false;
};

}  // namespace torvane
