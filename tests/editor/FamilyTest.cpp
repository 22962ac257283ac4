// SPDX-License-Identifier: MIT
// Fitting dialog and main window to the family of the unit.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

class FamilyFit : public EditorTest {
 protected:
  frmHardware& dialog = form<frmHardware>();

  void apply(bool rkw77, std::int32_t menuKind = 0) {
    DeviceState.IsRkw77 = asFlag(rkw77);
    DeviceState.MenuKind = menuKind;
    editor.applyDeviceClass();
  }
};

const Rule rkw77Rule = {
    "the Rkw77 line",
    [](auto& editor) {
      editor.Al2Disabled(false);
      DeviceState.IsRkw77 = True;
    },
    [](auto& editor) { editor.applyDeviceClass(); },
    "",
    "",
    "",
    "fraIDCode chkSPDeviation fraColor cboNormalColor lblColorWhenNormal lblAl1Color cboAl1WhenActiveColor",
    {4, 7, 8},
    {5, 10}};

const Rule otherRule = {
    "the other families",
    [](auto&) { DeviceState.IsRkw77 = False; },
    [](auto& editor) { editor.applyDeviceClass(); },
    "",
    "",
    "fraIDCode chkSPDeviation fraColor cboNormalColor lblColorWhenNormal lblAl1Color cboAl1WhenActiveColor",
    "",
    {5, 8},
    {}};

TEST_F(FamilyFit, ShowsOnTheMainWindowWhatTheUnitHas) {
  expectRule(editor, rkw77Rule);
  expectRule(editor, otherRule);
}

TEST_F(FamilyFit, RedrawsTheControlsOfAlarm2AsItIs) {
  for (bool rkw77 : {true, false}) {
    for (int enabled : {0, 1}) {
      editor.chkAl2Enabled.setValue(enabled);
      editor.cboAl2Setup.setEnabled(enabled == 0);
      apply(rkw77);
      EXPECT_EQ(editor.cboAl2Setup.enabled(), enabled == 1);
      EXPECT_EQ(editor.tabBig.tabAvailable(8), enabled == 0);
    }
  }
}

TEST_F(FamilyFit, OfTheRkw77LineHasNoVariantsInTheDialog) {
  dialog.chkSimpleMenu.setValue(1);
  apply(true, 2);
  EXPECT_EQ(DeviceState.MenuKind, 0);
  for (const CheckBox* box :
       {&dialog.chkMonitor, &dialog.chkAlarmsOnly, &dialog.chkSimpleMenu, &dialog.chkIsoAnalogOutput}) {
    EXPECT_FALSE(box->enabled()) << box->name();
    EXPECT_EQ(box->value(), 0) << box->name();
  }
  EXPECT_TRUE(dialog.optOut[7].visible());
  EXPECT_EQ(dialog.lstOption.items(), (Lines{"RS -232", "RS -485"}));
}

TEST_F(FamilyFit, OfTheRkw77LineKeepsOneOfItsTwoOptions) {
  struct Case {
    int before;
    int after;
  };
  for (const auto& [before, after] : {Case{-1, -1}, {0, 0}, {1, 1}, {2, 0}, {3, 0}, {4, 0}}) {
    apply(false);
    dialog.lstOption.setListIndex(before);
    apply(true);
    EXPECT_EQ(dialog.lstOption.listIndex(), after) << before;
  }
}

TEST_F(FamilyFit, OfAnyOtherShowsItsVariantInTheDialog) {
  for (std::int32_t menuKind : {0, 1, 2}) {
    apply(true);
    dialog.chkAllPartNumbers.setValue(1);
    dialog.optOut[3].setVisible(false);
    apply(false, menuKind);
    EXPECT_EQ(dialog.chkAlarmsOnly.value(), menuKind == 1 ? 1 : 0);
    EXPECT_EQ(dialog.chkSimpleMenu.value(), menuKind == 2 ? 1 : 0);
    EXPECT_TRUE(dialog.chkAlarmsOnly.enabled() && dialog.chkSimpleMenu.enabled());
    EXPECT_TRUE(dialog.chkMonitor.enabled());
    EXPECT_EQ(
        dialog.chkMonitor.value() + dialog.chkAllPartNumbers.value() + dialog.chkIsoAnalogOutput.value(), 0);
    EXPECT_FALSE(dialog.chkIsoAnalogOutput.enabled());
    EXPECT_TRUE(dialog.optOut[3].visible());
    EXPECT_FALSE(dialog.optOut[7].visible());
    DeviceState.MenuKind = 0;
    dialog.chkAlarmsOnly.setValue(0);
    dialog.chkSimpleMenu.setValue(0);
  }
}

