// SPDX-License-Identifier: MIT
// The user by script.
#include "session/ScriptedHost.h"

#include <gtest/gtest.h>

#include "dialogs/frmPreferences.h"

namespace torvane {

namespace {

TEST(ScriptedUser, WhoWaitsInVainClosesAllWindows) {
  ScriptedHost user;
  setMachine(&user);
  user.patience = 0.05;
  user.then([] { return false; }, [] {});
  form<frmPreferences>().showModal();
  EXPECT_FALSE(user.done());
  unloadAllForms();
  setMachine(nullptr);
}

}  // namespace

}  // namespace torvane
