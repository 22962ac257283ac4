// SPDX-License-Identifier: MIT
// Compare: through the choosers, in virtual time.
#include "core/ConfigFile.h"
#include "dialogs/SetupFiles.h"
#include "knowledge/UnitFile.h"
#include "tests/dialogs/CompareBench.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

using Comparing = CompareBench;

TEST_F(Comparing, ShowsADifferenceInWordsAndChangesNothing) {
  form<frmBigFolder>().txtSp1.setText("123.4");
  const Payloads before = registersOf(unit);
  compareAndThen([](frmCompare& window) {
    EXPECT_NE(window.lblSummary.caption().find("differ"), std::string::npos);
    EXPECT_EQ(window.lblSummary.mark(), Mark::none);
    EXPECT_EQ(window.lstDifferences.headings()[1], "In the unit");
    window.txtSearch.userTyped("SET-point 1");
    EXPECT_EQ(rowsOf(window.lstDifferences), "Set Points\nSet-Point 1\t000.0\t123.4\tchanged by a write\n");
    window.txtSearch.userTyped("no such words");
    EXPECT_EQ(window.lstDifferences.listCount(), 0);
    window.cmdClose.userClicked();
  });
  EXPECT_EQ(registersOf(unit), before);
  EXPECT_EQ(unit.count("W"), 0U);
  EXPECT_FALSE(isLoaded<frmCompare>());
  EXPECT_FALSE(isLoaded<frmSerial>());
}

// What the probe has found out of the unit fits the form at a write or a read, not at a look.
TEST_F(Comparing, LeavesSetupAndModelAsTheyStand) {
  press(&frmWrite::cmdSerial);  // brings model and boxes into line with this unit
  compareAndThen([](frmCompare& window) { window.cmdClose.userClicked(); });
  const SetupRecords before = presentRecords();
  const std::string model = BaseModel;
  unit.setRegister("01", "2004D2");
  for (const bool serial : {true, false}) {
    chooseWay(serial);
    const SetupRecords chosen = presentRecords();
    compareAndThen([](frmCompare& window) { window.cmdClose.userClicked(); });
    EXPECT_EQ(DeviceState, before.deviceState);
    EXPECT_EQ(Hardware, before.hardware);
    EXPECT_EQ(BaseModel, model);
    EXPECT_TRUE(Memo == chosen.memo);
  }
}

TEST_F(Comparing, FoldsRoundingsAndWhatAWriteLeavesAlone) {
  unit.setRegister("01", "A00000");  // zero with a sign
  unit.setRegister("1F", "3C");
  compareAndThen([](frmCompare& window) {
    const auto folded = static_cast<std::size_t>(window.lstDifferences.listCount());
    const Comparison& found = window.comparison();
    ASSERT_GT(found.count(Change::rounding) + found.count(Change::kept), 0U);
    const std::string before = rowsOf(window.lstDifferences);
    EXPECT_EQ(before.find("only rounded"), std::string::npos);
    EXPECT_EQ(before.find("left alone by a write"), std::string::npos);
    window.chkAll.userClicked();
    EXPECT_GT(static_cast<std::size_t>(window.lstDifferences.listCount()), folded);
    const std::string all = rowsOf(window.lstDifferences);
    EXPECT_EQ(all.find("only rounded") != std::string::npos, found.count(Change::rounding) > 0);
    EXPECT_EQ(all.find("left alone by a write") != std::string::npos, found.count(Change::kept) > 0);
    window.userClosed();
  });
  EXPECT_EQ(unit.count("W"), 0U);
}

// Whoever showed the window asks it how it was left; it need not come up again for that.
TEST_F(Comparing, ClosedByItsFrameStaysAsItWasLeftAndAsksForNoWrite) {
  compareAndThen([](frmCompare& window) {
    window.userClosed();
    EXPECT_TRUE(isLoaded<frmCompare>());
    EXPECT_FALSE(window.visible());
    EXPECT_FALSE(window.writeAsked);
  });
  EXPECT_EQ(std::ranges::count(host.events, "centre frmCompare"), 1);
  EXPECT_EQ(unit.count("W"), 0U);
}

TEST_F(Comparing, SaysWhichRegisterCouldNotBeRead) {
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}};
  compareAndThen([](frmCompare& window) {
    const int last = window.lstDifferences.listCount() - 1;
    EXPECT_EQ(window.lstDifferences.list(last - 1), "Not read");
    EXPECT_EQ(window.lstDifferences.list(last), "Alarm 2 High\trefused \"?43\"");
    EXPECT_EQ(window.lstDifferences.itemMark(last), Mark::error);
    EXPECT_EQ(window.lblSummary.mark(), Mark::error);
    EXPECT_NE(window.lblSummary.caption().find(", 1 register could not be read"), std::string::npos);
    window.cmdClose.userClicked();
  });
}

