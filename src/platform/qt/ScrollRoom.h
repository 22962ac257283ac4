// SPDX-License-Identifier: MIT
// What a small screen has no room for scrolls. Asks for all the room that its content wants, as far as the
// screen has it, and is never smaller than the content needs where the screen is large enough.
#pragma once

#include <QScrollArea>

namespace torvane {

class ScrollRoom : public QScrollArea {
  Q_OBJECT

 public:
  // Content with so few lines at the least; 0: with no less than the screen allows.
  explicit ScrollRoom(int leastLines = 0, QWidget* parent = nullptr);
  ScrollRoom(const ScrollRoom&) = delete;
  ScrollRoom& operator=(const ScrollRoom&) = delete;
  ~ScrollRoom() override;

  void hold(QWidget* content);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QSize onScreen(QSize wanted) const;
  QSize mostOnScreen() const;
  void allowBars();
  void follow(QWidget* keyboard);
  void bringIntoView(const QWidget& box);

  int leastLines_;
};

}  // namespace torvane
