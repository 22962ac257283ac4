// SPDX-License-Identifier: MIT
// Every window on the screens that people have, in the styles and with the letters that they have set:
// nothing is cut, covered or off the screen. A program of its own looks at each, since a program has one
// screen, one scale and one style. SHIPPED names the folder of the build that ships: its program looks at all
// screens, and the one built with these tests, under the sanitizers, at one of each desktop.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <string>
#include <tuple>

namespace torvane {

namespace {

struct Screen {
  int width;
  int height;
  const char* scale;
};

constexpr Screen screens[] = {
    {1024, 768, "1"}, {1024, 768, "1.25"}, {1024, 768, "1.5"}, {1024, 768, "2"},
    {1366, 768, "1"}, {1366, 768, "1.5"},  {1366, 768, "2"},   {1920, 1080, "1"},
};

// Style and letters.
using Desktop = std::tuple<const char*, const char*>;

class Screens : public testing::TestWithParam<Desktop> {
 protected:
  // A screen without a display: the toolkit draws into memory.
  QString platformOf(const Screen& screen) {
    QFile file(folder_.filePath("screen.json"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QStringLiteral(R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": %1, "height": %2,
      "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(screen.width)
                   .arg(screen.height)
                   .toUtf8());
    return "offscreen:configfile=" + file.fileName();
  }

  // The lines of what does not fit, and the last one with the count.
  QStringList lookAt(const Screen& screen, const QString& program) {
    const auto [style, font] = GetParam();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", platformOf(screen));
    environment.insert("QT_SCALE_FACTOR", screen.scale);
    environment.insert("QT_STYLE_OVERRIDE", style);
    environment.insert("DEMO_FONT", font);
    for (const char* place : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"}) environment.insert(place, folder_.path());
    QProcess look;
    look.setProcessEnvironment(environment);
    look.start(program, {});
    EXPECT_TRUE(look.waitForFinished(120'000));
    EXPECT_EQ(look.exitStatus(), QProcess::NormalExit) << look.readAllStandardError().toStdString();
    return QString::fromUtf8(look.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  }

  static void expectAllShown(const QStringList& said) {
    ASSERT_FALSE(said.isEmpty());
    EXPECT_GT(said.last().section(' ', 0, 0).toInt(), 150) << "windows looked at";
    EXPECT_TRUE(said.last().contains(std::get<0>(GetParam()), Qt::CaseInsensitive)) << "another style";
    EXPECT_EQ(said.size(), 1) << said.join('\n').toStdString();
  }

  QTemporaryDir folder_;
};

TEST_P(Screens, ShowAllOfEveryWindow) {
  const QString shipped = qEnvironmentVariable("SHIPPED");
  for (const Screen& screen : screens) {
    SCOPED_TRACE(std::to_string(screen.width) + "x" + std::to_string(screen.height) + " * " + screen.scale);
    expectAllShown(
        lookAt(screen, shipped.isEmpty() ? EVERY_WINDOW : shipped + "/tools/session/every-window"));
  }
  if (!shipped.isEmpty()) expectAllShown(lookAt(screens[0], EVERY_WINDOW));
}

INSTANTIATE_TEST_SUITE_P(All, Screens,
                         testing::Combine(testing::Values("fusion", "windows", "adwaita"),
                                          testing::Values("usual", "large")),
                         [](const auto& desktop) {
                           return std::string(std::get<0>(desktop.param)) + "_" + std::get<1>(desktop.param);
                         });

}  // namespace

}  // namespace torvane
