// SPDX-License-Identifier: MIT
// What stands in front of a run over the network: the bridge, the family of the unit, and how a showing ends
// without them.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "dialogs/frmTimedMessage.h"
#include "tests/support/NetworkBench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr const char* noBridgeMessage = "Failed to connnect to Relayon";
constexpr const char* noUnitMessageOfTheBridge = "No device connected";

class NetworkAccess : public NetworkBench {
 protected:
  using NetworkBench::NetworkBench;

  void anyReplyIs(const std::string& first, const std::string& reply) {
    remote.faults.answers[first] = reply;
  }
  double took() const { return host.clock - start_; }
  void startClock() { start_ = host.clock; }

 private:
  double start_ = 0;
};

// ---- the decision

struct Decision {
  const char* name;
  sim::Model model;
  bool rkw77;  // the setup is for that line
  bool granted;
  const char* status;
  const char* box;  // null: none
};

std::ostream& operator<<(std::ostream& out, const Decision& decision) { return out << decision.name; }

constexpr const char* found = "Found device";  // what stands there when the decision says nothing

const Decision decisions[] = {
    {"Torvane", sim::Model::tmp, false, true, "Torvane controller found", nullptr},
    {"TorvaneInsteadOfLarkspur", sim::Model::tmp, true, false, "Torvane controller found",
     "An Torvane controller was found instead of device you specified. Please specify proper part number "
     "for connected device."},
    {"Larkspur", sim::Model::larkspur, true, true, "LARKSPUR controller found", nullptr},
    {"LarkspurInsteadOfTorvane", sim::Model::larkspur, false, false, "LARKSPUR controller found",
     "A LARKSPUR controller was found instead of device you specified. Please specify proper part number "
     "for connected device."},
    {"RateTotalizer", sim::Model::quillonRate, false, false,
     "Quillon rate/totalizer controller was found but can't operate with this program",
     "Quillon rate/totalizer. Device access has been cancelled."},
    {"RateTotalizerInsteadOfLarkspur", sim::Model::quillonRate, true, false,
     "Quillon rate/totalizer controller was found but can't operate with this program",
     "Quillon rate/totalizer. Device access has been cancelled."},
    {"Quillon", sim::Model::quillon, false, false, found,
     "Quillon device was found but can't operate with this program. Device access has been cancelled."},
    {"QuillonStrain", sim::Model::quillonStrain, false, false, found,
     "Quillon strain device was found but can't operate with this program. Device access has been "
     "cancelled."},
    {"CurrentOrVoltage", sim::Model::qlncac, false, false, "QLNCAC-current or voltage controller found",
     "Quillon controller was found but can't operate with this program. Device access has been cancelled."},
    {"Stranger", sim::Model::stranger, false, false, found,
     "Device not recognized. Device access has been cancelled."},
    {"OldMeterWithEcho", sim::Model::mpl, false, false, found, nullptr},
    {"OldMeterWithout", sim::Model::mpt, true, false, found, nullptr},
};

class NetworkDecision : public NetworkAccess, public testing::WithParamInterface<Decision> {
 protected:
  static sim::UnitSetup setup() {
    sim::UnitSetup setup;
    setup.model = GetParam().model;
    return setup;
  }
  NetworkDecision() : NetworkAccess(setup()) { DeviceState.IsRkw77 = asFlag(GetParam().rkw77); }

  Lines expectedBoxes() const { return GetParam().box == nullptr ? Lines{} : Lines{GetParam().box}; }
};

TEST_P(NetworkDecision, GrantsOrRefusesInTheseWords) {
  host.toleratesBoxes = true;
  window().readMode = True;
  narrative.lines.clear();
  EXPECT_EQ(window().NetworkCommunicationOK(false), GetParam().granted);
  EXPECT_EQ(status(), GetParam().status);
  EXPECT_EQ(boxTexts(), expectedBoxes());
  EXPECT_EQ(narrative.lines.front(), "Looking for device");
  EXPECT_EQ(narrative.lines[1], "Found device");
}

