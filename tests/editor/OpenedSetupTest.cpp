// SPDX-License-Identifier: MIT
// A setup that is opened comes back as it was, but for what the table of forced rules names, and whatever the
// window showed before.
#include <algorithm>
#include <set>

#include "core/ConfigFile.h"
#include "core/NumberText.h"
#include "editor/ForcedRules.h"
#include "protocol/Encoders.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

constexpr int lastOfTheUnit = rec::optNoChange;

using Image = std::vector<MemoField>;

Image imageNow() {
  Image image;
  for (int record = 0; record <= lastOfTheUnit; ++record) image.push_back(Memo[record]);
  return image;
}

bool isLineOfThisComputer(int record) { return record >= rec::cboCommPort && record <= rec::cboStop; }

bool sameText(const std::string& one, const std::string& other) {
  const bool time = one.find(':') != one.npos;
  return one == other || (!time && Val(one) == Val(other));
}

bool meansTheSame(const MemoField& one, const MemoField& other) {
  return one.value == other.value && one.flag == other.flag && one.extra == other.extra &&
         sameText(one.text, other.text);
}

std::set<int> forcedNow() {
  std::set<int> records;
  for (const ForcedRule& rule : forcedRules()) {
    if (rule.holds()) records.insert(rule.records.begin(), rule.records.end());
  }
  return records;
}

class OpenedSetup : public EditorTest {
 protected:
  std::mt19937 random{1};

  OpenedSetup() { host.toleratesBoxes = true; }

  void anySetup() {
    chooseUnit(between(random, 0, 4), between(random, 0, 3) == 0);
    Memo[rec::deviceClass].extra = static_cast<std::int16_t>(DeviceState.DeviceClass);
    fillRandomMemo(random);
  }

  void fit() {
    editor.SilentSetup = True;
    editor.cmdCnfg_Click();
  }

  void expectKept(const Image& before, const std::set<int>& forced, int round) {
    for (int record = 0; record <= lastOfTheUnit; ++record) {
      if (forced.contains(record) || isLineOfThisComputer(record)) continue;
      const MemoField& was = before[static_cast<std::size_t>(record)];
      EXPECT_TRUE(meansTheSame(was, Memo[record]))
          << round << ", kind " << meterKind() << ", record " << record << " was " << was.value << " '"
          << was.text << "', is " << Memo[record].value << " '" << Memo[record].text << "'";
    }
  }
};

TEST_F(OpenedSetup, OfAnyKindKeepsWhatNoRuleForces) {
  Global.WarningsOff = True;
  for (int round = 0; round < trials(10000) && !HasFailure(); ++round) {
    anySetup();
    const Image before = imageNow();
    const std::set<int> forced = forcedNow();
    editor.showRecords();
    fit();
    editor.writeMemo(0);
    expectKept(before, forced, round);
  }
}

TEST_F(OpenedSetup, FromAFileKeepsIt) {
  Global.WarningsOff = True;
  host.whenever("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  for (int round = 0; round < trials(300) && !HasFailure(); ++round) {
    anySetup();
    const Image before = imageNow();
    const std::set<int> forced = forcedNow();
    host.files["/a.cfg"] = configModelPart(1) + configSetupPart(1, 1);
    anySetup();
    editor.showRecords();
    editor.FileOpen("/a.cfg");
    editor.reCover();
    expectKept(before, forced, round);
  }
}

// However strange the texts in it are: nothing that stood in a box before goes to a unit in their place.
TEST_F(OpenedSetup, FromAnyFileIsTheSameWhateverWasThereBefore) {
  Global.WarningsOff = True;
  host.whenever("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  const auto openedAfterAnother = [this] {
    anySetup();
    editor.showRecords();
    fit();
    editor.tabBig.setTab(0);
    editor.FileOpen("/a.cfg");
    editor.commitForRun();
    return imageNow();
  };
  for (int round = 0; round < trials(300) && !HasFailure(); ++round) {
    anySetup();
    for (const SetupBox& box : setupBoxes()) {
      if (between(random, 0, 3) == 0) Memo[box.record].text = anyText(random);
    }
    host.files["/a.cfg"] = configModelPart(1) + configSetupPart(1, 1);
    const Image first = openedAfterAnother();
    const Image second = openedAfterAnother();
    for (std::size_t record = 0; record < first.size(); ++record)
      EXPECT_TRUE(first[record] == second[record]) << round << ", record " << record;
  }
}

