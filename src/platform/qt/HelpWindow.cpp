// SPDX-License-Identifier: MIT
// The window of the user guide.
#include "platform/qt/HelpWindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>
#include <functional>
#include <utility>

namespace torvane {

namespace {

constexpr int margin = 8;
constexpr int fileRole = Qt::UserRole;

void onKey(QWidget* window, const QKeySequence& key, std::function<void()> act) {
  const auto* shortcut = new QShortcut(key, window);
  QObject::connect(shortcut, &QShortcut::activated, window, std::move(act));
}

void name(QWidget* widget, const char* objectName, const QString& words) {
  widget->setObjectName(objectName);
  widget->setAccessibleName(words);
}

QPushButton* button(const char* objectName, const QString& caption, const QString& tip) {
  auto* made = new QPushButton(caption);
  made->setObjectName(objectName);
  made->setToolTip(tip);
  made->setAutoDefault(false);
  return made;
}

}  // namespace

HelpWindow::HelpWindow(HelpGuide guide) : guide_(std::move(guide)) {
  setObjectName("helpWindow");
  setAttribute(Qt::WA_DeleteOnClose);
  name(query_, "helpQuery", "Search the guide");
  name(contents_, "helpContents", "Contents");
  name(found_, "helpFound", "Pages found");
  name(view_, "helpPage", "Page");
  build();
  fillContents();
  addKeys();
  setFirstSize();
  view_->showPage(guide_.home);
  contents_->setFocus();
}

void HelpWindow::build() {
  auto* panes = new QSplitter(this);
  panes->setChildrenCollapsible(false);
  panes->addWidget(sidePane());
  panes->addWidget(view_);
  panes->setStretchFactor(0, 3);
  panes->setStretchFactor(1, 7);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  rows->addWidget(commands());
  rows->addWidget(panes, 1);
  connect(view_, &QTextBrowser::sourceChanged, this, [this] { follow(); });
}

QWidget* HelpWindow::commands() {
  auto* row = new QWidget(this);
  auto* back = button("helpBack", "< &Back", "The page before (Alt+Left)");
  auto* forward = button("helpForward", "&Forward >", "The page after (Alt+Right)");
  auto* home = button("helpHome", "&Contents", "The first page (F1)");
  auto* label = new QLabel("&Search");
  label->setBuddy(query_);
  auto* columns = new QHBoxLayout(row);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(margin);
  columns->addWidget(label);
  columns->addWidget(query_);
  for (QWidget* widget : {back, forward, home}) columns->addWidget(widget);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(view_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(view_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  connect(back, &QPushButton::clicked, view_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, view_, &QTextBrowser::forward);
  connect(home, &QPushButton::clicked, view_, [this] { view_->showPage(guide_.home); });
  return row;
}

// The contents, and in their place, while something is looked for, the pages that have it.
QWidget* HelpWindow::sidePane() {
  contents_->setHeaderHidden(true);
  side_->addWidget(contents_);
  side_->addWidget(found_);
  query_->setClearButtonEnabled(true);
  query_->setPlaceholderText("A word or a message");
  const auto showTree = [this](QTreeWidgetItem* item) {
    const QString file = item->data(0, fileRole).toString();
    if (!file.isEmpty()) view_->showPage(file);
  };
  const auto showFound = [this](QListWidgetItem* item) { view_->showPage(item->data(fileRole).toString()); };
  connect(contents_, &QTreeWidget::itemClicked, this, showTree);
  connect(contents_, &QTreeWidget::itemActivated, this, showTree);
  connect(found_, &QListWidget::itemClicked, this, showFound);
  connect(found_, &QListWidget::itemActivated, this, showFound);
  connect(query_, &QLineEdit::textChanged, this, &HelpWindow::search);
  connect(query_, &QLineEdit::returnPressed, this, [this] { openFirstFound(); });
  return side_;
}

void HelpWindow::fillContents() {
  for (const HelpSection& section : guide_.sections) {
    auto* heading = new QTreeWidgetItem(contents_, {section.title});
    for (const HelpPage& page : section.pages) {
      auto* item = new QTreeWidgetItem(heading, {page.title});
      item->setToolTip(0, page.title);
      item->setData(0, fileRole, page.file);
    }
  }
  contents_->expandAll();
}

void HelpWindow::addKeys() {
  onKey(this, QKeySequence::Find, [this] {
    query_->setFocus();
    query_->selectAll();
  });
  onKey(this, QKeySequence("F1"), [this] { view_->showPage(guide_.home); });
  onKey(this, QKeySequence("F3"), [this] { view_->step(1); });
  onKey(this, QKeySequence("Shift+F3"), [this] { view_->step(-1); });
  onKey(this, QKeySequence("Alt+Left"), [this] { view_->backward(); });
  onKey(this, QKeySequence("Alt+Right"), [this] { view_->forward(); });
  onKey(this, QKeySequence("Esc"), [this] { leave(); });
  const auto* down = new QShortcut(QKeySequence("Down"), query_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(down, &QShortcut::activated, this, [this] { side_->currentWidget()->setFocus(); });
}

void HelpWindow::setFirstSize() {
  const QSize wanted(fontMetrics().averageCharWidth() * 160, fontMetrics().height() * 42);
  resize(wanted.boundedTo(screen()->availableSize() * 0.9));
}

void HelpWindow::search(const QString& query) {
  const QStringList words = helpWords(guide_, query);
  found_->clear();
  for (const HelpPage* page : pagesWith(guide_, words)) {
    auto* item = new QListWidgetItem(page->title, found_);
    item->setData(fileRole, page->file);
  }
  found_->setCurrentRow(0);
  side_->setCurrentWidget(words.isEmpty() ? static_cast<QWidget*>(contents_) : found_);
  if (!words.isEmpty() && found_->count() == 0) {
    auto* nothing = new QListWidgetItem("No page has these words", found_);
    nothing->setFlags(Qt::NoItemFlags);
  }
  view_->mark(words);
}

void HelpWindow::openFirstFound() {
  if (found_->currentItem() != nullptr) view_->showPage(found_->currentItem()->data(fileRole).toString());
}

// The title and the contents go with the page.
void HelpWindow::follow() {
  setWindowTitle(view_->documentTitle() + " - Help");
  QTreeWidgetItem* current = nullptr;
  for (QTreeWidgetItemIterator at(contents_); *at != nullptr; ++at) {
    if ((*at)->data(0, fileRole).toString() == view_->page()) current = *at;
  }
  contents_->setCurrentItem(current);
  if (current == nullptr) contents_->clearSelection();
}

// First the search goes, then the window.
void HelpWindow::leave() {
  if (query_->text().isEmpty()) {
    close();
    return;
  }
  query_->clear();
  contents_->setFocus();
}

}  // namespace torvane
