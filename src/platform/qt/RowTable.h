// SPDX-License-Identifier: MIT
// The rows of a Table: cells in columns, headings across them. Rows of one height and no item of its own for
// each cell keep thousands of them quick.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "platform/Controls.h"

namespace torvane {

class RowModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  // False: the rows are on show already.
  bool take(const Table& control);
  bool isHeading(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList cellsOf(int row) const;
  QVariant ink(int row) const;

  std::vector<std::string> headings_;
  std::vector<std::string> rows_;
  std::vector<Mark> marks_;
};

class RowTable : public QTableView {
  Q_OBJECT

 public:
  explicit RowTable(QWidget* parent = nullptr);

  void showRows(const Table& control);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void fitRows();
  QSize roomFor(QSize characters) const;

  RowModel rows_{this};
};

}  // namespace torvane
