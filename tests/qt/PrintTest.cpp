// SPDX-License-Identifier: MIT
// The report on paper: as a PDF, whose words are looked up by an independent reader, and through a real print
// queue.
#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QPrintDialog>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QXmlStreamReader>
#include <csignal>
#include <functional>

#include "core/Global.h"
#include "dialogs/Report.h"
#include "editor/frmBigFolder.h"
#include "platform/RuntimeError.h"
#include "platform/qt/QtPrinterDevice.h"
#include "qt/PrintServer.h"
#include "session/ScriptedHost.h"

namespace torvane {

namespace {

// A user whom the splash does not keep waiting.
class HastyHost : public ScriptedHost {
 public:
  double now() override { return ScriptedHost::now() + skipped_; }
  void idle(double seconds) override {
    skipped_ += seconds;
    ScriptedHost::yield();
  }

 private:
  double skipped_ = 0;
};

struct Word {
  QString text;
  int page;
  QRectF box;  // points from the upper left corner of the sheet
};

QByteArray outputOf(const char* program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished()) << program << ": " << process.errorString().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

std::vector<Word> wordsOf(const QString& pdf) {
  std::vector<Word> words;
  QXmlStreamReader reader(outputOf("pdftotext", {"-bbox", pdf, "-"}));
  int page = 0;
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (reader.name() == QString("page")) ++page;
    if (reader.name() != QString("word")) continue;
    const auto edges = reader.attributes();
    const auto edge = [&](const char* name) { return edges.value(QLatin1String(name)).toDouble(); };
    const QRectF box(QPointF(edge("xMin"), edge("yMin")), QPointF(edge("xMax"), edge("yMax")));
    words.push_back({reader.readElementText(), page, box});
  }
  return words;
}

Word find(const std::vector<Word>& words, const char* text) {
  const auto found = std::ranges::find(words, QString(text), &Word::text);
  EXPECT_NE(found, words.end()) << text;
  return found == words.end() ? Word{} : *found;
}

// Does this with the next dialog of its kind as soon as it is on show.
template <class Dialog>
void onDialog(const std::function<void(Dialog&)>& action) {
  QTimer::singleShot(0, [action] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    action(*dialog);
  });
}

class Print : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    user = new HastyHost;
    setMachine(user);
    form<frmBigFolder>();
  }
  static void TearDownTestSuite() {
    unloadAllForms();
    setMachine(nullptr);
    delete user;
  }

  Print() {
    Global.FileName.clear();
    user->pdf = pdf;
  }
  ~Print() override { Global.FileName.clear(); }

  // The part of the sheet that can be printed on.
  static QRectF printable() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    return printer.pageLayout().paintRect(QPageLayout::Point);
  }

  static inline HastyHost* user = nullptr;
  QTemporaryDir folder;
  const QString pdf = folder.filePath("report.pdf");
};

// ---- a PDF

TEST_F(Print, IntoAPdfPutsEachWordInItsPlace) {
  printReport();
  const auto words = wordsOf(pdf);
  const QRectF area = printable();
  constexpr double near = 0.6;  // points: what a printer's dots and a font's bearings make
  EXPECT_NEAR(find(words, "Torvane/LARKSPUR").box.left(), area.left() + 72, near);
  EXPECT_NEAR(find(words, "Set-Point").box.left(), area.left() + 96, near);
  EXPECT_NEAR(find(words, "None").box.left(), area.left() + 216, near);
  EXPECT_NEAR(find(words, "Green").box.left(), area.left() + 216, near);
  EXPECT_NEAR(find(words, "Untitled").box.center().x(), area.center().x(), near);
  EXPECT_NEAR(find(words, "Untitled").box.top(), area.top(), 6);
  const Word footer = find(words, "Ashgrove");
  EXPECT_NEAR(footer.box.left(), area.left() + 72, near);
  EXPECT_GT(footer.box.top(), area.bottom() - 72);
  EXPECT_LT(find(words, "Page:").box.bottom(), area.bottom());
  EXPECT_NEAR(words[words.size() - 1].box.right(), area.right(), near);
}

TEST_F(Print, IntoAPdfTurnsThePageAndNeverPrintsOneWordOverAnother) {
  printReport();
  const auto words = wordsOf(pdf);
  EXPECT_EQ(words.back().page, 2);
  EXPECT_EQ(std::ranges::count(words, QString("Untitled"), &Word::text), 2);
  for (const Word& one : words) {
    // Boxes of neighbouring lines may touch; what counts is the middle of the letters.
    const QRectF core = one.box.adjusted(0.1, one.box.height() / 3, -0.1, -one.box.height() / 3);
    const auto over = std::ranges::count_if(
        words, [&](const Word& other) { return other.page == one.page && other.box.intersects(core); });
    EXPECT_EQ(over, 1) << one.text.toStdString() << " on page " << one.page;
  }
}

TEST_F(Print, IntoAPdfUsesAFixedWidthFontPlainAndBold) {
  printReport();
  const QString fonts = outputOf("pdffonts", {pdf});
  EXPECT_EQ(fonts.count("Bold"), 1) << fonts.toStdString();
  EXPECT_GE(fonts.count('\n'), 4) << fonts.toStdString();
  const auto device = pdfPrinter(pdf);
  for (const char* font : {"Courier", "No Such Face"}) {
    device->setFont(font, 12);
    EXPECT_EQ(device->textWidth("iiiiiiiiii"), device->textWidth("WWWWWWWWWW")) << font;
    EXPECT_NEAR(device->textWidth("0123456789"), 1200, 12) << font;
  }
}

