// SPDX-License-Identifier: MIT
// Compare, keep a copy, put back: through the choosers, in virtual time.
#include <functional>
#include <random>
#include <set>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmCompare.h"
#include "knowledge/UnitFile.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"

namespace {

class Comparing : public NetworkBench {
 protected:
  Comparing() {
    host.toleratesBoxes = true;
    chooseWay(true);
    unload<frmSerial>();
    Global.DeviceSpecified = True;
  }

  // The user presses Compare in the chooser, acts in the window that comes, and closes the chooser at the
  // end.
  void compareAndThen(const std::function<void(frmCompare&)>& act) {
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdCompare.userClicked(); });
    meet(act);
    closeChooserBehindIt();
    form<frmBigFolder>().cmdWrite.userClicked();
    EXPECT_TRUE(host.scriptDone());
  }
  void putBackAndThen(const std::function<void(frmCompare&)>& act) {
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdPutBack.userClicked(); });
    meet(act);
    closeChooserBehindIt();
    form<frmBigFolder>().cmdWrite.userClicked();
    EXPECT_TRUE(host.scriptDone());
  }
  void meet(const std::function<void(frmCompare&)>& act) {
    host.whenShown("frmCompare", [act] { act(form<frmCompare>()); });
  }
  void closeChooserBehindIt() {
    host.expect([] { return isLoaded<frmWrite>() && form<frmWrite>().reachable(); },
                [] { form<frmWrite>().cmdCancel.userClicked(); });
  }
  void scramble(sim::Unit& which) {
    for (const RegisterRow& row : registerRows()) {
      std::string digits = which.registerHex(row.reg);
      for (char& digit : digits) {
        if (between(random, 0, 4) == 0) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      }
      if (row.reg != std::string("1F") && row.reg != std::string("21")) which.setRegister(row.reg, digits);
    }
  }
  static std::set<std::string> writtenTo(const sim::Unit& which) {
    std::set<std::string> regs;
    for (const sim::LogEntry& entry : which.log()) {
      if (entry.direction == '>' && entry.body.starts_with('W')) regs.insert(entry.body.substr(1, 2));
    }
    return regs;
  }
  std::string keepCopy() {
    host.chosenFiles = {"/kept.unit"};
    compareAndThen([](frmCompare& window) {
      window.cmdKeep.userClicked();
      window.cmdClose.userClicked();
    });
    return host.files["/kept.unit"];
  }

  std::mt19937 random{7};
};

TEST_F(Comparing, ShowsADifferenceInWordsAndChangesNothing) {
  form<frmBigFolder>().txtSp1.setText("123.4");
  const Payloads before = registersOf(unit);
  compareAndThen([](frmCompare& window) {
    EXPECT_NE(window.lblSummary.caption().find("differ"), std::string::npos);
    window.txtSearch.userTyped("set-point 1");
    ASSERT_GE(window.lstDifferences.listCount(), 1);
    EXPECT_NE(window.lstDifferences.list(0).find("-> 123.4"), std::string::npos)
        << window.lstDifferences.list(0);
    window.txtSearch.userTyped("no such words");
    EXPECT_EQ(window.lstDifferences.listCount(), 0);
    window.cmdClose.userClicked();
  });
  EXPECT_EQ(registersOf(unit), before);
  EXPECT_EQ(unit.count("W"), 0U);
  EXPECT_FALSE(isLoaded<frmCompare>());
  EXPECT_FALSE(isLoaded<frmSerial>());
}

// What a write is said to change is what it changes, whatever the unit holds and over either way.
TEST_F(Comparing, SaysWhatTheWriteThenChanges) {
  for (const bool serial : {true, false}) {
    for (int round = 0; round < 6; ++round) {
      SCOPED_TRACE(round);
      fillRandomMemo(random);
      Hardware.BusMode = 0;
      showMemo();
      chooseWay(serial);
      sim::Unit& which = serial ? unit : remote;
      scramble(which);
      which.takeLog();
      std::set<std::string> said;
      std::size_t readsBefore = 0;
      compareAndThen([&](frmCompare& window) {
        for (const RegisterChange& change : window.comparison().registers) {
          if (change.written) said.insert(change.reg);
        }
        EXPECT_EQ(which.count("W"), 0U);
        readsBefore = which.count("R");
        window.cmdWrite.userClicked();
      });
      EXPECT_GE(readsBefore, 33U);
      EXPECT_EQ(writtenTo(which), said);
      if (HasFailure()) return;
    }
  }
}

