// SPDX-License-Identifier: MIT
// The machine as the program sees it: clock, waits, boxes, settings, port names, the end by an error.
#include <time.h>

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTime>
#include <functional>

#include "platform/RuntimeError.h"
#include "platform/qt/io/QtSerialPort.h"
#include "qt/Pseudo.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

using testing::AllOf;
using testing::HasSubstr;

class HostTest : public QtTest {
 protected:
  // Runs `look` on the next box as soon as it is on show.
  static void onBox(const std::function<void(QMessageBox&)>& look) {
    QTimer::singleShot(0, [look] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      look(*box);
    });
  }
  static void save(const QByteArray& bytes) {
    QtSettings().save("Torvane Configuration/Persist/made", "1");
    QFile file(QString::fromStdString(QtSettings().fileName()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  ~HostTest() override { QFile::remove(QString::fromStdString(QtSettings().fileName())); }

  QtSettings settings_;
};

TEST_F(HostTest, TheClockStartsWithTheTimeOfDayAndRunsForward) {
  const double day = QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
  TestHost host;
  const double first = host.now();
  EXPECT_NEAR(first, day, 1.0);
  EXPECT_GE(host.now(), first);
}

TEST_F(HostTest, AnIdleWaitSleepsForItsTime) {
  host_.yield();
  const double start = host_.now();
  const clock_t before = clock();
  while (host_.now() - start < 0.3) host_.idle(0.1);
  EXPECT_LT(clock() - before, CLOCKS_PER_SEC * 3 / 100);
}

TEST_F(HostTest, AnEventEndsAnIdleWait) {
  bool served = false;
  QTimer::singleShot(1, [&] { served = true; });
  const double start = host_.now();
  while (!served) host_.idle(30.0);
  EXPECT_LT(host_.now() - start, 10.0);
}

TEST_F(HostTest, AYieldServesWhatIsPendingAndReturns) {
  bool served = false;
  QTimer::singleShot(0, [&] { served = true; });
  host_.yield();
  EXPECT_TRUE(served);
}

TEST_F(HostTest, ABoxShowsItsTextAsItIs) {
  onBox([](QMessageBox& box) {
    EXPECT_EQ(box.text(), "one\ntwo\nthree");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), "Torvane Configuration");
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    box.close();
  });
  EXPECT_EQ(host_.messageBox("one\rtwo\r\nthree", "", Icon::critical, Buttons::ok), Answer::ok);
  onBox([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Note");
    EXPECT_EQ(box.icon(), QMessageBox::Information);
    box.close();
  });
  host_.messageBox("x", "Note", Icon::information, Buttons::ok);
}

