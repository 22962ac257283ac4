// SPDX-License-Identifier: MIT
// The help call.
#include "dialogs/ShowHelp.h"

#include <string>

#include "platform/Help.h"

namespace torvane {

namespace {

// No folder: where guides lie is the machine's knowledge.
std::string guideFile(std::int16_t which) {
  switch (which) {
    case 1:
      return "\\TorvaneConfiguration.chm";
    case 2:
      return "\\MPL configuration.chm";
    default:
      return {};
  }
}

}  // namespace

void ShowHelp(std::int16_t which, std::string_view windowName) {
  host<Help>().showHelp(guideFile(which).append(">").append(windowName));
}

}  // namespace torvane
