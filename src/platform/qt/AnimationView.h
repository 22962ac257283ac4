// SPDX-License-Identifier: MIT
// Plays a film again and again, while it can be seen.
#pragma once

#include <QTimer>
#include <QWidget>

#include "platform/qt/AviReader.h"

namespace torvane {

class AnimationView : public QWidget {
  Q_OBJECT

 public:
  explicit AnimationView(QWidget* parent = nullptr);

  // Starts the film in this file from its first frame; an empty name, or a file that is no film, shows
  // nothing.
  void play(const QString& file);
  QString file() const { return file_; }
  int frameCount() const { return static_cast<int>(film_.frames.size()); }
  int frame() const { return static_cast<int>(frame_); }
  bool playing() const { return clock_.isActive(); }
  // The film's own size, made for a font of 16 pixels, at the present font.
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void takeImage();
  void startClock();

  QString file_;
  Film film_;
  std::size_t frame_ = 0;
  bool due_ = false;  // the frame has not been decoded yet
  QImage image_;      // of the last frame that was whole; null before the first
  QTimer clock_;
};

}  // namespace torvane
