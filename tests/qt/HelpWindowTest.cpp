// SPDX-License-Identifier: MIT
// The window of the user guide: how it opens, what it finds, how it is used by keyboard, how it looks.
#include "platform/qt/HelpWindow.h"

#include <QPushButton>
#include <QScrollBar>

#include "editor/frmBigFolder.h"
#include "platform/qt/Layouts.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

constexpr const char* guidePath = "\\TorvaneConfiguration.chm>";

HelpWindow* helpWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "helpWindow") return static_cast<HelpWindow*>(window);
  }
  return nullptr;
}

class HelpWindowTest : public QtTest {
 protected:
  ~HelpWindowTest() override { delete helpWindow(); }

  HelpWindow& open() {
    host_.showHelp(guidePath);
    EXPECT_TRUE(takesKeys(*helpWindow()));
    return *helpWindow();
  }
  template <class Widget>
  Widget& part(const char* name) {
    return *helpWindow()->findChild<Widget*>(name);
  }
  HelpView& view() { return *static_cast<HelpView*>(helpWindow()->findChild<QTextBrowser*>("helpPage")); }
  QListWidget& found() { return part<QListWidget>("helpFound"); }
  QString selected() { return view().textCursor().selectedText(); }
  void press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, with);
  }
};

TEST_F(HelpWindowTest, OpensTheGuideByItsName) {
  const auto& window = open();
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.windowModality(), Qt::NonModal);
  EXPECT_EQ(window.windowTitle(), "Contents - Help");
  EXPECT_EQ(view().page(), "index.html");
}

TEST_F(HelpWindowTest, ANameItDoesNotKnowOpensNothing) {
  for (const char* path : {"\\MPL configuration.chm>", ">", "", ">TorvaneConfiguration", "index.html>"}) {
    host_.showHelp(path);
    EXPECT_EQ(helpWindow(), nullptr) << path;
  }
}

TEST_F(HelpWindowTest, AskedForAgainItComesToTheFrontAsItIs) {
  const auto* window = &open();
  view().showPage("faults.html");
  host_.showHelp(std::string(guidePath) + "main");
  EXPECT_EQ(helpWindow(), window);
  EXPECT_EQ(view().page(), "faults.html");
}

TEST_F(HelpWindowTest, IsGoneWhenClosedAndBeginsAnew) {
  open();
  view().showPage("faults.html");
  helpWindow()->close();
  host_.yield();
  EXPECT_EQ(helpWindow(), nullptr);
  open();
  EXPECT_EQ(view().page(), "index.html");
}

TEST_F(HelpWindowTest, EndsWithTheMachine) {
  {
    QtHost machine;
    machine.showHelp(guidePath);
    EXPECT_NE(helpWindow(), nullptr);
  }
  EXPECT_EQ(helpWindow(), nullptr);
}

TEST_F(HelpWindowTest, FindsAWordOnItsPage) {
  open().search("DIALOUT group");
  EXPECT_EQ(found().item(0)->text(), "Serial ports on Linux");
  EXPECT_TRUE(found().isVisible());
  press(Qt::Key_F, Qt::ControlModifier);
  press(Qt::Key_Return);
  EXPECT_EQ(view().page(), "serial-ports.html");
  EXPECT_EQ(selected().toLower(), "group");
  EXPECT_TRUE(view().viewport()->rect().contains(view().cursorRect()));
}

TEST_F(HelpWindowTest, FindsKeywordsThatThePageDoesNotSay) {
  open().search("pt100");
  ASSERT_EQ(found().count(), 1);
  EXPECT_EQ(found().item(0)->text(), "Tab \"Input type\"");
}

TEST_F(HelpWindowTest, PagesWithAWordInTheirTitleComeFirst) {
  open().search("wizard");
  EXPECT_EQ(found().item(0)->text(), "Connection wizard");
  EXPECT_GT(found().count(), 2);
}

TEST_F(HelpWindowTest, ThenThoseThatHaveItMostOften) {
  open().search("loop break");
  EXPECT_EQ(found().item(0)->text(), "Tab \"LB alarm\"");
}

TEST_F(HelpWindowTest, MarksEveryPlaceOnThePage) {
  open().search("loop break");
  view().showPage("tab-lb-alarm.html");
  const auto marks = view().extraSelections();
  EXPECT_GE(marks.size(), 4);
  for (const auto& mark : marks) EXPECT_EQ(mark.cursor.selectedText().toLower(), "loop break");
  EXPECT_EQ(marks.first().format.background(), view().palette().highlight());
}

TEST_F(HelpWindowTest, StepsFromPlaceToPlaceAndAroundTheEnds) {
  open().search("alarm");
  view().showPage("tab-alarm-2.html");
  const int first = view().textCursor().selectionStart();
  press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(view().textCursor().selectionStart(), view().extraSelections().last().cursor.selectionStart());
  press(Qt::Key_F3);
  EXPECT_EQ(view().textCursor().selectionStart(), first);
  press(Qt::Key_F3);
  EXPECT_GT(view().textCursor().selectionStart(), first);
}

TEST_F(HelpWindowTest, SaysSoWhenNoPageHasTheWords) {
  open().search("xyzzy");
  ASSERT_EQ(found().count(), 1);
  EXPECT_EQ(found().item(0)->text(), "No page has these words");
  press(Qt::Key_F, Qt::ControlModifier);
  press(Qt::Key_Return);
  EXPECT_EQ(view().page(), "index.html");
}

TEST_F(HelpWindowTest, AnySearchWillDo) {
  auto& window = open();
  const auto pages = QDir(":/help").entryList({"*.html"}).size();
  for (const QString& query : {QString("<b>"), QString(5000, 'x'), QString("a ").repeated(3000),
                               QString(" \t"), QString("[(*?\\"), QString(QChar(0xD800))}) {
    window.search(query);
    EXPECT_LE(found().count(), pages);
  }
}

