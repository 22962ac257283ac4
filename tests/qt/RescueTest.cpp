// SPDX-License-Identifier: MIT
// A program that had to end in the middle of an edit, and its next start.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>

#include "dialogs/SetupFiles.h"
#include "dialogs/frmHardware.h"
#include "editor/frmBigFolder.h"
#include "qt/QuickHost.h"

namespace torvane {

namespace {

class Rescue : public testing::Test {
 protected:
  Rescue() {
    setMachine(&user);
    user.saveSetting("Torvane Configuration/Persist/CommPort", "-1");
  }
  ~Rescue() override {
    unloadAllForms();
    setMachine(nullptr);
    EXPECT_TRUE(user.done());
  }

  QuickHost user;
};

TEST_F(Rescue, BringsTheEditOfTheFailedProgramToTheNextStart) {
  QProcess failing;
  failing.start(FAILING_PROGRAM, {QCoreApplication::applicationName()});
  ASSERT_TRUE(failing.waitForFinished(60'000));
  EXPECT_EQ(failing.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(failing.exitCode(), 1);
  const std::string kept = user.dataFolder() + "/rescue.cfg";
  ASSERT_TRUE(user.fileExists(kept));

  auto& editor = form<frmBigFolder>();
  EXPECT_EQ(editor.txtSp1.text(), "000.0");
  user.answer = Answer::yes;
  user.whenShown("frmHardware", [this] { click(user, form<frmHardware>(), "cmdOk"); });
  offerRescue();
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_NE(user.boxes.front().find("Open it now?"), std::string::npos);
  EXPECT_EQ(editor.txtSp1.text(), "123.4");
  EXPECT_FALSE(user.fileExists(kept)) << "it is offered once";
}

}  // namespace

}  // namespace torvane
