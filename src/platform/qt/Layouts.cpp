// SPDX-License-Identifier: MIT
// One row for each form that has a window, in the order of the alphabet.
#include "platform/qt/Layouts.h"

namespace {

template <class Ui>
[[maybe_unused]] void build(QWidget& window) {
  Ui().setupUi(&window);
}

}  // namespace

std::vector<Layout>& layouts() {
  static std::vector<Layout> table = {
      // {"frmName", build<Ui::frmName>},
  };
  return table;
}
