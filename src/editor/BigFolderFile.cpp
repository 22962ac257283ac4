// SPDX-License-Identifier: MIT
// Opening a configuration file.
#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Model.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

namespace torvane {

void frmBigFolder::FileOpen(const std::string& path) {
  std::int16_t tab = 0;
  if (!readConfigurationFile(path, tab)) return;
  DeviceState.ModelIndex = 0;
  showLoaded(tab);
}

void frmBigFolder::OpenConfiguration() {
  const std::string path = host<Files>().chooseFileToOpen(configFilter);
  std::int16_t tab = 0;
  if (!path.empty() && readConfigurationFile(path, tab)) showLoaded(tab);
}

// The stamps say what a corrupted file is. It is loaded all the same: errors count no more after the second
// one.
bool frmBigFolder::readConfigurationFile(const std::string& path, std::int16_t& tab) {
  resetDeviceState();
  Global.FileName = path;
  std::string bytes;
  try {
    bytes = host<Files>().readFile(path, longestConfiguration());
  } catch (const RuntimeError& error) {
    messageBox("Error: " + std::string(error.what()) + "\rCan't continue.", "", Icon::critical);
    reCover();
    return false;
  }
  const ConfigFrame frame = readConfiguration(bytes);
  attempt([&] {
    if (frame.firstStamp != frame.secondStamp) {
      throw RuntimeError(Fault::configurationCorrupted, "Configuration file corrupted");
    }
  });
  takeAsInFile();
  tab = frame.tab;
  return true;
}

void frmBigFolder::showLoaded(std::int16_t tab) {
  showRecords();
  attempt([&] { tabBig.setTab(tab); });
  attempt([this] { reForm(); });
  Global.DeviceSpecified = False;
  attempt([this] { cmdCnfg_Click(); });
}

}  // namespace torvane
