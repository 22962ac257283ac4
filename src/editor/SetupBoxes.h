// SPDX-License-Identifier: MIT
// The boxes of a setup: one row for each control of the main window that has a record. What walks them:
// showing and committing a tab, the repair of entries, tips of ranges, settings that come from elsewhere,
// and whether the setup still is what its file holds.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <variant>

#include "editor/BigFolderControls.h"
#include "editor/EntryRules.h"

namespace torvane {

// A member of an option array.
struct OptionOf {
  ControlArray<OptionButton> BigFolderControls::*array;
  std::size_t index;
};

using BoxControl = std::variant<TextBox BigFolderControls::*, CheckBox BigFolderControls::*,
                                OptionButton BigFolderControls::*, OptionOf, ListBox BigFolderControls::*,
                                ComboBox BigFolderControls::*, ScrollBar BigFolderControls::*>;

// The tab that a box is shown with, and the one that it is committed with.
struct BoxTabs {
  // cppcheck-suppress noExplicitConstructor  // most boxes have one tab, which their row names
  constexpr BoxTabs(int tab) : shown(tab), committed(tab) {}  // NOLINT(google-explicit-constructor)
  constexpr BoxTabs(int shownWith, int committedWith) : shown(shownWith), committed(committedWith) {}

  int shown;
  int committed;
};

// How a record and its box are copied into each other.
enum class Copy {
  plain,         // the field of the record that this kind of control has, as it stands
  inExtra,       // the list index is kept in `extra`
  asText,        // the position of a bar is kept as decimal text
  asFourDigits,  // a text that is shown as "0000", ...
  asTenths,      // ... as "000.0" ...
  asReading,     // ... or in the format of the reading; it is stored as it stands
};

enum class Arrival { asItIs, repaired };  // when its tab comes on show
enum class InUse { always, inSimpleMenu };

struct SetupBox {
  BoxTabs tabs;
  int record;
  BoxControl control;
  Copy copy = Copy::plain;
  std::optional<EntryRule> rule = {};  // none: whatever is typed is legal
  Arrival arrival = Arrival::asItIs;
  InUse inUse = InUse::always;
};

// Whether the setup has the box: it may be of a menu that its unit has not.
bool isInUse(const SetupBox& box);

// In the order in which a tab is shown: options run their handlers, and these arrange other controls.
std::span<const SetupBox> setupBoxes();
// The row of a text box; std::logic_error if it has none.
const SetupBox& boxOf(TextBox BigFolderControls::*control);

// A dead band has two boxes, on the tab of the output and on that of the alarm. Both are shown with the
// output. In the simple menu, which has no tab of the outputs, the alarm's box wins over its twin.
struct DeadBand {
  TextBox BigFolderControls::*ofAlarm;
  TextBox BigFolderControls::*ofOutput;
  int outputTab;
};
std::span<const DeadBand> deadBands();

// The control of a row on one window.
using AnyControl = std::variant<TextBox*, CheckBox*, OptionButton*, ListControl*, ScrollBar*>;
AnyControl controlOf(BigFolderControls& window, const SetupBox& box);

}  // namespace torvane
