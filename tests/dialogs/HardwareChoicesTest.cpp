// SPDX-License-Identifier: MIT
// Choices in the hardware dialog: the part number and the other choices.
#include "platform/RuntimeError.h"
#include "tests/dialogs/HardwareBench.h"

namespace torvane {

namespace {

using Lines = std::vector<std::string>;

using Number = HardwareBench;
using FamilyChoice = HardwareBench;
using Variant = HardwareBench;
using Address = HardwareBench;

Lines modelsOf(bool ofRkw77) {
  Lines models = listedModels();
  std::erase_if(models, [&](const std::string& model) { return namesRkw77(model) != ofRkw77; });
  return models;
}
const Lines others = modelsOf(false);
const Lines rkw77 = modelsOf(true);

TEST_F(Number, HoldsADigitForEachOutput) {
  const char* digits1[] = {"2", "3", "4", "5"};
  const char* digits2[] = {"2", "3", "4", "0"};
  choose("Rkw77[case]");
  for (std::size_t one = 0; one < 4; ++one) {
    for (std::size_t two = 0; two < 4; ++two) {
      dialog().optOut[one].userClicked();
      dialog().optOut[4 + two].userClicked();
      EXPECT_EQ(number(), std::string("Rkw77[case]") + digits1[one] + digits2[two] + "-C2");
    }
  }
}

TEST_F(Number, EndsOnTheOptionOfAModelOutsideTheRkw77Line) {
  for (const std::string& model : others) {
    choose(model);
    const char* suffixes[] = {"-C24", "-C24", "-EIS", "-EI", "-C4EI"};
    for (int row = 0; row < 5; ++row) {
      dialog().lstOption.userChose(row);
      EXPECT_EQ(number(), std::string(model) + "22" + suffixes[row]);
    }
  }
}

TEST_F(Number, EndsOnTheOptionOfTheRkw77Line) {
  for (const std::string& model : rkw77) {
    choose(model);
    dialog().lstOption.userChose(1);
    EXPECT_EQ(number(), std::string(model) + "22-C4");
    dialog().lstOption.userChose(0);
    EXPECT_EQ(number(), std::string(model) + "22-C2");
  }
}

TEST_F(Number, OfThePaperIsReached) {
  choose("Rkv16");
  dialog().optOut[1].userClicked();
  dialog().optOut[5].userClicked();
  EXPECT_EQ(number(), "Rkv1633-C24");
}

TEST_F(Number, FollowsTheChosenModelAndNotesIt) {
  for (int row = 0; row < 18; ++row) {
    dialog().cboModel.userChose(row);
    EXPECT_EQ(DeviceState.ModelIndex, row);
    EXPECT_EQ(BaseModel, dialog().cboModel.list(row));
    EXPECT_TRUE(number().starts_with(BaseModel + "22-C")) << number();
  }
}

TEST_F(Number, CantBeTyped) {
  for (const char* typed : {"", "Tv8", "Tv[8,16,32]22-C2", "Tv[8,16,32]22-C244", "\xC3\xA4\xFF"}) {
    dialog().cboModel.userTyped(typed);
    EXPECT_EQ(number(), "Tv[8,16,32]22-C24");
  }
}

TEST_F(Number, IsNotBuiltOnceTheDialogIsAnswered) {
  auto& hardware = dialog();
  hardware.cmdCancel_Click();
  EXPECT_EQ(hardware.makeModel(), "");
  hardware.setFamily(0);
  EXPECT_EQ(DeviceState.IsRkw77, False);
  EXPECT_EQ(hardware.lstOption.listCount(), 5);
  hardware.optOut[1].setValue(true);
  EXPECT_EQ(hardware.cboModel.text(), "Tv[8,16,32]22-C24");
}

TEST_F(Number, IsWhatMakeModelGivesAtEveryOpening) {
  DeviceState.DeviceClass = 1;
  for (std::int32_t index : {-1, 0, 7}) {
    DeviceState.ModelIndex = index;
    for (const std::string& model : others) {
      Hardware.ModelNumber = std::string(model) + "22";
      EXPECT_EQ(number(), dialog().makeModel());
      close();
    }
  }
}

TEST_F(Number, DoesNotHeedShowAllModels) {
  const Lines before = dialog().cboModel.items();
  dialog().chkAllPartNumbers.userClicked();
  EXPECT_EQ(dialog().cboModel.items(), before);
  EXPECT_EQ(number(), "Tv[8,16,32]22-C24");
}

TEST_F(FamilyChoice, OfTheRkw77LineHasNoVariantsAndTwoOptions) {
  for (const std::string& model : rkw77) {
    choose(model);
    EXPECT_EQ(DeviceState.IsRkw77, True);
    EXPECT_TRUE(dialog().optOut[3].visible() && dialog().optOut[7].visible());
    EXPECT_EQ(dialog().lstOption.items(), (Lines{"RS-232", "RS-485"}));
    for (const CheckBox* box : {&dialog().chkMonitor, &dialog().chkAlarmsOnly, &dialog().chkSimpleMenu,
                                &dialog().chkIsoAnalogOutput}) {
      EXPECT_FALSE(box->enabled()) << box->name();
      EXPECT_EQ(box->value(), 0) << box->name();
    }
  }
}

TEST_F(FamilyChoice, OfAnyOtherHasVariantsAndFiveOptions) {
  for (const std::string& model : others) {
    choose("Rkw77[case]");
    choose(model);
    EXPECT_EQ(DeviceState.IsRkw77, False);
    EXPECT_TRUE(dialog().optOut[3].visible());
    EXPECT_FALSE(dialog().optOut[7].visible());
    EXPECT_EQ(dialog().lstOption.items(),
              (Lines{"RS-232", "RS-485", "(EIS)Ethernet RS-232", "(EI)Ethernet RS-485", "EI RS - 485"}));
    for (const CheckBox* box : {&dialog().chkMonitor, &dialog().chkAlarmsOnly, &dialog().chkSimpleMenu}) {
      EXPECT_TRUE(box->enabled()) << box->name();
    }
    EXPECT_FALSE(dialog().chkIsoAnalogOutput.enabled());
  }
}

TEST_F(FamilyChoice, KeepsTheKindOfOptionOnTheWayToTheRkw77Line) {
  struct Case {
    int before;
    int after;
  };
  for (const auto& [before, after] : {Case{-1, 1}, {0, 0}, {1, 1}, {2, 0}, {3, 1}, {4, 1}}) {
    choose("Tv8");
    dialog().lstOption.setListIndex(before);
    choose("Rkw77[case]");
    EXPECT_EQ(dialog().lstOption.listIndex(), after) << before;
  }
}

TEST_F(FamilyChoice, KeepsTheRowOfTheOptionOnTheWayToAnyOther) {
  for (int row : {0, 1}) {
    choose("Rkw77[case]");
    dialog().lstOption.userChose(row);
    choose("Tv8");
    EXPECT_EQ(dialog().lstOption.listIndex(), row);
  }
}

TEST_F(FamilyChoice, OutsideTheRkw77LineTurnsNoneIntoSsrAfterTheNumber) {
  choose("Rkw77[case]");
  dialog().optOut[7].userClicked();
  EXPECT_EQ(number(), "Rkw77[case]20-C2");
  choose("Tv8");
  EXPECT_EQ(output2(), 4);
  EXPECT_FALSE(dialog().optOut[7].visible());
  EXPECT_EQ(number(), "Tv820-C24");
  dialog().optOut[1].userClicked();
  EXPECT_EQ(number(), "Tv832-C24");
}

TEST_F(FamilyChoice, KeepsTheOutputsThatEveryLineHas) {
  for (const int output : {4, 5, 6}) {
    choose("Rkw77[case]");
    dialog().optOut[static_cast<std::size_t>(output)].userClicked();
    choose("Tv8");
    EXPECT_EQ(output2(), output);
  }
}

TEST_F(FamilyChoice, ClearsAlarmsOnlyAndSimpleMenu) {
  for (CheckBox* variant : {&dialog().chkAlarmsOnly, &dialog().chkSimpleMenu}) {
    variant->setValue(1);
    choose(variant == &dialog().chkAlarmsOnly ? "Tv8" : "Tv16");
    EXPECT_EQ(variant->value(), 0) << variant->name();
  }
}

TEST_F(FamilyChoice, KeepsAMonitorButNotOnTheRkw77Line) {
  choose("Tv8");
  dialog().chkMonitor.userClicked();
  choose("Tv16");
  EXPECT_EQ(dialog().chkMonitor.value(), 1);
  EXPECT_EQ(number(), "Tv1600-C24");
  EXPECT_FALSE(dialog().optOut[0].enabled());
  choose("Rkw77[case]");
  EXPECT_EQ(dialog().chkMonitor.value(), 0);
  EXPECT_TRUE(dialog().optOut[0].enabled());
  EXPECT_EQ(number(), "Rkw77[case]22-C2");
}

TEST_F(FamilyChoice, ThreeHasTwoOptionsAndNoAnalogOutput) {
  for (int row : {0, 1}) {
    dialog().lstOption.setListIndex(row);
    dialog().setFamily(3);
    EXPECT_EQ(dialog().lstOption.items(), (Lines{"RS-232", "RS-485"}));
    EXPECT_EQ(dialog().lstOption.listIndex(), row);
    EXPECT_FALSE(dialog().optOut[3].visible());
    EXPECT_FALSE(dialog().optOut[7].visible());
    EXPECT_EQ(DeviceState.IsRkw77, False);
    dialog().setFamily(1);
  }
  dialog().lstOption.setListIndex(3);
  EXPECT_THROW(dialog().setFamily(3), RuntimeError);
}

TEST_F(FamilyChoice, TwoIsLikeOne) {
  dialog().setFamily(2);
  EXPECT_EQ(dialog().lstOption.listCount(), 5);
  EXPECT_TRUE(dialog().optOut[3].visible());
}

TEST_F(Variant, TakesThePlaceOfAnyOther) {
  CheckBox* const variants[] = {&dialog().chkMonitor, &dialog().chkAlarmsOnly, &dialog().chkSimpleMenu};
  for (CheckBox* first : variants) {
    for (CheckBox* second : variants) {
      if (first == second) continue;
      for (CheckBox* each : variants) each->setValue(0);
      first->userClicked();
      second->userClicked();
      for (CheckBox* each : variants) EXPECT_EQ(each->value(), each == second ? 1 : 0) << each->name();
      EXPECT_EQ(number(), second == variants[0] ? "Tv[8,16,32]00-C24" : "Tv[8,16,32]22-C24");
    }
  }
}

TEST_F(Variant, CanBeTakenBack) {
  for (CheckBox* variant : {&dialog().chkMonitor, &dialog().chkAlarmsOnly, &dialog().chkSimpleMenu}) {
    variant->userClicked();
    variant->userClicked();
    EXPECT_EQ(variant->value(), 0);
    EXPECT_EQ(number(), "Tv[8,16,32]22-C24");
    for (std::size_t output = 0; output < 8; ++output) EXPECT_TRUE(dialog().optOut[output].enabled());
  }
}

TEST_F(Variant, OfAMonitorHasTwoNoughtsWhateverItsOutputs) {
  dialog().optOut[2].userClicked();
  dialog().optOut[6].userClicked();
  dialog().chkMonitor.userClicked();
  EXPECT_EQ(number(), "Tv[8,16,32]00-C24");
  for (std::size_t output = 0; output < 7; ++output) EXPECT_FALSE(dialog().optOut[output].enabled());
  EXPECT_EQ(output1(), 2);
  dialog().chkMonitor.userClicked();
  EXPECT_EQ(number(), "Tv[8,16,32]44-C24");
}

TEST_F(Variant, OfAMonitorHasNoAnalogOutput) {
  dialog().optOut[3].userClicked();
  dialog().chkMonitor.userClicked();
  EXPECT_EQ(output1(), -1);
  dialog().chkMonitor.userClicked();
  EXPECT_EQ(number(), "Tv[8,16,32]52-C24");
}

TEST_F(Address, BelongsToTheRowsWithABus) {
  for (int row : {1, 0, 3, 2, 4, -1}) {
    dialog().lstOption.setListIndex(row);
    EXPECT_EQ(dialog().txtAddress.enabled(), row != 0 && row != 2) << row;
  }
}

TEST_F(Address, IsRepairedByEnterAndByLeavingTheBox) {
  struct Case {
    const char* typed;
    const char* shown;
  };
  dialog().lstOption.userChose(1);
  for (const auto& [typed, shown] : {Case{"abc", "0000"},
                                     {"", "0000"},
                                     {"0", "0000"},
                                     {"7", "0007"},
                                     {"7.9", "0007"},
                                     {"-5", "0005"},
                                     {"-0.9", "0000"},
                                     {"199", "0199"},
                                     {"199.9", "0199"},
                                     {"200", "0199"},
                                     {"99999999999999", "0199"},
                                     {"&H10", "0016"},
                                     {"12abc", "0012"},
                                     {"1E999", "0001"},
                                     {"\xFF\xC3\xA4", "0000"}}) {
    for (bool enter : {true, false}) {
      dialog().txtAddress.userTyped(typed);
      enter ? dialog().txtAddress.userPressedEnter() : dialog().txtAddress.userLeft();
      EXPECT_EQ(dialog().txtAddress.text(), shown) << typed;
    }
  }
  EXPECT_TRUE(host.boxes.empty());
}

}  // namespace

}  // namespace torvane
