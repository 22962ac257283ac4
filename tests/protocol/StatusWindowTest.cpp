// SPDX-License-Identifier: MIT
// The communications status window: narrative, bar, Cancel, and what a showing does.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class StatusWindow : public RunBench {
 protected:
  using RunBench::RunBench;

  // The user acts when the end of the run is on the screen.
  void whenDone(std::function<void()> act) {
    host.expect([this] { return window().cmdCancel.caption() == "Close"; }, std::move(act));
  }
};

// ---- narrative and bar

TEST_F(StatusWindow, IsTitledAndOffersCancel) {
  EXPECT_EQ(window().caption(), "Communications Status");
  EXPECT_EQ(window().cmdCancel.caption(), "Cancel");
}

TEST_F(StatusWindow, ReplacesOrAppendsToTheStatusText) {
  window().upStat(true, "one");
  EXPECT_EQ(status(), "one");
  window().upStat(true, "\rtwo");
  EXPECT_EQ(status(), "one\rtwo");
  window().upStat(false, "three");
  EXPECT_EQ(status(), "three");
}

TEST_F(StatusWindow, KeepsALineForEachStatusInItsNarrative) {
  window().upStat(false, "one\r");
  window().upStat(true, "more");
  window().upStat(false, "two");
  EXPECT_EQ(window().lstNarrative.items(), (Lines{"one more", "two"}));
  EXPECT_EQ(window().lstNarrative.listIndex(), 1);
}

// A peer may say anything: what is kept of it has a bound, and the outcome at its end is kept.
TEST_F(StatusWindow, KeepsOfAnEndlessTextItsBeginningAndItsEnd) {
  for (const std::string piece : {"F", "\xC3\xA4"}) {
    std::string reply;
    while (reply.size() < 1'000'000) reply += piece;
    window().upStat(false, "Reading Input Type...\r");
    for (int round = 0; round < 20; ++round) window().upStat(true, reply);
    window().upStat(true, "Fail");
    EXPECT_LT(status().size(), 2100U);
    EXPECT_TRUE(status().starts_with("Reading Input Type...\r" + piece));
    EXPECT_TRUE(status().ends_with(piece + "Fail"));
    EXPECT_LT(window().lstNarrative.items().back().size(), 2100U);
    for (std::size_t at = status().find(piece); status().compare(at, 3, "...") != 0; at += piece.size()) {
      ASSERT_EQ(status().substr(at, piece.size()), piece) << "a character cut in two at " << at;
    }
  }
}

TEST_F(StatusWindow, RepaintsTheStatusTextAtOnce) {
  int painted = 0;
  window().lblStatus.onRefresh = [&painted] { ++painted; };
  window().upStat(false, "one");
  window().upStat(true, "two");
  EXPECT_EQ(painted, 2);
}

TEST_F(StatusWindow, ShowsThePercentAsBarAndNumber) {
  for (const auto& [percent, width] : {std::pair{0, 0}, {3, 122}, {50, 2047}, {97, 3972}, {100, 4095}}) {
    window().upProg(static_cast<std::int16_t>(percent));
    EXPECT_EQ(window().lblProgress.value(), width);
    EXPECT_EQ(window().lblPercent.caption(), std::to_string(percent) + "%");
  }
  EXPECT_EQ(window().lblProgress.max(), 4095);
}

// ---- loading

TEST_F(StatusWindow, TakesPortAndLineSettingsFromTheMainWindowAsItLoads) {
  torvane::unload<frmSerial>();
  form<frmBigFolder>().MSComm1->commPort = 7;
  form<frmBigFolder>().MSComm1->settings = "19200,e,8,2";
  auto& loaded = form<frmSerial>();
  EXPECT_EQ(loaded.MSComm1->commPort, 7);
  EXPECT_EQ(loaded.MSComm1->settings, "19200,e,8,2");
  EXPECT_EQ(loaded.Animation1.file(), "/program/search.avi");
  EXPECT_TRUE(loaded.Animation1.visible());
  EXPECT_EQ(std::ranges::count(host.events, "centre frmSerial"), 2);
}

TEST_F(StatusWindow, LoadsWithoutAPortWhenItsFirstAnimationIsMissing) {
  torvane::unload<frmSerial>();
  host.missingFiles.insert("/program/search.avi");
  EXPECT_EQ(form<frmSerial>().MSComm1->commPort, 0);
}

TEST_F(StatusWindow, ClosesThePortAsItUnloads) {
  window().MSComm1->open();
  window().Form_Unload();
  EXPECT_FALSE(window().MSComm1->isOpen());
}

// ---- a run from end to end

TEST_F(StatusWindow, TellsTheProbeAndMovesToThreePercent) {
  runWrite();
  const std::string looking = "Looking for Torvane or LARKSPUR...";
  const Lines probe = {"0%",
                       looking,
                       looking + "\rGot: R02200000",
                       looking + "\rGot: R02200000 So far so good...",
                       "Looking for version#...\r",
                       "Looking for version#...\rVersion is: 1.4\rTorvane TMP Controller found",
                       "3%"};
  ASSERT_GT(narrative.lines.size(), probe.size());
  EXPECT_EQ(Lines(narrative.lines.begin(), narrative.lines.begin() + 7), probe);
}

