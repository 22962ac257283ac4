// SPDX-License-Identifier: MIT
// The rows of the report's sections: every record gets words of its own, so that none can stand for another.
#include <algorithm>
#include <string>

#include "knowledge/ReportSections.h"
#include "tests/dialogs/ReportBench.h"

namespace torvane {

namespace {

class ReportSections : public ReportBench {
 protected:
  ReportSections() {
    for (int record = 0; record < MemoArray::count; ++record) {
      Memo[record] = {.text = "t" + std::to_string(record)};
    }
  }

  // The section alone, from Memo as it stands.
  static std::string section(int number) {
    Sheet sheet;
    printSection(sheet.printer, number);
    return sheet.paper->asText();
  }
  // Its rows whether the unit has the section or not.
  static bool has(int number, const std::string& line) {
    return section(number).find("\n" + line + "\n") != std::string::npos;
  }
};

TEST_F(ReportSections, AreThirteenAndTheFirstAndTheLastTwoHaveNoSpaceAfterThem) {
  ASSERT_EQ(reportSections().size(), 13U);
  for (std::size_t number = 0; number < 13; ++number) {
    EXPECT_EQ(reportSections()[number].spaceAfter, number > 0 && number < 11) << number;
  }
}

TEST_F(ReportSections, OfTheIdCodeNameTheProtection) {
  const char* const names[] = {"None", "Setpoints", "Full"};
  for (int level = 0; level < 3; ++level) {
    Memo[rec::optIDCode + level].flag = True;
    EXPECT_EQ(section(0), std::string("*ID Code:*|t0\nProtection:|") + names[level] + "\n");
    Memo[rec::optIDCode + level].flag = False;
  }
  EXPECT_EQ(section(0), "*ID Code:*|t0\nProtection:\n");
  for (int level = 0; level < 3; ++level) Memo[rec::optIDCode + level].flag = True;
  EXPECT_EQ(section(0), "*ID Code:*|t0\nProtection:|None\nSetpoints\nFull\n");
}

TEST_F(ReportSections, OfTheSetPointsNameTheColor) {
  const char* const names[] = {"Red", "Green", "Amber"};
  for (std::int16_t color = 0; color < 3; ++color) {
    Memo[rec::cboNormalColor].extra = color;
    EXPECT_EQ(section(1), std::string("*Set Points*\nSet-Point 1:|t1\nSet-Point 2:|t2\nColor when normal:|") +
                              names[color] + "\n");
  }
  Memo[rec::cboNormalColor].extra = -1;
  EXPECT_TRUE(has(1, "Color when normal:|Amber"));
}

TEST_F(ReportSections, OfTheInputNameThermocoupleRtdOrProcess) {
  Memo[rec::lstTCTypes].value = 5;
  Memo[rec::cboRTDValue].value = 1;
  Memo[rec::cboRTDWires].value = 2;
  Memo[rec::cboRTDCurves].value = 1;
  Memo[rec::lstProc].value = 3;
  EXPECT_EQ(section(2), "Input Type:|Process 0 - 20mA\n");
  Memo[rec::optInType + 1].flag = True;
  EXPECT_EQ(section(2), "Input Type:|RTD 500 ohm  4 wires  392\n");
  Memo[rec::optInType].flag = True;
  EXPECT_EQ(section(2), "Input Type:|TC DIN J-type\n");
}

TEST_F(ReportSections, OfTheReadingNameTheFormatTheFirstOneSet) {
  const char* const formats[] = {"XXXX.", "XXX.X", "XX.XX", "X.XXX"};
  for (int format = 3; format >= 0; --format) {
    Memo[rec::optDpoint + format].flag = True;
    EXPECT_TRUE(has(3, std::string("Decimal Point:|") + formats[format])) << format;
  }
}

TEST_F(ReportSections, OfTheReadingHaveTheScaleUnderAHeadingOfItsOwn) {
  Memo[rec::lstFiltConst].value = 7;
  EXPECT_EQ(section(3),
            "*Reading Configuration*\nDecimal Point:|X.XXX\nTemperature Unit:|C\nFilter Constant:|128\n"
            "*Reading Scale & Offset*\nIn 1:|t19\nRead 1:|t20\nIn 2:|t21\nRead 2:|t22\n");
}

TEST_F(ReportSections, PrintAnEmptyTextForARowThatAListHasNot) {
  Sheet sheet;
  for (int row : {-1, 2}) {
    Memo[rec::cboTUnit].value = static_cast<std::int16_t>(row);
    EXPECT_TRUE(has(3, "Temperature Unit:")) << row;
  }
  Memo[rec::optInType].flag = True;
  Memo[rec::lstTCTypes].value = 10;
  EXPECT_EQ(section(2), "Input Type:|TC -type\n");
}

TEST_F(ReportSections, OfAlarm1ComeFromItsRecords) {
  Memo[rec::chkAl1Enabled].value = 1;
  Memo[rec::cboAl1WhenActiveColor].extra = 1;
  Memo[rec::cboAl1Ctrl].value = 1;
  Memo[rec::cboAl1Closure].value = 1;
  Memo[rec::cboAl1Setup].value = 1;
  EXPECT_EQ(section(4),
            "*Alarm 1*\nEnabled:|1\nColor when active:|Green\nControl:|Deviation\nLatch:|Latch\n"
            "Closure:|Norm Close\nSetup:|Below\nAuto Power-On:|0\nHigh Set-Point:|t29\nLow Set-Point:|t30\n");
  Memo[rec::cboAl1Latch].value = 1;
  Memo[rec::chkAl1AutoPOn].value = 1;
  EXPECT_TRUE(has(4, "Latch:|Unlatch"));
  EXPECT_TRUE(has(4, "Auto Power-On:|1"));
}

TEST_F(ReportSections, OfAlarm2ComeFromItsRecords) {
  Memo[rec::chkAl2Enabled].value = 1;
  Memo[rec::cboAl2WhenActiveColor].extra = 1;
  Memo[rec::cboAl2Ctrl].value = 1;
  Memo[rec::cboAl2Closure].value = 1;
  Memo[rec::cboAl2Setup].value = 2;
  EXPECT_EQ(section(5),
            "*Alarm 2*\nEnabled:|1\nColor when active:|Green\nControl:|Deviation\nLatch:|Latch\n"
            "Closure:|Norm Close\nSetup:|Hi/Lo\nHigh Set-Point:|t36\nLow Set-Point:|t37\n");
  Memo[rec::cboAl2Latch].value = 1;
  EXPECT_TRUE(has(5, "Latch:|Unlatch"));
}

TEST_F(ReportSections, OfTheSimpleMenuEndWithTheProportionalBandAsDeadBand) {
  chooseUnit(kind::simpleMenu, false);
  EXPECT_EQ(section(4),
            "*Alarm 1*\nEnabled:|0\nColor when active:|Red\nLatch:|Latch\nSetup:|Above\nDead Band:|t54\n");
  EXPECT_EQ(section(5),
            "*Alarm 2*\nEnabled:|0\nColor when active:|Red\nLatch:|Latch\nSetup:|Above\nDead Band:|t54\n");
}

TEST_F(ReportSections, OfTheLoopBreakAlarmAreForFullControllersAlone) {
  Memo[rec::chkLBAEnabled].value = 1;
  EXPECT_EQ(
      section(6),
      "*Loop Break Alarm / Reading Adjust*\nEnabled:|1\nLoop Break Time:|t40\nTemperature Adjust:|t41\n");
  for (int kind : {kind::alarmsOnly, kind::simpleMenu, kind::monitorOnly, kind::rkw77}) {
    chooseUnit(kind, false);
    EXPECT_EQ(section(6), "*Loop Break Alarm / Reading Adjust*\nTemperature Adjust:|t41\n") << kind;
  }
}

TEST_F(ReportSections, OfOutput1OnOffHaveADeadBand) {
  EXPECT_EQ(
      section(7),
      "*Out 1*\nSelf Enabled:|False\n4-20mA Enabled:|False\nControl Type:|On/Off\nAction Type:|Reverse\n"
      "Auto PID:|Disabled\nAnti-Integeral:|Disabled\nDead Band:|t53\nManual % low:|t47\nManual % "
      "high:|t48\n");
}

TEST_F(ReportSections, OfOutput1InPidHaveItsBandAndTimes) {
  for (int record :
       {rec::chkOut1Self, rec::cboOut1Ctrl, rec::cboOut1Action, rec::chkOut1AutoPID, rec::chkOut1Anti}) {
    Memo[record].value = 1;
  }
  Memo[rec::opt420mA].flag = True;
  Memo[rec::lstOut1DamFactor].value = 6;
  Memo[rec::HSOut1CycleT].value = 199;
  EXPECT_EQ(section(7),
            "*Out 1*\nSelf Enabled:|True\n4-20mA Enabled:|True\nControl Type:|PID\nAction Type:|Direct\n"
            "Auto PID:|Enabled\nAnti-Integeral:|Enabled\nProp. Band:|t54\nReset:|t55\nRate:|t56\n"
            "Damping Factor:|6\nCycle Time:|199s\nManual % low:|t47\nManual % high:|t48\n");
}

TEST_F(ReportSections, CountOneAloneAsSet) {
  Memo[rec::chkOut1Self].value = -1;
  Memo[rec::chkOut1AutoPID].value = -1;
  Memo[rec::chkRampEn].value = 2;
  EXPECT_TRUE(has(7, "Self Enabled:|False"));
  EXPECT_TRUE(has(7, "Auto PID:|Disabled"));
  EXPECT_TRUE(has(9, "Ramp Enabled:|False"));
}

TEST_F(ReportSections, OfOutput1SayThatTheRkw77LineKeepsItsPercentagesToItself) {
  DeviceState.IsRkw77 = True;
  const auto rows = reportSections()[7].rows;
  const auto printed = [&](std::string_view label) {
    const auto row = std::ranges::find_if(rows, [&](const ReportRow& each) { return each.label == label; });
    return row != rows.end() && row->printed();
  };
  EXPECT_TRUE(printed("** The Proportional Output values are not readable from the meter. **"));
  EXPECT_FALSE(printed("Manual % low:       "));
  EXPECT_FALSE(printed("Manual % high:     "));
  DeviceState.IsRkw77 = False;
  EXPECT_FALSE(printed("** The Proportional Output values are not readable from the meter. **"));
}

TEST_F(ReportSections, OfOutput2ComeFromItsRecords) {
  EXPECT_EQ(section(8),
            "*Out 2*\nControl Type:|On/Off\nAction Type:|Reverse\nAuto PID|Disabled\nDead Band:|t61\n");
  for (int record : {rec::cboOut2Ctrl, rec::cboOut2Action, rec::chkOut2AutoPID}) Memo[record].value = 1;
  Memo[rec::HSOut2CycleT].value = 7;
  EXPECT_EQ(
      section(8),
      "*Out 2*\nControl Type:|PID\nAction Type:|Direct\nAuto PID|Enabled\nProp. Band:|t62\nCycle Time:|7s\n");
}

TEST_F(ReportSections, OfRampAndSoakComeFromTheirRecords) {
  Memo[rec::chkRampEn].value = 1;
  EXPECT_EQ(section(9),
            "*Ramp & Soak*\nRamp Enabled:|True\nSoak Enabled:|False\nRamp Value:|t65\nSoak Value:|t66\n");
  Memo[rec::chkSoakEn].value = 1;
  EXPECT_TRUE(has(9, "Soak Enabled:|True"));
}

TEST_F(ReportSections, OfTheAnalogOutputComeFromTheirRecords) {
  Memo[rec::chkAnalogOutputEnabled].value = 1;
  EXPECT_EQ(
      section(10),
      "*Analog Output*\nEnabled:|1\nMode|Current\nRead 1|t69\nRead 2|t71\nOutput 1|t70\nOutput 2|t72\n");
  Memo[rec::optAOutV].flag = True;
  EXPECT_TRUE(has(10, "Mode|Volt"));
}

TEST_F(ReportSections, OfOutputsRampAndSoakAreForFullControllersAlone) {
  for (int kind : {kind::alarmsOnly, kind::simpleMenu, kind::monitorOnly, kind::rkw77}) {
    chooseUnit(kind, false);
    for (int number : {7, 8, 9}) EXPECT_EQ(section(number), "") << number;
  }
}

}  // namespace

}  // namespace torvane
