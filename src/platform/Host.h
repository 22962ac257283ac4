// SPDX-License-Identifier: MIT
// The machine, as the program sees it: eight small interfaces, each with a header of its own, set at start.
//   Clock         time, rests and events      Ports      serial ports and sockets
//   WindowSystem  the windows of forms        Files      files and their choosers
//   Boxes         messages to the user        Printing   printers and PDF files
//   Settings      the user's settings         Help       the user guide
#pragma once

namespace torvane {

template <class Interface>
constinit inline Interface* theHost = nullptr;

// Who serves for one of them: host<Clock>().now().
template <class Interface>
Interface& host() {
  return *theHost<Interface>;
}

template <class Interface>
void setHost(Interface* one) {
  theHost<Interface> = one;
}

}  // namespace torvane
