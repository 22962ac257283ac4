// SPDX-License-Identifier: MIT
// The one host of the process.
#include "platform/Host.h"

#include "platform/CodePage.h"

namespace torvane {

namespace {
constinit Host* theHost = nullptr;
}

Host& host() { return *theHost; }

void setHost(Host* host) { theHost = host; }

std::string Host::toCodePage(std::string_view text) { return toWindows1252(text); }

std::string Host::fromCodePage(std::string_view bytes) { return fromWindows1252(bytes); }

std::unique_ptr<Printer> Host::makePdf(const std::string&) {
  throw RuntimeError(Fault::printerFault, "This program makes no PDF files.");
}

Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  return host().messageBox(text, title, icon, buttons);
}

}  // namespace torvane
