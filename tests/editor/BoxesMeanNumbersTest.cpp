// SPDX-License-Identifier: MIT
// Whatever format was chosen and whatever tabs were visited since: a unit gets the number that its box means.
#include <cmath>

#include "core/NumberText.h"
#include "protocol/Encoders.h"
#include "tests/editor/EditorTest.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/RunBench.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

struct ReadingBox {
  const char* box;
  Encoded (*make)();
};

constexpr ReadingBox readingBoxes[] = {{"txtSp1", makeSp1},         {"txtSp2", makeSp2},
                                       {"txtAl1HiSp", makeAl1High}, {"txtAl1LoSp", makeAl1Low},
                                       {"txtAl2HiSp", makeAl2High}, {"txtAl2LoSp", makeAl2Low},
                                       {"txtTAdjust", makeCJOffset}};

double numberIn(const Control& box) { return Val(dynamic_cast<const TextBox&>(box).text()); }

int decimalsOf(const frmBigFolder& editor) {
  for (std::size_t format = 0; format < 4; ++format) {
    if (editor.optDpoint(format).value()) return static_cast<int>(format);
  }
  return 0;
}

// As the unit shows it.
double shownByUnit(const std::string& payload, int decimals) {
  const int code = std::stoi(payload.substr(0, 1), nullptr, 16);
  EXPECT_EQ(code & 7, decimals + 1);
  const double number = std::stoi(payload.substr(1), nullptr, 16) / std::pow(10, decimals);
  return (code & 8) != 0 ? -number : number;
}

class BoxesMeanNumbers : public EditorTest {
 protected:
  std::mt19937 random{2};

  BoxesMeanNumbers() { host.toleratesBoxes = true; }

  std::string anyNumber() {
    const int number = between(random, -1999, 9999);
    return numberText(number / std::pow(10.0, between(random, 0, 3)));
  }

  void useWindow() {
    switch (between(random, 0, 3)) {
      case 0:
        showTab(tab::reading);
        return editor.optDpoint(static_cast<std::size_t>(between(random, 0, 3))).userClicked();
      case 1:
        return showTab(between(random, 0, 11));
      case 2: {
        auto& box = dynamic_cast<TextBox&>(named(editor, readingBoxes[between(random, 0, 6)].box));
        box.userTyped(anyNumber());
        return box.userLeft();
      }
      default:
        showTab(tab::inputType);
        return editor.optInType(static_cast<std::size_t>(between(random, 0, 2))).userClicked();
    }
  }

  void expectAgreement(int round) {
    const int decimals = decimalsOf(editor);
    for (const auto& [box, make] : readingBoxes) {
      EXPECT_NEAR(shownByUnit(make().payload, decimals), numberIn(named(editor, box)), 1e-9)
          << round << " " << box;
    }
    const std::string band = makeOut1PropBand().payload;
    const TextBox& source = editor.cboOut1Ctrl.listIndex() == 0 ? editor.txtOut1DeadBand : editor.txtOut1PB;
    EXPECT_NEAR(std::stoi(band, nullptr, 16) / std::pow(10, decimals), Val(source.text()), 1e-9) << round;
  }
};

TEST_F(BoxesMeanNumbers, AfterAnyWayThroughTheWindow) {
  for (int round = 0; round < trials(10000) && !HasFailure(); ++round) {
    if (round % 20 == 0) editor.initBigFolder();
    for (int step = between(random, 1, 5); step > 0; --step) useWindow();
    editor.commitForRun();
    expectAgreement(round);
  }
}

TEST_F(BoxesMeanNumbers, TheWholeFormatIsSentForBoxesOnTabsThatNobodyVisited) {
  showTab(tab::reading);
  editor.optDpoint(0).userClicked();
  editor.commitForRun();
  EXPECT_EQ(makeAl1High().payload, "100190");
  EXPECT_EQ(makeAl1Low().payload, "900064");
  EXPECT_EQ(makeOut1PropBand().payload, "0014");
  EXPECT_EQ(editor.txtAl1HiSp.text(), "0400.");
}

