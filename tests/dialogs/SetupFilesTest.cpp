// SPDX-License-Identifier: MIT
// A setup that outlives its program: saved and opened after a restart, and kept by a program that had to end.
#include "dialogs/SetupFiles.h"

#include <random>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "dialogs/frmHardware.h"
#include "tests/support/Bench.h"
#include "tests/support/RandomMemo.h"

namespace torvane {

namespace {

constexpr const char* path = "/home/setup.cfg";
constexpr const char* rescue = "/data/rescue.cfg";

class Restart : public Bench {
 protected:
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }

  // The program ends and is started again.
  frmBigFolder& restart() {
    unloadAllForms();
    resetSharedState();
    return start();
  }
  void save() {
    host.chosenFiles = {path};
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdFile.userClicked(); });
    host.whenShown("frmWrite", [] { form<frmWrite>().cmdCancel.userClicked(); });
    form<frmBigFolder>().cmdWrite.userClicked();
  }
  // The user opens the file and confirms the model that the dialog shows.
  void open() {
    host.chosenFiles = {path};
    host.whenShown("frmRead", [] { form<frmRead>().cmdFile.userClicked(); });
    host.whenShown("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
    form<frmBigFolder>().cmdOpen.userClicked();
  }
  // Any unit that the hardware dialog can tell of.
  void chooseUnit(int model, int variant) {
    host.whenShown("frmHardware", [=, this] {
      auto& dialog = form<frmHardware>();
      dialog.cboModel.userChose(model);
      dialog.optOut[static_cast<std::size_t>(pick(4))].userClicked();
      dialog.optOut[4 + static_cast<std::size_t>(pick(4))].userClicked();
      dialog.lstOption.userChose(pick(dialog.lstOption.listCount()));
      dialog.txtAddress.userTyped(std::to_string(pick(200)));
      CheckBox* const variants[] = {nullptr, &dialog.chkMonitor, &dialog.chkAlarmsOnly,
                                    &dialog.chkSimpleMenu};
      if (variants[variant] != nullptr) variants[variant]->userClicked();
      dialog.cmdOk.userClicked();
    });
    form<frmBigFolder>().cmdCnfg.userClicked();
  }
  static void fillTabs(std::mt19937& random) {
    fillRandomMemo(random);
    for (std::int16_t tab = 0; tab < 12; ++tab) form<frmBigFolder>().loadMemo(tab);
  }

  std::mt19937 random{3};
};

struct Unit {
  int kind = meterKind();
  HardwareRecord hardware = Hardware;
  DeviceStateRecord state = DeviceState;
  std::string baseModel = BaseModel;
  std::vector<MemoField> model;

  Unit() {
    for (int record = 94; record < 103; ++record) model.push_back(Memo[record]);
  }
};

void expectSame(const Unit& now, const Unit& before) {
  EXPECT_EQ(now.kind, before.kind);
  EXPECT_EQ(now.hardware.ModelNumber, before.hardware.ModelNumber);
  EXPECT_EQ(now.hardware.BusMode, before.hardware.BusMode);
  EXPECT_EQ(now.hardware.BusAddress, before.hardware.BusAddress);
  EXPECT_EQ(now.hardware.Out1.Analog, before.hardware.Out1.Analog);
  EXPECT_EQ(now.hardware.Out1.Relay, before.hardware.Out1.Relay);
  EXPECT_EQ(now.hardware.Out2.None, before.hardware.Out2.None);
  EXPECT_EQ(now.hardware.Out2.Relay, before.hardware.Out2.Relay);
  EXPECT_EQ(now.baseModel, before.baseModel);
  EXPECT_EQ(now.state.IdFlagE, before.state.IdFlagE);
  EXPECT_EQ(now.state.IdFlagC, before.state.IdFlagC);
  EXPECT_EQ(now.state.DeviceClass, before.state.DeviceClass);
  EXPECT_EQ(now.state.SpareLong, before.state.SpareLong);
  EXPECT_EQ(now.state.IsRkw77, before.state.IsRkw77);
  EXPECT_EQ(now.state.IsGr2, before.state.IsGr2);
  EXPECT_EQ(now.state.IsHyt, before.state.IsHyt);
  EXPECT_EQ(now.state.MenuKind, before.state.MenuKind);
  EXPECT_EQ(now.state.AnalogFound, before.state.AnalogFound);
  EXPECT_EQ(now.model, before.model);
}

