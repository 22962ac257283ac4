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
  const std::optional<std::int16_t> tab = readConfigurationFile(path);
  if (!tab) return;
  DeviceState.ModelIndex = 0;
  showLoaded(*tab);
}

void frmBigFolder::OpenConfiguration() {
  const std::string path = host<Files>().chooseFileToOpen(configFilter);
  if (path.empty()) return;
  if (const std::optional<std::int16_t> tab = readConfigurationFile(path)) showLoaded(*tab);
}

// The tab that was on show when it was saved; none for a file that can't be read. One whose two stamps differ
// is loaded like any other.
std::optional<std::int16_t> frmBigFolder::readConfigurationFile(const std::string& path) {
  resetDeviceState();
  Global.FileName = path;
  std::string bytes;
  try {
    bytes = host<Files>().readFile(path, longestConfiguration());
  } catch (const RuntimeError& error) {
    messageBox("Error: " + std::string(error.what()) + "\rCan't continue.", "", Icon::critical);
    reCover();
    return {};
  }
  const ConfigFrame frame = readConfiguration(bytes);
  takeAsInFile();
  return frame.tab;
}

void frmBigFolder::showLoaded(std::int16_t tab) {
  showRecords();
  attempt([&] { tabBig.setTab(tab); });
  attempt([this] { reForm(); });
  Global.DeviceSpecified = False;
  attempt([this] { cmdCnfg_Click(); });
}

}  // namespace torvane
