// SPDX-License-Identifier: MIT
// The history of a run: failed steps are marked, the first one stays in view, the last line sums up.
#include "protocol/StatusHistory.h"

#include <algorithm>

#include "tests/support/Bench.h"
#include "tests/support/Outcomes.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

class History : public Bench {
 protected:
  ListBox& list = form<frmSerial>().lstNarrative;
  StatusHistory history{list};
  RunOutcome outcome = outcomeOf(false, {});

  // As a run does: label, payload, the outcome known, its word.
  void step(const RegisterOutcome& result) {
    history.tell("Configuring " + result.name + "...\r", false);
    history.tell("Configuring " + result.name + "...\r2004D2\r", true);
    outcome.registers.push_back(result);
    const std::string word = result.verdict == Verdict::failed ? "Fail" : "Success";
    history.tell("Configuring " + result.name + "...\r2004D2\r" + word, true);
    history.judge(outcome);
  }
};

TEST_F(History, HasALineForEachStepOnOneLine) {
  history.begin();
  step(took("01", "Set-Point 1", Verdict::written));
  EXPECT_EQ(list.items(), (std::vector<std::string>{"Configuring Set-Point 1... 2004D2 Success"}));
  EXPECT_EQ(list.itemMark(0), Mark::none);
  EXPECT_EQ(list.listIndex(), 0);
}

TEST_F(History, SaysOfAFailedStepThatItFailedAndWhy) {
  history.begin();
  step(took("07", "Input Type", Verdict::same));
  step(failed("01", "Set-Point 1", "refused \"?43\""));
  EXPECT_EQ(list.list(1), "Configuring Set-Point 1... 2004D2 Fail - failed: refused \"?43\"");
  EXPECT_EQ(list.itemMark(0), Mark::none);
  EXPECT_EQ(list.itemMark(1), Mark::error);
}

TEST_F(History, KeepsTheReasonWhenTheLineGoesOn) {
  history.begin();
  step(failed("21", "RS-485 Address", "no answer"));
  history.tell("RS 485 Address ....\r11\rFailDone\r", true);
  EXPECT_EQ(list.list(0), "RS 485 Address .... 11 FailDone  - failed: no answer");
}

TEST_F(History, KeepsTheFirstFailureInView) {
  history.begin();
  step(took("07", "Input Type", Verdict::written));
  step(failed("01", "Set-Point 1", "no answer"));
  step(failed("02", "Set-Point 2", "no answer"));
  for (int more = 0; more < 20; ++more) step(took("13", "Alarm 1 High", Verdict::written));
  history.end(outcome);
  EXPECT_EQ(list.listIndex(), 1);
}

TEST_F(History, FollowsTheLastLineWhileNothingFails) {
  history.begin();
  for (int more = 0; more < 20; ++more) step(took("13", "Alarm 1 High", Verdict::written));
  history.end(outcome);
  EXPECT_EQ(list.listIndex(), 20);
}

TEST_F(History, SumsUpInTheLastLine) {
  history.begin();
  step(took("07", "Input Type", Verdict::written));
  step(failed("01", "Set-Point 1", "no answer"));
  history.end(outcome);
  EXPECT_EQ(list.list(2), "2 steps: 1 written, 1 failed: Set-Point 1");
  EXPECT_EQ(list.itemMark(2), Mark::error);
}

TEST_F(History, BeginsAgainWithTheNextRun) {
  history.begin();
  step(failed("01", "Set-Point 1", "no answer"));
  history.begin();
  outcome = outcomeOf(false, {});
  EXPECT_EQ(list.listCount(), 0);
  step(took("07", "Input Type", Verdict::written));
  step(took("08", "Reading", Verdict::written));
  EXPECT_EQ(list.itemMark(0), Mark::none);
  EXPECT_EQ(list.listIndex(), 1);
}

// Whatever failed and in whatever order: marked are the failed lines and a bad sum, and each says so.
TEST_F(History, MarksTheFailedLinesAndNoOthers) {
  std::mt19937 random(5);
  for (int round = 0; round < 200; ++round) {
    history.begin();
    outcome = outcomeOf(false, {});
    std::vector<bool> fails;
    for (int line = 0, count = between(random, 1, 33); line < count; ++line) {
      fails.push_back(between(random, 0, 3) == 0);
      step(fails.back() ? failed("01", "Set-Point 1", "no answer")
                        : took("01", "Set-Point 1", Verdict::written));
    }
    history.end(outcome);
    fails.push_back(!outcome.passed());
    const auto lines = history.lines();
    ASSERT_EQ(lines.size(), fails.size());
    for (std::size_t line = 0; line < lines.size(); ++line) {
      EXPECT_EQ(lines[line].failed, fails[line]);
      EXPECT_EQ(lines[line].text.find(" failed") != std::string::npos, fails[line]);
    }
    const auto first = std::ranges::find(fails, true);
    const auto inView = first == fails.end() ? std::ssize(fails) - 1 : first - fails.begin();
    EXPECT_EQ(list.listIndex(), inView);
  }
}

}  // namespace

}  // namespace torvane
