// SPDX-License-Identifier: MIT
// The communication tab: how this computer reaches the unit.
#include "core/BridgePorts.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "dialogs/frmCommModeWarning.h"
#include "dialogs/frmWrite.h"
#include "editor/Replacement.h"
#include "editor/frmBigFolder.h"
#include "platform/Boxes.h"
#include "platform/Ports.h"
#include "platform/RuntimeError.h"
#include "runs/NoWay.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

constexpr std::uint32_t white = 0xFFFFFF;
constexpr std::uint32_t green = 0x00FF00;
constexpr std::uint32_t red = 0x0000FF;  // red is the low byte

// Told beside the main window, and not again while it still stands there.
void warnOfModeChange() {
  attempt([] { form<frmCommModeWarning>().show(); });
}

}  // namespace

void frmBigFolder::wireCommTab() {
  for (ComboBox* setting : {&cboBaud, &cboParity, &cboData, &cboStop}) {
    setting->onClick = [this] { makeCommSetting(); };
  }
  cboCommPort.onClick = cboCommPort.onUse = [this] { cboCommPort_Click(); };
  for (int index : {0, 1}) {
    optCommunicationMode(static_cast<std::size_t>(index)).onClick = [this, index] {
      optCommunicationMode_Click(index);
    };
  }
  optRS232.onClick = [this] { optRS232_Click(); };
  optRS485.onClick = [this] { optRS485_Click(); };
  txtRS485Address.onChange = warnOfModeChange;
  optPortNum(0).onClick = [this] { txtTCPPort.setText(std::to_string(bridgePort::initial)); };
  optPortNum(1).onClick = [this] { txtTCPPort.setText(std::to_string(bridgePort::terminalServer)); };
  txtTCPIPAddress.onChange = [this] { showNetworkTarget(); };
  txtTCPPort.onChange = [this] {
    showNetworkTarget();
    pickPortOption();
  };
  cmdAutoDetect.onClick = [this] { cmdAutoDetect_Click(); };
}

void frmBigFolder::optRS232_Click() {
  txtRS485Address.setEnabled(false);
  warnOfModeChange();
}

void frmBigFolder::optRS485_Click() {
  txtRS485Address.setEnabled(true);
  warnOfModeChange();
}

// A wizard that a run has filled in its own way begins anew. One that has found no unit changes nothing here.
void frmBigFolder::cmdAutoDetect_Click() {
  writeMemo(tab::comm);
  if (!overSerial() && txtTCPPort.text().empty()) {
    messageBox("Please provide a TCP/IP Port number");
    return;
  }
  const Replacement undoable("wizard");
  torvane::unload<frmWizard>();
  form<frmWizard>().showModal();
  if (!form<frmWizard>().hasFoundUnit()) return torvane::unload<frmWizard>();
  Memo[rec::menuKind].extra = form<frmWizard>().wizardResultMode;
  DeviceState.MenuKind = Memo[rec::menuKind].extra;
  followMenu();
  torvane::unload<frmWizard>();
  SilentSetup = True;
  cmdCnfg_Click();
}

// As "9600,o,7,1".
void frmBigFolder::makeCommSetting() {
  const std::string baud = cboBaud.list(cboBaud.listIndex());
  const char* parity = cboParity.listIndex() == 0 ? "n" : cboParity.listIndex() == 2 ? "e" : "o";
  const char* data = cboData.listIndex() == 1 ? "8" : "7";
  const char* stop = cboStop.listIndex() == 1 ? "2" : "1";
  MSComm1->settings = baud + "," + parity + "," + data + "," + stop;
}

void frmBigFolder::cboCommPort_Click() {
  const int port = cboCommPort.listIndex() + 1;
  if (port == 0) {
    cboCommPort.setText("unselect");
    cboCommPort.setToolTip(portListTip);
    showPortState(white, "Port is unselected", "");
    return;
  }
  usePort(port);
}

void frmBigFolder::usePort(int port) {
  MSComm1->commPort = port;
  const std::string hint = host<Ports>().serialPortHint(port);
  cboCommPort.setToolTip(hint);
  try {
    MSComm1->open();
    showPortState(green, "Port is available", hint);
    MSComm1->close();
  } catch (const RuntimeError& error) {
    showPortState(red, error.what(), hint);
  }
}

// The words of a fault are the system's; the hint says what to do about it.
void frmBigFolder::showPortState(std::uint32_t color, std::string_view words, std::string_view hint) {
  lblCommStat.setBackColor(color);
  lblCommStat.setCaption(words);
  lblCommStat.setToolTip(hint);
  txtPortHelp.setText(hint.empty() ? noWay::noPortChosen.advice : hint);
}

void frmBigFolder::optCommunicationMode_Click(int index) {
  const bool serial = index == 0;
  fraSerialManualSet.setVisible(serial);
  txtPortHelp.setVisible(serial);
  fraSerialCommunicationMode.setVisible(serial);
  fraTCPIPAddress.setVisible(!serial);
  fraTCPIPPort.setVisible(!serial);
  if (serial) {
    lblAutoDet.setCaption(serialAutoDetect);
  } else {
    showNetworkTarget();
  }
  if (!isLoaded<frmWrite>()) return;
  form<frmWrite>().cmdNetwork.setEnabled(!serial);
  form<frmWrite>().cmdSerial.setEnabled(serial);
}

void frmBigFolder::showNetworkTarget() {
  lblAutoDet.setCaption("Connect to the web server at IP address" + txtTCPIPAddress.text() + " and port " +
                        txtTCPPort.text());
}

void frmBigFolder::pickPortOption() {
  attempt([this] {
    const double port = Val(txtTCPPort.text());
    optPortNum(port == bridgePort::initial ? 0 : port == bridgePort::terminalServer ? 1 : 2).setValue(true);
  });
}

}  // namespace torvane
