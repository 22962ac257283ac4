// SPDX-License-Identifier: MIT
// A page of the guide, in the colours and the font of the system, with the words marked that were looked for.
#pragma once

#include <QTextBrowser>

class HelpView : public QTextBrowser {
 public:
  explicit HelpView(QWidget* parent = nullptr);

  void showPage(const QString& file);
  QString page() const;  // "faults.html"

  // Marks the words on this page and the next ones, in any case of letters, and goes to the first of them.
  void mark(const QStringList& words);
  // Goes to the next marked place, or the one before, around the ends.
  void step(bool forward);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void loadAgain();
  void markWords();

  QStringList words_;
  bool loading_ = false;
};
