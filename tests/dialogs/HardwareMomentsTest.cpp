// SPDX-License-Identifier: MIT
// The hardware dialog at its edges: rows of the list that are the first one, families that few units are of,
// and what a dialog leaves alone.
#include "platform/RuntimeError.h"
#include "tests/dialogs/HardwareBench.h"

namespace torvane {

namespace {

const std::vector<std::string> models = listedModels();

class HardwareMoments : public HardwareBench {
 protected:
  static constexpr std::initializer_list<int> tabsOfOutputs = {tab::lbAlarm, tab::out1, tab::out2,
                                                               tab::rampSoak};
  void expectTabs(bool available) {
    for (int each : tabsOfOutputs) EXPECT_EQ(editor.tabBig.tabAvailable(each), available) << each;
  }
};

// ---- the first row is a row like any other

TEST_F(HardwareMoments, TheRememberedRowMayBeAnyOne) {
  for (std::size_t row = 0; row < models.size(); ++row) {
    DeviceState.DeviceClass = familyCode(models[row]);
    DeviceState.IsRkw77 = asFlag(namesRkw77(models[row]));
    DeviceState.ModelIndex = static_cast<std::int32_t>(row);
    Hardware.ModelNumber = "unheard of";
    form<frmHardware>();
    EXPECT_EQ(form<frmHardware>().cboModel.listIndex(), static_cast<int>(row));
    close();
  }
}

TEST_F(HardwareMoments, TheRowThatThePartNumberNamesWinsOverTheRememberedOne) {
  for (std::size_t row = 0; row < models.size(); ++row) {
    DeviceState.DeviceClass = familyCode(models[row]);
    DeviceState.IsRkw77 = asFlag(namesRkw77(models[row]));
    DeviceState.ModelIndex = row == 4 ? 5 : 4;
    Hardware.ModelNumber = models[row];
    EXPECT_EQ(form<frmHardware>().cboModel.listIndex(), static_cast<int>(row));
    EXPECT_EQ(BaseModel, models[row]);
    close();
  }
}

// Loaded alone, before anybody sees it.
TEST_F(HardwareMoments, WhereNobodyKnowsTheUnitAModelOfThePresentLineStays) {
  for (std::size_t row = 0; row < models.size(); ++row) {
    for (const bool rkw77 : {true, false}) {
      DeviceState.DeviceClass = -1;
      DeviceState.ModelIndex = -1;
      DeviceState.IsRkw77 = asFlag(rkw77);
      Hardware.ModelNumber = models[row];
      BaseModel = "as before";
      const bool stays = namesRkw77(models[row]) == rkw77;
      EXPECT_EQ(form<frmHardware>().cboModel.listIndex(), stays ? static_cast<int>(row) : 2) << models[row];
      EXPECT_EQ(BaseModel, stays ? models[row] : models[2]);
      close();
    }
  }
}

// A user sees the model and answers for it, whatever was found.
TEST_F(HardwareMoments, InFrontOfAUserTheModelOfThePartNumberTellsTheLine) {
  for (const std::string& model : models) {
    for (const std::int32_t deviceClass : {0, 1, -1}) {
      DeviceState.DeviceClass = deviceClass;
      DeviceState.ModelIndex = -1;
      DeviceState.IsRkw77 = asFlag(namesRkw77(model));
      Hardware.ModelNumber = model;
      EXPECT_TRUE(number().starts_with(model)) << number() << deviceClass;
      EXPECT_EQ(DeviceState.IsRkw77, asFlag(namesRkw77(model))) << model << deviceClass;
      close();
    }
  }
}

TEST_F(HardwareMoments, AClassOfTheOtherLineThatHasComeSinceGivesWayToTheModels) {
  DeviceState.DeviceClass = 2;
  Hardware.ModelNumber = "Tv822-C24";
  form<frmHardware>();
  DeviceState.DeviceClass = 0;
  dialog().cmdOk.userClicked();
  EXPECT_EQ(Hardware.ModelNumber, "Tv822-C24");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
}

TEST_F(HardwareMoments, WhereNoModelIsNamedTheNameStaysAsItWas) {
  DeviceState.DeviceClass = -1;
  DeviceState.ModelIndex = -1;
  Hardware.ModelNumber = "unheard of";
  BaseModel = "as before";
  EXPECT_EQ(form<frmHardware>().cboModel.listIndex(), 2);
  EXPECT_EQ(BaseModel, "as before");
}

// ---- the unit that it was loaded for

TEST_F(HardwareMoments, ADialogIsOfAnotherUnitWithAnyOtherModelMenuBusOrOutput) {
  using Change = void (*)();
  for (const Change change :
       {Change{[] { Hardware.ModelNumber += "x"; }}, Change{[] { Memo[rec::menuKind].extra = 2; }},
        Change{[] { Memo[rec::monitorOnly].value = 1; }}, Change{[] { Hardware.BusMode = 1; }},
        Change{[] { Hardware.Out1.Pulse = True; }}, Change{[] { Hardware.Out2.None = True; }}}) {
    ASSERT_TRUE(dialog().isOfThisUnit());
    change();
    EXPECT_FALSE(dialog().isOfThisUnit());
    close();
  }
}

// ---- the main window

TEST_F(HardwareMoments, ADialogThatRemembersARowFitsTheMainWindowAsItComesUp) {
  for (const bool analog : {true, false}) {
    DeviceState.DeviceClass = 1;
    DeviceState.ModelIndex = 4;
    Hardware.Out1 = {asFlag(!analog), False, False, asFlag(analog), False};
    editor.tabBig.setTabAvailable(tab::analog, !analog);
    editor.tabBig.setTabAvailable(tab::alarm1, analog);
    form<frmHardware>();
    EXPECT_EQ(editor.tabBig.tabAvailable(tab::analog), analog);
    EXPECT_EQ(editor.tabBig.tabAvailable(tab::alarm1), !analog);
    EXPECT_EQ(editor.opt020mA.enabled(), analog);
    close();
  }
}

TEST_F(HardwareMoments, FactoryFitLeavesTheMainWindowAloneAndTheDialogInUse) {
  choose("Rkv16");
  dialog().optOut[3].userClicked();
  dialog().optOut[6].userClicked();
  dialog().lstOption.userChose(1);
  const Looks before = looksOf(editor);
  dialog().showFactoryFit();
  EXPECT_EQ(looksOf(editor), before);
  EXPECT_EQ(number(), "Tv[8,16,32]22-C24");
  EXPECT_EQ(output1(), 0);
  EXPECT_EQ(output2(), 4);
  EXPECT_EQ(dialog().lstOption.listIndex(), 0);
  EXPECT_FALSE(dialog().txtAddress.enabled());
  dialog().optOut[1].userClicked();
  EXPECT_EQ(number(), "Tv[8,16,32]32-C24");
}

TEST_F(HardwareMoments, AVariantThatIsTakenBackLeavesTheTabsAsTheyAre) {
  dialog();
  for (CheckBox* variant : {&dialog().chkAlarmsOnly, &dialog().chkSimpleMenu}) {
    for (const bool available : {true, false}) {
      variant->setValue(1);
      for (int each : tabsOfOutputs) editor.tabBig.setTabAvailable(each, available);
      variant->userClicked();
      EXPECT_EQ(variant->value(), 0);
      expectTabs(available);
    }
  }
}

TEST_F(HardwareMoments, TheRkw77LineKeepsTheTabsOfItsOutputs) {
  for (const char* model : {"Rkw77[case]", "Tv8", "Rkw77[case]"}) {
    choose(model);
    expectTabs(true);
  }
}

// ---- a family of two options

TEST_F(HardwareMoments, AFamilyOfTwoOptionsKeepsTheKindOfOption) {
  struct Case {
    int before;
    int after;
  };
  for (const auto& [before, after] : {Case{2, 0}, {3, 1}, {4, 1}}) {
    dialog().lstOption.setListIndex(before);
    EXPECT_THROW(dialog().setFamily(3), RuntimeError) << before;
    EXPECT_EQ(dialog().lstOption.listIndex(), after) << before;
    close();
  }
}

TEST_F(HardwareMoments, TheAnalogOutputIsBackWithAnotherFamily) {
  for (const int family : {0, 1, 2}) {
    dialog().setFamily(3);
    ASSERT_FALSE(dialog().optOut[3].visible());
    dialog().setFamily(family);
    EXPECT_TRUE(dialog().optOut[3].visible()) << family;
    close();
  }
}

// ---- a dialog that is answered twice

TEST_F(HardwareMoments, OkUnseenNamesTheOptionInTheStatusLine) {
  editor.lblStatus.setCaption("");
  Hardware.BusMode = 1;
  form<frmHardware>().cmdOk_Click();
  EXPECT_EQ(editor.lblStatus.caption(), "RS-485");
  EXPECT_EQ(Hardware.BusMode, 1);
}

}  // namespace

}  // namespace torvane
