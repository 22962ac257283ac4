// SPDX-License-Identifier: MIT
// What the machine's interfaces do where no machine says otherwise.
#include "platform/Boxes.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Printing.h"
#include "platform/RuntimeError.h"

namespace torvane {

std::string Files::toCodePage(std::string_view text) { return toWindows1252(text); }

std::string Files::fromCodePage(std::string_view bytes) { return fromWindows1252(bytes); }

std::unique_ptr<Printer> Printing::makePdf(const std::string&) {
  throw RuntimeError(Fault::printerFault, "This program makes no PDF files.");
}

Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  return host<Boxes>().messageBox(text, title, icon, buttons);
}

}  // namespace torvane
