// SPDX-License-Identifier: MIT
// The first probe on a port that fails, on a line full of noise, and at simulated units.
#include <algorithm>
#include <random>

#include "core/Global.h"
#include "core/Model.h"
#include "tests/support/Bench.h"
#include "tests/support/ProbeBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr const char* boxOfOtherCharacter =
    "Meter must be set with  \"*\" Recognition Character.  The configuraiton program will not be able to "
    "configure the meter.";

using Lines = std::vector<std::string>;

class ProbeFaults : public ProbeBench {
 protected:
  std::string probe(std::int16_t mode = 4) { return window.comOK(mode); }
  void fresh() {
    startAnew();
    answerAs("TMP");
    DeviceState.DeviceClass = 77;
    BaseModel = "as it was";
  }
  // The calls of a probe that meets no trouble.
  Lines untroubledCalls() {
    fresh();
    probe();
    return port().calls;
  }
};

TEST_F(ProbeFaults, ShowTheSystemsWordsAndGoOnAsIfAUnitHadAnswered) {
  const Lines calls = untroubledCalls();
  for (std::size_t n = 0; n < calls.size(); ++n) {
    fresh();
    port().failAt = static_cast<int>(n) + 1;
    const std::string box = "Encountered an error:\rBroken at " + calls[n];
    host.expectBox(box);
    EXPECT_EQ(probe(), "") << n;
    expectBoxes({box});
    EXPECT_EQ(port().calls[n], calls[n]);
    port().failAt = 0;
    EXPECT_FALSE(port().isOpen()) << n << calls[n];
    const bool announced = n + 2 >= calls.size();
    EXPECT_EQ(DeviceState.DeviceClass, announced ? 1 : 77) << n << calls[n];
  }
}

TEST_F(ProbeFaults, EndTheStoryWhereThePortFailed) {
  fresh();
  port().failAt = 2;
  host.expectBox("Encountered an error:\rBroken at open");
  EXPECT_EQ(probe(), "");
  EXPECT_EQ(narrative, Lines{"Looking for Torvane or LARKSPUR..."});
  EXPECT_EQ(commands(), Lines{});
}

TEST_F(ProbeFaults, LeaveAPortThatFallsAwayForGoodWithOneBox) {
  const std::size_t calls = untroubledCalls().size();
  for (std::size_t n = 1; n <= calls; ++n) {
    fresh();
    port().failAt = static_cast<int>(n);
    port().staysGone = true;
    host.expectBox("Encountered an error:\rBroken at ");
    EXPECT_EQ(probe(), "") << n;
    EXPECT_EQ(host.boxes.size(), 1U) << n;
  }
}

TEST_F(ProbeFaults, OfAResetShowABoxToo) {
  for (int n = 1; n <= 8; ++n) {
    startAnew();
    answers = {{"Z02", {"Z02"}}};
    port().failAt = n;
    host.expectBox("Encountered an error:\rBroken at ");
    EXPECT_EQ(probe(1), "") << n;
    EXPECT_EQ(host.boxes.size(), 1U) << n;
  }
}

// During the wizard's own search.

TEST_F(ProbeFaults, DuringASearchSkipAStatementAndShowNoBox) {
  Global.AutoDetect = True;
  const Lines calls = untroubledCalls();
  for (std::size_t n = 0; n < calls.size(); ++n) {
    for (const bool gone : {false, true}) {
      fresh();
      port().failAt = static_cast<int>(n) + 1;
      port().staysGone = gone;
      const double start = host.clock;
      const std::string result = probe();
      EXPECT_TRUE(result.empty() || result == "ng") << n;
      EXPECT_EQ(result.empty(), DeviceState.DeviceClass != 77) << n;
      expectBoxes({});
      EXPECT_LT(host.clock - start, 3.5 + 6 * 1.502 + 0.6) << n;
    }
  }
}

struct SkipCase {
  std::size_t line;  // number of the command that can't be sent, counted from 0
  const char* result;
  std::size_t commands;
  const char* last;  // after "Looking for version#..."
};

// A command that fails keeps what is known so far: no reply to the probe ends it, one version of three is
// enough, no type is no unit.
TEST_F(ProbeFaults, DuringASearchGoOnAfterTheCommandThatFailed) {
  Global.AutoDetect = True;
  const char* found = "Version is: 1.4\rTorvane TMP Controller found";
  const SkipCase cases[] = {{1, "", 5, found}, {2, "", 5, found}, {3, "", 5, found}, {4, "ng", 4, "not Ok"}};
  for (const auto& [line, result, sent, last] : cases) {
    fresh();
    port().failAt = 4 + 6 * static_cast<int>(line);
    EXPECT_EQ(probe(), result) << line;
    EXPECT_EQ(port().calls[static_cast<std::size_t>(port().failAt) - 1], "output");
    EXPECT_EQ(commands().size(), sent) << line;
    EXPECT_EQ(narrative.back(), std::string("Looking for version#...\r") + last) << line;
    EXPECT_EQ(port().calls.back(), "close");
  }
}

