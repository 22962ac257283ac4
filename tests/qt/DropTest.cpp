// SPDX-License-Identifier: MIT
// Files that are dropped on a window.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "editor/frmBigFolder.h"
#include "qt/TestForm.h"

namespace torvane {

namespace {

struct Taker : TestForm {
  Taker() { takesFiles = true; }
  void Form_FileDropped(const std::string& path) override { dropped.push_back(path); }
  std::vector<std::string> dropped;
};

class Drops : public QtTest {
 protected:
  static bool offer(QWidget& at, const QMimeData& data) {
    QDragEnterEvent enters(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enters.ignore();
    QCoreApplication::sendEvent(&at, &enters);
    return enters.isAccepted();
  }
  static void drop(QWidget& at, const QMimeData& data) {
    QDropEvent falls(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&at, &falls);
    QCoreApplication::processEvents();
  }

  Taker& test_ = form<Taker>();
};

TEST_F(Drops, OneFileIsTaken) {
  test_.show();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/home/me/with blank.cfg")});
  EXPECT_TRUE(offer(host_.window(test_), data));
  drop(host_.window(test_), data);
  EXPECT_EQ(test_.dropped, std::vector<std::string>{"/home/me/with blank.cfg"});
}

TEST_F(Drops, AnythingElseIsNot) {
  test_.show();
  QMimeData two;
  two.setUrls({QUrl::fromLocalFile("/a.cfg"), QUrl::fromLocalFile("/b.cfg")});
  QMimeData far;
  far.setUrls({QUrl("https://example.com/a.cfg")});
  QMimeData text;
  text.setText("/a.cfg");
  for (const QMimeData* data : {&two, &far, &text}) EXPECT_FALSE(offer(host_.window(test_), *data));
}

TEST_F(Drops, ABoxTakesNoFileAsAText) {
  const auto editor = std::make_shared<frmBigFolder>();
  EXPECT_TRUE(editor->takesFiles);
  QWidget& window = host_.window(*editor);
  EXPECT_TRUE(window.acceptDrops());
  for (const QLineEdit* box : window.findChildren<QLineEdit*>()) EXPECT_FALSE(box->acceptDrops());
  host_.release(*editor);
}

}  // namespace

}  // namespace torvane
