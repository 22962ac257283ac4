// SPDX-License-Identifier: MIT
// The serial port on pseudo terminals: bytes, faults, and what it says of them.
#include "platform/qt/io/QtSerialPort.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <time.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <thread>

#include "platform/RuntimeError.h"
#include "platform/qt/io/DeviceFile.h"
#include "platform/qt/io/SerialPorts.h"
#include "qt/Pseudo.h"

namespace torvane {

namespace {

using testing::HasSubstr;

std::string wordsOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return "";
}

int numberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.number;
  }
  return 0;
}

constexpr int portFault = static_cast<int>(Fault::portFault);
constexpr int portNotOpen = static_cast<int>(Fault::portNotOpen);

class SerialPortTest : public testing::Test {
 protected:
  SerialPortTest() { port_.commPort = 1; }

  // All of the next `count` bytes, in however many pieces they come.
  std::string take(std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) {
      port_.waitForInput(5.0);
      if (port_.inBufferCount() == 0) break;
      bytes += port_.input();
    }
    return bytes;
  }

  Pseudo line_;
  std::string device_ = line_.path();
  QtSerialPort port_{[this](int) { return device_; }};
};

TEST_F(SerialPortTest, SendsAndReceives) {
  port_.settings = "9600,o,7,1";
  port_.open();
  EXPECT_TRUE(port_.isOpen());
  port_.output("*R07\r");
  EXPECT_EQ(line_.receive(5), "*R07\r");
  ASSERT_TRUE(line_.send("R0726\r"));
  EXPECT_EQ(take(6), "R0726\r");
  EXPECT_EQ(port_.inBufferCount(), 0U);
  EXPECT_EQ(port_.input(), "");
}

TEST_F(SerialPortTest, OpensAgainAfterClosing) {
  for (int round = 0; round < 20; ++round) {
    port_.open();
    ASSERT_TRUE(line_.send("x"));
    EXPECT_EQ(take(1), "x");
    port_.close();
    EXPECT_FALSE(port_.isOpen());
  }
}

TEST_F(SerialPortTest, ClosingTwiceIsNoFault) {
  port_.open();
  port_.close();
  port_.close();
  EXPECT_FALSE(port_.isOpen());
}

TEST_F(SerialPortTest, SeesWhatWasWaitingRightAfterOpening) {
  const int held = ::open(device_.c_str(), O_RDWR | O_NOCTTY);
  termios raw{};
  cfmakeraw(&raw);
  tcsetattr(held, TCSANOW, &raw);
  ASSERT_TRUE(line_.send("stale\r"));
  port_.open();
  EXPECT_EQ(port_.inBufferCount(), 6U);
  EXPECT_EQ(port_.input(), "stale\r");
  ::close(held);
}

TEST_F(SerialPortTest, PassesEveryByteAsItIs) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  port_.settings = "9600,n,8,1";
  port_.open();
  ASSERT_TRUE(line_.send(all));
  EXPECT_EQ(take(all.size()), all);
  port_.output(all);
  EXPECT_EQ(line_.receive(all.size()), all);
}

