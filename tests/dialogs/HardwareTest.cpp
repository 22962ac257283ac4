// SPDX-License-Identifier: MIT
// The answer to the hardware dialog: OK, Cancel, and OK without a dialog.
#include "tests/dialogs/HardwareBench.h"

#include <random>

#include "tests/support/RunBench.h"

namespace torvane {

namespace {

class Ok : public HardwareBench {
 protected:
  void ok() { dialog().cmdOk.userClicked(); }
};
class Cancel : public HardwareBench {};
using Silent = HardwareBench;

bool sameFit(const OutputFit& a, const OutputFit& b) {
  return a.SSR == b.SSR && a.Relay == b.Relay && a.Pulse == b.Pulse && a.Analog == b.Analog &&
         a.None == b.None;
}

bool sameRecord(const HardwareRecord& a, const HardwareRecord& b) {
  return a.ModelNumber == b.ModelNumber && sameFit(a.Out1, b.Out1) && sameFit(a.Out2, b.Out2) &&
         a.BusMode == b.BusMode && a.BusAddress == b.BusAddress;
}

TEST_F(Ok, WritesTheOutputs) {
  for (std::size_t one = 0; one < 4; ++one) {
    for (std::size_t two = 0; two < 4; ++two) {
      choose("Rkw77[case]");
      dialog().optOut[one].userClicked();
      dialog().optOut[4 + two].userClicked();
      ok();
      EXPECT_TRUE(sameFit(Hardware.Out1,
                          {asFlag(one == 0), asFlag(one == 1), asFlag(one == 2), asFlag(one == 3), False}));
      EXPECT_TRUE(sameFit(Hardware.Out2,
                          {asFlag(two == 0), asFlag(two == 1), asFlag(two == 2), False, asFlag(two == 3)}));
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
  EXPECT_TRUE(sameRecord(Hardware, before));
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
  EXPECT_TRUE(sameRecord(Hardware, before));
  EXPECT_EQ(Global.DeviceSpecified, True);
  EXPECT_EQ(DeviceState.MenuKind, 2);
  EXPECT_EQ(host.events, (std::vector<std::string>{"centre frmHardware", "release frmHardware"}));
}

using AddressOfARun = RunBench;

TEST_F(AddressOfARun, IsShownInTheDialogThatTheFittingTakes) {
  chooseSetup();
  auto& editor = form<frmBigFolder>();
  editor.optRS485.setValue(true);
  editor.txtRS485Address.setText("0117");
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 117);
  EXPECT_EQ(form<frmHardware>().txtAddress.text(), "0117");
  editor.SilentSetup = True;
  editor.cmdCnfg_Click();
  EXPECT_EQ(Hardware.BusAddress, 117);
  EXPECT_FALSE(isLoaded<frmHardware>());
}

TEST_F(AddressOfARun, IsLeftAloneOnRs232) {
  chooseSetup();
  form<frmBigFolder>().optRS232.setValue(true);
  Hardware.BusAddress = 3;
  runWrite();
  EXPECT_EQ(Hardware.BusAddress, 3);
  EXPECT_FALSE(isLoaded<frmHardware>());
}

// The head of the run buttons.
class RunHead : public Bench {
 protected:
  static constexpr const char* warning =
      "Warning: please specify your device\rbefore continuing.\rUse Setup button from main screen...";

  void pressSerialOfWrite() {
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdSerial.userClicked(); });
  }
  void leaveWrite() {
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdCancel.userClicked(); });
  }
};

TEST_F(RunHead, StopsAWriteWithoutAModelAndStaysInTheChooser) {
  auto& editor = start();
  host.expectBox(warning);
  pressSerialOfWrite();
  host.whenShown("frmHardware", [] { form<frmHardware>().cmdCancel.userClicked(); });
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(host.boxes.back().icon, Icon::information);
  EXPECT_TRUE(unit.commands().empty());
  EXPECT_FALSE(isLoaded<frmHardware>());
  EXPECT_EQ(Global.DeviceSpecified, False);
}

TEST_F(RunHead, StopsAReadWithoutAModelAndStaysInTheChooser) {
  auto& editor = start();
  host.expectBox(warning);
  host.whenShown("frmRead", [] { form<frmRead>().cmdSerial.userClicked(); });
  host.whenShown("frmHardware", [] { form<frmHardware>().userClosed(); });
  host.whenShown("frmRead", [] { form<frmRead>().OKButton.userClicked(); });
  editor.cmdOpen.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_TRUE(unit.commands().empty());
}

TEST_F(RunHead, GoesOnOnceAModelIsChosenAndAsksNoMore) {
  auto& editor = start();
  host.expectBox(warning);
  pressSerialOfWrite();
  host.whenShown("frmHardware", [&] {
    editor.tabBig.setTab(1);
    editor.txtSp1.setText("042.0");
    form<frmHardware>().cmdOk.userClicked();
  });
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_EQ(Memo[rec::txtSp1].text, "042.0");
  EXPECT_GT(unit.commands().size(), 30U);
  pressSerialOfWrite();
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_TRUE(host.scriptDone());
  EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(RunHead, LeavesATabThatTheDialogHasTakenOutOfUse) {
  auto& editor = start();
  editor.tabBig.setTab(9);
  host.expectBox(warning);
  pressSerialOfWrite();
  host.whenShown("frmHardware", [] {
    form<frmHardware>().chkAlarmsOnly.userClicked();
    form<frmHardware>().cmdCancel.userClicked();
  });
  leaveWrite();
  editor.cmdWrite.userClicked();
  EXPECT_EQ(editor.tabBig.tab(), 5);
}

// A user who does anything in the dialog, over every model.
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
  for (int seed = 1; seed <= 1800; ++seed) {
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

TEST_F(HardwareWalk, ShowsWhatMakeModelGivesBehindEveryChoiceOfAnOutputOrAnOption) {
  for (int seed = 1; seed <= 360; ++seed) {
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
  for (int seed = 1; seed <= 3000; ++seed) {
    random.seed(static_cast<unsigned>(seed));
    disturb();
    session(true);
    SCOPED_TRACE(seed);
    expectOneTruth();
    ASSERT_FALSE(HasFailure()) << seed;
  }
}

TEST_F(HardwareTruth, IsPutBackByCancel) {
  for (int seed = 1; seed <= 1000; ++seed) {
    random.seed(static_cast<unsigned>(seed));
    disturb();
    const HardwareRecord before = Hardware;
    const DeviceStateRecord state = DeviceState;
    session(false);
    EXPECT_TRUE(sameRecord(Hardware, before)) << seed;
    EXPECT_EQ(DeviceState.IsRkw77, state.IsRkw77) << seed;
    EXPECT_EQ(DeviceState.DeviceClass, state.DeviceClass) << seed;
    EXPECT_EQ(DeviceState.ModelIndex, state.ModelIndex) << seed;
    ASSERT_FALSE(HasFailure()) << seed;
  }
}

TEST_F(HardwareTruth, OfAUnitThatWasFoundGoesIntoTheNumberUnseen) {
  for (int seed = 1; seed <= 1000; ++seed) {
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

TEST_F(HardwareTruth, BehindFactoryDefaultsIsTheDefaultModel) {
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
