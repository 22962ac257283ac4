// SPDX-License-Identifier: MIT
// The hardware dialog over a main window after a first start.
#pragma once

#include "core/PartNumber.h"
#include "dialogs/frmHardware.h"
#include "tests/editor/EditorTest.h"

namespace torvane {

class HardwareBench : public EditorTest {
 protected:
  // The dialog in front of the user; a test that ends it opens a new one.
  frmHardware& dialog() {
    auto& opened = form<frmHardware>();
    opened.show();
    return opened;
  }
  void close() { unload<frmHardware>(); }

  // The user chooses the entry with this text.
  void choose(std::string_view entry) {
    const auto& items = dialog().cboModel.items();
    const auto found = std::find(items.begin(), items.end(), entry);
    ASSERT_NE(found, items.end()) << entry;
    dialog().cboModel.userChose(static_cast<int>(found - items.begin()));
  }
  const std::string& number() { return dialog().cboModel.text(); }
  // The index of the output that is chosen, 0 to 3 or 4 to 7; -1 for none.
  int output1() { return chosen(0); }
  int output2() { return chosen(4); }

 private:
  int chosen(std::size_t first) {
    for (std::size_t index = first; index < first + 4; ++index) {
      if (dialog().optOut[index].value()) return static_cast<int>(index);
    }
    return -1;
  }
};

}  // namespace torvane
