// SPDX-License-Identifier: MIT
// The serial channel when the port fails at any single call, and with any bytes as replies.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "core/Model.h"
#include "protocol/SerialChannel.h"
#include "tests/support/Bench.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/ScriptedPort.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

class SerialFaults : public ::testing::Test {
 protected:
  SerialFaults() { resetSharedState(); }
  ~SerialFaults() override { resetSharedState(); }

  // A unit that holds one register and always answers.
  static PortScript unitHolding(std::string& held) {
    return [&held](const std::string& command) {
      const std::string echo = command.substr(1, 3);
      if (echo.starts_with('W')) held = command.substr(4);
      return std::vector<Said>{{echo + (echo.starts_with('R') ? held : "") + "\r", 0.0005}};
    };
  }
  // Replies as in turn; where one is "broken", that command can't even be sent.
  void talk(ScriptedPort& line, Lines replies) {
    line.script = [replies = std::move(replies), next = std::size_t{0}](const std::string&) mutable {
      if (next >= replies.size()) return std::vector<Said>{};
      const std::string reply = replies[next++];
      if (reply == "broken") throw RuntimeError(Fault::portFault, "Broken");
      return std::vector<Said>{{reply}};
    };
  }

  ScriptedHost host;
  ScriptedPort port{host};
  SerialChannel channel{port};
};

TEST_F(SerialFaults, LetTheFaultOfEverySingleCallOutOfOneLineAndItsReply) {
  const Lines calls{"inBufferCount", "input",         "output", "inBufferCount",
                    "waitForInput",  "inBufferCount", "input"};
  for (std::size_t n = 0; n < calls.size(); ++n) {
    ScriptedPort line{host};
    line.open();
    line.calls.clear();
    line.receive("stale\r");
    line.script = inTurn({"R0726\r"});
    line.failAt = static_cast<int>(n) + 1;
    EXPECT_THROW(SerialChannel(line).writePort("*R07"), RuntimeError) << n;
    EXPECT_EQ(line.calls, Lines(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(n) + 1));
  }
}

TEST_F(SerialFaults, APortThatCannotBeOpenedFailsQuietly) {
  port.failAt = 2;
  port.staysGone = true;
  EXPECT_EQ(channel.ReadSet("07"), "Fail");
  channel.registerMask = 0xFF;
  EXPECT_EQ(channel.writeSet("07", "26"), "Fail");
  EXPECT_EQ(channel.wiringProblem, False);
  EXPECT_EQ(port.sent, Lines{});
  EXPECT_EQ(host.yields, 3 + 1 + 2 * 5) << "after each command";
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SerialFaults, APortThatOnlyRefusesToOpenOnceIsOpenForTheNextRegister) {
  std::string held = "26";
  port.script = unitHolding(held);
  port.failAt = 2;
  EXPECT_EQ(channel.ReadSet("07"), "Fail");
  EXPECT_EQ(channel.ReadSet("07"), "R0726");
}

// The calls of a read that meets no trouble, by number; what fails at one of them is tried again.
TEST_F(SerialFaults, AReadOutlivesAFaultAtAnySingleCallButOpening) {
  std::string held = "26";
  port.script = unitHolding(held);
  channel.ReadSet("07");
  const Lines calls = port.calls;
  ASSERT_EQ(calls.size(), 10U);
  for (std::size_t n = 0; n < calls.size(); ++n) {
    ScriptedPort line{host};
    SerialChannel fresh{line};
    line.script = unitHolding(held);
    line.failAt = static_cast<int>(n) + 1;
    EXPECT_EQ(fresh.ReadSet("07"), calls[n] == "open" ? "Fail" : "R0726") << n << calls[n];
    EXPECT_EQ(fresh.wiringProblem, False) << n;
    EXPECT_TRUE(std::ranges::all_of(line.sent, [](const auto& sent) { return sent == "*R07\r"; })) << n;
    EXPECT_EQ(fresh.ReadSet("07"), "R0726") << n;
  }
}

TEST_F(SerialFaults, AReadFailsWhenThePortFallsAwayBeforeTheReplyIsIn) {
  std::string held = "26";
  for (int n = 1; n <= 10; ++n) {
    ScriptedPort line{host};
    SerialChannel fresh{line};
    line.script = unitHolding(held);
    line.failAt = n;
    line.staysGone = true;
    const double start = host.clock;
    EXPECT_EQ(fresh.ReadSet("07"), n <= 8 ? "Fail" : "R0726") << n;
    EXPECT_EQ(fresh.wiringProblem, False) << n;
    EXPECT_LT(host.clock - start, 1.6) << n;
  }
}

