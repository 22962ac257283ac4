// SPDX-License-Identifier: MIT
// The controls of a form, without any toolkit: value, enabled state, visibility, caption and list.
//
// Each control has two doors. Code uses the properties; the view uses the user... operations, which do
// nothing while the user can't reach the control. Both raise the same handlers, when the value really changes
// and only then. The view hears of changes through `onRedraw` and keeps no state of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvane {

class Control;
class Form;
class OptionButton;
class TabStrip;

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
  template <class Value>
  bool assign(Value& held, Value value) {
    if (held == value) return false;
    held = std::move(value);
    redraw();
    return true;
  }
  // Runs a handler; the form it belongs to lives until the handler has returned.
  void raise(const Handler& handler) const;
  // Runs what the user did; an error that no handler caught ends the program (Host::fail).
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

// What list box and combo box have in common: items and the index of the one chosen, -1 for none.
class ListControl : public Control {
 public:
  ListControl(Container& container, std::string name, std::initializer_list<std::string_view> items,
              std::string_view tip);

  const std::vector<std::string>& items() const { return items_; }
  std::int16_t listCount() const { return static_cast<std::int16_t>(items_.size()); }
  std::int16_t listIndex() const { return listIndex_; }
  // Refuses what is outside -1 to count - 1 with an error and changes nothing.
  void setListIndex(int index);
  // The item's text; an index outside the list, -1 above all, gives an empty text.
  std::string list(int index) const;
  void addItem(std::string_view item);
  // Changes the text of an item; whether it is chosen stays.
  void setItem(int index, std::string_view item);
  // Removing the chosen item leaves none chosen, and raises no click.
  void removeItem(int index);
  void clear();
  // All items anew and at once, with the marks of the first of them; none is chosen.
  void setItems(std::vector<std::string> items, std::vector<Mark> marks = {});
  // An item's mark goes with it.
  Mark itemMark(int index) const;
  void setItemMark(int index, Mark mark);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userOpened();  // the list was dropped down
  void userChose(int index);

  Handler onClick;
  Handler onUse;          // the user opened the list, or chose what was chosen already
  Handler onChosenAgain;  // the user chose what was chosen already

 protected:
  virtual void indexChanged() {}

 private:
  std::vector<std::string> items_;
  std::vector<Mark> marks_;  // of the first items; those behind them have none
  std::int16_t listIndex_ = -1;
};

class ListBox : public ListControl {
 public:
  ListBox(Container& container, std::string name, std::initializer_list<std::string_view> items = {},
          std::string_view tip = "")
      : ListControl(container, std::move(name), items, tip) {}
};

// A list whose items are rows: a tab stands between two cells. A row of one cell is a heading over those
// below.
class Table : public ListBox {
 public:
  Table(Container& container, std::string name, std::vector<std::string> headings, std::string_view tip)
      : ListBox(container, std::move(name), {}, tip), headings_(std::move(headings)) {}

  const std::vector<std::string>& headings() const { return headings_; }  // of the columns
  void setHeadings(std::vector<std::string> headings) { assign(headings_, std::move(headings)); }

 private:
  std::vector<std::string> headings_;
};

// A list with a text of its own, which follows the index but may be set to something else.
class ComboBox : public ListControl {
 public:
  ComboBox(Container& container, std::string name, std::initializer_list<std::string_view> items = {},
           std::string_view tip = "")
      : ListControl(container, std::move(name), items, tip) {}

  const std::string& text() const { return text_; }
  void setText(std::string_view text);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userTyped(std::string_view text);

  Handler onChange;       // the text was typed or set, not chosen
  bool editable = false;  // whether the user may type into it

 private:
  void indexChanged() override { text_ = list(listIndex()); }

  std::string text_;
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

// One page of a tab strip.
class TabPage : public Container {
 public:
  TabPage(TabStrip& strip, std::size_t index, std::string caption);

  const std::string& containerName() const override { return name_; }
  bool reachable() const override;

  const std::string caption;
  bool available = true;  // whether a click can put it on show; set through the strip
  bool present = true;    // whether Next and Back stop at it

 private:
  TabStrip& strip_;
  std::size_t index_;
  std::string name_;
};

class TabStrip : public Control {
 public:
  TabStrip(Container& container, std::string name, std::initializer_list<std::string_view> captions);

  TabPage& page(std::size_t index) const { return *pages_.at(index); }
  std::int16_t tabs() const { return static_cast<std::int16_t>(pages_.size()); }
  std::int16_t tab() const { return tab_; }
  // Puts a page on show, available or not, and raises the click with the page that was on show before.
  void setTab(int index);
  bool tabAvailable(int index) const { return page(static_cast<std::size_t>(index)).available; }
  void setTabAvailable(int index, bool available);

  ControlState state() const override;
  void putBack(const ControlState& state) override;

  void userClicked(int index);

  std::function<void(std::int16_t previousTab)> onClick;

 private:
  std::vector<std::unique_ptr<TabPage>> pages_;
  std::int16_t tab_ = 0;
};

}  // namespace torvane
