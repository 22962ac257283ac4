// SPDX-License-Identifier: MIT
// The model record: the kind of unit in every combination, and what is forgotten and repaired by a reset.
#include "core/Model.h"

#include <gtest/gtest.h>

#include "core/Memo.h"

namespace torvane {

namespace {

class ModelTest : public ::testing::Test {
 protected:
  ModelTest() { clear(); }
  ~ModelTest() override { clear(); }

 private:
  static void clear() {
    Memo.reset();
    resetModel();
  }
};

struct KindCase {
  std::int16_t menuKind;
  std::int16_t monitor;
  int expected;  // on the line of its own
  int expectedOnRkw77;
};

TEST_F(ModelTest, TellsTheKindOfUnitInEveryCombination) {
  const KindCase cases[] = {{0, 0, 0, 4}, {0, 1, 3, 4}, {0, 2, 0, 4},  {0, -1, 0, 4},
                            {1, 0, 1, 4}, {1, 1, 1, 4}, {1, 2, 1, 4},  {1, -1, 1, 4},
                            {2, 0, 2, 4}, {2, 1, 3, 4}, {2, 2, 2, 4},  {2, -1, 2, 4},
                            {3, 0, 0, 4}, {3, 1, 3, 4}, {-1, 0, 0, 4}, {-1, 1, 3, 4}};
  for (const auto& [menuKind, monitor, expected, expectedOnRkw77] : cases) {
    Memo[rec::menuKind].extra = menuKind;
    Memo[rec::monitorOnly].value = monitor;
    DeviceState.IsRkw77 = False;
    EXPECT_EQ(meterKind(), expected) << menuKind << " " << monitor;
    DeviceState.IsRkw77 = True;
    EXPECT_EQ(meterKind(), expectedOnRkw77) << menuKind << " " << monitor;
  }
}

TEST_F(ModelTest, TellsTheKindFromTheImageAlone) {
  DeviceState.MenuKind = 2;
  Memo[rec::menuKind].value = 2;
  Memo[rec::monitorOnly].extra = 1;
  EXPECT_EQ(meterKind(), kind::fullController);
}

TEST_F(ModelTest, ForgetsWhatIdentificationFoundOut) {
  DeviceState = {1, 1, 3, 123456, True, 1, 1, 2, True, True, True, 5};
  resetDeviceState();
  EXPECT_EQ(DeviceState.IdFlagE, -1);
  EXPECT_EQ(DeviceState.IdFlagC, 0);
  EXPECT_EQ(DeviceState.DeviceClass, -1);
  EXPECT_EQ(DeviceState.SpareLong, 123456);
  EXPECT_EQ(DeviceState.IsRkw77, False);
  EXPECT_EQ(DeviceState.IsGr2, -1);
  EXPECT_EQ(DeviceState.IsHyt, -1);
  EXPECT_EQ(DeviceState.MenuKind, 0);
  EXPECT_EQ(DeviceState.ClassSeen, False);
  EXPECT_EQ(DeviceState.SpareFlag, False);
  EXPECT_EQ(DeviceState.AnalogFound, False);
  EXPECT_EQ(DeviceState.ModelIndex, -1);
}

TEST_F(ModelTest, LeavesNumberAndBusAloneOnAReset) {
  Hardware.ModelNumber = "Tv823-C4EI";
  Hardware.BusMode = 3;
  Hardware.BusAddress = 17;
  BaseModel = "Tv8";
  Memo[rec::menuKind].extra = 2;
  resetDeviceState();
  EXPECT_EQ(Hardware.ModelNumber, "Tv823-C4EI");
  EXPECT_EQ(Hardware.BusMode, 3);
  EXPECT_EQ(Hardware.BusAddress, 17);
  EXPECT_EQ(BaseModel, "Tv8");
  EXPECT_EQ(Memo[rec::menuKind].extra, 2);
}

void expectFit(const OutputFit& fit, const OutputFit& expected) {
  EXPECT_EQ(fit.SSR, expected.SSR);
  EXPECT_EQ(fit.Relay, expected.Relay);
  EXPECT_EQ(fit.Pulse, expected.Pulse);
  EXPECT_EQ(fit.Analog, expected.Analog);
  EXPECT_EQ(fit.None, expected.None);
}

TEST_F(ModelTest, TurnsAnAnalogFirstOutputIntoSsr) {
  Hardware.Out1 = {False, False, False, True, False};
  resetDeviceState();
  expectFit(Hardware.Out1, {True, False, False, False, False});
  expectFit(Hardware.Out2, {});
}

TEST_F(ModelTest, TurnsAMissingSecondOutputIntoSsr) {
  Hardware.Out2 = {False, False, False, False, True};
  resetDeviceState();
  expectFit(Hardware.Out2, {True, False, False, False, False});
  expectFit(Hardware.Out1, {});
}

TEST_F(ModelTest, RepairsAMissingSecondOutputOnlyIfItIsExactlyTrue) {
  Hardware.Out2.None = 1;
  resetDeviceState();
  expectFit(Hardware.Out2, {False, False, False, False, 1});
}

TEST_F(ModelTest, TakesAnyAnalogFirstOutputForTrue) {
  Hardware.Out1.Analog = 1;
  resetDeviceState();
  expectFit(Hardware.Out1, {True, False, False, False, False});
}

TEST_F(ModelTest, LeavesEveryOtherFitAlone) {
  Hardware.Out1 = {False, True, True, False, True};
  Hardware.Out2 = {False, True, True, True, False};
  resetDeviceState();
  expectFit(Hardware.Out1, {False, True, True, False, True});
  expectFit(Hardware.Out2, {False, True, True, True, False});
}

TEST_F(ModelTest, BeginsWithNothingKnown) {
  EXPECT_EQ(DeviceState.DeviceClass, 0);
  EXPECT_EQ(Hardware.BusMode, 0);
  EXPECT_EQ(Hardware.BusAddress, 0);
  EXPECT_EQ(Hardware.ModelNumber, "");
  EXPECT_EQ(meterKind(), kind::fullController);
}

TEST_F(ModelTest, HoldsBooleansAsSixteenBits) {
  EXPECT_EQ(asFlag(true), -1);
  EXPECT_EQ(asFlag(false), 0);
}

}  // namespace

}  // namespace torvane
