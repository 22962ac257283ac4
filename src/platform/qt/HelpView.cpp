// SPDX-License-Identifier: MIT
// A page of the guide, in the colours and the font of the system.
#include "platform/qt/HelpView.h"

#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/PictureView.h"

namespace {

const QUrl folder("qrc:/help/");

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
  connect(this, &QTextBrowser::sourceChanged, this, [this] { markWords(); });
}

void HelpView::showPage(const QString& file) { setSource(folder.resolved(QUrl(file))); }

QString HelpView::page() const { return source().fileName(); }

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
  if (marks.isEmpty()) return;
  moveCursor(QTextCursor::Start);
  step(true);
}

void HelpView::step(bool forward) {
  const auto marks = extraSelections();
  if (marks.isEmpty()) return;
  const int here = textCursor().selectionStart();
  const bool fresh = !textCursor().hasSelection();
  const auto* goal = forward ? &marks.first() : &marks.last();
  if (forward) {
    const auto next = std::ranges::find_if(marks, [&](const auto& mark) {
      return mark.cursor.selectionStart() > here || (fresh && mark.cursor.selectionStart() == here);
    });
    if (next != marks.end()) goal = &*next;
  } else {
    const auto before = std::find_if(marks.rbegin(), marks.rend(),
                                     [&](const auto& mark) { return mark.cursor.selectionStart() < here; });
    if (before != marks.rend()) goal = &*before;
  }
  setTextCursor(goal->cursor);
  ensureCursorVisible();
}

// A page's drawings are those of the program, redrawn for this palette and font.
QVariant HelpView::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::ImageResource) {
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
  if (loading_ || source().isEmpty()) return;
  loading_ = true;
  const int place = verticalScrollBar()->value();
  reload();
  markWords();
  verticalScrollBar()->setValue(place);
  loading_ = false;
}
