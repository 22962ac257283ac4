// SPDX-License-Identifier: MIT
// The communications status window: the engine of every run, and the dialog that the user watches meanwhile.
//
// Nobody calls a method to start a run: the caller sets `readMode` and the flags in Global and shows the
// window modally; Form_Activate does the rest.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Form.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "protocol/SerialChannel.h"

class DeviceDetection;
class NetworkChannel;
struct RegisterStep;
struct RunBody;

class frmSerial : public Form {
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
  CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

  // What a showing does.
  std::int16_t readMode = 0;       // a read run rather than a write run; written by the choosers
  std::int16_t windowActive = 0;   // between activation and deactivation
  std::int16_t revisionClass = 0;  // written by comOK and the type check, read by the wizard

  const std::unique_ptr<SerialPort> MSComm1;
  SerialChannel channel;
  const std::unique_ptr<Socket> winSock1;
  const std::unique_ptr<NetworkChannel> network;
  const std::unique_ptr<DeviceDetection> detection;

  // Narrative.
  void upStat(bool append, std::string_view text);
  void upProg(std::int16_t percent);

  // The channel, as the runs use it.
  std::string ReadSerial(std::string_view reg);
  // Shows the value; a value that begins with "!" is a message and becomes the result without the "!".
  std::string writeSerial(std::string_view reg, const std::string& value);
  std::string NetworkReadSerial(std::string_view reg);
  std::string NetworkWriteSerial(std::string_view reg, const std::string& value);

  // The probe: Probe.cpp. Is there a unit that can be configured? Mode 0 and 4 probe ("" found, "ng" not),
  // mode 1 resets the unit.
  std::string comOK(std::int16_t& mode);
  // MeterType.cpp of reading. What unit it is: -1 none that can be used, 0 the Rkw77 line, 1 to 5 TMP, PRC,
  // STR, GR2, RHT, 6 any other.
  void ComCheckForMeterType(std::int16_t& type);
  void TcpCheckForMeterType(std::int16_t& type);

  // The wizard's tests, over the serial ports (PortSearch.cpp) and over the bridge (NetworkTest.cpp). They
  // leave their verdicts in the wizard.
  void SerialTestConnect();
  void NetworkTestConnect();
  // Does a unit answer behind the bridge? 1 yes, -1 the bridge's own prompt does, -2 the line echoes; -43,
  // -46 and -50 are the unit's own errors, 0 is anything else.
  std::int16_t CheckForConnectedDevice();

  // The bridge: NetworkRuns.cpp and NetworkAccess.cpp. Connects and runs the whole job; 0 the run took place,
  // or its second look at the unit found it gone; -1 no bridge, -2 no unit that can be configured.
  std::int16_t NetworkFullConnect();
  // Is there a unit of the family that was chosen, or, with `reset`, was it reset?
  bool NetworkCommunicationOK(bool reset);

  // The runs, over either body: WriteRun.cpp and ReadRun.cpp. Errors in an encoder or decoder end them where
  // they are.
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

  bool serialPath();
  void networkPath();
  void runOverSerial();
  void runOverNetwork();
  void commitTabs();
  void resetWhenWanted(const Handler& reset);
  void takeUnitAddress();
  void finish(std::string_view lastWords);
  void cmdCancel_Click();
  void showTarget();
  std::string serialTarget();
  bool showPayload(const std::string& value);

  void probe(std::string& result);
  bool screenShape(const std::string& reply);
  void judgeContent(const std::string& reply, int& stage);
  std::string askVersion(int& stage);
  void judgeVersion();
  void announce(std::int16_t type, const std::string& lastReply);
  void publish(int stage);
  void shortCommand(std::int16_t mode);
  std::string ask(std::string_view command);
  // Sends a command of the type check and returns the reply without a carriage return; `settles`: the unit
  // needs a rest after it.
  using TypeQuery = std::function<std::string(const std::string& command, bool settles)>;
  void checkMeterType(std::int16_t& type, const TypeQuery& query);
  void checkBusSettings(std::int16_t& type, const std::string& reply);

  bool findsUnitOn(int port, int progress);
  std::optional<int> scanPorts(int except, int progress);
  bool findsUnitBehindBridge();
  bool connectsToBridge();
  void prepareSecondTry(bool onTerminalServerPort);
  void tellWhatAnswered(std::int16_t code);
  void stopAtEcho();
  bool hearsVersion(std::string& lastReply);
  bool knowsModel(const std::string& lastReply);
  void tellReplacedPort() const;

  bool resetOverNetwork();
  std::int32_t detectFamily();

  void writeConfiguration(const RunBody& body);
  void readConfiguration(const RunBody& body);
  bool wiringFault() const;
  bool givesUp(int& failedSteps);
  void readStep(int step);
  void showOnTabs();
  bool writeStep(int step);
  bool writeInputType();
  bool writeReadingScale();
  void writeAnalogOutput();
  void writeBusSettings();
  void writeRow(const RegisterStep& row);
  std::string sendRow(const RegisterStep& row);
  void readRow(const RegisterStep& row);
  void moveBar(int percent);

  const RunBody* body_ = nullptr;  // of the present run
};
