// SPDX-License-Identifier: MIT
// Showing and committing a tab where it isn't plain: refused values, the reading format, shared boxes, the
// copies of the model.
#include <initializer_list>

#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using Showing = EditorTest;
using Committing = EditorTest;
using ReadingFormat = EditorTest;
using ModelCopies = EditorTest;

TEST_F(Showing, LeavesAListAsItWasOnAnIndexBeyondItAndGoesOn) {
  for (int wrong : {-32768, -2, 10, 32767}) {
    editor.lstTCTypes.setListIndex(3);
    Memo[rec::lstTCTypes].value = static_cast<std::int16_t>(wrong);
    Memo[rec::cboRTDValue].value = static_cast<std::int16_t>(wrong);
    Memo[rec::lstProc].value = 2;
    editor.lstProc.setListIndex(0);
    editor.loadMemo(2);
    EXPECT_EQ(editor.lstTCTypes.listIndex(), 3) << wrong;
    EXPECT_EQ(editor.cboRTDValue.listIndex(), 0) << wrong;
    EXPECT_EQ(editor.lstProc.listIndex(), 2) << wrong;
  }
}

TEST_F(Showing, LeavesAColorAsItWasOnAnIndexBeyondItsList) {
  Memo[rec::cboNormalColor].extra = 3;
  Memo[rec::chkSPDeviation].value = 1;
  editor.loadMemo(1);
  EXPECT_EQ(editor.cboNormalColor.listIndex(), 1);
  EXPECT_EQ(editor.chkSPDeviation.value(), 1);
}

TEST_F(Showing, LeavesABarAsItWasOnAPositionBeyondItsRangeAndGoesOn) {
  struct Case {
    int cycle;
    const char* low;
  };
  for (const auto& [cycle, low] :
       {Case{0, "100"}, Case{200, "-1"}, Case{-1, "1E999"}, Case{32767, "40000"}}) {
    Memo[rec::HSOut1CycleT].value = static_cast<std::int16_t>(cycle);
    Memo[rec::HSOut1Low].text = low;
    Memo[rec::HSOut1High].text = "98";
    Memo[rec::opt420mA].flag = True;
    editor.loadMemo(7);
    EXPECT_EQ(editor.HSOut1CycleT.value(), 4) << cycle;
    EXPECT_EQ(editor.HSOut1Low.value(), 0) << low;
    EXPECT_EQ(editor.HSOut1High.value(), 98);
    EXPECT_TRUE(editor.opt420mA.value());
  }
}

TEST_F(Showing, LeavesABoxAsItWasOnANumberThatCannotBe) {
  editor.txtSp1.setText("kept");
  Memo[rec::txtSp1].text = "1E999";
  Memo[rec::txtSp2].text = "3";
  editor.loadMemo(1);
  EXPECT_EQ(editor.txtSp1.text(), "kept");
  EXPECT_EQ(editor.txtSp2.text(), "003.0");
}

TEST_F(Showing, TakesTheNumberAtTheStartOfAnyText) {
  struct Case {
    const char* text;
    const char* shown;
  };
  for (const auto& [text, shown] : {Case{"", "000.0"}, Case{"abc", "000.0"}, Case{"12 F", "012.0"},
                                    Case{"-0.04", "000.0"}, Case{"&HFF", "255.0"}, Case{"1,5", "001.0"}}) {
    Memo[rec::txtSp1].text = text;
    editor.loadMemo(1);
    EXPECT_EQ(editor.txtSp1.text(), shown) << text;
  }
}

TEST_F(Showing, ShowsNoOptionWhenTheRecordsHaveNone) {
  for (int i = 0; i < 3; ++i) Memo[rec::optInType + i].flag = False;
  editor.loadMemo(2);
  EXPECT_FALSE(editor.optInType(0).value() || editor.optInType(1).value() || editor.optInType(2).value());
}

TEST_F(Showing, ShowsTheLastOptionWhenTheRecordsHaveSeveral) {
  for (int i = 0; i < 3; ++i) Memo[rec::optInType + i].flag = True;
  editor.loadMemo(2);
  EXPECT_TRUE(editor.optInType(2).value());
  EXPECT_EQ(mostOptionsSet(editor), 1);
}

TEST_F(Showing, AlwaysTicksTheIdCodeSoThatACommitPutsItInForce) {
  Memo[rec::chkIDEnabled].value = 0;
  showTab(6);
  EXPECT_EQ(editor.chkIDEnabled.value(), 1);
  EXPECT_EQ(Memo[rec::chkIDEnabled].value, 0);
  editor.writeMemo(6);
  EXPECT_EQ(Memo[rec::chkIDEnabled].value, 1);
}

