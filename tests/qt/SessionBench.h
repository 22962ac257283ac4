// SPDX-License-Identifier: MIT
// The bench for whole sessions: the real windows, a user with mouse and keyboard, a real pseudo terminal and
// the simulated unit at its far end.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"
#include "qt/QuickHost.h"
#include "sim/PseudoTerminal.h"

namespace torvane {

// The program is started once for all tests of a suite, since the splash stands for six seconds; each test
// has a unit of its own, on port 1, and begins with what the one before has left on the window.
class SessionBench : public ::testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

  explicit SessionBench(sim::UnitSetup setup = {});
  ~SessionBench() override;

  static QuickHost& user();
  static frmBigFolder& editor() { return form<frmBigFolder>(); }

  // The choosers, opened and closed again, and what is done in them.
  static void writeToUnit();
  static void readFromUnit();
  static void saveTo(const std::string& path);
  static void open(const std::string& path);  // the model is taken as the dialog shows it

  // Presses Hardware and does this in the dialog.
  static void inHardware(const std::function<void(frmHardware&)>& act);
  // The model in this row of the dialog's list, as a full unit.
  static void chooseModel(int row);
  // Ticks or clears "Simple Menu" in the dialog.
  static void setSimpleMenu(bool simple);

  static std::string shown(const char* box);  // the text on the widget

  std::string registerHex(const char* index) {
    return server.with([&](sim::Unit& there) { return there.registerHex(index); });
  }
  int bits(const char* index) { return std::stoi(registerHex(index), nullptr, 16); }
  void setRegister(const char* index, const char* hex) {
    server.with([&](sim::Unit& there) { there.setRegister(index, hex); });
  }
  std::size_t count(const char* prefix) {
    return server.with([&](sim::Unit& there) { return there.count(prefix); });
  }

  sim::Unit unit;
  sim::Server server;
};

}  // namespace torvane
