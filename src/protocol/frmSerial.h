// SPDX-License-Identifier: MIT
// The communications status window: it starts the runs, and is what the user watches meanwhile.
//
// Nobody calls a method to start a run: the caller sets `readMode` and the flags in Global and shows the
// window modally; Form_Activate does the rest. With a `job` the unit that answers is given to that instead.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Form.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "protocol/SerialChannel.h"
#include "protocol/StatusHistory.h"
#include "runs/Run.h"

namespace torvane {

class DeviceDetection;
class NetworkChannel;

class frmSerial : public Form, public RunView {
 public:
  frmSerial();
  ~frmSerial() override;

  Animation Animation1{*this, "Animation1"};
  Picture imgComputer{*this, "imgComputer", "imgComputer"};
  Picture imgMicro{*this, "imgMicro", "imgMicro"};
  Label lblTarget{*this, "lblTarget"};  // what is being talked to
  Label lblStatus{*this, "lblStatus"};  // the narrative of the present step
  ListBox lstNarrative{*this,
                       "lstNarrative",
                       {},
                       "What the run has done so far"};  // the narrative of the run, a line for each step
  Label lblBar{*this, "lblBar"};
  ProgressBar lblProgress{*this, "lblProgress", fullBar};
  Label lblPercent{*this, "lblPercent"};
  CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

  // What a showing does.
  bool reads() const { return readMode != 0; }
  std::int16_t readMode = 0;      // a read run rather than a write run; written by the choosers
  UnitJob job;                    // done in place of a write or a read; empty: these
  std::int16_t windowActive = 0;  // between activation and deactivation

  const std::unique_ptr<SerialPort> MSComm1;
  SerialChannel channel;
  const std::unique_ptr<Socket> winSock1;
  const std::unique_ptr<NetworkChannel> network;
  const std::unique_ptr<DeviceDetection> detection;

  StatusHistory history{lstNarrative};
  Run run{*this};                                   // the present run, or the last
  std::int16_t& revisionClass = run.revisionClass;  // read by the wizard

  // What a run shows and asks: frmSerialView.cpp.
  void upStat(bool append, std::string_view text) override;
  void upProg(std::int16_t percent) override;
  Answer box(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  void offerCancel() override;
  void notice(std::string_view text) override;
  void commitTabs() override;
  void showTabs() override;
  void takeAnalogOutputAway() override;
  void returnToReadingTab() override;
  void wizardLooks(std::string_view text) override;
  void wizardProgress(int value) override;
  void wizardSays(std::string_view text) override;
  void wizardAdds(std::string_view text) override;
  void wizardFinishes(bool found) override;
  void wizardStops() override;
  void useFactoryLine() override;
  void choosePort(int port) override;
  void chooseBridgePort(int port) override;

  // The channels and the runs, by the names under which the windows know them. What each does stands with its
  // run: protocol/SerialChannel.h, network/NetworkChannel.h and protocol/Probe.h to network/NetworkTest.h.
  std::string writePort(std::string_view command) { return channel.writePort(command); }
  std::string ReadSet(std::string_view reg) { return channel.ReadSet(reg); }
  std::string writeSet(std::string_view reg, const std::string& value) {
    return channel.writeSet(reg, value);
  }
  std::string ReadSerial(std::string_view reg) { return ReadSet(reg); }
  std::string writeSerial(std::string_view reg, const std::string& value);
  std::string NetworkReadSerial(std::string_view reg);
  std::string NetworkWriteSerial(std::string_view reg, const std::string& value);
  std::string comOK(std::int16_t& mode);
  void ComCheckForMeterType(std::int16_t& type);
  void TcpCheckForMeterType(std::int16_t& type);
  void SerialTestConnect();
  void NetworkTestConnect();
  std::int16_t CheckForConnectedDevice();
  std::int16_t NetworkFullConnect();
  bool NetworkCommunicationOK(bool reset);
  void WriteConfigurationToDevice();
  void ReadConfigurationFromDevice();
  void NetworkWriteToDevice();
  void NetworkReadFromDevice();

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Deactivate() override;
  bool Form_QueryUnload() override;
  void Form_Unload() override;

 private:
  static constexpr int fullBar = 4095;

  std::string searchWords_;  // what the search for the unit has told

  Run& thisWay();  // the run, in the direction that readMode tells
  bool serialPath();
  void networkPath();
  void runOverSerial();
  void resetWhenWanted(const Handler& reset);
  bool looksOnly() const { return job && reads(); }  // no run that is kept
  void takeUnitAddress();
  void finish(std::string_view lastWords);
  const char* lastWords() const;
  void keepVerdict();
  std::string whatIsInTheWay();
  void cmdCancel_Click();
  void showTarget();
  std::string serialTarget();
  std::string networkTarget() const;
};

}  // namespace torvane
