// SPDX-License-Identifier: MIT
// The preference store: what is saved is read back, what is missing is empty.
#include "core/Registry.h"

#include <gtest/gtest.h>

#include "tests/support/Alone.h"
#include "tests/support/FakeSettings.h"

namespace torvane {

namespace {

class RegistryTest : public ::testing::Test {
 protected:
  RegistryTest() {
    store.Appname = "Program";
    store.Section = "Persist";
    store.Key = "Baud";
  }

  void save(const std::string& setting) {
    store.Setting = setting;
    store.RegSave();
  }
  std::string read(const std::string& key) {
    store.Key = key;
    store.RegGet();
    return store.Setting;
  }

  Alone<Settings, FakeSettings> host;
  Registry store;
};

TEST_F(RegistryTest, IsEmptyAtFirst) {
  const Registry fresh;
  EXPECT_EQ(fresh.Appname + fresh.Section + fresh.Key + fresh.Setting, "");
}

TEST_F(RegistryTest, GivesAnEmptyTextForAMissingKey) {
  store.Setting = "left over";
  EXPECT_EQ(read("Baud"), "");
}

TEST_F(RegistryTest, ReadsBackWhatItSaved) {
  for (const char* setting : {"5", "True", "", " with blanks ", "192.0.2.254", "a/b=c;\"d\"", "\xC3\xA4"}) {
    save(setting);
    store.Setting = "left over";
    EXPECT_EQ(read("Baud"), setting);
  }
}

TEST_F(RegistryTest, SavesOverWhatWasThere) {
  save("5");
  save("6");
  EXPECT_EQ(read("Baud"), "6");
}

TEST_F(RegistryTest, StandsAtApplicationSectionAndKey) {
  save("5");
  EXPECT_EQ(host.settings, (std::map<std::string, std::string>{{"Program/Persist/Baud", "5"}}));
}

TEST_F(RegistryTest, KeepsKeysSectionsAndApplicationsApart) {
  save("5");
  EXPECT_EQ(read("Parity"), "");
  store.Section = "Other";
  EXPECT_EQ(read("Baud"), "");
  store.Section = "Persist";
  store.Appname = "Other";
  EXPECT_EQ(read("Baud"), "");
  store.Appname = "Program";
  EXPECT_EQ(read("Baud"), "5");
}

TEST_F(RegistryTest, IsReadByAnotherStoreOfTheSameProgram) {
  save("5");
  Registry other = store;
  other.Setting.clear();
  other.RegGet();
  EXPECT_EQ(other.Setting, "5");
}

TEST_F(RegistryTest, ForgetsADeletedKeyAlone) {
  save("5");
  store.Key = "Parity";
  save("1");
  store.RegDel();
  EXPECT_EQ(read("Parity"), "");
  EXPECT_EQ(read("Baud"), "5");
}

TEST_F(RegistryTest, MayDeleteWhatIsNotThere) {
  store.RegDel();
  EXPECT_EQ(read("Baud"), "");
}

TEST_F(RegistryTest, ReadingChangesNothing) {
  save("5");
  const auto before = host.settings;
  read("Baud");
  EXPECT_EQ(host.settings, before);
}

}  // namespace

}  // namespace torvane
