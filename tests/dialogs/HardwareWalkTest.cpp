// SPDX-License-Identifier: MIT
// A user who does anything in the hardware dialog, over every model and from any state of the records.
#include <random>

#include "tests/dialogs/HardwareBench.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

class HardwareWalk : public HardwareBench {
 protected:
  std::mt19937 random{1};
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }

  void touch(frmHardware& hardware) {
    CheckBox* const boxes[] = {&hardware.chkMonitor, &hardware.chkAlarmsOnly, &hardware.chkSimpleMenu,
                               &hardware.chkIsoAnalogOutput, &hardware.chkAllPartNumbers};
    const char* const typed[] = {"", "Tv8", "17", "-3", "1E999", "abc", "\xFF", "Rkw77[case]22-C2"};
    switch (pick(6)) {
      case 0:
        return boxes[pick(5)]->userClicked();
      case 1:
        return hardware.optOut[static_cast<std::size_t>(pick(8))].userClicked();
      case 2:
        return hardware.lstOption.userChose(pick(hardware.lstOption.listCount()));
      case 3:
        return hardware.cboModel.userTyped(typed[pick(8)]);
      case 4:
        return hardware.txtAddress.userTyped(typed[pick(8)]);
      default:
        return hardware.txtAddress.userLeft();
    }
  }

  void walk(int model) {
    auto& hardware = form<frmHardware>();
    hardware.cboModel.userChose(model);
    for (int step = 0; step < 30; ++step) {
      touch(hardware);
      EXPECT_LE(mostOptionsSet(hardware), 1);
      EXPECT_LE(hardware.chkMonitor.value() + hardware.chkAlarmsOnly.value() + hardware.chkSimpleMenu.value(),
                1);
      EXPECT_TRUE(hardware.cboModel.text().starts_with(BaseModel));
      if (pick(10) == 0) hardware.cboModel.userChose(pick(18));
    }
    hardware.optOut[static_cast<std::size_t>(pick(3))].userClicked();
    touch(hardware);
  }

  void answer() {
    auto& hardware = form<frmHardware>();
    const std::string shown = hardware.cboModel.text();
    const std::string before = Hardware.ModelNumber;
    const bool ok = pick(3) != 0;
    ok ? hardware.cmdOk.userClicked() : hardware.cmdCancel.userClicked();
    EXPECT_EQ(Hardware.ModelNumber, ok ? shown : before);
  }
};

TEST_F(HardwareWalk, NeverFailsAndEndsOnATabInUse) {
  for (int seed = 1; seed <= trials(1800); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    showTab(pick(12));
    host.whenShown("frmHardware", [&] {
      walk(seed % 18);
      answer();
    });
    editor.cmdCnfg.userClicked();
    EXPECT_TRUE(editor.tabBig.tabAvailable(editor.tabBig.tab())) << seed;
    EXPECT_EQ(DeviceState.IsRkw77 != False, DeviceState.DeviceClass == 0) << seed;
    EXPECT_TRUE(host.failures.empty() && host.boxes.empty()) << seed;
    EXPECT_FALSE(isLoaded<frmHardware>());
  }
}

TEST_F(HardwareWalk, ShowsWhatMakeModelGivesAfterEveryChoiceOfAnOutputOrAnOption) {
  for (int seed = 1; seed <= trials(360); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    dialog();
    walk(seed % 18);
    dialog().lstOption.setListIndex(-1);
    dialog().lstOption.setListIndex(pick(dialog().lstOption.listCount()));
    const std::string shown = number();
    EXPECT_EQ(dialog().makeModel(), shown) << seed;
    close();
  }
}

// A start from any state of the records, as a file, a probe or Fact. defaults may leave them.
class HardwareTruth : public HardwareWalk {
 protected:
  void disturb() {
    const auto& models = form<frmHardware>().cboModel.items();
    const auto any = [&] { return models[static_cast<std::size_t>(pick(18))]; };
    const std::string numbers[] = {any() + "22-C24", any() + "50-C4", "Tv(8,16,32)[case]", "", "unheard of"};
    Hardware.ModelNumber = numbers[pick(5)];
    Hardware.Out1 = Hardware.Out2 = {};
    (pick(2) == 0 ? Hardware.Out1.Analog : Hardware.Out1.SSR) = True;
    (pick(2) == 0 ? Hardware.Out2.None : Hardware.Out2.Relay) = True;
    Hardware.BusMode = static_cast<std::int16_t>(pick(2));
    const std::string bases[] = {any(), any(), "Tv[8,16,32", "Tv8\xC3\xBF", ""};
    BaseModel = bases[pick(5)];
    DeviceState.DeviceClass = pick(8) - 1;
    DeviceState.IsRkw77 = asFlag(pick(2) == 0);
    DeviceState.ModelIndex = pick(19) - 1;
    Memo[rec::menuKind].extra = static_cast<std::int16_t>(pick(3));
    Memo[rec::monitorOnly].value = static_cast<std::int16_t>(pick(2));
    if (pick(2) == 0) unload<frmHardware>();
  }

