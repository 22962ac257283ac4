// SPDX-License-Identifier: MIT
// A page of the guide, in the colours and the font of the system.
#include "platform/qt/HelpView.h"

#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/PictureView.h"

namespace torvane {

namespace {

QTextEdit::ExtraSelection marked(const QTextCursor& place, const QPalette& palette) {
  QTextEdit::ExtraSelection mark;
  mark.cursor = place;
  mark.format.setBackground(palette.highlight());
  mark.format.setForeground(palette.highlightedText());
  return mark;
}

}  // namespace

HelpView::HelpView(QWidget* parent) : QTextBrowser(parent) {
  setOpenExternalLinks(false);
  connect(this, &QTextBrowser::sourceChanged, this, &HelpView::arrive);
}

void HelpView::showPage(const QString& file) { setSource("qrc:/help/" + file); }

void HelpView::arrive(const QUrl& source) {
  page_ = source.fileName();
  markWords();
}

void HelpView::mark(const QStringList& words) {
  words_ = words;
  markWords();
}

void HelpView::markWords() {
  QList<QTextEdit::ExtraSelection> marks;
  for (const QString& word : words_) {
    QTextCursor at(document());
    while (!(at = document()->find(word, at)).isNull()) marks << marked(at, palette());
  }
  std::ranges::stable_sort(marks, {}, [](const auto& mark) { return mark.cursor.selectionStart(); });
  setExtraSelections(marks);
  at_ = 0;
  if (!marks.isEmpty()) goTo(marks.first());
}

void HelpView::step(int by) {
  const auto marks = extraSelections();
  if (marks.isEmpty()) return;
  at_ = (at_ + by + marks.size()) % marks.size();
  goTo(marks[at_]);
}

void HelpView::goTo(const ExtraSelection& mark) {
  setTextCursor(mark.cursor);
  ensureCursorVisible();
}

// A page's drawings are those of the program, redrawn for this palette and font; pictures of its windows lie
// beside the pages.
QVariant HelpView::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::ImageResource && name.path().endsWith(".svg")) {
    return drawnPicture(QFileInfo(name.path()).baseName(), *viewport(), QPalette::Text);
  }
  return QTextBrowser::loadResource(type, name);
}

void HelpView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) loadAgain();
}

// Colours are taken from the palette when a page is laid out.
void HelpView::loadAgain() {
  if (source().isEmpty()) return;
  const int place = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(place);
}

}  // namespace torvane