TEST_F(FamilyFit, OfAnyOtherHasFiveOptionsAndKeepsTheRow) {
  for (int row = -1; row < 5; ++row) {
    dialog.lstOption.setListIndex(row);
    apply(false);
    EXPECT_EQ(dialog.lstOption.items(),
              (Lines{"RS-232", "RS-485", "(EIS)Ethernet RS-232", "(EI)Ethernet RS-485", "EI RS - 485"}));
    EXPECT_EQ(dialog.lstOption.listIndex(), row);
  }
}

TEST_F(FamilyFit, OfAnyOtherRedrawsTheInputType) {
  for (std::size_t type : {0U, 1U, 2U}) {
    editor.optInType(type).setValue(true);
    editor.fraInType(type).setVisible(false);
    apply(false);
    EXPECT_TRUE(editor.optInType(type).value()) << type;
    EXPECT_TRUE(editor.fraInType(type).visible()) << type;
  }
}

TEST_F(FamilyFit, OfAnyOtherKeepsTheReadingFormatOfAProcessSignal) {
  editor.optInType(2).setValue(true);
  Memo[rec::optDpoint + 1].flag = False;
  Memo[rec::optDpoint + 3].flag = True;
  apply(false);
  EXPECT_EQ(Memo[rec::optDpoint + 3].flag, True);
  EXPECT_TRUE(editor.fraSOffset.visible());
}

TEST_F(FamilyFit, OfAnyOtherTakesTheDrawingsOfTheRkw77LineAway) {
  showTab(2);
  for (std::size_t type : {0U, 1U, 2U}) {
    DeviceState.IsRkw77 = True;
    editor.optInType(type).setValue(true);
    editor.doInputImage();
    apply(false);
    for (const Control* drawing : {&editor.imgLK_TC, &editor.imgLK_RTD2Wire, &editor.imgLK_Proc100m}) {
      EXPECT_FALSE(drawing->visible()) << type << " " << drawing->name();
    }
  }
}

TEST_F(FamilyFit, OfTheRkw77LineShowsItsDrawingsWhereTheInputIsOnShow) {
  showTab(2);
  apply(true);
  EXPECT_TRUE(editor.imgLK_TC.visible() && editor.imgLK_switchTC.visible());
}

TEST_F(FamilyFit, OfAUnitWithAlarmsAloneHasNoOutputTabs) {
  for (int tab = 0; tab < 12; ++tab) editor.tabBig.setTabAvailable(tab, true);
  apply(false, 1);
  for (int tab : {6, 7, 8, 9}) EXPECT_FALSE(editor.tabBig.tabAvailable(tab)) << tab;
}

// The hardware button from end to end.
using HardwareButton = EditorTest;

TEST_F(HardwareButton, ShowsTheDialogAndUnloadsIt) {
  host.events.clear();
  fitForm();
  EXPECT_EQ(host.events, (Lines{"centre frmHardware", "show modal frmHardware", "hide frmHardware",
                                "release frmHardware"}));
}

TEST_F(HardwareButton, FitsTheFormToTheChosenFamily) {
  host.whenShown("frmHardware", [] {
    form<frmHardware>().cboModel.userChose(0);
    form<frmHardware>().cmdOk.userClicked();
  });
  editor.cmdCnfg.userClicked();
  EXPECT_EQ(meterKind(), kind::rkw77);
  EXPECT_FALSE(editor.tabBig.tabAvailable(5));
  EXPECT_FALSE(editor.fraIDCode.visible());
  EXPECT_FALSE(editor.chkAnalogOutputEnabled.enabled());
  EXPECT_EQ(Memo[rec::deviceClass].extra, 0);
  host.whenShown("frmHardware", [] {
    form<frmHardware>().cboModel.userChose(3);
    form<frmHardware>().cmdOk.userClicked();
  });
  editor.cmdCnfg.userClicked();
  EXPECT_EQ(meterKind(), kind::fullController);
  EXPECT_TRUE(editor.tabBig.tabAvailable(5));
  EXPECT_TRUE(editor.fraIDCode.visible());
  EXPECT_EQ(Memo[rec::deviceClass].extra, 1);
}

