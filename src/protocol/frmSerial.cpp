// SPDX-License-Identifier: MIT
// The communications status window: what a showing does, and Cancel.
#include "protocol/frmSerial.h"

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"
#include "network/NetworkAccess.h"
#include "network/NetworkChannel.h"
#include "network/NetworkRuns.h"
#include "network/NetworkTest.h"
#include "platform/Boxes.h"
#include "platform/Files.h"
#include "platform/Ports.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"
#include "protocol/Probe.h"
#include "protocol/Waits.h"
#include "protocol/WriteRun.h"
#include "reading/DeviceDetection.h"
#include "reading/MeterType.h"
#include "reading/PortSearch.h"
#include "reading/ReadRun.h"
#include "runs/NoWay.h"

namespace torvane {

namespace {

constexpr float lastLook = 1.0F;  // seconds that the end of a run stays on the screen

}  // namespace

frmSerial::frmSerial()
    : Form("frmSerial", "Communications Status"),
      MSComm1(host<Ports>().makeSerialPort()),
      channel(*MSComm1),
      winSock1(host<Ports>().makeSocket()),
      network(std::make_unique<NetworkChannel>(*winSock1)),
      detection(std::make_unique<DeviceDetection>()) {
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

frmSerial::~frmSerial() = default;

// Without its animation a window is not the one that was installed: it gets no port, so a run finds no unit.
void frmSerial::Form_Load() {
  centre();
  attempt([this] {
    Animation1.open(host<Files>().programFolder() + "/search.avi");
    Animation1.setVisible(true);
    const SerialPort& chosen = *form<frmBigFolder>().MSComm1;
    MSComm1->commPort = chosen.commPort;
    MSComm1->settings = chosen.settings;
  });
}

void frmSerial::Form_Activate() {
  Global.CancelFlag = False;
  upProg(0);
  windowActive = True;
  if (reads() && Global.ReadConfirmed == 0) {
    unload();
    return;
  }
  history.begin();
  if (!isLinkTest() && !looksOnly()) form<frmBigFolder>().forgetRun();
  showTarget();
  beginOutcome(thisWay(), lblTarget.caption());
  const bool serial = overSerial();
  if (serial && !serialPath()) return;
  if (!serial) networkPath();
  if (Global.DetectionDone == 1) unload();
}

// Each statement on its own: what fails is skipped, and the window still comes to its end. False when no unit
// answered and the window has gone.
bool frmSerial::serialPath() {
  if (isLinkTest()) {
    attempt([this] { SerialTestConnect(); });
    Global.AutoDetect = False;
    return true;
  }
  cmdCancel.setCaption("Cancel");
  std::string found;
  std::int16_t mode = 4;
  attempt([&] { found = comOK(mode); });
  searchWords_ = history.text();
  if (!found.empty()) {
    run.outcome.end = RunEnd::noUnit;
    keepVerdict();
    hide();
    host<Boxes>().beep();
    messageBox(
        "Communication with controller cannot be established.\r"
        "Please verify COM setup and connection, then try again.",
        "", Icon::critical);
    return false;
  }
  upProg(3);
  attempt([this] { Animation1.open(host<Files>().programFolder() + "/filecopy.avi"); });
  runOverSerial();
  resetWhenWanted([this] {
    std::int16_t reset = 1;
    comOK(reset);
  });
  takeUnitAddress();
  finish("Done\r");
  return true;
}

void frmSerial::runOverSerial() {
  if (job) {
    attempt([this] { job(run, channel); });
    return;
  }
  commitTabs();
  if (reads()) {
    if (Global.ReadConfirmed != 0) attempt([this] { ReadConfigurationFromDevice(); });
    Global.ReadConfirmed = 0;
  } else {
    attempt([this] { WriteConfigurationToDevice(); });
  }
}

// A failed connection ends like a run that took place, after its box. A read that took place is no longer
// due, and the window goes for good at the end of this showing.
void frmSerial::networkPath() {
  if (isLinkTest()) {
    Global.DetectionDone = 1;
    attempt([this] { NetworkTestConnect(); });
    Global.AutoDetect = False;
    return;
  }
  std::int16_t result = 0;
  attempt([&] { result = NetworkFullConnect(); });
  if (result == -2) messageBox("No device connected");
  if (result == -1) messageBox("Failed to connnect to Relayon");
  if (result == 0) {
    resetWhenWanted([this] { NetworkCommunicationOK(true); });
    if (reads() && Global.ReadConfirmed == 0) unload();
  }
  takeUnitAddress();
  finish(lastWords());
}

const char* frmSerial::lastWords() const {
  if (job) return " and Done\r";
  return reads() ? " and Configuration Read\r" : " and Configuration Sent\r";
}

void frmSerial::resetWhenWanted(const Handler& reset) {
  if (!resetsAfterWrite() || reads()) return;
  attempt(reset);
  upProg(97);
}

// The next command has to reach the unit where it is: only what was sent to it, or read from it, counts.
void frmSerial::takeUnitAddress() {
  if (job) return;  // what the unit has for an address is not what the boxes say
  constexpr const char* busAddress = "21";
  const bool known = run.reading ? run.outcome.understood(busAddress) : run.outcome.settled(busAddress);
  if (!isChosen(rec::optRS485) || !known) return;
  attempt([] { Hardware.BusAddress = toInt16(Val(Memo[rec::txtRS485Address].text)); });
  attempt([] { form<frmHardware>().txtAddress.setText(Memo[rec::txtRS485Address].text); });
}

void frmSerial::finish(std::string_view lastWords) {
  Animation1.setVisible(false);
  upStat(true, lastWords);
  upProg(100);
  keepVerdict();
  cmdCancel.setCaption("Close");
  Delay(lastLook);
  hide();
}

std::string frmSerial::whatIsInTheWay() {
  const bool serial = overSerial();
  if (!serial || channel.everOpened()) return adviceFor(run.outcome, searchWords_);
  run.outcome.end = RunEnd::noPort;
  return MSComm1->commPort > 0 ? host<Ports>().serialPortHint(MSComm1->commPort) : noWay::noPortChosen.advice;
}

void frmSerial::keepVerdict() {
  run.outcome.advice = whatIsInTheWay();
  history.end(run.outcome);
  if (looksOnly()) return;  // what the last run came to still stands
  form<frmBigFolder>().keepRun(run.outcome, history.lines());
}

void frmSerial::Form_Deactivate() { windowActive = False; }

// The window's frame does what its button does.
bool frmSerial::Form_QueryUnload() {
  cmdCancel_Click();
  return true;
}

void frmSerial::Form_Unload() {
  winSock1->close();
  if (MSComm1->isOpen()) MSComm1->close();
}

void frmSerial::cmdCancel_Click() {
  if (cmdCancel.caption() != "Cancel") {
    hide();
    return;
  }
  const Answer answer = messageBox("This action will abort\rcurrent communication activities\rAre you sure?",
                                   "", Icon::question, Buttons::noYes);
  if (answer == Answer::yes) Global.CancelFlag = True;
}

void frmSerial::showTarget() {
  const bool serial = overSerial();
  lblTarget.setToolTip("");
  std::string target = serial ? serialTarget() : networkTarget();
  if (!isUnaddressed()) target += ", address " + numberText(std::int32_t{Hardware.BusAddress});
  lblTarget.setCaption(target);
}

std::string frmSerial::serialTarget() {
  if (MSComm1->commPort <= 0) return "No serial port is chosen";
  lblTarget.setToolTip(host<Ports>().serialPortHint(MSComm1->commPort));
  return "COM " + numberText(std::int32_t{MSComm1->commPort}) + ", " + MSComm1->settings;
}

std::string frmSerial::networkTarget() const {
  return Memo[rec::txtTCPIPAddress].text + ", port " + Memo[rec::txtTCPPort].text;
}

Run& frmSerial::thisWay() {
  run.reading = reads();
  return run;
}

std::string frmSerial::writeSerial(std::string_view reg, const std::string& value) {
  return writeRegister(run, channel, reg, value);
}

std::string frmSerial::NetworkReadSerial(std::string_view reg) { return network->NetworkReadSet(reg); }

std::string frmSerial::NetworkWriteSerial(std::string_view reg, const std::string& value) {
  return writeRegister(run, *network, reg, value);
}

std::string frmSerial::comOK(std::int16_t& mode) { return torvane::comOK(thisWay(), channel, mode); }

void frmSerial::ComCheckForMeterType(std::int16_t& type) {
  torvane::ComCheckForMeterType(run, channel, type);
}

void frmSerial::TcpCheckForMeterType(std::int16_t& type) {
  torvane::TcpCheckForMeterType(run, *network, type);
}

void frmSerial::SerialTestConnect() { torvane::SerialTestConnect(thisWay(), channel); }

void frmSerial::NetworkTestConnect() { torvane::NetworkTestConnect(thisWay(), *network); }

std::int16_t frmSerial::CheckForConnectedDevice() { return torvane::CheckForConnectedDevice(run, *network); }

std::int16_t frmSerial::NetworkFullConnect() {
  return torvane::NetworkFullConnect(thisWay(), *network, *detection, job);
}

bool frmSerial::NetworkCommunicationOK(bool reset) {
  return torvane::NetworkCommunicationOK(thisWay(), *network, *detection, reset);
}

void frmSerial::WriteConfigurationToDevice() { writeConfiguration(run, channel); }

void frmSerial::ReadConfigurationFromDevice() { readConfiguration(run, channel); }

void frmSerial::NetworkWriteToDevice() { torvane::NetworkWriteToDevice(run, *network); }

void frmSerial::NetworkReadFromDevice() { torvane::NetworkReadFromDevice(run, *network); }

}  // namespace torvane
