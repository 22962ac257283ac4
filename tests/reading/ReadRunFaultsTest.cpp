// SPDX-License-Identifier: MIT
// Reads of a unit or over a line that something is wrong with: what is said, how the run ends, what is kept.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "knowledge/RegisterMap.h"
#include "tests/support/RunBench.h"

namespace torvane {

namespace {

constexpr std::size_t registersInAll = registerCount;

class FaultyRead : public RunBench {
 protected:
  FaultyRead() {
    chooseSetup();
    for (const auto& [reg, value] : payloadsOfSetup(kind::fullController)) {
      if (reg != "1F" && reg != "21") unit.setRegister(reg, value);
    }
  }

  // From the moment at which the window says so.
  void from(const std::string& shown, std::function<void(sim::Faults&)> breaks) {
    host.expect([this, shown] { return status().starts_with(shown); },
                [this, breaks] { breaks(unit.faults); });
  }
  std::size_t fails() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(narrative.lines, [](const auto& line) { return line.ends_with("\rFail"); }));
  }
  static std::vector<MemoField> records() {
    std::vector<MemoField> all;
    for (int record = 0; record < MemoArray::count; ++record) all.push_back(Memo[record]);
    return all;
  }
  void expectEnd() {
    EXPECT_TRUE(status().ends_with("Done\r")) << status();
    EXPECT_EQ(window().lblPercent.caption(), "100%");
    EXPECT_FALSE(window().visible());
    EXPECT_EQ(unit.count("W"), 0U);
    EXPECT_EQ(Global.ReadConfirmed, 0);
  }
};

class ReadFromAPortThatFails : public FaultyRead, public testing::WithParamInterface<const char*> {};

TEST_P(ReadFromAPortThatFails, IsReportedInTheWordsOfTheSystemAndKeepsTheRecords) {
  for (std::int16_t tab = 0; tab < 12; ++tab) form<frmBigFolder>().writeMemo(tab);
  const auto before = records();
  host.lines[1].openFault = GetParam();
  host.expectBox("Encountered an error:");
  runRead();
  EXPECT_EQ(boxTexts(), Lines{std::string("Encountered an error:\r") + GetParam()});
  EXPECT_EQ(fails(), registersInAll);
  EXPECT_EQ(records(), before);
  expectEnd();
}

INSTANTIATE_TEST_SUITE_P(ForEachReason, ReadFromAPortThatFails,
                         testing::Values("No such file or directory", "Permission denied",
                                         "Device or resource busy"),
                         [](const auto& test) { return "Reason" + std::to_string(test.index); });

TEST_F(FaultyRead, FailsInEveryRegisterAfterTheOneAtWhichTheUnitFallsSilent) {
  from("Reading Set-Point 1...", [](sim::Faults& faults) { faults.silentAfter = 0; });
  runRead();
  EXPECT_EQ(fails(), registersInAll - 3);
  EXPECT_EQ(commandsOfRun().size(), 3 + 3 * (registersInAll - 3));
  EXPECT_TRUE(boxTexts().empty()) << "silence is no wiring problem for a read";
  expectEnd();
}

TEST_F(FaultyRead, IsLeftEarlyByCancelWhenTheUnitFallsSilent) {
  from("Reading Set-Point 1...", [](sim::Faults& faults) { faults.silentAfter = 0; });
  cancelAt("Reading Set-Point 2...");
  runRead();
  EXPECT_EQ(fails(), 1U);
  expectEnd();
}

TEST_F(FaultyRead, FailsInEveryRegisterAfterTheOneAtWhichTheAdapterGoesAway) {
  unit.faults.hangupAt = 6 + 4;
  runRead();
  EXPECT_EQ(fails(), registersInAll - 3);
  EXPECT_TRUE(boxTexts().empty());
  expectEnd();
}

TEST_F(FaultyRead, EndsWheneverTheUnitFallsSilentOrTheAdapterGoesAway) {
  host.toleratesBoxes = true;
  for (int heard = 1; heard <= 40; ++heard) {
    SCOPED_TRACE(heard);
    unit.faults.silentAfter = heard;
    runRead();
    EXPECT_FALSE(window().visible());
    unit.faults.silentAfter = sim::unlimited;
    unit.faults.hangupAt = heard;
    runRead();
    expectEnd();
    unit.faults.hangupAt = sim::unlimited;
    unit.powerOn();
  }
}