TEST_F(ProbeFaults, DuringASearchTakeAPortThatCannotBeOpenedForNoUnit) {
  Global.AutoDetect = True;
  fresh();
  port().failAt = 2;
  EXPECT_EQ(probe(0), "ng");
  EXPECT_EQ(narrative.back(), "Looking for Torvane or LARKSPUR...\rGot: Not enough information returned");
  EXPECT_EQ(commands(), Lines{});
  expectBoxes({});
}

TEST_F(ProbeFaults, DuringASearchKeepTheTypeWhenTheBusSettingsFail) {
  Global.AutoDetect = True;
  fresh();
  port().failAt = 4 + 6 * 5;
  EXPECT_EQ(probe(), "");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

// Noise.

TEST_F(ProbeFaults, AnyBytesEndTheProbeInTimeAndNothingIsWritten) {
  std::mt19937 random(11);
  static const Lines pieces{"R02", "U03", "1.4", "TMP", "GR2", "2A", "*", "?43", "Time", "\r", "\n", "00000"};
  const auto bytes = [&] {
    std::string all;
    for (int i = between(random, 0, 6); i > 0; --i) {
      all += between(random, 0, 2) == 0
                 ? std::string(1, static_cast<char>(between(random, 0, 255)))
                 : pieces[static_cast<std::size_t>(between(random, 0, static_cast<int>(pieces.size()) - 1))];
    }
    return between(random, 0, 3) == 0 ? all : all + "\r";
  };
  const Lines known{"R02", "U03", "U04", "R11"};
  int answered = 0;
  for (int round = 0; round < 3000; ++round) {
    startAnew();
    onBus(between(random, -1, 4), between(random, 0, 199));
    port().script = [&](const std::string&) {
      std::vector<Said> said;
      double after = 0;
      for (int i = between(random, 0, 2); i >= 0; --i) {
        said.push_back({bytes(), after += between(random, 0, 700) / 1000.0});
      }
      return said;
    };
    host.expectBox("Recognition Character");
    const std::string result = probe(round % 2 == 0 ? 4 : 0);
    ASSERT_TRUE(result.empty() || result == "ng");
    answered += result.empty() ? 1 : 0;
    ASSERT_LE(host.clock - 36000, 3.5 + 6 * 1.502 + 0.51);
    ASSERT_FALSE(port().isOpen());
    for (const std::string& sent : commands()) {
      const bool listed = std::ranges::any_of(known, [&](const auto& body) { return sent == framed(body); });
      ASSERT_TRUE(listed || sent == "^AE" + addressPart()) << sent;
    }
    if (host.boxes.empty()) messageBox(boxOfOtherCharacter);
  }
  EXPECT_GT(answered, 0);
}

// At the simulated unit.

struct UnitCase {
  sim::Model model;
  std::int16_t deviceClass;
};

void PrintTo(const UnitCase& unit, std::ostream* out) { *out << sim::modelFact(unit.model).name; }

class ProbedUnit : public Bench, public ::testing::WithParamInterface<UnitCase> {
 protected:
  ProbedUnit() : Bench({.model = GetParam().model}) {}
};

TEST_P(ProbedUnit, IsRecognised) {
  auto& window = channelWindow();
  std::int16_t mode = 4;
  EXPECT_EQ(window.comOK(mode), "");
  EXPECT_EQ(DeviceState.DeviceClass, GetParam().deviceClass);
  EXPECT_EQ(DeviceState.IsRkw77, asFlag(GetParam().model == sim::Model::larkspur));
  EXPECT_EQ(Global.FirmwareVersion, "1.4");
  EXPECT_EQ(unit.count("W"), 0U);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_P(ProbedUnit, IsRecognisedThroughPiecesAndLateReplies) {
  auto& window = channelWindow();
  unit.faults.pieces = {{1, 0.01}, {2, 0.05}, {1, 0.1}};
  unit.faults.late = 0.2;
  unit.faults.lineEnd = "\r\n";
  std::int16_t mode = 4;
  EXPECT_EQ(window.comOK(mode), "");
  EXPECT_EQ(DeviceState.DeviceClass, GetParam().deviceClass);
}

INSTANTIATE_TEST_SUITE_P(Models, ProbedUnit,
                         ::testing::Values(UnitCase{sim::Model::tmp, 1}, UnitCase{sim::Model::prc, 2},
                                           UnitCase{sim::Model::str, 3}, UnitCase{sim::Model::gr2, 4},
                                           UnitCase{sim::Model::rht, 5}, UnitCase{sim::Model::larkspur, 0},
                                           UnitCase{sim::Model::other, 6}));

}  // namespace

}  // namespace torvane
