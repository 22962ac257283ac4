// SPDX-License-Identifier: MIT
// The search of the serial ports: order, line settings, Cancel, verdicts, and what it leaves behind.
#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/WizardBench.h"

namespace torvane {

namespace {

constexpr const char* nothingFound =
    "     Connection Wizard has finished "
    "scanning the COM ports, but did not find any controller."
    "  Please verify that the communication "
    "parameters on the controller are set to: "
    "\r     Baud: 9600,"
    "  Parity: odd, "
    "  Data bit: 7,"
    " Stop bit: 1, "
    "\r     Echo: on,"
    "\r     Mode: command, "
    "\r     Line feed:  no"
    "\r     Standard:  232C"
    "\rand try again."
    "\r"
    "\rManual configuration is accomplished "
    "by mean of the COMM tab from the main screen."
    "\rClick 'Cancel' to make communication settings changes.";

class PortSearch : public WizardBench {
 protected:
  PortSearch() {
    open();
    Global.AutoDetect = True;
    Global.DetectionDone = 7;
    status.cmdCancel.setCaption("Close");
  }

  void choosePort(int port) { Memo[rec::cboCommPort].value = static_cast<std::int16_t>(port - 1); }
  void search() {
    const double start = host.clock;
    status.SerialTestConnect();
    seconds = host.clock - start;
  }
  void cancelDuring(int port) {
    host.expect([this, port] { return status.MSComm1->commPort == port && status.MSComm1->isOpen(); },
                [] { Global.CancelFlag = True; });
  }
  bool found() { return wizard().cmdNext.caption() == "Finish"; }

