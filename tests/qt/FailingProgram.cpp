// SPDX-License-Identifier: MIT
// The program as it ends by an error that nothing catches, in the middle of an edit: for the test of what is
// kept then. Its user closes the box that says so. The argument is the name under which it keeps its files.
#include <QApplication>
#include <QTimer>

#include "dialogs/SetupFiles.h"
#include "editor/frmBigFolder.h"
#include "platform/RuntimeError.h"
#include "qt/QuickHost.h"

using namespace torvane;

namespace {

class Failing : public QuickHost {
 public:
  Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override {
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    return QtHost::messageBox(text, title, icon, buttons);
  }
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName(argv[argc - 1]);
  Failing machine;
  setMachine(&machine);
  auto& editor = form<frmBigFolder>();
  machine.beforeTheEnd = keepForRescue;
  editor.cmdHelp.onClick = [] { throw RuntimeError(Fault::overflow, "Overflow"); };
  clickTab(machine, editor, "tabBig", tab::setpoints);
  type(machine, editor, "txtSp1", "123.4");
  click(machine, editor, "cmdHelp");
  return 0;  // not reached
}