TEST_P(NetworkDecision, WaitsASecondAfterItInAnyCaseAndThreeMoreInFrontOfAWrite) {
  host.toleratesBoxes = true;
  for (const std::int16_t readMode : {True, False}) {
    window().readMode = readMode;
    remote.takeLog();
    startClock();
    window().NetworkCommunicationOK(false);
    EXPECT_GE(took(), readMode != False ? 1.0 : 4.0);
    EXPECT_LE(took(), readMode != False ? 1.1 : 4.1);
    ASSERT_FALSE(remote.log().empty());
    EXPECT_GE(host.clock - remote.log().back().time, 0.99);
  }
}

INSTANTIATE_TEST_SUITE_P(OfEachFamily, NetworkDecision, testing::ValuesIn(decisions),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(NetworkAccess, RefusesAnErrorAndAUselessAnswerWithoutAWord) {
  for (const char* reply : {"?43", "X", "X01456789012345", ""}) {
    anyReplyIs("X01", reply);
    EXPECT_FALSE(window().NetworkCommunicationOK(false)) << reply;
    EXPECT_EQ(status(), found);
  }
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NetworkAccess, FindsAUnitOnABus) {
  Hardware.BusMode = 4;
  Hardware.BusAddress = 17;
  sim::Unit there{onBus({}, 17)};
  sim::Bridge other{there};
  host.bridges[{bridgeHost, bridgePort}] = &other;
  EXPECT_TRUE(window().NetworkCommunicationOK(false));
  EXPECT_EQ(there.commands(), (Lines{"*11X01", "*11R01", "*11R24", "*11R25"}));
}

TEST_F(NetworkAccess, SendsACommandASecondTimeOnlyWhenTheFirstTimedOut) {
  bridge.faults.refusals.push_back({"", "*R01", 1});
  EXPECT_TRUE(window().NetworkCommunicationOK(false));
  EXPECT_EQ(bridge.lines(), (Lines{"*X01", "*R01", "*R01", "*R24", "*R25"}));
}

TEST_F(NetworkAccess, SendsNoCommandAThirdTime) {
  bridge.faults.silent = true;
  host.expectBox("Device not recognized");
  startClock();
  EXPECT_FALSE(window().NetworkCommunicationOK(false));
  EXPECT_EQ(bridge.lines(), (Lines{"*X01", "*X01", "*R01", "*R01"}));
  EXPECT_NEAR(took(), 3.0 + 4 * 3.0 + 1.0, 0.05);
}

TEST_F(NetworkAccess, DetectsAfreshEachTime) {
  EXPECT_TRUE(window().NetworkCommunicationOK(false));
  EXPECT_TRUE(window().NetworkCommunicationOK(false));
  EXPECT_EQ(remote.commands(), detectionTraffic(false));
}

// ---- the bridge

TEST_F(NetworkAccess, GivesUpABridgeThatIsNotThereAfterTwoSeconds) {
  host.bridges.clear();
  startClock();
  EXPECT_EQ(window().NetworkFullConnect(), -1);
  EXPECT_NEAR(took(), 2.0, 1e-6);
  EXPECT_EQ(status(), "Could not found web server...");
}

TEST_F(NetworkAccess, GivesUpABridgeThatRefusesAfterTheSameTwoSeconds) {
  bridge.faults.reach = sim::Reach::refuses;
  startClock();
  EXPECT_EQ(window().NetworkFullConnect(), -1);
  EXPECT_NEAR(took(), 2.0, 1e-6);
}

TEST_F(NetworkAccess, WaitsForASlowBridgeForTwoSeconds) {
  for (const auto& [after, reached] : {std::pair{1.9, true}, {2.1, false}}) {
    bridge.faults.reachAfter = after;
    window().readMode = True;
    Global.ReadConfirmed = 1;
    EXPECT_EQ(window().NetworkFullConnect() == 0, reached) << after;
    EXPECT_EQ(narrative.has("Found web server..."), true);
  }
}

TEST_F(NetworkAccess, ConnectsAgainWhenAConnectionIsLeft) {
  window().readMode = True;
  Global.ReadConfirmed = 1;
  EXPECT_EQ(window().NetworkFullConnect(), 0);
  Global.ReadConfirmed = 1;
  EXPECT_EQ(window().NetworkFullConnect(), 0);
  EXPECT_EQ(bridge.connections(), 2U);
}

TEST_F(NetworkAccess, RestsHalfASecondAfterTheConnection) {
  window().readMode = True;
  Global.ReadConfirmed = 1;
  window().NetworkFullConnect();
  ASSERT_FALSE(bridge.log().empty());
  const auto first = std::ranges::find(bridge.log(), '>', &sim::LogEntry::direction);
  ASSERT_NE(first, bridge.log().end());
  EXPECT_NEAR(first->time - bridge.log().front().time, 0.5, 0.01);
}

TEST_F(NetworkAccess, TellsItsRoadToTheRun) {
  host.expectBox("endless loop");
  window().readMode = True;
  narrative.lines.clear();
  EXPECT_EQ(window().NetworkFullConnect(), 0);
  EXPECT_EQ(narrative.lines, (Lines{"Looking for the web server...", "Found web server...",
                                    "Looking for device", "Found device", "Torvane controller found",
                                    "Looking for device", "Found device", "Torvane controller found"}));
  EXPECT_EQ(commandsAfterDetection(), Lines{});
}

TEST_F(NetworkAccess, ShowsTheCancelButtonAsSuchAgain) {
  window().cmdCancel.setCaption("Close");
  host.bridges.clear();
  window().NetworkFullConnect();
  EXPECT_EQ(window().cmdCancel.caption(), "Cancel");
}

class NetworkPort : public NetworkAccess, public testing::WithParamInterface<const char*> {};

TEST_P(NetworkPort, ThatIsNoneLeadsNowhere) {
  Memo[rec::txtTCPPort].text = GetParam();
  EXPECT_EQ(window().NetworkFullConnect(), -1);
  EXPECT_EQ(bridge.connections(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Texts, NetworkPort, testing::Values("", "-1", "65536", "99999999999", "web"),
                         [](const auto& test) { return "Text" + std::to_string(test.index); });

// ---- how a showing ends

TEST_F(NetworkAccess, EndsAShowingWithoutABridgeWithItsBoxAndTheWordsOfARun) {
  host.bridges.clear();
  host.expectBox(noBridgeMessage);
  runWrite();
  EXPECT_EQ(boxTexts(), Lines{noBridgeMessage});
  EXPECT_EQ(host.boxes[0].icon, Icon::none);
  EXPECT_EQ(status(), "Could not found web server... and Configuration Sent\r");
  EXPECT_EQ(window().lblPercent.caption(), "100%");
  EXPECT_EQ(window().cmdCancel.caption(), "Close");
  EXPECT_FALSE(window().visible());
  EXPECT_FALSE(window().Animation1.visible());
}

TEST_F(NetworkAccess, KeepsTheWindowOfAReadWithoutABridgeLoadedForTheReadIsStillDue) {
  host.bridges.clear();
  host.expectBox(noBridgeMessage);
  runRead();
  EXPECT_TRUE(isLoaded<frmSerial>());
  EXPECT_EQ(Global.ReadConfirmed, 1);
  EXPECT_EQ(status(), "Could not found web server... and Configuration Read\r");
}

TEST_F(NetworkAccess, EndsAShowingWithoutAUnitWithItsBox) {
  anyReplyIs("X01", "?43");
  host.expectBox(noUnitMessageOfTheBridge);
  runWrite();
  EXPECT_EQ(status(), "Found device and Configuration Sent\r");
  EXPECT_EQ(remote.count("W") + remote.count("R07"), 0U);
}

TEST_F(NetworkAccess, LeavesTheWorkingImageAloneWithoutAUnit) {
  form<frmBigFolder>().txtSp1.setText("123.4");
  anyReplyIs("X01", "?43");
  host.expectBox(noUnitMessageOfTheBridge);
  runWrite();
  EXPECT_EQ(Memo[rec::txtSp1].text, "000.0");
}

TEST_F(NetworkAccess, SendsNoResetWithoutAUnit) {
  Global.ResetAfterWrite = True;
  anyReplyIs("X01", "?43");
  host.expectBox(noUnitMessageOfTheBridge);
  runWrite();
  EXPECT_EQ(remote.count("Z02"), 0U);
  EXPECT_FALSE(narrative.has("97%"));
}

TEST_F(NetworkAccess, TellsAUnitThatIsGoneAtTheSecondLookInANoticeAndEndsLikeARun) {
  Global.ResetAfterWrite = True;
  host.expect([this] { return status() == "Torvane controller found"; },
              [this] { anyReplyIs("X01", "?43"); });
  std::string notice;
  host.whenShown("frmTimedMessage", [&notice] {
    notice = form<frmTimedMessage>().Label1.caption();
    form<frmTimedMessage>().OKButton.userClicked();
  });
  runWrite();
  EXPECT_EQ(notice, "Unable to establish network connection");
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(remote.count("W") + remote.count("R07"), 0U);
  EXPECT_EQ(remote.commands().back(), "*Z02") << "the result is that of a run that took place";
  EXPECT_FALSE(isLoaded<frmTimedMessage>());
}

// The next command has to reach the unit where it still is.
TEST_F(NetworkAccess, LeavesTheAddressWhereNoneWasSent) {
  const std::int16_t before = Hardware.BusAddress;
  chooseOption(rec::optRS232, 2, 1);
  Memo[rec::txtRS485Address].text = "0042";
  host.bridges.clear();
  host.expectBox(noBridgeMessage);
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, before);
}

TEST_F(NetworkAccess, UnloadsTheWindowAtASecondActivationAfterARead) {
  window().readMode = True;
  Global.ReadConfirmed = 0;
  window().showModal();
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_EQ(bridge.connections(), 0U);
}

TEST_F(NetworkAccess, ClosesTheConnectionWithTheWindow) {
  runWrite();
  const auto keeps = window().shared_from_this();
  torvane::unload<frmSerial>();
  EXPECT_EQ(static_cast<frmSerial&>(*keeps).winSock1->state(), SocketState::closed);
}

// ---- what the window says that it talks to

TEST_F(NetworkAccess, ShowsHostPortAndAddress) {
  Hardware.BusMode = 3;
  Hardware.BusAddress = 17;
  host.bridges.clear();
  host.expectBox(noBridgeMessage);
  runWrite();
  EXPECT_EQ(target(), "192.0.2.254, port 1000, address 17");
  EXPECT_EQ(window().lblTarget.toolTip(), "");
}

TEST_F(NetworkAccess, ShowsThePortOfTheSerialLineOnlyOnTheSerialWay) {
  chooseWay(true);
  runWrite();
  EXPECT_EQ(target(), "COM 1, 9600,o,7,1");
  EXPECT_EQ(window().lblTarget.toolTip(), "COM 1 here");
  EXPECT_EQ(bridge.connections(), 0U);
}

// ---- from the choosers

TEST_F(NetworkAccess, IsReachedFromTheWriteChooser) {
  Global.DeviceSpecified = True;
  Memo[rec::txtSp1].text = "123.4";
  showMemo();
  host.whenShown("frmWrite", [] {
    EXPECT_TRUE(form<frmWrite>().cmdNetwork.enabled());
    EXPECT_FALSE(form<frmWrite>().cmdSerial.enabled());
    form<frmWrite>().cmdNetwork.userClicked();
  });
  host.whenShown("frmWrite", [] { form<frmWrite>().cmdCancel.userClicked(); });
  form<frmBigFolder>().cmdWrite.userClicked();
  EXPECT_EQ(remote.registerHex("01"), "2004D2");
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_FALSE(isLoaded<frmWrite>());
}

TEST_F(NetworkAccess, IsReachedFromTheReadChooser) {
  Global.DeviceSpecified = True;
  remote.setRegister("01", "2004D2");
  host.whenShown("frmRead", [] { form<frmRead>().cmdNetwork.userClicked(); });
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_EQ(form<frmBigFolder>().txtSp1.text(), "123.4");
  EXPECT_FALSE(isLoaded<frmSerial>());
  EXPECT_FALSE(isLoaded<frmRead>());
  EXPECT_EQ(Global.ReadConfirmed, 0);
}

TEST_F(NetworkAccess, AsksForAModelFirst) {
  Global.DeviceSpecified = False;
  host.expectBox("Warning: please specify your device");
  host.whenShown("frmRead", [] { form<frmRead>().cmdNetwork.userClicked(); });
  host.whenShown("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  host.whenShown("frmRead", [] { form<frmRead>().OKButton.userClicked(); });
  form<frmBigFolder>().cmdOpen.userClicked();
  EXPECT_EQ(bridge.connections(), 0U);
}

}  // namespace

}  // namespace torvane
