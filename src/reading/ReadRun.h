// SPDX-License-Identifier: MIT
// The read run: every register of the unit into Memo, and that onto the tabs.
#pragma once

#include "runs/Run.h"

namespace torvane {

class Channel;

// Walks all steps over the channel, then has the tabs show what Memo holds, however far it came. An error in
// a decoder ends the run where it is.
void readConfiguration(Run& run, Channel& channel);

}  // namespace torvane
