// SPDX-License-Identifier: MIT
// What once put a wrong number into a unit, or lost one, once each through the real windows: the unit gets
// what the boxes show.
#include <QTemporaryDir>

#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "qt/SessionBench.h"

namespace torvane {

namespace {

constexpr int rkw77Row = 0;
constexpr int torvaneRow = 2;
constexpr int hiLo = 2;
constexpr int unitsOwnBit = 0x10;  // of register 08

class Hazards : public SessionBench {
 protected:
  explicit Hazards(sim::UnitSetup setup = {}) : SessionBench(std::move(setup)) {
    chooseModel(torvaneRow);
    click(user(), editor(), "cmdFactoryDefaults");
    setSimpleMenu(false);
    clickTab(user(), editor(), "tabBig", tab::comm);
    choose(user(), editor(), "cboCommPort", 0);
    Global.WarningsOff = True;
    user().answer = Answer::yes;
  }
  ~Hazards() override {
    EXPECT_TRUE(user().boxes.empty()) << user().boxes.front();
    user().answer = Answer::ok;
  }

  std::string file(const char* name) const { return folder.filePath(name).toStdString(); }

  static void expectGood() {
    EXPECT_TRUE(editor().lastRun.outcome.passed()) << editor().lblVerdict.caption();
  }
  static void writeWell() {
    writeToUnit();
    expectGood();
  }

  static void enter(int tab, const char* box, const char* text) {
    clickTab(user(), editor(), "tabBig", tab);
    type(user(), editor(), box, text);
  }
  static void chooseOn(int tab, const char* list, int row) {
    clickTab(user(), editor(), "tabBig", tab);
    choose(user(), editor(), list, row);
  }
  static void press(int tab, const char* button) {
    clickTab(user(), editor(), "tabBig", tab);
    click(user(), editor(), button);
  }

  static void chooseHiLo() {
    press(tab::alarm1, "chkAl1Enabled");
    chooseOn(tab::alarm1, "cboAl1Setup", hiLo);
    press(tab::alarm2, "chkAl2Enabled");
    chooseOn(tab::alarm2, "cboAl2Setup", hiLo);
    ASSERT_EQ(editor().cboAl1Setup.text(), "Hi/Lo");
    ASSERT_EQ(editor().cboAl2Setup.text(), "Hi/Lo");
  }

