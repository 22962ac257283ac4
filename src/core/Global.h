// SPDX-License-Identifier: MIT
// State that the modules share for the life of the process, and the bit operations on hexadecimal text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace torvane {

struct GlobalState {
  std::int16_t FirstActivationDone = 0;  // the main window has been active once; written by it
  std::string FirmwareVersion;           // version found in the connected unit; written by comOK
  std::int16_t CancelFlag = 0;           // the user wants out of a run; written by frmSerial and frmWizard
  std::string WarningReason;             // what frmWarning says besides WarningText; empty: nothing
  std::string FileName;                  // .cfg file last opened or saved
  std::int16_t DeviceSpecified = 0;      // a model has been fixed; written by frmHardware, cmdFactoryDefaults
  std::int16_t ResetAfterWrite = 0;      // "Reset" preference: reset the unit when a write ends
  std::int16_t StartOnCommTab = 0;       // the first activation shows tab 11 instead of tab 1
  std::int16_t WarningsOff = 0;          // "Warn" preference: data entry warnings are not shown
  std::string WarningText;               // written by the entry validators
  std::int32_t ReadConfirmed = 0;        // a read is due; written by the choosers and frmSerial
  std::int16_t AutoDetect = 0;           // the showing of frmSerial is a connection test
  std::int32_t DetectionDone = 0;        // 1: frmSerial unloads at the end of its activation
  std::string RdScale;                   // decimal text of the last reading slope, for the offset after it
  std::string AnalogScale;               // the same for the analog output
  std::array<std::string, 15> FirmwareVersions;  // the known ones; filled by initMemory

  void reset() { *this = {}; }
};
extern GlobalState Global;

inline bool isCancelled() { return Global.CancelFlag != 0; }
inline bool isModelFixed() { return Global.DeviceSpecified != 0; }
inline bool resetsAfterWrite() { return Global.ResetAfterWrite != 0; }
inline bool warnsOfEntries() { return Global.WarningsOff == 0; }
inline bool isLinkTest() { return Global.AutoDetect != 0; }

void fillFirmwareVersions();  // "1.1" to "1.9", then "2.0" to "2.5"

// Hardware.BusAddress as two hexadecimal digits: 17 is "11", 5 is "05".
std::string rs485AddressHex();
// Bits of a hexadecimal text, combined as 32-bit integers; the result is padded with "0" to the length of the
// first argument and never cut. A text counts by the digits at its start, none as 0.
std::string maskHex(std::string_view hexText, std::int32_t mask);
std::string orHex(std::string_view hexText, std::string_view otherHexText);

}  // namespace torvane