  static void expectOneTruth() {
    const bool rkw77 = namesRkw77(Hardware.ModelNumber);
    EXPECT_EQ(DeviceState.IsRkw77, asFlag(rkw77));
    EXPECT_EQ(DeviceState.DeviceClass == 0, rkw77);
    EXPECT_GE(DeviceState.DeviceClass, 0);
    EXPECT_EQ(meterKind() == kind::rkw77, rkw77);
    EXPECT_EQ(DeviceState.MenuKind, Memo[rec::menuKind].extra);
  }

  // The user presses Hardware, does whatever comes to mind, and answers with OK or Cancel.
  void session(bool ok) {
    host.whenShown("frmHardware", [=, this] {
      auto& hardware = form<frmHardware>();
      for (int step = pick(8); step > 0; --step) touch(hardware);
      if (pick(2) == 0) walk(pick(18));
      const std::string shown = hardware.cboModel.text();
      const std::string base = BaseModel;
      const auto& models = hardware.cboModel.items();
      EXPECT_NE(std::find(models.begin(), models.end(), base), models.end()) << base;
      EXPECT_TRUE(shown.starts_with(base)) << shown;
      EXPECT_EQ(hardware.cboModel.listIndex() < 0, false);
      if (!ok) return hardware.cmdCancel.userClicked();
      hardware.cmdOk.userClicked();
      EXPECT_EQ(Hardware.ModelNumber, shown);
    });
    editor.cmdCnfg.userClicked();
  }
};

TEST_F(HardwareTruth, IsWhatOkLeavesWhateverWasClicked) {
  for (int seed = 1; seed <= trials(3000); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    disturb();
    session(true);
    SCOPED_TRACE(seed);
    expectOneTruth();
    ASSERT_FALSE(HasFailure()) << seed;
  }
}

TEST_F(HardwareTruth, IsPutBackByCancel) {
  for (int seed = 1; seed <= trials(1000); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    disturb();
    const HardwareRecord before = Hardware;
    const DeviceStateRecord state = DeviceState;
    session(false);
    EXPECT_TRUE(Hardware == before) << seed;
    EXPECT_EQ(DeviceState.IsRkw77, state.IsRkw77) << seed;
    EXPECT_EQ(DeviceState.DeviceClass, state.DeviceClass) << seed;
    EXPECT_EQ(DeviceState.ModelIndex, state.ModelIndex) << seed;
    ASSERT_FALSE(HasFailure()) << seed;
  }
}

TEST_F(HardwareTruth, OfAUnitThatWasFoundGoesIntoTheNumberUnseen) {
  for (int seed = 1; seed <= trials(1000); ++seed) {
    random.seed(static_cast<unsigned>(seed));
    disturb();
    const DeviceStateRecord found = DeviceState;
    editor.SilentSetup = True;
    editor.cmdCnfg_Click();
    expectOneTruth();
    EXPECT_EQ(DeviceState.IsRkw77, found.IsRkw77) << "what the run before took the unit for";
    const bool agreed = found.DeviceClass >= 0 && (found.DeviceClass == 0) == (found.IsRkw77 != False);
    if (agreed) EXPECT_EQ(DeviceState.DeviceClass, found.DeviceClass) << seed;
    ASSERT_FALSE(HasFailure()) << seed;
  }
}

TEST_F(HardwareTruth, AfterFactoryDefaultsIsTheDefaultModel) {
  for (int row = 0; row < 18; ++row) {
    dialog().cboModel.userChose(row);
    dialog().optOut[1].userClicked();
    row % 2 == 0 ? dialog().cmdOk.userClicked() : dialog().cmdCancel.userClicked();
    editor.cmdFactoryDefaults.userClicked();
    EXPECT_EQ(number(), "Tv[8,16,32]22-C24") << row;
    EXPECT_EQ(dialog().cboModel.listIndex(), 2) << row;
    EXPECT_EQ(BaseModel, "Tv[8,16,32]") << row;
    EXPECT_EQ(dialog().lstOption.listCount(), 5) << row;
    dialog().cmdOk.userClicked();
    expectOneTruth();
    EXPECT_EQ(Hardware.ModelNumber, "Tv[8,16,32]22-C24");
    close();
  }
}

TEST_F(HardwareTruth, AnyRowCanBeChosenAlsoTheOneThatIsSelected) {
  for (int row = 0; row < 18; ++row) {
    editor.cmdFactoryDefaults.userClicked();
    dialog().cboModel.setListIndex(row);
    dialog().setFamily(row < 2 ? 1 : 0);  // as a file or a probe may leave it
    dialog().cboModel.userChose(row);
    EXPECT_EQ(DeviceState.ModelIndex, row);
    EXPECT_EQ(DeviceState.IsRkw77, asFlag(row < 2)) << row;
    EXPECT_TRUE(number().starts_with(dialog().cboModel.list(row) + "22-C")) << number();
    dialog().cmdOk.userClicked();
    expectOneTruth();
    EXPECT_TRUE(Hardware.ModelNumber.starts_with(BaseModel));
    close();
  }
}

TEST_F(HardwareTruth, ADroppedListChoosesNothing) {
  choose("Rkv16");
  dialog().chkSimpleMenu.userClicked();
  dialog().cboModel.userOpened();
  EXPECT_EQ(dialog().chkSimpleMenu.value(), 1);
  dialog().cboModel.userChose(16);
  EXPECT_EQ(dialog().chkSimpleMenu.value(), 0) << "a choice of the model clears the variants";
}

}  // namespace

}  // namespace torvane
