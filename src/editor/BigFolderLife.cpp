// SPDX-License-Identifier: MIT
// The life of the program: start behind the splash, first activation, exit; and the stored preferences.
#include "core/BridgePorts.h"
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "core/PartNumber.h"
#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmPreferences.h"
#include "dialogs/frmRead.h"
#include "dialogs/frmRunDetails.h"
#include "dialogs/frmSplash.h"
#include "dialogs/frmWrite.h"
#include "editor/frmBigFolder.h"
#include "platform/Clock.h"
#include "platform/Ports.h"
#include "platform/Program.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"
#include "platform/WindowSystem.h"
#include "protocol/frmSerial.h"
#include "wizard/frmWizard.h"

#include <cmath>

namespace torvane {

namespace {

constexpr double splashTime = 6.0;  // seconds, however fast the set-up runs
constexpr std::int32_t firstCatalogueRow = 2;

std::string asWord(bool state) { return state ? "True" : "False"; }
std::string asText(std::int32_t number) { return numberText(number); }

// A stored number; what can't be a 16-bit number counts as missing.
std::int16_t storedNumber(const std::string& text, std::int16_t ifMissing) {
  std::int16_t number = ifMissing;
  if (!text.empty()) attempt([&] { number = toInt16(Val(text)); });
  return number;
}

}  // namespace

frmBigFolder::frmBigFolder() : MSComm1(host<Ports>().makeSerialPort()) {
  takesFiles = true;
  wireTabs();
  wireKeys();
  wireVerdict();
  wireUndo();
  wireCommTab();
  wireDependentControls();
  wireOutputs();
  wireEntries();
  firstLooks();
}

void frmBigFolder::Form_Load() {
  prepare();
  initSplash();
  auto& splash = form<frmSplash>();
  hide();
  splash.show();
  host<WindowSystem>().repaint(splash);
  const double start = std::nearbyint(host<Clock>().now());
  initBigFolder();
  keepSplashUp(start);
  torvane::unload<frmSplash>();
  settle();
  show();
}

void frmBigFolder::prepare() {
  BaseModel = factoryBaseModel;
  settings_.Appname = program::title;
  settings_.Section = "Persist";
  listPartNumber(firstCatalogueRow);
}

void frmBigFolder::settle() {
  settings_.Key = "Reset";
  settings_.RegGet();
  Global.ResetAfterWrite = asFlag(settings_.Setting == "True");
  settings_.Key = "Warn";
  settings_.RegGet();
  Global.WarningsOff = asFlag(settings_.Setting == "True");
  tabBig.setTabAvailable(tab::analog, false);
  AnalogOutControls(false);
  txtRS485Address.setEnabled(false);
  countPartNumbers();
}

void frmBigFolder::initSplash() {
  auto& splash = form<frmSplash>();
  splash.lblCompany.setCaption(program::company);
  splash.lblProductName.setCaption("Configuration Program");
  splash.lblCopyright.setCaption(program::copyright);
  splash.lblWarning.setCaption(program::upgradeNotice);
}

void frmBigFolder::keepSplashUp(double start) const {
  const auto left = [&] { return splashTime - (host<Clock>().now() - start); };
  while (left() > 0) host<Clock>().idle(left());
}

void frmBigFolder::initBigFolder() {
  centre();
  initMemory();
  showRecords();
  Hardware.ModelNumber = factoryModelNumber;
  Hardware.Out1.SSR = True;
  Hardware.Out2.SSR = True;
  DeviceState.DeviceClass = -1;
  setFixedTexts();
}

void frmBigFolder::setFixedTexts() {
  lblIDCodeEn.setCaption(
      "To enable ID Code security feature, place a check in the ID Enable box.\r\n\r\n"
      "To activate ID Code security feature, enter a non zero value in the ID Code box.");
  lblSwap.setCaption("Specify Setpoint 1 and Setpoint 2 in Degrees for TC and RTD, or counts for Process.");
  lblIDInst.setCaption(
      "To Change the ID Code security feature, enter new four digits value in the ID Code input box below.");
  lblIDDisabled.setCaption(
      "The ID Code security feature is not enabled.\r\n\r\n"
      "ID Code security can prevent unauthorized access to the settings of the controller via the front "
      "buttons.\r\n\r\n"
      "To enable ID Code security feature, place a check in the ID Code Enable check-box found in the "
      "L.Brk.Alarm "
      "section/tab.");
  lblAutoDet.setCaption(serialAutoDetect);
}

void frmBigFolder::initMemory() {
  storeDefaults();
  loadRegCommSet();
  fillFirmwareVersions();
}

void frmBigFolder::loadRegCommSet() {
  const auto stored = [this](const char* key) {
    settings_.Key = key;
    settings_.RegGet();
    return settings_.Setting;
  };
  const auto orElse = [](const std::string& text, const std::string& ifEmpty) {
    return text.empty() ? ifEmpty : text;
  };
  Hardware.BusMode = orElse(stored("rs232"), "True") == "True" ? 0 : -1;
  Hardware.BusAddress = storedNumber(stored("address"), 1);
  Memo[rec::cboCommPort].value = storedNumber(stored("CommPort"), -1);
  Memo[rec::cboBaud].value = storedNumber(stored("Baud"), 4);
  Memo[rec::cboParity].value = storedNumber(stored("Parity"), 1);
  Memo[rec::cboData].value = storedNumber(stored("Data"), 0);
  Memo[rec::cboStop].value = storedNumber(stored("Stop"), 0);
  const bool serial = orElse(stored("SerialMode"), "True") == "True";
  Memo[rec::optCommunicationMode].flag = asFlag(serial);
  Memo[rec::optCommunicationMode + 1].flag = asFlag(!serial);
  Memo[rec::txtTCPIPAddress].text = orElse(stored("IPAddress"), "192.0.2.254");
  Memo[rec::txtTCPPort].text = orElse(stored("TCPPort"), std::to_string(bridgePort::initial));
}

void frmBigFolder::Form_Activate() {
  if (Global.FirstActivationDone != False) return;
  tabBig.setTab(Global.StartOnCommTab != False ? tab::comm : tab::setpoints);
  Global.FirstActivationDone = True;
}

void frmBigFolder::Form_Unload() {
  writeMemo(tab::comm);
  savePreferences();
  Global.ReadConfirmed = 0;
  torvane::unload<frmHardware>();
  torvane::unload<frmSerial>();
  torvane::unload<frmRead>();
  torvane::unload<frmWrite>();
  torvane::unload<frmWizard>();
  torvane::unload<frmPreferences>();
  torvane::unload<frmRunDetails>();
  torvane::unload<frmSplash>();
  torvane::unload<frmCommModeWarning>();
}

void frmBigFolder::savePreferences() {
  const std::pair<const char*, std::string> preferences[] = {
      {"CommPort", asText(Memo[rec::cboCommPort].value)},
      {"Baud", asText(Memo[rec::cboBaud].value)},
      {"Parity", asText(Memo[rec::cboParity].value)},
      {"Data", asText(Memo[rec::cboData].value)},
      {"Stop", asText(Memo[rec::cboStop].value)},
      {"SerialMode", asWord(overSerial())},
      {"IPAddress", Memo[rec::txtTCPIPAddress].text},
      {"TCPPort", Memo[rec::txtTCPPort].text},
      {"Reset", asWord(resetsAfterWrite())},
      {"ShowOnStartUp", "False"},
      {"address", asText(Hardware.BusAddress)},
      {"rs232", asWord(Hardware.BusMode == 0)},
      {"Warn", asWord(!warnsOfEntries())},
  };
  for (const auto& [key, setting] : preferences) {
    settings_.Key = key;
    settings_.Setting = setting;
    settings_.RegSave();
  }
}

}  // namespace torvane
