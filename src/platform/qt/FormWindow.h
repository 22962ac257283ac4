// SPDX-License-Identifier: MIT
// The window of one form: laid out, bound, sized and placed.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/Form.h"
#include "platform/qt/WindowPlace.h"
#include "platform/qt/io/QtSettings.h"

namespace torvane {

// A top level widget that tells its form what happens to it. The layout may ask for a splash window, without
// a frame, by the dynamic property "splash"; for one that leaves the keyboard where it is, by "beside"; and
// for one that comes back where and as large as it was in the run before, by "remembered"; for one in which
// Enter presses no button before the user has turned to one, by "choiceFirst".
class FormWindow : public QWidget {
 public:
  // Lays the form out and binds it; std::logic_error if it has no layout or doesn't fit it.
  FormWindow(Form& form, QtSettings& settings);

  // `below` may be null. Without the keyboard, the user goes on typing where he is.
  void showOver(QWidget* below, bool modal, bool takesKeyboard);
  void centre();   // on the screen, or where it was in the run before; also when it is shown next
  void release();  // the form is about to end

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void settleLayout();
  void setFirstSize();
  QSize titleBar() const;
  QSize ownSize() const;
  void takeFormerPlace(const WindowPlace& former);
  void rememberPlace();
  void moveToCentre();
  void placeOver(QWidget* below);
  void placeBeside(const QWidget& other);
  QPushButton* buttonForEnter() const;
  void takeFiles();
  void listenTo(const std::string& keys);
  void tell(const std::function<void(Form&)>& what);

  Form* form_;
  QtSettings& settings_;
  bool sized_ = false;
  bool sizedByUser_ = false;  // in the run before
  QSize wanted_;              // without a screen's bounds
  QSize given_;               // what the screen left of it; another size is the user's
  bool centred_ = false;
  bool centreDue_ = false;
  bool former_ = false;  // stands where it stood in the run before
};

}  // namespace torvane
