// SPDX-License-Identifier: MIT
// Copies of units as files.
#include "dialogs/KeptCopies.h"

#include "core/NumberText.h"
#include "dialogs/TextOutput.h"
#include "knowledge/UnitFile.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/Program.h"
#include "platform/RuntimeError.h"
#include "platform/Settings.h"

namespace torvane {

namespace {

const std::string& preference() {
  static const std::string path = std::string(program::title) + "/Persist/KeepCopies";
  return path;
}

std::string gapsOf(const UnitImage& unit) {
  const std::size_t count = countUnread(unit);
  if (count == 0) return "";
  return std::to_string(count) + (count == 1 ? " register" : " registers") +
         " could not be read and can't be put back from this copy.";
}

// The first name that is free.
std::string freeName(const UnitImage& unit) {
  const std::string stem = host<Files>().dataFolder() + "/" + fileStem(unit);
  for (std::int32_t number = 1;; ++number) {
    std::string path = stem + "_" + numberText(number) + ".unit";
    if (!host<Files>().fileExists(path)) return path;
  }
}

bool writesAllTheSame(const std::string& why) {
  return messageBox(why + "\r\rWrite to the unit all the same?", "", Icon::question, Buttons::noYes) ==
         Answer::yes;
}

}  // namespace

bool keepsCopies() { return host<Settings>().setting(preference()) == "True"; }

void setKeepsCopies(bool on) { host<Settings>().saveSetting(preference(), on ? "True" : "False"); }

void saveCopy(const UnitImage& unit) {
  const std::string path = host<Files>().proposeFileToSave(unitFilter, proposedFileName(unit));
  if (saveOrSay(path, unitFileText(unit)) && countUnread(unit) > 0) {
    messageBox("The copy is kept in\r" + path + "\r\r" + gapsOf(unit), "", Icon::information);
  }
}

bool keepBeforeWrite(const UnitImage& unit, std::string& path) {
  try {
    const std::string name = freeName(unit);
    host<Files>().replaceFile(name, unitFileText(unit));
    path = name;
  } catch (const RuntimeError& error) {
    return writesAllTheSame("No copy of the unit could be kept in\r" + host<Files>().dataFolder() + "\r" +
                            error.what());
  }
  const std::string gaps = gapsOf(unit);
  return gaps.empty() || writesAllTheSame("The copy of the unit is in\r" + path + "\r\r" + gaps);
}

}  // namespace torvane
