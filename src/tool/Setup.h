// SPDX-License-Identifier: MIT
// Setup files and copies of units, and the line settings that a run takes.
#pragma once

#include <optional>
#include <string>

#include "editor/SetupEditor.h"
#include "knowledge/EitherFile.h"
#include "knowledge/UnitImage.h"
#include "tool/Arguments.h"
#include "tool/ToolHost.h"

namespace torvane::tool {

// The records as a program begins with them: factory defaults and the stored preferences.
void beginRecords();

// A setup under work: the records as the window would have them, with its rules.
class SetupDesk {
 public:
  SetupDesk();  // on factory defaults and the stored preferences

  void open(const std::string& path);  // throws Problem if the file can't be read or is no setup
  void takeRead();                     // the records as a read has left them
  void save(const std::string& path);  // in one step

  SetupEditor editor;
};

// A setup file into the records, as the window opens it.
void loadSetup(const std::string& path);

// Before anything is sent: what is to be written afterwards can be. Throw Problem.
void mustBeNew(const std::string& path);
void mustHaveAFolder(const std::string& path);

UnitImage loadCopy(const std::string& path);
void saveCopy(const std::string& path, const UnitImage& copy);

// Either, as its first line tells. A setup is loaded into the records by the way.
EitherFile loadEither(const std::string& path);

// Options before what the records hold: the way, its settings, mode and address. Returns "9600,o,7,1".
std::string chooseLine(const LineArguments& line);

}  // namespace torvane::tool
