// SPDX-License-Identifier: MIT
// The store of the per-user preferences: text values at application, section and key.
#pragma once

#include <string>

namespace torvane {

class Registry {
 public:
  std::string Appname;
  std::string Section;
  std::string Key;
  std::string Setting;

  void RegGet();         // reads Setting; a missing key gives an empty text
  void RegSave() const;  // writes Setting
  void RegDel() const;   // deletes the key
};

}  // namespace torvane
