// SPDX-License-Identifier: MIT
// While one of these lives, the whole setup is being replaced; when it ends, the setup before it can be
// brought back once.
#pragma once

#include <string>

#include "editor/SetupSnapshot.h"

namespace torvane {

class Replacement {
 public:
  // `what` is what the user would call it: "read", "open", "defaults", "wizard".
  explicit Replacement(const char* what);
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  // What has changed nothing leaves an older one to be undone.
  ~Replacement();

 private:
  std::string what_;
  SetupSnapshot before_;
};

}  // namespace torvane
