// SPDX-License-Identifier: MIT
// What the choosers do with a unit beside a write and a read: its runs, its address, and what is said of it.
#include <algorithm>

#include "core/Sha256.h"
#include "knowledge/UnitFile.h"
#include "tests/dialogs/CompareBench.h"

namespace torvane {

namespace {

struct Seen {
  std::int32_t readConfirmed;
  std::int16_t autoDetect;
  std::int16_t readMode;
  bool operator==(const Seen&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Seen& seen) {
  return out << seen.readConfirmed << ' ' << seen.autoDetect << ' ' << seen.readMode;
}

class UnitRuns : public CompareBench {
 protected:
  explicit UnitRuns(sim::UnitSetup setup = {}) : CompareBench(std::move(setup)) {}

  void lookAtTheRun() {
    host.whenShown("frmSerial", [this] {
      runs.push_back({Global.ReadConfirmed, Global.AutoDetect, form<frmSerial>().readMode});
      Global.AutoDetect = True;  // as a wizard's run leaves it
    });
  }
  // Each run that the user sees is looked at.
  void putBackAndLook() {
    Global.AutoDetect = True;
    host.chosenFiles = {"/kept.unit"};
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdPutBack.userClicked(); });
    lookAtTheRun();
    host.whenShown("frmCompare", [] { form<frmCompare>().cmdWrite.userClicked(); });
    lookAtTheRun();
    host.expect([this] { return !runs.back().readMode && form<frmSerial>().readMode != False; }, [] {});
    lookAtTheRun();
    closeWriteChooser();
    form<frmBigFolder>().cmdWrite.userClicked();
    EXPECT_TRUE(host.scriptDone());
  }
  static void writeBack(frmCompare& window) { window.cmdWrite.userClicked(); }
  static void writeBackWithBus(frmCompare& window) {
    window.chkBus.userClicked();
    window.cmdWrite.userClicked();
  }
  // A copy of any length: with a comment that fills it up, and a checksum that is right.
  static std::string filledUp(const std::string& copy, std::size_t size) {
    const std::string body = copy.substr(0, copy.rfind("sha256: "));
    const std::string end = "sha256: " + std::string(64, '0') + "\n";
    const std::string filled = body + "#" + std::string(size - body.size() - end.size() - 2, 'x') + "\n";
    return filled + "sha256: " + sha256(filled) + "\n";
  }

  std::vector<Seen> runs;
};

TEST_F(UnitRuns, TellTheirWindowWhetherTheyReadOrWrite) {
  keepCopy();
  unit.setRegister("01", "2004D2");
  host.expectBox("The unit holds all that the copy holds.");
  putBackAndLook();
  EXPECT_EQ(runs, (std::vector<Seen>{{1, False, True}, {0, False, False}, {1, False, True}}));
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(UnitRuns, OfAUnitThatHoldsTheCopyAgainSayNothingElse) {
  keepCopy();
  unit.setRegister("01", "2004D2");
  host.expectBox("The unit holds all that the copy holds.");
  putBack();
  EXPECT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].icon, Icon::information);
}

TEST_F(UnitRuns, SayHowTheUnitDiffersFromTheCopyThatWasPutBack) {
  keepCopy();
  unit.setRegister("01", "2004D2");
  host.expectBox("Read again: 1 setting differs, ");
  host.chosenFiles = {"/kept.unit"};
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdPutBack.userClicked(); });
  host.whenShown("frmCompare", [] { form<frmCompare>().cmdWrite.userClicked(); });
  host.expect([this] { return unit.count("W01") > 0 && form<frmSerial>().readMode != False; },
              [this] { unit.setRegister("01", "200064"); });
  closeWriteChooser();
  form<frmBigFolder>().cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(host.boxes.back().icon, Icon::critical);
}

// ---- a unit that could not be read

