// SPDX-License-Identifier: MIT
// What is in the way to a unit: shown in the last line of the run, on the main window and on the tab Comm.
#include "runs/NoWay.h"

#include "core/Memo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class NoWayToTheUnit : public RunBench {
 protected:
  void expectAdvice(const char* advice) {
    EXPECT_NE(lastLine().find(advice), std::string::npos) << lastLine();
    EXPECT_NE(form<frmBigFolder>().lblVerdict.caption().find(advice), std::string::npos);
  }
  std::string lastLine() { return window().lstNarrative.items().back(); }
};

TEST_F(NoWayToTheUnit, OfASilentUnitSaysWhatToCheck) {
  unit.faults.silentAfter = 0;
  host.expectBox(noUnitMessage);
  runWrite();
  expectAdvice(noWay::silent.advice);
}

TEST_F(NoWayToTheUnit, OfALoopSaysThatTheLineEchoes) {
  unit.faults.loopback = 1000;
  host.toleratesBoxes = true;
  runWrite();
  expectAdvice(noWay::loop.advice);
}

TEST_F(NoWayToTheUnit, OfAnotherDeviceSaysSo) {
  unit.faults.answers = {{"", "hi"}};
  host.toleratesBoxes = true;
  runWrite();
  expectAdvice(noWay::otherDevice.advice);
}

TEST_F(NoWayToTheUnit, OfAPortThatWouldNotOpenNeverBlamesTheUnit) {
  window().MSComm1->commPort = 9;
  host.lines[9].openFault = "Permission denied";
  host.toleratesBoxes = true;
  runWrite();
  expectAdvice("COM 9 here");
  EXPECT_NE(lastLine().find("no unit was asked"), std::string::npos);
}

TEST_F(NoWayToTheUnit, WithoutAChosenPortSaysWhatToDoFirst) {
  window().MSComm1->commPort = 0;
  host.toleratesBoxes = true;
  runWrite();
  expectAdvice(noWay::noPortChosen.advice);
}

TEST_F(NoWayToTheUnit, OfAGoodRunSaysNothing) {
  runWrite();
  EXPECT_TRUE(window().run.outcome.advice.empty());
}

TEST_F(NoWayToTheUnit, StandsOnTheTabComm) {
  auto& editor = form<frmBigFolder>();
  editor.tabBig.setTab(tab::comm);
  editor.cboCommPort.setListIndex(-1);
  EXPECT_EQ(editor.txtPortHelp.text(), noWay::noPortChosen.advice);
  editor.cboCommPort.userChose(3);
  EXPECT_EQ(editor.txtPortHelp.text(), "COM 4 here");
  editor.optCommunicationMode(1).userClicked();
  EXPECT_FALSE(editor.txtPortHelp.visible());
}

TEST(NoWay, OfARunThatLostItsPortSaysHowToGoOn) {
  RunOutcome outcome;
  outcome.registers = {{.reg = "01", .verdict = Verdict::failed, .reason = "port gone: Input/output error"}};
  EXPECT_EQ(adviceFor(outcome, ""), noWay::unplugged.advice);
}

}  // namespace

}  // namespace torvane
