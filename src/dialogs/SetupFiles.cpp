// SPDX-License-Identifier: MIT
// The setup of the main window as a file.
#include "dialogs/SetupFiles.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "core/ConfigCheck.h"
#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "core/Registry.h"
#include "editor/Replacement.h"
#include "editor/frmBigFolder.h"
#include "knowledge/UnitFile.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Program.h"
#include "platform/RuntimeError.h"

namespace torvane {

namespace {

constexpr double secondsOfDay = 86400;
constexpr std::size_t lengthOfDay = 10;  // "2026-03-01"
constexpr const char* copyHint =
    "\"Write to...\" puts a copy back into a unit, \"Read from...\" compares it with another file.";

void refuse(const std::string& what, const std::string& path, const std::string& reason) {
  messageBox(what + "\r" + path + "\r\r" + reason, "", Icon::critical);
}

bool isWanted(const std::string& path, const std::string& fault) {
  return messageBox("This is no whole setup:\r" + path + "\r\rThe file " + fault +
                        "\rThe tabs may show strange values after it.\r\rOpen it all the same?",
                    "", Icon::question, Buttons::noYes) == Answer::yes;
}

constexpr std::size_t mostRecent = 8;

Registry placeOfRecent(std::size_t number) {
  return {program::title, "Files", numberText(static_cast<std::int32_t>(number)), ""};
}

std::vector<std::string> storedFiles() {
  std::vector<std::string> files;
  for (std::size_t number = 1; number <= mostRecent; ++number) {
    Registry place = placeOfRecent(number);
    place.RegGet();
    if (!place.Setting.empty()) files.push_back(place.Setting);
  }
  return files;
}

void remember(const std::string& path) {
  std::vector<std::string> files = storedFiles();
  std::erase(files, path);
  files.insert(files.begin(), path);
  files.resize(std::min(files.size(), mostRecent));
  for (std::size_t at = 0; at < files.size(); ++at) {
    Registry place = placeOfRecent(at + 1);
    place.Setting = files[at];
    place.RegSave();
  }
}

// A model's name holds signs that not every disk takes.
std::string proposedName() {
  const std::string& path = Global.FileName;
  std::string name = path.substr(path.find_last_of('/') + 1);
  if (name.ends_with(".cfg")) return name;
  std::string model;
  for (const char sign : Hardware.ModelNumber) {
    if (std::isalnum(static_cast<unsigned char>(sign)) != 0 || sign == '-') model += sign;
  }
  return model + "-" + host<Clock>().utcNow().substr(0, lengthOfDay) + ".cfg";
}

std::string rescueFile() { return host<Files>().dataFolder() + "/rescue.cfg"; }

// The name under which a rescued setup stays: the next number that is free.
std::string settledName() {
  for (std::int32_t number = 1;; ++number) {
    std::string name = host<Files>().dataFolder() + "/rescued-" + numberText(number) + ".cfg";
    if (!host<Files>().fileExists(name)) return name;
  }
}

// The file's present name: where it can't be renamed it keeps its own.
std::string settle(const std::string& path) {
  std::string name = settledName();
  return attempt([&] { host<Files>().renameFile(path, name); }) ? name : path;
}

}  // namespace

// Hardware goes in as it is before the tabs are committed.
std::string presentConfiguration() {
  const double stamp = std::fmod(host<Clock>().now(), secondsOfDay);
  std::string file = configModelPart(stamp);
  auto& editor = form<frmBigFolder>();
  editor.reCover();
  return file + configSetupPart(editor.tabBig.tab(), stamp);
}

bool openConfiguration(const std::string& path) {
  ConfigCheck check;
  try {
    const std::string bytes = host<Files>().readFile(path, longestConfiguration());
    if (isUnitFile(bytes)) {
      refuse("This is a copy of a unit, not a setup:", path, copyHint);
      return false;
    }
    check = examineConfiguration(bytes);
  } catch (const RuntimeError& error) {
    refuse("The file can't be opened:", path, error.what());
    return false;
  }
  if (!check.fault.empty() && !isWanted(path, check.fault)) return false;
  const Replacement undoable("open");
  // The reader takes as many bytes as this has characters.
  if (check.fault.empty() && !check.older) BaseModel = host<Files>().fromCodePage(check.baseModel);
  form<frmBigFolder>().FileOpen(path);
  remember(path);
  return true;
}

void openNamed(const std::string& path) {
  auto& editor = form<frmBigFolder>();
  const std::int16_t warningsOff = Global.WarningsOff;
  Global.WarningsOff = True;  // the file's entries are not the user's
  editor.writeMemo(editor.tabBig.tab());
  openConfiguration(path);
  Global.WarningsOff = warningsOff;
}

std::vector<std::string> recentFiles() {
  std::vector<std::string> files = storedFiles();
  std::erase_if(files, [](const std::string& path) { return !host<Files>().fileExists(path); });
  return files;
}

bool saveConfiguration(const std::string& path) {
  const std::string before = Global.FileName;
  Global.FileName = path;
  try {
    host<Files>().exchangeFile(path, presentConfiguration());
    form<frmBigFolder>().takeAsInFile();
    remember(path);
    return true;
  } catch (const RuntimeError& error) {
    Global.FileName = before;
    refuse("The setup is not saved:", path, error.what());
    return false;
  }
}

void saveConfigurationAs() {
  const std::string path = host<Files>().proposeFileToSave(configFilter, proposedName());
  if (!path.empty()) saveConfiguration(path);
}

std::string keepForRescue() {
  try {
    if (!isLoaded<frmBigFolder>()) return "";
    const std::string setup = presentConfiguration();
    const std::string path = rescueFile();
    if (host<Files>().fileExists(path)) settle(path);
    host<Files>().exchangeFile(path, setup);
    return "Your setup is kept and is offered at the next start:\r" + path;
  } catch (...) {
    return "";  // the error that ends the program is the one to show
  }
}

void offerRescue() {
  if (!host<Files>().fileExists(rescueFile())) return;
  const std::string path = settle(rescueFile());
  const Answer answer = messageBox(
      "The program ended with an error. The setup of that moment was kept:\r" + path + "\r\rOpen it now?", "",
      Icon::question, Buttons::yesNo);
  if (answer == Answer::yes) openNamed(path);
}

}  // namespace torvane
