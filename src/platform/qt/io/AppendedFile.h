// SPDX-License-Identifier: MIT
// A file that grows line by line and survives a power cut: each line is on the disk before the next thing
// happens.
#pragma once

#include <QFile>
#include <QLockFile>
#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

class AppendedFile {
 public:
  // Opens or makes the file and takes it for this process alone; what stands after the first `keep` bytes
  // was cut off by an end in the middle and goes. Throws RuntimeError.
  AppendedFile(const std::string& path, std::size_t keep);
  AppendedFile(const AppendedFile&) = delete;
  AppendedFile& operator=(const AppendedFile&) = delete;

  void append(std::string_view line);  // throws RuntimeError; the line is on the disk when it returns

 private:
  QLockFile lock_;
  QFile file_;
};

}  // namespace torvane
