// SPDX-License-Identifier: MIT
// The working image of a unit's configuration: 111 records, each named after its control on the main window.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace torvane {

// A used record uses one field, two of the model's copies use two; the others stay at zero or empty.
struct MemoField {
  std::int16_t value = 0;  // a list index, a check box state (0 or 1) or a scroll bar position
  std::int16_t flag = 0;   // state of one option button: -1 true, 0 false
  std::string text;        // a number or a time, as typed or formatted
  std::int16_t extra = 0;  // a second small integer: colours and the model record

  bool operator==(const MemoField&) const = default;
};

class MemoArray {
 public:
  static constexpr int count = 111;

  // An index outside 0 to 110 is an error.
  MemoField& operator[](int index);
  const MemoField& operator[](int index) const;
  void reset();  // every record empty
  bool operator==(const MemoArray&) const = default;

 private:
  std::array<MemoField, count> records_;
};

// Written by writeMemo, the decoders, the file reader and initMemory.
extern MemoArray Memo;

// Record numbers. The field in use stands after each: V value, F flag, T text, E extra.
// The members of an option array follow each other: rec::optInType + 2 is "Process".
namespace rec {
enum : int {
  txtIDCode = 0,                // T  tab 0
  txtSp1 = 1,                   // T  tab 1
  txtSp2 = 2,                   // T
  optInType = 4,                // F  tab 2, 4 to 6
  lstTCTypes = 7,               // V
  cboRTDValue = 8,              // V
  cboRTDCurves = 9,             // V
  cboRTDWires = 10,             // V
  lstProc = 11,                 // V
  optDpoint = 12,               // F  tab 3, 12 to 15
  cboTUnit = 16,                // V
  txtIn1Vi = 17,                // T
  txtIn2Vi = 18,                // T
  txtIn1 = 19,                  // T
  txtRd1 = 20,                  // T
  txtIn2 = 21,                  // T
  txtRd2 = 22,                  // T
  cboAl1Ctrl = 23,              // V  tab 4
  cboAl1Latch = 24,             // V
  cboAl1Closure = 25,           // V
  cboAl1Setup = 26,             // V
  chkAl1Enabled = 27,           // V
  chkAl1AutoPOn = 28,           // V
  txtAl1HiSp = 29,              // T
  txtAl1LoSp = 30,              // T
  cboAl2Ctrl = 31,              // V  tab 5
  cboAl2Latch = 32,             // V
  cboAl2Closure = 33,           // V
  cboAl2Setup = 34,             // V
  chkAl2Enabled = 35,           // V
  txtAl2HiSp = 36,              // T
  txtAl2LoSp = 37,              // T
  chkLBAEnabled = 38,           // V  tab 6
  chkIDEnabled = 39,            // V
  txtLBATime = 40,              // T
  txtTAdjust = 41,              // T
  chkOut1Self = 42,             // V  tab 7
  chkOut1AutoPID = 44,          // V
  chkOut1Anti = 45,             // V
  chkOut1Start = 46,            // V
  HSOut1Low = 47,               // T
  HSOut1High = 48,              // T
  HSOut1CycleT = 49,            // V
  lstOut1DamFactor = 50,        // V
  cboOut1Ctrl = 51,             // V
  cboOut1Action = 52,           // V
  txtOut1DeadBand = 53,         // T
  txtOut1PB = 54,               // T
  txtOut1Reset = 55,            // T
  txtOut1Rate = 56,             // T
  chkOut2AutoPID = 57,          // V  tab 8
  cboOut2Ctrl = 58,             // V
  cboOut2Action = 59,           // V
  HSOut2CycleT = 60,            // V
  txtOut2DeadBand = 61,         // T
  txtOut2PB = 62,               // T
  chkRampEn = 63,               // V  tab 9
  chkSoakEn = 64,               // V
  txtRampT = 65,                // T
  txtSoakT = 66,                // T
  optAOutV = 67,                // F  tab 10
  optAOutI = 68,                // F
  txtAOutRd1 = 69,              // T
  txtAOutOut1 = 70,             // T
  txtAOutRd2 = 71,              // T
  txtAOutOut2 = 72,             // T
  lstFiltConst = 73,            // V  tab 3
  cboCommPort = 75,             // V  tab 11
  cboBaud = 76,                 // V
  cboParity = 77,               // V
  cboData = 78,                 // V
  cboStop = 79,                 // V
  chkAnalogOutputEnabled = 80,  // V  tab 10
  cboNormalColor = 81,          // E  tab 1
  cboAl1WhenActiveColor = 82,   // E  tab 4
  cboAl2WhenActiveColor = 83,   // E  tab 5
  optIDCode = 84,               // F  tab 0, 84 to 86
  opt020mA = 87,                // F  tab 7
  opt420mA = 88,                // F
  optRS232 = 89,                // F  tab 11
  optRS485 = 90,                // F
  txtRS485Address = 91,         // T
  chkSPDeviation = 92,          // V  tab 1
  optNoChange = 93,             // F  tab 11
  optCommunicationMode = 94,    // F  94 and 95
  txtTCPIPAddress = 96,         // T
  txtTCPPort = 97,              // T
  deviceClass = 98,             // E  copy of DeviceState.DeviceClass
  idFlagC = 99,                 // E  copy of DeviceState.IdFlagC
  spareLong = 100,              // T written, E read: copy of DeviceState.SpareLong
  menuKind = 101,               // E  copy of DeviceState.MenuKind: 0 full, 1 alarms only, 2 simple menu
  monitorOnly = 102,            // V  1: the unit only monitors
};
}  // namespace rec

// The state of the option button of a record.
bool isChosen(int record);
// The unit is reached over a serial port, not through a bridge.
inline bool overSerial() { return isChosen(rec::optCommunicationMode); }

// Stores the factory setup in every record that has a default of its own. The records that come from the
// stored preferences (75 to 79, 94 to 97) are left to loadRegCommSet.
void storeDefaults();

}  // namespace torvane
