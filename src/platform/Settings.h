// SPDX-License-Identifier: MIT
// The per-user settings tree.
#pragma once

#include <string>

#include "platform/Host.h"

namespace torvane {

class Settings {
 public:
  virtual ~Settings() = default;

  virtual std::string setting(const std::string& path) = 0;  // a missing key gives an empty text
  virtual void saveSetting(const std::string& path, const std::string& value) = 0;
  virtual void deleteSetting(const std::string& path) = 0;
};

}  // namespace torvane
