// SPDX-License-Identifier: MIT
// Runs the tests with a screen and settings of their own, so that a user's are left alone.
#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
  if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
