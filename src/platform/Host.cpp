// SPDX-License-Identifier: MIT
// The one host of the process.
#include "platform/Host.h"

namespace {
constinit Host* theHost = nullptr;
}

Host& host() { return *theHost; }

void setHost(Host* host) { theHost = host; }

Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  return host().messageBox(text, title, icon, buttons);
}
