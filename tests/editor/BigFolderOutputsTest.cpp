// SPDX-License-Identifier: MIT
// The rules between the controls of the two outputs, and nothing else.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using Editor = frmBigFolder;

void nothing(Editor&) {}
void analog() { Hardware.Out1.Analog = True; }

constexpr const char* manualControls =
    "fraOut1Manual HSOut1Low lblOut1LowDisplay HSOut1High lblOut1HighDisplay lblOut1CycleTDisplay "
    "txtOut1DeadBand cboOut1Ctrl cboOut1Action chkOut1AutoPID chkOut1Anti lstOut1DamFactor ";
const std::string manual = manualControls;
const std::string underSelf = manual + "HSOut1CycleT txtOut1PB txtOut1Reset txtOut1Rate chkOut1Start";
const std::string selfClearedAuto = manual + "chkOut1Start";
const std::string selfClearedPid = manual + "HSOut1CycleT chkOut1Start";
const std::string selfClearedOwn = manual + "txtOut1PB txtOut1Reset txtOut1Rate";
const std::string selfClearedOwnPid = selfClearedOwn + " HSOut1CycleT chkOut1Start";

const Rule rules[] = {
    {"output 1 on off", [](Editor& e) { e.cboOut1Ctrl.setListIndex(1); },
     [](Editor& e) { e.cboOut1Ctrl.setListIndex(0); }, "",
     "HSOut1CycleT lblOut1CycleTDisplay txtOut1PB txtOut1Reset txtOut1Rate chkOut1Start", "fraOut1OnOff",
     "fraOut1PID"},
    {"output 1 PID", nothing, [](Editor& e) { e.cboOut1Ctrl.setListIndex(1); },
     "HSOut1CycleT lblOut1CycleTDisplay txtOut1PB txtOut1Reset txtOut1Rate chkOut1Start", "", "fraOut1PID",
     "fraOut1OnOff"},
    {"output 1 PID without auto PID", [](Editor& e) { e.chkOut1AutoPID.setValue(0); },
     [](Editor& e) { e.cboOut1Ctrl.setListIndex(1); },
     "HSOut1CycleT lblOut1CycleTDisplay txtOut1PB txtOut1Reset txtOut1Rate", "chkOut1Start", "fraOut1PID",
     "fraOut1OnOff"},
    {"analog output 1 PID", [](Editor&) { analog(); }, [](Editor& e) { e.cboOut1Ctrl.setListIndex(1); },
     "txtOut1PB txtOut1Reset txtOut1Rate chkOut1Start", "", "fraOut1PID", "fraOut1OnOff"},
    {"analog output 1 on off is PID again",
     [](Editor& e) {
       e.cboOut1Ctrl.setListIndex(1);
       analog();
     },
     [](Editor& e) { e.cboOut1Ctrl.setListIndex(0); }, "txtOut1PB txtOut1Reset txtOut1Rate chkOut1Start", "",
     "fraOut1PID", "fraOut1OnOff"},
    {"output 1 without a choice", nothing, [](Editor& e) { e.cboOut1Ctrl.setListIndex(-1); }},
    {"output 2 on off", [](Editor& e) { e.cboOut2Ctrl.setListIndex(1); },
     [](Editor& e) { e.cboOut2Ctrl.setListIndex(0); }, "", "HSOut2CycleT txtOut2CycleT chkOut1Start",
     "fraOut2OnOff", "fraOut2PID"},
    {"output 2 PID", nothing, [](Editor& e) { e.cboOut2Ctrl.setListIndex(1); },
     "HSOut2CycleT txtOut2CycleT chkOut1Start", "", "fraOut2PID", "fraOut2OnOff"},
    {"output 2 PID without auto PID", [](Editor& e) { e.chkOut2AutoPID.setValue(0); },
     [](Editor& e) { e.cboOut2Ctrl.setListIndex(1); }, "HSOut2CycleT txtOut2CycleT", "chkOut1Start",
     "fraOut2PID", "fraOut2OnOff"},
    {"auto PID 1 ticked", [](Editor& e) { e.chkOut1AutoPID.setValue(0); },
     [](Editor& e) { e.chkOut1AutoPID.setValue(1); }, "", "txtOut1PB txtOut1Reset txtOut1Rate chkOut1Start"},
    {"auto PID 1 ticked in PID",
     [](Editor& e) {
       e.cboOut1Ctrl.setListIndex(1);
       e.chkOut1AutoPID.setValue(0);
     },
     [](Editor& e) { e.chkOut1AutoPID.setValue(1); }, "chkOut1Start", "txtOut1PB txtOut1Reset txtOut1Rate"},
    {"auto PID 1 cleared", nothing, [](Editor& e) { e.chkOut1AutoPID.setValue(0); },
     "txtOut1PB txtOut1Reset txtOut1Rate", "chkOut1Start"},
    {"auto PID 2 ticked", [](Editor& e) { e.chkOut2AutoPID.setValue(0); },
     [](Editor& e) { e.chkOut2AutoPID.setValue(1); }, "", "txtOut2PB chkOut1Start"},
    {"auto PID 2 ticked in PID",
     [](Editor& e) {
       e.cboOut2Ctrl.setListIndex(1);
       e.chkOut2AutoPID.setValue(0);
     },
     [](Editor& e) { e.chkOut2AutoPID.setValue(1); }, "chkOut1Start", "txtOut2PB"},
    {"auto PID 2 cleared", nothing, [](Editor& e) { e.chkOut2AutoPID.setValue(0); }, "txtOut2PB",
     "chkOut1Start"},
    {"self ticked", nothing, [](Editor& e) { e.chkOut1Self.setValue(1); }, "", underSelf.c_str()},
    {"self ticked in PID", [](Editor& e) { e.cboOut1Ctrl.setListIndex(1); },
     [](Editor& e) { e.chkOut1Self.setValue(1); }, "", underSelf.c_str()},
    {"self ticked in the second family", [](Editor&) { DeviceState.IsRkw77 = True; },
     [](Editor& e) { e.chkOut1Self.setValue(1); }},
    {"self cleared in the second family",
     [](Editor& e) {
       e.chkOut1Self.setValue(1);
       DeviceState.IsRkw77 = True;
     },
     [](Editor& e) { e.chkOut1Self.setValue(0); }},
    {"self cleared, on off, auto PID", [](Editor& e) { e.chkOut1Self.setValue(1); },
     [](Editor& e) { e.chkOut1Self.setValue(0); }, selfClearedAuto.c_str()},
    {"self cleared, PID, auto PID",
     [](Editor& e) {
       e.cboOut1Ctrl.setListIndex(1);
       e.chkOut1Self.setValue(1);
     },
     [](Editor& e) { e.chkOut1Self.setValue(0); }, selfClearedPid.c_str()},
    {"self cleared, analog PID, auto PID",
     [](Editor& e) {
       e.cboOut1Ctrl.setListIndex(1);
       e.chkOut1Self.setValue(1);
       analog();
     },
     [](Editor& e) { e.chkOut1Self.setValue(0); }, selfClearedAuto.c_str()},
    {"self cleared, no auto PID at all",
     [](Editor& e) {
       e.chkOut1AutoPID.setValue(0);
       e.chkOut2AutoPID.setValue(0);
       e.chkOut1Self.setValue(1);
     },
     [](Editor& e) { e.chkOut1Self.setValue(0); }, selfClearedOwn.c_str(), "chkOut1Start"},
    {"self cleared, on off, auto PID 2 alone",
     [](Editor& e) {
       e.chkOut1AutoPID.setValue(0);
       e.chkOut1Self.setValue(1);
     },
     [](Editor& e) { e.chkOut1Self.setValue(0); }, selfClearedOwn.c_str(), "chkOut1Start"},
    {"self cleared, PID, auto PID 2 alone",
     [](Editor& e) {
       e.cboOut1Ctrl.setListIndex(1);
       e.chkOut1AutoPID.setValue(0);
       e.chkOut1Self.setValue(1);
     },
     [](Editor& e) { e.chkOut1Self.setValue(0); }, selfClearedOwnPid.c_str()},
};

