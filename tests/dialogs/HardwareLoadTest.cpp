// SPDX-License-Identifier: MIT
// The hardware dialog as it comes up: what it shows of the model record.
#include "tests/dialogs/HardwareBench.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

const Lines models = listedModels();

using HardwareLoad = HardwareBench;

TEST_F(HardwareLoad, OffersEighteenModelsInTheirOrder) { EXPECT_EQ(dialog().cboModel.items(), models); }

TEST_F(HardwareLoad, TakesAModelThatIsTypedAsWell) { EXPECT_TRUE(dialog().cboModel.editable); }

TEST_F(HardwareLoad, BearsItsCaptions) {
  struct Case {
    const char* control;
    const char* caption;
  };
  EXPECT_EQ(dialog().caption(), "Hardware Setup");
  for (const auto& [control, caption] : {Case{"lblModel", "Model#:"},
                                         {"chkMonitor", "Monitor only"},
                                         {"chkAlarmsOnly", "Alarms Only (-AL)"},
                                         {"chkSimpleMenu", "Simple Menu (-SM)"},
                                         {"chkIsoAnalogOutput", "Iso Analog Output"},
                                         {"chkAllPartNumbers", "Show All Models"},
                                         {"fraOut1", "Ouput 1"},
                                         {"fraOut2", "Output 2"},
                                         {"optOut_0", "2 - SSR"},
                                         {"optOut_1", "3 - Relay"},
                                         {"optOut_2", "4 - Pulse"},
                                         {"optOut_3", "5 - VI (Analog)"},
                                         {"optOut_4", "2 - SSR"},
                                         {"optOut_5", "3 - Relay"},
                                         {"optOut_6", "4 - Pulse"},
                                         {"optOut_7", "0 - None"},
                                         {"fraOptions", "Options"},
                                         {"lblAddress", "RS485 Address"},
                                         {"cmdOk", "OK"},
                                         {"cmdCancel", "Cancel"},
                                         {"lblDescription",
                                          "Please select the options that your meter supports and verify "
                                          "that the model number displayed matches "
                                          "your unit's."}}) {
    EXPECT_EQ(dynamic_cast<CaptionedControl&>(named(dialog(), control)).caption(), caption);
  }
}

TEST_F(HardwareLoad, BeginsWithTheDefaultModel) {
  EXPECT_EQ(dialog().cboModel.listIndex(), 2);
  EXPECT_EQ(number(), "Tv[8,16,32]22-C24");
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(output1(), 0);
  EXPECT_EQ(output2(), 4);
  EXPECT_FALSE(dialog().optOut[7].visible());
  EXPECT_TRUE(dialog().optOut[3].visible());
  EXPECT_EQ(dialog().lstOption.listIndex(), 0);
  EXPECT_EQ(dialog().lstOption.items(),
            (Lines{"RS-232", "RS-485", "(EIS)Ethernet RS-232", "(EI)Ethernet RS-485", "EI w/Ext RS-485"}));
  EXPECT_EQ(dialog().txtAddress.text(), "0001");
  EXPECT_EQ(DeviceState.ClassSeen, False);
}

