// SPDX-License-Identifier: MIT
// The command line of the unit simulator.
#include "sim/Options.h"

#include <gtest/gtest.h>

namespace torvane {

namespace {

using sim::Options;
using sim::parseOptions;

sim::Faults faultsOf(const std::string& text) {
  const Options options = parseOptions({"--fault", text});
  EXPECT_EQ(options.problem, "") << text;
  return options.faults;
}

TEST(Options, NothingGivenIsATemperatureControllerPointToPoint) {
  const Options options = parseOptions({});
  EXPECT_EQ(options.problem, "");
  EXPECT_EQ(options.setup.model, sim::Model::tmp);
  EXPECT_FALSE(options.setup.addressed);
  EXPECT_EQ(options.setup.line, sim::LineSettings{});
}

TEST(Options, TakesTheUnitsSetup) {
  const Options options = parseOptions({"--model", "larkspur", "--version-text", "0.9", "--address", "17",
                                        "--line", "19200,e,8,2", "--turnaround", "0.5", "--line-rate", "9600",
                                        "--analog", "--flags", "CC", "--recognition", "21"});
  EXPECT_EQ(options.problem, "");
  EXPECT_EQ(options.setup.model, sim::Model::larkspur);
  EXPECT_EQ(options.setup.version, "0.9");
  EXPECT_TRUE(options.setup.addressed);
  EXPECT_TRUE(options.addressGiven);
  EXPECT_EQ(options.setup.address, 17);
  EXPECT_EQ(options.setup.line, (sim::LineSettings{19200, 'e', 8, 2}));
  EXPECT_DOUBLE_EQ(options.setup.turnaround, 0.5);
  EXPECT_DOUBLE_EQ(options.setup.lineRate, 9600);
  EXPECT_TRUE(options.setup.analog);
  EXPECT_EQ(options.setup.idFlags, "CC");
  EXPECT_EQ(options.setup.recognition, "21");
}

TEST(Options, TakesTheProgramsOwn) {
  const Options options =
      parseOptions({"--registers", "file", "--link", "port", "--check-line", "--quiet", "--help"});
  EXPECT_EQ(options.registers, "file");
  EXPECT_EQ(options.link, "port");
  EXPECT_TRUE(options.checkLine);
  EXPECT_TRUE(options.quiet);
  EXPECT_TRUE(options.help);
}

TEST(Options, TellsWhatIsWrong) {
  EXPECT_EQ(parseOptions({"--frobnicate"}).problem, "--frobnicate is no option of this program");
  EXPECT_EQ(parseOptions({"--model"}).problem, "--model needs a value");
  EXPECT_EQ(parseOptions({"--model", "x"}).problem, "--model can't be x");
  const std::vector<std::vector<std::string>> bad{
      {"--address", "200"},    {"--address", "-1"},     {"--address", "1x"},   {"--line", "9600"},
      {"--turnaround", "-1"},  {"--turnaround", "0,5"}, {"--flags", "C"},      {"--recognition", "2a"},
      {"--line-rate", "fast"}, {"--link", ""},          {"--registers", ""},   {"--version-text", ""},
      {"--fault", "unknown"},  {"--turnaround", "nan"}, {"--line-rate", "inf"}};
  for (const auto& arguments : bad)
    EXPECT_NE(parseOptions(arguments).problem, "") << arguments[0] << arguments[1];
}

TEST(Options, SilenceAndLoops) {
  EXPECT_EQ(faultsOf("silent").silentAfter, 0);
  EXPECT_EQ(faultsOf("silent:3").silentAfter, 3);
  EXPECT_EQ(faultsOf("loop").loopback, sim::unlimited);
  EXPECT_EQ(faultsOf("loop:2").loopback, 2);
  EXPECT_EQ(faultsOf("hangup:4").hangupAt, 4);
}

TEST(Options, Refusals) {
  const sim::Faults faults = faultsOf("refuse:?46,W07,2");
  ASSERT_EQ(faults.refusals.size(), 1U);
  EXPECT_EQ(faults.refusals[0].code, "?46");
  EXPECT_EQ(faults.refusals[0].prefix, "W07");
  EXPECT_EQ(faults.refusals[0].times, 2);
  EXPECT_EQ(faultsOf("refuse:?50").refusals[0].times, sim::unlimited);
}

TEST(Options, RepliesAndTheirForm) {
  EXPECT_EQ(faultsOf("answer:R07=R07=X").answers.at("R07"), "R07=X");
  EXPECT_EQ(faultsOf("line-end:crlf").lineEnd, "\r\n");
  EXPECT_EQ(faultsOf("line-end:none").lineEnd, "");
  EXPECT_EQ(faultsOf("noise:00FF").noiseBefore, std::string("\0\xFF", 2));
  EXPECT_EQ(faultsOf("noise:2A,3").noiseInside, "*");
  EXPECT_EQ(faultsOf("noise:2A,3").noiseAt, 3U);
  EXPECT_EQ(faultsOf("endless").endless, 100'000U);
  EXPECT_EQ(faultsOf("endless:5").endless, 5U);
  EXPECT_EQ(faultsOf("stale:R0799").stale, "R0799\r");
  EXPECT_EQ(faultsOf("trailing:R0799").trailing, "R0799\r");
}

TEST(Options, TimesPiecesAndStuckRegisters) {
  EXPECT_DOUBLE_EQ(faultsOf("late:0.5").late, 0.5);
  EXPECT_EQ(faultsOf("pieces:2,0.1").pieces.at(0).size, 2U);
  EXPECT_DOUBLE_EQ(faultsOf("pieces:2,0.1").pieces.at(0).gap, 0.1);
  EXPECT_EQ(faultsOf("stuck:07").stuck.at("07"), 0U);
  EXPECT_EQ(faultsOf("stuck:07,80").stuck.at("07"), 0x80U);
}

TEST(Options, SlownessAndBytes) {
  const sim::Faults slow = faultsOf("slow:W,0.9");
  ASSERT_EQ(slow.slow.size(), 1U);
  EXPECT_EQ(slow.slow[0].prefix, "W");
  EXPECT_DOUBLE_EQ(slow.slow[0].seconds, 0.9);
  EXPECT_TRUE(faultsOf("busy").busy);
  EXPECT_DOUBLE_EQ(faultsOf("bytes:0.01").byteGap, 0.01);
}

TEST(Options, FaultsAddUp) {
  const Options options =
      parseOptions({"--fault", "pieces:1,0", "--fault", "pieces:2,0", "--fault", "late:1"});
  EXPECT_EQ(options.faults.pieces.size(), 2U);
  EXPECT_DOUBLE_EQ(options.faults.late, 1);
}

TEST(Options, RefusesBadFaultArguments) {
  for (const char* bad :
       {"silent:x", "loop:-1",    "refuse:?43,W,x", "refuse:a,b,1,d", "answer:R07", "stuck:7", "stuck:07,xx",
        "late:",    "late:-1",    "pieces:2",       "pieces:0,1",     "line-end:x", "noise:",  "noise:0",
        "noise:GG", "noise:00,x", "endless:x",      "stale",          "trailing:",  "hangup",  "hangup:0",
        "slow",     "slow:W",     "slow:W,x",       "slow:W,1,1",     "busy:1",     "bytes",   "bytes:-1"}) {
    EXPECT_NE(parseOptions({"--fault", bad}).problem, "") << bad;
  }
}

TEST(Options, HelpTellsModelsAndFaults) {
  const std::string help = sim::helpText();
  for (const char* word : {"--model", "--line-rate", "larkspur", "rht", "hangup:N", "refuse:CODE"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
}

}  // namespace

}  // namespace torvane
