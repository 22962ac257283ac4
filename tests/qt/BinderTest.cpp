// SPDX-License-Identifier: MIT
// What the widgets show of the controls, and what the user's deeds on them do.
#include "qt/TestForm.h"

#include <QSignalSpy>

#include "platform/qt/Bindings.h"

namespace {

class BinderTest : public QtTest {};

TEST_F(BinderTest, ShowsWhatTheControlsHoldAtFirst) {
  auto& test = show();
  EXPECT_EQ(host_.window(test).windowTitle(), "Test");
  EXPECT_EQ(widget<QLabel>("lblName").text(), "&Name");
  EXPECT_EQ(widget<QPushButton>("cmdGo").text(), "Be&gin");
  EXPECT_EQ(widget<QPushButton>("cmdEnd").text(), "&End");
  EXPECT_EQ(widget<QGroupBox>("fraGroup").title(), "Group");
  EXPECT_EQ(widget<QRadioButton>("optKind_0").text(), "&Alpha");
  EXPECT_EQ(widget<QCheckBox>("chkOn").toolTip(), "Turns it on");
  EXPECT_EQ(widget<QTabBar>("tabBig").tabText(2), "Third");
}

}  // namespace