TEST_F(Showing, LeavesTheManualPercentagesOfTheSecondFamilyAlone) {
  DeviceState.IsRkw77 = True;
  Memo[rec::HSOut1Low].text = "11";
  Memo[rec::HSOut1High].text = "22";
  Memo[rec::HSOut1CycleT].value = 33;
  editor.loadMemo(7);
  EXPECT_EQ(editor.HSOut1Low.value(), 0);
  EXPECT_EQ(editor.HSOut1High.value(), 99);
  EXPECT_EQ(editor.HSOut1CycleT.value(), 33);
}

TEST_F(Showing, ShowsADeadBandOnTheOutputAndOnTheAlarm) {
  Memo[rec::txtOut1DeadBand].text = "1.5";
  Memo[rec::txtOut2DeadBand].text = "2.5";
  editor.loadMemo(7);
  editor.loadMemo(8);
  EXPECT_EQ(editor.txtOut1DeadBand.text(), "001.5");
  EXPECT_EQ(editor.txtAl1Deadband.text(), "001.5");
  EXPECT_EQ(editor.txtOut2DeadBand.text(), "002.5");
  EXPECT_EQ(editor.txtAl2Deadband.text(), "002.5");
}

TEST_F(Showing, LeavesBandUnshownOnAListThatAbsoluteHasShortened) {
  editor.cboAl1Ctrl.setListIndex(1);
  editor.cboAl1Setup.setListIndex(1);
  Memo[rec::cboAl1Ctrl].value = 0;
  Memo[rec::cboAl1Setup].value = 3;
  Memo[rec::cboAl1Latch].value = 0;
  editor.loadMemo(4);
  EXPECT_EQ(editor.cboAl1Setup.listCount(), 3);
  EXPECT_EQ(editor.cboAl1Setup.listIndex(), 0);
  EXPECT_EQ(editor.cboAl1Latch.listIndex(), 0);
}

TEST_F(Committing, KeepsTheProtectionLevelOfTabNoughtWithTheSetpoints) {
  showTab(0);
  editor.optIDCode(2).userClicked();
  editor.writeMemo(0);
  EXPECT_EQ(Memo[rec::optIDCode].flag, True);
  showTab(1);
  EXPECT_EQ(Memo[rec::optIDCode + 2].flag, True);  // the arrival commits the tab
  EXPECT_EQ(Memo[rec::optIDCode].flag, False);
}

TEST_F(Committing, LosesTheProtectionLevelWhenItsTabIsShownAgainFirst) {
  showTab(0);
  editor.optIDCode(2).userClicked();
  showTab(3);
  showTab(0);
  EXPECT_TRUE(editor.optIDCode(0).value());
  EXPECT_EQ(Memo[rec::optIDCode + 2].flag, False);
}

TEST_F(Committing, TakesTheDeadBandOfTheAlarmTabInTheSimpleMenuAlone) {
  for (int menu : {0, 1, 2, 3}) {
    Memo[rec::menuKind].extra = static_cast<std::int16_t>(menu);
    editor.txtOut1DeadBand.setText("out 1");
    editor.txtAl1Deadband.setText("alarm 1");
    editor.txtOut2DeadBand.setText("out 2");
    editor.txtAl2Deadband.setText("alarm 2");
    editor.writeMemo(7);
    EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, menu == 2 ? "alarm 1" : "out 1");
    editor.writeMemo(8);
    EXPECT_EQ(Memo[rec::txtOut2DeadBand].text, menu == 2 ? "alarm 2" : "out 2");
  }
}

TEST_F(Committing, OfATabThatIsNoneDoesNothing) {
  Memo[rec::menuKind].extra = menu::simple;
  editor.txtAl1Deadband.setText("alarm 1");
  const MemoArray before = Memo;
  for (const std::int16_t tab : std::initializer_list<std::int16_t>{-1, 12}) {
    editor.writeMemo(tab);
    EXPECT_EQ(Memo, before) << tab;
    EXPECT_EQ(editor.txtOut1DeadBand.text(), "020.0") << tab;
  }
}

TEST_F(Committing, TakesTheManualPercentagesOfTheSecondFamilyAsTheBarsStand) {
  DeviceState.IsRkw77 = True;
  Memo[rec::HSOut1Low].text = "11";
  editor.loadMemo(7);
  editor.writeMemo(7);
  EXPECT_EQ(Memo[rec::HSOut1Low].text, "0");
}

TEST_F(Committing, KeepsNoChoiceAsMinusOne) {
  editor.cboNormalColor.setListIndex(-1);
  editor.lstTCTypes.setListIndex(-1);
  editor.reCover();
  EXPECT_EQ(Memo[rec::cboNormalColor].extra, -1);
  EXPECT_EQ(Memo[rec::lstTCTypes].value, -1);
}

