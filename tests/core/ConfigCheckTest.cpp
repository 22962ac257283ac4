// SPDX-License-Identifier: MIT
// What is a setup, and how long its BaseModel is: saved by every model, with tails after it, cut off,
// damaged.
#include "core/ConfigCheck.h"

#include <gtest/gtest.h>

#include <random>

#include "core/ConfigFile.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "core/PartNumber.h"
#include "tests/support/Bench.h"

namespace torvane {

namespace {

const std::vector<std::string> models = listedModels();

class ConfigChecked : public ::testing::Test {
 protected:
  ConfigChecked() { resetSharedState(); }
  ~ConfigChecked() override { resetSharedState(); }

  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
  std::string digits() { return std::to_string(pick(10000)); }

  // A state of the program as its own parts leave it.
  void fillSetup() {
    const int model = pick(static_cast<int>(models.size()));
    const std::string& name = models[static_cast<std::size_t>(model)];
    BaseModel = pick(10) == 0 ? "" : name;
    for (int shorter = pick(3); shorter > 0 && !BaseModel.empty(); --shorter) BaseModel.pop_back();
    Hardware.ModelNumber = name + digits();
    const bool fresh = pick(8) == 0;
    DeviceState = {.IdFlagE = static_cast<std::int16_t>(fresh ? 0 : 2 * pick(2) - 1),
                   .IdFlagC = static_cast<std::int16_t>(pick(2)),
                   .DeviceClass = model < 2 ? 0 : pick(7) - 1,
                   .SpareLong = pick(3) - 1,
                   .IsRkw77 = asFlag(model < 2),
                   .IsGr2 = fresh ? 0 : 2 * pick(2) - 1,
                   .IsHyt = fresh ? 0 : 2 * pick(2) - 1,
                   .MenuKind = pick(3),
                   .ClassSeen = asFlag(pick(2) == 0),
                   .AnalogFound = asFlag(pick(2) == 0),
                   .ModelIndex = pick(19) - 1};
    for (int record = 0; record < recordsStored; ++record) Memo[record] = {};
    for (int record = 0; record < 60; ++record) {
      Memo[pick(98)] = {
          .value = static_cast<std::int16_t>(pick(20) - 1), .flag = asFlag(pick(2) == 0), .text = digits()};
    }
    Memo[rec::deviceClass].extra = static_cast<std::int16_t>(DeviceState.DeviceClass);
    Memo[rec::idFlagC].extra = DeviceState.IdFlagC;
    Memo[rec::spareLong].text = std::to_string(DeviceState.SpareLong);
    Memo[rec::menuKind].extra = static_cast<std::int16_t>(DeviceState.MenuKind);
    Memo[rec::monitorOnly].value = static_cast<std::int16_t>(pick(2));
  }
  std::string written() {
    return configModelPart(36000.5) + configSetupPart(static_cast<std::int16_t>(pick(12)), 36000.5);
  }
  // How many bytes stand before the records after the second stamp.
  static std::size_t olderSize() {
    std::size_t size = 8 + 26 + Hardware.ModelNumber.size() + 2 + 8;
    for (int record = 0; record < recordsBeforeStamp; ++record) size += 8 + Memo[record].text.size();
    return size;
  }

