// SPDX-License-Identifier: MIT
// The tie between one control and one widget, with its guard against feedback.
#pragma once

#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/Controls.h"

namespace torvane {

class Binding : public QObject {
 public:
  // Lives with the widget. `show` brings the widget to what the control holds.
  Binding(Control& control, QWidget& widget, std::function<void()> show);

  const Control* control() const { return control_; }
  QWidget& widget() const { return widget_; }

  // Brings the widget to what the control holds; what the widget signals meanwhile is nothing the user did.
  void show();
  // From now on a change waits for the next painting of the window, while it is on show: for what changes
  // more often than the eye can follow.
  void showWhenPainted() { waits_ = true; }
  // Shows a change that waits.
  void showDue();
  bool showing() const { return showing_; }
  // Runs what the user did on this widget and shows what the control holds afterwards, refused or repaired as
  // it may be. A text box that the user has not left yet is left first.
  void userDid(const std::function<void()>& action);
  // The same for a text box, which needn't be left for what is done in it.
  void userDidWithin(const std::function<void()>& action);
  // The form is about to end; the widget may outlive it for a while.
  void release();

  // A widget that is shown, hidden and greyed with this one.
  void addFollower(QWidget& follower) { followers_.emplace_back(&follower); }
  // The same for a control's widget, whose own control then has no say in this.
  void addFollower(Binding& follower);

  // Set by a text box: raises its validator if the user has been there since it was last raised.
  std::function<void()> leave;

 private:
  void controlChanged();
  void showCommon(QWidget& widget) const;
  void keepKeyboard();

  Control* control_;
  QWidget& widget_;
  std::function<void()> show_;
  std::vector<QPointer<QWidget>> followers_;
  bool follows_ = false;                 // another control
  QPointer<QPushButton> keyboardTaker_;  // has the keyboard in place of this button, which is switched off
  bool showing_ = false;
  bool waits_ = false;
  bool due_ = false;  // has changed since it was shown
};

// The user turns to something else in this window: the text box that he is in is left. It needn't have the
// keyboard any more: the system takes that to and fro between windows in its own time.
void leaveTextBox(const QWidget& window);

}  // namespace torvane