class OutputRule : public EditorTest, public ::testing::WithParamInterface<Rule> {};

TEST_P(OutputRule, SetsWhatItSaysAndNothingElse) { expectRule(editor, GetParam()); }

INSTANTIATE_TEST_SUITE_P(Of, OutputRule, ::testing::ValuesIn(rules), [](const auto& test) {
  std::string name = test.param.name;
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  return name;
});

using AutoTune = EditorTest;
using Bars = EditorTest;
using OutputTexts = EditorTest;

// All sixteen: control and auto PID of output 1, control and auto PID of output 2.
TEST_F(AutoTune, NeedsAnOutputInPidWithAutoPid) {
  constexpr bool possible[16] = {false, false, false, true, false, false, false, true,
                                 false, false, false, true, true,  true,  true,  true};
  for (unsigned bits = 0; bits < 16; ++bits) {
    for (CheckBox* box : {&editor.chkOut1AutoPID, &editor.chkOut2AutoPID}) box->setValue(1);
    editor.cboOut1Ctrl.setListIndex(1);
    editor.chkOut1Start.setValue(1);
    editor.cboOut1Ctrl.setListIndex((bits & 8) != 0 ? 1 : 0);
    editor.chkOut1AutoPID.setValue((bits & 4) != 0 ? 1 : 0);
    editor.cboOut2Ctrl.setListIndex((bits & 2) != 0 ? 1 : 0);
    editor.chkOut2AutoPID.setValue((bits & 1) != 0 ? 1 : 0);
    editor.Out1AutoDisable(true);
    EXPECT_EQ(editor.chkOut1Start.enabled(), possible[bits]) << bits;
    if (!possible[bits]) {
      EXPECT_EQ(editor.chkOut1Start.value(), 0) << bits;
    }
  }
}

