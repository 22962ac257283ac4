// SPDX-License-Identifier: MIT
// The serial port of Windows at a stand-in for the system's calls: what adapters and drivers do that no test
// can bring about at a real one.
#include "platform/windows/WindowsSerialPort.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr SystemError accessDenied = 5;
constexpr SystemError badCommand = 22;
constexpr SystemError aborted = 995;

// What the stand-in has been asked, and what it answers.
struct Wire {
  std::string path;
  LineState line;
  bool open = false;
  int closings = 0;
  std::string waiting;               // has come in
  std::deque<Transfer> reads;        // answers of reads that don't follow from `waiting`
  std::deque<Transfer> writes;       // the same of writes
  std::string sent;                  // has gone out
  std::vector<std::uint32_t> times;  // that reads were given
  int dropped = 0;                   // how often what was not sent was dropped
  std::size_t atOnce = 4096;         // bytes that one call moves
  SystemError openError = 0;
  SystemError configureError = 0;
  SystemError checkError = 0;
};

class WireCalls : public SerialCalls {
 public:
  explicit WireCalls(Wire& wire) : wire_(wire) {}

  SystemError open(const std::string& path) override {
    EXPECT_FALSE(wire_.open);
    wire_.path = path;
    wire_.open = wire_.openError == 0;
    return wire_.openError;
  }
  void close() override {
    EXPECT_TRUE(wire_.open);
    wire_.open = false;
    ++wire_.closings;
  }
  SystemError configure(const LineState& line) override {
    wire_.line = line;
    return wire_.configureError;
  }
  Transfer read(std::string& bytes, std::uint32_t milliseconds) override {
    EXPECT_TRUE(wire_.open);
    wire_.times.push_back(milliseconds);
    bytes = wire_.waiting.substr(0, wire_.atOnce);
    wire_.waiting.erase(0, bytes.size());
    Transfer result{.bytes = bytes.size()};
    if (wire_.reads.empty()) return result;
    result = wire_.reads.front();
    wire_.reads.pop_front();
    return result;
  }
  Transfer write(std::string_view bytes, std::uint32_t) override {
    EXPECT_TRUE(wire_.open);
    Transfer result{.bytes = std::min(bytes.size(), wire_.atOnce)};
    if (!wire_.writes.empty()) {
      result = wire_.writes.front();
      wire_.writes.pop_front();
    }
    wire_.sent += bytes.substr(0, result.bytes);
    return result;
  }
  void dropUnsent() override { ++wire_.dropped; }
  SystemError check() override { return wire_.checkError; }
  std::string words(SystemError error) const override { return "words of " + std::to_string(error); }

 private:
  Wire& wire_;
};

class WindowsSerialPortTest : public testing::Test {
 protected:
  WindowsSerialPortTest() { port_.commPort = 3; }

  Wire wire_;
  std::string device_ = "COM12";
  int paintings_ = 0;
  WindowsSerialPort port_{std::make_unique<WireCalls>(wire_),
                          {[this](int) { return device_; }, [this] { ++paintings_; }}};
};

struct Said {
  Fault fault;
  std::string words;
  bool operator==(const Said&) const = default;
};

std::optional<Said> saidBy(const std::function<void()>& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    return Said{static_cast<Fault>(error.number), error.what()};
  }
  return std::nullopt;
}

Said fault(SystemError error) { return {Fault::portFault, "words of " + std::to_string(error)}; }
const Said notOpen{Fault::portNotOpen, "The port is not open"};

TEST_F(WindowsSerialPortTest, OpensTheLongFormOfTheNameSoThatCom10AndAboveAreFound) {
  port_.open();
  EXPECT_EQ(wire_.path, "\\\\.\\COM12");
  EXPECT_EQ(portPath("\\\\.\\COM3"), "\\\\.\\COM3");
}

TEST_F(WindowsSerialPortTest, TakesTheLineFromTheSettings) {
  port_.settings = "19200,o,7,2";
  port_.open();
  EXPECT_EQ(wire_.line.baud, 19200U);
  EXPECT_EQ(wire_.line.parity, LineState::Parity::odd);
  EXPECT_EQ(wire_.line.dataBits, 7);
  EXPECT_EQ(wire_.line.stopBits, 2);
}

