// SPDX-License-Identifier: MIT
// Every record and its control, copied into each other, tab by tab.
#include "tests/editor/EditorTest.h"

namespace torvane {

namespace {

enum Field { text, value, flag, extra };

// One record: how its control shows it, and how a change by the user is committed.
struct Row {
  int index;
  const char* control;
  Field field;
  int loadTab;
  int storeTab;
  const char* from;    // what the record holds before it is shown
  const char* shown;   // what the control then shows; a list shows its index
  const char* other;   // another choice made by the user
  const char* stored;  // what the record holds when that is committed
};

// clang-format off
constexpr Row rows[] = {
    // index, control, field, shown with tab, stored with tab, record, shown, changed to, stored
    {0, "txtIDCode", text, 0, 0, "12", "0012", "7x", "7x"},
    {1, "txtSp1", text, 1, 1, "12.34", "012.3", " 5", " 5"},
    {2, "txtSp2", text, 1, 1, "-0.25", "-000.3", "", ""},
    {4, "optInType_0", flag, 2, 2, "-1", "1", "0", "0"},
    {5, "optInType_1", flag, 2, 2, "-1", "1", "0", "0"},
    {6, "optInType_2", flag, 2, 2, "-1", "1", "0", "0"},
    {7, "lstTCTypes", value, 2, 2, "9", "9", "0", "0"},
    {8, "cboRTDValue", value, 2, 2, "2", "2", "1", "1"},
    {9, "cboRTDCurves", value, 2, 2, "0", "0", "1", "1"},
    {10, "cboRTDWires", value, 2, 2, "2", "2", "1", "1"},
    {11, "lstProc", value, 2, 2, "3", "3", "-1", "-1"},
    {12, "optDpoint_0", flag, 3, 3, "-1", "1", "0", "0"},
    {13, "optDpoint_1", flag, 3, 3, "-1", "1", "0", "0"},
    {14, "optDpoint_2", flag, 3, 3, "-1", "1", "0", "0"},
    {15, "optDpoint_3", flag, 3, 3, "-1", "1", "0", "0"},
    {16, "cboTUnit", value, 3, 3, "0", "0", "1", "1"},
    {17, "txtIn1Vi", text, 3, 3, "4.25 V", "4.25 V", "6", "6"},
    {18, "txtIn2Vi", text, 3, 3, "x", "x", "20", "20"},
    {19, "txtIn1", text, 3, 3, "15.5", "0016", "abc", "abc"},
    {20, "txtRd1", text, 3, 3, "-5", "-0005", "1", "1"},
    {21, "txtIn2", text, 3, 3, "", "0000", "9", "9"},
    {22, "txtRd2", text, 3, 3, "123456", "123456", "2", "2"},
    {23, "cboAl1Ctrl", value, 4, 4, "1", "1", "0", "0"},
    {24, "cboAl1Latch", value, 4, 4, "0", "0", "1", "1"},
    {25, "cboAl1Closure", value, 4, 4, "1", "1", "0", "0"},
    {26, "cboAl1Setup", value, 4, 4, "2", "2", "1", "1"},
    {27, "chkAl1Enabled", value, 4, 4, "1", "1", "0", "0"},
    {28, "chkAl1AutoPOn", value, 4, 4, "-1", "1", "1", "1"},
    {29, "txtAl1HiSp", text, 4, 4, "7", "007.0", "8", "8"},
    {30, "txtAl1LoSp", text, 4, 4, "-7", "-007.0", "9", "9"},
    {31, "cboAl2Ctrl", value, 5, 5, "1", "1", "0", "0"},
    {32, "cboAl2Latch", value, 5, 5, "0", "0", "1", "1"},
    {33, "cboAl2Closure", value, 5, 5, "1", "1", "0", "0"},
    {34, "cboAl2Setup", value, 5, 5, "2", "2", "1", "1"},
    {35, "chkAl2Enabled", value, 5, 5, "1", "1", "0", "0"},
    {36, "txtAl2HiSp", text, 5, 5, "7", "007.0", "8", "8"},
    {37, "txtAl2LoSp", text, 5, 5, "-7", "-007.0", "9", "9"},
    {38, "chkLBAEnabled", value, 6, 6, "1", "1", "0", "0"},
    {39, "chkIDEnabled", value, 6, 6, "0", "1", "0", "0"},
    {40, "txtLBATime", text, 6, 6, "99:59", "99:59", "1", "1"},
    {41, "txtTAdjust", text, 6, 6, "1.25", "001.3", "0", "0"},
    {42, "chkOut1Self", value, 7, 7, "1", "1", "0", "0"},
    {44, "chkOut1AutoPID", value, 7, 7, "0", "0", "1", "1"},
    {45, "chkOut1Anti", value, 7, 7, "1", "1", "0", "0"},
    {46, "chkOut1Start", value, 7, 7, "1", "1", "0", "0"},
    {47, "HSOut1Low", text, 7, 7, "12.5%", "12", "99", "99"},
    {48, "HSOut1High", text, 7, 7, "0", "0", "50", "50"},
    {49, "HSOut1CycleT", value, 7, 7, "199", "199", "1", "1"},
    {50, "lstOut1DamFactor", value, 7, 7, "7", "7", "0", "0"},
    {51, "cboOut1Ctrl", value, 7, 7, "1", "1", "0", "0"},
    {52, "cboOut1Action", value, 7, 7, "1", "1", "0", "0"},
    {53, "txtOut1DeadBand", text, 7, 7, "3", "003.0", "4", "4"},
    {54, "txtOut1PB", text, 7, 7, "3.06", "003.1", "4", "4"},
    {55, "txtOut1Reset", text, 7, 7, "9 s", "9 s", "4", "4"},
    {56, "txtOut1Rate", text, 7, 7, "3.94", "003.9", "4", "4"},
    {57, "chkOut2AutoPID", value, 8, 8, "0", "0", "1", "1"},
    {58, "cboOut2Ctrl", value, 8, 8, "1", "1", "0", "0"},
    {59, "cboOut2Action", value, 8, 8, "1", "1", "0", "0"},
    {60, "HSOut2CycleT", value, 8, 8, "0", "0", "199", "199"},
    {61, "txtOut2DeadBand", text, 8, 8, "3", "003.0", "4", "4"},
    {62, "txtOut2PB", text, 8, 8, "3", "003.0", "4", "4"},
    {63, "chkRampEn", value, 9, 9, "1", "1", "0", "0"},
    {64, "chkSoakEn", value, 9, 9, "1", "1", "0", "0"},
    {65, "txtRampT", text, 9, 9, "01:30", "01:30", "1", "1"},
    {66, "txtSoakT", text, 9, 9, "", "", "00:01", "00:01"},
    {67, "optAOutV", flag, 10, 10, "-1", "1", "0", "0"},
    {68, "optAOutI", flag, 10, 10, "-1", "1", "0", "0"},
    {69, "txtAOutRd1", text, 10, 10, "1.0", "1.0", "5", "5"},
    {70, "txtAOutOut1", text, 10, 10, "2.50", "2.50", "5", "5"},
    {71, "txtAOutRd2", text, 10, 10, "77", "77", "5", "5"},
    {72, "txtAOutOut2", text, 10, 10, "20.00", "20.00", "5", "5"},
    {73, "lstFiltConst", value, 3, 3, "7", "7", "0", "0"},
    {75, "cboCommPort", value, 11, 11, "0", "0", "-1", "-1"},
    {76, "cboBaud", value, 11, 11, "6", "6", "0", "0"},
    {77, "cboParity", value, 11, 11, "2", "2", "0", "0"},
    {78, "cboData", value, 11, 11, "1", "1", "0", "0"},
    {79, "cboStop", value, 11, 11, "1", "1", "0", "0"},
    {80, "chkAnalogOutputEnabled", value, 10, 10, "1", "1", "0", "0"},
    {81, "cboNormalColor", extra, 1, 1, "2", "2", "0", "0"},
    {82, "cboAl1WhenActiveColor", extra, 4, 4, "2", "2", "1", "1"},
    {83, "cboAl2WhenActiveColor", extra, 5, 5, "0", "0", "1", "1"},
    {84, "optIDCode_0", flag, 0, 1, "-1", "1", "0", "0"},
    {85, "optIDCode_1", flag, 0, 1, "-1", "1", "0", "0"},
    {86, "optIDCode_2", flag, 0, 1, "-1", "1", "0", "0"},
    {87, "opt020mA", flag, 7, 7, "-1", "1", "0", "0"},
    {88, "opt420mA", flag, 7, 7, "-1", "1", "0", "0"},
    {89, "optRS232", flag, 11, 11, "-1", "1", "0", "0"},
    {90, "optRS485", flag, 11, 11, "-1", "1", "0", "0"},
    {91, "txtRS485Address", text, 11, 11, "17", "17", "5", "5"},
    {92, "chkSPDeviation", value, 1, 1, "1", "1", "0", "0"},
    {93, "optNoChange", flag, 11, 11, "-1", "1", "0", "0"},
    {94, "optCommunicationMode_0", flag, 11, 11, "-1", "1", "0", "0"},
    {95, "optCommunicationMode_1", flag, 11, 11, "-1", "1", "0", "0"},
    {96, "txtTCPIPAddress", text, 11, 11, "10.0.0.1", "10.0.0.1", "bridge", "bridge"},
    {97, "txtTCPPort", text, 11, 11, "2000", "2000", "x", "x"},
};
// clang-format on

// The buttons of a group, which share their truth: all others of it are cleared before one is shown.
constexpr int groups[][2] = {{4, 6}, {12, 15}, {67, 68}, {84, 86}, {87, 88}, {89, 90}, {94, 95}};

void clearGroupOf(int index) {
  for (const auto& [first, last] : groups) {
    for (int other = first; index >= first && index <= last && other <= last; ++other) Memo[other].flag = 0;
  }
  if (index == 89 || index == 90) Memo[rec::optNoChange].flag = 0;
}

void put(MemoField& record, Field field, const char* content) {
  const auto number = static_cast<std::int16_t>(field == text ? 0 : std::stoi(content));
  if (field == text) record.text = content;
  if (field == value) record.value = number;
  if (field == flag) record.flag = number;
  if (field == extra) record.extra = number;
}

MemoField with(MemoField record, Field field, const char* content) {
  put(record, field, content);
  return record;
}

std::string shownBy(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->text();
  if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return std::to_string(check->value());
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return option->value() ? "1" : "0";
  if (const auto* bar = dynamic_cast<const ScrollBar*>(&control)) return std::to_string(bar->value());
  return std::to_string(dynamic_cast<const ListControl&>(control).listIndex());
}

void change(Control& control, const char* to) {
  if (auto* box = dynamic_cast<TextBox*>(&control)) return box->setText(to);
  const int number = std::stoi(to);
  if (auto* check = dynamic_cast<CheckBox*>(&control)) return check->setValue(number);
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return option->setValue(number != 0);
  if (auto* bar = dynamic_cast<ScrollBar*>(&control)) return bar->setValue(number);
  dynamic_cast<ListControl&>(control).setListIndex(number);
}

class EveryRecord : public EditorTest, public ::testing::WithParamInterface<Row> {
 protected:
  EveryRecord() {
    Memo[rec::cboOut1Ctrl].value = 1;  // auto-tune can be chosen
    Memo[rec::cboAl1Setup].value = Memo[rec::cboAl2Setup].value = 1;
    for (std::int16_t tab = 0; tab < 12; ++tab) editor.loadMemo(tab);
    clearGroupOf(row.index);
    put(Memo[row.index], row.field, row.from);
  }