TEST_F(HostTest, AQuestionIsAnsweredByButtonsAndEscapeIsNo) {
  const auto ask = [&] { return host_.messageBox("Sure?", "", Icon::question, Buttons::yesNo); };
  onBox([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
  EXPECT_EQ(ask(), Answer::yes);
  onBox([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  EXPECT_EQ(ask(), Answer::no);
  onBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(ask(), Answer::no);
}

TEST_F(HostTest, AQuestionThatIsBetterDeniedHasNoUnderEnter) {
  for (const auto& [buttons, answer] :
       {std::pair(Buttons::noYes, Answer::no), {Buttons::yesNo, Answer::yes}}) {
    onBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(host_.messageBox("Sure?", "", Icon::question, buttons), answer);
  }
}

TEST_F(HostTest, KeepsSettings) {
  const std::string path = "Torvane Configuration/Persist/CommPort";
  EXPECT_EQ(host_.setting(path), "");
  host_.saveSetting(path, "9600,o,7,1");
  EXPECT_EQ(host_.setting(path), "9600,o,7,1");
  EXPECT_EQ(QtSettings().value(path), "9600,o,7,1");
  host_.saveSetting(path, "\xC2\xB0 \"\\;=@");
  EXPECT_EQ(QtSettings().value(path), "\xC2\xB0 \"\\;=@");
  host_.deleteSetting(path);
  EXPECT_EQ(QtSettings().value(path), "");
}

TEST_F(HostTest, SettingsLieWithCompanyAndProgram) {
  host_.saveSetting("Torvane Configuration/Persist/Baud", "4");
  EXPECT_THAT(QtSettings().fileName(), HasSubstr("/Ashgrove Electronics/Torvane Configuration.ini"));
  QFile file(QString::fromStdString(QtSettings().fileName()));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_THAT(file.readAll().toStdString(), HasSubstr("[Persist]\nBaud=4\n"));
}

TEST_F(HostTest, SettingsWrittenByHandAreFound) {
  save("[Ports]\nCOM 1=/dev/one\nCOM%202=/dev/two\n[Persist]\nx=a,b\n");
  const QtSettings settings;
  EXPECT_EQ(settings.value("Torvane Configuration/Ports/COM 1"), "/dev/one");
  EXPECT_EQ(settings.value("Torvane Configuration/Ports/COM 2"), "/dev/two");
  EXPECT_EQ(settings.value("Torvane Configuration/Persist/x"), "a,b");
}

TEST_F(HostTest, ASpoiltSettingsFileIsNoFault) {
  QByteArray noise;
  for (int byte = 0; byte < 4096; ++byte) noise += static_cast<char>(byte * 7 + byte / 256);
  save(noise + "\n[Persist\n=\n[]\n%zz=@Variant(\n");
  QtSettings settings;
  EXPECT_EQ(settings.value("Torvane Configuration/Persist/none"), "");
  settings.save("Torvane Configuration/Persist/k", "v");
  EXPECT_EQ(settings.value("Torvane Configuration/Persist/k"), "v");
}

TEST_F(HostTest, ASettingsFileThatCannotBeWrittenIsNoFault) {
  const QString file = QString::fromStdString(QtSettings().fileName());
  QFile::remove(file);
  ASSERT_TRUE(QDir().mkpath(file));
  QtSettings settings;
  settings.save("Torvane Configuration/Persist/k", "v");
  EXPECT_EQ(settings.value("Torvane Configuration/Persist/k"), "v");
  EXPECT_EQ(QtSettings().value("Torvane Configuration/Persist/other"), "");
  ASSERT_TRUE(QDir().rmdir(file));
}

TEST_F(HostTest, KnowsFiles) {
  const QTemporaryDir folder;
  EXPECT_FALSE(host_.fileExists(folder.path().toStdString()));
  EXPECT_FALSE(host_.fileExists(folder.filePath("none").toStdString()));
  EXPECT_TRUE(host_.fileExists(QCoreApplication::applicationFilePath().toStdString()));
  EXPECT_EQ(host_.programFolder(), QCoreApplication::applicationDirPath().toStdString());
}

TEST_F(HostTest, TellsWhichDeviceAPortNameMeans) {
  const Pseudo line;
  host_.saveSetting("Torvane Configuration/Ports/COM 3", line.path());
  EXPECT_EQ(host_.serialPortHint(3), "COM 3 is " + line.path() + ".");
  host_.saveSetting("Torvane Configuration/Ports/COM 3", "/dev/gone");
  EXPECT_EQ(host_.serialPortHint(3), "COM 3 is /dev/gone, which is not there.");
  EXPECT_THAT(host_.serialPortHint(99), AllOf(HasSubstr("COM 99: no such serial device"),
                                              HasSubstr("section [Ports] of " + QtSettings().fileName())));
  host_.deleteSetting("Torvane Configuration/Ports/COM 3");
}

TEST_F(HostTest, NamesTheAdapterBesideItsPort) {
  const Pseudo first;
  const Pseudo second;
  const std::vector<SerialDevice> present{{QString::fromStdString(first.path()), "FT232R USB UART"},
                                          {QString::fromStdString(second.path()), ""},
                                          {"COM7", "USB Serial Port"}};
  QtPorts ports(settings_, [&] { return present; });
  EXPECT_EQ(ports.hint(1), "COM 1 is " + first.path() + " (FT232R USB UART).");
  EXPECT_EQ(ports.hint(2), "COM 2 is " + second.path() + ".");
  EXPECT_EQ(ports.hint(3), "COM 3 is COM7 (USB Serial Port).");
}

TEST_F(HostTest, NamesTheAdapterBehindALinkAndWhatIsWrongWithIt) {
  const Pseudo line;
  const QTemporaryDir folder;
  const QString link = folder.filePath("adapter");
  ASSERT_TRUE(QFile::link(QString::fromStdString(line.path()), link));
  settings_.save("Torvane Configuration/Ports/COM 1", link.toStdString());
  QString name = "Old adapter";
  QtPorts ports(settings_, [&] {
    return std::vector<SerialDevice>{{QString::fromStdString(line.path()), name}, {"/dev/gone", "Other"}};
  });
  EXPECT_EQ(ports.hint(1), "COM 1 is " + link.toStdString() + " (Old adapter).");
  name = "New adapter";
  EXPECT_EQ(ports.hint(1), "COM 1 is " + link.toStdString() + " (New adapter).");
  EXPECT_EQ(ports.hint(2), "COM 2 is /dev/gone (Other), which is not there.");
  EXPECT_THAT(ports.hint(3), HasSubstr("COM 3: no such serial device"));
}

TEST_F(HostTest, ReadsTheListOfDevicesRarely) {
  const Pseudo line;
  int readings = 0;
  QtPorts ports(settings_, [&] {
    ++readings;
    return std::vector<SerialDevice>{{QString::fromStdString(line.path()), ""}};
  });
  for (int opening = 0; opening < 33; ++opening) EXPECT_EQ(ports.device(1), line.path());
  EXPECT_EQ(ports.device(0), "");
  EXPECT_EQ(ports.device(2), "");
  EXPECT_EQ(readings, 1);
}

TEST_F(HostTest, KeepsAPortAtItsDeviceUntilThePortsAreLookedAt) {
  const Pseudo first, second;
  std::vector<SerialDevice> present = {{QString::fromStdString(first.path()), ""},
                                       {QString::fromStdString(second.path()), ""}};
  QtPorts ports(settings_, [&] { return present; });
  EXPECT_EQ(ports.device(1), first.path());
  present.erase(present.begin());
  QTest::qWait(2100);  // the list is old by now, and is read for a name that is new
  EXPECT_EQ(ports.device(2), "");
  EXPECT_EQ(ports.device(1), first.path());
  EXPECT_EQ(ports.hint(1), "COM 1 is " + second.path() + ".");
  EXPECT_EQ(ports.device(1), second.path());
}

TEST_F(HostTest, OpensThePortThatTheSettingsName) {
  const Pseudo line;
  host_.saveSetting("Torvane Configuration/Ports/COM 2", line.path());
  const auto port = host_.makeSerialPort();
  port->commPort = 2;
  port->open();
  port->output("x");
  EXPECT_EQ(line.receive(1), "x");
  host_.deleteSetting("Torvane Configuration/Ports/COM 2");
}

// Ends the process from inside a modal window; meanwhile a second error comes while the box is open.
[[noreturn]] void failInDepth() {
  setMachine(nullptr);
  QtHost host;
  setMachine(&host);
  host.beforeTheEnd = [] { return "The setup is kept."; };
  auto& test = form<TestForm>();
  int boxes = 0;
  QTimer::singleShot(0, [&] {
    test.cmdGo.onClick = [] { throw RuntimeError(Fault::overflow, "Overflow"); };
    test.cmdGo.userClicked();
  });
  QTimer::singleShot(50, [&] {
    host.fail("Second");
    for (QWidget* widget : QApplication::topLevelWidgets())
      boxes += qobject_cast<QMessageBox*>(widget) != nullptr;
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    fprintf(stderr, "%d box: %s", boxes, box->text().toUtf8().constData());
    box->close();
  });
  test.showModal();
  _exit(0);
}

TEST_F(HostTest, AnErrorEndsTheProgramInOrder) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(failInDepth(), testing::ExitedWithCode(1), "1 box: Overflow[[:space:]]+The setup is kept.");
}

}  // namespace

}  // namespace torvane
