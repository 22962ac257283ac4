// SPDX-License-Identifier: MIT
// The controls of the main window, tab by tab in reading order, with captions, lists, ranges and tool tips.
//
// Option buttons directly inside one frame or page form a group. What hides or shows together lies in one
// frame. The longer texts are set by frmBigFolder::setFixedTexts.
#pragma once

#include <cstdint>
#include <string>

#include "core/Choices.h"
#include "platform/Chart.h"
#include "platform/Controls.h"
#include "platform/Form.h"

namespace torvane {

// The tabs in their order.
namespace tab {
enum : std::int16_t {
  idCode,
  setpoints,
  inputType,
  reading,
  alarm1,
  alarm2,
  lbAlarm,
  out1,
  out2,
  rampSoak,
  analog,
  comm,
  count
};
}

// A picture whose file bears its name.
struct Drawing : Picture {
  Drawing(Container& container, const std::string& name) : Picture(container, name, name) {}
};

inline constexpr const char* portListTip = "Serial port of this computer";  // while none is chosen

struct BigFolderControls : Form {
  BigFolderControls();

  TabStrip tabBig{*this,
                  "tabBig",
                  {"ID code", "Setpoints", "Input type", "Reading", "Alarm 1", "Alarm 2", "LB alarm", "Out1",
                   "Out2", "Ramp/Soak", "Analog", "Comm"}};

  // Tab 0, ID code. The protection levels are committed with tab 1.
  TabPage& pageIDCode = tabBig.page(tab::idCode);
  Frame fraIDEntry{pageIDCode, "fraIDEntry", "ID code"};
  Label lblIDInst{fraIDEntry, "lblIDInst"};
  Label lblIDCode{fraIDEntry, "lblIDCode", "&ID code"};
  TextBox txtIDCode{fraIDEntry, "txtIDCode",
                    "Four digits; a shorter code is filled up with zeros at its end"};
  Label lblIDWarn{fraIDEntry, "lblIDWarn",
                  "Keep a note of the code: without it the protected settings can't be reached at the unit."};
  Label lblIDDisabled{fraIDEntry, "lblIDDisabled"};
  Frame fraIDCode{pageIDCode, "fraIDCode", "Protection"};
  ControlArray<OptionButton> optIDCode{fraIDCode, "optIDCode", {"Disabl&e", "&Setpoint", "F&ull"}};

  // Tab 1, Setpoints
  TabPage& pageSetpoints = tabBig.page(tab::setpoints);
  Frame fraSetpoints{pageSetpoints, "fraSetpoints", "Setpoints"};
  Label text_Sp1{fraSetpoints, "text_Sp1", "Setpoint &1"};
  TextBox txtSp1{fraSetpoints, "txtSp1", "Setpoint 1, in the format of the Reading tab"};
  Label text_Sp2{fraSetpoints, "text_Sp2", "Setpoint &2"};
  TextBox txtSp2{fraSetpoints, "txtSp2", "Setpoint 2, in the format of the Reading tab"};
  CheckBox chkSPDeviation{fraSetpoints, "chkSPDeviation", "Setpoint 2 is a de&viation from setpoint 1",
                          "Checked: set point 2 is added to set point 1 and follows it"};
  Label lblSwap{fraSetpoints, "lblSwap"};
  Frame fraColor{pageSetpoints, "fraColor", "Display color"};
  Label lblColorWhenNormal{fraColor, "lblColorWhenNormal", "&Color when normal"};
  ComboBox cboNormalColor{fraColor, "cboNormalColor", choices::normalColors,
                          "Color of the display while no alarm is active"};

