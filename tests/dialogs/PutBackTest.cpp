// SPDX-License-Identifier: MIT
// Keep a copy, put it back: through the choosers, in virtual time.
#include <algorithm>

#include "core/NumberText.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "knowledge/UnitFile.h"
#include "tests/dialogs/CompareBench.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

using KeepAndPutBack = CompareBench;

TEST_F(KeepAndPutBack, KeepsACopyThatHoldsTheWholeUnit) {
  for (const bool serial : {true, false}) {
    chooseWay(serial);
    sim::Unit& which = serial ? unit : remote;
    scramble(which);
    const UnitFileContent kept = readUnitFile(keepCopy());
    ASSERT_TRUE(kept.image) << kept.fault;
    for (const RegisterRow& row : registerRows()) {
      EXPECT_EQ(digitsOf(digitsIn(*kept.image), row.reg), which.registerHex(row.reg)) << row.reg;
    }
    EXPECT_EQ(host.proposedName, proposedFileName(*kept.image));
    EXPECT_EQ(kept.image->line, serial ? "COM 1 9600,o,7,1" : "192.0.2.254:1000");
    EXPECT_FALSE(kept.image->version.empty());
    EXPECT_EQ(which.count("W"), 0U);
  }
}

TEST_F(KeepAndPutBack, SaysWhatACopyLacks) {
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}};
  host.expectBox("1 register could not be read and can't be put back from this copy.");
  EXPECT_NE(keepCopy().find("\nR16 -"), std::string::npos);
}

TEST_F(KeepAndPutBack, KeepsNothingWhereTheUserNamesNoFile) {
  host.whenShown("frmRead", [] { form<frmRead>().cmdKeep.userClicked(); });
  closeReadChooser();
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_TRUE(host.files.empty());
}

TEST_F(KeepAndPutBack, SaysThatTheUnitHoldsTheCopyAgain) {
  keepCopy();
  unit.setRegister("01", "2004D2");
  host.expectBox("The unit holds all that the copy holds.");
  putBackAndThen([](frmCompare& window) {
    EXPECT_EQ(window.caption(), "Put back a copy");
    EXPECT_EQ(rowsOf(window.lstDifferences), "Set Points\nSet-Point 1\t123.4\t000.0\tchanged by a write\n");
    window.cmdWrite.userClicked();
  });
  EXPECT_EQ(unit.registerHex("01"), "200000");
}

// The copy is of a full unit, in front of one with the simple menu.
TEST_F(KeepAndPutBack, LeavesOutWhatTheUnitHasNotGot) {
  keepCopy();
  chooseKind(kind::simpleMenu);
  showMemo();
  unit.setRegister("01", "2004D2");
  putBack();
  const RunOutcome& outcome = form<frmBigFolder>().lastRun.outcome;
  EXPECT_EQ(meterKind(), kind::simpleMenu);
  EXPECT_TRUE(outcome.settled("01")) << summaryOf(outcome);
  EXPECT_FALSE(outcome.settled("0B")) << summaryOf(outcome);
}

TEST_F(KeepAndPutBack, PutsTheBusFormatBackOnRequestAlone) {
  keepCopy();
  const std::string kept = unit.registerHex("1F");
  std::string other = kept;
  other[0] = kept[0] == '3' ? '2' : '3';
  for (const bool asked : {false, true}) {
    unit.setRegister("1F", other);
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

TEST_F(KeepAndPutBack, RefusesACopyThatIsCutOrForeign) {
  const std::string whole = keepCopy();
  for (const std::string& bytes :
       {whole.substr(0, whole.size() / 2), std::string("anything"), std::string()}) {
    host.files["/kept.unit"] = bytes;
    host.chosenFiles = {"/kept.unit"};
    unit.takeLog();
    host.expectBox("/kept.unit\r");
    press(&frmWrite::cmdPutBack);
    EXPECT_TRUE(unit.log().empty());
  }
}

TEST_F(KeepAndPutBack, SaysThatACopyCannotBeRead) {
  host.chosenFiles = {"/gone.unit"};
  host.expectBox("/gone.unit\rIt can't be read: No such file or directory");
  press(&frmWrite::cmdPutBack);
  EXPECT_TRUE(unit.log().empty());
}

TEST_F(KeepAndPutBack, ACopyIsNoSetupToBeOpened) {
  keepCopy();
  const std::string before = form<frmBigFolder>().txtSp1.text();
  host.expectBox("This is a copy of a unit, not a setup:\r/kept.unit");
  EXPECT_FALSE(openConfiguration("/kept.unit"));
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), before);
}

