// SPDX-License-Identifier: MIT
// Lists: one item chosen of several, as a box, as a table of rows, or with a text of its own.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Control.h"

namespace torvane {

// What list box and combo box have in common: items and the index of the one chosen, -1 for none.
class ListControl : public Control {
 public:
  ListControl(Container& container, std::string name, std::initializer_list<std::string_view> items,
              std::string_view tip);
  ListControl(Container& container, std::string name, std::span<const char* const> items,
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
  std::vector<Mark> marks_;  // of the first items; those after them have none
  std::int16_t listIndex_ = -1;
};

class ListBox : public ListControl {
 public:
  ListBox(Container& container, std::string name, std::span<const char* const> items, std::string_view tip)
      : ListControl(container, std::move(name), items, tip) {}
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
  ComboBox(Container& container, std::string name, std::span<const char* const> items, std::string_view tip)
      : ListControl(container, std::move(name), items, tip) {}
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

}  // namespace torvane