TEST_F(SerialFaults, AChangeOutlivesAFaultAtAnySingleCallButOpening) {
  std::string held = "00";
  port.script = unitHolding(held);
  channel.registerMask = 0xFF;
  ASSERT_EQ(channel.writeSet("07", "26"), "Success");
  const Lines calls = port.calls;
  ASSERT_EQ(calls.size(), 22U);
  for (std::size_t n = 0; n < calls.size(); ++n) {
    held = "00";
    ScriptedPort line{host};
    SerialChannel fresh{line};
    fresh.registerMask = 0xFF;
    line.script = unitHolding(held);
    line.failAt = static_cast<int>(n) + 1;
    const bool opens = calls[n] != "open";
    EXPECT_EQ(fresh.writeSet("07", "26"), opens ? "Success" : "Fail") << n << calls[n];
    EXPECT_EQ(held, opens ? "26" : "00") << n;
    EXPECT_EQ(fresh.wiringProblem, False) << n;
    const Lines known{"*R07", "*W0726"};
    for (const auto& sent : line.commands()) EXPECT_NE(std::ranges::find(known, sent), known.end()) << sent;
  }
}

TEST_F(SerialFaults, AChangeFailsWithoutAWiringFaultWhenThePortFallsAway) {
  std::string held;
  for (int n = 1; n <= 22; ++n) {
    held = "00";
    ScriptedPort line{host};
    SerialChannel fresh{line};
    fresh.registerMask = 0xFF;
    line.script = unitHolding(held);
    line.failAt = n;
    line.staysGone = true;
    EXPECT_EQ(fresh.writeSet("07", "26"), n <= 20 ? "Fail" : "Success") << n;
    EXPECT_EQ(fresh.wiringProblem, False) << n;
  }
}

struct Broken {
  const char* what;
  Lines replies;
  const char* result;
  bool wiring;
  std::size_t commands;
};

TEST_F(SerialFaults, AReadKeepsTheLastReplyOverABrokenCommand) {
  const Broken cases[] = {
      {"good after it", {"broken", "R0726\r"}, "R0726", false, 2},
      {"a loop-back counts again", {"*R07\r", "broken", "R0726\r"}, "R0726", true, 3},
      {"a loop-back after it", {"broken", "*R07\r", "?43\r"}, "Fail", false, 3},
      {"a refusal stays one", {"?43\r", "broken", "broken"}, "Fail", false, 3},
      {"nothing stays nothing", {"broken", "broken", "broken", "R0726\r"}, "Fail", false, 3},
  };
  for (const auto& [what, replies, result, wiring, commands] : cases) {
    ScriptedPort line{host};
    SerialChannel fresh{line};
    talk(line, replies);
    EXPECT_EQ(fresh.ReadSet("07"), result) << what;
    EXPECT_EQ(fresh.wiringProblem, asFlag(wiring)) << what;
    EXPECT_EQ(line.sent.size(), commands) << what;
    EXPECT_FALSE(line.isOpen()) << what;
  }
}

TEST_F(SerialFaults, AChangeKeepsTheLastReplyOverABrokenCommand) {
  const Broken cases[] = {
      {"an empty first read passes", {"broken", "W07\r", "R0726\r"}, "Success", false, 3},
      {"a refusal 43 stays one", {"?43\r", "broken"}, "Fail", true, 2},
      {"silence stays silence", {"", "broken"}, "Fail", true, 2},
      {"a loop-back stays one", {"*R07\r", "broken"}, "Fail", true, 2},
      {"a refusal 56 passes", {"?56\r", "broken", "W07\r", "R0726\r"}, "Success", false, 4},
      {"a broken write is read back", {"R0700\r", "broken", "R0726\r"}, "Success", false, 3},
      {"a broken read-back", {"R0700\r", "W07\r", "broken", "W07\r", "R0726\r"}, "Success", false, 5},
      {"a looped write counts if its read-back breaks",
       {"R0700\r", "*\r", "broken", "*\r", "broken"},
       "Fail",
       true,
       11},
  };
  for (const auto& [what, replies, result, wiring, commands] : cases) {
    ScriptedPort line{host};
    SerialChannel fresh{line};
    fresh.registerMask = 0xFF;
    talk(line, replies);
    EXPECT_EQ(fresh.writeSet("07", "26"), result) << what;
    EXPECT_EQ(fresh.wiringProblem, asFlag(wiring)) << what;
    EXPECT_EQ(line.sent.size(), commands) << what;
  }
}

