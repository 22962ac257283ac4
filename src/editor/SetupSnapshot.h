// SPDX-License-Identifier: MIT
// The whole setup at one moment, to be put back as it was: records, model, file, and every control of the
// main window with its fit to the model.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "platform/Controls.h"

namespace torvane {

class frmBigFolder;

struct SetupSnapshot {
  MemoArray memo;
  HardwareRecord hardware;
  DeviceStateRecord deviceState;
  std::string baseModel;
  std::string fileName;
  std::optional<MemoArray> inFile;
  std::string modelInFile;
  std::string firmwareVersion;
  std::int16_t deviceSpecified = 0;
  std::string rdScale;
  std::string analogScale;
  int commPort = 0;
  std::string lineSettings;
  bool simpleMenuShown = false;
  bool formatChosen = false;
  std::vector<ControlState> controls;

  bool operator==(const SetupSnapshot&) const = default;
};

// The line of the last run and its buttons are no part of a setup.
SetupSnapshot takeSnapshot(const frmBigFolder& editor);
// A hardware dialog that is still loaded is of the other setup, and goes. No handler is raised.
void putBack(frmBigFolder& editor, const SetupSnapshot& snapshot);

}  // namespace torvane
