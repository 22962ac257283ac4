// SPDX-License-Identifier: MIT
// The user guide.
#pragma once

#include <string>

#include "platform/Host.h"

namespace torvane {

class Help {
 public:
  virtual ~Help() = default;

  // `path` is a help file's name, ">" and a window's name. A name that is not known opens nothing.
  virtual void showHelp(const std::string& path) = 0;
};

}  // namespace torvane