  // Tab 2, Input type
  TabPage& pageInputType = tabBig.page(tab::inputType);
  Frame fraInput{pageInputType, "fraInput", "Input"};
  ControlArray<OptionButton> optInType{fraInput, "optInType", {"Ther&mocouples", "R&TD", "Pro&cess"}};
  ControlArray<Frame> fraInType{pageInputType, "fraInType", {"TC Types", "RTD Types", "Process Setup"}};
  Label text_TCTypes{fraInType(0), "text_TCTypes", "Typ&e"};
  ListBox lstTCTypes{fraInType(0), "lstTCTypes", choices::thermocouples, "Type of the thermocouple"};
  Label text_RTDValue{fraInType(1), "text_RTDValue", "Va&lue"};
  ComboBox cboRTDValue{fraInType(1), "cboRTDValue", choices::rtdValues,
                       "Resistance of the sensor at 0 C, in ohms"};
  Label text_RTDValueUnit{fraInType(1), "text_RTDValueUnit", "ohm"};
  Label text_RTDCurves{fraInType(1), "text_RTDCurves", "C&urve"};
  ComboBox cboRTDCurves{fraInType(1), "cboRTDCurves", choices::rtdCurves,
                        "Curve of the sensor: 0.00385 or 0.00392 per C"};
  Label text_RTDWires{fraInType(1), "text_RTDWires", "Wire&s"};
  ComboBox cboRTDWires{fraInType(1), "cboRTDWires", choices::rtdWires,
                       "Wires between the sensor and the unit"};
  Label text_Proc{fraInType(2), "text_Proc", "Ran&ge"};
  ListBox lstProc{fraInType(2), "lstProc", choices::processRanges, "Range of the process signal"};
  // How the chosen input is wired: one is on show.
  Drawing imgTC{pageInputType, "imgTC"};
  Drawing imgRTD2Wire{pageInputType, "imgRTD2Wire"};
  Drawing imgRTD3Wire{pageInputType, "imgRTD3Wire"};
  Drawing imgRTD4Wire{pageInputType, "imgRTD4Wire"};
  Drawing imgRTD5002Wires{pageInputType, "imgRTD5002Wires"};
  Drawing imgRTD5003Wires{pageInputType, "imgRTD5003Wires"};
  Drawing imgRTD5004Wires{pageInputType, "imgRTD5004Wires"};
  Drawing imgRTD1K2Wires{pageInputType, "imgRTD1K2Wires"};
  Drawing imgRTD1K3Wires{pageInputType, "imgRTD1K3Wires"};
  Drawing imgRTD1K4Wires{pageInputType, "imgRTD1K4Wires"};
  Drawing imgProc100m{pageInputType, "imgProc100m"};
  Drawing imgProcV{pageInputType, "imgProcV"};
  Drawing imgProcI{pageInputType, "imgProcI"};
  // The same for the second family, over the first: one wiring and one switch picture.
  Drawing imgLK_TC{pageInputType, "imgLK_TC"};
  Drawing imgLK_RTD2Wire{pageInputType, "imgLK_RTD2Wire"};
  Drawing imgLK_RTD3Wire{pageInputType, "imgLK_RTD3Wire"};
  Drawing imgLK_RTD4Wire{pageInputType, "imgLK_RTD4Wire"};
  Drawing imgLK_RTD5002Wires{pageInputType, "imgLK_RTD5002Wires"};
  Drawing imgLK_RTD5003Wires{pageInputType, "imgLK_RTD5003Wires"};
  Drawing imgLK_RTD5004Wires{pageInputType, "imgLK_RTD5004Wires"};
  Drawing imgLK_RTD1K2Wires{pageInputType, "imgLK_RTD1K2Wires"};
  Drawing imgLK_RTD1K3Wires{pageInputType, "imgLK_RTD1K3Wires"};
  Drawing imgLK_RTD1K4Wires{pageInputType, "imgLK_RTD1K4Wires"};
  Drawing imgLK_Proc100m{pageInputType, "imgLK_Proc100m"};
  Drawing imgLK_ProcV{pageInputType, "imgLK_ProcV"};
  Drawing imgLK_ProcI{pageInputType, "imgLK_ProcI"};
  Drawing imgLK_switchTC{pageInputType, "imgLK_switchTC"};
  Drawing imgLK_switchRTD100{pageInputType, "imgLK_switchRTD100"};
  Drawing imgLK_switchRTD500_1k{pageInputType, "imgLK_switchRTD500_1k"};
  Drawing imgLK_switch100mv{pageInputType, "imgLK_switch100mv"};
  Drawing imgLK_switch1V{pageInputType, "imgLK_switch1V"};
  Drawing imgLK_switch10V{pageInputType, "imgLK_switch10V"};
  Drawing imgLK_switch20ma{pageInputType, "imgLK_switch20ma"};

