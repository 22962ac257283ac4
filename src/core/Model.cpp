// SPDX-License-Identifier: MIT
// The model record and the test by which everyone asks what kind of unit it is.
#include "core/Model.h"

#include "core/Memo.h"

namespace torvane {

HardwareRecord Hardware;
DeviceStateRecord DeviceState;
std::string BaseModel;

void resetDeviceState() {
  DeviceState = {.IdFlagE = -1,
                 .DeviceClass = -1,
                 .SpareLong = DeviceState.SpareLong,
                 .IsGr2 = -1,
                 .IsHyt = -1,
                 .ModelIndex = -1};
  if (output1IsAnalog()) {
    Hardware.Out1.SSR = True;
    Hardware.Out1.Analog = False;
  }
  if (Hardware.Out2.None == True) {
    Hardware.Out2.SSR = True;
    Hardware.Out2.None = False;
  }
}

void settleDeviceClass() {
  const bool rkw77 = onRkw77Line();
  if (DeviceState.DeviceClass < 0 || (DeviceState.DeviceClass == 0) == rkw77) return;
  DeviceState.DeviceClass = rkw77 ? 0 : 1;
}

int meterKind() {
  int result = kind::fullController;
  if (setupHasMenu(menu::simple)) result = kind::simpleMenu;
  if (Memo[rec::monitorOnly].value == 1) result = kind::monitorOnly;
  if (setupHasMenu(menu::alarmsOnly)) result = kind::alarmsOnly;
  if (onRkw77Line()) result = kind::rkw77;
  return result;
}

void resetModel() {
  Hardware = {};
  DeviceState = {};
  BaseModel.clear();
}

bool setupHasMenu(std::int16_t menuKind) { return Memo[rec::menuKind].extra == menuKind; }

}  // namespace torvane
