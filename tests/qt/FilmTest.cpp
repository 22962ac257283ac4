// SPDX-License-Identifier: MIT
// Films and drawings: what is played, what any bytes do, and the program's own files.
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>
#include <random>

#include "platform/qt/AnimationView.h"
#include "platform/qt/PictureView.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

const QDir assets(ASSETS);

QByteArray number(std::uint32_t value) {
  QByteArray bytes(4, '\0');
  qToLittleEndian(value, bytes.data());
  return bytes;
}

QByteArray chunk(const QByteArray& name, QByteArray body) {
  const auto length = static_cast<std::uint32_t>(body.size());
  if (body.size() % 2 != 0) body += '\0';
  return name + number(length) + body;
}

QByteArray png(QSize size, Qt::GlobalColor color) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(color);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "png");
  return bytes;
}

QByteArray film(std::uint32_t microseconds, const QByteArray& frames) {
  const QByteArray header =
      chunk("LIST", "hdrl" + chunk("avih", number(microseconds) + QByteArray(52, '\0')));
  return chunk("RIFF", "AVI " + header + chunk("LIST", "movi" + frames));
}

QByteArray twoFrames() {
  return chunk("00dc", png({10, 6}, Qt::red)) + chunk("JUNK", "x") + chunk("00dc", png({10, 6}, Qt::blue));
}

TEST(FilmTest, ReadsTimeAndFrames) {
  const Film read = readFilm(film(40'000, twoFrames()));
  EXPECT_EQ(read.frameMilliseconds, 40);
  ASSERT_EQ(read.frames.size(), 2U);
  EXPECT_EQ(imageOf(read.frames[0]).size(), QSize(10, 6));
  EXPECT_EQ(imageOf(read.frames[1]).pixelColor(3, 3), QColor(Qt::blue));
}

TEST(FilmTest, BoundsTimeSizeAndNumber) {
  EXPECT_EQ(readFilm(film(1, "")).frameMilliseconds, 20);
  EXPECT_EQ(readFilm(film(0xFFFFFFFF, "")).frameMilliseconds, 10'000);
  EXPECT_EQ(readFilm(film(0, "")).frameMilliseconds, 100);
  EXPECT_TRUE(readFilm(film(1, chunk("00dc", png({1025, 1}, Qt::red)))).frames.empty());
  EXPECT_EQ(readFilm(film(1, chunk("00dc", png({1, 1}, Qt::red)).repeated(600))).frames.size(), 500U);
}

TEST(FilmTest, ACutFilmGivesTheFramesBeforeTheCut) {
  const QByteArray whole = film(40'000, twoFrames());
  for (qsizetype length = 0; length < whole.size(); ++length) {
    EXPECT_LE(readFilm(whole.first(length)).frames.size(), 2U);
  }
  EXPECT_EQ(readFilm(whole.first(whole.size() - 40)).frames.size(), 1U);
}

TEST(FilmTest, AnyBytesWillDo) {
  testing::internal::CaptureStderr();  // the PNG reader complains of each
  std::mt19937 random(7);
  const QByteArray whole = film(40'000, twoFrames());
  for (int round = 0; round < 3000; ++round) {
    QByteArray bytes = whole;
    for (int hit = 0; hit < 5; ++hit) {
      bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
          static_cast<char>(random());
    }
    const Film read = readFilm(bytes);
    EXPECT_LE(read.frames.size(), 10U);
    EXPECT_GE(read.frameMilliseconds, 20);
    for (const QByteArray& frame : read.frames) imageOf(frame);
  }
  EXPECT_TRUE(readFilm(QByteArray(5000, '\xFF')).frames.empty());
  EXPECT_TRUE(readFilm({}).frames.empty());
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

class AnimationViewTest : public QtTest {
 protected:
  QString fileOf(const QByteArray& bytes) {
    QFile file(folder_.filePath("film.avi"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }
  QTemporaryDir folder_;
};

TEST_F(AnimationViewTest, PlaysAgainAndAgainWhileItCanBeSeen) {
  auto& test = show();
  auto& view = widget<AnimationView>("Animation1");
  test.Animation1.open(fileOf(film(20'000, twoFrames())).toStdString());
  EXPECT_EQ(view.frameCount(), 2);
  EXPECT_FALSE(view.playing());
  test.tabBig.setTab(1);
  EXPECT_TRUE(view.playing());
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.frame() == 1; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.frame() == 0; }));
  test.Animation1.setVisible(false);
  EXPECT_FALSE(view.playing());
}

TEST_F(AnimationViewTest, ADamagedFrameLeavesTheOneBeforeItOnShow) {
  testing::internal::CaptureStderr();
  QByteArray bytes = film(20'000, twoFrames());
  const qsizetype pixels = bytes.lastIndexOf("IDAT");
  bytes.replace(pixels + 4, 8, QByteArray(8, '\xFF'));
  ASSERT_EQ(readFilm(bytes).frames.size(), 2U);
  auto& test = show(1);
  test.Animation1.open(fileOf(bytes).toStdString());
  auto& view = widget<AnimationView>("Animation1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.frame() == 1; }));
  EXPECT_EQ(view.grab().toImage().pixelColor(view.rect().center()), QColor(Qt::red));
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

TEST_F(AnimationViewTest, WhatIsNoFilmShowsNothing) {
  auto& test = show(1);
  test.Animation1.open(fileOf("no film").toStdString());
  EXPECT_EQ(widget<AnimationView>("Animation1").frameCount(), 0);
  EXPECT_FALSE(widget<AnimationView>("Animation1").playing());
}

TEST_F(AnimationViewTest, GrowsWithTheFont) {
  AnimationView view;
  view.play(fileOf(film(20'000, twoFrames())));
  const QSize before = view.sizeHint();
  QFont larger = view.font();
  larger.setPointSizeF(larger.pointSizeF() * 2);
  view.setFont(larger);
  EXPECT_GT(view.sizeHint().width(), before.width() * 3 / 2);
}

TEST(OwnFilesTest, TheProgramsFilmsPlay) {
  for (const char* name : {"search.avi", "filecopy.avi"}) {
    QFile file(assets.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    EXPECT_GT(readFilm(file.readAll()).frames.size(), 1U) << name;
  }
}

TEST(OwnFilesTest, EveryDrawingIsInTheProgramAndCanBeDrawn) {
  const QStringList files = QDir(assets.filePath("pictures")).entryList({"*.svg"});
  EXPECT_FALSE(files.empty());
  for (const QString& file : files) {
    PictureView view;
    view.setPicture(file.chopped(4));
    EXPECT_TRUE(hasPicture(file.chopped(4))) << file.toStdString();
    EXPECT_FALSE(view.sizeHint().isEmpty()) << file.toStdString();
  }
}

TEST(PictureViewTest, DrawsInTheColoursOfThePalette) {
  PictureView view;
  view.setPicture("imgMicro");
  view.resize(view.sizeHint());
  const QImage usual = view.grab().toImage();
  QPalette palette = view.palette();
  palette.setColor(QPalette::WindowText, Qt::magenta);
  view.setPalette(palette);
  EXPECT_NE(view.grab().toImage(), usual);
}

TEST(PictureViewTest, AMissingDrawingShowsNothing) {
  PictureView view;
  view.setPicture("none");
  view.resize(20, 20);
  EXPECT_FALSE(hasPicture("none"));
  EXPECT_FALSE(view.sizeHint().isValid());
  EXPECT_FALSE(view.grab().isNull());
}

}  // namespace

}  // namespace torvane
