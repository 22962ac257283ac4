// SPDX-License-Identifier: MIT
// The history of the last run once more: shown, copied, saved, printed.
#include "dialogs/frmRunDetails.h"

#include "tests/support/Bench.h"
#include "tests/support/Outcomes.h"

namespace torvane {

namespace {

class RunDetails : public Bench {
 protected:
  frmRunDetails& afterARun() {
    start().keepRun(outcomeOf(false, {failed("01", "Set-Point 1", "no answer")}),
                    {{"first", false}, {"second - failed: no answer", true}, {"1 steps: 1 failed", true}});
    auto& window = form<frmRunDetails>();
    window.show();
    return window;
  }

  frmRunDetails& details = afterARun();
  const std::string text = form<frmBigFolder>().lblVerdict.caption() +
                           "\n\nfirst\nsecond - failed: no answer\n1 steps: 1 failed\n";
};

TEST_F(RunDetails, ShowTheVerdictAndTheLinesWithTheFirstFailureInView) {
  EXPECT_EQ(details.caption(), "Run Details");
  EXPECT_EQ(details.lblVerdict.caption(), form<frmBigFolder>().lblVerdict.caption());
  EXPECT_EQ(details.lblVerdict.mark(), Mark::error);
  EXPECT_EQ(details.lstHistory.listCount(), 3);
  EXPECT_EQ(details.lstHistory.itemMark(0), Mark::none);
  EXPECT_EQ(details.lstHistory.itemMark(1), Mark::error);
  EXPECT_EQ(details.lstHistory.listIndex(), 1);
}

struct Lines {
  std::vector<HistoryLine> history;
  int chosen;
};

TEST_F(RunDetails, ChooseTheFirstFailureOfAnyHistory) {
  for (const auto& [history, chosen] : {Lines{{}, -1},
                                        {{{"only", false}}, 0},
                                        {{{"only", true}}, 0},
                                        {{{"a", false}, {"b", false}}, 0},
                                        {{{"a", true}, {"b", true}, {"c", false}}, 0},
                                        {{{"a", false}, {"b", false}, {"c", true}, {"d", true}}, 2}}) {
    unload<frmRunDetails>();
    form<frmBigFolder>().lastRun.history = history;
    auto& window = form<frmRunDetails>();
    EXPECT_EQ(window.lstHistory.listIndex(), chosen) << history.size();
    for (std::size_t line = 0; line < history.size(); ++line) {
      EXPECT_EQ(window.lstHistory.itemMark(static_cast<int>(line)),
                history[line].failed ? Mark::error : Mark::none);
    }
  }
}

TEST_F(RunDetails, OfARunThatPassedHaveNoMark) {
  unload<frmRunDetails>();
  form<frmBigFolder>().keepRun(outcomeOf(false, {took("01", "Set-Point 1", Verdict::written)}), {});
  EXPECT_EQ(form<frmRunDetails>().lblVerdict.mark(), Mark::none);
}

TEST_F(RunDetails, AreCopied) {
  details.cmdCopy.userClicked();
  EXPECT_EQ(host.clipboard, text);
}

TEST_F(RunDetails, AreSavedInPlaceOfAnOlderFile) {
  host.files["/log.txt"] = std::string(5000, 'x');
  host.chosenFiles = {"/log.txt"};
  details.cmdSave.userClicked();
  EXPECT_EQ(host.files["/log.txt"], text);
}

TEST_F(RunDetails, ThatCannotBeSavedSayWhyAndStay) {
  host.diskFault = "No space left on device";
  host.chosenFiles = {"/log.txt"};
  host.expectBox("/log.txt\rNo space left on device");
  details.cmdSave.userClicked();
  EXPECT_TRUE(host.failures.empty());
  EXPECT_TRUE(isLoaded<frmRunDetails>());
}

TEST_F(RunDetails, AreNotSavedWithoutAName) {
  details.cmdSave.userClicked();
  EXPECT_TRUE(host.files.empty());
}

TEST_F(RunDetails, ArePrinted) {
  host.paper = std::make_shared<Paper>();
  details.cmdPrint.userClicked();
  const std::string printed = host.paper->asText();
  EXPECT_EQ(host.events.back(), "choose printer for Run Details");
  EXPECT_NE(printed.find("Run Details"), std::string::npos);
  EXPECT_NE(printed.find("second - failed: no answer"), std::string::npos) << printed;
}

TEST_F(RunDetails, OfAnyLengthStayOnThePaper) {
  host.paper = std::make_shared<Paper>();
  form<frmBigFolder>().lastRun.history.assign(100, {std::string(10'000, 'F'), true});
  details.cmdPrint.userClicked();
  EXPECT_GT(host.paper->pages, 1);
  for (const Imprint& run : host.paper->runs) {
    const int end = run.x + static_cast<int>(run.text.size()) * host.paper->pitch;
    EXPECT_LE(end, host.paper->width) << run.text;
  }
}

TEST_F(RunDetails, CloseByTheirButton) {
  details.cmdClose.userClicked();
  EXPECT_FALSE(isLoaded<frmRunDetails>());
}

}  // namespace

}  // namespace torvane
