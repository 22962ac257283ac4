// SPDX-License-Identifier: MIT
// Windows' own serial port at simulated units on Linux, whose pseudo terminals wine takes for COM ports: see
// tools/windows-ports, which says what hangs on which.
#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/windows/Win32Ports.h"
#include "platform/windows/Win32SerialCalls.h"
#include "platform/windows/WindowsSerialPort.h"

namespace torvane {

namespace {

using Clock = std::chrono::steady_clock;
using testing::Contains;
using testing::Field;

constexpr const char* goodUnit = "COM21";
constexpr const char* silentUnit = "COM22";
constexpr const char* unitInPieces = "COM23";
constexpr const char* unitThatIsPulledOut = "COM24";  // by its second command
constexpr const char* nothing = "COM99";

double secondsOf(const std::function<void()>& step) {
  const auto start = Clock::now();
  step();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

class Port {
 public:
  explicit Port(const char* name) : port_(win32SerialCalls(), {[name](int) { return std::string(name); }}) {
    port_.commPort = 1;
    port_.settings = "9600,o,7,1";
  }

  WindowsSerialPort* operator->() { return &port_; }

  // The reply up to its carriage return; what has come when half a second passes without another byte.
  std::string ask(const std::string& command) {
    port_.output(command + '\r');
    std::string reply;
    while (!reply.ends_with('\r')) {
      port_.waitForInput(0.5);
      if (port_.inBufferCount() == 0) break;
      reply += port_.input();
    }
    return reply;
  }

 private:
  WindowsSerialPort port_;
};

TEST(Port, ACommandAndItsReply) {
  Port port(goodUnit);
  port->open();
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
}

TEST(Port, ARegisterIsWrittenAndReadBackThoughThePortIsOpenedAfreshForEach) {
  for (const char* const digits : {"26", "04", "26"}) {
    Port port(goodUnit);
    port->open();
    EXPECT_EQ(port.ask(std::string("*W07") + digits), "W07\r");
    port->close();
    port->open();
    EXPECT_EQ(port.ask("*R07"), std::string("R07") + digits + '\r');
  }
  Port port(goodUnit);
  port->open();
  EXPECT_EQ(port.ask("*W0704"), "W07\r");
}

TEST(Port, AWaitForASilentUnitLastsItsTimeAndIsNoFault) {
  Port port(silentUnit);
  port->open();
  port->output("*R07\r");
  const double seconds = secondsOf([&] { port->waitForInput(0.4); });
  EXPECT_GE(seconds, 0.35);
  EXPECT_LT(seconds, 1.5);
  EXPECT_EQ(port->inBufferCount(), 0U);
  EXPECT_TRUE(port->isOpen());
}

TEST(Port, AWaitEndsWithTheFirstByteLongBeforeItsTime) {
  Port port(goodUnit);
  port->open();
  port->output("*R07\r");
  EXPECT_LT(secondsOf([&] { port->waitForInput(10.0); }), 5.0);
  EXPECT_GT(port->inBufferCount(), 0U);
}

TEST(Port, WhatIsNotThereYetIsNotWaitedFor) {
  Port port(silentUnit);
  port->open();
  EXPECT_LT(secondsOf([&] { EXPECT_EQ(port->input(), ""); }), 0.3);
}

TEST(Port, AReplyInPiecesIsPutTogether) {
  Port port(unitInPieces);
  port->open();
  for (int round = 0; round < 5; ++round) EXPECT_EQ(port.ask("*R07"), "R0704\r");
}

TEST(Port, EverySettingOfTheLineIsTaken) {
  for (const char* const settings : {"300,n,8,1", "1200,e,7,1", "4800,o,7,2", "9600,o,7,1", "19200,n,8,2"}) {
    Port port(goodUnit);
    port->settings = settings;
    port->open();
    EXPECT_EQ(port.ask("*R07"), "R0704\r") << settings;
  }
}

TEST(Port, APortThatIsNotThereIsAFaultInTheSystemsWords) {
  Port port(nothing);
  try {
    port->open();
    FAIL() << "it opened";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, static_cast<int>(Fault::portFault));
    EXPECT_GT(std::string(error.what()).size(), 5U);
  }
  EXPECT_FALSE(port->isOpen());
}

TEST(Port, AUnitWhoseAdapterIsPulledOutEndsThePortAndNobodyWaitsForIt) {
  Port port(unitThatIsPulledOut);
  port->open();
  EXPECT_EQ(port.ask("*R07"), "R0704\r");
  bool reported = false;
  const double seconds = secondsOf([&] {
    try {
      port.ask("*R07");
      for (int times = 0; times < 10; ++times) port->waitForInput(0.2);
    } catch (const RuntimeError& error) {
      reported = error.number == static_cast<int>(Fault::portFault);
    }
  });
  EXPECT_TRUE(reported);
  EXPECT_FALSE(port->isOpen());
  EXPECT_LT(seconds, 5.0);
}

TEST(Ports, AreListedByTheirNumbers) {
  const std::vector<Win32Port> ports = win32Ports();
  for (const char* const name : {goodUnit, silentUnit}) {
    EXPECT_THAT(ports, Contains(Field(&Win32Port::name, name)));
  }
  for (std::size_t at = 1; at < ports.size(); ++at) {
    EXPECT_LT(std::stoi(ports[at - 1].name.substr(3)), std::stoi(ports[at].name.substr(3)));
  }
}

}  // namespace

}  // namespace torvane