  // Tab 3, Reading
  TabPage& pageReading = tabBig.page(tab::reading);
  Frame fraReadBasic{pageReading, "fraReadBasic", "Reading"};
  Label text_Dpoint{fraReadBasic, "text_Dpoint", "D&ecimal point"};
  ControlArray<OptionButton> optDpoint{fraReadBasic, "optDpoint", {"xxxx.", "xxx.x", "xx.xx", "x.xxx"}};
  Label lblTUnit{fraReadBasic, "lblTUnit", "Temperat&ure unit"};
  ComboBox cboTUnit{fraReadBasic, "cboTUnit", choices::temperatureUnits,
                    "Unit of the reading and of all set points"};
  Label text_FiltConst{fraReadBasic, "text_FiltConst", "Fi&lter constant"};
  ListBox lstFiltConst{fraReadBasic, "lstFiltConst", choices::filters,
                       "Readings in the averaging filter: more are calmer, fewer are quicker"};
  Label text_FiltUnit{fraReadBasic, "text_FiltUnit", "readings"};
  Frame fraSOffset{pageReading, "fraSOffset", "Scale and offset"};
  Label text_InVi{fraSOffset, "text_InVi", "Input (V, mA)"};
  Label text_In{fraSOffset, "text_In", "Input counts"};
  Label text_Rd{fraSOffset, "text_Rd", "Reading"};
  Label text_Point1{fraSOffset, "text_Point1", "Point &1"};
  TextBox txtIn1Vi{fraSOffset, "txtIn1Vi", "Input at point 1, in volts or milliamps"};
  TextBox txtIn1{fraSOffset, "txtIn1", "Input at point 1, 0 to 9999 counts"};
  TextBox txtRd1{fraSOffset, "txtRd1", "Reading wanted at point 1, -999 to 9999 counts"};
  Label text_Point2{fraSOffset, "text_Point2", "Point &2"};
  TextBox txtIn2Vi{fraSOffset, "txtIn2Vi", "Input at point 2, in volts or milliamps"};
  TextBox txtIn2{fraSOffset, "txtIn2", "Input at point 2, 0 to 9999 counts"};
  TextBox txtRd2{fraSOffset, "txtRd2", "Reading wanted at point 2, -999 to 9999 counts"};
  Frame fraNoSOffset{pageReading, "fraNoSOffset", "Scale and offset"};
  Plot plotReading{pageReading, "plotReading", "The reading against the input, drawn from the boxes"};

  // Tab 4, Alarm 1
  TabPage& pageAlarm1 = tabBig.page(tab::alarm1);
  Label text_NoSOffset{fraNoSOffset, "text_NoSOffset",
                       "Thermocouples and RTDs need no scale: the unit knows them."};
  CheckBox chkAl1Enabled{pageAlarm1, "chkAl1Enabled", "&Enable alarm 1",
                         "Alarm 1 takes the place of output 1"};
  CheckBox chkAl1AutoPOn{pageAlarm1, "chkAl1AutoPOn", "A&uto power-on",
                         "Checked: the alarm can act as soon as the unit has power"};
  Frame fraAl1Config{pageAlarm1, "fraAl1Config", "Alarm 1 configuration"};
  Label lblAl1Ctrl{fraAl1Config, "lblAl1Ctrl", "&Control"};
  ComboBox cboAl1Ctrl{fraAl1Config, "cboAl1Ctrl", choices::alarmControls,
                      "Absolute: compared with the reading; deviation: with its distance from the set point"};
  Label text_Al1Latch{fraAl1Config, "text_Al1Latch", "&Latch"};
  ComboBox cboAl1Latch{fraAl1Config, "cboAl1Latch", choices::latches,
                       "Latch: the alarm stays until it is reset; unlatch: it ends with its cause"};
  Label lblAl1Closure{fraAl1Config, "lblAl1Closure", "Clo&sure"};
  ComboBox cboAl1Closure{fraAl1Config, "cboAl1Closure", choices::closures,
                         "Contact while the alarm is not active"};
  Label text_Al1Setup{fraAl1Config, "text_Al1Setup", "Se&tup"};
  ComboBox cboAl1Setup{
      fraAl1Config, "cboAl1Setup", choices::alarmSetups,
      "Where the alarm is active: above, below or outside its set points, or outside a band"};
  Label lblAl1Color{fraAl1Config, "lblAl1Color", "Color when acti&ve"};
  ComboBox cboAl1WhenActiveColor{fraAl1Config, "cboAl1WhenActiveColor", choices::colors,
                                 "Color of the display while alarm 1 is active"};
  Frame fraAl1Spts{pageAlarm1, "fraAl1Spts", "Alarm 1 setpoints"};
  Label text_Al1HiSp{fraAl1Spts, "text_Al1HiSp", "Hi&gh setpoint"};
  TextBox txtAl1HiSp{fraAl1Spts, "txtAl1HiSp", "High setpoint, in the format of the Reading tab"};
  Label text_Al1LoSp{fraAl1Spts, "text_Al1LoSp", "Low setpo&int"};
  TextBox txtAl1LoSp{fraAl1Spts, "txtAl1LoSp", "Low setpoint, in the format of the Reading tab"};
  Frame fraAl1Deadband{pageAlarm1, "fraAl1Deadband", "Alarm 1 dead band"};
  Label text_Al1Deadband{fraAl1Deadband, "text_Al1Deadband", "De&ad band"};
  TextBox txtAl1Deadband{fraAl1Deadband, "txtAl1Deadband", "Dead band, in the format of the Reading tab"};
  Plot plotAlarm1{pageAlarm1, "plotAlarm1", "Where alarm 1 is active, drawn from the boxes"};

