// SPDX-License-Identifier: MIT
// A window without a toolkit: its controls, its life, and the slots by which forms reach each other by name.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Controls.h"

namespace torvane {

// Ticks at equal distances from its form's loading on, while the form is shown modally.
class Timer {
 public:
  Timer(Form& form, double interval);  // seconds

  Handler onTimer;

 private:
  friend class Form;
  double interval_;
  double due_;
};

// Keys that act anywhere in a window, in the toolkit's words: "Ctrl+S".
struct Shortcut {
  std::string keys;
  Handler act;
};

class Form : public Container, public std::enable_shared_from_this<Form> {
 public:
  // `name` is the form's own, as "frmSerial", and that of its layout.
  Form(std::string name, std::string_view caption);
  ~Form() override;

  const std::string& containerName() const override { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string_view caption);

  // Life, in the order in which it is raised.
  virtual void Form_Load() {}
  virtual void Form_Activate() {}    // once for each showing
  virtual void Form_Deactivate() {}  // when it is hidden again
  // The user closes the window by its frame; true keeps the form.
  virtual bool Form_QueryUnload() { return false; }
  virtual void Form_Unload() {}
  // A key was pressed while the window had the keyboard.
  virtual void Form_KeyPress() {}
  // Whatever the user did here has been done, with all that followed from it.
  virtual void Form_Settled() {}
  // A file was dropped onto the window; only where takesFiles.
  virtual void Form_FileDropped(const std::string& /*path*/) {}

  void show();       // returns at once
  void showModal();  // returns when the form has been hidden or unloaded
  void hide();
  bool visible() const { return shown_; }
  void centre();

  // Shown, and no modal form in front of it.
  bool reachable() const override;
  // The view: the window's frame was closed, a key was pressed.
  void userClosed();
  void userPressedKey();
  void userTookShortcut(const std::string& keys);
  void userDropped(const std::string& path);

  // Ends the form. From inside one of its own handlers it takes effect when that handler has returned.
  void unload();

  std::vector<Control*> controls;   // in the order of their declaration
  std::vector<Shortcut> shortcuts;  // set before the form has a window
  bool takesFiles = false;          // the same
  bool aside = false;               // stands beside the others and can be used while a dialog is in front
  Handler onRedraw;                 // set by the view: the caption has changed

 private:
  friend class HandlerScope;
  friend void loadForm(const std::shared_ptr<Form>& form, Handler forget);
  friend void unloadAllForms();
  friend class Timer;
  void finishUnload();
  double untilNextTick() const;
  void serveTimers();

  std::string name_;
  std::string caption_;
  Handler forget_;
  std::vector<Timer*> timers_;
  int handlersRunning_ = 0;
  bool unloadAsked_ = false;
  bool shown_ = false;
};

// While one of these lives, a handler of the form is running.
class HandlerScope {
 public:
  explicit HandlerScope(Form& form);
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;
  ~HandlerScope();

 private:
  std::shared_ptr<Form> form_;
};

// Slots: each form exists at most once.
template <class T>
inline constinit T* formSlot = nullptr;

void loadForm(const std::shared_ptr<Form>& form, Handler forget);
void unloadAllForms();  // ends every form without raising anything
std::vector<std::shared_ptr<Form>> loadedForms();

// The form of this class; using it creates and loads it.
template <class T>
T& form() {
  if (formSlot<T> == nullptr) {
    auto made = std::make_shared<T>();
    formSlot<T> = made.get();
    loadForm(made, [] { formSlot<T> = nullptr; });
  }
  return *formSlot<T>;
}

template <class T>
bool isLoaded() {
  return formSlot<T> != nullptr;
}

template <class T>
void unload() {
  if (isLoaded<T>()) formSlot<T>->unload();
}

}  // namespace torvane