  const QTemporaryDir folder;
};

TEST_F(Hazards, ASetPointWithThreeDecimalsIsReadAndWrittenAsItIs) {
  setRegister("07", "02");
  setRegister("08", "4C");
  setRegister("01", "4004D2");
  readFromUnit();
  EXPECT_EQ(shown("txtSp1"), "1.234");
  writeWell();
  EXPECT_EQ(registerHex("01"), "4004D2");
}

TEST_F(Hazards, AnotherFormatReachesBoxesOnTabsThatNobodyVisited) {
  press(tab::reading, "optDpoint_0");
  writeWell();
  EXPECT_EQ(registerHex("13"), "100190");
  EXPECT_EQ(registerHex("12"), "900064");
  EXPECT_EQ(registerHex("17"), "0014");
}

TEST_F(Hazards, AFileOfTheSimpleMenuLeavesNothingToTheNextFile) {
  chooseHiLo();
  saveTo(file("hi-lo.cfg"));
  setSimpleMenu(true);
  saveTo(file("simple.cfg"));
  open(file("simple.cfg"));
  open(file("hi-lo.cfg"));
  EXPECT_EQ(editor().cboAl1Setup.text(), "Hi/Lo");
  EXPECT_EQ(editor().cboAl2Setup.text(), "Hi/Lo");
  writeWell();
  EXPECT_EQ(bits("09") >> 4 & 3, 2);
  EXPECT_EQ(bits("0A") >> 4 & 3, 2);
}

// The tab of that line has no sliders for the percentages; a file may carry them all the same.
TEST_F(Hazards, AFileOfTheRkw77LineKeepsItsPercentages) {
  chooseModel(rkw77Row);
  Memo[rec::HSOut1Low].text = "25";
  Memo[rec::HSOut1High].text = "75";
  user().exchangeFile(file("own.cfg"), configModelPart(1) + configSetupPart(1, 1));
  chooseModel(torvaneRow);
  click(user(), editor(), "cmdFactoryDefaults");
  EXPECT_NE(Memo[rec::HSOut1Low].text, "25");
  open(file("own.cfg"));
  saveTo(file("kept.cfg"));
  EXPECT_EQ(Memo[rec::HSOut1Low].text, "25");
  EXPECT_EQ(Memo[rec::HSOut1High].text, "75");
  Memo[rec::HSOut1Low].text = Memo[rec::HSOut1High].text = "";
  open(file("kept.cfg"));
  EXPECT_EQ(Memo[rec::HSOut1Low].text, "25");
  EXPECT_EQ(Memo[rec::HSOut1High].text, "75");
}

TEST_F(Hazards, AnInputOfTemperatureTakesTheDecimalsAway) {
  press(tab::inputType, "optInType_2");
  press(tab::reading, "optDpoint_3");
  enter(tab::setpoints, "txtSp1", "1.234");
  press(tab::inputType, "optInType_1");
  writeWell();
  EXPECT_EQ(bits("08") & 7, 2);
  EXPECT_EQ(registerHex("01"), "20000C");
  EXPECT_EQ(shown("txtSp1"), "001.2");
}

TEST_F(Hazards, AnAlarmTickedOffGoesOffInAUnitWithoutAnAnalogOutput) {
  setRegister("09", "01");
  readFromUnit();
  ASSERT_EQ(editor().chkAl1Enabled.value(), 1);
  press(tab::alarm1, "chkAl1Enabled");
  writeWell();
  EXPECT_EQ(bits("09") & 1, 0);
}

TEST_F(Hazards, TheSimpleMenuTurnsHiLoIntoAbove) {
  chooseHiLo();
  setSimpleMenu(true);
  EXPECT_EQ(editor().cboAl1Setup.text(), "Above");
  EXPECT_EQ(editor().cboAl2Setup.text(), "Above");
  writeWell();
  EXPECT_EQ(registerHex("09").size(), 2U);
  for (const char* output : {"0C", "0D"}) EXPECT_EQ(bits(output) & 2, 2) << "the alarm's Above is kept here";
}

TEST_F(Hazards, DeadBandsOfTheSimpleMenuGoRoundAllTabsToTheUnitAndBackToTheFullMenu) {
  setSimpleMenu(true);
  enter(tab::alarm1, "txtAl1Deadband", "1.5");
  enter(tab::alarm2, "txtAl2Deadband", "2.5");
  for (int step = 0; step < 12; ++step) click(user(), editor(), "cmdNext");
  writeWell();
  EXPECT_EQ(registerHex("17"), "000F");
  EXPECT_EQ(registerHex("1C"), "0019");
  setSimpleMenu(false);
  EXPECT_EQ(shown("txtOut1DeadBand"), "001.5");
  EXPECT_EQ(shown("txtOut2DeadBand"), "002.5");
}

TEST_F(Hazards, AUnitThatEndsItsLinesInBothCharactersIsWrittenAndRead) {
  server.with([](sim::Unit& there) {
    there.faults.lineEnd = "\r\n";
    there.faults.byteGap = 10.0 / 9600;
  });
  setRegister("08", "10");
  enter(tab::setpoints, "txtSp1", "123.4");
  writeWell();
  EXPECT_EQ(registerHex("01"), "2004D2");
  EXPECT_EQ(bits("08"), 0x4A | unitsOwnBit);
  setRegister("01", "2000C8");
  readFromUnit();
  expectGood();
  EXPECT_EQ(shown("txtSp1"), "020.0");
}

TEST_F(Hazards, AUnitThatIsSlowAtItsWritesAloneLosesNothing) {
  writeWell();
  server.with([](sim::Unit& there) {
    there.faults.slow = {{"W", 0.9}};
    there.faults.busy = true;
  });
  setRegister("08", "10");
  enter(tab::setpoints, "txtSp1", "123.4");
  enter(tab::setpoints, "txtSp2", "-50.5");
  writeWell();
  EXPECT_EQ(registerHex("01"), "2004D2");
  EXPECT_EQ(registerHex("02"), "A001F9");
  EXPECT_EQ(bits("08"), 0x4A | unitsOwnBit);
}

}  // namespace

}  // namespace torvane