TEST_F(UnitRuns, ThatCouldNotReadTheUnitSayThatNothingWasChanged) {
  chooseWay(false);
  DeviceState.IsRkw77 = True;
  host.expectBox("An Torvane controller was found instead of device you specified.");
  host.expectBox("No device connected");
  host.expectBox("The unit could not be read. ");
  EXPECT_EQ(keepCopy(), "");
  EXPECT_EQ(host.boxes.size(), 3U);
}

TEST_F(UnitRuns, WithoutAUnitLeaveItAtWhatTheRunSays) {
  unit.faults.silentAfter = 0;
  host.expectBox(noUnitMessage);
  EXPECT_EQ(keepCopy(), "");
  chooseWay(false);
  remote.faults.answers["X01"] = "?43";
  host.expectBox("No device connected");
  EXPECT_EQ(keepCopy(), "");
  host.bridges.clear();
  host.expectBox("Failed to connnect to Relayon");
  EXPECT_EQ(keepCopy(), "");
  EXPECT_EQ(host.boxes.size(), 3U);
}

TEST_F(UnitRuns, ThatTheUserCancelsSayNothingElse) {
  host.expectBox(cancelQuestion, Answer::yes);
  host.whenShown("frmRead", [] { form<frmRead>().cmdKeep.userClicked(); });
  host.expect([this] { return unit.count("R") > 5; }, [] { form<frmSerial>().cmdCancel.userClicked(); });
  closeReadChooser();
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_EQ(host.boxes.size(), 1U);
}

// ---- a copy

TEST_F(UnitRuns, ReadACopyWholeUpToTheGreatestLengthAndABitBeyondIt) {
  const std::string copy = keepCopy();
  host.files["/kept.unit"] = filledUp(copy, longestUnitFile + 1);
  putBackAndThen([](frmCompare& window) { window.cmdClose.userClicked(); });
  EXPECT_TRUE(host.boxes.empty());
  host.files["/kept.unit"] = filledUp(copy, longestUnitFile + 2);
  host.chosenFiles = {"/kept.unit"};
  host.expectBox("/kept.unit\r");
  press(&frmWrite::cmdPutBack);
}

// ---- the address

TEST_F(UnitRuns, OfAUnitWithoutABusLeaveTheAddressAloneThoughTheyPutItBack) {
  keepCopy();
  const std::string kept = unit.registerHex("21");
  unit.setRegister("21", "2A");
  Hardware.BusAddress = 7;
  putBackAndThen(writeBackWithBus);
  EXPECT_EQ(unit.registerHex("21"), kept);
  EXPECT_EQ(Hardware.BusAddress, 7);
}

class UnitRunsOnABus : public UnitRuns {
 protected:
  UnitRunsOnABus() : UnitRuns(onBus({}, 17)) {
    keepCopy();
    unit.setRegister("21", "2A");
    unit.powerOn();
    Hardware.BusAddress = 42;
  }
};

TEST_F(UnitRunsOnABus, LeaveTheAddressThatIsNotPutBack) {
  unit.setRegister("01", "2004D2");
  host.expectBox("The unit holds all that the copy holds.");
  putBackAndThen(writeBack);
  EXPECT_EQ(unit.registerHex("21"), "2A");
  EXPECT_EQ(Hardware.BusAddress, 42);
}

TEST_F(UnitRunsOnABus, DoNotLookAgainForAUnitThatHasMoved) {
  unit.takeLog();
  putBackAndThen(writeBackWithBus);
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(std::ranges::count(host.events, "show modal frmSerial"), 3) << "the copy, its twin and the write";
}

TEST_F(UnitRunsOnABus, RecordTheUnitThatAWriteHasGivenAnotherAddress) {
  putBackAndThen(writeBackWithBus);
  unit.powerOn();
  recordAndThen([](frmRecord& window) {
    EXPECT_EQ(window.lblVerdict.caption().find("PASS: "), 0U) << window.lblVerdict.caption();
    window.cmdClose.userClicked();
  });
  EXPECT_TRUE(host.boxes.empty());
}

}  // namespace

}  // namespace torvane
