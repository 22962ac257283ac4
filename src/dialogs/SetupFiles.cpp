// SPDX-License-Identifier: MIT
// The setup of the main window as a file.
#include "dialogs/SetupFiles.h"

#include <cmath>

#include "core/ConfigCheck.h"
#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "editor/Replacement.h"
#include "editor/frmBigFolder.h"
#include "knowledge/UnitFile.h"
#include "platform/Host.h"

namespace {

constexpr double secondsOfDay = 86400;
constexpr const char* copyHint =
    "\"Write to...\" puts a copy back into a unit, \"Read from...\" compares it with another file.";

void refuse(const std::string& what, const std::string& path, const std::string& reason) {
  messageBox(what + "\r" + path + "\r\r" + reason, "", Icon::critical);
}

bool isWanted(const std::string& path, const std::string& fault) {
  return messageBox("This is no whole setup:\r" + path + "\r\rThe file " + fault +
                        "\rThe tabs may show strange values behind it.\r\rOpen it all the same?",
                    "", Icon::question, Buttons::noYes) == Answer::yes;
}

std::string rescueFile() { return host().dataFolder() + "/rescue.cfg"; }

// The name under which a rescued setup stays: the next number that is free.
std::string settledName() {
  for (std::int32_t number = 1;; ++number) {
    std::string name = host().dataFolder() + "/rescued-" + numberText(number) + ".cfg";
    if (!host().fileExists(name)) return name;
  }
}

// The file's present name: where it can't be renamed it keeps its own.
std::string settle(const std::string& path) {
  std::string name = settledName();
  return attempt([&] { host().renameFile(path, name); }) ? name : path;
}

}  // namespace

// Hardware goes in as it is before the tabs are committed.
std::string presentConfiguration() {
  const double stamp = std::fmod(host().now(), secondsOfDay);
  std::string file = configModelPart(stamp);
  auto& editor = form<frmBigFolder>();
  editor.reCover();
  return file + configSetupPart(editor.tabBig.tab(), stamp);
}

bool openConfiguration(const std::string& path) {
  ConfigCheck check;
  try {
    const std::string bytes = host().readFile(path, longestConfiguration());
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
  if (check.fault.empty() && !check.older) BaseModel = host().fromCodePage(check.baseModel);
  form<frmBigFolder>().FileOpen(path);
  return true;
}

bool saveConfiguration(const std::string& path) {
  const std::string before = Global.FileName;
  Global.FileName = path;
  try {
    host().exchangeFile(path, presentConfiguration());
    return true;
  } catch (const RuntimeError& error) {
    Global.FileName = before;
    refuse("The setup is not saved:", path, error.what());
    return false;
  }
}

void saveConfigurationAs() {
  const std::string path = host().chooseFileToSave(configFilter);
  if (!path.empty()) saveConfiguration(path);
}

std::string keepForRescue() {
  try {
    if (!isLoaded<frmBigFolder>()) return "";
    const std::string setup = presentConfiguration();
    const std::string path = rescueFile();
    if (host().fileExists(path)) settle(path);
    host().exchangeFile(path, setup);
    return "Your setup is kept and is offered at the next start:\r" + path;
  } catch (...) {
    return "";  // the error that ends the program is the one to show
  }
}

void offerRescue() {
  if (!host().fileExists(rescueFile())) return;
  const std::string path = settle(rescueFile());
  const Answer answer = messageBox(
      "The program ended with an error. The setup of that moment was kept:\r" + path + "\r\rOpen it now?", "",
      Icon::question, Buttons::yesNo);
  if (answer != Answer::yes) return;
  const std::int16_t warningsOff = Global.WarningsOff;
  Global.WarningsOff = True;  // as for every opening: the file's entries are not the user's
  openConfiguration(path);
  Global.WarningsOff = warningsOff;
}
