// SPDX-License-Identifier: MIT
// The controls of a form, without any toolkit: value, enabled state, visibility, caption and list.
//
// Each control has two doors. Code uses the properties; the view uses the user... operations, which do
// nothing while the user can't reach the control. Both raise the same handlers, when the value really changes
// and only then. The view hears of changes through `onRedraw` and keeps no state of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Control.h"
#include "platform/Lists.h"
#include "platform/Tabs.h"

namespace torvane {

class Label : public CaptionedControl {
 public:
  Label(Container& container, std::string name, std::string_view caption = "")
      : CaptionedControl(container, std::move(name), caption) {}

  // 24-bit colour, red in the low byte; none is the window's own ground.
  std::optional<std::uint32_t> backColor() const { return backColor_; }
  void setBackColor(std::uint32_t color) { assign(backColor_, std::optional(color)); }
  Mark mark() const { return mark_; }
  void setMark(Mark mark) { assign(mark_, mark); }

  ControlState state() const override;
  void putBack(const ControlState& state) override;

 private:
  Mark mark_ = Mark::none;
  std::optional<std::uint32_t> backColor_;
};

class Frame : public CaptionedControl, public Container {
 public:
  Frame(Container& container, std::string name, std::string_view caption = "")
      : CaptionedControl(container, std::move(name), caption), Container(&container.owner(), &container) {}

  const std::string& containerName() const override { return name(); }
  bool reachable() const override { return Control::reachable(); }
};

// A drawing that lies in the program's pictures under `file`, an SVG without its ending.
class Picture : public Control {
 public:
  Picture(Container& container, std::string name, std::string_view file)
      : Control(container, std::move(name)), file_(file) {}
  const std::string& file() const { return file_; }

 private:
  std::string file_;
};

class CommandButton : public CaptionedControl {
 public:
  CommandButton(Container& container, std::string name, std::string_view caption, std::string_view tip = "",
                std::string_view picture = "")
      : CaptionedControl(container, std::move(name), caption), picture_(picture) {
    setToolTip(tip);
  }
  const std::string& picture() const { return picture_; }

  void userClicked() const;

  Handler onClick;

 private:
  std::string picture_;
};

class TextBox : public Control {
 public:
  using Control::Control;
  TextBox(Container& container, std::string name, std::string_view tip);

  const std::string& text() const { return text_; }
  void setText(std::string_view text);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userTyped(std::string_view text);
  void userLeft() const;
  void userPressedEnter() const;

  Handler onChange;    // on every real change of the text
  Handler onKeyPress;  // the user pressed Enter
  Handler onValidate;  // the user left the box; code never raises it

 private:
  std::string text_;
};

class CheckBox : public CaptionedControl {
 public:
  CheckBox(Container& container, std::string name, std::string_view caption, std::string_view tip = "")
      : CaptionedControl(container, std::move(name), caption) {
    setToolTip(tip);
  }

  std::int16_t value() const { return value_; }
  // 0 clears the box, anything else ticks it.
  void setValue(int value);
  bool ticked() const { return value_ != 0; }
  void setTicked(bool ticked) { setValue(ticked ? 1 : 0); }

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userClicked();

  Handler onClick;

 private:
  std::int16_t value_ = 0;
};

class OptionButton : public CaptionedControl {
 public:
  OptionButton(Container& container, std::string name, std::string_view caption);

  bool value() const { return value_; }
  // True clears the others of the group and raises the click of this one; false raises nothing.
  void setValue(bool value);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userClicked();

  Handler onClick;

 private:
  bool value_ = false;
};

// Members of one name, each under its index.
template <class Member>
class ControlArray {
 public:
  ControlArray(Container& container, const std::string& name,
               std::initializer_list<std::string_view> captions) {
    for (std::string_view caption : captions) {
      members_.push_back(
          std::make_unique<Member>(container, name + "_" + std::to_string(members_.size()), caption));
    }
  }
  Member& operator()(std::size_t index) const { return *members_.at(index); }
  std::size_t count() const { return members_.size(); }

 private:
  std::vector<std::unique_ptr<Member>> members_;
};

class ScrollBar : public Control {
 public:
  ScrollBar(Container& container, std::string name, int min, int max, int value, std::string_view tip = "");

  int min() const { return min_; }
  int max() const { return max_; }
  std::int16_t value() const { return value_; }
  // Refuses what is outside the range with an error and changes nothing.
  void setValue(int value);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userScrolled(int value);

  Handler onChange;

 private:
  int min_;
  int max_;
  std::int16_t value_;
};

class ProgressBar : public Control {
 public:
  ProgressBar(Container& container, std::string name, int max)
      : Control(container, std::move(name)), max_(max) {}

  int max() const { return max_; }
  int value() const { return value_; }
  // Takes the nearest value of 0 to max.
  void setValue(int value);

 private:
  int max_;
  int value_ = 0;
};

class Animation : public Control {
 public:
  using Control::Control;

  const std::string& file() const { return file_; }
  // Plays the file from now on, again and again. A file that isn't there is an error.
  void open(const std::string& file);

 private:
  std::string file_;
};

}  // namespace torvane
