// SPDX-License-Identifier: MIT
// The .cfg file byte for byte, whole and cut off anywhere, and whatever bytes somebody calls one.
#include "core/ConfigFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "core/Memo.h"
#include "core/Model.h"
#include "platform/CodePage.h"
#include "tests/support/Alone.h"
#include "tests/support/Bench.h"
#include "tests/support/FakeFiles.h"

namespace torvane {

namespace {

using std::string_literals::operator""s;

// "0A 0b" and blanks to bytes.
std::string hex(std::string_view listing) {
  std::string bytes;
  std::string digits;
  for (const char c : listing) {
    if (c != ' ') digits += c;
    if (digits.size() < 2) continue;
    bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
    digits.clear();
  }
  return bytes;
}

std::string emptyRecords(int count) { return std::string(static_cast<std::size_t>(8 * count), '\0'); }

constexpr const char* stampListing = "00 00 00 00 10 94 E1 40";  // 36000.5: half a second past ten

class ConfigFile : public ::testing::Test {
 protected:
  ConfigFile() { resetSharedState(); }
  ~ConfigFile() override { resetSharedState(); }

  static std::string write(std::int16_t tab = 0, double stamp = 36000.5) {
    return configModelPart(stamp) + configSetupPart(tab, stamp);
  }

  Alone<Files, FakeFiles> host;
};

struct Everything {
  HardwareRecord hardware = Hardware;
  DeviceStateRecord deviceState = DeviceState;
  std::vector<MemoField> memo;
  std::string baseModel = BaseModel;