  // Tab 5, Alarm 2
  TabPage& pageAlarm2 = tabBig.page(tab::alarm2);
  CheckBox chkAl2Enabled{pageAlarm2, "chkAl2Enabled", "&Enable alarm 2",
                         "Alarm 2 takes the place of output 2"};
  Frame fraAl2Cnfg{pageAlarm2, "fraAl2Cnfg", "Alarm 2 configuration"};
  Label lblAl2Ctrl{fraAl2Cnfg, "lblAl2Ctrl", "&Control"};
  ComboBox cboAl2Ctrl{fraAl2Cnfg, "cboAl2Ctrl", choices::alarmControls,
                      "Absolute: compared with the reading; deviation: with its distance from the set point"};
  Label text_Al2Latch{fraAl2Cnfg, "text_Al2Latch", "&Latch"};
  ComboBox cboAl2Latch{fraAl2Cnfg, "cboAl2Latch", choices::latches,
                       "Latch: the alarm stays until it is reset; unlatch: it ends with its cause"};
  Label lblAl2Closure{fraAl2Cnfg, "lblAl2Closure", "Clo&sure"};
  ComboBox cboAl2Closure{fraAl2Cnfg, "cboAl2Closure", choices::closures,
                         "Contact while the alarm is not active"};
  Label text_Al2Setup{fraAl2Cnfg, "text_Al2Setup", "Se&tup"};
  ComboBox cboAl2Setup{
      fraAl2Cnfg, "cboAl2Setup", choices::alarmSetups,
      "Where the alarm is active: above, below or outside its set points, or outside a band"};
  Label text_Al2Color{fraAl2Cnfg, "text_Al2Color", "Color when acti&ve"};
  ComboBox cboAl2WhenActiveColor{fraAl2Cnfg, "cboAl2WhenActiveColor", choices::colors,
                                 "Color of the display while alarm 2 is active"};
  Frame fraAl2Spts{pageAlarm2, "fraAl2Spts", "Alarm 2 setpoints"};
  Label text_Al2HiSp{fraAl2Spts, "text_Al2HiSp", "Hi&gh setpoint"};
  TextBox txtAl2HiSp{fraAl2Spts, "txtAl2HiSp", "High setpoint, in the format of the Reading tab"};
  Label text_Al2LoSp{fraAl2Spts, "text_Al2LoSp", "Low setpo&int"};
  TextBox txtAl2LoSp{fraAl2Spts, "txtAl2LoSp", "Low setpoint, in the format of the Reading tab"};
  Frame fraAl2Deadband{pageAlarm2, "fraAl2Deadband", "Alarm 2 dead band"};
  Label text_Al2Deadband{fraAl2Deadband, "text_Al2Deadband", "De&ad band"};
  TextBox txtAl2Deadband{fraAl2Deadband, "txtAl2Deadband", "Dead band, in the format of the Reading tab"};
  Plot plotAlarm2{pageAlarm2, "plotAlarm2", "Where alarm 2 is active, drawn from the boxes"};

