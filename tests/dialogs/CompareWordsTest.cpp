// SPDX-License-Identifier: MIT
// The window of a comparison: its words, its marks, and what it offers for what is compared.
#include <algorithm>

#include "knowledge/UnitFile.h"
#include "tests/dialogs/CompareBench.h"

namespace torvane {

namespace {

class CompareWords : public CompareBench {
 protected:
  // Two units that differ in nothing, with a setup of the first one.
  static UnitImage imageOf(int kind) {
    UnitImage image;
    image.kind = kind;
    return image;
  }
  static std::string remarkOf(const frmCompare& window) {
    const std::string& summary = window.lblSummary.caption();
    const std::string facts = summaryOf(window.comparison());
    EXPECT_TRUE(summary.starts_with(facts)) << summary;
    return summary.substr(facts.size());
  }
  // Which of the buttons and boxes that not every comparison has are on show.
  static std::string offers(const frmCompare& window) {
    std::string names;
    for (const Control* control : std::initializer_list<const Control*>{
             &window.chkAll, &window.chkBus, &window.cmdFirst, &window.cmdSecond, &window.cmdKeep,
             &window.cmdWrite, &window.cmdCopy, &window.cmdSave, &window.cmdPrint, &window.cmdClose}) {
      if (control->visible()) names += control->name() + " ";
    }
    return names;
  }