TEST_F(Print, IntoAPdfCountsInTwipsOfThePrintablePage) {
  const auto device = pdfPrinter(pdf);
  EXPECT_NEAR(device->pageWidth(), printable().width() * 20, 20);
  EXPECT_NEAR(device->pageHeight(), printable().height() * 20, 20);
  device->currentX = 1440;
  device->print("12345");
  EXPECT_EQ(device->currentX, 1440 + device->textWidth("12345"));
  device->endLine();
  EXPECT_EQ(device->currentX, 0);
  EXPECT_GT(device->currentY, 200);
  EXPECT_LT(device->currentY, 340);
  device->newPage();
  EXPECT_EQ(device->currentY, 0);
  EXPECT_EQ(device->page(), 2);
}

TEST_F(Print, OfADocumentThatIsNotEndedLeavesNothing) {
  {
    const auto device = pdfPrinter(pdf);
    device->print("half");
    device->newPage();
  }
  EXPECT_FALSE(QFile::exists(pdf));
}

// Files of this process grow to so many bytes while one of these lives.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

TEST_F(Print, OnAFullDiskLeavesTheOldFile) {
  printReport();
  const qint64 before = QFileInfo(pdf).size();
  const auto device = pdfPrinter(pdf);
  device->print("text");
  {
    const SmallDisk disk(2000);
    EXPECT_THROW(device->endDocument(), RuntimeError);
  }
  EXPECT_EQ(QFileInfo(pdf).size(), before);
  EXPECT_TRUE(outputOf("pdftotext", {pdf, "-"}).contains("Torvane"));
}

TEST_F(Print, IntoAFileThatCannotBeWrittenFailsInTheSystemsWords) {
  const auto device = pdfPrinter(folder.filePath("missing/report.pdf"));
  device->print("text");
  try {
    device->endDocument();
    FAIL() << "nothing was said";
  } catch (const RuntimeError& error) {
    EXPECT_STREQ(error.what(), "No such file or directory");
    EXPECT_EQ(error.number, 482);
  }
}

TEST_F(Print, OfLettersBeyondAsciiKeepsThem) {
  Global.FileName =
      "/setups/\xC3\x96"
      "fen.cfg";
  printReport();
  EXPECT_EQ(wordsOf(pdf).front().text, QString::fromUtf8("/setups/\xC3\x96"
                                                         "fen.cfg"));
}

// ---- where no printer is installed

TEST_F(Print, WithoutAPrinterAsksForAPdfNamedAfterTheFile) {
  user->pdf.clear();
  Global.FileName = "/setups/oven 3.cfg";
  QString offered;
  onDialog<QFileDialog>([&](QFileDialog& chooser) {
    offered = QFileInfo(chooser.selectedFiles().value(0)).fileName();
    EXPECT_EQ(chooser.acceptMode(), QFileDialog::AcceptSave);
    chooser.selectFile(folder.filePath("chosen"));
    static_cast<QDialog&>(chooser).findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
  });
  printReport();
  EXPECT_EQ(offered, "oven 3.pdf");
  EXPECT_EQ(wordsOf(folder.filePath("chosen.pdf")).back().page, 2);
}

TEST_F(Print, WithoutAPrinterAndWithACancelPrintsNothing) {
  user->pdf.clear();
  onDialog<QFileDialog>([](QFileDialog& chooser) { chooser.reject(); });
  printReport();
  EXPECT_EQ(Global.FileName, "");
  onDialog<QFileDialog>([](QFileDialog& chooser) { chooser.reject(); });
  try {
    user->choosePrinter("");
    FAIL() << "nothing was said";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 32755);
  }
}

// ---- through a queue of the system

class PrintQueue : public Print {
 protected:
  PrintQueue() { user->pdf.clear(); }
  PrintServer server;
};

TEST_F(PrintQueue, TakesTheReportAsItIsInAPdf) {
  ASSERT_TRUE(server.runs()) << server.log().toStdString();
  Global.FileName = "/setups/oven.cfg";
  onDialog<QPrintDialog>([](QPrintDialog& dialog) {
    EXPECT_EQ(dialog.printer()->printerName(), PrintServer::queue);
    for (auto option : {QAbstractPrintDialog::PrintToFile, QAbstractPrintDialog::PrintSelection,
                        QAbstractPrintDialog::PrintPageRange}) {
      EXPECT_FALSE(dialog.testOption(option)) << option;
    }
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  });
  printReport();
  ASSERT_TRUE(QTest::qWaitFor([this] { return QFile::exists(server.paper()); }, 10000))
      << server.log().toStdString();
  EXPECT_EQ(server.documents(), 1);
  const auto words = wordsOf(server.paper());
  EXPECT_EQ(words.front().text, "/setups/oven.cfg");
  EXPECT_EQ(words.back().page, 2);
  EXPECT_NEAR(find(words, "None").box.left() - find(words, "Protection:").box.left(), 120, 0.6);
}

TEST_F(PrintQueue, GetsNothingWhenTheChooserIsCancelled) {
  ASSERT_TRUE(server.runs()) << server.log().toStdString();
  onDialog<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
  printReport();
  EXPECT_EQ(Global.FileName, "");
  EXPECT_EQ(server.documents(), 0);
}

}  // namespace

}  // namespace torvane
