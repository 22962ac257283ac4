// SPDX-License-Identifier: MIT
// Files, how the user chooses them, and where they lie. What fails is a RuntimeError in the system's words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Host.h"

namespace torvane {

class Files {
 public:
  virtual ~Files() = default;

  // File choosers with a filter such as "Texts (*.txt)|*.txt|All Files (*.*)|*.*"; empty: the user has
  // cancelled. The folder of the last choice is offered again. Saving over a file has been agreed to by the
  // user.
  virtual std::string chooseFileToOpen(const std::string& filter) = 0;
  virtual std::string chooseFileToSave(const std::string& filter) = 0;
  // The same with a name for the file that the user may keep.
  virtual std::string proposeFileToSave(const std::string& filter, const std::string& name) = 0;
  // At most so many bytes from the file's start. A file that can't be read is a RuntimeError in the system's
  // words.
  virtual std::string readFile(const std::string& path, std::size_t most) = 0;
  // Writes over a file from its start, in one step: what fails leaves the old file whole and is a
  // RuntimeError in the system's words. What an older, longer file holds after the new bytes stays.
  virtual void exchangeFile(const std::string& path, std::string_view bytes) = 0;
  // Writes a file anew, in one step: nothing of an older one stays. What fails is a RuntimeError in the
  // system's words, and leaves the old file whole.
  virtual void replaceFile(const std::string& path, std::string_view bytes) = 0;
  // Texts in the machine's single-byte code page; Windows-1252 unless the machine has one of its own.
  virtual std::string toCodePage(std::string_view text);
  virtual std::string fromCodePage(std::string_view bytes);
  virtual bool fileExists(const std::string& path) = 0;
  virtual void renameFile(const std::string& from, const std::string& to) = 0;
  // Where the user's own data of this program lies; made if need be.
  virtual std::string dataFolder() = 0;
  virtual std::string programFolder() = 0;
};

}  // namespace torvane
