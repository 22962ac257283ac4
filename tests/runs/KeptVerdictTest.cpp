// SPDX-License-Identifier: MIT
// Whole runs and what stays of them: the marked history, its sum, and the line on the main window.
#include "core/Global.h"
#include "core/Memo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class KeptVerdict : public RunBench {
 protected:
  const std::string& line() { return form<frmBigFolder>().lblVerdict.caption(); }
  const RunRecord& record() { return form<frmBigFolder>().lastRun; }
};

TEST_F(KeptVerdict, OfAGoodWriteNamesPortWayAndUnit) {
  chooseSetup();
  runWrite();
  EXPECT_TRUE(line().starts_with("Good: ")) << line();
  EXPECT_NE(line().find("COM 1, 9600,o,7,1, write to Torvane"), std::string::npos) << line();
  EXPECT_EQ(form<frmBigFolder>().lblVerdict.mark(), Mark::none);
  EXPECT_TRUE(form<frmBigFolder>().cmdDetails.enabled());
  EXPECT_EQ(record().history.back().text, summaryOf(record().outcome));
  EXPECT_TRUE(record().outcome.passed());
}

TEST_F(KeptVerdict, OfAReadThatWasStoppedNamesTheTabsThatAreOld) {
  cancelAt("Reading Alarm 1 High");
  runRead();
  EXPECT_TRUE(line().starts_with("STOPPED: ")) << line();
  EXPECT_NE(line().find("show the old setup"), std::string::npos) << line();
  EXPECT_EQ(line().find("Input type"), std::string::npos) << line();
}

TEST_F(KeptVerdict, OfARunWithoutAUnitSaysSo) {
  unit.faults.silentAfter = 0;
  host.expectBox("Communication with controller cannot be established");
  runWrite();
  EXPECT_TRUE(line().starts_with("FAILED: ")) << line();
  EXPECT_TRUE(line().find("No unit answered. Nothing answers: check power and cable") != line().npos)
      << line();
}

// A unit that falls silent in the middle: each register that did not take is marked, with a reason.
TEST_F(KeptVerdict, OfABadReadMarksEveryFailedRegisterWithItsReason) {
  unit.faults.silentAfter = 20;
  runRead();
  const auto failed = record().outcome.count(Verdict::failed);
  EXPECT_GT(failed, 0U);
  std::size_t marked = 0;
  for (const HistoryLine& each : record().history) {
    if (each.text.find(" - failed: ") == std::string::npos) continue;
    EXPECT_TRUE(each.failed) << each.text;
    ++marked;
  }
  EXPECT_EQ(marked, failed);
  EXPECT_EQ(form<frmBigFolder>().lblVerdict.mark(), Mark::error);
}

TEST_F(KeptVerdict, GoesWhenTheNextRunBegins) {
  runRead();
  ASSERT_FALSE(line().empty());
  std::string meanwhile = "?";
  host.expect([this] { return status().starts_with("Reading Reading"); }, [&] { meanwhile = line(); });
  runRead();
  EXPECT_EQ(meanwhile, "");
  EXPECT_FALSE(line().empty());
}

}  // namespace

}  // namespace torvane
