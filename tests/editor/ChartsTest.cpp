// SPDX-License-Identifier: MIT
// The charts follow the boxes with every key, whatever way a setup came into the window.
#include <utility>

#include <gmock/gmock.h>

#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

class Charts : public EditorTest {
 protected:
  void chooseProcess() {
    showTab(tab::inputType);
    editor.optInType(2).userClicked();
    showTab(tab::reading);
  }
};

TEST_F(Charts, FollowEveryKey) {
  chooseProcess();
  editor.optDpoint(1).userClicked();
  editor.txtIn1.userTyped("2000");
  editor.txtRd1.userTyped("0");
  editor.txtIn2.userTyped("9999");
  editor.txtRd2.userTyped("");
  EXPECT_EQ(editor.plotReading.chart().reason, "Reading of point 2 is not a number from -999 to 9999.");
  editor.txtRd2.userTyped("1000");
  EXPECT_EQ(editor.plotReading.chart().words,
            "Reading against input: 0.0 at 2000 counts, 100.0 at 9999 counts, a rising line.");
}

TEST_F(Charts, CountInTheFormatOfTheReading) {
  chooseProcess();
  for (const auto& [format, reading] : {std::pair{0, "400"}, {1, "40.0"}, {2, "4.00"}, {3, "0.400"}}) {
    editor.optDpoint(static_cast<std::size_t>(format)).userClicked();
    editor.txtIn1.userTyped("0");
    editor.txtRd1.userTyped("0");
    editor.txtIn2.userTyped("9999");
    editor.txtRd2.userTyped("400");
    EXPECT_THAT(editor.plotReading.chart().words,
                testing::HasSubstr(", " + std::string(reading) + " at 9999 counts, "))
        << format;
  }
}

TEST_F(Charts, OfTheReadingStandBesideAScaleOnly) {
  chooseProcess();
  EXPECT_TRUE(editor.plotReading.visible());
  showTab(tab::inputType);
  editor.optInType(0).userClicked();
  EXPECT_FALSE(editor.plotReading.visible());
}

TEST_F(Charts, OfAnAlarmFollowItsChoices) {
  showTab(tab::alarm1);
  EXPECT_EQ(editor.plotAlarm1.chart().reason, "Alarm 1 is off.");
  editor.chkAl1Enabled.userClicked();
  EXPECT_EQ(editor.plotAlarm1.chart().words,
            "Alarm 1. Alarm above 400.0 " + editor.cboTUnit.text() + ". The display is then Red.");
  editor.cboAl1Setup.userChose(2);
  EXPECT_EQ(editor.plotAlarm1.chart().zones.size(), 3U);
}

TEST_F(Charts, OfTheRkw77LineHaveNoColours) {
  chooseUnit(kind::rkw77, false);
  fitForm();
  showTab(tab::alarm1);
  if (!editor.chkAl1Enabled.ticked()) editor.chkAl1Enabled.userClicked();
  ASSERT_FALSE(editor.plotAlarm1.chart().zones.empty());
  for (const ChartZone& zone : editor.plotAlarm1.chart().zones) EXPECT_EQ(zone.color, ZoneColor::none);
}

TEST_F(Charts, OfTheSimpleMenuShowTheDeadBand) {
  chooseUnit(kind::simpleMenu, false);
  fitForm();
  showTab(tab::alarm2);
  EXPECT_TRUE(editor.plotAlarm2.chart().words.starts_with("Alarm 2. ")) << editor.plotAlarm2.chart().words;
  ASSERT_EQ(editor.plotAlarm2.chart().zones.size(), 3U) << editor.plotAlarm2.chart().reason;
  EXPECT_EQ(editor.plotAlarm2.chart().zones[1].kind, ZoneKind::deadBand);
}

TEST_F(Charts, OfRampAndSoakFollowTicksAndTimes) {
  showTab(tab::rampSoak);
  EXPECT_EQ(editor.plotRampSoak.chart().reason, "The ramp is off.");
  editor.chkRampEn.userClicked();
  editor.txtRampT.userTyped("01:30");
  EXPECT_EQ(editor.plotRampSoak.chart().marks.size(), 1U);
  editor.chkSoakEn.userClicked();
  EXPECT_EQ(editor.plotRampSoak.chart().marks.size(), 2U);
  EXPECT_EQ(editor.plotRampSoak.chart().marks[0].text, "ramp 01:30");
}

TEST_F(Charts, OfTheAnalogOutputFollowItsMode) {
  chooseUnit(kind::fullController, true);
  fitForm();
  showTab(tab::analog);
  if (!editor.chkAnalogOutputEnabled.ticked()) editor.chkAnalogOutputEnabled.userClicked();
  editor.txtAOutOut2.userTyped("10");
  editor.optAOutI.userClicked();
  EXPECT_EQ(editor.plotAnalog.chart().up.title, "Output (mA)");
  editor.optAOutV.userClicked();
  EXPECT_EQ(editor.plotAnalog.chart().up.title, "Output (V)");
}

TEST_F(Charts, FollowASetupThatIsTakenBack) {
  showTab(tab::alarm1);
  editor.chkAl1Enabled.userClicked();
  editor.txtAl1HiSp.userTyped("300.0");
  EXPECT_NE(editor.plotAlarm1.chart().words.find("300.0"), std::string::npos);
  editor.cmdReset.userClicked();
  EXPECT_EQ(editor.plotAlarm1.chart().reason, "Alarm 1 is off.");
}

}  // namespace

}  // namespace torvane