TEST_F(SerialPortTest, TakesALongReplyInChunks) {
  const std::string sent(100'000, 'x');
  port_.open();
  std::thread unit([&] { line_.send(sent); });
  EXPECT_EQ(take(sent.size()), sent);
  unit.join();
}

TEST_F(SerialPortTest, WritesEvenWhatDoesNotFitAtOnce) {
  const std::string sent(50'000, 'y');
  port_.open();
  std::string got;
  std::thread unit([&] { got = line_.receive(sent.size()); });
  port_.output(sent);
  unit.join();
  EXPECT_EQ(got, sent);
}

TEST_F(SerialPortTest, AWaitThatRunsOutIsNoFault) {
  port_.open();
  QElapsedTimer clock;
  clock.start();
  port_.waitForInput(0.02);
  EXPECT_GE(clock.elapsed(), 19);
  EXPECT_TRUE(port_.isOpen());
  EXPECT_EQ(port_.inBufferCount(), 0U);
}

TEST_F(SerialPortTest, AWaitEndsWithTheFirstByteAndCostsNoProcessor) {
  port_.open();
  const clock_t before = clock();
  std::thread unit([&] { line_.send("z"); });
  port_.waitForInput(60.0);
  unit.join();
  EXPECT_EQ(port_.inBufferCount(), 1U);
  port_.waitForInput(0.2);
  port_.input();
  port_.waitForInput(0.2);
  EXPECT_LT(clock() - before, CLOCKS_PER_SEC / 10);
}

TEST_F(SerialPortTest, NoneChosen) {
  port_.commPort = 0;
  EXPECT_EQ(wordsOf([&] { port_.open(); }), "No port is chosen");
  EXPECT_EQ(numberOf([&] { port_.open(); }), portFault);
}

TEST_F(SerialPortTest, MissingDevice) {
  device_ = "/dev/no-such-device";
  EXPECT_EQ(wordsOf([&] { port_.open(); }), "No such file or directory");
  device_ = "";
  EXPECT_EQ(wordsOf([&] { port_.open(); }), "No such file or directory");
  EXPECT_FALSE(port_.isOpen());
}

// Rights that even root has to respect, while one of these lives.
class AsNobody {
 public:
  AsNobody() { EXPECT_TRUE(user_ != 0 || setresuid(65534, 65534, user_) == 0); }
  ~AsNobody() { EXPECT_EQ(setresuid(user_, user_, user_), 0); }

 private:
  uid_t user_ = getuid();
};

TEST_F(SerialPortTest, NoRight) {
  ASSERT_EQ(chmod(device_.c_str(), 0), 0);
  const AsNobody nobody;
  EXPECT_EQ(wordsOf([&] { port_.open(); }), "Permission denied");
  EXPECT_THAT(obstacle(device_), HasSubstr("only after joining the group"));
}

// Names such as COM3 lead to no file: whether the port is there, only opening tells.
TEST_F(SerialPortTest, ANameThatIsNoPathIsLeftToTheSystem) {
  EXPECT_EQ(obstacle("COM3"), "");
  device_ = "no-such-port";
  EXPECT_NE(wordsOf([&] { port_.open(); }), "");
  device_ = line_.path().substr(5);  // below /dev
  port_.open();
  port_.output("x");
  EXPECT_EQ(line_.receive(1), "x");
  port_.waitForInput(0.01);
  EXPECT_TRUE(port_.isOpen());
}

TEST_F(SerialPortTest, NotATerminal) {
  const QTemporaryDir folder;
  device_ = folder.path().toStdString();
  EXPECT_NE(wordsOf([&] { port_.open(); }), "");
  EXPECT_FALSE(port_.isOpen());
}

TEST_F(SerialPortTest, TakenByAnotherPort) {
  QtSerialPort other([this](int) { return device_; });
  other.commPort = 1;
  other.open();
  EXPECT_TRUE(isTaken(device_));
  EXPECT_EQ(wordsOf([&] { port_.open(); }), "Device or resource busy");
  EXPECT_THAT(obstacle(device_), HasSubstr("this program itself"));
  other.close();
  port_.open();
  EXPECT_TRUE(port_.isOpen());
}

TEST_F(SerialPortTest, TakenByAnotherProgram) {
  QString lock = QString::fromStdString(device_).mid(5);
  QFile file("/var/lock/LCK.." + lock.replace('/', '_'));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::number(getppid()).rightJustified(10) + "\n");
  file.close();
  EXPECT_THAT(obstacle(device_), HasSubstr("(process " + std::to_string(getppid()) + ") has open"));
  ASSERT_TRUE(file.remove());
  EXPECT_EQ(obstacle(device_), "");
}

TEST_F(SerialPortTest, ALockThatADeadProgramHasLeftIsNone) {
  QString lock = QString::fromStdString(device_).mid(5);
  QFile file("/var/lock/LCK.." + lock.replace('/', '_'));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("2147483646\n");  // beyond the numbers that the system gives
  file.close();
  EXPECT_FALSE(isTaken(device_));
  EXPECT_EQ(obstacle(device_), "");
  ASSERT_TRUE(file.remove());
}

TEST_F(SerialPortTest, AClosedPortSaysSo) {
  EXPECT_EQ(numberOf([&] { port_.inBufferCount(); }), portNotOpen);
  EXPECT_EQ(numberOf([&] { port_.input(); }), portNotOpen);
  EXPECT_EQ(numberOf([&] { port_.output("x"); }), portNotOpen);
  EXPECT_EQ(numberOf([&] { port_.waitForInput(0); }), portNotOpen);
}

TEST_F(SerialPortTest, OpeningTwiceIsAFault) {
  port_.open();
  EXPECT_EQ(numberOf([&] { port_.open(); }), portFault);
  EXPECT_TRUE(port_.isOpen());
}

TEST_F(SerialPortTest, AHangUpIsReportedOnce) {
  port_.open();
  line_.hangUp();
  EXPECT_EQ(wordsOf([&] { port_.waitForInput(5.0); }), "Input/output error");
  EXPECT_FALSE(port_.isOpen());
  EXPECT_EQ(numberOf([&] { port_.inBufferCount(); }), portNotOpen);
  EXPECT_EQ(numberOf([&] { port_.output("x"); }), portNotOpen);
}

TEST_F(SerialPortTest, AHangUpWhileSendingIsReportedOnce) {
  port_.open();
  line_.hangUp();
  EXPECT_EQ(numberOf([&] { port_.output("*R07\r"); }), portFault);
  EXPECT_EQ(numberOf([&] { port_.output("*R07\r"); }), portNotOpen);
}

TEST_F(SerialPortTest, AHangUpWhileTheWindowsAreServedDoesNotSpin) {
  port_.open();
  line_.hangUp();
  for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
  EXPECT_FALSE(port_.isOpen());
  bool rests = false;  // a turn in which nothing has happened, among those of timers and windows
  for (int turn = 0; turn < 100 && !rests; ++turn) {
    rests = !QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
  }
  EXPECT_TRUE(rests);
  EXPECT_EQ(wordsOf([&] { port_.output("x"); }), "Input/output error");
  EXPECT_EQ(numberOf([&] { port_.output("x"); }), portNotOpen);
}

TEST_F(SerialPortTest, ADeviceFileThatIsGoneIsAFault) {
  const QTemporaryDir folder;
  const std::string link = folder.path().toStdString() + "/adapter";
  ASSERT_EQ(symlink(device_.c_str(), link.c_str()), 0);
  device_ = link;
  port_.open();
  EXPECT_TRUE(port_.isOpen());
  unlink(link.c_str());
  EXPECT_EQ(wordsOf([&] { port_.waitForInput(0.01); }), "No such device");
  EXPECT_FALSE(port_.isOpen());
}

TEST_F(SerialPortTest, EndOfTheProgramClosesAll) {
  port_.open();
  closeAllSerialPorts();
  EXPECT_FALSE(port_.isOpen());
}

}  // namespace

}  // namespace torvane
