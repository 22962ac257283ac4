// SPDX-License-Identifier: MIT
// Runs over a bridge or to a unit that something is wrong with: how they end, and what is kept.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/NetworkBench.h"

namespace torvane {

namespace {

constexpr int commandsOfAWrite = 8 + 33 + 33 + 31;  // detection, reads, writes, reads after the writes
constexpr int commandsOfARead = 8 + 33;

std::vector<MemoField> records() {
  std::vector<MemoField> all;
  for (int record = 0; record < MemoArray::count; ++record) all.push_back(Memo[record]);
  return all;
}

class FaultyNetwork : public NetworkBench {
 protected:
  FaultyNetwork() {
    chooseSetup();
    host.toleratesBoxes = true;
  }

  // Number of the command at which the bridge dies, and what becomes of those who connect again.
  void dieAt(int command, sim::Reach afterwards, std::size_t after, bool abrupt) {
    bridge.faults = {};
    bridge.faults.dropAt = command;
    bridge.faults.dropAfter = after;
    bridge.faults.afterDrop = afterwards;
    bridge.faults.abrupt = abrupt;
  }
  // Of a window that is new or left from the run before.
  void showing(bool read) {
    auto& run = form<frmSerial>();
    run.readMode = asFlag(read);
    Global.ReadConfirmed = read ? 1 : 0;
    Hardware.BusAddress = 1;
    run.showModal();
    EXPECT_FALSE(isLoaded<frmSerial>() && form<frmSerial>().visible());
    Global.ReadConfirmed = 0;
  }
  void holdSetup() {
    for (const auto& [reg, value] : payloadsOfSetup(kind::fullController)) {
      if (reg != "1F" && reg != "21") remote.setRegister(reg, value);
    }
  }
};

struct Death {
  const char* name;
  sim::Reach afterwards;
  std::size_t after;
  bool abrupt;
  double readLimit;  // seconds that no read over it takes
};

std::ostream& operator<<(std::ostream& out, const Death& death) { return out << death.name; }

// Four failed steps of at most two registers, five tries, six seconds each.
constexpr double fourSteps = 20 + 4 * 2 * 5 * 6;

const Death deaths[] = {
    {"AndComesBack", sim::Reach::accepts, 0, false, 60},
    {"WithinAReplyAndComesBack", sim::Reach::accepts, 3, false, 60},
    {"WithAResetAndIsThere", sim::Reach::accepts, 0, true, fourSteps},
    {"AndRefuses", sim::Reach::refuses, 0, false, fourSteps},
    {"WithinAReplyAndRefuses", sim::Reach::refuses, 3, false, fourSteps},
    {"AndIsGone", sim::Reach::never, 0, false, fourSteps},
};

class BridgeThatDies : public FaultyNetwork, public testing::WithParamInterface<Death> {
 protected:
  void dieAtCommand(int command) {
    dieAt(command, GetParam().afterwards, GetParam().after, GetParam().abrupt);
  }
};

TEST_P(BridgeThatDies, EndsAReadInBoundedTimeAtEachCommand) {
  holdSetup();
  for (int command = 1; command <= commandsOfARead; ++command) {
    SCOPED_TRACE(command);
    dieAtCommand(command);
    const double start = host.clock;
    showing(true);
    EXPECT_LE(host.clock - start, GetParam().readLimit);
  }
}

TEST_P(BridgeThatDies, EndsAWriteInBoundedTimeAtEachCommand) {
  for (int command = 1; command <= commandsOfAWrite; command += 3) {
    SCOPED_TRACE(command);
    for (const std::string& reg : remote.registerNames()) {
      remote.setRegister(reg, std::string(remote.registerHex(reg).size(), '0'));
    }
    dieAtCommand(command);
    const double start = host.clock;
    showing(false);
    // 33 registers, 4 tries or 5 times two commands, six seconds each.
    EXPECT_LE(host.clock - start, 20 + 33 * 10 * 6);
  }
}

INSTANTIATE_TEST_SUITE_P(InEachWay, BridgeThatDies, testing::ValuesIn(deaths),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(FaultyNetwork, LosesNothingOfAReadWhenTheBridgeComesBack) {
  holdSetup();
  const auto good = [this] {
    showing(true);
    return records();
  };
  const auto whole = good();
  for (int command = 9; command <= commandsOfARead; ++command) {
    dieAt(command, sim::Reach::accepts, 0, false);
    EXPECT_EQ(good(), whole) << command;
  }
}

TEST_F(FaultyNetwork, LosesNothingOfAWriteWhenTheBridgeComesBack) {
  showing(false);
  const Payloads whole = registersOf(remote);
  for (int command = 9; command <= 60; ++command) {
    for (const std::string& reg : remote.registerNames()) {
      if (reg == "1F" || reg == "21") continue;
      remote.setRegister(reg, std::string(remote.registerHex(reg).size(), '0'));
    }
    dieAt(command, sim::Reach::accepts, 0, false);
    showing(false);
    Payloads now = registersOf(remote);
    for (const PlanRow& row : runPlan()) {
      if (*row.reg == 0) continue;
      const auto mask = row.masks[kind::fullController];
      EXPECT_EQ(std::stoul(now.at(row.reg), nullptr, 16) & mask,
                std::stoul(whole.at(row.reg), nullptr, 16) & mask)
          << row.reg << " at " << command;
    }
  }
}

TEST_F(FaultyNetwork, KeepsTheRecordsAsFarAsTheyWereDecoded) {
  holdSetup();
  // After the detection, the registers 07, 08, 01, 02.
  dieAt(8 + 5, sim::Reach::never, 0, false);
  Memo[rec::txtSp1].text = "000.0";
  Memo[rec::txtSp2].text = "000.0";
  Memo[rec::txtIDCode].text = "7777";
  showMemo();
  showing(true);
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
  EXPECT_EQ(Memo[rec::txtSp2].text, "-050.0");
  EXPECT_EQ(Memo[rec::txtIDCode].text, "7777");
  EXPECT_EQ(form<frmBigFolder>().txtSp2.text(), "-050.0");
  EXPECT_EQ(boxTexts(), Lines{"TCP Communication with the device has failed."});
}

TEST_F(FaultyNetwork, CanBeCancelledWhileTheBridgeIsGone) {
  dieAt(9, sim::Reach::never, 0, false);
  cancelAt("Configuring Input Type...");
  const double start = host.clock;
  showing(false);
  EXPECT_LE(host.clock - start, 60);
  EXPECT_EQ(bridge.lines().size(), 9U);
}

TEST_F(FaultyNetwork, RunsAgainAfterTheBridgeHasComeBack) {
  dieAt(20, sim::Reach::refuses, 0, true);
  showing(false);
  bridge.faults = {};
  showing(false);
  remote.takeLog();
  showing(false);
  EXPECT_EQ(remote.count("W"), 0U);
}

// ---- the unit

TEST_F(FaultyNetwork, EndsAReadOfAUnitThatFallsSilentAtEachCommand) {
  holdSetup();
  for (int command = 0; command <= commandsOfARead; ++command) {
    SCOPED_TRACE(command);
    remote.faults.silentAfter = command;
    const double start = host.clock;
    showing(true);
    EXPECT_LE(host.clock - start, 20 + 8 * 5 * 3);
    remote.faults.silentAfter = sim::unlimited;
  }
}

TEST_F(FaultyNetwork, TakesRepliesThatComeLateButInTime) {
  holdSetup();
  bridge.faults.late = 2.9;
  showing(true);
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
}

TEST_F(FaultyNetwork, EndsWhenEveryReplyComesInPieces) {
  for (const std::size_t size : {1U, 2U, 3U, 5U, 8U}) {
    for (const double gap : {0.0, 0.0005, 0.05, 1.0, 4.0}) {
      bridge.faults.pieceSize = size;
      bridge.faults.pieceGap = gap;
      const double start = host.clock;
      showing(true);
      EXPECT_LE(host.clock - start, 200) << size << " " << gap;
    }
  }
}

TEST_F(FaultyNetwork, TakesPiecesThatArriveTogetherForOneReply) {
  holdSetup();
  bridge.faults.pieceSize = 2;
  bridge.faults.pieceGap = 0;
  showing(true);
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(Memo[rec::txtSp1].text, "123.4");
}

// ---- a peer that means no good

struct Peer {
  const char* name;
  std::function<void(sim::Bridge&)> breaks;
};

std::ostream& operator<<(std::ostream& out, const Peer& peer) { return out << peer.name; }

const Peer peers[] = {
    {"Silent", [](sim::Bridge& bridge) { bridge.faults.silent = true; }},
    {"Echoing", [](sim::Bridge& bridge) { bridge.faults.echoes = sim::unlimited; }},
    {"TerminalServer", [](sim::Bridge& bridge) { bridge.faults.prompt = sim::terminalServerPrompt; }},
    {"ClosesAtOnce", [](sim::Bridge& bridge) { bridge.faults.closeAfter = 0; }},
    {"TalksUnasked",
     [](sim::Bridge& bridge) {
       bridge.faults.unasked = {"R01200064\r", 0.2, 2000};
     }},
    {"OneByteASecond",
     [](sim::Bridge& bridge) {
       bridge.faults.unasked = {"0", 1.0, 2000};
     }},
    {"Noise", [](sim::Bridge& bridge) { bridge.faults.prompt = std::string("\0\xFF\x80\r\n\x01", 6); }},
    {"SixtyKilobytes", [](sim::Bridge& bridge) { bridge.faults.prompt = std::string(60000, 'F'); }},
    {"AnUnitThatRepeatsItselfWithoutEnd", [](sim::Bridge& bridge) { bridge.unit().faults.endless = 50000; }},
    {"NoiseInFrontOfTheUnit",
     [](sim::Bridge& bridge) { bridge.unit().faults.noiseBefore = std::string("\0\x80", 2); }},
};

class NetworkPeer : public FaultyNetwork, public testing::WithParamInterface<Peer> {};

TEST_P(NetworkPeer, ChangesNothingAndHoldsNobody) {
  GetParam().breaks(bridge);
  form<frmBigFolder>().writeMemo(0);
  const double start = host.clock;
  showing(true);
  EXPECT_LE(host.clock - start, 20 + fourSteps);
  showing(false);
  EXPECT_EQ(host.bridges.size(), 1U);
  EXPECT_TRUE(host.files.empty());
  EXPECT_TRUE(host.savedOrder.empty());
  EXPECT_TRUE(host.failures.empty());
}

INSTANTIATE_TEST_SUITE_P(OfEachSort, NetworkPeer, testing::ValuesIn(peers),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(FaultyNetwork, EndsAReadWithAnyByteInsideEveryReply) {
  for (int byte = 0; byte < 256; byte += 3) {
    SCOPED_TRACE(byte);
    remote.faults.noiseInside = std::string(1, static_cast<char>(byte));
    remote.faults.noiseAt = 3;
    showing(true);
    EXPECT_EQ(remote.count("W"), 0U);
  }
}

}  // namespace

}  // namespace torvane
