// SPDX-License-Identifier: MIT
// One unit on one line, and the runs with it: the very ones of the window.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "knowledge/EncodedSetup.h"
#include "knowledge/UnitImage.h"
#include "network/NetworkChannel.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"
#include "platform/qt/io/LineLock.h"
#include "protocol/SerialChannel.h"
#include "reading/DeviceDetection.h"
#include "runs/Run.h"
#include "tool/Arguments.h"
#include "tool/Output.h"
#include "tool/ShellView.h"

namespace torvane::tool {

class Connection {
 public:
  // On the records as they are: the way and its settings are taken into them. Throws Problem where the port
  // can't be opened.
  explicit Connection(const LineArguments& line);

  const RunOutcome& outcome() const { return run_.outcome; }

  // Finds out what answers. Throws Problem when nothing does, or not what --model asks for.
  void meet();
  // The same for a setup: a unit of the other line is a Problem, before anything is written.
  void meetForSetup();
  // Whether there is anything that talks, at this address or without one; quick. Runs go there from now on.
  bool answers(std::optional<int> address);
  // Throws WrongUnit when the unit that was met gives another address than the one it was asked at, or none.
  void mustAnswerAtItsAddress();
  // Throws WrongUnit when nobody else but a unit without an address answers, for a run that has one.
  void mustHaveAnAddress();

  // Is called after each register of a run from here on.
  void onRegister(std::function<void(const RegisterOutcome&)> tell);

  // With a unit that was met.
  UnitImage readAll();
  void putBack(const EncodedSetup& setup);

  // The whole runs, from the first probe on. What they come to stands in outcome().
  void write(bool reset, bool force);
  void read();

 private:
  void meetOnSerial();
  void meetOverBridge();
  void connectToBridge();
  std::string askVersionOnce();
  bool answersWithoutAddress();
  std::string answersHere() const;
  void askVersion();
  void mustBeOpenable();
  void begin(bool reading);
  void writeOnSerial(bool reset, bool force, std::int16_t isRkw77);
  void overSerial(const std::function<void()>& job);
  void overBridge();
  void takeLine();
  void noteLostLine(bool cameToItsEnd);
  bool isReachable();
  void watchBridge();
  void mustFitModel() const;
  Channel& channel();

  LineArguments line_;
  bool bridgeIsLost_ = false;
  std::size_t registersWatched_ = 0;
  ShellView view_;
  Run run_{view_};
  std::optional<LineLock> lock_;
  const std::unique_ptr<SerialPort> port_;
  SerialChannel serial_;
  const std::unique_ptr<Socket> socket_;
  NetworkChannel network_;
  DeviceDetection detection_;
};

}  // namespace torvane::tool