  // Tab 6, LB alarm
  TabPage& pageLBAlarm = tabBig.page(tab::lbAlarm);
  Frame fraLBAlarm{pageLBAlarm, "fraLBAlarm", "Loop break alarm"};
  CheckBox chkLBAEnabled{fraLBAlarm, "chkLBAEnabled", "&Enable loop break alarm",
                         "Watches whether the process answers to the output"};
  Label text_LBATime{fraLBAlarm, "text_LBATime", "Loop break &time"};
  TextBox txtLBATime{fraLBAlarm, "txtLBATime",
                     "Alarm 1 will be raise if the process fail to change 4F/2C/or 10 cts in specified time"};
  Label text_LBATimeUnit{fraLBAlarm, "text_LBATimeUnit", "mm:ss"};
  Frame fraID{pageLBAlarm, "fraID", "ID code"};
  CheckBox chkIDEnabled{fraID, "chkIDEnabled", "&ID Code Enable",
                        "Puts the ID code of the first tab in force"};
  Label lblIDCodeEn{fraID, "lblIDCodeEn"};
  Frame fraTAdjust{pageLBAlarm, "fraTAdjust", "Reading adjust"};
  Label text_TAdjust{fraTAdjust, "text_TAdjust", "Temperature ad&just"};
  TextBox txtTAdjust{fraTAdjust, "txtTAdjust", "Added to every reading, in the format of the Reading tab"};

  // Tab 7, Out1. Of the on/off and the PID frame one is on show.
  TabPage& pageOut1 = tabBig.page(tab::out1);
  Label text_Out1Ctrl{pageOut1, "text_Out1Ctrl", "&Control"};
  ComboBox cboOut1Ctrl{pageOut1, "cboOut1Ctrl", choices::outputControls, "How output 1 is controlled"};
  Label text_Out1Action{pageOut1, "text_Out1Action", "Act&ion"};
  ComboBox cboOut1Action{pageOut1, "cboOut1Action", choices::outputActions,
                         "reverse=heating, direct=cooling"};
  CheckBox chkOut1Self{pageOut1, "chkOut1Self", "Se&lf (manual) control",
                       "The percentage of the output is set by hand at the unit"};
  CheckBox chkOut1Start{pageOut1, "chkOut1Start", "&Start auto-tune after reset",
                        "Needs an output in PID with auto PID on"};
  Frame fraOut1OnOff{pageOut1, "fraOut1OnOff", "On/Off"};
  Label text_Out1DeadBand{fraOut1OnOff, "text_Out1DeadBand", "De&ad band"};
  TextBox txtOut1DeadBand{fraOut1OnOff, "txtOut1DeadBand", "Dead band, in the format of the Reading tab"};
  Frame fraOut1PID{pageOut1, "fraOut1PID", "PID"};
  CheckBox chkOut1AutoPID{fraOut1PID, "chkOut1AutoPID", "A&uto PID",
                          "Checked: the unit finds band, reset and rate itself"};
  Label text_Out1PB{fraOut1PID, "text_Out1PB", "Propor&tional band"};
  TextBox txtOut1PB{fraOut1PID, "txtOut1PB", "Proportional band, in the format of the Reading tab"};
  Label text_Out1Reset{fraOut1PID, "text_Out1Reset", "R&eset"};
  TextBox txtOut1Reset{fraOut1PID, "txtOut1Reset", "Reset time, 0 to 3999 seconds"};
  Label text_Out1ResetUnit{fraOut1PID, "text_Out1ResetUnit", "s"};
  Label text_Out1Rate{fraOut1PID, "text_Out1Rate", "Rate"};
  TextBox txtOut1Rate{fraOut1PID, "txtOut1Rate", "Rate time, 0 to 399.9 seconds"};
  Label text_Out1RateUnit{fraOut1PID, "text_Out1RateUnit", "s"};
  CheckBox chkOut1Anti{fraOut1PID, "chkOut1Anti", "Anti inte&gral", "Prevents overshoot due to windup"};
  Label text_Out1DamFactor{fraOut1PID, "text_Out1DamFactor", "Da&mping factor"};
  ListBox lstOut1DamFactor{fraOut1PID, "lstOut1DamFactor", choices::dampingFactors,
                           "For Auto-tune, larger numbers indicate faster process"};
  Frame fraOut1CycleT{pageOut1, "fraOut1CycleT", "Cycle time"};
  Label text_Out1CycleT{fraOut1CycleT, "text_Out1CycleT", "C&ycle time"};
  ScrollBar HSOut1CycleT{fraOut1CycleT, "HSOut1CycleT", 1, 199, 4, "Cycle time, 1 to 199 seconds"};
  Label lblOut1CycleTDisplay{fraOut1CycleT, "lblOut1CycleTDisplay", "4"};
  Label text_Out1CycleTUnit{fraOut1CycleT, "text_Out1CycleTUnit", "s"};
  Frame fraOut1Manual{pageOut1, "fraOut1Manual", "Manual output"};
  Label text_Out1Low{fraOut1Manual, "text_Out1Low", "Low"};
  ScrollBar HSOut1Low{fraOut1Manual, "HSOut1Low", 0, 99, 0, "Lowest output, 0 to 99 %"};
  Label lblOut1LowDisplay{fraOut1Manual, "lblOut1LowDisplay", "0"};
  Label text_Out1LowUnit{fraOut1Manual, "text_Out1LowUnit", "%"};
  Label text_Out1High{fraOut1Manual, "text_Out1High", "High"};
  ScrollBar HSOut1High{fraOut1Manual, "HSOut1High", 0, 99, 0, "Highest output, 0 to 99 %"};
  Label lblOut1HighDisplay{fraOut1Manual, "lblOut1HighDisplay", "0"};
  Label text_Out1HighUnit{fraOut1Manual, "text_Out1HighUnit", "%"};
  Frame fraOut1420mA{pageOut1, "fraOut1420mA", "Analog output"};
  OptionButton opt020mA{fraOut1420mA, "opt020mA", "&0-20 mA"};
  OptionButton opt420mA{fraOut1420mA, "opt420mA", "&4-20 mA"};

