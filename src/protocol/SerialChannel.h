// SPDX-License-Identifier: MIT
// The command channel on a serial line: one command out, one reply in, registers read and changed under a
// mask.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/SerialPort.h"

// Whether commands go without an address: BusMode 0 and 2.
bool isUnaddressed();
// Two hexadecimal digits, or nothing when unaddressed.
std::string addressPart();
// "*", the address part and the command, as "*11R07".
std::string framed(std::string_view command);
bool contains(std::string_view text, std::string_view part);
// What a good reply holds after its mnemonic and index, and after its address when addressed.
std::string dataOf(const std::string& reply);

// What writePort returns when no whole reply came in time.
inline constexpr std::string_view timeoutMarker = "Timeout\r";

class SerialChannel {
 public:
  explicit SerialChannel(SerialPort& port) : port_(port) {}

  // Bits that the next writeSet may change; 0 skips the register. Written by the run from each encoder's
  // mask.
  std::int32_t registerMask = 0;
  // A fault that ends the run has been seen. Cleared by the runs, never here.
  std::int16_t wiringProblem = 0;

  // Sends the command and a carriage return, and returns the reply without its line end, or the timeout
  // marker after half a second to one and a half. Throws where the port fails.
  std::string writePort(std::string_view command);
  // Reads a register ("07") on a freshly opened port: the whole accepted reply, or "Fail" after three tries.
  std::string ReadSet(std::string_view reg);
  // Changes the masked bits of a register and verifies them: "Success", or "Fail" after five tries.
  std::string writeSet(std::string_view reg, const std::string& value);

 private:
  void reopen();
  void close();
  bool query(std::string_view command, std::string& reply);
  std::string writeAndVerify(std::string_view reg, const std::string& merged, std::string reply);

  SerialPort& port_;
};
