// SPDX-License-Identifier: MIT
// Registers on the serial line: how often one is asked and changed, what counts as done, what ends a run.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Model.h"
#include "protocol/SerialChannel.h"
#include "tests/support/Bench.h"
#include "tests/support/ProbeBench.h"
#include "tests/support/ScriptedPort.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

class Registers : public ::testing::Test {
 protected:
  Registers() { resetSharedState(); }
  ~Registers() override { resetSharedState(); }

  void onBus(std::int16_t mode, std::int16_t address) {
    Hardware.BusMode = mode;
    Hardware.BusAddress = address;
  }

  ScriptedHost host;
  ScriptedPort port{host};
  SerialChannel channel{port};
};

struct Talk {
  const char* what;
  Lines replies;  // one for each command; an empty one is silence, as is what is missing
  std::string result;
  bool wiring;
  std::size_t commands;
};

std::ostream& operator<<(std::ostream& out, const Talk& talk) { return out << talk.what; }

class Reading : public Registers, public ::testing::WithParamInterface<Talk> {};

TEST_P(Reading, AsksAtMostThreeTimes) {
  const auto& [what, replies, result, wiring, commands] = GetParam();
  port.script = inTurn(replies);
  const double start = host.clock;
  EXPECT_EQ(channel.ReadSet("07"), result);
  EXPECT_EQ(channel.wiringProblem, asFlag(wiring));
  EXPECT_EQ(port.commands(), Lines(commands, "*R07"));
  EXPECT_EQ(host.yields, static_cast<int>(commands));
  EXPECT_FALSE(port.isOpen());
  EXPECT_LE(host.clock - start, 3 * 1.51);
}

INSTANTIATE_TEST_SUITE_P(
    Replies, Reading,
    ::testing::Values(
        Talk{"good", {"R0726\r"}, "R0726", false, 1},
        Talk{"anything without a mark of trouble", {"hello\r"}, "hello", false, 1},
        Talk{"blanks", {" \r"}, " ", false, 1},
        Talk{"bytes of any kind", {"\x01\xFE\x80\r"}, "\x01\xFE\x80", false, 1},
        Talk{"another register", {"R0826\r"}, "R0826", false, 1},
        Talk{"refused once", {"?43\r", "R0726\r"}, "R0726", false, 2},
        Talk{"refused twice", {"?43\r", "?56\r", "R0726\r"}, "R0726", false, 3},
        Talk{"refused three times", {"?43\r", "?43\r", "?43\r", "R0726\r"}, "Fail", false, 3},
        Talk{"every refusal", {"?46\r", "?50\r", "?56\r"}, "Fail", false, 3},
        Talk{"a question mark anywhere", {"R07?26\r", "R0726?\r", "?R0726\r"}, "Fail", false, 3},
        Talk{"silent", {}, "Fail", false, 3}, Talk{"silent twice", {"", "", "R0726\r"}, "R0726", false, 3},
        Talk{"the marker's word in a reply", {"R07Time\r", "Time\r", "xTimex\r"}, "Fail", false, 3},
        Talk{"small letters are not the marker", {"time\r"}, "time", false, 1},
        Talk{"empty lines", {"\r", "\n", "\r\n"}, "Fail", false, 3},
        Talk{"looped back once", {"*R07\r", "R0726\r"}, "R0726", false, 2},
        Talk{"looped back twice, then good", {"*R07\r", "*R07\r", "R0726\r"}, "R0726", true, 3},
        Talk{"looped back twice and refused", {"*R07\r", "?43\r", "*R07\r"}, "Fail", true, 3},
        Talk{"looped back once in three", {"*R07\r", "?43\r", "?43\r"}, "Fail", false, 3},
        Talk{"looped back always", {"*R07\r", "*R07\r", "*R07\r"}, "Fail", true, 3},
        Talk{"a star anywhere", {"R07*26\r", "R0726*\r", "R0726\r"}, "R0726", true, 3}));

TEST_F(Registers, ReadsByTheTwoLastCharactersOfARegister) {
  port.script = inTurn({"R0A26\r", "R0A26\r", "R726\r"});
  channel.ReadSet("000A");
  channel.ReadSet("R0A");
  channel.ReadSet("7");
  EXPECT_EQ(port.commands(), (Lines{"*R0A", "*R0A", "*R7"}));
}

TEST_F(Registers, GivesTheWholeAddressedReply) {
  onBus(1, 17);
  port.script = inTurn({"11R0726\r"});
  EXPECT_EQ(channel.ReadSet("07"), "11R0726");
}