  // Tab 8, Out2. Of the on/off and the PID frame one is on show.
  TabPage& pageOut2 = tabBig.page(tab::out2);
  Label text_Out2Ctrl{pageOut2, "text_Out2Ctrl", "&Control"};
  ComboBox cboOut2Ctrl{pageOut2, "cboOut2Ctrl", choices::outputControls, "How output 2 is controlled"};
  Label text_Out2Action{pageOut2, "text_Out2Action", "Act&ion"};
  ComboBox cboOut2Action{pageOut2, "cboOut2Action", choices::outputActions,
                         "reverse=heating, direct=cooling"};
  Frame fraOut2OnOff{pageOut2, "fraOut2OnOff", "On/Off"};
  Label text_Out2DeadBand{fraOut2OnOff, "text_Out2DeadBand", "De&ad band"};
  TextBox txtOut2DeadBand{fraOut2OnOff, "txtOut2DeadBand", "Dead band, in the format of the Reading tab"};
  Frame fraOut2PID{pageOut2, "fraOut2PID", "PID"};
  CheckBox chkOut2AutoPID{fraOut2PID, "chkOut2AutoPID", "A&uto PID",
                          "Checked: the unit finds the proportional band itself"};
  Label text_Out2PB{fraOut2PID, "text_Out2PB", "Propor&tional band"};
  TextBox txtOut2PB{fraOut2PID, "txtOut2PB", "Proportional band, in the format of the Reading tab"};
  Label lblOut2Pid{fraOut2PID, "lblOut2Pid",
                   "Please enter the value for PB.  Reset and rate are the same as Out 1"};
  Frame fraOut2CycleT{pageOut2, "fraOut2CycleT", "Cycle time"};
  Label text_Out2CycleT{fraOut2CycleT, "text_Out2CycleT", "C&ycle time"};
  ScrollBar HSOut2CycleT{fraOut2CycleT, "HSOut2CycleT", 0, 199, 1, "Cycle time, 1 to 199 seconds"};
  TextBox txtOut2CycleT{fraOut2CycleT, "txtOut2CycleT", "Cycle time, 1 to 199 seconds; Enter takes it over"};
  Label text_Out2CycleTUnit{fraOut2CycleT, "text_Out2CycleTUnit", "s"};

