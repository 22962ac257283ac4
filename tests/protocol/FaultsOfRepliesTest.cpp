// SPDX-License-Identifier: MIT
// Writes to a unit whose replies come in pieces, late, with other line ends, with noise, or without an end.
#include <algorithm>

#include "core/Model.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class WriteWithFaultyReplies : public RunBench {
 protected:
  WriteWithFaultyReplies() : before(registersOf(unit)) { chooseSetup(); }

  void restart() {
    for (const auto& [reg, value] : before) unit.setRegister(reg, value);
    unit.takeLog();
    Hardware.BusAddress = 1;
    narrative.lines.clear();
  }
  void expectOnlyPlannedWrites() const {
    for (const std::string& command : unit.commands()) {
      EXPECT_TRUE(!command.starts_with("*W") || all.contains(command.substr(2, 2))) << command;
    }
  }
  void afterTheProbe(std::function<void(sim::Faults&)> breaks) {
    host.expect([this] { return unit.count("^AE") == 1; }, [this, breaks] { breaks(unit.faults); });
  }

  const Payloads all = payloadsOfSetup(kind::fullController);
  const Payloads before;
};

// ---- replies that arrive in the end

struct Harmless {
  const char* name;
  void (*breaks)(sim::Faults& faults);
};

std::ostream& operator<<(std::ostream& out, const Harmless& harmless) { return out << harmless.name; }

const Harmless harmless[] = {
    {"InSingleBytes",
     [](sim::Faults& f) {
       f.pieces = std::vector<sim::Piece>(12, {1, 0.01});
     }},
    {"InTwoPiecesWithALongRest",
     [](sim::Faults& f) {
       f.pieces = {{3, 0.4}};
     }},
    {"SplitBeforeTheLineEnd",
     [](sim::Faults& f) {
       f.pieces = {{4, 0.001}, {1, 0.001}, {1, 0.2}};
     }},
    {"Late", [](sim::Faults& f) { f.late = 0.4; }},
    {"LateAndInPieces",
     [](sim::Faults& f) {
       f.late = 0.2;
       f.pieces = {{1, 0.05}, {2, 0.05}};
     }},
    {"WithALineFeed", [](sim::Faults& f) { f.lineEnd = "\n"; }},
    {"WithReturnAndLineFeed", [](sim::Faults& f) { f.lineEnd = "\r\n"; }},
    {"AfterAStaleReply", [](sim::Faults& f) { f.stale = "R0712\r"; }},
    {"AfterStaleNoise", [](sim::Faults& f) { f.stale = std::string("\0\xFF*?Time", 8); }},
};

class HarmlessReplies : public WriteWithFaultyReplies, public testing::WithParamInterface<Harmless> {
 protected:
  HarmlessReplies() { GetParam().breaks(unit.faults); }
};

TEST_P(HarmlessReplies, LeaveTheSetupInTheUnit) {
  runWrite();
  EXPECT_EQ(registersOf(unit), expectedRegisters(kind::fullController, all, before));
  EXPECT_EQ(commandsOfRun(), writeTraffic(kind::fullController, all, before));
}

TEST_P(HarmlessReplies, ChangeNothingInWhatIsReported) {
  runWrite();
  const Lines done = {"RS 485 Address ....\r11\rSuccessDone\r", "100%"};
  EXPECT_EQ(narrative.after("3%"), writeNarrative(all) + done);
}