  const Row& row = GetParam();
  Control& control = named(editor, row.control);
};

INSTANTIATE_TEST_SUITE_P(OfTheSetup, EveryRecord, ::testing::ValuesIn(rows), [](const auto& test) {
  return std::to_string(test.param.index) + "_" + test.param.control;
});

TEST_P(EveryRecord, IsShownByItsOwnTabAlone) {
  const std::string before = shownBy(control);
  for (std::int16_t tab = 0; tab < 12; ++tab) {
    if (tab != row.loadTab) editor.loadMemo(tab);
  }
  EXPECT_EQ(shownBy(control), before);
  editor.loadMemo(static_cast<std::int16_t>(row.loadTab));
  EXPECT_EQ(shownBy(control), row.shown);
}

TEST_P(EveryRecord, IsCommittedByItsOwnTabAloneAndInItsFieldAlone) {
  editor.loadMemo(static_cast<std::int16_t>(row.loadTab));
  change(control, row.other);
  const MemoField before = Memo[row.index];
  for (std::int16_t tab = 0; tab < 12; ++tab) {
    if (tab != row.storeTab) editor.writeMemo(tab);
  }
  EXPECT_EQ(Memo[row.index], before);
  editor.writeMemo(static_cast<std::int16_t>(row.storeTab));
  EXPECT_EQ(Memo[row.index], with(before, row.field, row.stored));
}

TEST_P(EveryRecord, KeepsWhatItsControlShowsWhenItIsCommitted) {
  editor.loadMemo(static_cast<std::int16_t>(row.loadTab));
  editor.writeMemo(static_cast<std::int16_t>(row.storeTab));
  const MemoField committed = Memo[row.index];
  editor.loadMemo(static_cast<std::int16_t>(row.loadTab));
  editor.writeMemo(static_cast<std::int16_t>(row.storeTab));
  EXPECT_EQ(shownBy(control), row.shown);
  EXPECT_EQ(Memo[row.index], committed);
}

// Records 3, 43, 74, 98 to 110 have no control.
TEST(EveryRecordOfTheTable, StandsThereOnce) {
  std::map<int, int> times;
  for (const Row& row : rows) ++times[row.index];
  for (int index = 0; index < 98; ++index) {
    const bool reserved = index == 3 || index == 43 || index == 74;
    EXPECT_EQ(times[index], reserved ? 0 : 1) << index;
  }
}

using Reserved = EditorTest;

TEST_F(Reserved, RecordsAreLeftAloneByEveryTab) {
  const MemoField mark = {7, 8, "mark", 9};
  const int reserved[] = {3, 43, 74, 103, 104, 105, 106, 107, 108, 109, 110};
  for (int index : reserved) Memo[index] = mark;
  for (std::int16_t tab = 0; tab < 12; ++tab) editor.loadMemo(tab);
  editor.reCover();
  for (int index : reserved) EXPECT_EQ(Memo[index], mark) << index;
}

TEST_F(Reserved, TabNumbersDoNothing) {
  showTab(7);
  chooseUnit(kind::simpleMenu, false);
  editor.txtOut1DeadBand.setText("1");
  editor.txtAl1Deadband.setText("2");
  Memo[rec::txtSp1].text = "55";
  std::vector<MemoField> before;
  for (int index = 0; index < MemoArray::count; ++index) before.push_back(Memo[index]);
  const Looks looks = looksOf(editor);
  for (int tab : {-32768, -2, -1, 12, 13, 32767}) {
    editor.loadMemo(static_cast<std::int16_t>(tab));
    editor.writeMemo(static_cast<std::int16_t>(tab));
  }
  for (int index = 0; index < MemoArray::count; ++index) {
    EXPECT_EQ(Memo[index], before[static_cast<std::size_t>(index)]) << index;
  }
  EXPECT_EQ(looksOf(editor), looks);
}

}  // namespace

}  // namespace torvane
