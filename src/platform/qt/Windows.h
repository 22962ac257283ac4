// SPDX-License-Identifier: MIT
// The windows of the forms: made when first needed, gone with their form.
#pragma once

#include <QPointer>
#include <QWidget>
#include <map>
#include <vector>

#include "platform/Form.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/PaintRate.h"
#include "platform/qt/io/QtSettings.h"

namespace torvane {

class Windows {
 public:
  explicit Windows(QtSettings& settings);
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;
  ~Windows();

  FormWindow& of(Form& form);
  void show(Form& form, bool modal);
  void hide(Form& form);
  void release(Form& form);
  void repaint(Form& form);
  // The window in front, on which a box belongs; null if none is shown.
  QWidget* front() const;

  PaintRate paintRate;

 private:
  QtSettings& settings_;
  std::map<const Form*, QPointer<FormWindow>> windows_;
  // The one in front last. One that is shown while modal ones wait for an answer lies beneath these.
  std::vector<QPointer<FormWindow>> shown_;
};

}  // namespace torvane
