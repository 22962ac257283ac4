// SPDX-License-Identifier: MIT
// The legal words nearest to one that is not.
#include "tool/Nearest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace torvane {

namespace {

using testing::ElementsAre;

TEST(Nearest, CountsLetters) {
  EXPECT_EQ(tool::distance("write", "WRITE"), 0U);
  EXPECT_EQ(tool::distance("wrte", "write"), 1U);
  EXPECT_EQ(tool::distance("", "abc"), 3U);
  EXPECT_EQ(tool::distance("kitten", "sitting"), 3U);
}

TEST(Nearest, NamesTheNearestFirstAndNoStranger) {
  const std::vector<std::string> legal{"read", "write", "ports", "keep"};
  EXPECT_THAT(tool::nearest("wriet", legal), ElementsAre("write"));
  EXPECT_THAT(tool::nearest("frobnicate", legal), ElementsAre());
  EXPECT_EQ(tool::didYouMean("port", legal), "Did you mean ports?");
  EXPECT_EQ(tool::didYouMean("ab", {"aa", "bb", "ac", "ad"}), "Did you mean aa, bb or ac?");
  EXPECT_EQ(tool::didYouMean("xyz", legal), "");
}

}  // namespace

}  // namespace torvane
