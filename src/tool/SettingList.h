// SPDX-License-Identifier: MIT
// Every setting with the record that holds it, and how its values are written.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/Choices.h"
#include "knowledge/RegisterMap.h"
#include "knowledge/ReportSections.h"

namespace torvane::tool {

enum class SettingForm {
  text,      // a number, a time or a code in a box
  choice,    // one of a list, by index
  options,   // one of several records, each of which stands for a word
  tick,      // yes or no
  position,  // of a bar
  made,      // of other settings; can't be set
};

struct Setting {
  std::string section;
  std::string name;
  SettingForm form = SettingForm::made;
  std::vector<int> records = {};  // one, or one for each word
  Choices words = {};
  const ReportRow* row = nullptr;        // that prints it ...
  const RegisterField* field = nullptr;  // ... or the field that a write makes of it
  const char* parts = nullptr;           // of what it is made
};

// In the order of the report. Which there are depends on whether the unit has the simple menu.
std::vector<Setting> allSettings();

// Letters and digits alone, in lower case.
std::string bare(std::string_view text);

std::string printedValue(const Setting& setting);

}  // namespace torvane::tool
