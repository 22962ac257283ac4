// SPDX-License-Identifier: MIT
// Runs the tests with a screen, settings and a print server of their own, so that a user's are left alone.
#include <gmock/gmock.h>

#include <QApplication>
#include <QTcpServer>
#include <QTemporaryDir>

namespace {

// Where the print server of a test will be; until it runs no printer is installed.
void reservePrintServer() {
  QTcpServer place;
  place.listen(QHostAddress::LocalHost);
  qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(place.serverPort()));
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
  qputenv("XDG_DATA_HOME", settings.path().toUtf8());
  if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  reservePrintServer();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