  // Tab 9, Ramp/Soak
  TabPage& pageRampSoak = tabBig.page(tab::rampSoak);
  Frame fraRamp{pageRampSoak, "fraRamp", "Ramp"};
  CheckBox chkRampEn{fraRamp, "chkRampEn", "&Enable ramp", "The set point is approached in the ramp time"};
  Label text_RampT{fraRamp, "text_RampT", "Ra&mp time"};
  TextBox txtRampT{fraRamp, "txtRampT", "Ramp time, hours:minutes, 00:00 to 99:59"};
  Label text_RampTUnit{fraRamp, "text_RampTUnit", "hh:mm"};
  Frame fraSoak{pageRampSoak, "fraSoak", "Soak"};
  CheckBox chkSoakEn{fraSoak, "chkSoakEn", "Enable soa&k", "The set point is held for the soak time"};
  Label text_SoakT{fraSoak, "text_SoakT", "&Soak time"};
  TextBox txtSoakT{fraSoak, "txtSoakT", "Soak time, hours:minutes, 00:00 to 99:59"};
  Label text_SoakTUnit{fraSoak, "text_SoakTUnit", "hh:mm"};
  Drawing picProcess{pageRampSoak, "picProcess"};
  Plot plotRampSoak{pageRampSoak, "plotRampSoak", "The reading over the time, drawn from the boxes"};

  // Tab 10, Analog
  TabPage& pageAnalog = tabBig.page(tab::analog);
  CheckBox chkAnalogOutputEnabled{
      pageAnalog, "chkAnalogOutputEnabled", "&Enable analog output",
      "The reading is sent out again on the analog output, which output 1 then lacks"};
  Frame fraAOutMode{pageAnalog, "fraAOutMode", "Output mode"};
  OptionButton optAOutV{fraAOutMode, "optAOutV", "Volta&ge"};
  OptionButton optAOutI{fraAOutMode, "optAOutI", "&Current"};
  Frame fraAOutSOff{pageAnalog, "fraAOutSOff", "Scale and offset"};
  Label text_AOutRd{fraAOutSOff, "text_AOutRd", "Reading"};
  Label text_AOutOut{fraAOutSOff, "text_AOutOut", "Output (V, mA)"};
  Label text_AOutPoint1{fraAOutSOff, "text_AOutPoint1", "Point &1"};
  TextBox txtAOutRd1{fraAOutSOff, "txtAOutRd1", "Reading at point 1, 0 to 9999 counts"};
  TextBox txtAOutOut1{fraAOutSOff, "txtAOutOut1", "Output at point 1, 0 to 10 V or 0 to 20 mA"};
  Label text_AOutPoint2{fraAOutSOff, "text_AOutPoint2", "Point &2"};
  TextBox txtAOutRd2{fraAOutSOff, "txtAOutRd2", "Reading at point 2, 0 to 9999 counts"};
  TextBox txtAOutOut2{fraAOutSOff, "txtAOutOut2", "Output at point 2, 0 to 10 V or 0 to 20 mA"};
  Plot plotAnalog{pageAnalog, "plotAnalog", "The output against the reading, drawn from the boxes"};

