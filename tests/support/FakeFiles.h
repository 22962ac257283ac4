// SPDX-License-Identifier: MIT
// Files in memory, and a user who answers the choosers.
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace torvane {

class FakeFiles : public Files {
 public:
  std::map<std::string, std::string> files;  // path to content
  std::set<std::string> missingFiles;
  std::string diskFault;                // the system's words; empty: files can be written
  std::deque<std::string> chosenFiles;  // what the user answers in the choosers; none left: cancel
  std::vector<std::string> filters;     // what the choosers offered
  std::string proposedName;             // the last one

  std::string chooseFileToOpen(const std::string& filter) override;
  std::string chooseFileToSave(const std::string& filter) override;
  std::string proposeFileToSave(const std::string& filter, const std::string& name) override;
  std::string readFile(const std::string& path, std::size_t most) override;
  void exchangeFile(const std::string& path, std::string_view bytes) override;
  void replaceFile(const std::string& path, std::string_view bytes) override;
  // What a test says nothing of is there, but for the user's data.
  bool fileExists(const std::string& path) override {
    return path.starts_with(dataFolder()) ? files.contains(path) : !missingFiles.contains(path);
  }
  void renameFile(const std::string& from, const std::string& to) override;
  std::string dataFolder() override { return "/data"; }
  std::string programFolder() override { return "/program"; }
};

}  // namespace torvane