// Any bytes in any chunks at any time.
class AnyBytes : public SerialFaults {
 protected:
  std::string bytes() {
    static const Lines pieces{"R07", "11R07", "?4",   "?5", "*",         "Time",
                              "\r",  "\n",    "\r\n", "26", "Timeout\r", "R0726\r"};
    std::string all;
    for (int i = between(random, 0, 6); i > 0; --i) {
      if (between(random, 0, 2) == 0) {
        all += static_cast<char>(between(random, 0, 255));
      } else {
        all += pieces[static_cast<std::size_t>(between(random, 0, static_cast<int>(pieces.size()) - 1))];
      }
    }
    return between(random, 0, 2) == 0 ? all : all + "\r";
  }
  PortScript anything() {
    return [this](const std::string&) {
      std::vector<Said> said;
      double after = 0;
      heard.clear();
      for (int i = between(random, 0, 3); i > 0; --i) {
        said.push_back({bytes(), after += between(random, 0, 900) / 1000.0});
        heard += said.back().bytes;
      }
      return said;
    };
  }
  void anyLine() {
    Hardware.BusMode = static_cast<std::int16_t>(between(random, -1, 4));
    Hardware.BusAddress = static_cast<std::int16_t>(between(random, 0, 199));
    host.clock = 36000 + between(random, 0, 999) / 1000.0;
  }
  // No call of the port serves the windows, and none lasts beyond its limit.
  void expectWithin(std::size_t commands, double start) {
    EXPECT_LE(host.clock - start, static_cast<double>(commands) * 1.502 + 0.01);
  }

  std::mt19937 random{2024};
  std::string heard;  // what came, or will, after the last command
};

TEST_F(AnyBytes, EndOneLineWithinItsLimit) {
  for (int round = 0; round < 5000; ++round) {
    anyLine();
    ScriptedPort line{host};
    line.open();
    line.script = anything();
    line.receive(bytes());
    const double start = host.clock;
    const std::string reply = SerialChannel(line).writePort("*R07");
    expectWithin(1, start);
    const std::string begun = heard.substr(std::min(heard.find_first_not_of('\n'), heard.size()));
    ASSERT_TRUE(reply == timeoutMarker || begun.starts_with(reply)) << reply;
    ASSERT_EQ(line.sent, Lines{"*R07\r"});
  }
}

TEST_F(AnyBytes, EndAReadWithinThreeTries) {
  for (int round = 0; round < 5000; ++round) {
    anyLine();
    ScriptedPort line{host};
    SerialChannel fresh{line};
    line.script = anything();
    const double start = host.clock;
    const std::string result = fresh.ReadSet("0A");
    expectWithin(3, start);
    ASSERT_TRUE(result == "Fail" || result.find_first_of("?*") == std::string::npos) << result;
    ASSERT_EQ(line.commands(), Lines(line.sent.size(), framed("R0A")));
    ASSERT_LE(line.sent.size(), 3U);
    ASSERT_FALSE(line.isOpen());
  }
}

TEST_F(AnyBytes, EndAChangeWithinTwelveLinesAndWriteNoOtherRegister) {
  std::map<std::string, int> results;
  for (int round = 0; round < 5000; ++round) {
    anyLine();
    ScriptedPort line{host};
    SerialChannel fresh{line};
    fresh.registerMask = static_cast<std::int32_t>(random());
    line.script = anything();
    const double start = host.clock;
    ++results[fresh.writeSet("0A", "26")];
    expectWithin(12, start);
    ASSERT_LE(line.sent.size(), 12U);
    for (const std::string& sent : line.commands()) {
      ASSERT_TRUE(sent == framed("R0A") || sent.starts_with(framed("W0A"))) << sent;
      const std::size_t beyond = framed("W0A").size();
      ASSERT_EQ(sent.find_first_not_of("0123456789ABCDEF", beyond), std::string::npos) << sent;
    }
  }
  EXPECT_EQ(results.size(), 2U);
  EXPECT_GT(results["Fail"], 0);
}

TEST_F(AnyBytes, FromAPortThatFailsAnywhereNeitherCrashNorWriteAnotherRegister) {
  for (int round = 0; round < 5000; ++round) {
    anyLine();
    ScriptedPort line{host};
    SerialChannel fresh{line};
    fresh.registerMask = 0xFF;
    line.script = anything();
    line.failAt = between(random, 1, 60);
    line.staysGone = between(random, 0, 1) == 1;
    const std::string result = round % 2 == 0 ? fresh.ReadSet("0A") : fresh.writeSet("0A", "26");
    ASSERT_FALSE(result.empty());
    for (const std::string& sent : line.commands()) {
      ASSERT_TRUE(sent == framed("R0A") || sent.starts_with(framed("W0A"))) << sent;
    }
  }
}

}  // namespace

}  // namespace torvane
