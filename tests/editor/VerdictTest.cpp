// SPDX-License-Identifier: MIT
// The line that stays on the main window after a run, and the chooser that shows it too.
#include <random>
#include <set>

#include "dialogs/frmRunDetails.h"
#include "editor/SetupBoxes.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/Outcomes.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

class VerdictLine : public EditorTest {
 protected:
  const std::string& line() { return editor.lblVerdict.caption(); }
  void keep(const RunOutcome& outcome) { editor.keepRun(outcome, {{"a line", false}}); }
};

TEST_F(VerdictLine, IsEmptyBeforeTheFirstRun) {
  EXPECT_EQ(line(), "");
  EXPECT_EQ(editor.lblNote.caption(), "");
  EXPECT_FALSE(editor.cmdDetails.enabled());
}

TEST_F(VerdictLine, SaysWhenWhereWhichWayWhichUnitAndWhatItCameTo) {
  host.clock = 14 * 3600 + 5 * 60 + 59.0;
  keep(outcomeOf(false,
                 {took("07", "Input Type", Verdict::written), took("01", "Set-Point 1", Verdict::same)}));
  EXPECT_EQ(line(),
            "Good: 14:05, COM 1, 9600,o,7,1, address 17, write to Torvane TMP. "
            "2 steps: 1 written, 1 already so");
  EXPECT_EQ(editor.lblVerdict.mark(), Mark::none);
  EXPECT_TRUE(editor.cmdDetails.enabled());
}

TEST_F(VerdictLine, TellsTheTimeOfDayAlsoAfterMidnight) {
  host.clock = 86400 + 9 * 60;
  keep(outcomeOf(false, {}));
  EXPECT_TRUE(line().starts_with("Good: 00:09, ")) << line();
  host.clock = 2 * 86400 - 1;
  keep(outcomeOf(false, {}));
  EXPECT_TRUE(line().starts_with("Good: 23:59, ")) << line();
}

TEST_F(VerdictLine, SaysInWordsAndInColourThatSomethingFailed) {
  keep(outcomeOf(false,
                 {took("07", "Input Type", Verdict::written), failed("01", "Set-Point 1", "no answer")}));
  EXPECT_TRUE(line().starts_with("FAILED: ")) << line();
  EXPECT_TRUE(line().ends_with("2 steps: 1 written, 1 failed: Set-Point 1")) << line();
  EXPECT_EQ(editor.lblVerdict.mark(), Mark::error);
}

TEST_F(VerdictLine, SaysThatARunWasStopped) {
  keep(outcomeOf(false, {took("07", "Input Type", Verdict::written)}, RunEnd::cancelled));
  EXPECT_TRUE(line().starts_with("STOPPED: ")) << line();
  EXPECT_EQ(editor.lblVerdict.mark(), Mark::error);
}

TEST_F(VerdictLine, NamesTheTabsThatShowTheOldSetupAfterARead) {
  keep(outcomeOf(true, {took("07", "Input Type", Verdict::read), failed("01", "Set-Point 1", "no answer"),
                        failed("13", "Alarm 1 High", "no answer")}));
  EXPECT_NE(line().find("The tabs Setpoints, Alarm 1 show the old setup, wholly or in part."),
            std::string::npos)
      << line();
  keep(outcomeOf(true, {took("07", "Input Type", Verdict::read), failed("01", "Set-Point 1", "no answer")}));
  EXPECT_NE(line().find(". The tab Setpoints shows the old setup, wholly or in part. 2 steps"),
            std::string::npos)
      << line();
}

// The records that any reply to a register changes.
std::set<int> recordsReadFrom(const RegisterUnderTest& reg) {
  std::mt19937 random(std::mt19937::default_seed);
  std::set<int> records;
  for (int reply = 0; reply < 200; ++reply) {
    std::string digits;
    while (digits.size() < reg.width) digits += "0123456789ABCDEF"[between(random, 0, 15)];
    const MemoArray before = Memo;
    attempt([&] { reg.parse("R" + std::string(reg.index) + digits); });
    for (int record = 0; record < MemoArray::count; ++record) {
      if (Memo[record] != before[record]) records.insert(record);
    }
  }
  return records;
}

bool showsOneOf(const SetupBox& box, const std::set<int>& records) {
  return records.contains(box.record) && isInUse(box);
}

TEST_F(VerdictLine, NamesEveryTabThatShowsWhatWasNotRead) {
  for (const int kind : {kind::fullController, kind::simpleMenu}) {
    for (const RegisterUnderTest& reg : allRegisters()) {
      freshSetup();
      chooseKind(kind);
      const std::set<int> records = recordsReadFrom(reg);
      chooseKind(kind);
      keep(outcomeOf(true, {failed(reg.index, "a step", "no answer")}));
      for (const SetupBox& box : setupBoxes()) {
        if (!showsOneOf(box, records)) continue;
        const std::string& tab = editor.tabBig.page(static_cast<std::size_t>(box.tabs.shown)).caption;
        EXPECT_NE(line().find(tab), std::string::npos) << reg.index << ": " << tab << " in " << line();
      }
    }
  }
}

