// SPDX-License-Identifier: MIT
// The place of a window from one run to the next.
#include "platform/qt/WindowPlace.h"

#include <QFile>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/Layouts.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

const QRect laptop(0, 28, 1280, 772);  // beneath a panel
const QRect beside(1280, 0, 1920, 1080);
const QSize title(0, 24);

// All of a window with its frame is on one of the screens.
bool isReachable(const QList<QRect>& screens, const QRect& window) {
  const QRect outer(window.topLeft(), window.size() + title);
  return std::ranges::any_of(screens, [&](const QRect& screen) { return screen.contains(outer); });
}

TEST(WindowPlace, AWindowThatIsAllThereStaysWhereItWas) {
  const QRect window(100, 60, 960, 528);
  EXPECT_EQ(placeWithin({laptop}, window, title), window);
  EXPECT_EQ(placeWithin({laptop, beside}, window.translated(1400, 0), title), window.translated(1400, 0));
}

TEST(WindowPlace, AWindowOnAScreenThatIsGoneComesToTheFirst) {
  EXPECT_EQ(placeWithin({laptop}, QRect(1800, 300, 960, 528), title), QRect(320, 248, 960, 528));
}

TEST(WindowPlace, AWindowBetweenTwoScreensGoesToTheOneThatShowsMostOfIt) {
  EXPECT_EQ(placeWithin({laptop, beside}, QRect(700, 100, 960, 528), title), QRect(320, 100, 960, 528));
  EXPECT_EQ(placeWithin({laptop, beside}, QRect(1000, 100, 960, 528), title), QRect(1280, 100, 960, 528));
}

TEST(WindowPlace, AWindowLargerThanTheScreenTakesAllOfIt) {
  EXPECT_EQ(placeWithin({laptop}, QRect(-50, -50, 4000, 3000), title), QRect(0, 28, 1280, 748));
}

TEST(WindowPlace, WhereverItWasItIsReachable) {
  for (const int x : {-100'000, -961, -1, 0, 700, 1279, 3199, 5000, 100'000}) {
    for (const int y : {-100'000, -530, 0, 27, 799, 1079, 100'000}) {
      for (const QSize size : {QSize(1, 1), QSize(960, 528), QSize(100'000, 100'000)}) {
        for (const QList<QRect>& screens : {QList{laptop}, QList{laptop, beside}}) {
          EXPECT_TRUE(isReachable(screens, placeWithin(screens, QRect(QPoint(x, y), size), title)))
              << x << ',' << y << ' ' << size.width() << 'x' << size.height();
        }
      }
    }
  }
}

class WindowPlaceTest : public QtTest {
 protected:
  WindowPlaceTest() {
    host_.deleteSetting("Torvane Configuration/Window");
    plain_ = layouts().back().build;
    layouts().back().build = [](QWidget& window) {
      plain_(window);
      window.setProperty("remembered", true);
    };
  }
  ~WindowPlaceTest() override {
    unloadAllForms();
    QFile::remove(QString::fromStdString(QtSettings().fileName()));
  }

  void save(const std::string& key, const std::string& value) {
    host_.saveSetting("Torvane Configuration/Window/" + key, value);
  }
  std::string saved(const std::string& key) { return host_.setting("Torvane Configuration/Window/" + key); }
  QWidget& shownAnew() {
    unload<TestForm>();
    auto& test = form<TestForm>();
    test.centre();
    test.show();
    return host_.window(test);
  }
  // The size and the place that the window takes by itself.
  QRect first() {
    const QRect place = shownAnew().geometry();
    unload<TestForm>();
    host_.deleteSetting("Torvane Configuration/Window");
    return place;
  }

  static inline void (*plain_)(QWidget&) = nullptr;
};

TEST_F(WindowPlaceTest, ComesBackWhereItWas) {
  QWidget& window = shownAnew();
  const QSize size = window.minimumSizeHint() + QSize(40, 30);
  window.resize(size);
  window.move(70, 50);
  host_.yield();
  QWidget& again = shownAnew();
  EXPECT_EQ(again.pos(), QPoint(70, 50));
  EXPECT_EQ(again.size(), size);
  EXPECT_EQ(saved("Left"), "70");
  EXPECT_EQ(saved("Top"), "50");
}

TEST_F(WindowPlaceTest, ComesBackMaximizedAndKnowsItsOtherSize) {
  QWidget& window = shownAnew();
  const QSize size = window.minimumSizeHint() + QSize(40, 30);
  window.resize(size);
  host_.yield();
  window.showMaximized();
  host_.yield();
  QWidget& again = shownAnew();
  EXPECT_TRUE(again.isMaximized());
  EXPECT_EQ(saved("Maximized"), "1");
  EXPECT_EQ(saved("Width"), std::to_string(size.width()));
  again.showNormal();
  host_.yield();
  EXPECT_EQ(again.size(), size);
}

