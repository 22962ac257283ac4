// SPDX-License-Identifier: MIT
// Files on a real disk: reading, the exchange in one step, a full disk, a kill in the middle, the choosers.
#include "platform/qt/QtFiles.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <random>

#include "core/ConfigFile.h"
#include "platform/RuntimeError.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

class FilesTest : public QtTest {
 protected:
  QString at(const char* name) const { return folder_.filePath(name); }
  std::string path(const char* name = "setup.cfg") const { return at(name).toStdString(); }
  std::string content(const char* name = "setup.cfg") const { return readWhole(path(name), 1 << 20); }
  void put(const QByteArray& bytes) {
    QFile file(at("setup.cfg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  QTemporaryDir folder_;
};

std::string wordsOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return "nothing failed";
}

// ---- reading and writing

TEST_F(FilesTest, BringsBackWhatWasWritten) {
  const std::string bytes("\0\xFF\r\n cfg", 8);
  exchangeWhole(path(), bytes);
  EXPECT_EQ(content(), bytes);
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files).size(), 1) << "nothing else is left lying";
}

TEST_F(FilesTest, ReadsNoMoreThanIsAskedFor) {
  exchangeWhole(path(), std::string(3000000, 'x'));
  EXPECT_EQ(readWhole(path(), 2500000).size(), 2500000U);
  EXPECT_EQ(readWhole(path(), 0), "");
}