TEST_F(VerdictLine, NamesTheTabsOfAllThatOneRegisterHolds) {
  keep(outcomeOf(true, {failed("0D", "Output 2", "no answer")}));
  EXPECT_NE(line().find("The tabs Out1, Out2, Ramp/Soak show the old setup"), std::string::npos) << line();
  keep(outcomeOf(true, {failed("24", "ID Code Protection", "no answer")}));
  EXPECT_NE(line().find("The tabs ID code, Setpoints, Out1 show the old setup"), std::string::npos) << line();
}

TEST_F(VerdictLine, NamesTheTabsOfWhatAStoppedReadDidNotComeTo) {
  keep(outcomeOf(true, {took("07", "Input Type", Verdict::read)}, RunEnd::cancelled));
  EXPECT_EQ(line().find("Input type,"), std::string::npos) << line();
  EXPECT_NE(line().find("Reading, Alarm 1, Alarm 2"), std::string::npos) << line();
  keep(outcomeOf(true, {}, RunEnd::noUnit));
  EXPECT_NE(line().find("All tabs show the old setup."), std::string::npos) << line();
}

TEST_F(VerdictLine, OfAWriteSaysNothingOfTheTabs) {
  keep(outcomeOf(false, {failed("01", "Set-Point 1", "no answer")}));
  EXPECT_EQ(line().find("old setup"), std::string::npos);
}

TEST_F(VerdictLine, TakesANote) {
  editor.setNote("Not taken over exactly: Input type", true);
  EXPECT_EQ(editor.lblNote.caption(), "Not taken over exactly: Input type");
  EXPECT_EQ(editor.lblNote.mark(), Mark::error);
}

// A thermocouple of type T, which the setup shows as another one.
TEST_F(VerdictLine, NotesAfterAReadAloneWhatTheSetupHasNotExactly) {
  RegisterOutcome input = took("07", "Input Type", Verdict::read);
  input.before = "08";
  for (const bool reading : {false, true}) {
    editor.forgetRun();
    keep(outcomeOf(reading, {input}));
    editor.noteLosses();
    const std::string& note = editor.lblNote.caption();
    EXPECT_EQ(note.starts_with("Not taken over exactly: Input, Thermocouple Type (unit T, setup K)"), reading)
        << note;
    EXPECT_EQ(editor.lblNote.mark(), reading ? Mark::error : Mark::none);
  }
}

TEST_F(VerdictLine, NotesNothingWhereTheSetupIsAsTheUnit) {
  RegisterOutcome input = took("07", "Input Type", Verdict::read);
  input.before = makeInput().payload;
  keep(outcomeOf(true, {input}));
  editor.noteLosses();
  EXPECT_EQ(editor.lblNote.caption(), "");
}

TEST_F(VerdictLine, NamesTheAddressOnceAndTheUnitAsItIsKnown) {
  host.clock = 60;
  RunOutcome outcome = outcomeOf(true, {});
  outcome.line = "bridge, address 17";
  outcome.unit = "";
  keep(outcome);
  EXPECT_TRUE(line().starts_with("Good: 00:01, bridge, address 17, read from the unit. ")) << line();
  outcome.address.reset();
  outcome.line = "COM 2";
  outcome.reading = false;
  keep(outcome);
  EXPECT_TRUE(line().starts_with("Good: 00:01, COM 2, write to the unit. ")) << line();
}

TEST_F(VerdictLine, GoesWhenTheNextRunBegins) {
  keep(outcomeOf(false, {failed("01", "Set-Point 1", "no answer")}));
  editor.setNote("a note", true);
  editor.forgetRun();
  EXPECT_EQ(line(), "");
  EXPECT_EQ(editor.lblVerdict.mark(), Mark::none);
  EXPECT_EQ(editor.lblNote.caption(), "");
  EXPECT_FALSE(editor.cmdDetails.enabled());
  EXPECT_TRUE(editor.lastRun.history.empty());
}

TEST_F(VerdictLine, StandsInTheChooserThatStaysOpenToo) {
  keep(outcomeOf(false, {failed("01", "Set-Point 1", "no answer")}));
  auto& chooser = form<frmWrite>();
  EXPECT_EQ(chooser.lblVerdict.caption(), line());
  EXPECT_EQ(chooser.lblVerdict.mark(), Mark::error);
  keep(outcomeOf(false, {took("01", "Set-Point 1", Verdict::written)}));
  EXPECT_EQ(chooser.lblVerdict.caption(), line());
  EXPECT_EQ(chooser.lblVerdict.mark(), Mark::none);
}

TEST_F(VerdictLine, ShowsTheHistoryAgain) {
  keep(outcomeOf(false, {took("01", "Set-Point 1", Verdict::written)}));
  host.whenShown("frmRunDetails", [] {
    EXPECT_EQ(form<frmRunDetails>().lstHistory.list(0), "a line");
    form<frmRunDetails>().cmdClose.userClicked();
  });
  editor.cmdDetails.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_FALSE(isLoaded<frmRunDetails>());
}

}  // namespace

}  // namespace torvane
