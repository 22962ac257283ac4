// SPDX-License-Identifier: MIT
// Setup files and copies of units, and the line settings that a run takes.
#include "tool/Setup.h"

#include <QFileInfo>
#include <utility>

#include "core/Choices.h"
#include "core/ConfigCheck.h"
#include "core/ConfigFile.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "knowledge/UnitFile.h"
#include "platform/Files.h"
#include "platform/Program.h"
#include "platform/RuntimeError.h"
#include "platform/Settings.h"
#include "tool/Problem.h"

namespace torvane::tool {

namespace {

constexpr std::int16_t factoryBaud = 5;
constexpr std::int16_t onABus = 1;

std::string preference(const char* key) {
  return host<Settings>().setting(std::string(program::title) + "/Persist/" + key);
}

std::int16_t storedNumber(const char* key, std::int16_t ifMissing) {
  const std::string text = preference(key);
  std::int16_t number = ifMissing;
  if (!text.empty()) attempt([&] { number = toInt16(Val(text)); });
  return number;
}

std::string readWhole(const std::string& path, std::size_t most) {
  try {
    return host<Files>().readFile(path, most);
  } catch (const RuntimeError& fault) {
    throw Problem(ExitCode::file, path + ": " + fault.what());
  }
}

void replaceWhole(const std::string& path, std::string_view bytes) {
  try {
    host<Files>().replaceFile(path, bytes);
  } catch (const RuntimeError& fault) {
    throw Problem(ExitCode::file, path + ": " + fault.what());
  }
}

void mustBeSetup(const std::string& path, std::string_view bytes) {
  const ConfigCheck check = examineConfiguration(bytes);
  if (!check.fault.empty())
    throw Problem(ExitCode::file, path + ": this is no whole setup", "The file " + check.fault);
}

SetupEditor editorAtDesk() {
  const Desk desk;
  return {};
}

UnitImage takeCopy(const std::string& path, std::string_view bytes) {
  UnitFileContent content = readUnitFile(bytes);
  if (!content.image) throw Problem(ExitCode::file, path + ": " + content.fault);
  return std::move(*content.image);
}

std::int16_t placeOf(Choices names, const std::string& name) {
  for (std::size_t place = 0; place < names.size(); ++place) {
    if (name == names[place]) return static_cast<std::int16_t>(place);
  }
  return 0;
}

void takeOptions(const LineArguments& line) {
  if (line.baud) Memo[rec::cboBaud].value = placeOf(choices::bauds, std::to_string(*line.baud));
  if (!line.parity.empty()) Memo[rec::cboParity].value = placeOf(choices::parities, line.parity);
  if (line.data) Memo[rec::cboData].value = *line.data == 8 ? 1 : 0;
  if (line.stop) Memo[rec::cboStop].value = *line.stop == 2 ? 1 : 0;
  if (line.notAddressed) Hardware.BusMode = 0;
  if (!line.address) return;
  Hardware.BusMode = onABus;
  Hardware.BusAddress = static_cast<std::int16_t>(*line.address);
}

void takeWay(const LineName& name) {
  Memo[rec::optCommunicationMode].flag = asFlag(!name.overBridge());
  Memo[rec::optCommunicationMode + 1].flag = asFlag(name.overBridge());
  if (name.overBridge()) {
    Memo[rec::txtTCPIPAddress].text = name.host;
    Memo[rec::txtTCPPort].text = std::to_string(name.port);
  } else if (name.commPort > 0) {
    Memo[rec::cboCommPort].value = static_cast<std::int16_t>(name.commPort - 1);
  }
}

}  // namespace

void beginRecords() {
  Memo.reset();
  storeDefaults();
  fillFirmwareVersions();
  Memo[rec::cboCommPort].value = storedNumber("CommPort", -1);
  Memo[rec::cboBaud].value = storedNumber("Baud", factoryBaud);
  Memo[rec::cboParity].value = storedNumber("Parity", 1);
  Memo[rec::cboData].value = storedNumber("Data", 0);
  Memo[rec::cboStop].value = storedNumber("Stop", 0);
  BaseModel = factoryBaseModel;
  Hardware = {.ModelNumber = factoryModelNumber, .Out1 = {.SSR = True}, .Out2 = {.SSR = True}};
  const std::string unaddressed = preference("rs232");
  Hardware.BusMode = unaddressed.empty() || unaddressed == "True" ? 0 : onABus;
  Hardware.BusAddress = storedNumber("address", 1);
  DeviceState.DeviceClass = -1;
}

SetupDesk::SetupDesk() : editor(editorAtDesk()) { beginRecords(); }

void SetupDesk::open(const std::string& path) {
  const std::string bytes = readWhole(path, longestConfiguration());
  if (isUnitFile(bytes)) throw Problem(ExitCode::file, path + " is a copy of a unit, not a setup");
  mustBeSetup(path, bytes);
  const Desk desk;
  editor.open(path);
}

void SetupDesk::takeRead() {
  const Desk desk;
  editor.takeRecords();
}

void SetupDesk::save(const std::string& path) {
  const Desk desk;
  replaceWhole(path, editor.asFile());
}

void loadSetup(const std::string& path) { SetupDesk().open(path); }

void mustBeNew(const std::string& path) {
  if (QFileInfo::exists(QString::fromStdString(path)))
    throw Problem(ExitCode::file, path + " is there already", "A record is a new file.");
  mustHaveAFolder(path);
}

void mustHaveAFolder(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  const QFileInfo folder(file.absolutePath());
  if (file.isDir()) throw Problem(ExitCode::file, path + " is a folder");
  if (!folder.isDir() || !folder.isWritable())
    throw Problem(ExitCode::file, path + ": no file can be made there", "Nothing was sent.");
}

UnitImage loadCopy(const std::string& path) { return takeCopy(path, readWhole(path, longestUnitFile)); }

void saveCopy(const std::string& path, const UnitImage& copy) { replaceWhole(path, unitFileText(copy)); }

EitherFile loadEither(const std::string& path) {
  const std::string bytes = readWhole(path, longestEither());
  if (isUnitFile(bytes)) return {.setup = {}, .copy = takeCopy(path, bytes), .fault = {}};
  loadSetup(path);
  return {.setup = encodeSetup(), .copy = {}, .fault = {}};
}

std::string chooseLine(const LineArguments& line) {
  takeOptions(line);
  takeWay(line.name);
  const auto at = [](Choices names, int record) {
    const auto place = static_cast<std::size_t>(Memo[record].value);
    return std::string(place < names.size() ? names[place] : names[0]);
  };
  const auto baud = Memo[rec::cboBaud].value;
  const std::string speed = baud < 0 ? choices::bauds[factoryBaud] : at(choices::bauds, rec::cboBaud);
  const std::string parity = at(choices::parities, rec::cboParity).substr(0, 1);
  return speed + ',' + parity + ',' + (Memo[rec::cboData].value == 1 ? '8' : '7') + ',' +
         (Memo[rec::cboStop].value == 1 ? '2' : '1');
}

}  // namespace torvane::tool
