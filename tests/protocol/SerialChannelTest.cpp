// SPDX-License-Identifier: MIT
// The command channel: frames, one line out and one line in, registers read and changed under a mask.
#include "protocol/SerialChannel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/Model.h"
#include "tests/support/Bench.h"
#include "tests/support/ScriptedPort.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

class Channel : public ::testing::Test {
 protected:
  Channel() { resetSharedState(); }
  ~Channel() override { resetSharedState(); }

  void onBus(std::int16_t mode, std::int16_t address) {
    Hardware.BusMode = mode;
    Hardware.BusAddress = address;
  }
  // One command on a fresh line, answered by the given bytes.
  std::string replyTo(const std::vector<Said>& said) {
    ScriptedPort line{host};
    line.open();
    line.script = [&](const std::string&) { return said; };
    return SerialChannel(line).writePort("*R07");
  }

  ScriptedHost host;
  ScriptedPort port{host};
  SerialChannel channel{port};
};

// Frames.

struct FrameCase {
  std::int16_t mode;
  std::int16_t address;
  const char* read;
  const char* write;
};

constexpr FrameCase frames[] = {{0, 17, "*R07\r", "*W0726\r"},     {2, 17, "*R07\r", "*W0726\r"},
                                {1, 17, "*11R07\r", "*11W0726\r"}, {3, 17, "*11R07\r", "*11W0726\r"},
                                {4, 17, "*11R07\r", "*11W0726\r"}, {-1, 17, "*11R07\r", "*11W0726\r"},
                                {5, 17, "*11R07\r", "*11W0726\r"}, {1, 5, "*05R07\r", "*05W0726\r"},
                                {1, 0, "*00R07\r", "*00W0726\r"},  {4, 199, "*C7R07\r", "*C7W0726\r"}};

TEST_F(Channel, SendsNoAddressInOptions0And2AndTwoDigitsInAllOthers) {
  for (const auto& [mode, address, read, write] : frames) {
    onBus(mode, address);
    EXPECT_EQ(isUnaddressed(), mode == 0 || mode == 2) << mode;
    EXPECT_EQ(framed("R07") + "\r", read) << mode;
    EXPECT_EQ(framed("W0726") + "\r", write) << mode;
  }
}

TEST_F(Channel, PutsTheseVeryBytesOnTheLineForAReadAndAChange) {
  for (const auto& [mode, address, read, write] : frames) {
    onBus(mode, address);
    ScriptedPort line{host};
    SerialChannel fresh{line};
    const std::string echo = addressPart();
    line.script = inTurn({echo + "R0725\r", echo + "R0725\r", echo + "W07\r", echo + "R0726\r"});
    EXPECT_EQ(fresh.ReadSet("07"), echo + "R0725") << mode;
    fresh.registerMask = 0xFF;
    EXPECT_EQ(fresh.writeSet("07", "26"), "Success") << mode;
    EXPECT_EQ(line.sent, (Lines{read, read, write, read})) << mode;
  }
}

// One line out, one line in.

TEST_F(Channel, SendsTheCommandAndOneCarriageReturnInOneGo) {
  port.open();
  port.script = inTurn({"R0726\r"});
  EXPECT_EQ(channel.writePort("*R07"), "R0726");
  EXPECT_EQ(port.sent, Lines{"*R07\r"});
}

TEST_F(Channel, JoinsAReplyCutAnywhere) {
  const std::string whole = "11R0C7F\r\n";
  for (std::size_t first = 1; first < whole.size() - 1; ++first) {
    for (std::size_t second = first; second < whole.size() - 1; ++second) {
      EXPECT_EQ(replyTo({{whole.substr(0, first), 0.1},
                         {whole.substr(first, second - first), 0.2},
                         {whole.substr(second), 0.3}}),
                "11R0C7F")
          << first << " " << second;
    }
  }
}