TEST_F(OpenedSetup, FromATemperatureWithThreeDecimalsHasOne) {
  host.whenever("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  chooseOption(rec::optInType, 3, 0);
  chooseOption(rec::optDpoint, 4, 3);
  Memo[rec::txtSp1].text = "1.234";
  host.files["/a.cfg"] = configModelPart(1) + configSetupPart(1, 1);
  editor.FileOpen("/a.cfg");
  editor.reCover();
  EXPECT_EQ(Memo[rec::optDpoint + 1].flag, True);
  EXPECT_EQ(Memo[rec::optDpoint + 3].flag, False);
  EXPECT_TRUE(editor.optDpoint(1).value());
  EXPECT_EQ(Memo[rec::txtSp1].text, "001.2");
}

TEST_F(OpenedSetup, ShowsTheNearestThingThatAControlHas) {
  Memo[rec::HSOut1CycleT].value = 250;
  Memo[rec::HSOut2CycleT].value = -4;
  Memo[rec::HSOut1High].text = "150";
  Memo[rec::cboRTDValue].value = 3;
  Memo[rec::lstProc].value = 9;
  Memo[rec::cboAl1Setup].value = -1;
  editor.showRecords();
  EXPECT_EQ(editor.HSOut1CycleT.value(), 199);
  EXPECT_EQ(editor.HSOut2CycleT.value(), 0);
  EXPECT_EQ(editor.HSOut1High.value(), 99);
  EXPECT_EQ(editor.cboRTDValue.listIndex(), 2);
  EXPECT_EQ(editor.lstProc.listIndex(), 3);
  EXPECT_EQ(editor.cboAl1Setup.text(), "Above");
}

TEST_F(OpenedSetup, IsShownAndCommittedInAsManyStepsAsThereAreTabs) {
  int steps = 0;
  editor.showRecords([&steps] { ++steps; });
  EXPECT_EQ(steps, 12);
  editor.commitForRun([&steps] { ++steps; });
  EXPECT_EQ(steps, 24);
}

TEST_F(OpenedSetup, OfTheRkw77LineCommitsItsOwnPercentages) {
  Memo[rec::HSOut1Low].text = "10";
  Memo[rec::HSOut1High].text = "90";
  editor.showRecords();
  chooseUnit(kind::rkw77, false);
  Memo[rec::HSOut1Low].text = "25";
  Memo[rec::HSOut1High].text = "75";
  editor.showRecords();
  editor.reCover();
  EXPECT_EQ(Memo[rec::HSOut1Low].text, "25");
  EXPECT_EQ(Memo[rec::HSOut1High].text, "75");
}

TEST_F(OpenedSetup, OffersTheActionThatASimpleMenuBeforeItTookAway) {
  chooseUnit(kind::simpleMenu, false);
  editor.showRecords();
  fit();
  chooseUnit(kind::fullController, false);
  Memo[rec::cboAl1Setup].value = Memo[rec::cboAl2Setup].value = 2;
  editor.showRecords();
  editor.reCover();
  EXPECT_EQ(Memo[rec::cboAl1Setup].value, 2);
  EXPECT_EQ(Memo[rec::cboAl2Setup].value, 2);
}

// ---- what no state of the window may hold

std::string doubledItem(const ComboBox& list) {
  const auto& items = list.items();
  for (const std::string& item : items) {
    if (std::ranges::count(items, item) > 1) return item;
  }
  return "";
}

class AnyWay : public OpenedSetup {
 protected:
  // Only what a user can choose: a list always keeps a choice.
  void touch(Control& control) {
    if (!control.reachable()) return;
    if (auto* check = dynamic_cast<CheckBox*>(&control)) check->userClicked();
    if (auto* option = dynamic_cast<OptionButton*>(&control)) option->userClicked();
    if (auto* list = dynamic_cast<ListControl*>(&control)) {
      list->userChose(between(random, 0, list->listCount() - 1));
    }
  }

  void step() {
    const int kindOfStep = between(random, 0, 9);
    if (kindOfStep == 0) return showTab(between(random, 0, 10));
    if (kindOfStep == 1) return fit();
    if (kindOfStep == 2) return chooseUnit(between(random, 0, 4), between(random, 0, 1) == 1);
    touch(*editor.controls[static_cast<std::size_t>(
        between(random, 0, static_cast<int>(editor.controls.size()) - 1))]);
  }

  // A line may take more digits than its register has; another test looks at that.
  void expectPayloadsThatFit(int round) {
    for (const RegisterUnderTest& reg : allRegisters()) {
      const std::string payload = reg.make().payload;
      if (!payload.starts_with('!')) EXPECT_EQ(payload.size(), reg.width) << round << " " << reg.index;
    }
  }
};

TEST_F(AnyWay, NoListOffersAnItemTwiceOrLosesItsChoiceAndEveryPayloadFits) {
  for (int round = 0; round < trials(10000) && !HasFailure(); ++round) {
    for (int count = 0; count < 20; ++count) step();
    for (const ComboBox* list : {&editor.cboAl1Setup, &editor.cboAl2Setup}) {
      EXPECT_EQ(doubledItem(*list), "") << round;
      EXPECT_GE(list->listIndex(), 0) << round;
    }
    editor.commitForRun();
    expectPayloadsThatFit(round);
  }
}

// ---- numbers that no box can show

TEST_F(OpenedSetup, OfANumberTooLargeShowsTheEndOfItsRangeAndNothingOfTheSetupBefore) {
  for (const SetupBox& box : setupBoxes()) {
    const AnyControl control = controlOf(editor, box);
    if (box.copy == Copy::plain || !std::holds_alternative<TextBox*>(control)) continue;
    const TextBox& text = *std::get<TextBox*>(control);
    const std::string usual = Memo[box.record].text;
    Memo[box.record].text = "5";
    editor.showRecords();
    Memo[box.record].text = "1E999";
    editor.showRecords();
    EXPECT_EQ(text.text(), repair(*box.rule, "1E999", {editor.formDPt()}).text) << text.name();
    EXPECT_GT(Val(text.text()), 5) << text.name();
    Memo[box.record].text = usual;
  }
}

// ---- choices that move others

using Choices = EditorTest;

TEST_F(Choices, AnInputOfTemperatureTakesTheDecimalsOffTheControlsToo) {
  for (std::size_t input : {0U, 1U}) {
    showTab(tab::inputType);
    editor.optInType(2).userClicked();
    showTab(tab::reading);
    editor.optDpoint(3).userClicked();
    showTab(tab::inputType);
    editor.optInType(input).userClicked();
    EXPECT_TRUE(editor.optDpoint(1).value());
    editor.reCover();
    EXPECT_EQ(Memo[rec::optDpoint + 1].flag, True);
    EXPECT_EQ(Memo[rec::optDpoint + 3].flag, False);
  }
}

TEST_F(Choices, AlarmOneGoesOffInAUnitWithoutAnAnalogOutput) {
  for (bool analog : {false, true}) {
    chooseUnit(kind::fullController, analog);
    Memo[rec::chkAl1Enabled].value = Memo[rec::chkAnalogOutputEnabled].value = 1;
    editor.showRecords();
    showTab(tab::alarm1);
    editor.chkAl1Enabled.userClicked();
    editor.commitForRun();
    EXPECT_EQ(Memo[rec::chkAnalogOutputEnabled].value, analog ? 1 : 0);
    EXPECT_EQ(std::stoi(makeAl1Cnfg().payload, nullptr, 16) & 1, analog ? 1 : 0);
  }
}

TEST_F(Choices, TheSimpleMenuTurnsHiLoIntoAbove) {
  editor.cboAl1Setup.setListIndex(2);
  editor.cboAl2Setup.setListIndex(2);
  chooseUnit(kind::simpleMenu, false);
  fitForm();
  EXPECT_EQ(Memo[rec::cboAl1Setup].value, 0);
  EXPECT_EQ(Memo[rec::cboAl2Setup].value, 0);
  EXPECT_EQ(editor.cboAl1Setup.text(), "Above");
}

TEST_F(Choices, DeadBandsOfTheSimpleMenuSurviveAWalkThroughAllTabs) {
  chooseUnit(kind::simpleMenu, false);
  fitForm();
  showTab(tab::alarm1);
  editor.txtAl1Deadband.userTyped("1.5");
  editor.txtAl1Deadband.userLeft();
  editor.cmdNext.userClicked();
  editor.txtAl2Deadband.userTyped("2.5");
  editor.txtAl2Deadband.userLeft();
  for (int step = 0; step < 12; ++step) editor.cmdNext.userClicked();
  editor.commitForRun();
  EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, "001.5");
  EXPECT_EQ(Memo[rec::txtOut2DeadBand].text, "002.5");
  EXPECT_EQ(makeOut1PropBand().payload, "000F");
}