TEST_F(HardwareButton, FitsTheFormToTheOldModelAfterCancel) {
  chooseUnit(kind::simpleMenu, false);
  host.whenShown("frmHardware", [] {
    form<frmHardware>().cboModel.userChose(0);
    form<frmHardware>().cmdCancel.userClicked();
  });
  editor.cmdCnfg.userClicked();
  EXPECT_EQ(meterKind(), kind::simpleMenu);
  EXPECT_TRUE(editor.tabBig.tabAvailable(5));
  EXPECT_TRUE(editor.fraAl1Deadband.visible());
}

TEST_F(HardwareButton, MakesEachKindOfUnit) {
  struct Case {
    int row;
    const char* variant;
    int kind;
  };
  for (const auto& [row, variant, kind] : {Case{3, "", kind::fullController},
                                           {3, "chkAlarmsOnly", kind::alarmsOnly},
                                           {4, "chkSimpleMenu", kind::simpleMenu},
                                           {5, "chkMonitor", kind::monitorOnly},
                                           {0, "", kind::rkw77}}) {
    host.whenShown("frmHardware", [&] {
      auto& dialog = form<frmHardware>();
      dialog.cboModel.userChose(row);
      for (CheckBox* each : {&dialog.chkMonitor, &dialog.chkAlarmsOnly, &dialog.chkSimpleMenu}) {
        if (each->value() != (each->name() == variant ? 1 : 0)) each->userClicked();
      }
      dialog.cmdOk.userClicked();
    });
    editor.cmdCnfg.userClicked();
    EXPECT_EQ(meterKind(), kind);
    EXPECT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab()));
  }
}

TEST_F(HardwareButton, ShowsTheUnitOfAFileAlsoWhereFactoryDefaultsHaveLeftADialog) {
  editor.cmdFactoryDefaults.userClicked();
  Hardware.ModelNumber = "Rkw77[case]33-C4";
  Hardware.Out1 = Hardware.Out2 = {False, True, False, False, False};
  Hardware.BusMode = 1;
  DeviceState.DeviceClass = 0;
  DeviceState.IsRkw77 = True;
  host.whenShown("frmHardware", [] {
    EXPECT_EQ(form<frmHardware>().cboModel.text(), "Rkw77[case]33-C4");
    EXPECT_FALSE(form<frmHardware>().chkMonitor.enabled());
    form<frmHardware>().cmdOk.userClicked();
  });
  editor.cmdCnfg.userClicked();
  EXPECT_EQ(Hardware.ModelNumber, "Rkw77[case]33-C4");
  EXPECT_EQ(DeviceState.DeviceClass, 0);
}

TEST_F(HardwareButton, ShowsTheDialogThatFactoryDefaultsHaveLeft) {
  Hardware.Out1 = {False, False, True, False, False};
  editor.cmdFactoryDefaults.userClicked();
  host.whenShown("frmHardware", [] {
    EXPECT_TRUE(form<frmHardware>().optOut[0].value());
    form<frmHardware>().cmdOk.userClicked();
  });
  editor.cmdCnfg.userClicked();
  EXPECT_EQ(Hardware.Out1.SSR, True);
  EXPECT_EQ(Hardware.Out1.Pulse, False);
}

TEST_F(HardwareButton, AfterFactoryDefaultsShowsTheirFitAndNoTabHasChanged) {
  Hardware.Out1 = {False, False, True, False, False};
  host.settings["Torvane Configuration/Persist/rs232"] = "False";
  Memo[rec::menuKind].extra = 1;
  editor.cmdFactoryDefaults.userClicked();
  auto& dialog = form<frmHardware>();
  EXPECT_TRUE(dialog.optOut[0].value());
  EXPECT_TRUE(dialog.optOut[4].value());
  EXPECT_EQ(dialog.lstOption.listIndex(), 0);
  EXPECT_FALSE(dialog.txtAddress.enabled());
  EXPECT_EQ(dialog.cboModel.text(), "Tv[8,16,32]22-C24");
  for (int tab = 0; tab < 12; ++tab) EXPECT_EQ(editor.tabBig.tabAvailable(tab), tab != 10) << tab;
}

}  // namespace

}  // namespace torvane