TEST_F(WindowPlaceTest, IsSeenOnTheScreenThatIsThere) {
  save("Left", "9000");
  save("Top", "-9000");
  save("Width", "50");
  save("Height", "50");
  QWidget& window = shownAnew();
  EXPECT_TRUE(window.screen()->geometry().contains(window.geometry()));
  EXPECT_GE(window.width(), window.minimumSizeHint().width());
}

TEST_F(WindowPlaceTest, GarbageIsNoPlace) {
  const QRect place = first();
  for (const char* garbage : {"", "wide", "12.5", "-3", "0", "99999999999", "100001", "@Variant(x)"}) {
    save("Left", "10");
    save("Top", "10");
    save("Width", garbage);
    save("Height", "400");
    EXPECT_FALSE(savedPlace(QtSettings()).has_value()) << garbage;
    EXPECT_EQ(shownAnew().geometry(), place) << garbage;
    unload<TestForm>();
  }
}

// A run on a small screen cuts it down; on the large one it is as large as before.
TEST_F(WindowPlaceTest, ASizeThatTheScreenHasCutIsNotTheUsers) {
  const auto large = {std::pair{"Left", "30"}, std::pair{"Top", "40"}, std::pair{"Width", "4000"},
                      std::pair{"Height", "3000"}};
  for (const auto& [key, value] : large) save(key, value);
  EXPECT_LT(shownAnew().width(), 4000);
  unload<TestForm>();
  EXPECT_EQ(saved("Width"), "4000");
  EXPECT_EQ(saved("Height"), "3000");
  QWidget& again = shownAnew();
  const QSize chosen = again.minimumSizeHint() + QSize(10, 0);
  again.resize(chosen);
  host_.yield();
  EXPECT_EQ(shownAnew().size(), chosen);
  EXPECT_EQ(saved("Width"), std::to_string(chosen.width()));
}

// Nobody has sized it: as large as it asks to be, there where it stood.
TEST_F(WindowPlaceTest, ASizeThatNobodyMadeIsMadeAnew) {
  QWidget& window = shownAnew();
  const QSize before = window.size();
  window.move(70, 50);
  host_.yield();
  unload<TestForm>();
  layouts().back().build = [](QWidget& built) {
    plain_(built);
    built.setProperty("remembered", true);
    qobject_cast<QVBoxLayout*>(built.layout())
        ->insertSpacerItem(0, new QSpacerItem(0, 100, QSizePolicy::Preferred, QSizePolicy::Preferred));
  };
  QWidget& again = shownAnew();
  EXPECT_GE(again.height(), before.height() + 100);
  EXPECT_EQ(again.pos(), QPoint(70, 50));
}

// What comes up in it may need more room than it has: that is not the user's doing.
TEST_F(WindowPlaceTest, ASizeThatItsContentHasMadeIsNotTheUsers) {
  QWidget& window = shownAnew();
  const QSize before = window.size();
  window.layout()->itemAt(0)->widget()->setMinimumHeight(before.height() + 50);
  host_.yield();
  ASSERT_GT(window.height(), before.height());
  EXPECT_EQ(shownAnew().size(), before);
}

TEST_F(WindowPlaceTest, OtherWindowsAreNotRemembered) {
  layouts().back().build = plain_;
  shownAnew();
  unload<TestForm>();
  EXPECT_EQ(saved("Left"), "");
}

constexpr QSize titleOfWindow(0, 24);

TEST(PlaceNextTo, IsTheStripWithRoom) {
  const QRect room(0, 0, 1920, 1080);
  const QRect main(100, 100, 953, 560);
  const QRect place = placeNextTo(room, main, {}, {512, 430}, {240, 200}, titleOfWindow);
  EXPECT_FALSE(place.intersects(main));
  EXPECT_TRUE(room.contains(place));
  EXPECT_EQ(place.size(), QSize(512, 430));
}

TEST(PlaceNextTo, IsSmallerWhereTheStripIs) {
  const QRect room(0, 0, 1366, 768);
  const QRect main(0, 100, 953, 560);
  const QRect place = placeNextTo(room, main, {}, {512, 430}, {240, 200}, titleOfWindow);
  EXPECT_FALSE(place.intersects(main));
  EXPECT_TRUE(room.contains(place));
  EXPECT_EQ(place.width(), 413);
}

TEST(PlaceNextTo, HidesNoBoxWhereThereIsNoStrip) {
  const QRect room(0, 0, 1024, 768);
  const QRect main(0, 0, 1024, 768);
  const QList<QRect> boxes = {QRect(20, 20, 600, 400), QRect(20, 700, 980, 40)};
  const QRect place = placeNextTo(room, main, boxes, {512, 430}, {240, 200}, titleOfWindow);
  for (const QRect& box : boxes) EXPECT_FALSE(place.intersects(box));
  EXPECT_TRUE(room.contains(place));
}

}  // namespace

}  // namespace torvane
