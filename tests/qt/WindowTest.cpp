// SPDX-License-Identifier: MIT
// The life of windows: showing, modal or not, closing, keys, places.
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QWindow>

#include "platform/qt/Bindings.h"
#include "platform/qt/Layouts.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

void buildOther(QWidget& window) {
  window.setObjectName("frmOther");
  (new QPushButton(&window))->setObjectName("cmdHide");
}

void buildSplash(QWidget& window) {
  buildOther(window);
  window.setProperty("splash", true);
}

struct OtherForm : Form {
  OtherForm() : Form("frmOther", "Other") {}
  CommandButton cmdHide{*this, "cmdHide", "Hide"};
  void Form_Activate() override { ++activations; }
  int activations = 0;
};

void buildBeside(QWidget& window) {
  window.setObjectName("frmBeside");
  window.setProperty("beside", true);
}

struct BesideForm : Form {
  BesideForm() : Form("frmBeside", "Beside") { aside = true; }
};

class WindowTest : public QtTest {
 protected:
  WindowTest() {
    layouts().push_back({"frmBeside", buildBeside});
    layouts().push_back({"frmOther", buildOther});
  }
  ~WindowTest() override {
    layouts().pop_back();
    layouts().pop_back();
  }
};

TEST_F(WindowTest, ShowsAndHides) {
  auto& test = show();
  EXPECT_TRUE(host_.window(test).isVisible());
  EXPECT_EQ(host_.window(test).windowModality(), Qt::NonModal);
  test.hide();
  EXPECT_FALSE(host_.window(test).isVisible());
  test.show();
  EXPECT_TRUE(host_.window(test).isVisible());
}

TEST_F(WindowTest, AModalShowReturnsWhenTheFormIsHidden) {
  auto& below = show();
  auto& other = form<OtherForm>();
  other.cmdHide.onClick = [&] {
    const auto& window = host_.window(other);
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_EQ(window.windowHandle()->transientParent(), host_.window(below).windowHandle());
    EXPECT_FALSE(below.reachable());
    other.hide();
  };
  QTimer::singleShot(0, [&] { host_.window(other).findChild<QPushButton*>("cmdHide")->click(); });
  other.showModal();
  EXPECT_FALSE(host_.window(other).isVisible());
  EXPECT_TRUE(below.reachable());
  EXPECT_EQ(other.activations, 1);
}

TEST_F(WindowTest, AModalShowReturnsWhenTheFormIsUnloaded) {
  show();
  auto& other = form<OtherForm>();
  other.cmdHide.onClick = [] { unload<OtherForm>(); };
  QTimer::singleShot(0, [&] { host_.window(other).findChild<QPushButton*>("cmdHide")->click(); });
  other.showModal();
  EXPECT_FALSE(isLoaded<OtherForm>());
}

TEST_F(WindowTest, EscapeClosesADialogAsItsFrameDoes) {
  auto& other = form<OtherForm>();
  QTimer::singleShot(0, [&] { QTest::keyClick(&host_.window(other), Qt::Key_Escape); });
  other.showModal();
  EXPECT_FALSE(isLoaded<OtherForm>());
}

TEST_F(WindowTest, EscapeLeavesAModelessWindowOpen) {
  auto& test = show();
  QTest::keyClick(&host_.window(test), Qt::Key_Escape);
  EXPECT_TRUE(host_.window(test).isVisible());
}

TEST_F(WindowTest, AWindowBesideLeavesTheKeyboardWhereItIs) {
  auto& below = show();
  widget<QLineEdit>("txtValue").setFocus();
  auto& beside = form<BesideForm>();
  beside.show();
  host_.yield();
  EXPECT_TRUE(host_.window(beside).isVisible());
  EXPECT_TRUE(host_.window(beside).testAttribute(Qt::WA_ShowWithoutActivating));
  EXPECT_FALSE(host_.window(beside).frameGeometry().intersects(host_.window(below).frameGeometry()));
  EXPECT_EQ(QApplication::focusWidget(), &widget<QLineEdit>("txtValue"));
}

TEST_F(WindowTest, AWindowShownUnderADialogIsThereWhenTheDialogHasGone) {
  show();
  auto& dialog = form<OtherForm>();
  auto& beside = form<BesideForm>();
  QTimer::singleShot(0, [&] {
    beside.show();
    host_.yield();
    EXPECT_TRUE(host_.window(beside).isVisible());
    EXPECT_TRUE(beside.reachable()) << "a dialog in front doesn't hold it";
    EXPECT_NE(QApplication::activeWindow(), &host_.window(beside));
    host_.window(dialog).findChild<QPushButton*>("cmdHide")->click();
  });
  dialog.cmdHide.onClick = [&] { dialog.hide(); };
  dialog.showModal();
  EXPECT_TRUE(host_.window(beside).isVisible());
  EXPECT_TRUE(beside.reachable());
}