TEST_F(Comparing, SaysHowManyRegistersALineThatDiedKeptBack) {
  for (const bool serial : {true, false}) {
    chooseWay(serial);
    if (serial) unit.faults.silentAfter = 26;
    if (!serial) bridge.faults.dropAt = 28;
    if (!serial) bridge.faults.afterDrop = sim::Reach::never;
    compareAndThen([](frmCompare& window) {
      EXPECT_GT(window.comparison().unread, 5U);
      EXPECT_NE(window.lblSummary.caption().find(" registers could not be read"), std::string::npos);
      window.cmdClose.userClicked();
    });
    unit.faults.silentAfter = sim::unlimited;
  }
  EXPECT_EQ(unit.count("W") + remote.count("W"), 0U);
}

TEST_F(Comparing, IsCopiedSavedAndPrinted) {
  form<frmBigFolder>().txtSp1.setText("123.4");
  host.paper = std::make_shared<Paper>();
  host.chosenFiles = {"/list.txt"};
  compareAndThen([&](frmCompare& window) {
    window.cmdCopy.userClicked();
    window.cmdSave.userClicked();
    window.cmdPrint.userClicked();
    EXPECT_EQ(host.clipboard.find(window.lblSummary.caption()), 0U);
    window.cmdClose.userClicked();
  });
  EXPECT_NE(host.clipboard.find("Set Points / Set-Point 1: 000.0 -> 123.4\n"), std::string::npos);
  EXPECT_EQ(host.files["/list.txt"], host.clipboard);
  EXPECT_NE(host.paper->asText().find("123.4"), std::string::npos);
}

TEST_F(Comparing, SaysThatItCouldNotBeSavedOrPrinted) {
  host.diskFault = "No space left on device";
  host.chosenFiles = {"/list.txt"};
  host.paper = std::make_shared<Paper>();
  host.paper->failsAtPage = 1;
  compareAndThen([&](frmCompare& window) {
    host.expectBox("could not be saved to\r/list.txt\rNo space left on device");
    window.cmdSave.userClicked();
    window.cmdClose.userClicked();
  });
  EXPECT_FALSE(host.files.contains("/list.txt"));
}

TEST_F(Comparing, EndsWithTheRunThatTheUserCancels) {
  host.expectBox(cancelQuestion, Answer::yes);
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdCompare.userClicked(); });
  host.expect([this] { return unit.count("R") > 5; }, [] { form<frmSerial>().cmdCancel.userClicked(); });
  closeWriteChooser();
  form<frmBigFolder>().cmdWrite.userClicked();
  EXPECT_FALSE(isLoaded<frmCompare>());
  EXPECT_EQ(unit.count("W"), 0U);
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(Comparing, LeavesTheVerdictOfTheLastRunAsItStands) {
  write();
  const std::string verdict = form<frmBigFolder>().lblVerdict.caption();
  ASSERT_FALSE(verdict.empty());
  compareAndThen([](frmCompare& window) { window.cmdClose.userClicked(); });
  EXPECT_EQ(form<frmBigFolder>().lblVerdict.caption(), verdict);
}

TEST_F(Comparing, OfAReadGoesOnToAWriteToo) {
  form<frmBigFolder>().txtSp1.setText("123.4");
  host.whenShown("frmRead", [] { form<frmRead>().cmdCompare.userClicked(); });
  host.whenShown("frmCompare", [] { form<frmCompare>().cmdWrite.userClicked(); });
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(unit.registerHex("01"), "2004D2");
  EXPECT_FALSE(isLoaded<frmRead>());
}

TEST_F(Comparing, OfAReadLeavesTheChooserOpen) {
  host.whenShown("frmRead", [] { form<frmRead>().cmdCompare.userClicked(); });
  host.whenShown("frmCompare", [] { form<frmCompare>().cmdClose.userClicked(); });
  closeReadChooser();
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(unit.count("W"), 0U);
}

// ---- what is said is what is written

class ComparedWrite : public CompareBench, public testing::WithParamInterface<int> {
 protected:
  const int rounds = trials(100);  // of each kind, over each way

  ComparedWrite() : CompareBench(unitOfKind(GetParam())) {
    random.seed(static_cast<unsigned>(60 + GetParam()));
  }

  void anySetupAndUnit(bool serial, sim::Unit& which) {
    fillRandomMemo(random);
    Hardware.BusMode = 0;
    chooseKind(GetParam());
    showMemo();
    chooseWay(serial);
    scramble(which, between(random, 0, 9));
    which.setRegister("1F", "34");
    which.takeLog();
  }
};