TEST_F(Choices, DiscardBringsTheDeadBandOfTheSimpleMenuBack) {
  chooseUnit(kind::simpleMenu, false);
  fitForm();
  showTab(tab::alarm1);
  const std::string before = editor.txtAl1Deadband.text();
  editor.txtAl1Deadband.userTyped("77.7");
  editor.cmdReset.userClicked();
  EXPECT_EQ(editor.txtAl1Deadband.text(), before);
}

// The user chooses the menu in the dialog: what stood in the other boxes of the dead bands doesn't come back.
TEST_F(Choices, AChangeOfTheMenuKeepsTheDeadBandsBothWays) {
  showTab(tab::out1);
  editor.txtOut1DeadBand.userTyped("3.5");
  editor.txtOut1DeadBand.userLeft();
  const auto setSimple = [this](bool simple) {
    host.whenShown("frmHardware", [simple] {
      form<frmHardware>().chkSimpleMenu.setValue(simple ? 1 : 0);
      form<frmHardware>().cmdOk.userClicked();
    });
    editor.cmdCnfg.userClicked();
  };
  setSimple(true);
  EXPECT_EQ(meterKind(), kind::simpleMenu);
  EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, "003.5");
  showTab(tab::alarm1);
  editor.txtAl1Deadband.userTyped("4.5");
  editor.txtAl1Deadband.userLeft();
  showTab(tab::setpoints);
  setSimple(false);
  EXPECT_EQ(Memo[rec::txtOut1DeadBand].text, "004.5");
}

}  // namespace

}  // namespace torvane
