// SPDX-License-Identifier: MIT
// The connection wizard in its real window: keyboard, room for every text, and a search on a pseudo terminal.
#include "wizard/frmWizard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "core/Global.h"
#include "core/Memo.h"
#include "core/Model.h"
#include "editor/frmBigFolder.h"
#include "protocol/frmSerial.h"
#include "qt/QuickHost.h"
#include "qt/TestForm.h"
#include "sim/PseudoTerminal.h"

namespace torvane {

namespace {

// The longest that the tests over the serial ports and the bridge have to say.
constexpr const char* longVerdicts[] = {
    "     Connection Wizard has finished scanning the COM ports, but did not find any controller.  Please "
    "verify that the communication parameters on the controller are set to: \r     Baud: 9600,  Parity: odd, "
    "  Data bit: 7, Stop bit: 1, \r     Echo: on,\r     Mode: command, \r     Line feed:  no\r     Standard: "
    " "
    "232C\rand try again.\r\rManual configuration is accomplished by mean of the COMM tab from the main "
    "screen.\rClick 'Cancel' to make communication settings changes.",
    "Data has unexpectedly been received.  If using Relayon/Ethernet hardware, please disable Host or "
    "Continuous mode\r\rFound no device connected to the web server\r\rCheck cable connections between web "
    "server and device. Also check device communication settings such as  communication protocol, and baud "
    "rate. Then try the Wizard again.",
    "Data has unexpectedly been received.  If using Relayon/Ethernet hardware, please disable Host or "
    "Continuous mode\rFound device connected to the web server\rFound the Torvane device\rTorvane "
    "Temperature Meter",
    ("Meter detected.\r\rTorvane Temperature Meter\rConnection Wizard detected your controller on "
     "COM10.\r\rTo finalize the configuration, click Finish."),
};

// A wizard that is bound but not loaded.
class WizardLayout : public QtTest {
 protected:
  ~WizardLayout() override {
    host_.release(*wizard_);
    Memo.reset();
  }
  QWidget& window() { return host_.window(*wizard_); }
  QLabel& caption() { return *window().findChild<QLabel*>("lblCaption"); }
  void expectRoomFor(const std::string& text) {
    wizard_->lblCaption.setCaption(text);
    EXPECT_LE(caption().heightForWidth(caption().width()), caption().height()) << text;
  }
  void expectRoomForAll() {
    Memo[rec::txtTCPIPAddress].text = "bridge-in-the-basement.works.example.com";
    Memo[rec::txtTCPPort].text = "10001";
    for (std::int16_t number = 0; number <= page::networkTest; ++number) {
      const WizardPage& each = *wizardPageAt(number);
      if (each.text != nullptr) expectRoomFor(wizardText(each));
    }
    for (const char* verdict : longVerdicts) expectRoomFor(verdict);
  }

  std::shared_ptr<frmWizard> wizard_ = std::make_shared<frmWizard>();
};

TEST_F(WizardLayout, HasRoomForEveryTextAndKeepsItsSize) {
  window().show();
  const QSize size = window().size();
  expectRoomForAll();
  QCoreApplication::processEvents();
  EXPECT_EQ(window().size(), size);
  EXPECT_EQ(window().minimumSize(), window().maximumSize());
}

TEST_F(WizardLayout, HasRoomForEveryTextInLargeType) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSizeF(2 * before.pointSizeF());
  QApplication::setFont(large);
  window().show();
  expectRoomForAll();
  QApplication::setFont(before);
}

TEST_F(WizardLayout, LetsItsPartsTakeTurnsOnOnePlace) {
  host_.show(*wizard_, false);
  const QSize size = window().size();
  for (Control* part : std::initializer_list<Control*>{&wizard_->Frame1, &wizard_->Frame2,
                                                       &wizard_->lblDetection, &wizard_->prgProgress}) {
    part->setVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().size(), size);
  }
  wizard_->Frame2.setVisible(true);
  auto& no = *window().findChild<QRadioButton*>("optNo");
  EXPECT_EQ(window().childAt(no.mapTo(&window(), no.rect().center())), &no);
}

// The program is started once, since the splash stands for six seconds.
QuickHost* user = nullptr;

frmBigFolder& editor() { return form<frmBigFolder>(); }
frmWizard& wizard() { return form<frmWizard>(); }
QWidget& wizardWindow() { return user->window(wizard()); }
bool has(const char* button) { return wizardWindow().focusWidget()->objectName() == button; }

void press(Qt::Key key, Qt::KeyboardModifier modifier = Qt::NoModifier) {
  QTest::keyClick(wizardWindow().focusWidget(), key, modifier);
}