TEST_F(Restart, OpensEveryUnitAsTheOneThatWasSaved) {
  for (int round = 0; round < 18 * 4 * 4; ++round) {
    SCOPED_TRACE(round);
    random.seed(static_cast<unsigned>(round));
    restart();
    chooseUnit(round % 18, round / 18 % 4);
    fillTabs(random);
    host.files.clear();
    save();
    const Unit before;
    restart();
    if (pick(2) == 0) chooseUnit(pick(18), pick(4));
    open();
    expectSame(Unit(), before);
    ASSERT_TRUE(host.boxes.empty()) << host.boxes.front().text;
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(Restart, OverALongerFileOpensTheNewOne) {
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    random.seed(static_cast<unsigned>(round));
    host.files.clear();
    restart();
    chooseUnit(pick(18), pick(4));
    save();
    host.files[path] += std::string(static_cast<std::size_t>(pick(100)), '\0') + host.files[path];
    chooseUnit(pick(18), pick(4));
    save();
    const Unit before;
    restart();
    open();
    expectSame(Unit(), before);
    ASSERT_TRUE(host.boxes.empty()) << host.boxes.front().text;
    ASSERT_FALSE(HasFailure());
  }
}

// ---- a program that had to end

class Rescue : public Restart {
 protected:
  void end() {
    host.beforeTheEnd = keepForRescue;
    host.fail("Overflow");
  }
};

TEST_F(Rescue, KeepsTheSetupOfTheWindowAndOffersItOnce) {
  start().txtSp1.setText("123.4");
  end();
  EXPECT_EQ(host.lastWords.back(),
            std::string("Your setup is kept and is offered at the next start:\r") + rescue);
  auto& editor = restart();
  host.expectBox("The program ended with an error.", Answer::yes);
  host.whenShown("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
  offerRescue();
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
  EXPECT_EQ(Global.FileName, "/data/rescued-1.cfg");
  EXPECT_EQ(Global.WarningsOff, False);
  EXPECT_TRUE(host.files.contains("/data/rescued-1.cfg"));
  EXPECT_FALSE(host.files.contains(rescue));
  offerRescue();
  EXPECT_EQ(host.boxes.size(), 1U);
}

TEST_F(Rescue, StaysUnderAnotherNameWhenTheUserWantsItNot) {
  start().txtSp1.setText("123.4");
  end();
  auto& editor = restart();
  host.expectBox("Open it now?", Answer::no);
  offerRescue();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  EXPECT_TRUE(host.files.contains("/data/rescued-1.cfg"));
}

TEST_F(Rescue, LosesNoneOfThoseThatWereKept) {
  start();
  std::vector<std::string> kept;
  for (const char* setPoint : {"000.0", "007.0", "008.0", "009.0"}) {
    form<frmBigFolder>().txtSp1.setText(setPoint);
    end();
    kept.push_back(host.files.at(rescue));
  }
  for (std::size_t number = 1; number < kept.size(); ++number) {
    EXPECT_EQ(host.files.at("/data/rescued-" + std::to_string(number) + ".cfg"), kept[number - 1]) << number;
    EXPECT_NE(kept[number], kept[number - 1]);
  }
  EXPECT_EQ(host.files.size(), kept.size());
}

TEST_F(Rescue, NeitherFailsNorPromisesWhereNothingCanBeKept) {
  end();
  EXPECT_EQ(host.lastWords.back(), "") << "there is no window yet";
  start();
  host.diskFault = "No space left on device";
  end();
  EXPECT_EQ(host.lastWords.back(), "");
  EXPECT_EQ(host.failures.size(), 2U);
}

TEST_F(Rescue, IsOfferedUnderItsOwnNameWhereItCannotBeRenamed) {
  start().txtSp1.setText("123.4");
  end();
  auto& editor = restart();
  host.diskFault = "Permission denied";
  host.expectBox(rescue, Answer::yes);
  host.whenShown("frmHardware", [] { form<frmHardware>().cmdOk.userClicked(); });
  offerRescue();
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
}

TEST_F(Rescue, OffersNothingAfterAnOrderlyEnd) {
  start();
  restart();
  offerRescue();
  EXPECT_TRUE(host.boxes.empty());
}

}  // namespace

}  // namespace torvane