  VirtualHost host;
  std::mt19937 random{20};
};

TEST_F(ConfigChecked, FindsTheBaseModelOfEverySetup) {
  for (int round = 0; round < 10000; ++round) {
    fillSetup();
    const ConfigCheck check = examineConfiguration(written());
    ASSERT_EQ(check.fault, "") << round;
    ASSERT_EQ(check.baseModel, BaseModel) << round;
    ASSERT_FALSE(check.older);
  }
}

TEST_F(ConfigChecked, FindsTheBaseModelBeforeTheTailOfALongerFile) {
  for (int round = 0; round < 3000; ++round) {
    fillSetup();
    std::string longer = written();
    const std::string sooner = longer;
    for (int more = pick(3); more > 0; --more) longer += sooner.substr(static_cast<std::size_t>(pick(900)));
    fillSetup();
    std::string file = written();
    if (longer.size() > file.size()) file += longer.substr(file.size());
    const ConfigCheck check = examineConfiguration(file);
    ASSERT_EQ(check.fault, "") << round;
    ASSERT_EQ(check.baseModel, BaseModel) << round;
  }
}

TEST_F(ConfigChecked, FindsTheBaseModelBeforeATailOfAnyLength) {
  for (int tail = 0; tail < 200; ++tail) {
    for (const char filler : {'\0', '\xFF', 'x', '\x01'}) {
      fillSetup();
      const ConfigCheck check =
          examineConfiguration(written() + std::string(static_cast<std::size_t>(tail), filler));
      ASSERT_EQ(check.fault, "") << tail;
      ASSERT_EQ(check.baseModel, BaseModel) << tail;
    }
  }
}

// A file that was opened out of step and saved again holds a name with rests of numbers after it.
TEST_F(ConfigChecked, TakesANameWithARestAtTheEndOfTheFile) {
  fillSetup();
  BaseModel = "Tv8\xC3\xBF\xC3\xBF";
  DeviceState.IsRkw77 = 0x0100;
  EXPECT_EQ(examineConfiguration(written()).baseModel, "Tv8\xFF\xFF");
}

TEST_F(ConfigChecked, TakesAnOlderFileThatEndsAfterItsSecondStamp) {
  fillSetup();
  const ConfigCheck check = examineConfiguration(written().substr(0, olderSize()));
  EXPECT_EQ(check.fault, "");
  EXPECT_TRUE(check.older);
  EXPECT_EQ(check.baseModel, "");
}

TEST_F(ConfigChecked, IsNoSetupWhenItIsCutOffAnywhereElse) {
  fillSetup();
  const std::string file = written();
  for (std::size_t size = 0; size < file.size(); ++size) {
    if (size == olderSize()) continue;
    EXPECT_NE(examineConfiguration(std::string_view(file).substr(0, size)).fault, "") << size;
  }
}

TEST_F(ConfigChecked, SaysWhatIsWrong) {
  fillSetup();
  const std::string file = written();
  const std::size_t tabAt = olderSize() - 10;
  const auto faultWith = [&](std::size_t at, char byte) {
    std::string damaged = file;
    damaged[at] = byte;
    return examineConfiguration(damaged).fault;
  };
  EXPECT_EQ(examineConfiguration("").fault, "ends in the middle of the setup.");
  EXPECT_EQ(faultWith(0, '\x7F'), "has two time stamps that differ.");
  EXPECT_EQ(faultWith(9, '\x7F'), "holds a text that is longer than the file.");
  EXPECT_EQ(faultWith(tabAt, 12), "was saved on a tab that there is not.");
  EXPECT_EQ(faultWith(tabAt + 1, '\xFF'), "was saved on a tab that there is not.");
  EXPECT_EQ(faultWith(file.size() - deviceStateSize + 4, 77), "says nothing certain of the kind of unit.");
}

TEST_F(ConfigChecked, TakesAnyBytes) {
  fillSetup();
  const std::string good = written();
  for (int round = 0; round < 5000; ++round) {
    std::string file = good;
    for (int change = pick(12); change >= 0; --change)
      file[static_cast<std::size_t>(pick(static_cast<int>(file.size())))] = static_cast<char>(random());
    if (pick(3) == 0) file.resize(static_cast<std::size_t>(pick(static_cast<int>(file.size()))));
    const ConfigCheck check = examineConfiguration(file);
    EXPECT_LE(check.baseModel.size(), 255U);
    if (check.fault.empty()) EXPECT_GE(file.size(), 8U + 26U + 103U * 8U * 9U / 10U);
  }
}

// What the check promises of a reader: in step, whatever the program held before.
TEST_F(ConfigChecked, GivesAReaderTheLengthThatBringsItInStep) {
  for (int round = 0; round < 2000; ++round) {
    fillSetup();
    const DeviceStateRecord state = DeviceState;
    const std::string file = written();
    resetSharedState();
    BaseModel = host.fromCodePage(examineConfiguration(file).baseModel);
    readConfiguration(file);
    ASSERT_EQ(DeviceState.DeviceClass, state.DeviceClass) << round;
    ASSERT_EQ(DeviceState.IsRkw77, state.IsRkw77) << round;
    ASSERT_EQ(DeviceState.MenuKind, state.MenuKind) << round;
    ASSERT_EQ(DeviceState.AnalogFound, state.AnalogFound) << round;
    ASSERT_EQ(DeviceState.ModelIndex, state.ModelIndex) << round;
  }
}

}  // namespace

}  // namespace torvane
