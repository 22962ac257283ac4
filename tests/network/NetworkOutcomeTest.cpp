// SPDX-License-Identifier: MIT
// What a run over the network leaves behind of the unit that it met, and what it shows on the way.
#include <set>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmTimedMessage.h"
#include "tests/support/NetworkBench.h"
#include "wizard/frmWizard.h"

namespace torvane {

namespace {

struct Meeting {
  const char* name;
  sim::Model model;
  bool rkw77;  // the setup is for that line
  const char* unit;
  RunEnd end;
};

std::ostream& operator<<(std::ostream& out, const Meeting& meeting) { return out << meeting.name; }

const Meeting meetings[] = {
    {"Torvane", sim::Model::tmp, false, "Torvane", RunEnd::finished},
    {"TorvaneInsteadOfLarkspur", sim::Model::tmp, true, "Torvane", RunEnd::otherLine},
    {"Larkspur", sim::Model::larkspur, true, "Larkspur", RunEnd::finished},
    {"LarkspurInsteadOfTorvane", sim::Model::larkspur, false, "Larkspur", RunEnd::otherLine},
    {"RateTotalizer", sim::Model::quillonRate, false, "", RunEnd::noUnit},
    {"Stranger", sim::Model::stranger, true, "", RunEnd::noUnit},
};

class NetworkMeeting : public NetworkBench, public testing::WithParamInterface<Meeting> {
 protected:
  static sim::UnitSetup setup() {
    sim::UnitSetup setup;
    setup.model = GetParam().model;
    return setup;
  }
  NetworkMeeting() : NetworkBench(setup()) {
    DeviceState.IsRkw77 = asFlag(GetParam().rkw77);
    host.toleratesBoxes = true;
    window().readMode = True;
    Global.ReadConfirmed = 1;
  }
};

TEST_P(NetworkMeeting, StandsInTheOutcomeOfTheRun) {
  const bool granted = GetParam().end == RunEnd::finished;
  EXPECT_EQ(window().NetworkFullConnect(), granted ? 0 : -2);
  EXPECT_EQ(window().run.outcome.unit, GetParam().unit);
  EXPECT_EQ(window().run.outcome.end, GetParam().end);
}

INSTANTIATE_TEST_SUITE_P(OfEachSort, NetworkMeeting, testing::ValuesIn(meetings),
                         [](const auto& test) { return std::string(test.param.name); });

class NetworkOutcome : public NetworkBench {
 protected:
  NetworkOutcome() {
    window().readMode = True;
    Global.ReadConfirmed = 1;
  }
};

TEST_F(NetworkOutcome, OfAUnitThatIsGoneAtTheSecondLookIsThatThereIsNone) {
  host.expect([this] { return status() == "Torvane controller found"; },
              [this] { remote.faults.answers["X01"] = "?43"; });
  host.whenever("frmTimedMessage", [] { unload<frmTimedMessage>(); });
  EXPECT_EQ(window().NetworkFullConnect(), 0);
  EXPECT_EQ(window().run.outcome.end, RunEnd::noUnit);
  EXPECT_EQ(Global.ReadConfirmed, 1) << "the read is still due";
}

TEST_F(NetworkOutcome, WithoutABridgeIsThatThereIsNone) {
  host.bridges.clear();
  EXPECT_EQ(window().NetworkFullConnect(), -1);
  EXPECT_EQ(window().run.outcome.end, RunEnd::noBridge);
}

// What stood in the window before is gone with the first words, and each step takes the place of the last.
TEST_F(NetworkOutcome, IsToldAfreshByEachRun) {
  for (const bool there : {true, false}) {
    if (!there) host.bridges.clear();
    window().lblStatus.setCaption("from a run before. ");
    narrative.lines.clear();
    Global.ReadConfirmed = 1;
    window().NetworkFullConnect();
    ASSERT_GT(narrative.lines.size(), 1U);
    EXPECT_EQ(narrative.lines[0], "Looking for the web server...");
    EXPECT_EQ(narrative.lines[1], there ? "Found web server..." : "Could not found web server...");
  }
}

TEST_F(NetworkOutcome, OfAResetIsToldInOneText) {
  ASSERT_EQ(window().NetworkFullConnect(), 0);
  for (const bool done : {true, false}) {
    if (!done) remote.faults.answers["Z02"] = "?43";
    window().lblStatus.setCaption("from a run before. ");
    narrative.lines.clear();
    EXPECT_EQ(window().NetworkCommunicationOK(true), done);
    const std::string got = std::string("Test access to the unitGot ") + (done ? "Z02" : "?43") + "\r";
    EXPECT_EQ(narrative.lines,
              (Lines{"Test access to the unit", got, got + (done ? "Request done" : "Request failed")}));
  }
}

TEST_F(NetworkOutcome, OfABridgeThatIsLostSaysSoOfTheRegistersBehindIt) {
  host.toleratesBoxes = true;
  bridge.faults.dropAt = 20;
  bridge.faults.afterDrop = sim::Reach::never;
  runRead();
  std::set<std::string> reasons;
  for (const RegisterOutcome& each : form<frmBigFolder>().lastRun.outcome.registers)
    reasons.insert(each.reason);
  EXPECT_TRUE(reasons.contains("no connection to the bridge")) << testing::PrintToString(reasons);
}

TEST_F(NetworkOutcome, OfARefusalSaysHowItWasRefused) {
  remote.faults.answers["R07"] = "?43";
  runRead();
  std::set<std::string> reasons;
  for (const RegisterOutcome& each : form<frmBigFolder>().lastRun.outcome.registers)
    reasons.insert(each.reason);
  EXPECT_EQ(reasons, (std::set<std::string>{"", "refused \"?43\""}));
}

TEST_F(NetworkOutcome, OfTheWizardsTestBeginsWithItsTarget) {
  std::string looks;
  auto& wizard = form<frmWizard>();
  wizard.lblDetection.onRedraw = [&] { looks = wizard.lblDetection.caption(); };
  window().NetworkTestConnect();
  EXPECT_EQ(looks, "Testing the connection to 192.0.2.254, port 1000...");
}

}  // namespace

}  // namespace torvane
