// SPDX-License-Identifier: MIT
// Settings in memory.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Settings.h"

namespace torvane {

class FakeSettings : public Settings {
 public:
  std::map<std::string, std::string> settings;
  std::vector<std::string> savedOrder;  // keys in the order in which they were saved

  std::string setting(const std::string& path) override {
    const auto found = settings.find(path);
    return found == settings.end() ? "" : found->second;
  }
  void saveSetting(const std::string& path, const std::string& value) override {
    settings[path] = value;
    savedOrder.push_back(path);
  }
  void deleteSetting(const std::string& path) override { settings.erase(path); }
};

}  // namespace torvane
