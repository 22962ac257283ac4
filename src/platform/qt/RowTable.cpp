// SPDX-License-Identifier: MIT
// The rows of a Table.
#include "platform/qt/RowTable.h"

#include <QEvent>
#include <QHeaderView>

#include "platform/qt/Bounds.h"
#include "platform/qt/Ink.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constexpr int mostOfCell = 120;  // characters
constexpr int air = 6;           // pixels above and below the text of a row
constexpr QSize wanted(72, 14);  // characters and rows
constexpr QSize least(36, 6);

}  // namespace

bool RowModel::take(const Table& control) {
  std::vector<Mark> marks;
  marks.reserve(control.items().size());
  for (int row = 0; row < control.listCount(); ++row) marks.push_back(control.itemMark(row));
  if (control.items() == rows_ && control.headings() == headings_ && marks == marks_) return false;
  beginResetModel();
  headings_ = control.headings();
  rows_ = control.items();
  marks_ = std::move(marks);
  endResetModel();
  return true;
}

bool RowModel::isHeading(int row) const {
  return rows_.at(static_cast<std::size_t>(row)).find('\t') == std::string::npos;
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QStringList RowModel::cellsOf(int row) const {
  return shown(rows_.at(static_cast<std::size_t>(row))).split('\t');
}

QVariant RowModel::ink(int row) const {
  if (marks_.at(static_cast<std::size_t>(row)) == Mark::none) return {};
  return QBrush(errorInk(QPalette().color(QPalette::Base)));
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::ForegroundRole) return ink(index.row());
  if (role == Qt::FontRole && isHeading(index.row())) {
    QFont font;
    font.setBold(true);
    return font;
  }
  const bool words = role == Qt::DisplayRole || role == Qt::ToolTipRole;
  if (!words || index.column() >= cellsOf(index.row()).size()) return {};
  const QString cell = cellsOf(index.row()).at(index.column());
  return role == Qt::DisplayRole ? shortened(cell, mostOfCell) : tipText(cell);
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const auto at = static_cast<std::size_t>(section);
  if (orientation != Qt::Horizontal || at >= headings_.size()) return {};
  if (role == Qt::DisplayRole) return shortened(shown(headings_[at]), mostOfCell);
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

RowTable::RowTable(QWidget* parent) : QTableView(parent) {
  setModel(&rows_);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
  fitRows();
}

void RowTable::showRows(const Table& control) {
  if (rows_.take(control)) {
    clearSpans();
    for (int row = 0; row < rows_.rowCount(); ++row) {
      if (rows_.isHeading(row) && rows_.columnCount() > 1) setSpan(row, 0, 1, rows_.columnCount());
    }
  }
  if (control.listIndex() < 0) return clearSelection();
  const QModelIndex chosen = rows_.index(control.listIndex(), 0);
  if (!selectionModel()->isRowSelected(chosen.row())) setCurrentIndex(chosen);
}

QSize RowTable::roomFor(QSize characters) const {
  const int row = fontMetrics().height() + air;
  return {characters.width() * fontMetrics().horizontalAdvance(QChar('0')), characters.height() * row};
}

QSize RowTable::sizeHint() const { return roomFor(wanted); }

QSize RowTable::minimumSizeHint() const { return roomFor(least); }

void RowTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitRows();
}

void RowTable::fitRows() { verticalHeader()->setDefaultSectionSize(fontMetrics().height() + air); }

}  // namespace torvane