TEST_F(StatusWindow, PlaysTheSecondAnimationDuringTheRunAndHidesItAtTheEnd) {
  host.expect([this] { return status().starts_with("Configuring Reading..."); },
              [this] {
                EXPECT_EQ(window().Animation1.file(), "/program/filecopy.avi");
                EXPECT_TRUE(window().Animation1.visible());
              });
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_FALSE(window().Animation1.visible());
}

TEST_F(StatusWindow, GoesOnWithoutTheSecondAnimation) {
  chooseSetup();
  host.missingFiles.insert("/program/filecopy.avi");
  runWrite();
  EXPECT_EQ(window().Animation1.file(), "/program/search.avi");
  EXPECT_EQ(unit.registerHex("01"), "2004D2");
}

TEST_F(StatusWindow, StoresWhatTheTabsShowBeforeItWrites) {
  form<frmBigFolder>().txtSp1.setText("011.1");
  form<frmBigFolder>().txtIDCode.setText("0007");
  form<frmBigFolder>().HSOut1CycleT.setValue(33);
  runWrite();
  EXPECT_EQ(Memo[rec::txtSp1].text, "011.1");
  EXPECT_EQ(unit.registerHex("01"), "20006F");
  EXPECT_EQ(unit.registerHex("05"), "0007");
  EXPECT_EQ(unit.registerHex("1A"), "21");
}

TEST_F(StatusWindow, StaysForASecondThenGoes) {
  double done = 0;
  window().cmdCancel.onRedraw = [&] { done = host.clock; };
  runWrite();
  EXPECT_GT(host.clock - done, 1.0);
  EXPECT_LT(host.clock - done, 1.1);
  EXPECT_FALSE(window().visible());
  EXPECT_EQ(window().cmdCancel.caption(), "Close");
}

TEST_F(StatusWindow, IsActiveBetweenShowingAndHiding) {
  whenDone([this] { EXPECT_EQ(window().windowActive, True); });
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(window().windowActive, False);
}

TEST_F(StatusWindow, BeginsEachRunWithCancelAndAnEmptyBar) {
  runWrite();
  narrative.lines.clear();
  std::string caption;
  host.expect([this] { return status().starts_with("Looking for"); },
              [&] { caption = window().cmdCancel.caption(); });
  runWrite();
  EXPECT_EQ(narrative.lines.front(), "0%");
  EXPECT_EQ(caption, "Cancel");
}

TEST_F(StatusWindow, BeginsItsNarrativeAfreshWithEachRun) {
  runRead();
  const Lines first = window().lstNarrative.items();
  runRead();
  EXPECT_EQ(window().lstNarrative.items(), first);
  EXPECT_EQ(first.front(), "Looking for Torvane or LARKSPUR... Got: R02200000 So far so good...");
}

TEST_F(StatusWindow, SaysWhatItTalksTo) {
  runWrite();
  EXPECT_EQ(window().lblTarget.caption(), "COM 1, 9600,o,7,1");
  Hardware.BusMode = 3;
  Hardware.BusAddress = 17;
  unit.faults.silentAfter = 0;
  host.expectBox(noUnitMessage);
  runWrite();
  EXPECT_EQ(window().lblTarget.caption(), "COM 1, 9600,o,7,1, address 17");
}

// ---- no unit

class NoUnitAnswers : public StatusWindow {
 protected:
  NoUnitAnswers() {
    unit.faults.silentAfter = 0;
    form<frmBigFolder>().txtSp1.setText("011.1");
    host.expectBox(noUnitMessage, Answer::ok, [this] { shownAfterTheBox = window().visible(); });
  }
  bool shownAfterTheBox = true;
};

TEST_F(NoUnitAnswers, TellsTheSearchAndStopsThere) {
  runWrite();
  const std::string looking = "Looking for Torvane or LARKSPUR...";
  EXPECT_EQ(narrative.lines, (Lines{"0%", looking, looking + "\rGot: Timeout\r",
                                    looking + "\rGot: Timeout\rNo response.  TimeOut occurred.",
                                    "Looking for version#...\r", "Looking for version#...\rnot Ok"}));
}

TEST_F(NoUnitAnswers, HidesTheWindowBeepsAndSaysSo) {
  runWrite();
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, noUnitMessage);
  EXPECT_EQ(host.boxes[0].icon, Icon::critical);
  EXPECT_EQ(host.boxes[0].buttons, Buttons::ok);
  EXPECT_FALSE(shownAfterTheBox);
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(NoUnitAnswers, LeavesTheRecordsAsTheyWere) {
  std::vector<MemoField> before;
  for (int record = 0; record < MemoArray::count; ++record) before.push_back(Memo[record]);
  runWrite();
  for (int record = 0; record < MemoArray::count; ++record) {
    EXPECT_EQ(Memo[record], before[static_cast<std::size_t>(record)]) << record;
  }
}

