// SPDX-License-Identifier: MIT
// The settings file as people and the program write in it by turns.
#include "platform/qt/io/IniText.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <random>

#include "platform/qt/io/QtSettings.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constexpr const char* byHand = R"([Persist]
CommPort=0
; the bench in room 12
[Ports]
COM 2 = /dev/serial/by-id/usb-left, second

COM%201=/dev/ttyUSB0
)";

TEST(IniText, IsReadAsWrittenByHand) {
  const IniValues values = valuesOf(byHand);
  EXPECT_EQ(values["Ports/COM 2"], "/dev/serial/by-id/usb-left, second");
  EXPECT_EQ(values["Ports/COM 1"], "/dev/ttyUSB0");
  EXPECT_EQ(values["Persist/CommPort"], "0");
}

TEST(IniText, StaysAsItIsWhereNothingChanges) { EXPECT_EQ(changed(byHand, valuesOf(byHand)), byHand); }

TEST(IniText, OneChangeIsOneLine) {
  IniValues values = valuesOf(byHand);
  values["Persist/CommPort"] = "1";
  EXPECT_EQ(changed(byHand, values), QByteArray(byHand).replace("CommPort=0", "CommPort=1"));
  values = valuesOf(byHand);
  values["Ports/COM 2"] = "/dev/ttyS0";
  EXPECT_EQ(changed(byHand, values),
            QByteArray(byHand).replace("COM 2 = /dev/serial/by-id/usb-left, second", "COM 2 =/dev/ttyS0"));
}

TEST(IniText, ANewKeyComesToItsSectionAndARemovedOneGoes) {
  IniValues values = valuesOf(byHand);
  values["Persist/Baud"] = "5";
  values["Window/Left"] = "10";
  values.remove("Ports/COM 1");
  EXPECT_EQ(changed(byHand, values), R"([Persist]
CommPort=0
Baud=5
; the bench in room 12
[Ports]
COM 2 = /dev/serial/by-id/usb-left, second

[Window]
Left=10
)");
}

TEST(IniText, TheLastOfTwoLinesCounts) {
  const QByteArray text = "[Ports]\nCOM 1=/a\nCOM%201=/b\n";
  EXPECT_EQ(valuesOf(text)["Ports/COM 1"], "/b");
  EXPECT_EQ(changed(text, valuesOf(text)), "[Ports]\nCOM 1=/b\n");
}

QString anyText(std::mt19937& random, const QString& characters) {
  QString text;
  for (unsigned length = random() % 12; length > 0; --length) text += characters[random() % 24];
  return text;
}

const QString anyValue = QStringLiteral("ab 1f\\\";,=@%[]#\n\r\t\x01\x7f/\u00e4\u20acx");
const QString anyKey = QStringLiteral("ab 1f\\\";,=@%[]#\n\r\t\x01\x7f-\u00e4\u20acx");

TEST(IniText, AnyTextComesBackAndTheToolkitReadsTheSame) {
  std::mt19937 random(16);
  const QTemporaryDir folder;
  for (int round = 0; round < 300; ++round) {
    IniValues values;
    for (int each = 0; each < 5; ++each) {
      values["S" + QString::number(each % 2) + "/k" + anyKey.sliced(0, 3).trimmed() +
             anyText(random, anyKey).remove('/')] = anyText(random, anyValue);
    }
    const QByteArray text = changed("", values);
    EXPECT_TRUE(valuesOf(text) == values) << text.toStdString();
    // The toolkit remembers a file that it has read.
    const QString file = folder.filePath(QString::number(round) + ".ini");
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::WriteOnly));
    written.write(text);
    written.close();
    const QSettings toolkit(file, QSettings::IniFormat);
    for (const auto& [path, value] : values.asKeyValueRange()) {
      EXPECT_EQ(toolkit.value(path).toString(), value) << text.toStdString();
    }
  }
}

TEST(QtSettingsFile, KeepsAHandsLinesWhenTheProgramSavesItsOwn) {
  const QString path = QString::fromStdString(QtSettings().fileName());
  ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(byHand);
  file.close();
  {
    QtSettings settings;
    EXPECT_EQ(settings.value("Torvane Configuration/Ports/COM 1"), "/dev/ttyUSB0");
    settings.save("Torvane Configuration/Persist/Warn", "True");
  }
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), QByteArray(byHand).replace("CommPort=0\n", "CommPort=0\nWarn=True\n"));
  file.close();
  QFile::remove(path);
}

}  // namespace

}  // namespace torvane
