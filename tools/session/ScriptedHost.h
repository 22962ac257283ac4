// SPDX-License-Identifier: MIT
// The machine on Qt with a user by script, who acts on the real widgets while the program waits.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include <QString>
#include <QWidget>

#include "platform/qt/QtHost.h"

namespace torvane {

class ScriptedHost : public QtHost {
 public:
  using Condition = std::function<bool()>;
  using Act = std::function<void()>;

  // The user does this as soon as the condition holds; acts follow each other in order.
  void then(Condition when, Act act);
  void whenShown(const std::string& formName, Act act);
  bool done() const { return script_.empty(); }
  // Seconds after which a user who waits for a condition in vain closes all windows; done() stays false.
  double patience = 300;

  // Answers every message box with its default after noting its text.
  std::deque<std::string> boxes;
  Answer answer = Answer::ok;
  // What the user names in the file choosers; none left: cancel.
  std::deque<std::string> chosenFiles;
  // The file that the user prints into; empty: the printer chooser comes up.
  QString pdf;

  void yield() override;
  void idle(double seconds) override;
  Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
  std::string chooseFileToOpen(const std::string& filter) override;
  std::string chooseFileToSave(const std::string& filter) override;
  std::string proposeFileToSave(const std::string& filter, const std::string&) override {
    return chooseFileToOpen(filter);
  }
  std::unique_ptr<Printer> choosePrinter(const std::string& document) override;

 private:
  struct Step {
    Condition when;
    Act act;
  };
  void letUserAct();

  std::deque<Step> script_;
  double waitsSince_ = 0;  // for the first step of the script
};

// Shows the main window until the script has closed it, and prints the message boxes that came up.
void playToTheEnd(ScriptedHost& user);

// The widget of a control on the form's window.
template <class Widget>
Widget& widget(QtHost& host, Form& form, const char* name) {
  return *host.window(form).findChild<Widget*>(QString::fromLatin1(name));
}

// As a person does it: with mouse and keyboard on the widget.
void click(QtHost& host, Form& form, const char* button);
void type(QtHost& host, Form& form, const char* box, const char* text);
void choose(QtHost& host, Form& form, const char* list, int index);
void clickTab(QtHost& host, Form& form, const char* strip, int index);

}  // namespace torvane
