// SPDX-License-Identifier: MIT
// The window of the user guide: contents and search on the left, the page on the right. It blocks nothing,
// remembers nothing, and is gone when it is closed.
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QWidget>

#include "platform/qt/HelpGuide.h"
#include "platform/qt/HelpView.h"

namespace torvane {

class HelpWindow : public QWidget {
 public:
  explicit HelpWindow(HelpGuide guide);

  void search(const QString& query);  // an empty one brings the contents back

 private:
  void build();
  QWidget* commands();
  QWidget* sidePane();
  void fillContents();
  void addKeys();
  void setFirstSize();
  void follow();
  void leave();
  void openFirstFound();

  const HelpGuide guide_;
  QLineEdit* const query_ = new QLineEdit(this);
  QStackedWidget* const side_ = new QStackedWidget(this);
  QTreeWidget* const contents_ = new QTreeWidget(this);
  QListWidget* const found_ = new QListWidget(this);
  HelpView* const view_ = new HelpView(this);
};

}  // namespace torvane
