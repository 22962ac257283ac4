// SPDX-License-Identifier: MIT
// A page of the guide, in the colours and the font of the system, with the words marked that were looked for.
#pragma once

#include <QTextBrowser>

namespace torvane {

class HelpView : public QTextBrowser {
 public:
  explicit HelpView(QWidget* parent = nullptr);

  void showPage(const QString& file);
  QString page() const { return page_; }  // "faults.html"

  // Marks the words on this page and the next ones, in any case of letters, and goes to the first of them.
  void mark(const QStringList& words);
  // Goes to the next marked place (1) or the one before (-1), around the ends.
  void step(int by);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void loadAgain();
  void arrive(const QUrl& source);
  void markWords();
  void goTo(const ExtraSelection& mark);

  QString page_;  // the toolkit tells of a change before it knows the new source itself
  QStringList words_;
  qsizetype at_ = 0;  // which of the marked places was gone to last
};

}  // namespace torvane
