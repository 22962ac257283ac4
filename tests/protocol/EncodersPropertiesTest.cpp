// SPDX-License-Identifier: MIT
// What holds for every setup, legal or not, on every kind of unit.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/Memo.h"
#include "core/Model.h"
#include "core/NumberText.h"
#include "platform/RuntimeError.h"
#include "support/RandomMemo.h"
#include "tests/support/Trials.h"

namespace torvane {

namespace {

const int encoderRounds = trials(1000);  // for each kind of unit

bool isHexadecimal(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
  });
}

// Offsets have no guard for a small value, so their payload may carry into a seventh digit.
bool mayCarry(const RegisterUnderTest& reg) { return std::string(reg.index) == "03"; }

class EncodersProperties : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    freshSetup();
    chooseKind(GetParam());
  }

  std::mt19937 random{static_cast<std::uint32_t>(20260 + GetParam())};
};

TEST_P(EncodersProperties, LegalSetupsMakePayloadsOfTheRegistersWidthWithoutABox) {
  for (int round = 0; round < encoderRounds; ++round) {
    fillRandomMemo(random);
    for (const RegisterUnderTest& reg : allRegisters()) {
      const Encoded encoded = reg.make();
      EXPECT_TRUE(isHexadecimal(encoded.payload)) << reg.index << " " << encoded.payload;
      EXPECT_TRUE(encoded.payload.size() == reg.width || mayCarry(reg)) << reg.index;
      EXPECT_EQ(encoded.notice, nullptr) << reg.index;
    }
  }
}

TEST_P(EncodersProperties, PayloadAndMaskDependOnTheSetupAlone) {
  for (int round = 0; round < encoderRounds / 10; ++round) {
    fillRandomMemo(random);
    const MemoArray before = Memo;
    std::vector<std::string> payloads;
    for (const RegisterUnderTest& reg : allRegisters()) payloads.push_back(reg.make().payload);
    std::size_t i = 0;
    for (const RegisterUnderTest& reg : allRegisters()) {
      EXPECT_EQ(reg.make().payload, payloads[i++]) << reg.index;
    }
    MemoArray copy = before;
    for (int record = 0; record < MemoArray::count; ++record) EXPECT_EQ(Memo[record], copy[record]) << record;
  }
}

TEST_P(EncodersProperties, WildSetupsMakeAPayloadOrAnOverflow) {
  int payloads = 0;
  int overflows = 0;
  for (int round = 0; round < encoderRounds; ++round) {
    fillWildMemo(random);
    for (const RegisterUnderTest& reg : allRegisters()) {
      try {
        const std::string payload = reg.make().payload;
        EXPECT_TRUE(isHexadecimal(payload) || payload.starts_with('!') || payload == "Error") << payload;
        ++payloads;
      } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, static_cast<int>(Fault::overflow)) << reg.index;
        ++overflows;
      }
    }
  }
  EXPECT_GT(payloads, encoderRounds);
  EXPECT_GT(overflows, encoderRounds);
}

INSTANTIATE_TEST_SUITE_P(FiveKinds, EncodersProperties, testing::Range(0, 5));

}  // namespace

}  // namespace torvane