TEST_F(FaultyRead, TellsALoopOnceAfterTheFirstRegister) {
  host.expect([this] { return unit.count("U04") == 1; }, [this] { unit.faults.loopback = sim::unlimited; });
  unit.setRegister("07", "04");
  host.toleratesBoxes = true;
  runRead();
  EXPECT_EQ(std::ranges::count(boxTexts(), wiringMessage), 1);
  EXPECT_EQ(fails(), registersInAll);
  expectEnd();
}

TEST_F(FaultyRead, TellsALoopFromTheStartInTheProbe) {
  unit.faults.loopback = sim::unlimited;
  host.expectBox(noUnitMessage);
  runRead();
  EXPECT_EQ(unit.commands(), Lines{"*R02"});
  EXPECT_EQ(fails(), 0U);
}

class RefusedRead : public FaultyRead, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedRead, FailsInThatRegisterAloneWithoutAMessage) {
  unit.faults.refusals.push_back({GetParam(), "R01"});
  runRead();
  EXPECT_EQ(unit.count("R01"), 3U);
  EXPECT_EQ(fails(), 1U);
  EXPECT_TRUE(boxTexts().empty());
  expectEnd();
}

TEST_P(RefusedRead, IsForgivenTwice) {
  unit.faults.refusals.push_back({GetParam(), "R01", 2});
  runRead();
  EXPECT_EQ(fails(), 0U);
  EXPECT_TRUE(narrative.has("Reading Set-Point 1...\r123.4"));
  expectEnd();
}

INSTANTIATE_TEST_SUITE_P(WithEachCode, RefusedRead, testing::Values("?43", "?46", "?50", "?56"),
                         [](const auto& test) { return "Code" + std::string(test.param).substr(1); });

struct Harmless {
  const char* name;
  void (*breaks)(sim::Faults& faults);
};

std::ostream& operator<<(std::ostream& out, const Harmless& harmless) { return out << harmless.name; }

const Harmless harmless[] = {
    {"InSingleBytes",
     [](sim::Faults& f) {
       f.pieces = std::vector<sim::Piece>(12, {1, 0.01});
     }},
    {"Late", [](sim::Faults& f) { f.late = 0.4; }},
    {"WithALineFeed", [](sim::Faults& f) { f.lineEnd = "\n"; }},
    {"WithReturnAndLineFeed", [](sim::Faults& f) { f.lineEnd = "\r\n"; }},
    {"AfterAStaleReply", [](sim::Faults& f) { f.stale = "R0712\r"; }},
};

class ReadOfHarmlessReplies : public FaultyRead, public testing::WithParamInterface<Harmless> {};

TEST_P(ReadOfHarmlessReplies, BringsTheSetupOntoTheTabs) {
  auto& editor = form<frmBigFolder>();
  for (TextBox* box : {&editor.txtSp1, &editor.txtLBATime, &editor.txtOut2PB}) box->setText("");
  GetParam().breaks(unit.faults);
  runRead();
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
  EXPECT_EQ(editor.txtLBATime.text(), "01:30");
  EXPECT_EQ(editor.txtOut2PB.text(), "005.0");
  EXPECT_EQ(fails(), 0U);
  expectEnd();
}

INSTANTIATE_TEST_SUITE_P(OfEachSort, ReadOfHarmlessReplies, testing::ValuesIn(harmless),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(FaultyRead, FindsTheRegistersAfterNoiseThoughTheProbeWarnsOfTheUnit) {
  unit.faults.noiseBefore = std::string("\0\x80\xFF", 3);
  host.expectBox("Meter must be set with  \"*\" Recognition Character.");
  runRead();
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), "123.4");
  EXPECT_EQ(fails(), 0U);
  expectEnd();
}

TEST_F(FaultyRead, EndsWithAnyByteInsideEveryReply) {
  host.toleratesBoxes = true;
  for (int byte = 0; byte < 256; ++byte) {
    SCOPED_TRACE(byte);
    unit.faults.noiseInside = std::string(1, static_cast<char>(byte));
    unit.faults.noiseAt = 3;
    narrative.lines.clear();
    runRead();
    EXPECT_FALSE(window().visible());
    EXPECT_EQ(unit.count("W"), 0U);
    EXPECT_TRUE(narrative.has("Looking for Torvane or LARKSPUR..."));
  }
}

TEST_F(FaultyRead, GivesUpAHundredThousandBytesWithoutAnEnd) {
  from("Reading Set-Point 1...", [](sim::Faults& faults) { faults.endless = 100000; });
  cancelAt("Reading Reading Scale...");
  runRead();
  EXPECT_TRUE(narrative.has("Reading Set-Point 2...\rFail"));
  expectEnd();
}

}  // namespace

}  // namespace torvane
