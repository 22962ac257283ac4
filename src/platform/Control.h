// SPDX-License-Identifier: MIT
// What all controls have in common: name, place, enabled state, visibility, tool tip, and how the view and
// the program hear of changes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torvane {

class Control;
class Form;
class OptionButton;

using Handler = std::function<void()>;

// A form, a frame or a tab page. Option buttons directly inside one container form a group.
class Container {
 public:
  Container(Form* form, Container* parent) : form_(form), parent_(parent) {}
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container() = default;

  Form& owner() const { return *form_; }
  Container* parent() const { return parent_; }
  virtual const std::string& containerName() const = 0;
  // Whether the user can reach what lies in here.
  virtual bool reachable() const = 0;

  std::vector<OptionButton*> options;

 private:
  Form* form_;
  Container* parent_;
};

// What a text says beyond its words; the view shows it in a colour of its own.
enum class Mark { none, error };

// All that a control holds, to be put back later; what a kind of control hasn't got stays empty.
struct ControlState {
  bool enabled = true;
  bool visible = true;
  std::string toolTip = {};
  std::string text = {};                // a text or caption
  std::vector<std::string> items = {};  // of a list
  int number = 0;                       // a value, an index or a tab
  std::optional<std::uint32_t> color = {};
  std::vector<bool> available = {};  // the pages of a tab strip

  bool operator==(const ControlState&) const = default;
};

class Control {
 public:
  // `name` is the control's own; a member of an array carries its index, as "optInType_0".
  Control(Container& container, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& name() const { return name_; }
  Container& container() const { return container_; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { assign(enabled_, enabled); }
  bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible); }
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string_view tip) { assign(toolTip_, std::string(tip)); }

  // Enabled and visible, and so are all containers around it.
  bool reachable() const;
  // As it is, and as it was: putting back raises no handler.
  virtual ControlState state() const;
  virtual void putBack(const ControlState& state);
  // Has the view paint the control in the next wait, be it for the serial line.
  void refresh() const;
  void focus() const;  // gives it the keyboard, where the user can reach it

  Handler onFocus;    // set by the view: give the widget the keyboard
  Handler onRedraw;   // set by the view: something to show has changed
  Handler onRefresh;  // set by the view: paint soon

 protected:
  void redraw() const;
  static void refuseUnless(bool legal);  // an error: the property can't have this value
  template <class Value>
  bool assign(Value& held, Value value) {
    if (held == value) return false;
    held = std::move(value);
    redraw();
    return true;
  }
  // Runs a handler; the form it belongs to lives until the handler has returned.
  void raise(const Handler& handler) const;
  // Runs what the user did; an error that no handler caught ends the program (Boxes::fail).
  void act(const Handler& handler) const;

 private:
  Container& container_;
  std::string name_;
  std::string toolTip_;
  bool enabled_ = true;
  bool visible_ = true;
};

class CaptionedControl : public Control {
 public:
  // In `caption`, "&" stands in front of the letter that chooses the control with the Alt key: "&Write".
  CaptionedControl(Container& container, std::string name, std::string_view caption);

  const std::string& caption() const { return caption_; }  // without that "&"
  // The letter marked at first; it stands for whatever caption has it. None: an empty text.
  const std::string& mnemonic() const { return mnemonic_; }
  // As it stands, an "&" included.
  void setCaption(std::string_view caption) { assign(caption_, std::string(caption)); }

  ControlState state() const override;
  void putBack(const ControlState& state) override;

 private:
  std::string caption_;
  std::string mnemonic_;
};

}  // namespace torvane