TEST_F(Channel, JoinsAReplyThatComesByteByByte) {
  EXPECT_EQ(replyTo({{"R", 0.1}, {"0", 0.2}, {"7", 0.3}, {"2", 0.4}, {"6", 0.5}, {"\r", 0.6}}), "R0726");
}

struct EndCase {
  std::string bytes;
  std::string reply;
};

TEST_F(Channel, TakesOneLineFeedAndThenOneCarriageReturnFromTheEnd) {
  const EndCase cases[] = {{"R0726\r", "R0726"},
                           {"R0726\n", "R0726"},
                           {"R0726\r\n", "R0726"},
                           {"R0726\n\r", "R0726\n"},
                           {"R0726\r\r", "R0726\r"},
                           {"R0726\n\n", "R0726\n"},
                           {"R0726\r\r\n", "R0726\r"},
                           {"R0726\r\n\r\n", "R0726\r\n"},
                           {"R07\r26\r", "R07\r26"},
                           {"\r\nR0726\r\n", "\r\nR0726"},
                           {"\n\nR0726\r\n", "R0726"},
                           {"\r", ""},
                           {"\r\n", ""}};
  for (const auto& [bytes, reply] : cases)
    EXPECT_EQ(replyTo({{bytes}}), reply) << testing::PrintToString(bytes);
}

TEST_F(Channel, EndsALineOnlyAtTheEndOfTheLatestChunk) {
  EXPECT_EQ(replyTo({{"R07\r2", 0.1}, {"6\r", 0.2}}), "R07\r26");
  EXPECT_EQ(replyTo({{"R0726\r", 0.1}, {"\n", 0.2}}), "R0726");
  EXPECT_EQ(replyTo({{"R07\r2", 0.1}}), timeoutMarker);
}

TEST_F(Channel, LeavesALateLineFeedToTheNextCommandWhichThrowsItAway) {
  port.open();
  port.script = [](const std::string& command) {
    return std::vector<Said>{{command.substr(1) + "26\r", 0.1}, {"\n", 0.2}};
  };
  EXPECT_EQ(channel.writePort("*R07"), "R0726");
  host.clock += 0.5;
  EXPECT_EQ(channel.writePort("*R08"), "R0826");
}

// A unit that ends its lines in both and says them byte by byte.
TEST_F(Channel, PassesOverALineFeedThatComesAfterTheNextCommand) {
  port.open();
  port.script = inTurn({"R0726\r", "R0842\r"});
  EXPECT_EQ(channel.writePort("*R07"), "R0726");
  port.receive("\n", 0.05);
  EXPECT_EQ(channel.writePort("*R08"), "R0842");
}

TEST_F(Channel, TakesALineFeedAloneForNoReplyAtAll) {
  EXPECT_EQ(replyTo({{"\n"}}), timeoutMarker);
  EXPECT_EQ(replyTo({{"\n", 0.1}, {"R07", 0.2}, {"26\r", 0.3}}), "R0726");
}

// ---- replies to commands that were given up on

TEST_F(Channel, PassesOverTheLateReplyToACommandThatWasGivenUpOn) {
  port.open();
  port.script = inTurn({"", "W01\rR012004D2\r"});
  EXPECT_EQ(channel.writePort("*W012004D2"), timeoutMarker);
  EXPECT_EQ(channel.writePort("*R01"), "R012004D2");
}

TEST_F(Channel, PassesOverSeveralLateRepliesInPieces) {
  port.open();
  port.script = [first = 0](const std::string&) mutable {
    if (first++ < 2) return std::vector<Said>{};
    return std::vector<Said>{
        {"W0", 0.1}, {"1\r", 0.2}, {"\n", 0.3}, {"R01200000\r\nR02", 0.4}, {"A001F4\r", 0.45}};
  };
  EXPECT_EQ(channel.writePort("*W012004D2"), timeoutMarker);
  EXPECT_EQ(channel.writePort("*R01"), timeoutMarker);
  EXPECT_EQ(channel.writePort("*R02"), "R02A001F4");
}

