// SPDX-License-Identifier: MIT
// A setup as a write would send it: digits and mask of every register, made from Memo without a window.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/Memo.h"
#include "core/Model.h"
#include "knowledge/UnitImage.h"

namespace torvane {

// All from which a setup is encoded, put aside and put back.
struct SetupRecords {
  MemoArray memo;
  HardwareRecord hardware;
  DeviceStateRecord deviceState;
};
SetupRecords presentRecords();

struct SetupRegister {
  std::string payload;    // empty: there is nothing to send
  std::int32_t mask = 0;  // the bits that a write may change
  bool sent = false;      // a write compares the unit with it, and changes the unit where it differs
  std::string reason;     // why there is nothing to send
};

struct LinePoints {
  double x1, y1, x2, y2;
};

struct EncodedSetup {
  int kind = 0;
  std::array<SetupRegister, registerCount> registers;  // in the order of a write
  std::optional<LinePoints> readingLine;               // not known of a copy of a unit
  std::optional<LinePoints> analogLine;
  bool ofUnit = false;  // a copy to be put back: every bit counts, under the masks of both units
};

// Of the records as they are. Nothing is changed by it: neither records nor the slopes of the last run.
EncodedSetup encodeSetup();
EncodedSetup encodeSetup(const SetupRecords& records);
// A copy as what is to be written; bus format and address only on request.
EncodedSetup setupOf(const UnitImage& copy, bool busToo);
// A setup as if a unit held it.
UnitImage imageOf(const EncodedSetup& setup);
RegisterDigits digitsIn(const EncodedSetup& setup);

}  // namespace torvane
