// SPDX-License-Identifier: MIT
// The settings of the records by name.
#include "tool/Settings.h"

#include "tool/SettingList.h"

namespace torvane::tool {

std::vector<NamedSetting> settingsOfRecords() {
  std::vector<NamedSetting> settings;
  for (const Setting& one : allSettings()) settings.push_back({one.section, one.name, printedValue(one)});
  return settings;
}

}  // namespace torvane::tool