TEST_F(Channel, TakesTheLateReplyToTheSameCommandForItsOwn) {
  port.open();
  port.script = inTurn({"", "R012004D2\r"});
  EXPECT_EQ(channel.writePort("*R01"), timeoutMarker);
  EXPECT_EQ(channel.writePort("*R01"), "R012004D2");
}

TEST_F(Channel, KnowsALateReplyByItsAddressToo) {
  Hardware.BusMode = 1;
  Hardware.BusAddress = 17;
  port.open();
  port.script = inTurn({"", "11W01\r11R012004D2\r"});
  EXPECT_EQ(channel.writePort("*11W012004D2"), timeoutMarker);
  EXPECT_EQ(channel.writePort("*11R01"), "11R012004D2");
}

TEST_F(Channel, GivesUpALineOfLateRepliesWithoutEnd) {
  port.open();
  port.script = [first = true](const std::string&) mutable {
    std::vector<Said> said;
    for (int at = 1; at < 4000 && !first; ++at) said.push_back({"W01\r", 0.002 * at});
    first = false;
    return said;
  };
  EXPECT_EQ(channel.writePort("*W012004D2"), timeoutMarker);
  const double start = host.clock;
  EXPECT_EQ(channel.writePort("*R01"), timeoutMarker);
  EXPECT_LT(host.clock - start, 3.0);
}

TEST_F(Channel, ThrowsAwayWhatIsOlderThanTheCommand) {
  const Lines all{"R0799\r", "*R07\r", "half a li", "\r\n", std::string("\0\xFF", 2)};
  for (const std::string& stale : all) {
    ScriptedPort line{host};
    line.open();
    line.script = inTurn({"R0726\r"});
    line.receive(stale);
    EXPECT_EQ(SerialChannel(line).writePort("*R07"), "R0726") << stale;
  }
}

TEST_F(Channel, PassesEveryByteAsItIs) {
  for (int code = 0; code < 256; ++code) {
    const std::string noise(1, static_cast<char>(code));
    EXPECT_EQ(replyTo({{noise + "R0726\r"}}), (noise == "\n" ? "" : noise) + "R0726") << code;
    EXPECT_EQ(replyTo({{"R07" + noise + "26\r"}}), "R07" + noise + "26") << code;
    EXPECT_EQ(replyTo({{"R0726" + noise + "\r"}}), "R0726" + noise) << code;
  }
}

TEST_F(Channel, CutsNothingAtANul) {
  const std::string bytes(
      "R07\0\0"
      "26\0",
      8);
  EXPECT_EQ(replyTo({{bytes + "\r"}}), bytes);
}

// Limits.

struct LimitCase {
  double fraction;  // of the clock when the command has gone out
  double limit;     // seconds that the unit then has
};

class ReplyLimit : public Channel, public ::testing::WithParamInterface<LimitCase> {};

TEST_P(ReplyLimit, CountsFromTheStartRoundedToAWholeSecond) {
  host.clock = 36000 + GetParam().fraction;
  const double start = host.clock;
  EXPECT_EQ(replyTo({}), timeoutMarker);
  EXPECT_GT(host.clock - start, GetParam().limit - 1e-9);
  EXPECT_LT(host.clock - start, GetParam().limit + 0.0025);
}

TEST_P(ReplyLimit, StillTakesAReplyThatIsThereWhenTheTimeIsOver) {
  host.clock = 36000 + GetParam().fraction;
  EXPECT_EQ(replyTo({{"R0726\r", GetParam().limit - 0.001}}), "R0726");
  host.clock = 36000 + GetParam().fraction;
  EXPECT_EQ(replyTo({{"R0726\r", GetParam().limit + 0.01}}), timeoutMarker);
}

