// SPDX-License-Identifier: MIT
// What the run buttons of both choosers have in common.
#pragma once

#include "platform/Controls.h"

namespace torvane {

// The communication tab is committed, and the user is sent to the hardware dialog if no model is fixed yet.
// `afterDialog` runs when the dialog has been answered. False: still no model, and no run.
bool prepareRun(const Handler& afterDialog = {});

// The form is fitted to what the run has found, without a dialog.
void fitToFoundUnit();

}  // namespace torvane