TEST_F(KeepAndPutBack, NeverPutsBackACopyOfTheOtherLine) {
  UnitImage copy = readUnitFile(keepCopy()).image.value();
  copy.kind = kind::rkw77;
  for (const char* reg : {"16", "15", "11", "24", "27", "28"}) contentOf(copy, reg) = {};
  host.files["/kept.unit"] = unitFileText(copy);
  unit.setRegister("01", "2004D2");
  unit.takeLog();
  putBackAndThen([](frmCompare& window) {
    EXPECT_FALSE(window.cmdWrite.enabled());
    EXPECT_EQ(window.lblSummary.mark(), Mark::error);
    window.cmdWrite.userClicked();
    window.cmdClose.userClicked();
  });
  EXPECT_EQ(unit.count("W"), 0U);
}

// ---- every bit, whatever the unit, over either way, through a pulled cable

class PuttingBack : public CompareBench, public testing::WithParamInterface<int> {
 protected:
  const int rounds = trials(100);

  PuttingBack() : CompareBench(unitOfKind(GetParam())) {
    random.seed(static_cast<unsigned>(80 + GetParam()));
    chooseKind(GetParam());
    showMemo();
  }

  void expectAsKept(const sim::Unit& which, const Payloads& kept) {
    for (const RegisterRow& row : registerRows()) {
      if (row.reg == std::string("1F") || row.reg == std::string("21")) continue;
      const std::int32_t mask = hasRegister(row.reg, GetParam()) ? maskOf(row.reg, GetParam()) : 0;
      if (mask == 0) continue;
      EXPECT_EQ(maskHex(which.registerHex(row.reg), mask), maskHex(kept.at(row.reg), mask)) << row.reg;
    }
  }
};

TEST_P(PuttingBack, LeavesEveryBitThatMayBeChangedAsItWas) {
  for (int round = 0; round < rounds * 2; ++round) {
    SCOPED_TRACE(round);
    chooseWay(round % 2 == 0);
    sim::Unit& which = round % 2 == 0 ? unit : remote;
    scramble(which);
    keepCopy();
    const Payloads kept = registersOf(which);
    scramble(which, between(random, 0, 9));
    putBack();
    expectAsKept(which, kept);
    if (HasFailure()) return;
  }
}

// The cable goes at any moment of the writing; with the cable back the same once more puts all right.
TEST_P(PuttingBack, IsMadeWholeByASecondTryAfterACableWasPulled) {
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    const bool serial = round % 2 == 0;
    chooseWay(serial);
    sim::Unit& which = serial ? unit : remote;
    scramble(which);
    keepCopy();
    const Payloads kept = registersOf(which);
    scramble(which);
    const int pulledAt = between(random, 1, 90);
    putBackAndThen([&](frmCompare& window) {
      if (serial) unit.faults.silentAfter = pulledAt;
      if (!serial) bridge.faults.dropAt = pulledAt;
      if (!serial) bridge.faults.afterDrop = sim::Reach::never;
      window.cmdWrite.userClicked();
    });
    unit.faults.silentAfter = sim::unlimited;
    bridge.faults.dropAt = sim::unlimited;
    bridge.faults.reach = sim::Reach::accepts;
    putBack();
    expectAsKept(which, kept);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, PuttingBack, testing::Range(0, 5));

class PuttingBackOnABus : public CompareBench {
 protected:
  PuttingBackOnABus() : CompareBench(onBus({}, 17)) {}
};

TEST_F(PuttingBackOnABus, KeepsTheAddressAndReachesTheUnitThere) {
  const UnitFileContent kept = readUnitFile(keepCopy());
  ASSERT_TRUE(kept.image) << kept.fault;
  EXPECT_EQ(kept.image->address, 17);
  EXPECT_EQ(kept.image->line, "COM 1 9600,o,7,1");
  EXPECT_NE(host.proposedName.find("_17_"), std::string::npos) << host.proposedName;
  unit.setRegister("01", "2004D2");
  putBack();
  EXPECT_EQ(unit.registerHex("01"), "200000");
  recordAndThen([](frmRecord& window) {
    EXPECT_EQ(window.lblVerdict.caption().find("PASS: "), 0U);
    window.cmdClose.userClicked();
  });
}

