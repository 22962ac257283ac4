// SPDX-License-Identifier: MIT
// Files in memory.
#include "tests/support/FakeFiles.h"

#include "platform/RuntimeError.h"

namespace torvane {

std::string FakeFiles::chooseFileToOpen(const std::string& filter) {
  filters.push_back(filter);
  if (chosenFiles.empty()) return "";
  const std::string path = chosenFiles.front();
  chosenFiles.pop_front();
  return path;
}

std::string FakeFiles::chooseFileToSave(const std::string& filter) { return chooseFileToOpen(filter); }

std::string FakeFiles::proposeFileToSave(const std::string& filter, const std::string& name) {
  proposedName = name;
  return chooseFileToOpen(filter);
}

std::string FakeFiles::readFile(const std::string& path, std::size_t most) {
  const auto found = files.find(path);
  if (found == files.end()) throw RuntimeError(Fault::fileNotFound, "No such file or directory");
  return found->second.substr(0, most);
}

void FakeFiles::exchangeFile(const std::string& path, std::string_view bytes) {
  if (!diskFault.empty()) throw RuntimeError(Fault::fileFault, diskFault);
  std::string& file = files[path];
  file = std::string(bytes) + (file.size() > bytes.size() ? file.substr(bytes.size()) : "");
}

void FakeFiles::replaceFile(const std::string& path, std::string_view bytes) {
  if (!diskFault.empty()) throw RuntimeError(Fault::fileFault, diskFault);
  files[path] = bytes;
}

void FakeFiles::renameFile(const std::string& from, const std::string& to) {
  if (!diskFault.empty()) throw RuntimeError(Fault::fileFault, diskFault);
  const auto found = files.find(from);
  if (found == files.end()) throw RuntimeError(Fault::fileNotFound, "No such file or directory");
  files[to] = found->second;
  files.erase(found);
}

}  // namespace torvane
