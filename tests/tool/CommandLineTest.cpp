// SPDX-License-Identifier: MIT
// The command line: what is taken, and what is said of errors.
#include "tool/CommandLine.h"

#include <gtest/gtest.h>

namespace torvane {

namespace {

using tool::Arguments;
using tool::parseCommandLine;

Arguments argumentsOf(const std::vector<std::string>& words) {
  const tool::Invocation asked = parseCommandLine(words);
  EXPECT_NE(asked.subcommand, nullptr);
  return asked.arguments;
}

// "error | hint"
std::string complaintOf(const std::vector<std::string>& words) {
  try {
    parseCommandLine(words);
  } catch (const tool::Problem& problem) {
    EXPECT_EQ(problem.code, tool::ExitCode::usage);
    return std::string(problem.what()) + " | " + problem.hint;
  }
  return "none";
}

TEST(ToolCommandLine, EveryCommandOfTheHelp) {
  const std::vector<std::vector<std::string>> calls{
      {"ports"},
      {"find", "--port", "COM1", "--addresses", "0-199"},
      {"find", "--host", "h:1"},
      {"identify", "COM1"},
      {"read", "COM1", "-o", "a.cfg", "--keep", "a.unit"},
      {"write", "COM1", "a.cfg", "--dry-run", "--reset", "--force", "--record", "r.json", "--who", "me"},
      {"compare", "COM1", "a.cfg"},
      {"compare", "a.cfg", "b.cfg"},
      {"keep", "COM1", "-o", "x.unit", "--setup", "a.cfg"},
      {"put-back", "COM1", "x.unit", "--bus"},
      {"show", "a.cfg", "--csv", "--pdf", "a.pdf"},
      {"set", "a.cfg", "Setpoint 1=123.4", "Alarm 1/High setpoint=-5", "-o", "b.cfg"},
      {"batch", "plan.csv", "--journal", "j.jsonl", "--jobs", "3", "--resume", "--results", "r.csv"}};
  for (const auto& call : calls) {
    const tool::Invocation asked = parseCommandLine(call);
    ASSERT_NE(asked.subcommand, nullptr);
    EXPECT_EQ(asked.subcommand->name, call.front());
    EXPECT_FALSE(asked.arguments.json);
    std::vector<std::string> withJson = call;
    withJson.emplace_back("--json");
    EXPECT_TRUE(argumentsOf(withJson).json);
  }
}

TEST(ToolCommandLine, LineAndItsSettings) {
  const auto line = argumentsOf({"write", "host:2000", "a.cfg", "--address", "17", "--baud", "19200",
                                 "--parity", "none", "--data", "8", "--stop", "2", "--model", "TMP"})
                        .line;
  EXPECT_EQ(line.name, (tool::LineName{.host = "host", .port = 2000}));
  EXPECT_EQ(line.address, 17);
  EXPECT_EQ(line.baud, 19200);
  EXPECT_EQ(line.parity, "none");
  EXPECT_EQ(line.data, 8);
  EXPECT_EQ(line.stop, 2);
  EXPECT_EQ(line.model, "TMP");
  const auto bare = argumentsOf({"identify", "COM1"}).line;
  EXPECT_FALSE(bare.address || bare.baud || bare.data || bare.stop);
}

TEST(ToolCommandLine, ChangesAreTakenAsTheyStand) {
  const auto asked = argumentsOf({"set", "a.cfg", "A=1", "B=x, y", "-o", "b.cfg"});
  EXPECT_EQ(asked.changes, (std::vector<std::string>{"A=1", "B=x, y"}));
  EXPECT_EQ(asked.out, "b.cfg");
}

TEST(ToolCommandLine, UnknownWordsNameTheNearest) {
  EXPECT_EQ(complaintOf({"wriet", "COM1"}), "\"wriet\" is no command | Did you mean write?");
  EXPECT_EQ(complaintOf({"write", "COM1", "a.cfg", "--dryrun"}),
            "\"--dryrun\" is no option of torvane-unit write | Did you mean --dry-run?");
  EXPECT_EQ(complaintOf({"ports", "COM1"}),
            "\"COM1\" is too much here | \"torvane-unit ports --help\" tells what there is.");
  EXPECT_EQ(complaintOf({"identify", "COM1", "--parity", "od"}),
            "--parity can't be \"od\" | Did you mean odd?");
  EXPECT_EQ(complaintOf({"identify", "COM1", "--stop", "x"}), "--stop can't be \"x\" | It may be 1, 2.");
}

TEST(ToolCommandLine, WhatIsMissingOrWrong) {
  EXPECT_EQ(complaintOf({}), "a command is missing | \"torvane-unit --help\" tells how it is called.");
  EXPECT_EQ(complaintOf({"identify"}),
            "LINE is missing | \"torvane-unit identify --help\" tells how it is called.");
  EXPECT_EQ(complaintOf({"identify", "nowhere"}),
            "LINE can't be \"nowhere\" | It may be COM1, the path of a device, or host:port.");
  EXPECT_EQ(complaintOf({"identify", "COM1", "--address", "200"}),
            "--address can't be \"200\" | It may be 0 to 199.");
  EXPECT_EQ(complaintOf({"identify", "COM1", "--baud"}),
            "--baud needs a value | \"torvane-unit identify --help\" tells how it is called.");
  EXPECT_EQ(complaintOf({"find", "--host", "nowhere"}),
            "--host can't be \"nowhere\" | It may be COM1, the path of a device, or host:port.");
  for (const auto& bad :
       std::vector<std::vector<std::string>>{{"read", "COM1"},
                                             {"write", "COM1", "a", "--who", "me"},
                                             {"find", "--port", "COM1", "--host", "h:1"},
                                             {"batch", "p", "--journal", "j", "--jobs", "0"},
                                             {"batch", "p"},
                                             {"--completion", "fish"}}) {
    EXPECT_NE(complaintOf(bad), "none") << bad.front();
  }
}

TEST(ToolCommandLine, HelpVersionAndPages) {
  EXPECT_NE(parseCommandLine({"--help"}).words.find("put-back"), std::string::npos);
  EXPECT_NE(parseCommandLine({"write", "--help"}).words.find("--dry-run"), std::string::npos);
  EXPECT_NE(
      parseCommandLine({"write", "--help"}).words.find("Usage: torvane-unit write [OPTIONS] LINE SETUP"),
      std::string::npos);
  EXPECT_EQ(parseCommandLine({"--version"}).words, "torvane-unit 1.0\n");
  const std::string completion = parseCommandLine({"--completion", "bash"}).words;
  const std::string page = parseCommandLine({"--man"}).words;
  for (const tool::Subcommand& command : tool::subcommands()) {
    EXPECT_NE(completion.find(std::string("    ") + command.name + ") options="), std::string::npos);
    for (const tool::OptionRow& row : optionsOf(command)) {
      if (isWord(row)) continue;
      for (const std::string& name : namesOf(row)) {
        EXPECT_NE(completion.find(name), std::string::npos) << name;
      }
    }
  }
  EXPECT_EQ(completion.find("--dry-run)"), std::string::npos) << "a flag has no value to offer";
  EXPECT_EQ(page.find("\\fI\\fR"), std::string::npos) << "nor to name";
  for (const char* part :
       {".SH EXIT STATUS", "\\fB130\\fR", "put\\-back\\fR", "\\-\\-dry\\-run", "\\fIHOST:PORT\\fR"}) {
    EXPECT_NE(page.find(part), std::string::npos) << part;
  }
}

}  // namespace

}  // namespace torvane
