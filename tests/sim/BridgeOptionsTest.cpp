// SPDX-License-Identifier: MIT
// The bridge on the command line.
#include "sim/BridgeOptions.h"

#include <gtest/gtest.h>

#include "sim/Options.h"

namespace torvane {

namespace {

using sim::BridgeFaults;
using sim::Options;
using sim::parseOptions;
using sim::Reach;

BridgeFaults faultsOf(const std::string& text) {
  const Options options = parseOptions({"--bridge", text});
  EXPECT_EQ(options.problem, "") << text;
  return options.bridge;
}

TEST(BridgeOptions, TakesItsPorts) {
  const Options options = parseOptions({"--tcp", "1000", "--terminal-server", "0"});
  EXPECT_EQ(options.tcp, 1000);
  EXPECT_EQ(options.terminalServer, 0);
  EXPECT_FALSE(parseOptions({}).tcp);
  for (const char* bad : {"-1", "65536", "x", ""}) {
    EXPECT_NE(parseOptions({"--tcp", bad}).problem, "") << bad;
    EXPECT_NE(parseOptions({"--terminal-server", bad}).problem, "") << bad;
  }
}

TEST(BridgeOptions, WhoeverConnects) {
  EXPECT_EQ(faultsOf("reach:refuses").reach, Reach::refuses);
  EXPECT_EQ(faultsOf("reach:never").reach, Reach::never);
  EXPECT_EQ(faultsOf("reach:accepts").reach, Reach::accepts);
  EXPECT_EQ(faultsOf("close").closeAfter, 0.0);
  EXPECT_EQ(faultsOf("close:2.5").closeAfter, 2.5);
  EXPECT_TRUE(faultsOf("abrupt").abrupt);
}

TEST(BridgeOptions, TalksUnasked) {
  const BridgeFaults once = faultsOf("talk:0023.5");
  EXPECT_EQ(once.unasked.bytes, "0023.5\r");
  EXPECT_DOUBLE_EQ(once.unasked.after, 1);
  EXPECT_EQ(once.unasked.times, 1);
  const BridgeFaults often = faultsOf("talk:0023.5,0.5,100");
  EXPECT_DOUBLE_EQ(often.unasked.after, 0.5);
  EXPECT_EQ(often.unasked.times, 100);
}

TEST(BridgeOptions, WhatMeetsALine) {
  EXPECT_TRUE(faultsOf("silent").silent);
  EXPECT_EQ(faultsOf("echo").echoes, sim::unlimited);
  EXPECT_EQ(faultsOf("echo:2").echoes, 2);
  EXPECT_EQ(faultsOf("prompt").prompt, sim::terminalServerPrompt);
  EXPECT_EQ(faultsOf("prompt:login").prompt, "login");
  const BridgeFaults refusing = faultsOf("refuse:?46,*U,2");
  ASSERT_EQ(refusing.refusals.size(), 1U);
  EXPECT_EQ(refusing.refusals[0].code, "?46");
  EXPECT_EQ(refusing.refusals[0].prefix, "*U");
  EXPECT_EQ(refusing.refusals[0].times, 2);
}

TEST(BridgeOptions, Drops) {
  EXPECT_EQ(faultsOf("drop:3").dropAt, 3);
  const BridgeFaults whole = faultsOf("drop:3,2,never");
  EXPECT_EQ(whole.dropAfter, 2U);
  EXPECT_EQ(whole.afterDrop, Reach::never);
}

TEST(BridgeOptions, TimesPiecesAndTheSerialSide) {
  EXPECT_DOUBLE_EQ(faultsOf("late:0.5").late, 0.5);
  EXPECT_DOUBLE_EQ(faultsOf("join:2").joinWithin, 2);
  EXPECT_EQ(faultsOf("pieces:2,0.1").pieceSize, 2U);
  EXPECT_DOUBLE_EQ(faultsOf("pieces:2,0.1").pieceGap, 0.1);
  EXPECT_EQ(faultsOf("line:19200,e,8,2").line, (sim::LineSettings{19200, 'e', 8, 2}));
}

TEST(BridgeOptions, FaultsAddUp) {
  const Options options =
      parseOptions({"--bridge", "late:1", "--bridge", "refuse:?43", "--bridge", "refuse:?46"});
  EXPECT_DOUBLE_EQ(options.bridge.late, 1);
  EXPECT_EQ(options.bridge.refusals.size(), 2U);
}

TEST(BridgeOptions, RefusesBadArguments) {
  for (const char* bad : {"",         "unknown",  "reach",          "reach:x",          "close:x",
                          "close:-1", "talk",     "talk:x,y",       "talk:x,1,y",       "talk:x,1,1,1",
                          "silent:1", "echo:x",   "refuse:a,b,1,d", "refuse:a,b,x",     "drop",
                          "drop:0",   "drop:1,x", "drop:1,1,x",     "drop:1,1,never,1", "late:",
                          "join:x",   "pieces:1", "pieces:0,1",     "line:9600",        "abrupt:1"}) {
    EXPECT_NE(parseOptions({"--bridge", bad}).problem, "") << bad;
  }
}

TEST(BridgeOptions, HelpTellsThem) {
  const std::string help = sim::helpText();
  for (const char* word :
       {"--tcp PORT", "--terminal-server", "--bridge", "drop:N", "prompt[:TEXT]", "qlncac"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
}

}  // namespace

}  // namespace torvane
