// SPDX-License-Identifier: MIT
// The wizard at its edges: pages that work by themselves, a second run, and a unit that is what it was.
#include <algorithm>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "tests/support/WizardBench.h"

namespace torvane {

namespace {

class WizardMoments : public WizardBench {
 protected:
  void turnTo(std::int16_t number) {
    wizard().wizardPage = number;
    wizard().displayMenu();
  }
};

TEST_F(WizardMoments, APageThatWorksByItselfLeavesTheWordOfNext) {
  silenceAll();
  bridge.faults.refusals = {{"?46", "", sim::unlimited}};
  for (const std::int16_t number : Numbers{4, 6, 10}) {
    open(number != 10);
    wizard().cmdNext.setCaption("Finish");
    turnTo(number);
    EXPECT_EQ(wizard().cmdNext.caption(), "Finish") << number;
  }
}

TEST_F(WizardMoments, ThePageThatLeadsToTheTabCanBeLeftByNext) {
  open();
  wizard().cmdNext.setEnabled(false);
  turnTo(6);
  EXPECT_TRUE(wizard().cmdNext.enabled());
}

// Over either way.
TEST_F(WizardMoments, ARunBeginsWithAnEmptyBarAndNothingToPressButCancel) {
  for (const bool serial : {true, false}) {
    for (const int time : {1, 2}) {
      open(serial);
      std::vector<int> values;
      wizard().prgProgress.setValue(90);
      wizard().prgProgress.onRedraw = [&] { values.push_back(wizard().prgProgress.value()); };
      bool seen = false;
      host.expect([&] { return !values.empty() && values.back() > 0; },
                  [&] {
                    seen = true;
                    EXPECT_TRUE(wizard().prgProgress.visible());
                    EXPECT_TRUE(wizard().lblDetection.visible());
                    EXPECT_FALSE(wizard().Frame1.visible() || wizard().Frame2.visible());
                    EXPECT_FALSE(wizard().cmdNext.enabled());
                    EXPECT_FALSE(wizard().cmdBack.enabled());
                    EXPECT_TRUE(wizard().cmdCancel.enabled());
                  });
      wizard().cmdNext.setEnabled(true);
      wizard().cmdBack.setEnabled(true);
      turnTo(serial ? 4 : 10);
      EXPECT_TRUE(seen);
      ASSERT_FALSE(values.empty());
      EXPECT_EQ(*std::ranges::min_element(values), 0) << serial << time;
      wizard().prgProgress.onRedraw = {};
      EXPECT_TRUE(wizard().cmdNext.enabled());
      EXPECT_TRUE(wizard().cmdBack.enabled());
    }
  }
}

TEST_F(WizardMoments, AFullUnitIsTakenForNoSimpleOneOverEitherWay) {
  for (const bool serial : {true, false}) {
    open(serial);
    turnTo(serial ? 4 : 10);
    EXPECT_EQ(wizard().wizardResultMode, 0) << serial;
    EXPECT_TRUE(wizard().hasFoundUnit());
    EXPECT_EQ(DeviceState.MenuKind, 0);
    torvane::unload<frmWizard>();
  }
}

TEST_F(WizardMoments, WhereNothingIsFoundTheModelIsAsItWas) {
  silenceAll();
  host.bridges.clear();
  Global.FirmwareVersion = "9.9";
  BaseModel = "Tv16";
  DeviceState.DeviceClass = 4;
  DeviceState.IsGr2 = 1;
  Hardware.Out1 = {False, True, False, False, False};
  Hardware.Out2 = {False, False, True, False, False};
  const HardwareRecord hardware = Hardware;
  const DeviceStateRecord state = DeviceState;
  for (const bool serial : {true, false}) {
    open(serial);
    turnTo(serial ? 4 : 10);
    EXPECT_FALSE(wizard().hasFoundUnit());
    EXPECT_EQ(Global.FirmwareVersion, "9.9");
    EXPECT_EQ(BaseModel, "Tv16");
    EXPECT_TRUE(Hardware.Out1 == hardware.Out1 && Hardware.Out2 == hardware.Out2);
    EXPECT_EQ(DeviceState, state);
    torvane::unload<frmWizard>();
  }
}

}  // namespace

}  // namespace torvane