TEST_F(Committing, StoresWhatWasTypedWithoutCheckingIt) {
  editor.txtLBATime.setText("99:99:99");
  editor.txtAOutOut2.setText("\xC3\xA4 1E999");
  editor.reCover();
  EXPECT_EQ(Memo[rec::txtLBATime].text, "99:99:99");
  EXPECT_EQ(Memo[rec::txtAOutOut2].text, "\xC3\xA4 1E999");
}

TEST_F(Committing, OfAllTabsBringsEveryControlIntoTheImage) {
  editor.txtIDCode.setText("1234");
  editor.txtSp2.setText("22");
  editor.txtTCPPort.setText("4711");
  editor.chkSoakEn.setValue(1);
  editor.reCover();
  EXPECT_EQ(Memo[rec::txtIDCode].text, "1234");
  EXPECT_EQ(Memo[rec::txtSp2].text, "22");
  EXPECT_EQ(Memo[rec::txtTCPPort].text, "4711");
  EXPECT_EQ(Memo[rec::chkSoakEn].value, 1);
}

TEST_F(ReadingFormat, FollowsTheControlsAndNotTheRecords) {
  const char* pictures[] = {"0000.", "000.0", "00.00", "0.000"};
  const char* shown[] = {"0012.", "012.3", "12.35", "12.346"};
  for (std::size_t format = 0; format < 4; ++format) {
    if (format == 3) host.expectBox("Reenter setpoints");
    editor.optDpoint(format).setValue(true);
    EXPECT_EQ(editor.formDPt(), pictures[format]);
    Memo[rec::txtSp1].text = "12.3456";
    editor.loadMemo(1);
    EXPECT_EQ(editor.txtSp1.text(), shown[format]);
    EXPECT_EQ(Memo[rec::optDpoint + 1].flag, True);
  }
}

TEST_F(ReadingFormat, HasThreeDecimalsWhenNoneIsChosen) {
  editor.optDpoint(1).setValue(false);
  EXPECT_EQ(editor.formDPt(), "0.000");
}

TEST_F(ReadingFormat, ReachesEveryBoxThatHoldsAReading) {
  editor.optDpoint(2).setValue(true);
  for (int record : {1, 2, 29, 30, 36, 37, 41, 53, 54, 61, 62}) Memo[record].text = "1.234";
  for (int tab : {1, 4, 5, 6, 7, 8}) editor.loadMemo(static_cast<std::int16_t>(tab));
  for (const TextBox* box :
       {&editor.txtSp1, &editor.txtSp2, &editor.txtAl1HiSp, &editor.txtAl1LoSp, &editor.txtAl2HiSp,
        &editor.txtAl2LoSp, &editor.txtTAdjust, &editor.txtOut1DeadBand, &editor.txtAl1Deadband,
        &editor.txtOut1PB, &editor.txtOut2DeadBand, &editor.txtAl2Deadband, &editor.txtOut2PB}) {
    EXPECT_EQ(box->text(), "01.23") << box->name();
  }
}

TEST_F(ModelCopies, ComeFromTheImageWhenTheLastTabIsShown) {
  Memo[98].extra = 4;
  Memo[99].extra = 1;
  Memo[100] = {0, 0, "77", 12};
  Memo[101].extra = 2;
  editor.loadMemo(11);
  EXPECT_EQ(DeviceState.DeviceClass, 4);
  EXPECT_EQ(DeviceState.IdFlagC, 1);
  EXPECT_EQ(DeviceState.SpareLong, 12);
  EXPECT_EQ(DeviceState.MenuKind, 2);
}

TEST_F(ModelCopies, GoToTheImageWhenTheLastTabIsCommitted) {
  DeviceState.DeviceClass = 4;
  DeviceState.IdFlagC = 1;
  DeviceState.SpareLong = -2000000;
  DeviceState.MenuKind = 2;
  Memo[100] = {};
  Memo[102] = {1, 0, "", 9};
  editor.writeMemo(11);
  EXPECT_EQ(Memo[98].extra, 4);
  EXPECT_EQ(Memo[99].extra, 1);
  EXPECT_EQ(Memo[100], (MemoField{0, 0, "-2000000", 0}));
  EXPECT_EQ(Memo[101].extra, 2);
  EXPECT_EQ(Memo[102], (MemoField{1, 0, "", 0}));
}

TEST_F(ModelCopies, DoNotBringTheSpareNumberRound) {
  DeviceState.SpareLong = 5;
  editor.writeMemo(11);
  editor.loadMemo(11);
  EXPECT_EQ(DeviceState.SpareLong, 0);
}

}  // namespace

}  // namespace torvane
