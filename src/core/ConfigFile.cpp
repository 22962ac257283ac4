// SPDX-License-Identifier: MIT
// The .cfg file: the bytes of one whole setup.
#include "core/ConfigFile.h"

#include <algorithm>
#include <bit>
#include <concepts>
#include <limits>

#include "core/Memo.h"
#include "core/Model.h"
#include "platform/Files.h"

namespace torvane {

namespace {

constexpr std::size_t longestText = std::numeric_limits<std::uint16_t>::max();

class ConfigWriter {
 public:
  std::string bytes;

  void number(std::integral auto value) {
    for (std::size_t at = 0; at < sizeof value; ++at) bytes += static_cast<char>((value >> (8 * at)) & 0xFF);
  }
  void stamp(double value) { number(std::bit_cast<std::uint64_t>(value)); }
  void text(const std::string& value) {
    const std::string coded = host<Files>().toCodePage(value).substr(0, longestText);
    number(static_cast<std::uint16_t>(coded.size()));
    bytes += coded;
  }
};

class ConfigReader {
 public:
  explicit ConfigReader(std::string_view bytes) : rest_(bytes) {}

  template <std::integral Number>
  void number(Number& value) {
    const std::string_view raw = take(sizeof value);
    if (raw.size() < sizeof value) return;
    std::uint64_t all = 0;
    for (std::size_t at = raw.size(); at-- > 0;) all = (all << 8) | static_cast<std::uint8_t>(raw[at]);
    value = static_cast<Number>(all);
  }
  void stamp(double& value) {
    auto raw = std::bit_cast<std::uint64_t>(value);
    number(raw);
    value = std::bit_cast<double>(raw);
  }
  void text(std::string& value) {
    value.clear();
    std::uint16_t count = 0;
    number(count);
    value = host<Files>().fromCodePage(take(count));
  }
  std::string_view take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

 private:
  std::string_view rest_;
};

// The layout, once for both directions.

void hardwareFields(auto& file) {
  file.text(Hardware.ModelNumber);
  for (OutputFit* fit : {&Hardware.Out1, &Hardware.Out2}) {
    for (std::int16_t* field : {&fit->SSR, &fit->Relay, &fit->Pulse, &fit->Analog, &fit->None})
      file.number(*field);
  }
  file.number(Hardware.BusMode);
  file.number(Hardware.BusAddress);
}

void memoRecords(auto& file, int first, int end) {
  for (int record = first; record < end; ++record) {
    MemoField& field = Memo[record];
    file.number(field.value);
    file.number(field.flag);
    file.text(field.text);
    file.number(field.extra);
  }
}

void deviceStateFields(auto& file) {
  file.number(DeviceState.IdFlagE);
  file.number(DeviceState.IdFlagC);
  file.number(DeviceState.DeviceClass);
  file.number(DeviceState.SpareLong);
  file.number(DeviceState.IsRkw77);
  file.number(DeviceState.IsGr2);
  file.number(DeviceState.IsHyt);
  file.number(DeviceState.MenuKind);
  file.number(DeviceState.ClassSeen);
  file.number(DeviceState.SpareFlag);
  file.number(DeviceState.AnalogFound);
  file.number(DeviceState.ModelIndex);
}

void readBaseModel(ConfigReader& file) {
  std::string model = host<Files>().toCodePage(BaseModel);
  std::ranges::copy(file.take(model.size()), model.begin());
  const std::size_t nul = model.find('\0');
  const std::size_t position = nul == std::string::npos ? model.size() : nul + 1;
  if (position > 1) model.resize(position - 1);
  BaseModel = host<Files>().fromCodePage(model);
}

}  // namespace

std::string configModelPart(double stamp) {
  ConfigWriter file;
  file.stamp(stamp);
  hardwareFields(file);
  return file.bytes;
}

std::string configSetupPart(std::int16_t tab, double stamp) {
  ConfigWriter file;
  memoRecords(file, 0, recordsBeforeStamp);
  file.number(tab);
  file.stamp(stamp);
  memoRecords(file, recordsBeforeStamp, recordsStored);
  file.bytes += host<Files>().toCodePage(BaseModel);
  deviceStateFields(file);
  return file.bytes;
}

std::size_t longestConfiguration() {
  constexpr std::size_t fixed =
      8 + 26 + longestText + recordsStored * (8 + longestText) + 2 + 8 + deviceStateSize;
  return fixed + BaseModel.size();
}

ConfigFrame readConfiguration(std::string_view bytes) {
  ConfigFrame frame;
  ConfigReader file(bytes);
  file.stamp(frame.firstStamp);
  hardwareFields(file);
  memoRecords(file, 0, recordsBeforeStamp);
  file.number(frame.tab);
  file.stamp(frame.secondStamp);
  memoRecords(file, recordsBeforeStamp, recordsStored);
  readBaseModel(file);
  deviceStateFields(file);
  return frame;
}

}  // namespace torvane
