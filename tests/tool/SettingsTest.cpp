// SPDX-License-Identifier: MIT
// Settings by name: shown, and changed through the rules of entry.
#include "tool/Settings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "core/Memo.h"
#include "support/RandomMemo.h"
#include "support/Trials.h"
#include "tool/RandomSetups.h"
#include "tool/SettingList.h"
#include "tool/Setup.h"

namespace torvane {

namespace {

using tool::NamedSetting;
using tool::Setting;
using tool::SettingForm;

class ToolSettings : public testing::Test {
 protected:
  ToolSettings() {
    beAtTheTool();
    writeRandomSetup(random, path);
  }

  std::vector<NamedSetting> shown(const std::string& file) {
    tool::loadSetup(file);
    return tool::settingsOfRecords();
  }

  std::vector<tool::RepairedSetting> set(const std::vector<tool::SettingChange>& changes) {
    tool::SetupDesk desk;
    desk.open(path);
    auto repaired = tool::applyChanges(desk.editor, changes);
    desk.save(changed);
    return repaired;
  }

  // "error | hint"
  std::string complaintOf(const std::vector<tool::SettingChange>& changes) {
    try {
      set(changes);
    } catch (const tool::Problem& problem) {
      return std::string(problem.what()) + " | " + problem.hint;
    }
    return "none";
  }

  static std::string valueOf(const std::vector<NamedSetting>& settings, const std::string& section,
                             const std::string& name) {
    const auto found = std::ranges::find_if(
        settings, [&](const NamedSetting& one) { return one.section == section && one.name == name; });
    return found == settings.end() ? "none" : found->value;
  }