TEST(LineStateText, EverySettingThatTheTabCommCanMakeIsUnderstood) {
  for (const int baud : {300, 600, 1200, 2400, 4800, 9600, 19200}) {
    for (const auto& [letter, parity] :
         {std::pair{"n", LineState::Parity::none}, std::pair{"o", LineState::Parity::odd},
          std::pair{"e", LineState::Parity::even}, std::pair{"E", LineState::Parity::even}}) {
      for (const int data : {7, 8}) {
        for (const int stop : {1, 2}) {
          const LineState line = lineStateOf(std::to_string(baud) + "," + letter + "," +
                                             std::to_string(data) + "," + std::to_string(stop));
          EXPECT_EQ(line.baud, static_cast<std::uint32_t>(baud));
          EXPECT_EQ(line.parity, parity);
          EXPECT_EQ(line.dataBits, data);
          EXPECT_EQ(line.stopBits, stop);
        }
      }
    }
  }
}

TEST_F(WindowsSerialPortTest, NoneChosenAndNonePresentAreFaultsThatNameThemselves) {
  port_.commPort = 0;
  EXPECT_EQ(saidBy([&] { port_.open(); }), (Said{Fault::portFault, "No port is chosen"}));
  port_.commPort = 1;
  device_.clear();
  EXPECT_EQ(saidBy([&] { port_.open(); }), fault(2));
  EXPECT_TRUE(wire_.path.empty());
}

TEST_F(WindowsSerialPortTest, APortThatAnotherProgramHasIsReportedInTheSystemsWords) {
  wire_.openError = accessDenied;
  EXPECT_EQ(saidBy([&] { port_.open(); }), fault(accessDenied));
  EXPECT_FALSE(port_.isOpen());
  EXPECT_EQ(wire_.closings, 0);
}

TEST_F(WindowsSerialPortTest, ALineThatTheAdapterRefusesLeavesNothingOpen) {
  wire_.configureError = 87;
  EXPECT_EQ(saidBy([&] { port_.open(); }), fault(87));
  EXPECT_FALSE(port_.isOpen());
  EXPECT_EQ(wire_.closings, 1);
}

TEST_F(WindowsSerialPortTest, OpeningTwiceIsAFaultAndLeavesItOpen) {
  port_.open();
  EXPECT_EQ(saidBy([&] { port_.open(); }), (Said{Fault::portFault, "The port is already open"}));
  EXPECT_TRUE(port_.isOpen());
}

TEST_F(WindowsSerialPortTest, AClosedPortSaysSo) {
  EXPECT_EQ(saidBy([&] { port_.input(); }), notOpen);
  EXPECT_EQ(saidBy([&] { port_.inBufferCount(); }), notOpen);
  EXPECT_EQ(saidBy([&] { port_.output("*\r"); }), notOpen);
  EXPECT_EQ(saidBy([&] { port_.waitForInput(1.0); }), notOpen);
  port_.close();
  EXPECT_EQ(wire_.closings, 0);
}

TEST_F(WindowsSerialPortTest, WhatOneLifeLeftIsNotReadInTheNext) {
  port_.open();
  wire_.waiting = "OLD";
  port_.waitForInput(0.1);
  port_.close();
  port_.open();
  EXPECT_EQ(port_.inBufferCount(), 0U);
}

TEST_F(WindowsSerialPortTest, WaitsForItsTimeAndNoLonger) {
  port_.open();
  port_.waitForInput(0.25);
  port_.waitForInput(0.0001);
  port_.waitForInput(-1.0);
  EXPECT_EQ(wire_.times, (std::vector<std::uint32_t>{250, 1, 0}));
  EXPECT_EQ(paintings_, 3);
}

TEST_F(WindowsSerialPortTest, WhatIsThereIsNotWaitedFor) {
  port_.open();
  wire_.waiting = "R01";
  port_.waitForInput(1.0);
  port_.waitForInput(1.0);
  EXPECT_EQ(wire_.times.size(), 1U);
  EXPECT_EQ(port_.inBufferCount(), 3U);
  EXPECT_EQ(port_.input(), "R01");
}