TEST_F(PuttingBackOnABus, GoesOnAtTheAddressThatItHasPutBack) {
  keepCopy();
  unit.setRegister("21", "2A");
  unit.powerOn();
  Hardware.BusAddress = 42;
  putBackAndThen([](frmCompare& window) {
    window.chkBus.userClicked();
    window.cmdWrite.userClicked();
  });
  EXPECT_EQ(unit.registerHex("21"), "11");
  EXPECT_EQ(Hardware.BusAddress, 17);
  EXPECT_EQ(form<frmHardware>().txtAddress.text(), "17");
}

// ---- a copy before every write

class KeepsFirst : public CompareBench {
 protected:
  KeepsFirst() { host.settings["Torvane Configuration/Persist/KeepCopies"] = "True"; }
  std::string setPointIn(const std::string& path) {
    return digitsOf(digitsIn(readUnitFile(host.files[path]).image.value()), "01");
  }
  std::vector<std::string> copies() const {
    std::vector<std::string> paths;
    for (const auto& [path, content] : host.files) {
      if (path.starts_with("/data/") && path.ends_with(".unit")) paths.push_back(path);
    }
    return paths;
  }
};

TEST_F(CompareBench, NoCopyIsKeptUnlessThePreferenceIsOn) {
  press(&frmWrite::cmdSerial);
  EXPECT_TRUE(host.files.empty());
  auto& dialog = form<frmPreferences>();
  dialog.show();
  EXPECT_EQ(dialog.chkKeep.value(), 0);
  dialog.chkKeep.userClicked();
  EXPECT_EQ(host.settings["Torvane Configuration/Persist/KeepCopies"], "True");
  unload<frmPreferences>();
  EXPECT_EQ(form<frmPreferences>().chkKeep.value(), 1);
}

TEST_F(KeepsFirst, EveryWriteIsPrecededByACopyOfItsOwn) {
  unit.setRegister("01", "2004D2");
  press(&frmWrite::cmdSerial);
  ASSERT_EQ(copies().size(), 1U);
  EXPECT_EQ(setPointIn(copies()[0]), "2004D2");
  EXPECT_NE(unit.registerHex("01"), "2004D2") << "and then the write took place";
  EXPECT_NE(form<frmBigFolder>().lblNote.caption().find(copies()[0]), std::string::npos);
  press(&frmWrite::cmdSerial);
  EXPECT_EQ(copies().size(), 2U) << "the first is not written over";
}

TEST_F(KeepsFirst, APutBackToo) {
  keepCopy();
  unit.setRegister("01", "2004D2");
  putBack();
  ASSERT_EQ(copies().size(), 1U);
  EXPECT_EQ(setPointIn(copies()[0]), "2004D2");
  EXPECT_EQ(unit.registerHex("01"), "200000");
}

TEST_F(KeepsFirst, ACopyThatCannotBeKeptIsToldAndTheUserDecides) {
  host.diskFault = "No space left on device";
  for (const Answer answer : {Answer::no, Answer::yes}) {
    unit.setRegister("01", "2004D2");
    unit.takeLog();
    host.expectBox("No copy of the unit could be kept in\r/data\rNo space left on device", answer);
    press(&frmWrite::cmdSerial);
    EXPECT_EQ(host.boxes.back().buttons, Buttons::noYes);
    EXPECT_EQ(unit.count("W") > 0, answer == Answer::yes);
  }
}

TEST_F(KeepsFirst, ACopyWithAGapIsToldAndTheUserDecides) {
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}};
  host.expectBox("1 register could not be read and can't be put back from this copy.", Answer::no);
  press(&frmWrite::cmdSerial);
  EXPECT_EQ(unit.count("W"), 0U);
  EXPECT_EQ(copies().size(), 1U);
}

TEST_F(KeepsFirst, AUnitThatDoesNotAnswerGetsNoWrite) {
  unit.faults.silentAfter = 0;
  host.expectBox(noUnitMessage);
  press(&frmWrite::cmdSerial);
  EXPECT_TRUE(copies().empty());
  EXPECT_EQ(std::ranges::count(host.events, "show modal frmSerial"), 1);
}

}  // namespace

}  // namespace torvane