TEST_F(BoxesMeanNumbers, ABoxThatNobodyTouchedIsLeftAloneAlsoOutOfRange) {
  Memo[rec::txtAl1HiSp].text = "1234.5";
  editor.showRecords();
  host.boxes.clear();
  for (const char* write : {"first", "second"}) {
    editor.commitForRun();
    EXPECT_EQ(Memo[rec::txtAl1HiSp].text, "1234.5") << write;
  }
}

TEST_F(BoxesMeanNumbers, ATextOutOfItsPictureIsBroughtIntoItAlsoWhereNoFormatWasChosen) {
  editor.showRecords();
  editor.txtSp1.setText("5");
  editor.commitForRun();
  EXPECT_EQ(editor.txtSp1.text(), "005.0");
  EXPECT_EQ(Memo[rec::txtSp1].text, "005.0");
}

TEST_F(BoxesMeanNumbers, WhatNoFormatCanShowIsLimitedBeforeItIsSent) {
  showTab(tab::inputType);
  editor.optInType(2).userClicked();
  showTab(tab::setpoints);
  editor.txtSp1.userTyped("500");
  editor.txtSp1.userLeft();
  showTab(tab::reading);
  editor.optDpoint(3).userClicked();
  editor.commitForRun();
  EXPECT_EQ(editor.txtSp1.text(), "9.999");
  EXPECT_EQ(makeSp1().payload, "40270F");
}

using WholeRuns = RunBench;

TEST_F(WholeRuns, AUnitAndItsBoxesAgreeAfterAWrite) {
  auto& editor = form<frmBigFolder>();
  editor.tabBig.setTab(tab::reading);
  editor.optDpoint(0).userClicked();
  runWrite();
  EXPECT_EQ(unit.registerHex("13"), "100190");
  EXPECT_EQ(unit.registerHex("12"), "900064");
  EXPECT_EQ(unit.registerHex("16"), "100190");
  EXPECT_EQ(unit.registerHex("15"), "900064");
  EXPECT_EQ(unit.registerHex("17"), "0014");
  EXPECT_EQ(editor.txtAl2LoSp.text(), "-0100.");
}

// Any format, with any tabs visited after it, sent to a unit and read again.
TEST_F(WholeRuns, AUnitAndItsBoxesAgreeInAnyFormat) {
  auto& editor = form<frmBigFolder>();
  std::mt19937 random{3};
  host.toleratesBoxes = true;
  editor.tabBig.setTab(tab::inputType);
  editor.optInType(2).userClicked();
  for (int round = 0; round < trials(500) && !HasFailure(); ++round) {
    const int decimals = between(random, 0, 3);
    editor.tabBig.setTab(tab::reading);
    editor.optDpoint(static_cast<std::size_t>(decimals)).userClicked();
    for (int visits = between(random, 0, 3); visits > 0; --visits)
      editor.tabBig.setTab(between(random, 0, 11));
    runWrite();
    const std::pair<const char*, const TextBox*> sent[] = {
        {"01", &editor.txtSp1},     {"13", &editor.txtAl1HiSp}, {"12", &editor.txtAl1LoSp},
        {"16", &editor.txtAl2HiSp}, {"15", &editor.txtAl2LoSp}, {"25", &editor.txtTAdjust}};
    for (const auto& [reg, box] : sent) {
      EXPECT_NEAR(shownByUnit(unit.registerHex(reg), decimals), Val(box->text()), 1e-9)
          << round << " " << reg;
    }
    const std::string before = editor.txtAl1LoSp.text();
    runRead();
    EXPECT_EQ(editor.txtAl1LoSp.text(), before) << round;
  }
}

TEST_F(WholeRuns, ASecondUnitInAnotherFormatKeepsItsSetPoint) {
  unit.setRegister("07", "02");
  unit.setRegister("08", "4C");
  unit.setRegister("01", "4004D2");
  read();
  EXPECT_EQ(Memo[rec::txtSp1].text, "1.234");
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), "1.234");
  write();
  EXPECT_EQ(unit.registerHex("01"), "4004D2");
}

}  // namespace

}  // namespace torvane
