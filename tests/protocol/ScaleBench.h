// SPDX-License-Identifier: MIT
// Two points for the line of the reading and for that of the analog output.
#pragma once

#include <gtest/gtest.h>

#include "core/Memo.h"
#include "protocol/Scale.h"
#include "support/RandomMemo.h"

namespace torvane {

class ScaleBench : public testing::Test {
 protected:
  void SetUp() override { freshSetup(); }

  static void readingLine(const char* x1, const char* y1, const char* x2, const char* y2) {
    Memo[rec::txtIn1].text = x1;
    Memo[rec::txtRd1].text = y1;
    Memo[rec::txtIn2].text = x2;
    Memo[rec::txtRd2].text = y2;
  }

  static void analogLine(const char* x1, const char* y1, const char* x2, const char* y2) {
    Memo[rec::txtAOutRd1].text = x1;
    Memo[rec::txtAOutOut1].text = y1;
    Memo[rec::txtAOutRd2].text = x2;
    Memo[rec::txtAOutOut2].text = y2;
  }

  // A reading line whose slope is this number.
  static Encoded rdScale(const char* slope) {
    readingLine("0", "0", "1", slope);
    return makeRdScale();
  }

  // A reading line of slope 1 whose offset is this number.
  static Encoded rdOffset(const char* offset) {
    readingLine("0", offset, "1", offset);
    return makeRdOffset();
  }

  static Encoded analogOffset(const char* offset) {
    analogLine("0", offset, "1", offset);
    return makeAnalogOffset();
  }

  static void processInput() { chooseOption(rec::optInType, 3, 2); }
};

}  // namespace torvane