TEST_F(Registers, ReadsWhateverTheMaskOfTheLastChange) {
  channel.registerMask = 0;
  port.script = inTurn({"R0726\r"});
  EXPECT_EQ(channel.ReadSet("07"), "R0726");
}

TEST_F(Registers, OpensThePortAfreshForEveryRegister) {
  const Lines fresh{"isOpen",       "open",          "inBufferCount", "output", "inBufferCount",
                    "waitForInput", "inBufferCount", "input",         "isOpen", "close"};
  port.script = inTurn({"R0726\r", "R0726\r", "R0726\r"});
  channel.ReadSet("07");
  EXPECT_EQ(port.calls, fresh);
  port.calls.clear();
  channel.registerMask = 0xFF;
  channel.writeSet("07", "26");
  EXPECT_EQ(port.calls, fresh);
  port.open();
  port.calls.clear();
  channel.ReadSet("07");
  EXPECT_EQ(port.calls[1], "close");
  EXPECT_EQ(port.calls[2], "open");
}

TEST_F(Registers, NeverClearAWiringFaultOnceSeen) {
  channel.wiringProblem = True;
  channel.registerMask = 0xFF;
  port.script = inTurn({"R0726\r", "R0726\r"});
  EXPECT_EQ(channel.ReadSet("07"), "R0726");
  EXPECT_EQ(channel.writeSet("07", "26"), "Success");
  EXPECT_EQ(channel.wiringProblem, True);
}

// Changing a register.

TEST_F(Registers, SkipARegisterWithoutAMaskAndLeaveThePortOpen) {
  EXPECT_EQ(channel.writeSet("07", "26"), "Success");
  EXPECT_EQ(port.calls, (Lines{"isOpen", "open"}));
  port.script = inTurn({"R0825\r"});
  EXPECT_EQ(channel.ReadSet("08"), "R0825");
  EXPECT_EQ(port.commands(), Lines{"*R08"});
  EXPECT_FALSE(port.isOpen());
}

struct MergeCase {
  const char* old;
  std::int32_t mask;
  const char* value;
  const char* merged;  // what goes out; null: the unit holds it already
};

constexpr MergeCase merges[] = {{"00", 0xFF, "26", "26"},
                                {"26", 0xFF, "26", nullptr},
                                {"A0", 0x0F, "05", "A5"},
                                {"A5", 0x0F, "05", nullptr},
                                {"A5", 0x0F, "F5", nullptr},
                                {"A6", 0x0F, "F5", "A5"},
                                {"FF", 0x3F, "00", "C0"},
                                {"C0", 0x3F, "00", nullptr},
                                {"81", 0x7E, "7E", "FF"},
                                {"2a", 0xFF, "2A", nullptr},
                                {"1", 0xFF, "01", "01"},
                                {"000001", 0xFFFFFF, "A0007B", "A0007B"},
                                {"F0007B", 0x0FFFFF, "2004D2", "F004D2"},
                                {"FFFFFFFF", -1, "00000000", "00000000"},
                                {"FFFFFFFF", 1, "00000000", "FFFFFFFE"},
                                {"80000000", 0x7FFFFFFF, "00000001", "80000001"},
                                // An old value of another length is never the same, even if its bits are.
                                {"0026", 0xFF, "26", "26"},
                                {"0126", 0xFF, "26", "126"},
                                {"1226", 0x0F, "05", "1225"},
                                {"26", 0xFFFF, "0026", "0026"},
                                {"26", 0x00FF, "0005", "0005"},
                                {"F6", 0x000F, "0005", "00F5"},
                                {"", 0xFF, "26", "26"},
                                {"", 0x0F, "26", "06"},
                                {"", 0x0F, "0", nullptr},
                                {"xyz", 0xFF, "000", nullptr},
                                {"xyz", 0xFF, "26", "26"}};

TEST_F(Registers, ChangeOnlyTheBitsUnderTheMaskAndOnlyIfTheyDiffer) {
  for (const auto& [old, mask, value, merged] : merges) {
    for (const int mode : {0, 1, 4}) {
      onBus(static_cast<std::int16_t>(mode), 17);
      ScriptedPort line{host};
      SerialChannel fresh{line};
      fresh.registerMask = mask;
      const std::string echo = addressPart();
      const std::string sent = merged == nullptr ? "" : merged;
      line.script = inTurn({echo + "R07" + old + "\r", echo + "W07\r", echo + "R07" + sent + "\r"});
      EXPECT_EQ(fresh.writeSet("07", value), "Success") << old << " " << value;
      Lines expected{"*" + echo + "R07"};
      if (merged != nullptr) expected.insert(expected.end(), {"*" + echo + "W07" + sent, "*" + echo + "R07"});
      EXPECT_EQ(line.commands(), expected) << old << " " << value;
      EXPECT_EQ(fresh.wiringProblem, False);
      EXPECT_FALSE(line.isOpen());
    }
  }
}

