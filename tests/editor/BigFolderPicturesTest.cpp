// SPDX-License-Identifier: MIT
// Which picture explains the wiring of the chosen input.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

struct Wiring {
  int input;  // of optInType
  int value;  // of cboRTDValue, or of lstProc
  int wires;  // of cboRTDWires
  const char* first;
  const char* second;
  const char* jumper;
};

constexpr Wiring wirings[] = {
    {0, 0, 0, "imgTC", "imgLK_TC", "imgLK_switchTC"},
    {1, 0, 0, "imgRTD2Wire", "imgLK_RTD2Wire", "imgLK_switchRTD100"},
    {1, 0, 1, "imgRTD3Wire", "imgLK_RTD3Wire", "imgLK_switchRTD100"},
    {1, 0, 2, "imgRTD4Wire", "imgLK_RTD4Wire", "imgLK_switchRTD100"},
    {1, 0, -1, "imgRTD4Wire", "imgLK_RTD4Wire", "imgLK_switchRTD100"},
    {1, 1, 0, "imgRTD5002Wires", "imgLK_RTD5002Wires", "imgLK_switchRTD500_1k"},
    {1, 1, 1, "imgRTD5003Wires", "imgLK_RTD5003Wires", "imgLK_switchRTD500_1k"},
    {1, 1, 2, "imgRTD5004Wires", "imgLK_RTD5004Wires", "imgLK_switchRTD500_1k"},
    {1, 2, 0, "imgRTD1K2Wires", "imgLK_RTD1K2Wires", "imgLK_switchRTD500_1k"},
    {1, 2, 1, "imgRTD1K3Wires", "imgLK_RTD1K3Wires", "imgLK_switchRTD500_1k"},
    {1, 2, 2, "imgRTD1K4Wires", "imgLK_RTD1K4Wires", "imgLK_switchRTD500_1k"},
    {1, -1, 0, "imgRTD1K2Wires", "imgLK_RTD1K2Wires", "imgLK_switchRTD500_1k"},
    {2, 0, 0, "imgProc100m", "imgLK_Proc100m", "imgLK_switch100mv"},
    {2, 1, 0, "imgProcV", "imgLK_ProcV", "imgLK_switch1V"},
    {2, 2, 0, "imgProcV", "imgLK_ProcV", "imgLK_switch10V"},
    {2, 3, 0, "imgProcI", "imgLK_ProcI", "imgLK_switch20ma"},
    {2, -1, 0, "imgProcV", "imgLK_ProcV", "imgLK_switch10V"},
};

class InputPictures : public EditorTest {
 protected:
  std::vector<std::string> onShow() const {
    std::vector<std::string> names;
    for (const Control* control : editor.controls) {
      const bool picture =
          dynamic_cast<const Picture*>(control) != nullptr && control->name() != "picProcess";
      if (picture && control->visible()) names.push_back(control->name());
    }
    return names;
  }

  void choose(const Wiring& wiring) {
    editor.optInType(static_cast<std::size_t>(wiring.input)).setValue(true);
    if (wiring.input == 1) editor.cboRTDValue.setListIndex(wiring.value);
    if (wiring.input == 1) editor.cboRTDWires.setListIndex(wiring.wires);
    if (wiring.input == 2) editor.lstProc.setListIndex(wiring.value);
  }
};

// The chosen input, as the words of its wiring or of its switches name it.
std::string inWords(const Wiring& wiring, bool switches) {
  constexpr const char* ohms[] = {"100", "500", "1000"};
  constexpr const char* signals[] = {"0 to 100 millivolts", "0 to 1 volt", "0 to 10 volts",
                                     "0 to 20 milliamps"};
  if (wiring.input == 0) return "a thermocouple";
  if (wiring.input == 1 && switches)
    return std::string("an RTD of ") + (wiring.value == 0 ? "100 ohms" : "500 or 1000 ohms");
  if (wiring.input == 1)
    return std::string("an RTD of ") + ohms[wiring.value] + " ohms with " + std::to_string(wiring.wires + 2) +
           " wires";
  if (switches) return signals[wiring.value];
  const bool volts = wiring.value == 1 || wiring.value == 2;
  return volts ? "a process signal in volts" : std::string("a process signal of ") + signals[wiring.value];
}

TEST_F(InputPictures, AreDescribedAsTheInputIsChosen) {
  DeviceState.IsRkw77 = True;
  showTab(2);
  for (const Wiring& wiring : wirings) {
    if (wiring.value < 0 || wiring.wires < 0) continue;
    choose(wiring);
    const std::vector<std::string> words = {"Wiring of " + inWords(wiring, false),
                                            "Larkspur: wiring of " + inWords(wiring, false),
                                            "Larkspur: switches for " + inWords(wiring, true)};
    std::vector<std::string> said;
    for (const std::string& name : onShow()) said.push_back(named(editor, name).toolTip());
    EXPECT_EQ(said, words);
  }
}

TEST_F(InputPictures, ShowOneForTheFirstFamily) {
  for (int tab : {1, 2}) {
    showTab(tab);
    for (const Wiring& wiring : wirings) {
      choose(wiring);
      EXPECT_EQ(onShow(), std::vector<std::string>{wiring.first}) << wiring.first;
    }
  }
}

TEST_F(InputPictures, ShowWiringAndSwitchesForTheSecondFamilyOnTheirTab) {
  DeviceState.IsRkw77 = True;
  showTab(2);
  for (const Wiring& wiring : wirings) {
    choose(wiring);
    EXPECT_EQ(onShow(), (std::vector<std::string>{wiring.first, wiring.second, wiring.jumper}))
        << wiring.second;
  }
}

TEST_F(InputPictures, OfTheSecondFamilyGoWithTheirTab) {
  DeviceState.IsRkw77 = True;
  showTab(2);
  EXPECT_EQ(onShow().size(), 3u);
  showTab(3);
  EXPECT_EQ(onShow(), std::vector<std::string>{"imgTC"});
  editor.optInType(2).setValue(true);
  EXPECT_EQ(onShow(), std::vector<std::string>{"imgProc100m"});
}

TEST_F(InputPictures, OfTheSecondFamilyGoWhenTheUnitIsNoneOfIt) {
  DeviceState.IsRkw77 = True;
  showTab(2);
  DeviceState.IsRkw77 = False;
  editor.doInputImage();
  EXPECT_EQ(onShow(), std::vector<std::string>{"imgTC"});
}

TEST_F(InputPictures, ShowNoneWithoutAnInput) {
  DeviceState.IsRkw77 = True;
  showTab(2);
  editor.optInType(0).setValue(false);
  editor.doInputImage();
  EXPECT_EQ(onShow(), std::vector<std::string>());
}

TEST_F(InputPictures, FollowTheImageWhenItsTabIsShown) {
  Memo[rec::optInType].flag = False;
  Memo[rec::optInType + 1].flag = True;
  Memo[rec::cboRTDValue].value = 1;
  Memo[rec::cboRTDWires].value = 1;
  showTab(2);
  EXPECT_EQ(onShow(), std::vector<std::string>{"imgRTD5003Wires"});
}

}  // namespace

}  // namespace torvane
