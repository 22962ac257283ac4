// SPDX-License-Identifier: MIT
// Sessions of one user: the program is started and the model chosen once for a suite, since the splash stands
// for six seconds. At the end of each test the user has done all that was planned.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"
#include "platform/Program.h"
#include "qt/QuickHost.h"

namespace torvane {

inline frmBigFolder& editor() { return form<frmBigFolder>(); }

class UserSession : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    user = new QuickHost;
    setMachine(user);
    for (const auto& [key, value] :
         {std::pair{"CommPort", "-1"}, std::pair{"Baud", "5"}, std::pair{"Warn", "True"}}) {
      user->saveSetting(std::string(program::title) + "/Persist/" + key, value);
    }
    form<frmBigFolder>();
    user->whenShown("frmHardware", [] { click(*user, form<frmHardware>(), "cmdOk"); });
    click(*user, editor(), "cmdCnfg");
  }
  static void TearDownTestSuite() {
    unloadAllForms();
    setMachine(nullptr);
    delete user;
  }
  ~UserSession() override { EXPECT_TRUE(user->done()); }

  static inline QuickHost* user = nullptr;
};

}  // namespace torvane