INSTANTIATE_TEST_SUITE_P(Fractions, ReplyLimit,
                         ::testing::Values(LimitCase{0.0, 1.0}, LimitCase{0.1, 0.9}, LimitCase{0.25, 0.75},
                                           LimitCase{0.4, 0.6}, LimitCase{0.499, 0.501}, LimitCase{0.5, 0.5},
                                           LimitCase{0.501, 1.499}, LimitCase{0.6, 1.4},
                                           LimitCase{0.75, 1.25}, LimitCase{0.9, 1.1}, LimitCase{1.0, 1.0},
                                           LimitCase{1.25, 0.75}, LimitCase{1.499, 0.501},
                                           LimitCase{1.5, 1.5}, LimitCase{1.75, 1.25}));

TEST_F(Channel, IsPatientForExactlyASecondAndNotBeyond) {
  host.clock = 36000;
  host.yieldTime = 0.25;
  EXPECT_EQ(replyTo({{"R0726\r", 1.0}}), "R0726");
  EXPECT_EQ(host.clock, 36001);
  host.clock = 36000;
  EXPECT_EQ(replyTo({}), timeoutMarker);
  EXPECT_EQ(host.clock, 36001.25);
}

TEST_F(Channel, GivesOnlyTheMarkerWhenPartOfAReplyCame) {
  EXPECT_EQ(replyTo({{"R0726", 0.1}}), "Timeout\r");
  EXPECT_EQ(replyTo({{"R07", 0.1}, {"26", 0.5}}), "Timeout\r");
}

TEST_F(Channel, DoesNotServeTheWindowsWhileItWaitsForAReply) {
  replyTo({});
  replyTo({{"R0726\r", 0.3}});
  EXPECT_EQ(host.yields + host.idles, 0);
}

TEST_F(Channel, SleepsWhileItWaitsForAReply) {
  port.open();
  channel.writePort("*R07");
  EXPECT_LE(std::ranges::count(port.calls, "waitForInput"), 3);
}

TEST_F(Channel, TakesAHundredKilobytesThatEndAndGivesUpThoseThatDoNot) {
  const std::string flood(100'000, 'U');
  EXPECT_EQ(replyTo({{flood + "\r"}}), flood);
  EXPECT_EQ(replyTo({{flood}}), timeoutMarker);
  std::vector<Said> dripping;
  for (int i = 0; i < 100; ++i) dripping.push_back({flood.substr(0, 1000), 0.05 * i});
  const double start = host.clock;
  EXPECT_EQ(replyTo(dripping), timeoutMarker);
  EXPECT_LE(host.clock - start, 1.6);
}

// A line on which there is always more, however often one looks.
class BabblingPort : public ScriptedPort {
 public:
  BabblingPort(VirtualHost& host, double pace) : ScriptedPort(host), host_(host), pace_(pace) {}
  std::size_t inBufferCount() override { return 100; }
  std::string input() override {
    host_.clock += pace_;
    return std::string(100, 'U');
  }

 private:
  VirtualHost& host_;
  double pace_;
};

TEST_F(Channel, GivesUpALineThatNeverFallsSilent) {
  for (const double pace : {0.0, 0.000001, 0.001, 0.1, 0.5}) {
    BabblingPort line{host, pace};
    line.open();
    const double start = host.clock;
    EXPECT_EQ(SerialChannel(line).writePort("*R07"), timeoutMarker) << pace;
    EXPECT_LE(host.clock - start, 3.6) << pace;
  }
}

TEST_F(Channel, ReadsWhatWaitsHoweverLateItLooks) {
  class StalledPort : public ScriptedPort {
   public:
    explicit StalledPort(VirtualHost& host) : ScriptedPort(host), host_(host) {}
    void waitForInput(double) override { host_.clock += 60; }

   private:
    VirtualHost& host_;
  };
  StalledPort line{host};
  line.open();
  line.script = inTurn({"R0726\r"});
  EXPECT_EQ(SerialChannel(line).writePort("*R07"), "R0726");
}

}  // namespace

}  // namespace torvane
