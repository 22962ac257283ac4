// SPDX-License-Identifier: MIT
// What the run buttons of both choosers have in common.
#pragma once

// The communication tab is committed and a model is fixed before a run starts.
void prepareRun();

// The form is fitted to what the run has found, without a dialog.
void fitToFoundUnit();
