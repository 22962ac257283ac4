// SPDX-License-Identifier: MIT
// What all controls promise: when the user can reach them, and whose handlers live how long.
#include "platform/Control.h"

#include "platform/Boxes.h"
#include "platform/Form.h"
#include "platform/RuntimeError.h"

namespace torvane {

Control::Control(Container& container, std::string name) : container_(container), name_(std::move(name)) {
  container.owner().controls.push_back(this);
}

bool Control::reachable() const { return enabled_ && visible_ && container_.reachable(); }

void Control::refresh() const {
  if (onRefresh) onRefresh();
}

void Control::focus() const {
  if (onFocus) onFocus();
}

void Control::redraw() const {
  if (onRedraw) onRedraw();
}

void Control::raise(const Handler& handler) const {
  if (!handler) return;
  const HandlerScope scope(container_.owner());
  handler();
}

void Control::act(const Handler& handler) const {
  if (!reachable()) return;
  const HandlerScope scope(container_.owner());
  try {
    handler();
  } catch (const RuntimeError& error) {
    host<Boxes>().fail(error.what());
  }
}

void Control::refuseUnless(bool legal) {
  if (!legal) throw RuntimeError(Fault::invalidPropertyValue, "Invalid property value");
}

CaptionedControl::CaptionedControl(Container& container, std::string name, std::string_view caption)
    : Control(container, std::move(name)), caption_(caption) {
  const std::size_t mark = caption_.find('&');
  if (mark == std::string::npos) return;
  caption_.erase(mark, 1);
  mnemonic_ = caption_.substr(mark, 1);
}

}  // namespace torvane