TEST_F(WindowsSerialPortTest, ACommandGoesOutWholeInWhateverPiecesTheDriverTakes) {
  std::mt19937 random(17);
  port_.open();
  for (int round = 0; round < 200; ++round) {
    std::string bytes(random() % 300, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    wire_.atOnce = random() % 40 + 1;
    wire_.sent.clear();
    port_.output(bytes);
    ASSERT_EQ(wire_.sent, bytes);
  }
  EXPECT_EQ(wire_.dropped, 0);
}

TEST_F(WindowsSerialPortTest, EveryByteThatCameIsReadOnceInOrder) {
  std::mt19937 random(18);
  port_.open();
  std::string came;
  std::string read;
  for (int step = 0; step < 5000; ++step) {
    wire_.atOnce = random() % 20 + 1;
    switch (random() % 4) {
      case 0: {
        const std::string piece(random() % 30, static_cast<char>(random()));
        wire_.waiting += piece;
        came += piece;
        break;
      }
      case 1:
        port_.waitForInput(0.01);
        break;
      case 2:
        port_.inBufferCount();
        break;
      default:
        read += port_.input();
    }
  }
  while (port_.inBufferCount() > 0) read += port_.input();
  EXPECT_EQ(read, came);
}

TEST_F(WindowsSerialPortTest, WhatAStuckLineHasNotTakenNeverGoesOutWithALaterCommand) {
  port_.open();
  wire_.writes = {{.bytes = 2}, {.bytes = 0}};
  port_.output("*W01123456\r");
  EXPECT_EQ(wire_.sent, "*W");
  EXPECT_EQ(wire_.dropped, 1);
  EXPECT_TRUE(port_.isOpen());
  wire_.sent.clear();
  port_.output("*R01\r");
  EXPECT_EQ(wire_.sent, "*R01\r");
}

// Drivers differ in which call notices first that their adapter was pulled out, and in what they say.
TEST_F(WindowsSerialPortTest, AnAdapterThatIsPulledOutIsReportedOnceByWhicheverCallNoticesIt) {
  const std::vector<std::function<void()>> calls = {[&] { port_.input(); }, [&] { port_.inBufferCount(); },
                                                    [&] { port_.waitForInput(1.0); },
                                                    [&] { port_.output("*R01\r"); }};
  for (const SystemError error : {accessDenied, badCommand, aborted, SystemError{31}, SystemError{1617}}) {
    for (const auto& call : calls) {
      port_.open();
      wire_.reads = {{.error = error}};
      wire_.writes = {{.error = error}};
      EXPECT_EQ(saidBy(call), fault(error));
      EXPECT_FALSE(port_.isOpen());
      EXPECT_FALSE(wire_.open);
      EXPECT_EQ(saidBy(call), notOpen);
      wire_.reads.clear();
      wire_.writes.clear();
    }
  }
}

TEST_F(WindowsSerialPortTest, AnAdapterWhoseDriverKeepsSilentIsMissedAtTheEndOfAWait) {
  port_.open();
  wire_.checkError = badCommand;
  EXPECT_EQ(saidBy([&] { port_.waitForInput(0.1); }), fault(badCommand));
  EXPECT_FALSE(port_.isOpen());
}

TEST_F(WindowsSerialPortTest, ADriverThatNeverReturnsATransferEndsThePortAndNotTheProgram) {
  port_.open();
  wire_.reads = {{.hangs = true}};
  EXPECT_EQ(saidBy([&] { port_.waitForInput(0.1); }), fault(31));
  EXPECT_EQ(saidBy([&] { port_.input(); }), notOpen);
  port_.open();
  wire_.writes = {{.hangs = true}};
  EXPECT_EQ(saidBy([&] { port_.output("*R01\r"); }), fault(31));
  EXPECT_FALSE(wire_.open);
}

TEST_F(WindowsSerialPortTest, OpensAgainAfterAFault) {
  port_.open();
  wire_.reads = {{.error = badCommand}};
  EXPECT_TRUE(saidBy([&] { port_.input(); }));
  port_.open();
  wire_.waiting = "00";
  EXPECT_EQ(port_.input(), "00");
}

TEST_F(WindowsSerialPortTest, TheEndOfTheProgramClosesAll) {
  Wire other;
  WindowsSerialPort second(std::make_unique<WireCalls>(other), {[](int) { return "COM1"; }});
  second.commPort = 1;
  port_.open();
  second.open();
  closeAllWindowsSerialPorts();
  EXPECT_FALSE(wire_.open);
  EXPECT_FALSE(other.open);
  EXPECT_FALSE(port_.isOpen());
}

TEST_F(WindowsSerialPortTest, APortThatGoesAwayOpenIsClosed) {
  Wire other;
  {
    WindowsSerialPort second(std::make_unique<WireCalls>(other), {[](int) { return "COM1"; }});
    second.commPort = 1;
    second.open();
  }
  EXPECT_FALSE(other.open);
  EXPECT_EQ(other.closings, 1);
}

}  // namespace

}  // namespace torvane
