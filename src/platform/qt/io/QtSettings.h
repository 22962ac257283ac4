// SPDX-License-Identifier: MIT
// The per-user settings tree: an INI file of the company and the program, one INI section for each section.
#pragma once

#include <QSettings>
#include <string>

namespace torvane {

class QtSettings {
 public:
  QtSettings();

  // Paths are "<program title>/<section>/<key>"; the title names the file. A missing key gives an empty text,
  // a file that can't be read an empty tree. What is written or deleted reaches the file, if the user may
  // write, with the next turn of the event loop, or at the end of this object.
  std::string value(const std::string& path) const;
  void save(const std::string& path, const std::string& value);
  void remove(const std::string& path);

  void sync();  // now, both ways: takes up what another program has written
  std::string fileName() const;

 private:
  QSettings tree_;
};

}  // namespace torvane