class WizardSession : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    user = new QuickHost;
    setMachine(user);
    user->saveSetting("Torvane Configuration/Persist/CommPort", "-1");
    user->saveSetting("Torvane Configuration/Persist/Baud", "6");
    for (int port = 2; port <= 10; ++port) {  // this machine's own devices are left alone
      user->saveSetting("Torvane Configuration/Ports/COM " + std::to_string(port), "/nowhere");
    }
    editor();
  }

  static void TearDownTestSuite() {
    unloadAllForms();
    for (int port = 2; port <= 10; ++port) {
      user->deleteSetting("Torvane Configuration/Ports/COM " + std::to_string(port));
    }
    setMachine(nullptr);
    delete user;
  }

  WizardSession() : server(unit) {
    user->saveSetting("Torvane Configuration/Ports/COM 1", server.path());
    server.start();
    clickTab(*user, editor(), "tabBig", 11);
  }

  ~WizardSession() override {
    server.stop();
    EXPECT_TRUE(user->done());
    EXPECT_TRUE(user->boxes.empty());
  }

  // Presses Connect and does this in the wizard.
  static void connect(const std::function<void()>& action) {
    user->whenShown("frmWizard", [action] {
      EXPECT_TRUE(takesKeys(wizardWindow()));
      action();
    });
    click(*user, editor(), "cmdAutoDetect");
    EXPECT_FALSE(isLoaded<frmWizard>());
  }

  sim::Unit unit{sim::UnitSetup{}};
  sim::Server server;
};

TEST_F(WizardSession, FindsTheUnitWithEnterAlone) {
  const TrueSpeed here(*user);
  const auto runs = [] { return isLoaded<frmWizard>() && wizard().prgProgress.value() >= 14; };
  connect([&] {
    EXPECT_TRUE(wizardWindow().isModal());
    for (int page = 0; page < 3; ++page) press(Qt::Key_Return);
    EXPECT_TRUE(wizardWindow().findChild<QLabel*>("lblCaption")->text().contains("WARNING"));
    user->then(runs, [] {
      EXPECT_TRUE(wizardWindow().isVisible());
      EXPECT_TRUE(wizardWindow().findChild<QProgressBar*>("prgProgress")->isVisible());
      EXPECT_FALSE(wizardWindow().findChild<QPushButton*>("cmdNext")->isEnabled());
      EXPECT_FALSE(form<frmSerial>().visible());
    });
    press(Qt::Key_Return);
    EXPECT_EQ(wizardWindow().findChild<QPushButton*>("cmdNext")->text(), "Fi&nish");
    EXPECT_TRUE(has("cmdNext"));
    press(Qt::Key_Return);
  });
  EXPECT_EQ(editor().cboCommPort.listIndex(), 0);
  EXPECT_EQ(editor().cboBaud.text(), "9600");
  EXPECT_EQ(editor().lblCommStat.caption(), "Port is available");
  EXPECT_EQ(DeviceState.DeviceClass, 1);
  EXPECT_EQ(Global.DeviceSpecified, True);
}

TEST_F(WizardSession, IsCancelledByEscapeAndByItsFrame) {
  for (const bool byKey : {true, false}) {
    connect([byKey] {
      press(Qt::Key_Return);
      byKey ? press(Qt::Key_Escape) : static_cast<void>(wizardWindow().close());
    });
  }
  EXPECT_EQ(server.with([](sim::Unit& there) { return there.count(""); }), 0U);
}

// A button pressed by its mnemonic stays down for a moment before it acts.
void pressMnemonic(Qt::Key key, const std::function<bool()>& acted) {
  press(key, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor(acted)) << static_cast<char>(key);
}

std::function<bool()> on(std::int16_t page) {
  return [page] { return wizard().wizardPage == page; };
}

TEST_F(WizardSession, IsLedByMnemonicsAndArrows) {
  connect([] {
    pressMnemonic(Qt::Key_N, on(page::serialBus));
    pressMnemonic(Qt::Key_4, [] { return wizard().opt485.value(); });
    EXPECT_TRUE(wizardWindow().findChild<QWidget*>("cboAddress")->isEnabled());
    pressMnemonic(Qt::Key_N, on(page::searchQuestion));
    EXPECT_EQ(Hardware.BusMode, 1);
    pressMnemonic(Qt::Key_O, [] { return wizard().optNo.value(); });
    press(Qt::Key_Up);
    EXPECT_TRUE(wizard().optYes.value());
    press(Qt::Key_Down);
    EXPECT_TRUE(wizard().optNo.value());
    pressMnemonic(Qt::Key_N, on(page::byHand));
    pressMnemonic(Qt::Key_B, on(page::searchQuestion));
    pressMnemonic(Qt::Key_B, on(page::serialBus));
    pressMnemonic(Qt::Key_2, [] { return wizard().opt232.value(); });
    pressMnemonic(Qt::Key_N, on(page::searchQuestion));
    EXPECT_EQ(Hardware.BusMode, 0);
    pressMnemonic(Qt::Key_C, [] { return !wizard().visible(); });
  });
}

TEST_F(WizardSession, StaysAliveDuringTheSearchAndAsksBeforeItEnds) {
  server.with([](sim::Unit& there) { there.faults.silentAfter = 0; });
  user->answer = Answer::yes;
  connect([] {
    for (int turned = 0; turned < 3; ++turned) press(Qt::Key_Return);
    user->then([] { return wizard().prgProgress.value() >= 14; },
               [] { click(*user, wizard(), "cmdCancel"); });
    press(Qt::Key_Return);
    EXPECT_FALSE(wizard().visible()) << wizard().lblCaption.caption();
  });
  user->answer = Answer::ok;
  ASSERT_FALSE(user->boxes.empty());
  EXPECT_EQ(user->boxes.front(), "You are about to cancel detection.  Are you sure you want to do this?");
  user->boxes.clear();
}

}  // namespace

}  // namespace torvane