TEST_F(AutoTune, IsUntickedAfterSelfControlWhereNoOutputIsInAutoPid) {
  for (CheckBox* box : {&editor.chkOut1AutoPID, &editor.chkOut2AutoPID}) box->setValue(0);
  for (int ticked : {1, 0}) editor.chkOut1Self.setValue(ticked);
  EXPECT_EQ(editor.chkOut1Start.value(), 0);
}

TEST_F(AutoTune, IsUntickedUnderSelfControlOnlyWhenNoOutputNeedsIt) {
  for (int pid : {0, 1}) {
    editor.chkOut1Self.setValue(0);
    editor.cboOut1Ctrl.setListIndex(pid);
    editor.chkOut1Start.setValue(1);
    editor.chkOut1Self.setValue(1);
    EXPECT_EQ(editor.chkOut1Start.value(), pid);
    EXPECT_FALSE(editor.chkOut1Start.enabled());
  }
}

TEST_F(AutoTune, IsUntickedWhenSelfControlEndsWithoutAutoPid) {
  editor.cboOut2Ctrl.setListIndex(1);
  editor.chkOut1AutoPID.setValue(0);
  editor.chkOut1Self.setValue(1);
  editor.chkOut1Start.setValue(1);
  editor.chkOut2AutoPID.setValue(0);
  EXPECT_EQ(editor.chkOut1Start.value(), 0);
  editor.chkOut1Self.setValue(0);
  EXPECT_FALSE(editor.chkOut1Start.enabled());
}

TEST_F(Bars, ShowTheirPosition) {
  struct Case {
    ScrollBar* bar;
    Label* display;
  };
  for (const auto& [bar, display] : {Case{&editor.HSOut1CycleT, &editor.lblOut1CycleTDisplay},
                                     Case{&editor.HSOut1Low, &editor.lblOut1LowDisplay},
                                     Case{&editor.HSOut1High, &editor.lblOut1HighDisplay}}) {
    for (int position : {1, 57, 99}) {
      bar->setValue(position);
      EXPECT_EQ(display->caption(), std::to_string(position)) << bar->name();
    }
  }
  editor.HSOut2CycleT.setValue(0);
  EXPECT_EQ(editor.txtOut2CycleT.text(), "0");
  editor.HSOut2CycleT.setValue(199);
  EXPECT_EQ(editor.txtOut2CycleT.text(), "199");
}

TEST_F(Bars, ShowTheirPositionBeforeAnyChange) {
  EXPECT_EQ(editor.lblOut1CycleTDisplay.caption(), std::to_string(editor.HSOut1CycleT.value()));
  EXPECT_EQ(editor.lblOut1LowDisplay.caption(), std::to_string(editor.HSOut1Low.value()));
  EXPECT_EQ(editor.lblOut1HighDisplay.caption(), std::to_string(editor.HSOut1High.value()));
  EXPECT_EQ(editor.txtOut2CycleT.text(), std::to_string(editor.HSOut2CycleT.value()));
}

TEST_F(Bars, TakeACycleTimeOverOnEnter) {
  struct Case {
    const char* typed;
    int seconds;
  };
  showTab(8);
  editor.cboOut2Ctrl.userChose(1);
  for (const auto& [typed, seconds] :
       {Case{"7", 7}, Case{"199", 199}, Case{"200", 199}, Case{"1000", 100}, Case{"0", 1}, Case{"-5", 1},
        Case{"", 1}, Case{"abc", 1}, Case{"12s", 12}, Case{"1E9", 199}, Case{"2.5", 2}, Case{"  9", 9},
        Case{"&HF", 15}, Case{"\xC3\xA4\xC3\xA4", 1}}) {
    editor.txtOut2CycleT.userTyped(typed);
    editor.txtOut2CycleT.userPressedEnter();
    EXPECT_EQ(editor.HSOut2CycleT.value(), seconds) << typed;
    EXPECT_EQ(editor.txtOut2CycleT.text(), std::to_string(seconds)) << typed;
  }
  EXPECT_TRUE(host.failures.empty());
}

TEST_F(Bars, KeepTheirPositionUntilEnterIsPressed) {
  showTab(8);
  editor.cboOut2Ctrl.userChose(1);
  editor.txtOut2CycleT.userTyped("77");
  EXPECT_EQ(editor.HSOut2CycleT.value(), 4);
}

TEST_F(OutputTexts, TellWhatAutoPidOfOutput2LeavesToType) {
  EXPECT_EQ(editor.lblOut2Pid.caption(),
            "Reset, rate, damping, and Auto-Integral values are the same as Out 1");
  editor.chkOut2AutoPID.setValue(0);
  EXPECT_EQ(editor.lblOut2Pid.caption(),
            "Please enter the value for PB.  Reset and rate are the same as Out 1");
}

TEST_F(OutputTexts, KeepAnAnalogOutputInPid) {
  Hardware.Out1.Analog = True;
  showTab(7);
  editor.cboOut1Ctrl.setListIndex(1);
  editor.cboOut1Ctrl.userChose(0);
  EXPECT_EQ(editor.cboOut1Ctrl.listIndex(), 1);
  EXPECT_EQ(editor.cboOut1Ctrl.text(), "PID");
}

}  // namespace

}  // namespace torvane
