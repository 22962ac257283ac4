// SPDX-License-Identifier: MIT
// The windows of the forms: made when first needed, gone with their form.
#pragma once

#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <map>
#include <vector>

#include "platform/Form.h"

class QPushButton;

// A top level widget that tells its form what happens to it. The layout may ask for a splash window, without
// a frame, by the dynamic property "splash", and for one that leaves the keyboard where it is, by "beside".
class FormWindow : public QWidget {
 public:
  // Lays the form out and binds it; std::logic_error if it has no layout or doesn't fit it.
  explicit FormWindow(Form& form);

  // `below` may be null. Without the keyboard, the user goes on typing where he is.
  void showOver(QWidget* below, bool modal, bool takesKeyboard);
  void centre();   // on the screen; also when it is shown next
  void release();  // the form is about to end

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void setFirstSize();
  void placeOver(QWidget* below);
  QPushButton* buttonForEnter() const;
  void tell(void (Form::*what)());

  Form* form_;
  bool sized_ = false;
  bool centred_ = false;
};

class Windows {
 public:
  ~Windows();

  FormWindow& of(Form& form);
  void show(Form& form, bool modal);
  void hide(Form& form);
  void release(Form& form);
  void repaint(Form& form);
  // The window in front, on which a box belongs; null if none is shown.
  QWidget* front() const;

 private:
  std::map<const Form*, QPointer<FormWindow>> windows_;
  // The one in front last. One that is shown while modal ones wait for an answer lies beneath these.
  std::vector<QPointer<FormWindow>> shown_;
};