class FirstRead : public Registers, public ::testing::WithParamInterface<Talk> {};

// The unit's replies from the first read on; "26" is asked for, and whether a write follows shows in the
// number of commands.
TEST_P(FirstRead, IsTriedTwiceAndMayEndTheRun) {
  const auto& [what, replies, result, wiring, commands] = GetParam();
  port.script = inTurn(replies);
  channel.registerMask = 0xFF;
  const double start = host.clock;
  EXPECT_EQ(channel.writeSet("07", "26"), result);
  EXPECT_EQ(channel.wiringProblem, asFlag(wiring));
  EXPECT_EQ(port.commands().size(), commands);
  EXPECT_EQ(port.isOpen(), wiring);
  EXPECT_LE(host.clock - start, static_cast<double>(commands) * 1.51);
}

INSTANTIATE_TEST_SUITE_P(
    Replies, FirstRead,
    ::testing::Values(Talk{"same", {"R0726\r"}, "Success", false, 1},
                      Talk{"silent once", {"", "R0726\r"}, "Success", false, 2},
                      Talk{"silent twice", {"", "", "R0726\r"}, "Fail", true, 2},
                      Talk{"refused once", {"?43\r", "R0726\r"}, "Success", false, 2},
                      Talk{"refused 43 twice", {"?43\r", "?43\r"}, "Fail", true, 2},
                      Talk{"refused 46 twice", {"?46\r", "?46\r"}, "Fail", true, 2},
                      Talk{"refused with an echo", {"R07?46\r", "R07?46\r"}, "Fail", true, 2},
                      Talk{"refused 56, then 43", {"?56\r", "?43\r"}, "Fail", true, 2},
                      Talk{
                          "refused 43, then 56", {"?43\r", "?56\r", "W07\r", "R0726\r"}, "Success", false, 4},
                      Talk{"refused 56", {"?56\r", "?56\r", "W07\r", "R0726\r"}, "Success", false, 4},
                      Talk{"refused 50", {"?50\r", "?50\r", "W07\r", "R0726\r"}, "Success", false, 4},
                      Talk{"refused, no number", {"?\r", "?\r", "W07\r", "R0726\r"}, "Success", false, 4},
                      Talk{"refused 64", {"?64\r", "?64\r", "W07\r", "R0726\r"}, "Success", false, 4},
                      Talk{"looped back once", {"*R07\r", "R0726\r"}, "Success", false, 2},
                      Talk{"looped back twice", {"*R07\r", "*R07\r"}, "Fail", true, 2},
                      Talk{"looped back after silence", {"", "R07*\r"}, "Fail", true, 2},
                      Talk{"silent after a loop", {"*R07\r", ""}, "Fail", true, 2},
                      Talk{"an empty line", {"\r", "W07\r", "R0726\r"}, "Success", false, 3},
                      Talk{"a short line", {"R07\r", "W07\r", "R0726\r"}, "Success", false, 3},
                      Talk{"noise", {"\xFF\x01\r", "W07\r", "R0726\r"}, "Success", false, 3}));

class Verifying : public Registers, public ::testing::WithParamInterface<Talk> {};

// The replies after a good first read: to W, to R, to W and so on.
TEST_P(Verifying, WritesAtMostFiveTimesUntilTheReadBackIsWhole) {
  const auto& [what, replies, result, wiring, commands] = GetParam();
  Lines all{"R0700\r"};
  all.insert(all.end(), replies.begin(), replies.end());
  port.script = inTurn(all);
  channel.registerMask = 0xFF;
  EXPECT_EQ(channel.writeSet("07", "26"), result);
  EXPECT_EQ(channel.wiringProblem, asFlag(wiring));
  Lines expected{"*R07"};
  for (std::size_t i = 0; i < commands; i += 2) expected.insert(expected.end(), {"*W0726", "*R07"});
  EXPECT_EQ(port.commands(), expected);
  EXPECT_FALSE(port.isOpen());
}

