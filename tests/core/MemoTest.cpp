// SPDX-License-Identifier: MIT
// The working image: the number of every record, its field and its factory setup, and its bounds.
#include "core/Memo.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

#include "platform/RuntimeError.h"

namespace torvane {

namespace {

enum Field { none, value, flag, text, extra, stored };  // stored: filled from the stored preferences

constexpr int yes = -1;
constexpr int no = 0;

struct Row {
  int index;
  int record;
  Field field;
  int number = 0;
  const char* words = "";
};

// clang-format off
constexpr Row rows[] = {
    {0, rec::txtIDCode, text, 0, "0000"},
    {1, rec::txtSp1, text, 0, "0000"},
    {2, rec::txtSp2, text, 0, "0000"},
    {3, 3, none},
    {4, rec::optInType, flag, yes},
    {5, rec::optInType + 1, flag, no},
    {6, rec::optInType + 2, flag, no},
    {7, rec::lstTCTypes, value, 1},
    {8, rec::cboRTDValue, value, 0},
    {9, rec::cboRTDCurves, value, 1},
    {10, rec::cboRTDWires, value, 0},
    {11, rec::lstProc, value, 0},
    {12, rec::optDpoint, flag, no},
    {13, rec::optDpoint + 1, flag, yes},
    {14, rec::optDpoint + 2, flag, no},
    {15, rec::optDpoint + 3, flag, no},
    {16, rec::cboTUnit, value, 1},
    {17, rec::txtIn1Vi, text, 0, "0000"},
    {18, rec::txtIn2Vi, text, 0, "0000"},
    {19, rec::txtIn1, text, 0, "1000"},
    {20, rec::txtRd1, text, 0, "1000"},
    {21, rec::txtIn2, text, 0, "9000"},
    {22, rec::txtRd2, text, 0, "9000"},
    {23, rec::cboAl1Ctrl, value, 0},
    {24, rec::cboAl1Latch, value, 1},
    {25, rec::cboAl1Closure, value, 0},
    {26, rec::cboAl1Setup, value, 0},
    {27, rec::chkAl1Enabled, value, 0},
    {28, rec::chkAl1AutoPOn, value, 0},
    {29, rec::txtAl1HiSp, text, 0, "400.0"},
    {30, rec::txtAl1LoSp, text, 0, "-100.0"},
    {31, rec::cboAl2Ctrl, value, 0},
    {32, rec::cboAl2Latch, value, 1},
    {33, rec::cboAl2Closure, value, 0},
    {34, rec::cboAl2Setup, value, 0},
    {35, rec::chkAl2Enabled, value, 0},
    {36, rec::txtAl2HiSp, text, 0, "400.0"},
    {37, rec::txtAl2LoSp, text, 0, "-100.0"},
    {38, rec::chkLBAEnabled, value, 0},
    {39, rec::chkIDEnabled, value, 1},
    {40, rec::txtLBATime, text, 0, "00:15"},
    {41, rec::txtTAdjust, text, 0, "0000"},
    {42, rec::chkOut1Self, value, 0},
    {43, 43, value, 0},
    {44, rec::chkOut1AutoPID, value, 1},
    {45, rec::chkOut1Anti, value, 0},
    {46, rec::chkOut1Start, value, 0},
    {47, rec::HSOut1Low, text, 0, "0"},
    {48, rec::HSOut1High, text, 0, "99"},
    {49, rec::HSOut1CycleT, value, 4},
    {50, rec::lstOut1DamFactor, value, 2},
    {51, rec::cboOut1Ctrl, value, 0},
    {52, rec::cboOut1Action, value, 0},
    {53, rec::txtOut1DeadBand, text, 0, "20.0"},
    {54, rec::txtOut1PB, text, 0, "20.0"},
    {55, rec::txtOut1Reset, text, 0, "0180"},
    {56, rec::txtOut1Rate, text, 0, "000.0"},
    {57, rec::chkOut2AutoPID, value, 1},
    {58, rec::cboOut2Ctrl, value, 0},
    {59, rec::cboOut2Action, value, 0},
    {60, rec::HSOut2CycleT, value, 4},
    {61, rec::txtOut2DeadBand, text, 0, "20.0"},
    {62, rec::txtOut2PB, text, 0, "20.0"},
    {63, rec::chkRampEn, value, 0},
    {64, rec::chkSoakEn, value, 0},
    {65, rec::txtRampT, text, 0, "00:15"},
    {66, rec::txtSoakT, text, 0, "00:15"},
    {67, rec::optAOutV, flag, yes},
    {68, rec::optAOutI, flag, no},
    {69, rec::txtAOutRd1, text, 0, "0000"},
    {70, rec::txtAOutOut1, text, 0, "00.00"},
    {71, rec::txtAOutRd2, text, 0, "9999"},
    {72, rec::txtAOutOut2, text, 0, "10.00"},
    {73, rec::lstFiltConst, value, 2},
    {74, 74, none},
    {75, rec::cboCommPort, stored},
    {76, rec::cboBaud, stored},
    {77, rec::cboParity, stored},
    {78, rec::cboData, stored},
    {79, rec::cboStop, stored},
    {80, rec::chkAnalogOutputEnabled, value, 0},
    {81, rec::cboNormalColor, extra, 1},
    {82, rec::cboAl1WhenActiveColor, extra, 0},
    {83, rec::cboAl2WhenActiveColor, extra, 2},
    {84, rec::optIDCode, flag, yes},
    {85, rec::optIDCode + 1, flag, no},
    {86, rec::optIDCode + 2, flag, no},
    {87, rec::opt020mA, flag, yes},
    {88, rec::opt420mA, flag, no},
    {89, rec::optRS232, flag, no},
    {90, rec::optRS485, flag, no},
    {91, rec::txtRS485Address, text, 0, "0001"},
    {92, rec::chkSPDeviation, value, 0},
    {93, rec::optNoChange, flag, yes},
    {94, rec::optCommunicationMode, stored},
    {95, rec::optCommunicationMode + 1, stored},
    {96, rec::txtTCPIPAddress, stored},
    {97, rec::txtTCPPort, stored},
    {98, rec::deviceClass, extra, -1},
    {99, rec::idFlagC, none},
    {100, rec::spareLong, none},
    {101, rec::menuKind, none},
    {102, rec::monitorOnly, none},
    {103, 103, none},
    {104, 104, none},
    {105, 105, none},
    {106, 106, none},
    {107, 107, none},
    {108, 108, none},
    {109, 109, none},
    {110, 110, none},
};
// clang-format on

const MemoField used = {77, 77, "used", 77};

// What a record holds after the defaults have been stored over `before`.
MemoField expected(const Row& row, const MemoField& before) {
  MemoField record = before;
  const auto number = static_cast<std::int16_t>(row.number);
  if (row.field == value) record.value = number;
  if (row.field == flag) record.flag = number;
  if (row.field == text) record.text = row.words;
  if (row.field == extra) record.extra = number;
  if (row.record == rec::optIDCode + 2) record.value = 0;
  return record;
}

void expectDefaultsOver(const MemoField& before) {
  for (int i = 0; i < MemoArray::count; ++i) Memo[i] = before;
  storeDefaults();
  for (const Row& row : rows) EXPECT_EQ(Memo[row.index], expected(row, before)) << row.index;
}

class MemoTest : public ::testing::Test {
 protected:
  MemoTest() { Memo.reset(); }
  ~MemoTest() override { Memo.reset(); }
};

TEST_F(MemoTest, NumbersEveryRecordByItsControl) {
  ASSERT_EQ(std::size(rows), static_cast<std::size_t>(MemoArray::count));
  int index = 0;
  for (const Row& row : rows) {
    EXPECT_EQ(row.index, index++);
    EXPECT_EQ(row.record, row.index);
  }
}

TEST_F(MemoTest, StoresEveryDefaultInAnEmptyImage) { expectDefaultsOver({}); }

TEST_F(MemoTest, StoresEveryDefaultOverAUsedImageAndLeavesTheRest) { expectDefaultsOver(used); }

TEST_F(MemoTest, LeavesTheStoredPreferencesAlone) {
  std::set<int> left;
  for (const Row& row : rows) {
    if (row.field == stored) left.insert(row.index);
  }
  EXPECT_EQ(left, (std::set<int>{75, 76, 77, 78, 79, 94, 95, 96, 97}));
}

TEST_F(MemoTest, SetsOneButtonOfEachGroup) {
  storeDefaults();
  const auto chosen = [](int first, int count) {
    std::string states;
    for (int i = first; i < first + count; ++i) states += Memo[i].flag == yes ? '1' : '0';
    return states;
  };
  EXPECT_EQ(chosen(rec::optInType, 3), "100");
  EXPECT_EQ(chosen(rec::optDpoint, 4), "0100");
  EXPECT_EQ(chosen(rec::optAOutV, 2), "10");
  EXPECT_EQ(chosen(rec::optIDCode, 3), "100");
  EXPECT_EQ(chosen(rec::opt020mA, 2), "10");
  EXPECT_EQ(chosen(rec::optRS232, 2), "00");
}

TEST_F(MemoTest, IsEmptyAfterAReset) {
  for (int i = 0; i < MemoArray::count; ++i) Memo[i] = used;
  Memo.reset();
  for (int i = 0; i < MemoArray::count; ++i) EXPECT_EQ(Memo[i], MemoField()) << i;
}

TEST_F(MemoTest, KeepsItsRecordsApart) {
  for (int i = 0; i < MemoArray::count; ++i) Memo[i].value = static_cast<std::int16_t>(i);
  for (int i = 0; i < MemoArray::count; ++i) EXPECT_EQ(Memo[i].value, i);
}

TEST_F(MemoTest, RefusesAnIndexOutsideItsBounds) {
  for (int index : {-1, 111, 112, 32767, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    try {
      Memo[index].value = 1;
      ADD_FAILURE() << index;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number, 9);
      EXPECT_STREQ(error.what(), "Subscript out of range");
    }
  }
  EXPECT_EQ(&Memo[0] + MemoArray::count - 1, &Memo[110]);
}

}  // namespace

}  // namespace torvane
