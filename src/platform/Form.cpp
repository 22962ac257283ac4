// SPDX-License-Identifier: MIT
// The life of a form and the forms that are loaded.
#include "platform/Form.h"

#include <algorithm>
#include <utility>

#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"

namespace torvane {

namespace {

// Written by loadForm, showModal and finishUnload alone.
struct {
  std::vector<std::shared_ptr<Form>> loaded;
  std::vector<const Form*> modal;  // the front one last
} Forms;

constexpr double longWait = 1.0;  // seconds; any event ends it

}  // namespace

Timer::Timer(Form& form, double interval) : interval_(interval), due_(host<Clock>().now() + interval) {
  form.timers_.push_back(this);
}

Form::Form(std::string name, std::string_view caption)
    : Container(this, nullptr), name_(std::move(name)), caption_(caption) {}

Form::~Form() = default;

void Form::setCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  if (onRedraw) onRedraw();
}

void Form::show() {
  if (shown_) return;
  const HandlerScope scope(*this);
  shown_ = true;
  host<WindowSystem>().show(*this, false);
  Form_Activate();
}

void Form::showModal() {
  const auto self = shared_from_this();
  Forms.modal.push_back(this);
  try {
    const HandlerScope scope(*this);
    shown_ = true;
    host<WindowSystem>().show(*this, true);
    Form_Activate();
  } catch (...) {
    std::erase(Forms.modal, this);
    hide();
    throw;
  }
  while (shown_) {
    host<Clock>().idle(untilNextTick());
    serveTimers();
  }
  std::erase(Forms.modal, this);
}

double Form::untilNextTick() const {
  double wait = longWait;
  for (const Timer* timer : timers_) wait = std::min(wait, timer->due_ - host<Clock>().now());
  return std::max(wait, 0.0);
}

void Form::serveTimers() {
  const HandlerScope scope(*this);
  for (Timer* timer : timers_) {
    if (!shown_ || host<Clock>().now() < timer->due_) continue;
    timer->due_ = host<Clock>().now() + timer->interval_;
    try {
      if (timer->onTimer) timer->onTimer();
    } catch (const RuntimeError& error) {
      host<Boxes>().fail(error.what());
    }
  }
}

void Form::hide() {
  if (!shown_) return;
  const HandlerScope scope(*this);
  shown_ = false;
  host<WindowSystem>().hide(*this);
  Form_Deactivate();
}

void Form::centre() { host<WindowSystem>().centre(*this); }

bool Form::reachable() const {
  return shown_ && (aside || Forms.modal.empty() || Forms.modal.back() == this);
}

void Form::userClosed() {
  if (!reachable()) return;
  const HandlerScope scope(*this);
  try {
    if (!Form_QueryUnload()) unload();
  } catch (const RuntimeError& error) {
    host<Boxes>().fail(error.what());
  }
}

void Form::userPressedKey() {
  try {
    const HandlerScope scope(*this);
    Form_KeyPress();
  } catch (const RuntimeError& error) {
    host<Boxes>().fail(error.what());
  }
}

void Form::userTookShortcut(const std::string& keys) {
  const auto found = std::ranges::find(shortcuts, keys, &Shortcut::keys);
  if (!reachable() || found == shortcuts.end()) return;
  const HandlerScope scope(*this);
  try {
    found->act();
  } catch (const RuntimeError& error) {
    host<Boxes>().fail(error.what());
  }
}

void Form::userDropped(const std::string& path) {
  if (!reachable()) return;
  const HandlerScope scope(*this);
  try {
    Form_FileDropped(path);
  } catch (const RuntimeError& error) {
    host<Boxes>().fail(error.what());
  }
}

void Form::unload() {
  if (handlersRunning_ > 0) {
    unloadAsked_ = true;
    return;
  }
  const auto self = shared_from_this();
  finishUnload();
}

void Form::finishUnload() {
  unloadAsked_ = false;
  ++handlersRunning_;
  try {
    hide();
    Form_Unload();
  } catch (...) {
    --handlersRunning_;
    throw;
  }
  --handlersRunning_;
  host<WindowSystem>().release(*this);
  if (forget_) forget_();
  std::erase_if(Forms.loaded, [this](const auto& form) { return form.get() == this; });
}

HandlerScope::HandlerScope(Form& form) : form_(form.shared_from_this()) { ++form_->handlersRunning_; }

HandlerScope::~HandlerScope() {
  if (--form_->handlersRunning_ > 0) return;
  if (!form_->unloadAsked_) {
    attempt([this] { form_->Form_Settled(); });
    return;
  }
  try {
    form_->finishUnload();
  } catch (const RuntimeError& error) {
    host<Boxes>().fail(error.what());
  }
}

void loadForm(const std::shared_ptr<Form>& form, Handler forget) {
  form->forget_ = std::move(forget);
  Forms.loaded.push_back(form);
  const HandlerScope scope(*form);
  form->Form_Load();
}

void unloadAllForms() {
  Forms.modal.clear();
  while (!Forms.loaded.empty()) {
    const auto last = Forms.loaded.back();
    Forms.loaded.pop_back();
    host<WindowSystem>().release(*last);
    last->forget_();
  }
}

std::vector<std::shared_ptr<Form>> loadedForms() { return Forms.loaded; }

}  // namespace torvane
