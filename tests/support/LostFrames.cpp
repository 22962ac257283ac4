// SPDX-License-Identifier: MIT
// Before each test the address sanitizer gives back the frames that exceptions have left behind. It keeps the
// frames of functions on a stack of its own; those that an exception passes stay there as lost. Once that
// stack is full, each call searches all of it in vain: the tests take four times as long, and a use after
// return is no longer found.
#include <gtest/gtest.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer)

#pragma clang diagnostic ignored "-Wreserved-identifier"  // the sanitizer's own name
extern "C" void __asan_handle_no_return();

namespace torvane {

namespace {

class LostFrames : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo& /*test*/) override { __asan_handle_no_return(); }
};

[[maybe_unused]] const bool listens = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new LostFrames);
  return true;
}();

}  // namespace

}  // namespace torvane

#endif
#endif