TEST_F(FilesTest, OpensAHugeFileAtOnce) {
  QFile file(at("setup.cfg"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_TRUE(file.resize(qint64{1} << 40));
  EXPECT_EQ(readWhole(path(), 100).size(), 100U);
}

TEST_F(FilesTest, KeepsTheTailOfALongerFile) {
  put("0123456789");
  exchangeWhole(path(), "abc");
  EXPECT_EQ(content(), "abc3456789");
  exchangeWhole(path(), "ABCDEFGHIJKL");
  EXPECT_EQ(content(), "ABCDEFGHIJKL");
}

TEST_F(FilesTest, KeepsWhoMayReadTheFile) {
  put("old");
  const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
  QFile::setPermissions(at("setup.cfg"), rights);
  exchangeWhole(path(), "new!");
  EXPECT_EQ(QFile::permissions(at("setup.cfg")) & (rights | QFile::ReadOther), rights);
}

TEST_F(FilesTest, WritesThroughALink) {
  put("old");
  QFile::link(at("setup.cfg"), at("link.cfg"));
  exchangeWhole(path("link.cfg"), "new");
  EXPECT_TRUE(QFileInfo(at("link.cfg")).isSymLink());
  EXPECT_EQ(content(), "new");
}

TEST_F(FilesTest, TakesANameInAnyScript) {
  exchangeWhole(path("Öfen 温度.cfg"), "x");
  EXPECT_EQ(content("Öfen 温度.cfg"), "x");
}

// ---- faults, in the system's words

TEST_F(FilesTest, TellsWhyAFileCannotBeRead) {
  EXPECT_EQ(wordsOf([&] { readWhole(path("gone.cfg"), 1); }), "No such file or directory");
  EXPECT_EQ(wordsOf([&] { readWhole(folder_.path().toStdString(), 1); }), "Is a directory");
}

TEST_F(FilesTest, TellsWhyAFileCannotBeWritten) {
  EXPECT_NE(wordsOf([&] { exchangeWhole(path("no/such/folder.cfg"), "x"); }), "nothing failed");
  EXPECT_NE(wordsOf([&] { exchangeWhole(folder_.path().toStdString(), "x"); }), "nothing failed");
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFile) {
  put("the old one");
  QProcess saver;
  saver.start(FILE_SAVER, {at("setup.cfg"), "1000"});
  ASSERT_TRUE(saver.waitForFinished());
  EXPECT_EQ(saver.exitCode(), 1);
  EXPECT_EQ(saver.readAllStandardOutput(), "File too large");
  EXPECT_EQ(content(), "the old one");
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(FilesTest, AKillInTheMiddleLeavesTheOldOneOrTheNewOne) {
  std::mt19937 random(5);
  put(QByteArray(50000, 'b'));
  int changes = 0;
  // A busy machine starts the saver late, and is given more time and more rounds.
  for (int round = 0; round < 100 || (changes <= 5 && round < 1000); ++round) {
    const std::string before = content();
    QProcess saver;
    saver.start(FILE_SAVER, {at("setup.cfg")});
    ASSERT_TRUE(saver.waitForStarted());
    saver.waitForFinished(static_cast<int>(random() % static_cast<unsigned>(40 + round)));
    saver.kill();
    ASSERT_TRUE(saver.waitForFinished());
    const std::string now = content();
    ASSERT_EQ(now, std::string(50000, now.front()));
    if (now != before) ++changes;
  }
  EXPECT_GT(changes, 5) << "the saver was never at work";
}

// ---- a folder that takes no second file

// A name so long that a temporary file beside it would have one too long. It holds for every user, root as
// well, whom no folder refuses anything.
class InPlace : public FilesTest {
 protected:
  InPlace() { qputenv("XDG_DATA_HOME", data_.path().toUtf8()); }
  ~InPlace() override { qputenv("XDG_DATA_HOME", before_); }

  const QByteArray name_ = QByteArray(251, 'n') + ".cfg";
  void put(const QByteArray& bytes) {
    QFile file(at(name_.constData()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  std::string path() const { return FilesTest::path(name_.constData()); }
  std::string content() const { return readWhole(path(), 1 << 20); }
  void expectNothingLeftLying() const {
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(QDir(QString::fromStdString(dataFolder())).entryList(QDir::Files).isEmpty());
  }

 private:
  const QByteArray before_ = qgetenv("XDG_DATA_HOME");
  QTemporaryDir data_;
};

TEST_F(InPlace, TheFileIsWrittenOver) {
  put("0123456789");
  exchangeWhole(path(), "abc");
  EXPECT_EQ(content(), "abc3456789");
  exchangeWhole(path(), "ABCDEFGHIJKL");
  EXPECT_EQ(content(), "ABCDEFGHIJKL");
  replaceWhole(path(), "xy");
  EXPECT_EQ(content(), "xy");
  expectNothingLeftLying();
}

TEST_F(InPlace, AFullDiskBringsTheOldBytesBack) {
  put("the old one");
  QProcess saver;
  saver.start(FILE_SAVER, {at(name_.constData()), "1000", "in place"});
  ASSERT_TRUE(saver.waitForFinished());
  EXPECT_EQ(saver.exitCode(), 1);
  EXPECT_EQ(saver.readAllStandardOutput(), "File too large");
  EXPECT_EQ(content(), "the old one");
  expectNothingLeftLying();
}

TEST_F(InPlace, AFileThatIsNotThereIsNotMade) {
  EXPECT_NE(wordsOf([&] { overwriteWhole(path(), "x"); }), "nothing failed");
  EXPECT_TRUE(QDir(folder_.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(InPlace, TheDataFolderIsTheUsersOwnAndIsMade) {
  const QString folder = QString::fromStdString(dataFolder());
  EXPECT_TRUE(folder.startsWith(qEnvironmentVariable("XDG_DATA_HOME"))) << folder.toStdString();
  EXPECT_TRUE(QDir(folder).exists());
}

TEST_F(FilesTest, RenamesAndSaysWhyItCannot) {
  put("x");
  renameWhole(path(), path("other.cfg"));
  EXPECT_EQ(content("other.cfg"), "x");
  EXPECT_NE(wordsOf([&] { renameWhole(path("gone.cfg"), path("new.cfg")); }), "nothing failed");
}

// ---- the choosers

TEST_F(FilesTest, OffersTheFiltersAsTheToolkitWantsThem) {
  EXPECT_EQ(toolkitFilter(configFilter), "Configuration Files (*.cfg);;All Files (*)");
}

// Answers the next chooser with a name as a person types it.
void answerChooser(const QString& name) {
  QTimer::singleShot(0, [name] {
    auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(chooser, nullptr);
    auto* box = chooser->findChild<QLineEdit*>("fileNameEdit");
    box->setText(name);
    if (name.isEmpty()) return chooser->reject();
    QTest::keyClick(box, Qt::Key_Return);
  });
}

TEST_F(FilesTest, OpensByTheNameThatIsTyped) {
  put("x");
  FileChooser chooser{QApplication::activeWindow};
  answerChooser(at("setup.cfg"));
  EXPECT_EQ(chooser.chooseToOpen(configFilter), path());
  answerChooser("");
  EXPECT_EQ(chooser.chooseToOpen(configFilter), "");
}

TEST_F(FilesTest, OffersTheFolderOfTheLastChoiceAndTheUsualEnding) {
  put("x");
  FileChooser chooser{QApplication::activeWindow};
  answerChooser(at("setup.cfg"));
  chooser.chooseToOpen(configFilter);
  answerChooser("second");
  EXPECT_EQ(chooser.chooseToSave(configFilter), path("second.cfg"));
}

TEST_F(FilesTest, AsksBeforeItSavesOverAFile) {
  put("x");
  FileChooser chooser{QApplication::activeWindow};
  QString question;
  answerChooser(at("setup.cfg"));
  QTimer::singleShot(200, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    question = box->text();
    box->button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(chooser.chooseToSave(configFilter), path());
  EXPECT_TRUE(question.contains("setup.cfg"));
}

}  // namespace

}  // namespace torvane