  std::mt19937 random{20};
  QTemporaryDir folder;
  std::string path = folder.filePath("a.cfg").toStdString();
  std::string changed = folder.filePath("b.cfg").toStdString();
};

TEST_F(ToolSettings, NamesAreUniqueWithTheirSection) {
  std::set<std::string> names;
  for (int round = 0; round < trials(40); ++round) {
    names.clear();
    writeRandomSetup(random, path);
    for (const auto& [section, name, value] : shown(path))
      EXPECT_TRUE(names.insert(tool::bare(section) + '/' + tool::bare(name)).second) << section << name;
    EXPECT_GT(names.size(), 60U);
  }
}

TEST_F(ToolSettings, SetToWhatIsPrintedNothingChanges) {
  for (int round = 0; round < trials(15) && !HasFailure(); ++round) {
    writeRandomSetup(random, path);
    const std::vector<NamedSetting> before = shown(path);
    std::vector<tool::SettingChange> changes;
    for (const auto& [section, name, value] : before) {
      changes.push_back({section + '/' + name, value});
      if (between(random, 0, 9) == 0) {
        EXPECT_TRUE(set({changes.back()}).empty());
        EXPECT_EQ(shown(changed), before) << section << '/' << name << '=' << value;
      }
    }
    EXPECT_TRUE(set(changes).empty());
    EXPECT_EQ(shown(changed), before) << round;
  }
}

std::string anyValue(const Setting& setting, std::mt19937& random) {
  if (setting.form == SettingForm::tick) return between(random, 0, 1) == 0 ? "off" : "yes";
  if (!setting.words.empty())
    return setting
        .words[static_cast<std::size_t>(between(random, 0, static_cast<int>(setting.words.size()) - 1))];
  if (setting.name.find("Time") != std::string::npos || setting.name.find("Value") != std::string::npos)
    return std::to_string(between(random, 0, 120)) + ":" + std::to_string(between(random, 0, 70));
  const std::string number = std::to_string(between(random, -3000, 12000));
  return between(random, 0, 1) == 0 ? number : number + "." + std::to_string(between(random, 0, 99));
}

// What was set is what is shown, or the reply says what became of it.
TEST_F(ToolSettings, AnyValueIsShownAsItWasSetOrToldAsRepaired) {
  for (int round = 0; round < trials(400) && !HasFailure(); ++round) {
    writeRandomSetup(random, path);
    tool::loadSetup(path);
    const std::vector<Setting> all = tool::allSettings();
    const Setting& one = all[static_cast<std::size_t>(between(random, 0, static_cast<int>(all.size()) - 1))];
    if (one.form == SettingForm::made) continue;
    const std::string given = anyValue(one, random);
    const auto repaired = set({{one.section + '/' + one.name, given}});
    const std::string value = valueOf(shown(changed), one.section, one.name);
    if (!repaired.empty()) {
      EXPECT_EQ(repaired.front().value, value) << one.section << '/' << one.name << '=' << given;
      EXPECT_EQ(repaired.front().given, given.substr(0, given.find_last_not_of(' ') + 1));
      continue;
    }
    if (one.form == SettingForm::tick || one.words.data() == std::data(choices::truths)) continue;
    if (one.form == SettingForm::text || one.form == SettingForm::position) {
      EXPECT_EQ(std::stod(value), std::stod(given)) << one.section << '/' << one.name;
    } else {
      EXPECT_EQ(tool::bare(value), tool::bare(given)) << one.section << '/' << one.name;
    }
  }
}

TEST_F(ToolSettings, InWhateverOrderTheyAreGiven) {
  std::vector<tool::SettingChange> changes{{"Decimal Point", "XX.XX"},
                                           {"Signal", "process"},
                                           {"Setpoint 1", "12.34"},
                                           {"alarm 1 / HIGH setpoint", "-5.01"},
                                           {"Out 1/Prop Band", "3.25"}};
  for (int round = 0; round < trials(20); ++round) {
    writeRandomSetup(random, path);
    std::ranges::shuffle(changes, random);
    EXPECT_TRUE(set(changes).empty());
    const auto settings = shown(changed);
    EXPECT_EQ(valueOf(settings, "Set Points", "Set-Point 1"), "12.34");
    EXPECT_EQ(valueOf(settings, "Alarm 1", "High Set-Point"), "-05.01");
  }
}

TEST_F(ToolSettings, NoSuchNameOrValueTellsTheNearest) {
  EXPECT_EQ(complaintOf({{"Setpont 1", "1"}}),
            "there is no setting \"Setpont 1\" | Did you mean Set-Point 1, Set-Point 2 or Output 1?");
  EXPECT_EQ(complaintOf({{"Control", "Absolute"}}),
            "there are several settings \"Control\" | It may be Alarm 1/Control, Alarm 2/Control.");
  EXPECT_EQ(complaintOf({{"Alarm 1/Control", "Absolut"}}),
            "Alarm 1/Control can't be \"Absolut\" | Did you mean Absolute?");
  EXPECT_EQ(complaintOf({{"Signal", "x"}}), "Input/Signal can't be \"x\" | It may be TC, RTD, Process.");
  EXPECT_NE(complaintOf({{"Setpoint 1", "abc"}}).find("Set Points/Set-Point 1 can't be \"abc\""),
            std::string::npos);
  EXPECT_NE(complaintOf({{"Input Type", "RTD"}}).find("It is made of Signal"), std::string::npos);
  EXPECT_NE(complaintOf({{"a", "1"}, {"Setpoint 1", "1"}, {"setpoint1", "2"}}).find("is given twice"),
            std::string::npos);
}

TEST_F(ToolSettings, TicksHaveFiveWordsForEachState) {
  for (const char* word : {"on", "YES", "True", "1", "Enabled"}) {
    EXPECT_TRUE(set({{"Out 1/Anti-Integeral", word}}).empty());
    EXPECT_EQ(valueOf(shown(changed), "Out 1", "Anti-Integeral"), "Enabled") << word;
  }
  for (const char* word : {"off", "no", "false", "0", "disabled"}) {
    EXPECT_TRUE(set({{"out1/4-20ma enabled", word}}).empty());
    EXPECT_EQ(valueOf(shown(changed), "Out 1", "4-20mA Enabled"), "False") << word;
  }
}

}  // namespace

}  // namespace torvane
