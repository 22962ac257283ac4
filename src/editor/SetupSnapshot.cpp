// SPDX-License-Identifier: MIT
// The whole setup at one moment, taken and put back.
#include "editor/SetupSnapshot.h"

#include <algorithm>

#include "core/Global.h"
#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"

namespace torvane {

namespace {

// In the order of their declaration.
std::vector<Control*> controlsOfSetup(const frmBigFolder& editor) {
  const Control* const others[] = {&editor.lblVerdict, &editor.lblNote, &editor.cmdDetails, &editor.cmdUndo};
  std::vector<Control*> controls = editor.controls;
  std::erase_if(controls, [&](const Control* control) {
    return std::ranges::find(others, control) != std::end(others);
  });
  return controls;
}

}  // namespace

SetupSnapshot takeSnapshot(const frmBigFolder& editor) {
  SetupSnapshot snapshot{.memo = Memo,
                         .hardware = Hardware,
                         .deviceState = DeviceState,
                         .baseModel = BaseModel,
                         .fileName = Global.FileName,
                         .inFile = editor.inFile_,
                         .modelInFile = editor.modelInFile_,
                         .firmwareVersion = Global.FirmwareVersion,
                         .deviceSpecified = Global.DeviceSpecified,
                         .rdScale = Global.RdScale,
                         .analogScale = Global.AnalogScale,
                         .commPort = editor.MSComm1->commPort,
                         .lineSettings = editor.MSComm1->settings,
                         .simpleMenuShown = editor.simpleMenuShown_,
                         .formatChosen = editor.formatChosen_,
                         .controls = {}};
  const std::vector<Control*> controls = controlsOfSetup(editor);
  snapshot.controls.reserve(controls.size());
  for (const Control* control : controls) snapshot.controls.push_back(control->state());
  return snapshot;
}

void putBack(frmBigFolder& editor, const SetupSnapshot& snapshot) {
  torvane::unload<frmHardware>();
  Memo = snapshot.memo;
  Hardware = snapshot.hardware;
  DeviceState = snapshot.deviceState;
  BaseModel = snapshot.baseModel;
  Global.FileName = snapshot.fileName;
  editor.inFile_ = snapshot.inFile;
  editor.modelInFile_ = snapshot.modelInFile;
  Global.FirmwareVersion = snapshot.firmwareVersion;
  Global.DeviceSpecified = snapshot.deviceSpecified;
  Global.RdScale = snapshot.rdScale;
  Global.AnalogScale = snapshot.analogScale;
  editor.MSComm1->commPort = snapshot.commPort;
  editor.MSComm1->settings = snapshot.lineSettings;
  editor.simpleMenuShown_ = snapshot.simpleMenuShown;
  editor.formatChosen_ = snapshot.formatChosen;
  const auto controls = controlsOfSetup(editor);
  for (std::size_t at = 0; at < controls.size(); ++at) controls[at]->putBack(snapshot.controls.at(at));
}

}  // namespace torvane
