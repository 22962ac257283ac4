// SPDX-License-Identifier: MIT
// The answer to the hardware dialog: OK, Cancel, and OK without a dialog.
#include "tests/dialogs/HardwareBench.h"

namespace torvane {

namespace {

class Ok : public HardwareBench {
 protected:
  void ok() { dialog().cmdOk.userClicked(); }
};
class Cancel : public HardwareBench {};
using Silent = HardwareBench;

TEST_F(Ok, WritesTheOutputs) {
  for (std::size_t one = 0; one < 4; ++one) {
    for (std::size_t two = 0; two < 4; ++two) {
      choose("Rkw77[case]");
      dialog().optOut[one].userClicked();
      dialog().optOut[4 + two].userClicked();
      ok();
      EXPECT_TRUE((Hardware.Out1 ==
                   OutputFit{asFlag(one == 0), asFlag(one == 1), asFlag(one == 2), asFlag(one == 3), False}));
      EXPECT_TRUE((Hardware.Out2 ==
                   OutputFit{asFlag(two == 0), asFlag(two == 1), asFlag(two == 2), False, asFlag(two == 3)}));
      close();
    }
  }
}

TEST_F(Ok, KeepsWhatNoOutputButtonStandsFor) {
  Hardware.Out1.None = True;
  Hardware.Out2.Analog = True;
  ok();
  EXPECT_EQ(Hardware.Out1.None, True);
  EXPECT_EQ(Hardware.Out2.Analog, True);
}

TEST_F(Ok, WritesNumberOptionAndAddressAndShowsTheOption) {
  choose("Rkv16");
  dialog().lstOption.userChose(4);
  dialog().txtAddress.userTyped("0123");
  ok();
  EXPECT_EQ(Hardware.ModelNumber, "Rkv1622-C4EI");
  EXPECT_EQ(Hardware.BusMode, 4);
  EXPECT_EQ(Hardware.BusAddress, 123);
  EXPECT_EQ(editor.lblStatus.caption(), "EI RS - 485");
  EXPECT_EQ(DeviceState.ModelIndex, 16);
  EXPECT_EQ(BaseModel, "Rkv16");
}

TEST_F(Ok, TakesAnAddressThatNobodyHasRepairedYet) {
  struct Case {
    const char* typed;
    std::int16_t address;
  };
  for (const auto& [typed, address] : {Case{"abc", 0}, {"", 0}, {"99999", 199}, {"-7", 7}, {"1E999", 1}}) {
    dialog().lstOption.userChose(1);
    dialog().txtAddress.userTyped(typed);
    ok();
    EXPECT_EQ(Hardware.BusAddress, address) << typed;
    close();
  }
}

TEST_F(Ok, WritesTheVariant) {
  struct Case {
    const char* box;
    std::int32_t menuKind;
    std::int16_t monitor;
    int kind;
  };
  for (const auto& [box, menuKind, monitor, kind] : {Case{"chkAlarmsOnly", 1, 0, kind::alarmsOnly},
                                                     {"chkSimpleMenu", 2, 0, kind::simpleMenu},
                                                     {"chkMonitor", 0, 1, kind::monitorOnly}}) {
    choose("Rkv8");
    dynamic_cast<CheckBox&>(named(dialog(), box)).setValue(1);
    ok();
    EXPECT_EQ(DeviceState.MenuKind, menuKind) << box;
    EXPECT_EQ(Memo[rec::menuKind].extra, menuKind) << box;
    EXPECT_EQ(Memo[rec::monitorOnly].value, monitor) << box;
    EXPECT_EQ(meterKind(), kind) << box;
    close();
  }
}

TEST_F(Ok, FixesTheModel) {
  EXPECT_EQ(Global.DeviceSpecified, False);
  ok();
  EXPECT_EQ(Global.DeviceSpecified, True);
  EXPECT_EQ(Hardware.ModelNumber, "Tv[8,16,32]22-C24");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

TEST_F(Ok, WritesTheFamilyOfTheChosenModel) {
  for (int row = 17; row >= 0; --row) {
    dialog().cboModel.userChose(row);
    ok();
    EXPECT_EQ(DeviceState.DeviceClass, row < 2 ? 0 : 1) << row;
    close();
  }
}

TEST_F(Ok, KeepsTheClassThatWasFoundWhenNoModelIsChosen) {
  for (std::int32_t deviceClass : {0, 1, 2, 6}) {
    DeviceState.DeviceClass = deviceClass;
    Hardware.ModelNumber = "Tv(8,16,32)[case]";
    ok();
    EXPECT_EQ(DeviceState.DeviceClass, deviceClass);
    close();
  }
}

TEST_F(Ok, HidesTheDialogWhichThenBuildsNoNumber) {
  auto& hardware = dialog();
  hardware.cmdOk.userClicked();
  EXPECT_FALSE(hardware.visible());
  EXPECT_EQ(hardware.makeModel(), "");
}

TEST_F(Ok, IsFoundAgainAtTheNextOpening) {
  for (int row = 0; row < 18; ++row) {
    dialog().cboModel.userChose(row);
    dialog().optOut[2].userClicked();
    dialog().optOut[5].userClicked();
    dialog().lstOption.userChose(1);
    ok();
    close();
    EXPECT_EQ(number(), Hardware.ModelNumber);
    EXPECT_EQ(dialog().cboModel.listIndex(), row);
    close();
  }
}

TEST_F(Cancel, StoresNothingThoughTheMainWindowHasChanged) {
  const HardwareRecord before = Hardware;
  const DeviceStateRecord state = DeviceState;
  choose("Rkw77[case]");
  dialog().optOut[3].userClicked();
  dialog().lstOption.userChose(1);
  dialog().txtAddress.userTyped("12");
  dialog().cmdCancel.userClicked();
  EXPECT_TRUE(Hardware == before);
  EXPECT_EQ(DeviceState.IsRkw77, state.IsRkw77);
  EXPECT_EQ(DeviceState.ModelIndex, state.ModelIndex);
  EXPECT_EQ(DeviceState.DeviceClass, state.DeviceClass);
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(Global.DeviceSpecified, False);
  EXPECT_EQ(Memo[rec::monitorOnly].value, 0);
  EXPECT_TRUE(editor.tabBig.tabAvailable(10));
  EXPECT_TRUE(editor.opt020mA.enabled());
  EXPECT_EQ(editor.cboOut1Ctrl.listIndex(), 1);
}

TEST_F(Cancel, IsWhatTheFrameDoes) {
  auto& hardware = dialog();
  choose("Rkw77[case]");
  hardware.userClosed();
  ASSERT_TRUE(isLoaded<frmHardware>());
  EXPECT_FALSE(hardware.visible());
  EXPECT_EQ(hardware.makeModel(), "");
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(DeviceState.IsRkw77, False);
}

TEST_F(Silent, TakesTheModelAsItStands) {
  DeviceState.DeviceClass = 1;
  DeviceState.ModelIndex = -1;
  Hardware.ModelNumber = "Mqv8C34-EIS";
  Hardware.Out1 = {False, True, False, False, False};
  Hardware.Out2 = {False, False, True, False, False};
  Hardware.BusMode = 2;
  Hardware.BusAddress = 42;
  Memo[rec::menuKind].extra = 2;
  const HardwareRecord before = Hardware;
  host.events.clear();
  editor.SilentSetup = True;
  editor.cmdCnfg_Click();
  EXPECT_TRUE(Hardware == before);
  EXPECT_EQ(Global.DeviceSpecified, True);
  EXPECT_EQ(DeviceState.MenuKind, 2);
  EXPECT_EQ(host.events, (std::vector<std::string>{"centre frmHardware", "release frmHardware"}));
}

}  // namespace

}  // namespace torvane