TEST_F(Comparing, FoldsWhatAWriteLeavesAlone) {
  unit.setRegister("24", "FF");
  compareAndThen([](frmCompare& window) {
    const int folded = window.lstDifferences.listCount();
    window.chkAll.userClicked();
    EXPECT_GE(window.lstDifferences.listCount(), folded);
    EXPECT_EQ(window.lstDifferences.listCount(), static_cast<int>(window.comparison().settings.size()));
    window.userClosed();
  });
  EXPECT_EQ(unit.count("W"), 0U);
}

TEST_F(Comparing, SaysWhichRegisterCouldNotBeRead) {
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}};
  compareAndThen([](frmCompare& window) {
    const int last = window.lstDifferences.listCount() - 1;
    EXPECT_EQ(window.lstDifferences.list(last), "Not read: Alarm 2 High: refused \"?43\"");
    EXPECT_EQ(window.lstDifferences.itemMark(last), Mark::error);
    EXPECT_EQ(window.lblSummary.mark(), Mark::error);
    window.cmdClose.userClicked();
  });
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
  EXPECT_NE(host.clipboard.find("Set Points / "), std::string::npos);
  EXPECT_EQ(host.files["/list.txt"], host.clipboard);
  EXPECT_NE(host.paper->asText().find("123.4"), std::string::npos);
}

TEST_F(Comparing, EndsWithTheRunThatTheUserCancels) {
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdCompare.userClicked(); });
  host.expectBox(cancelQuestion, Answer::yes);
  host.expect([this] { return unit.count("R") > 5; }, [] { form<frmSerial>().cmdCancel.userClicked(); });
  closeChooserBehindIt();
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

TEST_F(Comparing, OfAReadOffersNoWrite) {
  host.whenShown("frmRead", [] { form<frmRead>().cmdCompare.userClicked(); });
  meet([](frmCompare& window) {
    EXPECT_FALSE(window.cmdWrite.visible());
    window.cmdClose.userClicked();
  });
  host.expect([] { return isLoaded<frmRead>() && form<frmRead>().reachable(); },
              [] { form<frmRead>().OKButton.userClicked(); });
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
}

// ---- keep and put back

TEST_F(Comparing, KeepsACopyThatHoldsTheWholeUnit) {
  scramble(unit);
  const UnitFileContent kept = readUnitFile(keepCopy());
  ASSERT_TRUE(kept.image) << kept.fault;
  for (const RegisterRow& row : registerRows()) {
    EXPECT_EQ(digitsOf(digitsIn(*kept.image), row.reg), unit.registerHex(row.reg)) << row.reg;
  }
  EXPECT_EQ(host.proposedName, proposedFileName(*kept.image));
}

TEST_F(Comparing, PutsBackEveryBitThatMayBeChanged) {
  for (const bool serial : {true, false}) {
    chooseWay(serial);
    sim::Unit& which = serial ? unit : remote;
    for (int round = 0; round < 4; ++round) {
      scramble(which);
      keepCopy();
      const Payloads kept = registersOf(which);
      scramble(which);
      host.chosenFiles = {"/kept.unit"};
      putBackAndThen([](frmCompare& window) { window.cmdWrite.userClicked(); });
      for (const RegisterRow& row : registerRows()) {
        const std::int32_t mask = maskOf(row.reg, meterKind());
        EXPECT_EQ(maskHex(which.registerHex(row.reg), mask), maskHex(kept.at(row.reg), mask)) << row.reg;
      }
      if (HasFailure()) return;
    }
  }
}

TEST_F(Comparing, PutsTheBusFormatBackOnRequestAlone) {
  keepCopy();
  const std::string kept = unit.registerHex("1F");
  std::string other = kept;
  other[0] = kept[0] == '3' ? '2' : '3';
  for (const bool asked : {false, true}) {
    unit.setRegister("1F", other);
    host.chosenFiles = {"/kept.unit"};
    std::vector<std::string> written;
    putBackAndThen([&](frmCompare& window) {
      if (asked) window.chkBus.userClicked();
      for (const RegisterChange& change : window.comparison().registers) {
        if (change.written) written.push_back(change.reg);
      }
      window.cmdClose.userClicked();
    });
    EXPECT_EQ(written, asked ? std::vector<std::string>{"1F"} : std::vector<std::string>{});
  }
}

TEST_F(Comparing, RefusesACopyThatIsCutOrForeign) {
  const std::string whole = keepCopy();
  for (const std::string& bytes :
       {whole.substr(0, whole.size() / 2), std::string("anything"), std::string()}) {
    host.files["/kept.unit"] = bytes;
    host.chosenFiles = {"/kept.unit"};
    unit.takeLog();
    host.expectBox("/kept.unit\r");
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdPutBack.userClicked(); });
    closeChooserBehindIt();
    form<frmBigFolder>().cmdWrite.userClicked();
    EXPECT_TRUE(unit.log().empty());
  }
}

}  // namespace
