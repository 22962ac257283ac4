// SPDX-License-Identifier: MIT
// Scale and offset of thousands of lines, through the origin and beside it.
#include <gtest/gtest.h>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/NumberText.h"
#include "protocol/Scale.h"
#include "support/RandomMemo.h"

namespace torvane {

namespace {

// Two points of a line y = s * x, neither of them the origin.
void chooseLineThroughOrigin(std::mt19937& random, int x1, int y1, int x2, int y2, int highest) {
  const int rise = between(random, 1, 40);
  const int run = between(random, 1, 40);
  const int most = highest / std::max(rise, run);
  const int first = between(random, 1, most);
  int second = first;
  while (second == first) second = between(random, 1, most);
  Memo[x1].text = numberText(std::int32_t{run * first});
  Memo[y1].text = numberText(std::int32_t{rise * first});
  Memo[x2].text = numberText(std::int32_t{run * second});
  Memo[y2].text = numberText(std::int32_t{rise * second});
}

TEST(LinesThroughTheOrigin, HaveNoReadingOffset) {
  std::mt19937 random{11};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    chooseLineThroughOrigin(random, rec::txtIn1, rec::txtRd1, rec::txtIn2, rec::txtRd2, 9999);
    makeRdScale();
    ASSERT_EQ(makeRdOffset().payload, "700000") << Memo[rec::txtIn1].text << " " << Memo[rec::txtRd1].text;
  }
}

TEST(LinesThroughTheOrigin, HaveNoAnalogOffset) {
  std::mt19937 random{12};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    chooseLineThroughOrigin(random, rec::txtAOutRd1, rec::txtAOutOut1, rec::txtAOutRd2, rec::txtAOutOut2,
                            9999);
    makeAnalogScale();
    ASSERT_EQ(makeAnalogOffset().payload, "C00000") << Memo[rec::txtAOutRd1].text;
  }
}

// Not even the smallest true offset is taken for a residue.
TEST(LinesBesideTheOrigin, KeepTheirOffset) {
  std::mt19937 random{13};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    const int x1 = between(random, 0, 9998);
    const int x2 = between(random, x1 + 1, 9999);
    const int y1 = between(random, -1999, 9999);
    const int y2 = between(random, -1999, 9999);
    if (y1 * x2 == y2 * x1) continue;
    Memo[rec::txtIn1].text = numberText(std::int32_t{x1});
    Memo[rec::txtIn2].text = numberText(std::int32_t{x2});
    Memo[rec::txtRd1].text = numberText(std::int32_t{y1});
    Memo[rec::txtRd2].text = numberText(std::int32_t{y2});
    makeRdScale();
    ASSERT_NE(makeRdOffset().payload, "700000") << x1 << " " << y1 << " " << x2 << " " << y2;
  }
}

TEST(Slopes, AreHandedOnWithoutLosingADigit) {
  std::mt19937 random{14};
  freshSetup();
  for (int line = 0; line < 10000; ++line) {
    fillRandomMemo(random);
    const double rise = Val(Memo[rec::txtRd2].text) - Val(Memo[rec::txtRd1].text);
    makeRdScale();
    ASSERT_EQ(Val(Global.RdScale), rise / (Val(Memo[rec::txtIn2].text) - Val(Memo[rec::txtIn1].text)));
  }
}

}  // namespace

}  // namespace torvane