TEST_P(ComparedWrite, ChangesWhatTheWindowSaid) {
  for (int round = 0; round < rounds * 2; ++round) {
    SCOPED_TRACE(round);
    const bool serial = round % 2 == 0;
    sim::Unit& which = serial ? unit : remote;
    anySetupAndUnit(serial, which);
    Comparison said;
    compareAndThen([&](frmCompare& window) {
      said = window.comparison();
      EXPECT_EQ(meterKind(), GetParam());
      EXPECT_EQ(which.count("W"), 0U);
      window.cmdWrite.userClicked();
    });
    std::set<std::string> regs;
    for (const RegisterChange& change : said.registers) {
      if (change.written) regs.insert(change.reg);
      if (!change.before.empty()) {
        EXPECT_EQ(which.registerHex(change.reg), change.after) << change.reg;
      }
    }
    EXPECT_EQ(said.registers.size(), registerCount);
    EXPECT_EQ(writtenTo(which), regs);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, ComparedWrite, testing::Range(0, 5));

// ---- two files

class ComparingFiles : public CompareBench {
 protected:
  // A setup with this set point, as the program saves it.
  void saveSetup(const std::string& path, const char* setPoint) {
    form<frmBigFolder>().txtSp1.setText(setPoint);
    ASSERT_TRUE(saveConfiguration(path));
  }
  void compareFiles(const std::vector<std::string>& paths, const std::function<void(frmCompare&)>& act) {
    host.chosenFiles = {paths.begin(), paths.end()};
    host.whenShown("frmRead", [] { form<frmRead>().cmdFiles.userClicked(); });
    host.whenShown("frmCompare", [act] {
      auto& window = form<frmCompare>();
      EXPECT_EQ(window.lblSummary.caption().find("Choose two files"), 0U);
      EXPECT_EQ(window.lstDifferences.headings(),
                std::vector<std::string>({"Setting", "First file", "Second file", "Change"}));
      window.cmdFirst.userClicked();
      window.cmdSecond.userClicked();
      act(window);
      window.cmdClose.userClicked();
    });
    closeReadChooser();
    form<frmBigFolder>().cmdOpen.userClicked();
    EXPECT_TRUE(host.scriptDone());
  }
  static void searchSetPoint(frmCompare& window) { window.txtSearch.userTyped("set-point 1"); }
};

TEST_F(ComparingFiles, ShowsHowTwoSetupsDifferWithoutAUnit) {
  saveSetup("/a.cfg", "111.1");
  saveSetup("/b.cfg", "222.2");
  form<frmBigFolder>().txtSp1.setText("333.3");
  form<frmBigFolder>().reCover();
  const SetupRecords before = presentRecords();
  compareFiles({"/a.cfg", "/b.cfg"}, [](frmCompare& window) {
    EXPECT_EQ(window.lstDifferences.headings(),
              std::vector<std::string>({"Setting", "a.cfg", "b.cfg", "Change"}));
    EXPECT_EQ(window.comparison().count(Change::written), 1U);
    searchSetPoint(window);
    EXPECT_EQ(rowsOf(window.lstDifferences), "Set Points\nSet-Point 1\t111.1\t222.2\tchanged by a write\n");
    EXPECT_FALSE(window.cmdWrite.visible());
    EXPECT_FALSE(window.cmdKeep.visible());
  });
  EXPECT_TRUE(unit.log().empty());
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), "333.3");
  EXPECT_TRUE(Memo == before.memo);
  EXPECT_EQ(DeviceState, before.deviceState);
  EXPECT_EQ(Hardware, before.hardware);
}

TEST_F(ComparingFiles, TakesACopyOnEitherSide) {
  saveSetup("/a.cfg", "111.1");
  unit.setRegister("01", "2008AE");
  const std::string copy = keepCopy();
  host.files["/unit.cfg"] = copy;  // the first line tells, not the name
  compareFiles({"/a.cfg", "/unit.cfg"}, [](frmCompare& window) {
    searchSetPoint(window);
    EXPECT_EQ(rowsOf(window.lstDifferences), "Set Points\nSet-Point 1\t111.1\t222.2\tchanged by a write\n");
  });
  compareFiles({"/unit.cfg", "/a.cfg"}, [](frmCompare& window) {
    searchSetPoint(window);
    EXPECT_EQ(rowsOf(window.lstDifferences), "Set Points\nSet-Point 1\t222.2\t111.1\tchanged by a write\n");
  });
  compareFiles({"/unit.cfg", "/unit.cfg"}, [](frmCompare& window) {
    EXPECT_EQ(window.lblSummary.caption().find("0 settings differ, "), 0U) << window.lblSummary.caption();
    EXPECT_TRUE(window.comparison().same());
  });
}

TEST_F(ComparingFiles, RefusesWhatIsNeitherAndKeepsWhatWasChosen) {
  saveSetup("/a.cfg", "111.1");
  host.files["/bad.unit"] = "torvane unit copy 1\nkind: 0\n";
  host.files["/bad.cfg"] = "anything";
  for (const char* bad : {"/bad.unit", "/bad.cfg", "/missing.cfg"}) {
    host.expectBox(std::string(bad) + "\r");
    compareFiles({"/a.cfg", bad}, [](frmCompare& window) {
      EXPECT_EQ(window.lstDifferences.headings()[1], "a.cfg");
      EXPECT_EQ(window.lstDifferences.headings()[2], "Second file");
      EXPECT_EQ(window.lstDifferences.listCount(), 0);
    });
  }
}

}  // namespace

}  // namespace torvane