  frmSerial& status = form<frmSerial>();
  double seconds = 0;
};

TEST_F(PortSearch, FindsTheUnitOnTheChosenPortWithoutASearch) {
  search();
  EXPECT_EQ(portsAsked(), std::vector{1});
  EXPECT_EQ(says(),
            "Meter detected.\r\rTorvane Temperature Meter\rConnection Wizard detected your controller on "
            "COM1.\r\rTo finalize the configuration, click Finish.");
  EXPECT_TRUE(found());
  EXPECT_EQ(Global.DetectionDone, 1);
  EXPECT_EQ(status.lblPercent.caption(), "100%");
  EXPECT_EQ(status.cmdCancel.caption(), "Cancel");
  EXPECT_EQ(editor.cboCommPort.listIndex(), 0);
}

TEST_F(PortSearch, TriesTheChosenPortThenTheOthersFromOneToTen) {
  silenceAll();
  choosePort(4);
  search();
  EXPECT_EQ(portsAsked(), (std::vector{4, 1, 2, 3, 5, 6, 7, 8, 9, 10}));
  EXPECT_EQ(unitOn(4).count("R02"), 1U);
}

TEST_F(PortSearch, EndsWhereAUnitIs) {
  moveUnitTo(3);
  search();
  EXPECT_EQ(portsAsked(), (std::vector{1, 2, 3}));
  EXPECT_NE(says().find("controller on COM3."), std::string::npos);
  EXPECT_EQ(editor.cboCommPort.listIndex(), 2);
  EXPECT_EQ(editor.MSComm1->commPort, 3);
}

// A quarter for the chosen port, twelve for each other, the one left out too.
TEST_F(PortSearch, MovesTheBarByAQuarterAndThenByTwelveForEachPort) {
  silenceAll();
  choosePort(4);
  std::vector<int> values;
  wizard().prgProgress.onRedraw = [&] {
    const int value = wizard().prgProgress.value();
    const bool ofProbe = value == 14 || value == 28 || value == 42;
    if (!ofProbe) values.push_back(value);
  };
  search();
  EXPECT_EQ(values, (std::vector{0, 25, 37, 49, 73, 85, 97, 100, 100, 100}));
}

TEST_F(PortSearch, ChosenPortBeyondTenComesFirstAndThenAllTen) {
  silenceAll();
  choosePort(12);
  sim::Unit twelfth{{}};
  twelfth.faults.silentAfter = 0;
  host.lines[12].unit = &twelfth;
  search();
  EXPECT_EQ(twelfth.count("R02"), 1U);
  EXPECT_EQ(portsAsked().size(), 10U);
  EXPECT_LT(twelfth.log().front().time, unitOn(1).log().front().time);
}

TEST_F(PortSearch, WithoutAChosenPortTriesNoneAndThenAllTen) {
  moveUnitTo(2);
  choosePort(0);
  search();
  EXPECT_EQ(portsAsked(), (std::vector{1, 2}));
  EXPECT_TRUE(found());
}

TEST_F(PortSearch, GoesOnAfterAPortThatDoesNotOpen) {
  moveUnitTo(3);
  host.lines[1].openFault = "Permission denied";
  host.lines[2].openFault = "Device or resource busy";
  search();
  EXPECT_TRUE(found());
  EXPECT_EQ(portsAsked(), std::vector{3});
  EXPECT_EQ(host.portOpenings, 2);  // the search's own and the main window's look at the port
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(PortSearch, GoesOnAfterAnAdapterThatIsPulledOut) {
  for (int command = 1; command <= 6; ++command) {
    sim::Unit pulled{{}};
    pulled.faults.hangupAt = command;
    host.lines[1].unit = &pulled;
    host.lines[1].underway.clear();
    moveUnitTo(2);
    wizard().cmdNext.setCaption("Next >");
    search();
    EXPECT_TRUE(found()) << command;
    EXPECT_FALSE(status.MSComm1->isOpen());
    host.lines[1].unit = &unit;
  }
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(PortSearch, IsOverAtOnceWhereThereAreNoPorts) {
  for (int port = 1; port <= 10; ++port) host.lines[port].openFault = "No such file or directory";
  search();
  EXPECT_TRUE(says().starts_with(nothingFound));
  EXPECT_NE(says().find("no controller was asked"), std::string::npos)
      << "a port that is shut is not its fault";
  EXPECT_TRUE(says().ends_with("COM 1 here")) << "the cause, as on the tab Comm: " << says();
  EXPECT_LT(seconds, 0.1);
}

TEST_F(PortSearch, TakesAboutSevenSecondsForEachSilentPort) {
  silenceAll();
  search();
  EXPECT_GT(seconds, 10 * 5.0);
  EXPECT_LT(seconds, 10 * 9.0);
}

TEST_F(PortSearch, SpeaksWithTheFactorysLineSettingsAndLeavesThemBehind) {
  editor.cboBaud.setListIndex(6);
  editor.cboStop.setListIndex(1);
  editor.cboParity.setListIndex(2);
  editor.cboData.setListIndex(1);
  status.MSComm1->settings = "19200,e,8,2";
  silenceAll();
  search();
  EXPECT_EQ(status.MSComm1->settings, "9600,o,7,1");
  EXPECT_EQ(editor.MSComm1->settings, "9600,o,7,1");
  EXPECT_EQ(editor.cboBaud.text(), "9600");
  EXPECT_EQ(editor.cboStop.text(), "1-bit");
  EXPECT_EQ(editor.cboParity.text(), "odd");
  EXPECT_EQ(editor.cboData.text(), "7-bit");
  EXPECT_EQ(Memo[rec::cboBaud].value, 5);
}

TEST_F(PortSearch, TellsWhatToLookAtWhenNothingWasFound) {
  silenceAll();
  wizard().lblCaption.setCaption("what stood there");
  search();
  EXPECT_EQ(says(), nothingFound);
  EXPECT_FALSE(found());
  EXPECT_EQ(Global.DetectionDone, 0);
  EXPECT_EQ(status.lblPercent.caption(), "100%");
  EXPECT_EQ(editor.cboCommPort.listIndex(), 0);
  EXPECT_EQ(DeviceState.DeviceClass, -1);
}

TEST_F(PortSearch, OfAReadRunLooksAtOnePortAlone) {
  moveUnitTo(2);
  status.readMode = True;
  search();
  EXPECT_EQ(portsAsked(), std::vector{1});
  EXPECT_EQ(says(), nothingFound);
}

TEST_F(PortSearch, TakesOverAPortThatTheListDoesNotHold) {
  moveUnitTo(7);
  search();
  EXPECT_TRUE(found());
  EXPECT_NE(says().find("controller on COM7."), std::string::npos);
  EXPECT_EQ(Global.DetectionDone, 1);
  EXPECT_EQ(editor.cboCommPort.listIndex(), -1);
  EXPECT_EQ(editor.cboCommPort.text(), "COM 7");
  EXPECT_EQ(editor.MSComm1->commPort, 7);
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is available");
}

TEST_F(PortSearch, ForgetsAtEveryPortWhatAnEarlierOneHasTold) {
  unit.faults.answers = {{"U04", "U04"}, {"R11", "R11123456789AB"}};
  unit.faults.silentAfter = 6;
  moveUnitTo(2);
  unit.faults.silentAfter = sim::unlimited;
  search();
  EXPECT_EQ(portsAsked(), (std::vector{1, 2}));
  EXPECT_EQ(DeviceState.IsRkw77, False);
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

TEST_F(PortSearch, MovesTheWizardsBarWithTheProbeAndTheSearch) {
  moveUnitTo(3);
  std::vector<int> values;
  wizard().prgProgress.onRedraw = [&] { values.push_back(wizard().prgProgress.value()); };
  search();
  EXPECT_EQ(values, (std::vector{14, 28, 42, 0,        // COM 1, the chosen one
                                 14, 28, 42, 25 + 12,  // COM 2: the chosen one counts as well
                                 14, 28, 42, 70, 98, 25 + 24}));
}

TEST_F(PortSearch, NamesThePortThatIsAsked) {
  moveUnitTo(2);
  std::vector<std::string> words;
  wizard().lblDetection.onRedraw = [&] { words.push_back(wizard().lblDetection.caption()); };
  search();
  EXPECT_EQ(words, (std::vector<std::string>{"Looking for a controller on COM 1...",
                                             "Looking for a controller on COM 2..."}));
}

// Cancel.

TEST_F(PortSearch, AsksTheUserWhoCancelsAndEndsWithYes) {
  silenceAll();
  cancelDuring(2);
  host.expectBox(detectionQuestion, Answer::yes);
  search();
  EXPECT_EQ(portsAsked(), (std::vector{1, 2}));
  EXPECT_EQ(Global.CancelFlag, True);
  EXPECT_EQ(says(), nothingFound);
  EXPECT_EQ(host.boxes.front().text, detectionQuestion);
  EXPECT_EQ(host.boxes.front().buttons, Buttons::noYes);
}

TEST_F(PortSearch, GoesOnFromWhereItWasWithNo) {
  silenceAll();
  cancelDuring(2);
  host.expectBox(detectionQuestion, Answer::no);
  search();
  EXPECT_EQ(portsAsked().size(), 10U);
  EXPECT_EQ(Global.CancelFlag, False);
  EXPECT_EQ(unitOn(3).count("R02"), 1U);
}

TEST_F(PortSearch, AsksAgainAfterTheNextPortWhenTheFirstWasCancelled) {
  silenceAll();
  cancelDuring(1);
  host.expectBox(detectionQuestion, Answer::yes);
  host.expectBox(detectionQuestion, Answer::yes);
  search();
  EXPECT_EQ(portsAsked(), (std::vector{1, 2}));
  EXPECT_EQ(Global.CancelFlag, True);
}

TEST_F(PortSearch, LetsTheUserThinkAgainAfterTheNextPort) {
  silenceAll();
  cancelDuring(1);
  host.expectBox(detectionQuestion, Answer::yes);
  host.expectBox(detectionQuestion, Answer::no);
  search();
  EXPECT_EQ(portsAsked().size(), 10U);
  EXPECT_EQ(Global.CancelFlag, False);
}

TEST_F(PortSearch, AsksNothingWhereAUnitWasFoundAllTheSame) {
  cancelDuring(1);
  search();
  EXPECT_TRUE(found());
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(Global.CancelFlag, True);
}

TEST_F(PortSearch, AsksWithTheAddressOfABus) {
  Hardware.BusMode = 1;
  Hardware.BusAddress = 17;
  silenceAll();
  search();
  EXPECT_EQ(unit.commands().front(), "*11R02");
}

struct KindCase {
  sim::Model model;
  const char* words;
};

TEST_F(PortSearch, TellsEachKindOfUnitInItsWords) {
  const KindCase cases[] = {
      {sim::Model::larkspur, "\rLARKSPUR Meter"},
      {sim::Model::tmp, "\rTorvane Temperature Meter"},
      {sim::Model::prc, "\rTorvane Strain Meter"},
      {sim::Model::str, "\rTorvane Strain Meter"},
      {sim::Model::gr2, "\rTorvane Gr2 Controller"},
      {sim::Model::rht, "\rTorvane Hyt Meter"},
      {sim::Model::other, ""},
  };
  for (const auto& [model, words] : cases) {
    sim::UnitSetup setup;
    setup.model = model;
    sim::Unit each(setup);
    host.lines[1].unit = &each;
    host.lines[1].underway.clear();
    search();
    EXPECT_EQ(says(), "Meter detected.\r" + std::string(words) +
                          "\rConnection Wizard detected your controller on COM1.\r\rTo finalize the "
                          "configuration, click Finish.");
    host.lines[1].unit = &unit;
  }
}

TEST_F(PortSearch, AdvisesAboutTheWiringWhereALineEchoes) {
  unit.faults.loopback = 1;
  std::string advice;
  wizard().lblCaption.onRedraw = [&] {
    if (advice.empty()) advice = says();
  };
  search();
  EXPECT_EQ(advice,
            "CommPort is either connected to a modem Or there exists a wiring problem.\rSelect 'Cancel' "
            "button then make any necessary comm port selections or wiring changes.");
}

}  // namespace

}  // namespace torvane