INSTANTIATE_TEST_SUITE_P(OfEachSort, HarmlessReplies, testing::ValuesIn(harmless),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(WriteWithFaultyReplies, ThrowsAwayAStaleReplyInTheMiddleOfTheRun) {
  host.expect([this] { return status().starts_with("Configuring Reading..."); },
              [this] { unit.faults.stale = "R01200000\r"; });
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(registersOf(unit), expectedRegisters(kind::fullController, all, before));
}

// What comes after a line end reaches into the reply to the next command.
TEST_F(WriteWithFaultyReplies, VerifiesNothingWhileATailFollowsEveryReply) {
  unit.faults.trailing = "garbage";
  unit.faults.trailingAfter = 0.002;
  host.toleratesBoxes = true;
  runWrite();
  EXPECT_TRUE(narrative.has("Configuring Input Type...\r06\rFail"));
  EXPECT_EQ(unit.count("W07"), 5U);
  EXPECT_TRUE(status().ends_with("Done\r"));
  expectOnlyPlannedWrites();
}

// ---- replies that never arrive whole

TEST_F(WriteWithFaultyReplies, TakesRepliesWithoutALineEndForSilence) {
  unit.faults.lineEnd = "";
  host.expectBox(noUnitMessage);
  runWrite();
  EXPECT_TRUE(narrative.has("Looking for version#...\rnot Ok"));
  EXPECT_EQ(unit.count("W"), 0U);
}

TEST_F(WriteWithFaultyReplies, TakesRepliesAfterTheLimitForSilence) {
  unit.faults.late = 3;
  host.expectBox(noUnitMessage);
  runWrite();
  EXPECT_EQ(unit.count("W"), 0U);
}

TEST_F(WriteWithFaultyReplies, GivesUpAHundredThousandBytesWithoutAnEndFromTheStart) {
  unit.faults.endless = 100000;
  host.expectBox(noUnitMessage);
  const double start = host.clock;
  runWrite();
  EXPECT_LT(host.clock - start, 20);
  EXPECT_EQ(unit.count("W"), 0U);
  for (const std::string& line : narrative.lines) EXPECT_LT(line.size(), 200U);
}

TEST_F(WriteWithFaultyReplies, StopsAtAHundredThousandBytesWithoutAnEndInTheMiddle) {
  host.expect([this] { return status().starts_with("Configuring Reading..."); },
              [this] { unit.faults.endless = 100000; });
  host.expectBox(wiringMessage);
  runWrite();
  EXPECT_EQ(status(), "Configuring Set-Point 1...\r2004D2\rFailDone\r");
  EXPECT_EQ(unit.count("W01"), 0U);
}

TEST_F(WriteWithFaultyReplies, WritesNoMoreThanTheRegisterHoldsAfterAHundredThousandBytesWithAnEnd) {
  afterTheProbe([](sim::Faults& faults) {
    faults.noiseInside = std::string(100000, 'U');
    faults.noiseAt = 5;
  });
  runWrite();
  expectOnlyPlannedWrites();
  for (const std::string& command : unit.commands()) EXPECT_LE(command.size(), 10U);
  EXPECT_TRUE(narrative.has("Configuring Input Type...\r06\rFail"));
  EXPECT_EQ(window().lblPercent.caption(), "100%");
}

// ---- noise

class NoisyWrite : public WriteWithFaultyReplies {
 protected:
  // A run with each byte, from the probe's start; what isn't the unit's own must do no harm.
  void runWithEachByte(std::string sim::Faults::*place) {
    host.toleratesBoxes = true;
    for (int byte = 0; byte < 256; ++byte) {
      SCOPED_TRACE(byte);
      restart();
      unit.faults.*place = std::string(1, static_cast<char>(byte));
      runWrite();
      expectOnlyPlannedWrites();
      EXPECT_FALSE(window().visible());
      EXPECT_FALSE(narrative.lines.empty());
    }
  }
};

TEST_F(NoisyWrite, EndsWithAnyByteInFrontOfEveryReply) { runWithEachByte(&sim::Faults::noiseBefore); }

TEST_F(NoisyWrite, EndsWithAnyByteAfterEveryReply) { runWithEachByte(&sim::Faults::trailing); }

TEST_F(NoisyWrite, EndsWithAnyByteInsideTheDataOfEveryReply) {
  unit.faults.noiseAt = 4;
  runWithEachByte(&sim::Faults::noiseInside);
}

TEST_F(WriteWithFaultyReplies, EndsWithAllBytesInEveryReplyAndVerifiesNothing) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    if (std::string("\r\n*?").find(static_cast<char>(byte)) == std::string::npos)
      bytes += static_cast<char>(byte);
  }
  afterTheProbe([bytes](sim::Faults& faults) {
    faults.noiseInside = bytes;
    faults.noiseAt = 5;
  });
  runWrite();
  expectOnlyPlannedWrites();
  EXPECT_EQ(
      std::ranges::count_if(narrative.lines, [](const auto& line) { return line.ends_with("Success"); }), 0);
  EXPECT_TRUE(status().ends_with("FailDone\r"));
}

}  // namespace

}  // namespace torvane
