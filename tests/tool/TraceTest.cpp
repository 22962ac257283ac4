// SPDX-License-Identifier: MIT
// The tool says on the wire what the window says: whole writes and reads of random setups, byte for byte, on
// both channels, each to a unit of its own.
#include <optional>
#include <ostream>
#include <random>

#include "core/ConfigFile.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/SetupFiles.h"
#include "dialogs/frmHardware.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"
#include "tests/support/Trials.h"
#include "tool/Connection.h"
#include "tool/RandomSetups.h"
#include "tool/RunReport.h"
#include "tool/Setup.h"

namespace torvane {

namespace {

struct Way {
  const char* name;
  bool serial;
};

void PrintTo(const Way& way, std::ostream* out) { *out << way.name; }

class Trace : public Bench, public testing::WithParamInterface<Way> {
 protected:
  Trace() {
    host.toleratesBoxes = true;
    host.whenever("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
  }

  // Two units alike in their registers: one for the window, one for the tool.
  struct Pair {
    explicit Pair(const sim::UnitSetup& setup) : ofWindow(setup), ofTool(setup) {}
    sim::Unit ofWindow;
    sim::Unit ofTool;
    sim::Bridge windowBridge{ofWindow};
    sim::Bridge toolBridge{ofTool};
  };

  sim::UnitSetup anyUnit(bool rkw77) {
    sim::UnitSetup setup;
    setup.model = rkw77 ? sim::Model::larkspur : sim::Model::tmp;
    return address ? onBus(setup, *address) : setup;
  }

  void scatter(Pair& units) {
    for (const RegisterRow& row : registerRows()) {
      std::string digits = units.ofWindow.registerHex(row.reg);
      if (digits.empty() || std::string_view(row.reg) == "1F") continue;
      for (char& digit : digits) {
        if (between(random, 0, 4) == 0) digit = "0123456789"[between(random, 0, 9)];
      }
      units.ofWindow.setRegister(row.reg, digits);
      units.ofTool.setRegister(row.reg, digits);
    }
  }

  void lead(sim::Unit& which, sim::Bridge& bridge) {
    host.lines[1].unit = &which;
    host.bridges[{bridgeHost, bridgePort}] = &bridge;
  }

  void anySetup() {
    writeRandomSetup(random, file);
    address.reset();
    if (between(random, 0, 2) == 0) address = between(random, 0, 199);
    Hardware.BusMode = static_cast<std::int16_t>(address ? 1 : 0);
    Hardware.BusAddress = static_cast<std::int16_t>(address.value_or(1));
    Memo[rec::cboCommPort].value = 0;
    Memo[rec::optCommunicationMode].flag = asFlag(GetParam().serial);
    Memo[rec::optCommunicationMode + 1].flag = asFlag(!GetParam().serial);
    Memo[rec::txtTCPIPAddress].text = bridgeHost;
    Memo[rec::txtTCPPort].text = std::to_string(bridgePort);
    host.files[file] = configModelPart(1) + configSetupPart(1, 1);
  }

  tool::LineArguments line() const {
    tool::LineArguments line;
    line.name = GetParam().serial ? tool::LineName{.commPort = 1}
                                  : tool::LineName{.host = bridgeHost, .port = bridgePort};
    return line;
  }

  void forget() {
    unloadAllForms();
    resetSharedState();
  }

  void windowWrites() {
    start();
    openConfiguration(file);
    host.whenShown("frmWrite", [] {
      auto& chooser = form<frmWrite>();
      GetParam().serial ? chooser.cmdSerial.userClicked() : chooser.cmdNetwork.userClicked();
    });
    host.expect([] { return isLoaded<frmWrite>() && form<frmWrite>().reachable(); },
                [] { form<frmWrite>().cmdCancel.userClicked(); });
    form<frmBigFolder>().cmdWrite.userClicked();
    forget();
  }

  void windowReads() {
    start();
    openConfiguration(file);
    host.whenShown("frmRead", [] {
      auto& chooser = form<frmRead>();
      GetParam().serial ? chooser.cmdSerial.userClicked() : chooser.cmdNetwork.userClicked();
    });
    form<frmBigFolder>().cmdOpen.userClicked();
    forget();
  }

  static Lines heard(sim::Unit& which) {
    Lines commands = which.commands();
    which.takeLog();
    return commands;
  }

  static Payloads held(const sim::Unit& which) { return registersOf(which); }

  std::mt19937 random{77};
  const std::string file = "/a.cfg";
  std::optional<int> address;  // of the units on a bus
};

TEST_P(Trace, OfAWriteIsTheWindows) {
  for (int round = 0; round < trials(300) && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    forget();
    anySetup();
    Pair units(anyUnit(DeviceState.IsRkw77 != False));
    scatter(units);
    lead(units.ofWindow, units.windowBridge);
    windowWrites();
    lead(units.ofTool, units.toolBridge);
    tool::loadSetup(file);
    tool::Connection connection(line());
    connection.write(false, false);
    EXPECT_EQ(heard(units.ofTool), heard(units.ofWindow));
    EXPECT_EQ(held(units.ofTool), held(units.ofWindow));
    EXPECT_GT(connection.outcome().registers.size(), 20U);
  }
}

// Without a setup the tool has to find out the line behind a bridge, which the window knows from its setup.
TEST_P(Trace, OfAReadIsTheWindows) {
  for (int round = 0; round < trials(150) && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    forget();
    anySetup();
    const bool rkw77 = DeviceState.IsRkw77 != False;
    Pair units(anyUnit(rkw77));
    scatter(units);
    lead(units.ofWindow, units.windowBridge);
    windowReads();
    lead(units.ofTool, units.toolBridge);
    tool::beginRecords();
    tool::LineArguments way = line();
    way.address = address;
    if (rkw77 && !GetParam().serial) way.model = "Rkw77";
    tool::Connection connection(way);
    connection.read();
    EXPECT_EQ(heard(units.ofTool), heard(units.ofWindow));
    EXPECT_GT(connection.outcome().registers.size(), 20U);
  }
}

INSTANTIATE_TEST_SUITE_P(BothWays, Trace, testing::Values(Way{"serial", true}, Way{"bridge", false}));

}  // namespace

}  // namespace torvane