  frmCompare& window = form<frmCompare>();
};

TEST_F(CompareWords, OfASetupWarnOfAUnitOfTheOtherLine) {
  for (const bool otherLine : {false, true}) {
    const UnitImage unit = imageOf(kind::fullController);
    window.compareSetup(unit, setupOf(unit, true), otherLine);
    EXPECT_EQ(remarkOf(window), otherLine
                                    ? ". The unit is of the other line than this setup was made for: look "
                                      "at every row before you write."
                                    : "");
    EXPECT_TRUE(window.cmdWrite.enabled());
  }
  EXPECT_EQ(window.caption(), "Compare");
  EXPECT_EQ(window.lstDifferences.headings(),
            (std::vector<std::string>{"Setting", "In the unit", "In this setup", "Change"}));
  EXPECT_EQ(offers(window), "chkAll cmdKeep cmdWrite cmdCopy cmdSave cmdPrint cmdClose ");
  EXPECT_EQ(window.cmdWrite.caption(), "Write");
}

TEST_F(CompareWords, OfACopyWarnOfAnotherKindAndRefuseTheOtherLine) {
  struct Case {
    int unit;
    int copy;
    const char* remark;
    bool writes;
  };
  constexpr const char* otherLine =
      ". The copy is of a unit of the other line, whose registers mean something else: it can't be put back "
      "into "
      "this one.";
  for (const auto& [unit, copy, remark, writes] :
       {Case{kind::fullController, kind::fullController, "", true},
        {kind::rkw77, kind::rkw77, "", true},
        {kind::fullController, kind::simpleMenu,
         ". The copy was kept as another kind of unit: only what both kinds have is put back.", true},
        {kind::fullController, kind::rkw77, otherLine, false},
        {kind::rkw77, kind::monitorOnly, otherLine, false}}) {
    window.compareCopy(imageOf(unit), imageOf(copy));
    EXPECT_EQ(remarkOf(window), remark);
    EXPECT_EQ(window.cmdWrite.enabled(), writes) << unit << copy;
  }
  EXPECT_EQ(window.caption(), "Put back a copy");
  EXPECT_EQ(window.lstDifferences.headings(),
            (std::vector<std::string>{"Setting", "In the unit", "In the copy", "Change"}));
  EXPECT_EQ(offers(window), "chkAll chkBus cmdKeep cmdWrite cmdCopy cmdSave cmdPrint cmdClose ");
  EXPECT_EQ(window.cmdWrite.caption(), "Put back");
}

TEST_F(CompareWords, OfTwoFilesAskForThem) {
  window.compareFiles();
  EXPECT_EQ(window.caption(), "Compare files");
  EXPECT_EQ(window.lblSummary.caption(),
            "Choose two files: setups (.cfg), copies of units (.unit), or one of each.");
  EXPECT_EQ(window.lstDifferences.headings(),
            (std::vector<std::string>{"Setting", "First file", "Second file", "Change"}));
  EXPECT_EQ(offers(window), "chkAll cmdFirst cmdSecond cmdCopy cmdSave cmdPrint cmdClose ");
}

// Also the bus settings, which a write may leave alone.
TEST_F(CompareWords, OfTwoFilesTellAllThatDiffers) {
  const std::string copy = keepCopy();
  const std::string format = unit.registerHex("1F");
  unit.setRegister("1F", (format[0] == '3' ? "2" : "3") + format.substr(1));
  unit.setRegister("21", "2A");
  Hardware.BusMode = 0;
  host.files["/other.unit"] = keepCopy();
  host.files["/one.unit"] = copy;
  host.chosenFiles = {"/one.unit", "/other.unit"};
  window.compareFiles();
  window.show();
  window.cmdFirst.userClicked();
  EXPECT_EQ(window.lstDifferences.headings()[1], "one.unit");
  EXPECT_EQ(window.lstDifferences.listCount(), 0) << "one file is none to compare";
  EXPECT_EQ(window.lblSummary.caption().find("Choose two files"), 0U);
  window.cmdSecond.userClicked();
  std::set<std::string> written;
  for (const RegisterChange& change : window.comparison().registers) {
    if (change.written) written.insert(change.reg);
  }
  EXPECT_TRUE(written.contains("1F")) << rowsOf(window.lstDifferences);
  EXPECT_EQ(remarkOf(window), "");
}

TEST_F(CompareWords, OfTwoFilesWarnOfTwoLines) {
  const UnitImage kept = readUnitFile(keepCopy()).image.value();
  UnitImage other = kept;
  other.kind = kind::rkw77;
  for (const char* reg : {"16", "15", "11", "24", "27", "28"}) contentOf(other, reg) = {};
  host.files["/other.unit"] = unitFileText(other);
  host.chosenFiles = {"/kept.unit", "/other.unit"};
  window.compareFiles();
  window.show();
  window.cmdFirst.userClicked();
  window.cmdSecond.userClicked();
  EXPECT_EQ(remarkOf(window), ". The two are of units of different lines.");
  EXPECT_EQ(window.lblSummary.mark(), Mark::error);
}

TEST_F(CompareWords, AreCopiedWithTheSentenceOnTop) {
  UnitImage copy = readUnitFile(keepCopy()).image.value();
  unit.setRegister("01", "2004D2");
  putBackAndThen([this](frmCompare& shown) {
    EXPECT_EQ(shown.lblSummary.mark(), Mark::none);
    shown.cmdCopy.userClicked();
    EXPECT_EQ(host.clipboard, shown.lblSummary.caption() + "\n\nSet Points / Set-Point 1: 123.4 -> 000.0\n");
    host.paper = std::make_shared<Paper>();
    shown.cmdPrint.userClicked();
    shown.cmdClose.userClicked();
  });
  EXPECT_EQ(std::ranges::count(host.events, "choose printer for Put back a copy"), 1);
}

TEST_F(CompareWords, AreMarkedWhereARegisterWasNotRead) {
  unit.faults.refusals = {{"?43", "R16", sim::unlimited}};
  form<frmBigFolder>().txtSp1.setText("123.4");
  compareAndThen([](frmCompare& shown) {
    for (int row = 0; row < shown.lstDifferences.listCount(); ++row) {
      const std::string& words = shown.lstDifferences.list(row);
      const bool unread = words == "Not read" || words.starts_with("Alarm 2 High\t");
      EXPECT_EQ(shown.lstDifferences.itemMark(row), unread ? Mark::error : Mark::none) << words;
    }
    shown.cmdClose.userClicked();
  });
}

}  // namespace

}  // namespace torvane
