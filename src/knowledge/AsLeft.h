// SPDX-License-Identifier: MIT
// The as-left record: which unit, when and by whom, what it was found with, what it was left with, and
// whether every register holds what was sent.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "knowledge/UnitImage.h"

namespace torvane {

struct RegisterLeft {
  std::string reg;      // two hexadecimal digits
  std::string name;     // what a technician calls it
  std::string before;   // payload digits; empty: not known
  std::string after;    // the same, as the unit was read again
  std::string verdict;  // "same", "written", "skipped" or "failed"
  std::string reason;   // of a failure, in plain words
};

struct AsLeft {
  std::string time;  // of the write, UTC: "2026-11-21T21:15:00Z"
  std::string who;   // empty: nobody said
  std::string type;  // "TMP"; empty: not known
  UnitImage found;   // what is not known of it is as it was left
  UnitImage left;    // identity and registers
  std::vector<RegisterLeft> registers;
  bool passed = false;
};

struct SettingLeft {
  std::string section;
  std::string name;
  std::string found;  // in the report's words; empty: not known, or no setting of the unit as it was set
  std::string left;
};
// Every setting that the unit had before or has now, in the order of a write.
std::vector<SettingLeft> settingsOf(const AsLeft& record);

// "Pass: 12 settings changed, 33 registers verified"
std::string summaryOf(const AsLeft& record);
// For a person: lines that fit on paper.
std::string textOf(const AsLeft& record);
// For a program: one object, with the members of torvane-unit's records.
std::string jsonOf(const AsLeft& record);
// "Tv16D22-C24_17_2026-11-21_211500_as-left.txt"; `ending` without its dot.
std::string proposedFileName(const AsLeft& record, const std::string& ending);

}  // namespace torvane