TEST_F(NoUnitAnswers, SendsTheProbeAndNoWriteNorReset) {
  Global.ResetAfterWrite = True;
  runWrite();
  EXPECT_EQ(unit.commands(), (Lines{"*R02", "*U03", "*U03", "*U03"}));
}

TEST_F(NoUnitAnswers, LeavesTheReadDueForTheChooserToClear) {
  runRead();
  EXPECT_EQ(Global.ReadConfirmed, 1);
}

TEST_F(NoUnitAnswers, IsNotUnloadedByAnEarlierTest) {
  Global.DetectionDone = 1;
  runWrite();
  EXPECT_TRUE(isLoaded<frmSerial>());
}

// ---- Cancel and Close

TEST_F(StatusWindow, AsksBeforeItCancels) {
  cancelAt("Configuring Reading...");
  runWrite();
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, cancelQuestion);
  EXPECT_EQ(host.boxes[0].icon, Icon::question);
  EXPECT_EQ(host.boxes[0].buttons, Buttons::noYes);
}

TEST_F(StatusWindow, OnlyNotesACancelAndStaysOpen) {
  host.expectBox(cancelQuestion, Answer::yes);
  host.expect([this] { return status().starts_with("Configuring Reading..."); },
              [this] {
                window().cmdCancel.userClicked();
                EXPECT_EQ(Global.CancelFlag, True);
                EXPECT_TRUE(window().visible());
                EXPECT_EQ(window().cmdCancel.caption(), "Cancel");
              });
  runWrite();
  EXPECT_TRUE(host.scriptDone());
}

TEST_F(StatusWindow, ClosedByItsFrameDuringARunAsksLikeCancel) {
  host.expectBox(cancelQuestion, Answer::yes);
  host.expect([this] { return status().starts_with("Configuring Reading..."); },
              [this] { window().userClosed(); });
  runWrite();
  EXPECT_EQ(commandsOfRun().back(), "*R08");
  EXPECT_TRUE(status().ends_with("Done\r"));
  EXPECT_TRUE(isLoaded<frmSerial>());
}

TEST_F(StatusWindow, ClosedByItsFrameAndAnsweredNoGoesOn) {
  host.expectBox(cancelQuestion, Answer::no);
  host.expect([this] { return status().starts_with("Configuring Reading..."); },
              [this] { window().userClosed(); });
  runWrite();
  EXPECT_EQ(status(), " Bus Format ......\rDone\r");
}

struct Closing {
  const char* name;
  void (*act)(frmSerial& window);
};

std::ostream& operator<<(std::ostream& out, const Closing& closing) { return out << closing.name; }

class CloseInTheLastSecond : public StatusWindow, public testing::WithParamInterface<Closing> {};

TEST_P(CloseInTheLastSecond, HidesTheWindowALittleEarlyWithoutAQuestion) {
  host.events.clear();
  whenDone([this] {
    GetParam().act(window());
    EXPECT_FALSE(window().visible());
  });
  runWrite();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(std::ranges::count(host.events, "hide frmSerial"), 1);
  EXPECT_TRUE(isLoaded<frmSerial>());
}

constexpr Closing closings[] = {
    {"ByItsButton", [](frmSerial& window) { window.cmdCancel.userClicked(); }},
    {"ByItsFrame", [](frmSerial& window) { window.userClosed(); }},
};

INSTANTIATE_TEST_SUITE_P(EitherWay, CloseInTheLastSecond, testing::ValuesIn(closings),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- what a showing does

TEST_F(StatusWindow, UnloadsAtOnceWhenItIsShownAgainAfterARead) {
  runRead();
  unit.takeLog();
  window().readMode = True;
  window().showModal();
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_TRUE(unit.commands().empty());
}

TEST_F(StatusWindow, StaysLoadedAndHiddenAfterARead) {
  runRead();
  EXPECT_TRUE(isLoaded<frmSerial>());
  EXPECT_FALSE(window().visible());
}

TEST_F(StatusWindow, KeepsThePortOfItsFirstLoadInTheNextRead) {
  runRead();
  unit.takeLog();
  form<frmBigFolder>().MSComm1->commPort = 3;
  runRead();
  EXPECT_EQ(commandsOfRun(), readTraffic(false));
}

TEST_F(StatusWindow, ForgetsThatItWasAConnectionTestAndWritesNothing) {
  Global.AutoDetect = True;
  host.expect([this] { return window().visible(); }, [this] { window().hide(); });
  window().showModal();
  EXPECT_EQ(Global.AutoDetect, False);
  EXPECT_EQ(unit.count("W"), 0U);
}

TEST_F(StatusWindow, UnloadsAfterATestThatIsDone) {
  Global.DetectionDone = 1;
  runWrite();
  EXPECT_FALSE(isLoaded<frmSerial>());
}

}  // namespace

}  // namespace torvane