  Everything() {
    for (int record = 0; record < 103; ++record) memo.push_back(Memo[record]);
  }
};

void expectSame(const Everything& now, const Everything& before) {
  EXPECT_EQ(now.memo, before.memo);
  EXPECT_EQ(now.hardware.ModelNumber, before.hardware.ModelNumber);
  EXPECT_EQ(configModelPart(0), [&] {
    Hardware = before.hardware;
    return configModelPart(0);
  }());
}

// The setup of the listing below: every kind of field holds something.
void setUpListing() {
  Hardware.ModelNumber = "Rkv1633-C24";
  Hardware.Out1 = {.SSR = False, .Relay = True, .Pulse = False, .Analog = False, .None = False};
  Hardware.Out2 = {.SSR = False, .Relay = False, .Pulse = True, .Analog = False, .None = True};
  Hardware.BusMode = 1;
  Hardware.BusAddress = 199;
  Memo[0].text = "0000";
  Memo[1].text = "-12.5";
  Memo[4].flag = True;
  Memo[7].value = 11;
  Memo[81].extra = 2;
  Memo[93].flag = 5;  // no flag of ours, and kept as it is
  Memo[96].text = "größe";
  Memo[102].value = 1;
  Memo[103].text = "is not stored";
  BaseModel = "Rkv16";
  DeviceState = {.IdFlagE = -1,
                 .IdFlagC = 2,
                 .DeviceClass = 1,
                 .SpareLong = -2,
                 .IsRkw77 = 0,
                 .IsGr2 = 0x01020304,
                 .IsHyt = -1,
                 .MenuKind = 2,
                 .ClassSeen = -1,
                 .SpareFlag = 7,
                 .AnalogFound = -1,
                 .ModelIndex = 17};
}

std::string listing() {
  return hex(stampListing)                                // first stamp
         + hex("0B 00 52 6B 76 31 36 33 33 2D 43 32 34")  // ModelNumber "Rkv1633-C24"
         + hex("00 00 FF FF 00 00 00 00 00 00")           // Out1: relay
         + hex("00 00 00 00 FF FF 00 00 FF FF")           // Out2: pulse, and none
         + hex("01 00 C7 00")                             // BusMode, BusAddress
         + hex("00 00 00 00 04 00 30 30 30 30 00 00")     // Memo[0] "0000"
         + hex("00 00 00 00 05 00 2D 31 32 2E 35 00 00")  // Memo[1] "-12.5"
         + emptyRecords(2)                                // 2, 3
         + hex("00 00 FF FF 00 00 00 00")                 // Memo[4] flag
         + emptyRecords(2)                                // 5, 6
         + hex("0B 00 00 00 00 00 00 00")                 // Memo[7] value
         + emptyRecords(73)                               // 8 to 80
         + hex("00 00 00 00 00 00 02 00")                 // Memo[81] extra
         + emptyRecords(11)                               // 82 to 92
         + hex("00 00 05 00 00 00 00 00")                 // Memo[93] flag
         + hex("0A 00")                                   // tab on top
         + hex(stampListing)                              // second stamp
         + emptyRecords(2)                                // 94, 95
         + hex("00 00 00 00 05 00 67 72 F6 DF 65 00 00")  // Memo[96] in the code page
         + emptyRecords(5)                                // 97 to 101
         + hex("01 00 00 00 00 00 00 00")                 // Memo[102] value
         + hex("52 6B 76 31 36")                          // BaseModel
         + hex("FF FF 02 00")                             // IdFlagE, IdFlagC
         + hex("01 00 00 00 FE FF FF FF")                 // DeviceClass, SpareLong
         + hex("00 00")                                   // IsRkw77
         + hex("04 03 02 01 FF FF FF FF 02 00 00 00")     // IsGr2, IsHyt, MenuKind
         + hex("FF FF 07 00 FF FF")                       // ClassSeen, SpareFlag, AnalogFound
         + hex("11 00 00 00");                            // ModelIndex
}

// ---- writing

TEST_F(ConfigFile, IsWrittenAsItsListingSays) {
  setUpListing();
  EXPECT_EQ(write(10), listing());
}

TEST_F(ConfigFile, HasTheLengthOfItsFieldsAndTexts) {
  setUpListing();
  const std::size_t texts = 4 + 5 + 5;
  EXPECT_EQ(write().size(), 8 + 26 + 11 + 103 * 8 + texts + 2 + 8 + 5 + 36);
}

TEST_F(ConfigFile, PutsAQuestionMarkForASignThatTheCodePageLacks) {
  Memo[0].text = "5 Ω";
  EXPECT_EQ(write().substr(34 + 4, 5), std::string("\x03\x00"
                                                   "5 ?",
                                                   5));
}

TEST_F(ConfigFile, CutsATextThatTheCountCannotTell) {
  Memo[0].text = std::string(70000, 'x');
  const std::string file = write();
  EXPECT_EQ(file.substr(34 + 4, 2), "\xFF\xFF");
  Memo[0].text.clear();
  readConfiguration(file);
  EXPECT_EQ(Memo[0].text.size(), 65535U);
  EXPECT_EQ(Memo[1].text, "");
}

// ---- reading

TEST_F(ConfigFile, IsReadAsItsListingSays) {
  setUpListing();
  Everything expected;
  expected.baseModel = "Rkv1";
  resetSharedState();
  BaseModel = "12345";
  const ConfigFrame frame = readConfiguration(listing());
  EXPECT_EQ(frame.tab, 10);
  EXPECT_EQ(frame.firstStamp, 36000.5);
  EXPECT_EQ(frame.secondStamp, 36000.5);
  EXPECT_EQ(BaseModel, "Rkv1") << "a text without a NUL loses its last character";
  BaseModel = "Rkv16";
  EXPECT_EQ(write(10), listing());
}

TEST_F(ConfigFile, ComesBackShorterByOneCharacterOfBaseModelEachTime) {
  BaseModel = factoryBaseModel;
  for (const char* shorter : {"Tv[8,16,32", "Tv[8,16,3", "Tv[8,16,"}) {
    readConfiguration(write());
    EXPECT_EQ(BaseModel, shorter);
  }
}

struct ModelCase {
  const char* name;
  std::string inMemory;
  std::string inFile;  // BaseModel and what follows it
  std::string result;
};

TEST_F(ConfigFile, TakesAsManyBytesOfBaseModelAsThereAreCharactersInMemory) {
  const std::string state(36, '\x01');
  const ModelCase cases[] = {
      {"the same length", "12345", "Rkv16" + state, "Rkv1"},
      {"a shorter one in the file", "1234567", std::string("Rkv16\x00\x01", 7) + state, "Rkv16"},
      {"up to the first zero byte", "1234567", std::string("Rkv\x00\x00\x00\x00", 7) + state, "Rkv"},
      {"a longer one in the file", "123", "Rkv16" + state, "Rk"},
      {"one that begins with a zero byte", "123", std::string("\x00\x41\x42", 3) + state,
       std::string("\0AB", 3)},
      {"one character and a zero byte", "123", std::string("A\x00\x42", 3) + state, "A"},
      {"a single character", "1", "R" + state, "R"},
      {"none", "", "Rkv16" + state, ""},
  };
  const std::string empty = write();
  const std::string front = empty.substr(0, empty.size() - 36);
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    BaseModel = each.inMemory;
    readConfiguration(front + each.inFile);
    EXPECT_EQ(BaseModel, each.result);
  }
}

TEST_F(ConfigFile, ReadsTheDeviceStateOutOfStepAfterABaseModelOfAnotherLength) {
  BaseModel = "Rkv16";
  DeviceState = {.IdFlagE = -1, .IdFlagC = 2, .DeviceClass = 1};
  const std::string file = write();
  BaseModel = "Rkv16D";  // one byte of IdFlagE goes into the text
  readConfiguration(file);
  EXPECT_EQ(BaseModel, "Rkv16");
  EXPECT_EQ(DeviceState.IdFlagE, 0x02FF);
  EXPECT_EQ(DeviceState.IdFlagC, 0x0100);
}

TEST_F(ConfigFile, CountsTheCharactersOfBaseModelInTheCodePage) {
  BaseModel = "Gr\u00F6\u00DF\u0065";  // five characters
  const std::string file = write();
  readConfiguration(file);
  EXPECT_EQ(BaseModel, "Größ");
  BaseModel = "Größe";
  EXPECT_EQ(write(), file);
}

TEST_F(ConfigFile, AnOlderOneLeavesWhatItDoesNotHold) {
  setUpListing();
  const std::string file = write();
  const std::size_t older = file.size() - 36 - 5 - (9 * 8 + 5);
  Memo[102].value = 1;
  Memo[102].extra = 3;
  Memo[102].text = "x";
  readConfiguration(file.substr(0, older));
  EXPECT_EQ(Memo[102].value, 1);
  EXPECT_EQ(Memo[102].extra, 3);
  EXPECT_EQ(Memo[102].text, "") << "texts are emptied first";
  EXPECT_EQ(BaseModel, "Rkv1") << "what is in memory loses its last character";
  EXPECT_EQ(DeviceState.ModelIndex, 17);
}

TEST_F(ConfigFile, CutOffAnywhereIsReadUpToThereAndKeepsTheRest) {
  setUpListing();
  const std::string file = write(10);
  const std::size_t stateAt = file.size() - 36;
  const std::size_t lastRecordAt = stateAt - 5 - 8;
  for (std::size_t size = 0; size <= file.size(); ++size) {
    resetSharedState();
    BaseModel = "12345";
    DeviceState.ModelIndex = 99;
    for (int record = 0; record < 103; ++record) {
      Memo[record] = {.value = 77, .flag = 78, .text = "old", .extra = 79};
    }
    const ConfigFrame frame = readConfiguration(std::string_view(file).substr(0, size));
    SCOPED_TRACE(size);
    EXPECT_EQ(frame.firstStamp, size < 8 ? 0 : 36000.5);
    EXPECT_EQ(Memo[102].value, size < lastRecordAt + 2 ? 77 : 1);
    EXPECT_EQ(Memo[102].flag, size < lastRecordAt + 4 ? 78 : 0);
    EXPECT_EQ(Memo[102].text, "");
    const std::size_t ofModel = std::clamp(size, stateAt - 5, stateAt) - (stateAt - 5);
    EXPECT_EQ(BaseModel, ("Rkv16"s.substr(0, ofModel) + "12345"s.substr(ofModel)).substr(0, 4));
    EXPECT_EQ(DeviceState.ModelIndex, size < file.size() ? 99 : 17);
  }
}

TEST_F(ConfigFile, DoesNotBelieveACountThatPointsPastTheEnd) {
  const std::string stamp = hex(stampListing);
  readConfiguration(stamp +
                    "\xFF\xFF"
                    "Tv8");
  EXPECT_EQ(Hardware.ModelNumber, "Tv8");
  Memo[0].text = "old";
  readConfiguration(stamp + "\xFF\xFF");
  EXPECT_EQ(Hardware.ModelNumber, "");
  EXPECT_EQ(Memo[0].text, "");
}

TEST_F(ConfigFile, KeepsANulInATextAndAStampThatIsNoNumber) {
  Memo[5].text = std::string("a\0b", 3);
  const std::string file = write(3, std::numeric_limits<double>::quiet_NaN());
  Memo[5].text.clear();
  const ConfigFrame frame = readConfiguration(file);
  EXPECT_EQ(Memo[5].text, std::string("a\0b", 3));
  EXPECT_NE(frame.firstStamp, frame.firstStamp);
}

// ---- properties

std::string anyText(std::mt19937& random) {
  std::string bytes(random() % 40, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return fromWindows1252(bytes);
}

std::int16_t any16(std::mt19937& random) { return static_cast<std::int16_t>(random()); }

void fillAtRandom(std::mt19937& random) {
  Hardware.ModelNumber = anyText(random);
  for (OutputFit* fit : {&Hardware.Out1, &Hardware.Out2}) {
    *fit = {any16(random), any16(random), any16(random), any16(random), any16(random)};
  }
  Hardware.BusMode = any16(random);
  Hardware.BusAddress = any16(random);
  for (int record = 0; record < 103; ++record) {
    Memo[record] = {any16(random), any16(random), anyText(random), any16(random)};
  }
  DeviceState.DeviceClass = static_cast<std::int32_t>(random());
  DeviceState.ModelIndex = static_cast<std::int32_t>(random());
  DeviceState.AnalogFound = any16(random);
  BaseModel = "Mqv[8]";
}

TEST_F(ConfigFile, ReadsBackWhatWasWritten) {
  std::mt19937 random(4711);
  for (int round = 0; round < 200; ++round) {
    fillAtRandom(random);
    const Everything before;
    const std::string file = write(3);
    fillAtRandom(random);
    readConfiguration(file);
    expectSame(Everything(), before);
    EXPECT_EQ(DeviceState.ModelIndex, before.deviceState.ModelIndex);
    BaseModel = before.baseModel;
    EXPECT_EQ(write(3), file);
  }
}

TEST_F(ConfigFile, TakesAnyBytes) {
  std::mt19937 random(815);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes(random() % 3000, '\0');
    const bool sparse = random() % 2 == 0;
    for (char& byte : bytes) byte = sparse && random() % 8 != 0 ? '\0' : static_cast<char>(random());
    BaseModel = std::string(random() % 30, 'x');
    const std::size_t before = BaseModel.size();
    readConfiguration(bytes);
    std::size_t held = 0;
    for (int record = 0; record < 103; ++record) held += Memo[record].text.size();
    EXPECT_LE(held, 3 * bytes.size());
    EXPECT_LE(toWindows1252(BaseModel).size(), before);
  }
}

TEST_F(ConfigFile, TellsHowFarAReaderLooks) {
  BaseModel = "Tv8";
  const std::size_t most = longestConfiguration();
  Hardware.ModelNumber = std::string(65535, 'a');
  for (int record = 0; record < 103; ++record) Memo[record].text = std::string(65535, 'b');
  EXPECT_EQ(write().size(), most);
}

}  // namespace

}  // namespace torvane