TEST_F(WindowTest, ABoxOverAFormIsNoNewShowing) {
  auto& other = form<OtherForm>();
  other.show();
  QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
  host_.messageBox("Text", "", Icon::none, Buttons::ok);
  host_.yield();
  EXPECT_EQ(other.activations, 1);
}

TEST_F(WindowTest, TheFormDecidesWhetherItsFrameCloses) {
  auto& test = show();
  test.keep = true;
  host_.window(test).close();
  EXPECT_EQ(test.closings, 1);
  EXPECT_TRUE(host_.window(test).isVisible());
  test.keep = false;
  const QPointer<QWidget> window(&host_.window(test));
  window->close();
  EXPECT_FALSE(isLoaded<TestForm>());
  host_.yield();
  EXPECT_TRUE(window.isNull());
}

TEST_F(WindowTest, TheWindowOfAnUnloadedFormGoes) {
  const QPointer<QWidget> window(&host_.window(show()));
  unload<TestForm>();
  EXPECT_FALSE(window->isVisible());
  host_.yield();
  EXPECT_TRUE(window.isNull());
  EXPECT_NE(&host_.window(form<TestForm>()), nullptr);
}

TEST_F(WindowTest, KeysThatNoWidgetUsesReachTheForm) {
  auto& test = show();
  widget<QLineEdit>("txtValue").setFocus();
  QTest::keyClick(&widget<QLineEdit>("txtValue"), Qt::Key_5);
  EXPECT_EQ(test.keys, 0);
  widget<QPushButton>("cmdGo").setFocus();
  QTest::keyClick(&widget<QPushButton>("cmdGo"), Qt::Key_5);
  EXPECT_EQ(test.keys, 1);
}

TEST_F(WindowTest, OpensWithTheRoomItNeedsAndWithinTheScreen) {
  auto& window = host_.window(show());
  EXPECT_GE(window.width(), window.minimumSizeHint().width());
  EXPECT_LE(window.width(), window.screen()->availableSize().width());
  EXPECT_LE(window.height(), window.screen()->availableSize().height());
}

TEST_F(WindowTest, Centres) {
  auto& test = form<TestForm>();
  test.centre();
  test.show();
  const QPoint off =
      host_.window(test).geometry().center() - host_.window(test).screen()->availableGeometry().center();
  EXPECT_LE(off.manhattanLength(), 16);  // but for the frame, which is not known before
}

TEST_F(WindowTest, HasRoomForTextsThatCameAfterItsCentring) {
  layouts().back().build = [](QWidget& window) {
    buildOther(window);
    auto* text = new QLabel(&window);
    text->setObjectName("room_long");
    text->setWordWrap(true);
    auto* column = new QVBoxLayout(&window);
    column->addWidget(text);
    column->addWidget(window.findChild<QPushButton*>());
  };
  auto& other = form<OtherForm>();
  other.centre();
  auto& text = *host_.window(other).findChild<QLabel*>("room_long");
  text.setText(QStringLiteral("word ").repeated(100));
  other.show();
  host_.yield();
  EXPECT_GE(text.height(), text.heightForWidth(text.width()));
}

TEST_F(WindowTest, AWindowThatTheUserHasMovedStaysThere) {
  auto& test = form<TestForm>();
  test.centre();
  test.show();
  host_.window(test).move(31, 17);
  test.hide();
  test.show();
  EXPECT_EQ(host_.window(test).pos(), QPoint(31, 17));
}

TEST_F(WindowTest, ASplashHasNoFrame) {
  layouts().back().build = buildSplash;
  auto& other = form<OtherForm>();
  other.show();
  EXPECT_TRUE(host_.window(other).windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(WindowTest, TakesAPictureOfAWindow) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("window.png");
  ASSERT_TRUE(screenshot(show(), file));
  EXPECT_EQ(QImage(file).size(), host_.window(form<TestForm>()).size());
}

TEST_F(WindowTest, PaintsAWholeFormAtOnce) {
  auto& test = show();
  host_.repaint(test);
  test.hide();
  host_.repaint(test);
  EXPECT_FALSE(host_.window(test).isVisible());
}

}  // namespace

}  // namespace torvane
