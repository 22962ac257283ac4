// SPDX-License-Identifier: MIT
// The preference store: what is saved is read back, what is missing is empty.
#include "core/Registry.h"

#include <gtest/gtest.h>

#include "tests/platform/FakeHost.h"

namespace {

class RegistryTest : public ::testing::Test {
 protected:
  RegistryTest() {
    store.Appname = "Program";
    store.Section = "Persist";
    store.Key = "Baud";
  }

  FakeHost host;
  Registry store;
};

TEST_F(RegistryTest, GivesAnEmptyTextForAMissingKey) {
  store.Setting = "left over";
  store.RegGet();
  EXPECT_EQ(store.Setting, "");
}

TEST_F(RegistryTest, ReadsBackWhatItSaved) {
  store.Setting = "5";
  store.RegSave();
  store.Setting.clear();
  store.RegGet();
  EXPECT_EQ(store.Setting, "5");
}

TEST_F(RegistryTest, KeepsKeysAndSectionsApart) {
  store.Setting = "5";
  store.RegSave();
  store.Key = "Parity";
  store.RegGet();
  EXPECT_EQ(store.Setting, "");
  store.Key = "Baud";
  store.Section = "Other";
  store.RegGet();
  EXPECT_EQ(store.Setting, "");
}

TEST_F(RegistryTest, ForgetsADeletedKey) {
  store.Setting = "5";
  store.RegSave();
  store.RegDel();
  store.RegGet();
  EXPECT_EQ(store.Setting, "");
}

}  // namespace