INSTANTIATE_TEST_SUITE_P(
    Replies, Verifying,
    ::testing::Values(
        Talk{"first", {"W07\r", "R0726\r"}, "Success", false, 2},
        Talk{"reply to the write is not looked at", {"?43*Time\r", "R0726\r"}, "Success", false, 2},
        Talk{"no reply to the write", {"", "R0726\r"}, "Success", false, 2},
        Talk{"second", {"W\r", "R0700\r", "W\r", "R0726\r"}, "Success", false, 4},
        Talk{"third", {"W\r", "?43\r", "W\r", "", "W\r", "R0726\r"}, "Success", false, 6},
        Talk{"fifth",
             {"W\r", "\r", "W\r", "\r", "W\r", "\r", "W\r", "\r", "W\r", "R0726\r"},
             "Success",
             false,
             10},
        Talk{"sixth is too late",
             {"W\r", "\r", "W\r", "\r", "W\r", "\r", "W\r", "\r", "W\r", "\r", "W\r", "R0726\r"},
             "Fail",
             false,
             10},
        Talk{"silent", {}, "Fail", false, 10},
        Talk{"trailing blank, other case, more digits, other register, noise in front",
             {"W\r", "R0726 \r", "W\r", "r0726\r", "W\r", "R07026\r", "W\r", "R0826\r", "W\r", "\x01R0726\r"},
             "Fail",
             false,
             10},
        Talk{"refused always",
             {"?43\r", "?43\r", "?46\r", "?46\r", "?50\r", "?50\r", "?56\r", "?56\r", "?43\r", "?43\r"},
             "Fail",
             false,
             10},
        Talk{"one loop-back", {"W\r", "*R07\r"}, "Fail", false, 10},
        Talk{"two loop-backs", {"W\r", "*R07\r", "W\r", "*R07\r"}, "Fail", true, 10},
        Talk{"two loop-backs far apart", {"", "*\r", "", "", "", "", "", "", "", "*\r"}, "Fail", true, 10},
        Talk{"loop-backs of writes alone", {"*W0726\r", "", "*W0726\r", "", "*W0726\r"}, "Fail", false, 10},
        Talk{"two loop-backs, then good",
             {"W\r", "*\r", "W\r", "*\r", "W\r", "R0726\r"},
             "Success",
             false,
             6}));

TEST_F(Registers, ReadBackWithTheAddressInFrontOrNotAtAll) {
  onBus(4, 5);
  channel.registerMask = 0xFF;
  port.script = inTurn({"05R0700\r", "05W07\r", "R0726\r", "05W07\r", "06R0726\r", "05W07\r", "05R0726\r"});
  EXPECT_EQ(channel.writeSet("07", "26"), "Success");
  EXPECT_EQ(port.commands().size(), 7U);
}

TEST_F(Registers, NoChangeOutlastsTwelveTimeouts) {
  host.clock = 36001.5;
  channel.registerMask = 0xFF;
  port.script = inTurn({"\r"});
  EXPECT_EQ(channel.writeSet("07", "26"), "Fail");
  EXPECT_LE(host.clock - 36001.5, 11 * 1.51);
}

// As the runs use the channel.

class RunRegisters : public ProbeBench {};

TEST_F(RunRegisters, ShowTheValueAfterTheLabelAndChangeIt) {
  answers = {{"R07", {"R0700", "R0726"}}, {"W0726", {"W07"}}};
  window.lblStatus.setCaption("Input type\r");
  window.channel.registerMask = 0xFF;
  EXPECT_EQ(window.writeSerial("07", "26"), "Success");
  EXPECT_EQ(narrative, Lines{"Input type\r26\r"});
  EXPECT_EQ(commands(), (Lines{"*R07", "*W0726", "*R07"}));
}

TEST_F(RunRegisters, TurnAnEncodersMessageIntoTheResultAndSendNothing) {
  window.channel.registerMask = 0xFF;
  for (const std::string message : {"Divide by zero", "", "!", "Fail"}) {
    startAnew();
    EXPECT_EQ(window.writeSerial("07", "!" + message), message);
    EXPECT_EQ(narrative, Lines{"!" + message + "\r"});
    EXPECT_EQ(port().calls, Lines{});
  }
}

TEST_F(RunRegisters, ShowTheValueOfASkippedRegisterToo) {
  window.channel.registerMask = 0;
  EXPECT_EQ(window.writeSerial("07", "26"), "Success");
  EXPECT_EQ(narrative, Lines{"26\r"});
  EXPECT_EQ(commands(), Lines{});
}

TEST_F(RunRegisters, AreReadWithoutAWord) {
  answers = {{"R07", {"R0726"}}};
  EXPECT_EQ(window.ReadSerial("07"), "R0726");
  EXPECT_EQ(window.ReadSerial("08"), "Fail");
  EXPECT_EQ(narrative, Lines{});
  EXPECT_EQ(window.channel.wiringProblem, False);
}

}  // namespace

}  // namespace torvane
