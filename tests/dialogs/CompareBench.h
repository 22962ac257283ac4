// SPDX-License-Identifier: MIT
// A user in front of the choosers' buttons for a unit: compare, keep, put back, record.
#pragma once

#include <functional>
#include <random>
#include <set>
#include <string>
#include <utility>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmCompare.h"
#include "dialogs/frmRecord.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

class CompareBench : public NetworkBench {
 protected:
  explicit CompareBench(sim::UnitSetup setup = {}) : NetworkBench(std::move(setup)) {
    host.toleratesBoxes = true;
    chooseWay(true);
    unload<frmSerial>();
    Global.DeviceSpecified = True;
  }

  // The user presses a button of "Write to...", acts in the window that comes, and closes the chooser.
  using Button = CommandButton frmWrite::*;
  template <class Window>
  void pressAndThen(Button button, const std::function<void(Window&)>& act, const std::string& name) {
    host.whenShown("frmWrite", [button] { (form<frmWrite>().*button).userClicked(); });
    host.whenShown(name, [act] { act(form<Window>()); });
    closeWriteChooser();
    form<frmBigFolder>().cmdWrite.userClicked();
    EXPECT_TRUE(host.scriptDone());
  }
  void compareAndThen(const std::function<void(frmCompare&)>& act) {
    pressAndThen<frmCompare>(&frmWrite::cmdCompare, act, "frmCompare");
  }
  void putBackAndThen(const std::function<void(frmCompare&)>& act) {
    host.chosenFiles = {"/kept.unit"};
    pressAndThen<frmCompare>(&frmWrite::cmdPutBack, act, "frmCompare");
  }
  void recordAndThen(const std::function<void(frmRecord&)>& act) {
    pressAndThen<frmRecord>(&frmWrite::cmdRecord, act, "frmRecord");
  }
  // The same where no window comes.
  void press(Button button) {
    host.whenShown("frmWrite", [button] { (form<frmWrite>().*button).userClicked(); });
    closeWriteChooser();
    form<frmBigFolder>().cmdWrite.userClicked();
    EXPECT_TRUE(host.scriptDone());
  }
  void putBack() {
    putBackAndThen([](frmCompare& window) { window.cmdWrite.userClicked(); });
  }
  void closeWriteChooser() {
    host.expect([] { return isLoaded<frmWrite>() && form<frmWrite>().reachable(); },
                [] { form<frmWrite>().cmdCancel.userClicked(); });
  }
  void closeReadChooser() {
    host.expect([] { return isLoaded<frmRead>() && form<frmRead>().reachable(); },
                [] { form<frmRead>().OKButton.userClicked(); });
  }

  // "Keep a copy..." of "Read from..."; gives the file.
  std::string keepCopy() {
    host.chosenFiles = {"/kept.unit"};
    host.whenShown("frmRead", [] { form<frmRead>().cmdKeep.userClicked(); });
    closeReadChooser();
    form<frmBigFolder>().cmdOpen.userClicked();
    EXPECT_TRUE(host.scriptDone());
    return host.files["/kept.unit"];
  }

  // As any unit might be, but for what decides how it is spoken to.
  void scramble(sim::Unit& which, int likely = 4) {
    for (const std::string& reg : which.registerNames()) {
      if (reg == "1F" || reg == "21") continue;
      std::string digits = which.registerHex(reg);
      for (char& digit : digits) {
        if (between(random, 0, likely) == 0) digit = "0123456789ABCDEF"[between(random, 0, 15)];
      }
      which.setRegister(reg, digits);
    }
  }
  static std::set<std::string> writtenTo(const sim::Unit& which) {
    std::set<std::string> regs;
    for (const sim::LogEntry& entry : which.log()) {
      if (entry.direction == '>' && entry.body.starts_with('W')) regs.insert(entry.body.substr(1, 2));
    }
    return regs;
  }
  static std::string rowsOf(const Table& table) {
    std::string text;
    for (const std::string& item : table.items()) text += item + "\n";
    return text;
  }

  std::mt19937 random{7};
};

}  // namespace torvane