TEST_F(HelpWindowTest, IsUsedByKeyboardAlone) {
  open();
  EXPECT_TRUE(part<QTreeWidget>("helpContents").hasFocus());
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(part<QLineEdit>("helpQuery").hasFocus());
  QTest::keyClicks(QApplication::focusWidget(), "relayon");
  press(Qt::Key_Down);
  EXPECT_TRUE(found().hasFocus());
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  EXPECT_EQ(view().documentTitle(), found().item(1)->text());
  press(Qt::Key_F1);
  EXPECT_EQ(view().page(), "index.html");
  press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(view().documentTitle(), found().item(1)->text());
  press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(view().page(), "index.html");
  press(Qt::Key_Escape);
  EXPECT_TRUE(part<QTreeWidget>("helpContents").isVisible());
  EXPECT_TRUE(view().extraSelections().isEmpty());
  press(Qt::Key_Escape);
  host_.yield();
  EXPECT_EQ(helpWindow(), nullptr);
}

TEST_F(HelpWindowTest, TheContentsAndTheButtonsGoWithThePage) {
  open();
  EXPECT_FALSE(part<QPushButton>("helpBack").isEnabled());
  auto& contents = part<QTreeWidget>("helpContents");
  view().showPage("files.html");
  ASSERT_NE(contents.currentItem(), nullptr);
  EXPECT_EQ(contents.currentItem()->text(0), "Configuration files");
  EXPECT_EQ(helpWindow()->windowTitle(), "Configuration files - Help");
  part<QPushButton>("helpBack").click();
  EXPECT_EQ(view().page(), "index.html");
  EXPECT_TRUE(contents.selectedItems().isEmpty());
  part<QPushButton>("helpForward").click();
  EXPECT_EQ(view().page(), "files.html");
  part<QPushButton>("helpHome").click();
  EXPECT_EQ(view().page(), "index.html");
}

TEST_F(HelpWindowTest, EverythingHasANameToSay) {
  open();
  for (const char* name : {"helpQuery", "helpContents", "helpFound", "helpPage"}) {
    EXPECT_FALSE(part<QWidget>(name).accessibleName().isEmpty()) << name;
  }
  for (const auto* button : helpWindow()->findChildren<QPushButton*>())
    EXPECT_FALSE(button->text().isEmpty());
}

TEST_F(HelpWindowTest, FollowsThePaletteAndKeepsItsPlace) {
  open().search("cycle");
  view().showPage("tab-out1.html");
  view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
  const int place = view().verticalScrollBar()->value();
  const QPalette usual = QApplication::palette();
  QPalette dark = usual;
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::Highlight, Qt::magenta);
  QApplication::setPalette(dark);
  host_.yield();
  EXPECT_EQ(view().viewport()->grab().toImage().pixelColor(1, 1), QColor(Qt::black));
  EXPECT_EQ(view().extraSelections().first().format.background().color(), QColor(Qt::magenta));
  EXPECT_EQ(view().verticalScrollBar()->value(), place);
  QApplication::setPalette(usual);
}

// The picture's size at the top of the page is that of the font.
TEST_F(HelpWindowTest, PicturesGrowWithTheFontAndTakeTheColoursOfThePalette) {
  open();
  const QUrl url("qrc:/pictures/imgTC.svg");
  const auto picture = [&] {
    return view().loadResource(QTextDocument::ImageResource, url).value<QPixmap>();
  };
  const QPixmap usual = picture();
  QFont larger = view().font();
  larger.setPointSizeF(larger.pointSizeF() * 2);
  view().setFont(larger);
  EXPECT_GT(picture().width(), usual.width() * 3 / 2);
  QPalette palette = view().palette();
  palette.setColor(QPalette::Text, Qt::magenta);
  view().setPalette(palette);
  view().setFont(QApplication::font());
  EXPECT_NE(picture().toImage(), usual.toImage());
}

TEST_F(HelpWindowTest, NoPageNeedsSidewaysScrolling) {
  auto& window = open();
  window.resize(1024, 700);
  for (const QString& file : QDir(":/help").entryList({"*.html"})) {
    view().showPage(file);
    host_.yield();
    EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0) << file.toStdString();
  }
}

void buildKeyed(QWidget& window) {
  window.setObjectName("frmKeyed");
  window.setMinimumSize(160, 64);
  auto* button = new QPushButton(&window);
  button->setObjectName("cmdKeyed");
  button->setProperty("key", "F1");
}

struct KeyedForm : Form {
  KeyedForm() : Form("frmKeyed", "Keyed") {}
  CommandButton cmdKeyed{*this, "cmdKeyed", "Keyed"};
};

TEST_F(HelpWindowTest, AKeyOfTheLayoutPressesItsButton) {
  layouts().push_back({"frmKeyed", buildKeyed});
  auto& keyed = form<KeyedForm>();
  int presses = 0;
  keyed.cmdKeyed.onClick = [&] { ++presses; };
  keyed.show();
  EXPECT_TRUE(takesKeys(host_.window(keyed)));
  QTest::keyClick(&host_.window(keyed), Qt::Key_F1);
  EXPECT_EQ(presses, 1);
  unload<KeyedForm>();
  layouts().pop_back();
}

TEST_F(HelpWindowTest, F1AsksForHelpOnTheMainWindow) {
  const auto main = std::make_shared<frmBigFolder>();
  EXPECT_EQ(host_.window(*main).findChild<QPushButton*>("cmdHelp")->property("key").toString(), "F1");
  host_.release(*main);
}

}  // namespace

}  // namespace torvane
