// SPDX-License-Identifier: MIT
// The model record: what unit the configuration is for.
#pragma once

#include <cstdint>
#include <string>

namespace torvane {

// 16-bit booleans of the records and of the shared state.
inline constexpr std::int16_t True = -1;
inline constexpr std::int16_t False = 0;
constexpr std::int16_t asFlag(bool state) { return state ? True : False; }

// What is fitted at one output position; the order of the fields is that of the file.
struct OutputFit {
  std::int16_t SSR = False;     // part number digit 2
  std::int16_t Relay = False;   // 3
  std::int16_t Pulse = False;   // 4
  std::int16_t Analog = False;  // 5, output 1 only
  std::int16_t None = False;    // 0, output 2 only

  bool operator==(const OutputFit&) const = default;
};

struct HardwareRecord {
  std::string ModelNumber;  // the whole part number
  OutputFit Out1;
  OutputFit Out2;
  std::int16_t BusMode = 0;     // communication option: 0 and 2 unaddressed, 1, 3 and 4 addressed
  std::int16_t BusAddress = 0;  // 0 to 199

  bool operator==(const HardwareRecord&) const = default;
};

// The values of resetDeviceState stand in Model.cpp; a new process starts with zeros.
struct DeviceStateRecord {
  std::int16_t IdFlagE = 0;
  std::int16_t IdFlagC = 0;
  std::int32_t DeviceClass = 0;  // -1 unknown, 0 the Rkw77 line, 1 and above the other families
  std::int32_t SpareLong = 0;    // comes from a file only
  std::int16_t IsRkw77 = False;
  std::int32_t IsGr2 = 0;
  std::int32_t IsHyt = 0;
  std::int32_t MenuKind = 0;  // one of menu
  std::int16_t ClassSeen = False;
  std::int16_t SpareFlag = False;
  std::int16_t AnalogFound = False;
  std::int32_t ModelIndex = 0;

  bool operator==(const DeviceStateRecord&) const = default;
};

// What menu a unit has; it stands in DeviceState.MenuKind and, for files, in Memo[menuKind].
namespace menu {
enum : std::int16_t { full = 0, alarmsOnly = 1, simple = 2 };
}

// Written by the hardware dialog, identification and the file; read by almost everyone.
extern HardwareRecord Hardware;
extern DeviceStateRecord DeviceState;
extern std::string BaseModel;

inline constexpr const char* factoryBaseModel = "Tv[8,16,32]";
inline constexpr const char* factoryModelNumber = "Tv(8,16,32)[case]";
inline constexpr const char* rkw77BaseModel = "Rkw77[case]";

// What a unit says of its type, by DeviceState.DeviceClass; the Rkw77 line says nothing.
inline constexpr const char* unitTypes[] = {"Rkw77", "TMP", "PRC", "STR", "GR2", "RHT"};

// The unit, or the one that the setup is for, is of the Rkw77 line.
inline bool onRkw77Line() { return DeviceState.IsRkw77 != False; }
inline bool output1IsAnalog() { return Hardware.Out1.Analog != False; }

// What identification has found out is forgotten; a fit of analog or none turns into SSR.
void resetDeviceState();

// After a run IsRkw77 tells the line of the unit, while DeviceClass may have come back from the setup before:
// a class that is known follows.
void settleDeviceClass();

// The kind of unit that encoders, the read and the report work for. The last rule that holds wins.
namespace kind {
enum : int { fullController = 0, alarmsOnly = 1, simpleMenu = 2, monitorOnly = 3, rkw77 = 4 };
}
int meterKind();
inline bool isSimpleMenuUnit() { return meterKind() == kind::simpleMenu; }

// The menu that the setup names, whatever unit there is.
bool setupHasMenu(std::int16_t menuKind);

// For tests: the records as they are before the program starts.
void resetModel();

}  // namespace torvane
