// SPDX-License-Identifier: MIT
// The communication tab: port state, line settings, serial or network, bus mode.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using PortState = EditorTest;
using LineSettings = EditorTest;
using CommunicationMode = EditorTest;
using BridgePort = EditorTest;
using BusMode = EditorTest;

constexpr const char* serialText =
    "Find my device. Required Comm params to be: 9600 Baud, Odd Parity, 7 Databits, 1 Stop bit, Echo: On, "
    "Mode:Command.";

TEST_F(PortState, IsWhiteWithoutAPort) {
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is unselected");
  EXPECT_EQ(editor.lblCommStat.backColor(), 16777215u);
  EXPECT_EQ(editor.cboCommPort.text(), "unselect");
  EXPECT_EQ(editor.cboCommPort.listIndex(), -1);
}

TEST_F(PortState, IsGreenWithAPortThatOpensAndTheProgramClosesItAgain) {
  showTab(11);
  editor.cboCommPort.userChose(0);
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is available");
  EXPECT_EQ(editor.lblCommStat.backColor(), 65280u);
  EXPECT_EQ(editor.MSComm1->commPort, 1);
  EXPECT_FALSE(editor.MSComm1->isOpen());
  EXPECT_EQ(host.portOpenings, 1);
}

TEST_F(PortState, IsRedWithTheSystemsWordsForAPortThatDoesNotOpen) {
  host.lines[2].openFault = "Permission denied";
  showTab(11);
  for (int index : {1, 2, 3}) {
    editor.cboCommPort.userChose(index);
    EXPECT_EQ(editor.lblCommStat.caption(), index == 1 ? "Permission denied" : "No such file or directory");
    EXPECT_EQ(editor.lblCommStat.backColor(), 255u);
    EXPECT_EQ(editor.MSComm1->commPort, index + 1);
    EXPECT_FALSE(editor.MSComm1->isOpen());
  }
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(PortState, IsWhiteAgainWhenThePortIsGivenUp) {
  editor.cboCommPort.setListIndex(0);
  editor.cboCommPort.setListIndex(-1);
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is unselected");
  EXPECT_EQ(editor.cboCommPort.text(), "unselect");
  EXPECT_EQ(editor.MSComm1->commPort, 1);
}

TEST_F(PortState, TellsWhichDeviceThePortIs) {
  editor.cboCommPort.setListIndex(2);
  EXPECT_EQ(editor.cboCommPort.toolTip(), "COM 3 here");
}

TEST_F(PortState, TellsWhatToDoBesideTheWordsOfTheFault) {
  host.lines[2].openFault = "Permission denied";
  showTab(11);
  editor.cboCommPort.userChose(1);
  EXPECT_EQ(editor.lblCommStat.toolTip(), "COM 2 here");
  editor.cboCommPort.setListIndex(-1);
  EXPECT_EQ(editor.lblCommStat.toolTip(), "");
  EXPECT_EQ(editor.cboCommPort.toolTip(), "Serial port of this computer");
}

TEST_F(PortState, IsTestedAgainWhenTheListIsUsed) {
  showTab(11);
  editor.cboCommPort.userChose(1);
  EXPECT_EQ(editor.lblCommStat.caption(), "No such file or directory");
  host.lines[2].unit = &unit;
  editor.cboCommPort.userOpened();
  EXPECT_EQ(editor.lblCommStat.caption(), "Port is available");
  host.lines.erase(2);
  editor.cboCommPort.userChose(1);
  EXPECT_EQ(editor.lblCommStat.caption(), "No such file or directory");
}

TEST_F(PortState, KnowsFourPorts) {
  editor.cboCommPort.userChose(4);
  EXPECT_EQ(editor.cboCommPort.listIndex(), -1);
  EXPECT_EQ(editor.cboCommPort.listCount(), 4);
}

TEST_F(LineSettings, AreOneTextForEveryCombination) {
  const char* bauds[] = {"300", "600", "1200", "2400", "4800", "9600", "19200"};
  const char* parities[] = {"n", "o", "e"};
  const char* data[] = {"7", "8"};
  const char* stops[] = {"1", "2"};
  for (int b = 0; b < 7; ++b) {
    for (int p = 0; p < 3; ++p) {
      for (int d = 0; d < 2; ++d) {
        for (int s = 0; s < 2; ++s) {
          editor.cboBaud.setListIndex(b);
          editor.cboParity.setListIndex(p);
          editor.cboData.setListIndex(d);
          editor.cboStop.setListIndex(s);
          EXPECT_EQ(editor.MSComm1->settings,
                    std::string(bauds[b]) + "," + parities[p] + "," + data[d] + "," + stops[s]);
        }
      }
    }
  }
}

TEST_F(LineSettings, AreMadeAnewByEachOfTheFourLists) {
  EXPECT_EQ(editor.MSComm1->settings, "4800,o,7,1");
  for (ComboBox* list : {&editor.cboBaud, &editor.cboParity, &editor.cboData, &editor.cboStop}) {
    editor.MSComm1->settings = "";
    list->setListIndex(list->listIndex() == 0 ? 1 : 0);
    EXPECT_FALSE(editor.MSComm1->settings.empty()) << list->name();
  }
}

TEST_F(LineSettings, HaveOddParitySevenBitsAndOneStopBitWithoutAChoice) {
  for (ComboBox* list : {&editor.cboParity, &editor.cboData, &editor.cboStop}) list->setListIndex(-1);
  EXPECT_EQ(editor.MSComm1->settings, "4800,o,7,1");
}

TEST_F(CommunicationMode, ShowsTheFramesOfOneChannelAndItsText) {
  showTab(11);
  editor.txtTCPIPAddress.setText("10.0.0.9");
  editor.optCommunicationMode(1).userClicked();
  EXPECT_EQ(editor.lblAutoDet.caption(), "Connect to the web server at IP address10.0.0.9 and port 1000");
  for (bool serial : {true, false, true}) {
    editor.optCommunicationMode(serial ? 0 : 1).userClicked();
    EXPECT_EQ(editor.fraSerialManualSet.visible(), serial);
    EXPECT_EQ(editor.fraSerialCommunicationMode.visible(), serial);
    EXPECT_EQ(editor.fraTCPIPAddress.visible(), !serial);
    EXPECT_EQ(editor.fraTCPIPPort.visible(), !serial);
    EXPECT_EQ(editor.lblAutoDet.caption() == serialText, serial);
  }
}

TEST_F(CommunicationMode, OffersItsChannelInAWriteChooserThatIsThere) {
  auto& chooser = form<frmWrite>();
  editor.optCommunicationMode(1).setValue(true);
  EXPECT_TRUE(chooser.cmdNetwork.enabled());
  EXPECT_FALSE(chooser.cmdSerial.enabled());
  editor.optCommunicationMode(0).setValue(true);
  EXPECT_FALSE(chooser.cmdNetwork.enabled());
  EXPECT_TRUE(chooser.cmdSerial.enabled());
}

TEST_F(CommunicationMode, KeepsTheSerialRecordsWhileTheNetworkIsChosen) {
  showTab(11);
  editor.cboBaud.userChose(2);
  editor.optCommunicationMode(1).userClicked();
  showTab(1);
  EXPECT_EQ(Memo[rec::cboBaud].value, 2);
  EXPECT_EQ(Memo[rec::optCommunicationMode + 1].flag, True);
}

TEST_F(BridgePort, PicksItsOption) {
  struct Case {
    const char* text;
    std::size_t option;
  };
  for (const auto& [text, option] : {Case{"2000", 1}, Case{"4711", 2}, Case{"1000", 0}, Case{"", 2},
                                     Case{"2000", 1}, Case{"abc", 2}, Case{"-1000", 2}, Case{"100", 2}}) {
    editor.txtTCPPort.setText(text);
    EXPECT_TRUE(editor.optPortNum(option).value()) << text;
    EXPECT_EQ(editor.txtTCPPort.text(), text);
  }
}

TEST_F(BridgePort, KeepsItsOptionOnANumberThatCannotBe) {
  editor.txtTCPPort.setText("1E999");
  EXPECT_TRUE(editor.optPortNum(0).value());
  EXPECT_EQ(editor.txtTCPPort.text(), "1E999");
}

TEST_F(BridgePort, IsWrittenByTheOptionsWithANumber) {
  showTab(11);
  editor.optCommunicationMode(1).userClicked();
  editor.optPortNum(1).userClicked();
  EXPECT_EQ(editor.txtTCPPort.text(), "2000");
  editor.optPortNum(0).userClicked();
  EXPECT_EQ(editor.txtTCPPort.text(), "1000");
  editor.optPortNum(2).userClicked();
  EXPECT_EQ(editor.txtTCPPort.text(), "1000");
  EXPECT_TRUE(editor.optPortNum(2).value());
}

TEST_F(BridgePort, ShowsInTheWizardsTextAsItIsTyped) {
  editor.txtTCPIPAddress.setText("bridge");
  EXPECT_EQ(editor.lblAutoDet.caption(), "Connect to the web server at IP addressbridge and port 1000");
  editor.txtTCPPort.setText("77");
  EXPECT_EQ(editor.lblAutoDet.caption(), "Connect to the web server at IP addressbridge and port 77");
}

TEST_F(BusMode, OffersAnAddressForRs485Alone) {
  EXPECT_FALSE(editor.txtRS485Address.enabled());
  showTab(11);
  editor.optRS485.userClicked();
  EXPECT_TRUE(editor.txtRS485Address.enabled());
  editor.optRS232.userClicked();
  EXPECT_FALSE(editor.txtRS485Address.enabled());
}

TEST_F(BusMode, IsLeftAsFoundUntilTheUserChooses) {
  EXPECT_TRUE(editor.optNoChange.value());
  EXPECT_FALSE(editor.optRS232.value() || editor.optRS485.value());
  showTab(11);
  editor.optRS485.userClicked();
  showTab(1);
  EXPECT_EQ(Memo[rec::optNoChange].flag, False);
  EXPECT_EQ(Memo[rec::optRS232].flag, False);
  EXPECT_EQ(Memo[rec::optRS485].flag, True);
}

}  // namespace

}  // namespace torvane