  // Tab 11, Comm. The serial and the TCP/IP frames take turns.
  TabPage& pageComm = tabBig.page(tab::comm);
  Frame fraCommMode{pageComm, "fraCommMode", "Communication mode"};
  ControlArray<OptionButton> optCommunicationMode{
      fraCommMode, "optCommunicationMode", {"S&erial", "TCP/&IP"}};
  Frame fraAutoDetect{pageComm, "fraAutoDetect", "Connection Wizard"};
  Label lblAutoDet{fraAutoDetect, "lblAutoDet"};
  CommandButton cmdAutoDetect{fraAutoDetect, "cmdAutoDetect", "&Connect", "Auto connect and verification"};
  Frame fraSerialManualSet{pageComm, "fraSerialManualSet", "Manual Setup"};
  Label text_CommPort{fraSerialManualSet, "text_CommPort", "CO&M port"};
  ComboBox cboCommPort{fraSerialManualSet, "cboCommPort", choices::commPorts, portListTip};
  TextBox txtPortHelp{pageComm, "txtPortHelp", "What the chosen port is, or what is in its way"};
  Label lblCommStat{fraSerialManualSet, "lblCommStat"};
  Label text_Baud{fraSerialManualSet, "text_Baud", "Ba&ud"};
  ComboBox cboBaud{fraSerialManualSet, "cboBaud", choices::bauds,
                   "Line rate, in baud; the unit's own setting"};
  Label text_Parity{fraSerialManualSet, "text_Parity", "Parit&y"};
  ComboBox cboParity{fraSerialManualSet, "cboParity", choices::parities, "Parity; the unit's own setting"};
  Label text_Data{fraSerialManualSet, "text_Data", "D&ata bits"};
  ComboBox cboData{fraSerialManualSet, "cboData", choices::dataBits, "Data bits; the unit's own setting"};
  Label text_Stop{fraSerialManualSet, "text_Stop", "&Stop bits"};
  ComboBox cboStop{fraSerialManualSet, "cboStop", choices::stopBits, "Stop bits; the unit's own setting"};
  Frame fraSerialCommunicationMode{pageComm, "fraSerialCommunicationMode", "Communication Set Up"};
  OptionButton optNoChange{fraSerialCommunicationMode, "optNoChange", "Lea&ve Comm"};
  Label lblNoChange{fraSerialCommunicationMode, "lblNoChange", "Protocol As Found, Do Not Change"};
  Label lblChange{fraSerialCommunicationMode, "lblChange", "Change"};
  OptionButton optRS232{fraSerialCommunicationMode, "optRS232", "RS-2&32"};
  OptionButton optRS485{fraSerialCommunicationMode, "optRS485", "RS-&485"};
  Label text_RS485Address{fraSerialCommunicationMode, "text_RS485Address", "Address"};
  TextBox txtRS485Address{fraSerialCommunicationMode, "txtRS485Address", "Bus address to be, 0 to 199"};
  Frame fraTCPIPAddress{pageComm, "fraTCPIPAddress", "TCP/IP Address"};
  Label text_TCPIPAddress{fraTCPIPAddress, "text_TCPIPAddress", "Brid&ge"};
  TextBox txtTCPIPAddress{fraTCPIPAddress, "txtTCPIPAddress", "Address or name of the TCP/IP bridge"};
  Frame fraTCPIPPort{pageComm, "fraTCPIPPort", "TCP/IP port"};
  ControlArray<OptionButton> optPortNum{
      fraTCPIPPort, "optPortNum", {"&1000 (Initial)", "&2000 (Typical)", "Non-standard"}};
  Label text_TCPPort{fraTCPIPPort, "text_TCPPort", "Por&t"};
  TextBox txtTCPPort{fraTCPIPPort, "txtTCPPort", "TCP port of the bridge"};

  // Below the tabs: what the last run came to.
  Label lblVerdict{*this, "lblVerdict"};
  Label lblNote{*this, "lblNote"};
  CommandButton cmdDetails{*this, "cmdDetails", "Details", "Shows what the last run did, step by step"};
  CommandButton cmdUndo{*this, "cmdUndo", "Undo"};

  // The communication option of the chosen hardware, and the row of commands.
  Label text_Status{*this, "text_Status", "Communication option:"};
  Label lblStatus{*this, "lblStatus", "RS-232"};
  CommandButton cmdHelp{*this, "cmdHelp", "&Help", "Get help"};
  CommandButton cmdCnfg{*this, "cmdCnfg", "Ha&rdware", "Set-up controller and test the connection"};
  CommandButton cmdOpen{*this, "cmdOpen", "&Open", "Read Config from File or Meter"};
  CommandButton cmdWrite{*this, "cmdWrite", "&Write", "Write to file, serial-comm or printer"};
  CommandButton cmdPref{*this, "cmdPref", "&Preferences", "Enable controller Reset and Warning messages"};
  CommandButton cmdReset{*this, "cmdReset", "&Discard", "Discard change on current tab"};
  CommandButton cmdFactoryDefaults{*this, "cmdFactoryDefaults", "Fact. defaults"};
  CommandButton cmdPrev{*this, "cmdPrev", "< &Back", "Back to previous tab"};
  CommandButton cmdNext{*this, "cmdNext", "&Next >", "Forward to next tab"};
  CommandButton cmdQuit{*this, "cmdQuit", "&Quit"};

 private:
  void describePictures();
};

}  // namespace torvane
