// SPDX-License-Identifier: MIT
// Drawings of the program, in the colours of the palette, growing with the font.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QPushButton>
#include <QWidget>

namespace torvane {

// Whether the program holds a drawing of this name.
bool hasPicture(const QString& name);
// The drawing as it is shown on a page of the given widget, `ink` being the palette's role of its text; null
// if there is none of that name.
QPixmap drawnPicture(const QString& name, const QWidget& page, QPalette::ColorRole ink);

class PictureView : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget* parent = nullptr);

  void setPicture(const QString& name);
  QString picture() const { return name_; }
  // The drawing's own size, made for a font of 16 pixels, at the present font.
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QString name_;
  QPixmap drawn_;  // for the present size and palette; null when it must be drawn again
};

// Keeps the icon of a button in the colours of the palette; lives with the button.
class ButtonPicture : public QObject {
 public:
  ButtonPicture(QPushButton& button, QString name);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void draw();

  QPushButton& button_;
  QString name_;
};

}  // namespace torvane
