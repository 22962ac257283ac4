// SPDX-License-Identifier: MIT
// Stored preferences as the start takes them: none, every kind, nonsense.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

class StoredSettings : public Bench {
 protected:
  StoredSettings() { host.settings.clear(); }

  // Starts the program anew with this one setting stored.
  frmBigFolder& startWith(const std::string& key, const std::string& text) {
    unloadAllForms();
    resetSharedState();
    host.settings.clear();
    host.settings["Torvane Configuration/Persist/" + key] = text;
    return start();
  }
};

TEST_F(StoredSettings, MayBeMissingOnAFirstRun) {
  const auto& editor = start();
  EXPECT_EQ(Global.ResetAfterWrite, False);
  EXPECT_EQ(Global.WarningsOff, False);
  EXPECT_EQ(editor.cboCommPort.listIndex(), -1);
  EXPECT_EQ(editor.cboBaud.text(), "4800");
  EXPECT_EQ(editor.cboParity.text(), "odd");
  EXPECT_EQ(editor.cboData.text(), "7-bit");
  EXPECT_EQ(editor.cboStop.text(), "1-bit");
  EXPECT_TRUE(editor.optCommunicationMode(0).value());
  EXPECT_EQ(editor.txtTCPIPAddress.text(), "192.0.2.254");
  EXPECT_EQ(editor.txtTCPPort.text(), "1000");
  EXPECT_EQ(Hardware.BusMode, 0);
  EXPECT_EQ(Hardware.BusAddress, 1);
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is unselected");
}

struct Number {
  const char* key;
  int record;
  int ifMissing;
};
constexpr Number numbers[] = {{"CommPort", rec::cboCommPort, -1},
                              {"Baud", rec::cboBaud, 4},
                              {"Parity", rec::cboParity, 1},
                              {"Data", rec::cboData, 0},
                              {"Stop", rec::cboStop, 0}};

struct Stored {
  const char* text;
  bool counts;
  int number = 0;
};
constexpr Stored stored[] = {
    {"", false},          {"0", true, 0},           {"1", true, 1},         {"-1", true, -1},
    {"abc", true, 0},     {" 1 x", true, 1},        {"0.5", true, 0},       {"1.5", true, 2},
    {"99", true, 99},     {"-32768", true, -32768}, {"32767", true, 32767}, {"32768", false},
    {"-32769", false},    {"1E999", false},         {"1E5", false},         {"&H1", true, 1},
    {"&HFFFF", true, -1}, {"\xC3\xA4", true, 0},    {"1,5", true, 1},
};

TEST_F(StoredSettings, OfTheLineAreNumbersAndCountAsMissingWhenTheyCannotBe) {
  for (const auto& [key, record, ifMissing] : numbers) {
    for (const auto& [text, counts, number] : stored) {
      startWith(key, text);
      EXPECT_EQ(Memo[record].value, counts ? number : ifMissing) << key << " " << text;
    }
  }
}

TEST_F(StoredSettings, OfTheAddressAreANumberOrOne) {
  for (const auto& [text, counts, number] : stored) {
    startWith("address", text);
    EXPECT_EQ(Hardware.BusAddress, counts ? number : 1) << text;
  }
}

TEST_F(StoredSettings, BeyondAListLeaveItWithoutAChoice) {
  EXPECT_EQ(startWith("Baud", "7").cboBaud.listIndex(), -1);
  EXPECT_EQ(startWith("Parity", "-2").cboParity.listIndex(), -1);
  EXPECT_EQ(startWith("CommPort", "4").cboCommPort.listIndex(), -1);
  EXPECT_EQ(startWith("CommPort", "4").lblCommStat.caption(), "Port is unselected");
}

TEST_F(StoredSettings, ChooseThePortAndTryIt) {
  const auto& editor = startWith("CommPort", "0");
  EXPECT_EQ(editor.cboCommPort.text(), "COM 1");
  EXPECT_EQ(editor.MSComm1->commPort, 1);
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is available");
}

TEST_F(StoredSettings, AreTrueByThatWordAlone) {
  for (const char* text : {"True", "true", "TRUE", "-1", "1", " True", "yes", ""}) {
    const std::int16_t expected = asFlag(std::string(text) == "True");
    startWith("Reset", text);
    EXPECT_EQ(Global.ResetAfterWrite, expected) << text;
    startWith("Warn", text);
    EXPECT_EQ(Global.WarningsOff, expected) << text;
  }
}

TEST_F(StoredSettings, ChooseTheSerialChannelByTheWordTrueOrByNone) {
  for (const char* text : {"True", "", "False", "true", "nonsense"}) {
    const bool serial = std::string(text).empty() || std::string(text) == "True";
    const auto& editor = startWith("SerialMode", text);
    EXPECT_EQ(Memo[94].flag, asFlag(serial)) << text;
    EXPECT_EQ(Memo[95].flag, asFlag(!serial)) << text;
    EXPECT_EQ(editor.optCommunicationMode(0).value(), serial) << text;
    EXPECT_EQ(editor.fraSerialManualSet.visible(), serial) << text;
    EXPECT_EQ(editor.fraTCPIPPort.visible(), !serial) << text;
  }
}

TEST_F(StoredSettings, ChooseAPlainBusByTheWordTrueOrByNone) {
  for (const char* text : {"True", "", "False", "nonsense"}) {
    startWith("rs232", text);
    const bool plain = std::string(text).empty() || std::string(text) == "True";
    EXPECT_EQ(Hardware.BusMode, plain ? 0 : -1) << text;
  }
}

TEST_F(StoredSettings, HoldTheBridgeAsTextsWhateverTheyAre) {
  EXPECT_EQ(startWith("IPAddress", "not an address").txtTCPIPAddress.text(), "not an address");
  const auto& editor = startWith("TCPPort", "1E999");
  EXPECT_EQ(editor.txtTCPPort.text(), "1E999");
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(StoredSettings, NeverAskWhetherToShowTheStart) {
  startWith("ShowOnStartUp", "True");
  EXPECT_TRUE(host.savedOrder.empty());
  form<frmBigFolder>().userClosed();
  EXPECT_EQ(host.settings["Torvane Configuration/Persist/ShowOnStartUp"], "False");
}

TEST_F(StoredSettings, LeaveTheWizardsTextInItsSerialFormAtFirst) {
  EXPECT_EQ(startWith("SerialMode", "False").lblAutoDet.caption(), serialAutoDetect);
}

}  // namespace

}  // namespace torvane
