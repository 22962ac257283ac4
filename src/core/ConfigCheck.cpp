// SPDX-License-Identifier: MIT
// A look at the bytes of a file before they are opened.
#include "core/ConfigCheck.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "core/ConfigFile.h"
#include "core/Memo.h"

namespace torvane {

namespace {

constexpr std::size_t outputsAndBus = 24;  // bytes after ModelNumber
constexpr int tabsOfTheWindow = 12;
constexpr std::size_t longestModel = 255;

constexpr const char* endsEarly = "ends in the middle of the setup.";
constexpr const char* countTooLong = "holds a text that is longer than the file.";
constexpr const char* stampsDiffer = "has two time stamps that differ.";
constexpr const char* noSuchTab = "was saved on a tab that there is not.";
constexpr const char* noModel = "says nothing certain of the kind of unit.";

// Goes through the bytes; the first fault stops it.
class Walk {
 public:
  explicit Walk(std::string_view bytes) : rest_(bytes) {}

  std::string fault;

  std::string_view take(std::size_t count, const char* ifShort = endsEarly) {
    if (!fault.empty() || rest_.size() < count) {
      if (fault.empty()) fault = ifShort;
      return {};
    }
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }
  std::int64_t number(std::size_t size) {
    const std::string_view raw = take(size);
    std::uint64_t all = 0;
    for (std::size_t at = raw.size(); at-- > 0;) all = (all << 8) | static_cast<std::uint8_t>(raw[at]);
    const std::size_t unused = 64 - 8 * size;
    return std::bit_cast<std::int64_t>(all << unused) >> unused;
  }
  double stamp() { return std::bit_cast<double>(number(8)); }
  void text() { take(static_cast<std::uint16_t>(number(2)), countTooLong); }
  std::int16_t recordExtra() {
    take(4);
    text();
    return static_cast<std::int16_t>(number(2));
  }
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// The copies of DeviceState in Memo.
struct Copies {
  std::int64_t deviceClass = 0;
  std::int64_t idFlagC = 0;
  std::int64_t menuKind = 0;
};

struct State {
  std::int64_t idFlagE, idFlagC, deviceClass, spareLong, isRkw77, isGr2, isHyt, menuKind, classSeen,
      spareFlag, analogFound, modelIndex;
};

State stateIn(std::string_view bytes) {
  Walk file(bytes);
  return {.idFlagE = file.number(2),
          .idFlagC = file.number(2),
          .deviceClass = file.number(4),
          .spareLong = file.number(4),
          .isRkw77 = file.number(2),
          .isGr2 = file.number(4),
          .isHyt = file.number(4),
          .menuKind = file.number(4),
          .classSeen = file.number(2),
          .spareFlag = file.number(2),
          .analogFound = file.number(2),
          .modelIndex = file.number(4)};
}

bool agrees(const State& state, const Copies& copies) {
  return state.deviceClass == copies.deviceClass && state.idFlagC == copies.idFlagC &&
         state.menuKind == copies.menuKind;
}

bool isPlausible(const State& state) {
  const auto within = [](std::int64_t value, int low, int high) { return value >= low && value <= high; };
  const auto isBoolean = [&](std::int64_t value) { return within(value, -1, 0); };
  return within(state.idFlagE, -1, 1) && within(state.idFlagC, -1, 1) && within(state.deviceClass, -1, 99) &&
         within(state.isGr2, -1, 1) && within(state.isHyt, -1, 1) && within(state.menuKind, 0, 2) &&
         within(state.modelIndex, -1, 99) && isBoolean(state.isRkw77) && isBoolean(state.classSeen) &&
         isBoolean(state.spareFlag) && isBoolean(state.analogFound);
}

bool isPrintable(char byte) { return byte >= ' ' && byte <= '~'; }

// How sure it is that DeviceState begins after this text: 0 not at all. A zero byte can't be part of a name,
// and DeviceState is never without one.
int certainty(std::string_view afterRecords, std::size_t length, const Copies& copies) {
  const std::string_view text = afterRecords.substr(0, length);
  const State state = stateIn(afterRecords.substr(length, deviceStateSize));
  if (!agrees(state, copies)) return 0;
  const bool plausible = isPlausible(state);
  const bool printable = std::ranges::all_of(text, isPrintable);
  if (afterRecords.size() == length + deviceStateSize) return plausible ? 5 : 3;
  if (printable) return plausible ? 4 : 2;
  return plausible ? 1 : 0;
}

void findBaseModel(std::string_view afterRecords, const Copies& copies, ConfigCheck& check) {
  int best = 0;
  const std::size_t longest = std::min(afterRecords.find('\0'), longestModel);
  for (std::size_t length = 0; length <= longest; ++length) {
    if (afterRecords.size() < length + deviceStateSize) break;
    const int sure = certainty(afterRecords, length, copies);
    if (sure <= best) continue;
    best = sure;
    check.baseModel = afterRecords.substr(0, length);
  }
  if (best == 0) check.fault = noModel;
}

Copies readLastRecords(Walk& file) {
  std::array<std::int16_t, recordsStored> extras{};
  for (int record = recordsBeforeStamp; record < recordsStored; ++record)
    extras[static_cast<std::size_t>(record)] = file.recordExtra();
  return {extras[rec::deviceClass], extras[rec::idFlagC], extras[rec::menuKind]};
}

}  // namespace

ConfigCheck examineConfiguration(std::string_view bytes) {
  ConfigCheck check;
  Walk file(bytes);
  const double first = file.stamp();
  file.text();
  file.take(outputsAndBus);
  for (int record = 0; record < recordsBeforeStamp; ++record) file.recordExtra();
  const std::int64_t tab = file.number(2);
  const double second = file.stamp();
  if (file.fault.empty() && first != second) file.fault = stampsDiffer;
  if (file.fault.empty() && (tab < 0 || tab >= tabsOfTheWindow)) file.fault = noSuchTab;
  check.older = file.fault.empty() && file.rest().empty();
  if (!check.older) {
    const Copies copies = readLastRecords(file);
    if (file.fault.empty()) findBaseModel(file.rest(), copies, check);
  }
  if (check.fault.empty()) check.fault = file.fault;
  return check;
}

}  // namespace torvane