TEST_F(HardwareLoad, KeepsTheModelThatAPartNumberNamesThoughNobodyKnowsTheUnit) {
  DeviceState.DeviceClass = -1;
  DeviceState.ModelIndex = 0;
  Hardware.ModelNumber = "Tv1622-C24";
  BaseModel = "Tv16";
  EXPECT_EQ(number(), "Tv1622-C24");
  EXPECT_EQ(BaseModel, "Tv16");
  dialog().cmdOk.userClicked();
  EXPECT_EQ(Hardware.ModelNumber, "Tv1622-C24");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

TEST_F(HardwareLoad, LeavesAModelOfTheOtherLineToTheDefaultWhereNobodyKnowsTheUnit) {
  DeviceState.DeviceClass = -1;
  DeviceState.ModelIndex = 0;
  Hardware.ModelNumber = "Rkw77[case]22-C4";
  BaseModel = "Rkw77[case]";
  dialog().cmdOk.userClicked();
  EXPECT_EQ(Hardware.ModelNumber, "Tv[8,16,32]22-C24");
  EXPECT_EQ(BaseModel, "Tv[8,16,32]");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

TEST_F(HardwareLoad, ReplacesANameThatNoModelHasUnlessItIsCancelled) {
  BaseModel = "Tv[8,16,32";
  EXPECT_EQ(number(), "Tv[8,16,32]22-C24");
  dialog().cmdCancel.userClicked();
  EXPECT_EQ(BaseModel, "Tv[8,16,32");
}

TEST_F(HardwareLoad, StandsInTheMiddleOfTheScreen) {
  host.events.clear();
  form<frmHardware>();
  EXPECT_EQ(host.events, Lines{"centre frmHardware"});
}

TEST_F(HardwareLoad, TicksTheVariantOfTheImage) {
  for (std::int16_t menuKind : std::initializer_list<std::int16_t>{0, 1, 2}) {
    Memo[rec::menuKind].extra = menuKind;
    EXPECT_EQ(dialog().chkAlarmsOnly.value(), menuKind == 1 ? 1 : 0);
    EXPECT_EQ(dialog().chkSimpleMenu.value(), menuKind == 2 ? 1 : 0);
    EXPECT_EQ(dialog().chkMonitor.value(), 0);
    close();
  }
}

TEST_F(HardwareLoad, LetsAMonitorWinOverTheOtherVariants) {
  for (std::int16_t menuKind : std::initializer_list<std::int16_t>{0, 1, 2}) {
    Memo[rec::menuKind].extra = menuKind;
    Memo[rec::monitorOnly].value = 1;
    EXPECT_EQ(dialog().chkMonitor.value(), 1);
    EXPECT_EQ(dialog().chkAlarmsOnly.value() + dialog().chkSimpleMenu.value(), 0);
    EXPECT_EQ(number(), "Tv[8,16,32]00-C24");
    EXPECT_FALSE(dialog().optOut[0].enabled());
    close();
  }
}

TEST_F(HardwareLoad, HasNoVariantsOnTheRkw77Line) {
  DeviceState.DeviceClass = 0;
  Memo[rec::menuKind].extra = 2;
  Hardware.BusMode = 1;
  EXPECT_TRUE(dialog().optOut[7].visible());
  for (const CheckBox* variant : {&dialog().chkAlarmsOnly, &dialog().chkMonitor, &dialog().chkSimpleMenu}) {
    EXPECT_FALSE(variant->enabled());
    EXPECT_EQ(variant->value(), 0);
  }
  EXPECT_EQ(dialog().lstOption.items(), (Lines{"RS -232", "RS -485"}));
  EXPECT_EQ(dialog().lstOption.listIndex(), 1);
}

TEST_F(HardwareLoad, NotesThatAClassHasBeenSeen) {
  for (std::int32_t deviceClass : {0, 1, 6}) {
    DeviceState.ClassSeen = False;
    DeviceState.DeviceClass = deviceClass;
    dialog();
    EXPECT_EQ(DeviceState.ClassSeen, True) << deviceClass;
    close();
  }
}

TEST_F(HardwareLoad, NeverTicksTheIsolatedOutput) {
  EXPECT_FALSE(dialog().chkIsoAnalogOutput.enabled());
  EXPECT_EQ(dialog().chkIsoAnalogOutput.value(), 0);
}

TEST_F(HardwareLoad, ShowsTheOutputsOfTheRecord) {
  DeviceState.DeviceClass = 0;
  for (int one = 0; one < 4; ++one) {
    for (int two = 0; two < 4; ++two) {
      Hardware.Out1 = {asFlag(one == 0), asFlag(one == 1), asFlag(one == 2), asFlag(one == 3), False};
      Hardware.Out2 = {asFlag(two == 0), asFlag(two == 1), asFlag(two == 2), False, asFlag(two == 3)};
      EXPECT_EQ(output1(), one);
      EXPECT_EQ(output2(), 4 + two);
      close();
    }
  }
}

TEST_F(HardwareLoad, TurnsNoneIntoSsrOutsideTheRkw77Line) {
  DeviceState.DeviceClass = 1;
  Hardware.Out2 = {False, False, False, False, True};
  EXPECT_EQ(output2(), 4);
}

// Its outputs can't be chosen while it only monitors, and are there again when it does more.
TEST_F(HardwareLoad, KeepsTheAnalogOutputThatAMonitorIsRecordedWith) {
  for (const std::int32_t remembered : {-1, 4}) {
    DeviceState.DeviceClass = 1;
    DeviceState.ModelIndex = remembered;
    Hardware.Out1 = {False, False, False, True, False};
    Memo[rec::monitorOnly].value = 1;
    EXPECT_EQ(output1(), 3) << remembered;
    EXPECT_FALSE(dialog().optOut[3].enabled());
    dialog().cmdOk.userClicked();
    EXPECT_EQ(Hardware.Out1.Analog, True) << remembered;
    EXPECT_TRUE(Hardware.ModelNumber.ends_with("00-C24")) << Hardware.ModelNumber;
    close();
  }
}

// A setup for a monitor, in front of a unit of the Rkw77 line that a probe has found.
TEST_F(HardwareLoad, LeavesNoneChosenOnTheRkw77LineAlsoWhereASetupIsForAMonitor) {
  DeviceState.DeviceClass = 0;
  DeviceState.IsRkw77 = True;
  Hardware.Out2 = {False, False, False, False, True};
  Memo[rec::monitorOnly].value = 1;
  EXPECT_EQ(output2(), 7);
  EXPECT_TRUE(dialog().optOut[7].enabled() && dialog().optOut[7].visible());
  EXPECT_FALSE(dialog().optOut[6].enabled());
  dialog().cmdOk.userClicked();
  EXPECT_EQ(Hardware.Out2.None, True);
  EXPECT_EQ(Hardware.Out2.SSR, False);
}

TEST_F(HardwareLoad, ShowsTheRecordedOutputAlsoWhenAnAnalogOneWasFound) {
  DeviceState.AnalogFound = True;
  EXPECT_EQ(output1(), 0);
}

TEST_F(HardwareLoad, ShowsTheOptionOfTheRecordAndAnAddressForABusAlone) {
  for (std::int16_t row = -1; row < 5; ++row) {
    Hardware.BusMode = row;
    Hardware.BusAddress = 17;
    EXPECT_EQ(dialog().lstOption.listIndex(), row);
    EXPECT_EQ(dialog().txtAddress.text(), "0017");
    EXPECT_EQ(dialog().txtAddress.enabled(), row != 0 && row != 2) << row;
    close();
  }
}

TEST_F(HardwareLoad, FindsEveryModelAgainByItsNumber) {
  DeviceState.DeviceClass = 1;
  DeviceState.ModelIndex = -1;
  for (std::size_t row = 0; row < models.size(); ++row) {
    Hardware.ModelNumber = models[row] + "33-C24";
    EXPECT_EQ(dialog().cboModel.listIndex(), static_cast<int>(row));
    EXPECT_EQ(BaseModel, models[row]);
    EXPECT_TRUE(number().starts_with(models[row] + "22-C2")) << number();
    close();
  }
}

TEST_F(HardwareLoad, FindsTheModelAgainThatAFileHeld) {
  DeviceState.DeviceClass = 1;
  DeviceState.ModelIndex = 0;
  Hardware.ModelNumber = "Tv16D33-C24";
  Hardware.Out1 = {False, True, False, False, False};
  Hardware.Out2 = {False, True, False, False, False};
  EXPECT_EQ(dialog().cboModel.listIndex(), 8);
  EXPECT_EQ(number(), "Tv16D33-C24");
}

TEST_F(HardwareLoad, FallsBackOnTheRowThatIsRememberedBesideTheNumberOfTheModel) {
  struct Case {
    std::int32_t remembered;
    std::size_t model;
    const char* number;
  };
  for (const auto& [remembered, model, text] :
       {Case{4, 2, "Tv[8,16,32]22-C24"}, {0, 1, "IRkw77[case]22-C2"}}) {
    DeviceState.DeviceClass = familyCode(models[model]);
    DeviceState.IsRkw77 = asFlag(namesRkw77(models[model]));
    DeviceState.ModelIndex = remembered;
    Hardware.ModelNumber = "unheard of";
    BaseModel = models[model];
    EXPECT_EQ(dialog().cboModel.listIndex(), remembered);
    EXPECT_EQ(number(), text);
    close();
  }
}

TEST_F(HardwareLoad, KeepsTheSecondModelOfTheRkw77LineThoughThePartNumberNamesNone) {
  DeviceState.DeviceClass = 0;
  DeviceState.IsRkw77 = True;
  DeviceState.ModelIndex = -1;
  Hardware.ModelNumber = "unheard of";
  BaseModel = models[1];
  EXPECT_EQ(dialog().cboModel.listIndex(), 1);
  EXPECT_EQ(number(), "IRkw77[case]22-C2");
}

TEST_F(HardwareLoad, TellsAnErrorByItsNumberAndCanBeUsedAllTheSame) {
  struct Case {
    std::int32_t deviceClass;
    std::int16_t busMode;
    std::int32_t modelIndex;
  };
  for (const auto& [deviceClass, busMode, modelIndex] :
       {Case{0, 3, -1}, {1, 5, -1}, {1, 0, static_cast<std::int32_t>(models.size())}, {1, -2, 0}}) {
    DeviceState.DeviceClass = deviceClass;
    Hardware.BusMode = busMode;
    DeviceState.ModelIndex = modelIndex;
    Hardware.ModelNumber = "unheard of";
    host.expectBox("error occurred : (380)");
    choose("Rkv32");
    EXPECT_EQ(BaseModel, "Rkv32");
    EXPECT_TRUE(number().starts_with("Rkv3222")) << number();
    close();
  }
}

TEST_F(HardwareLoad, LeavesTheMainWindowAloneAfterAProbe) {
  DeviceState.DeviceClass = 1;
  DeviceState.ModelIndex = -1;
  const Looks before = looksOf(editor);
  dialog();
  EXPECT_EQ(looksOf(editor), before);
}

}  // namespace

}  // namespace torvane
