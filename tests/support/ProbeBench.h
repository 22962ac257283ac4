// SPDX-License-Identifier: MIT
// The bench for the first probe: a loaded status window on a port that answers command by command.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "protocol/frmSerial.h"
#include "tests/support/ScriptedPort.h"

namespace torvane {

class ProbeBench : public ::testing::Test {
 protected:
  ProbeBench();
  ~ProbeBench() override;

  // Replies to one command, without recognition character and address, in their order; the last one stands
  // for all that follow. An empty one is silence, and so is a command that isn't here. Each gets the address
  // in front, as an echo, and a carriage return after, unless it brings its own line end.
  using Replies = std::vector<std::string>;
  std::map<std::string, Replies> answers;

  // A unit that says the type and a good version, point to point.
  void answerAs(const std::string& type);
  void onBus(int mode, int address);
  std::vector<std::string> commands() const { return port().commands(); }
  ScriptedPort& port() const { return static_cast<ScriptedPort&>(*window.MSComm1); }
  // A box of this text, or none.
  void expectBoxes(const std::vector<std::string>& texts) const;
  // Forgets what earlier commands and the window have left, and puts the clock on a whole second.
  void startAnew();

 private:
  std::vector<Said> answer(const std::string& command);
  std::map<std::string, std::size_t> asked_;

 protected:
  ScriptedHost host;
  frmSerial& window;
  std::vector<std::string> narrative;  // the status text after every change
};

}  // namespace torvane
