// SPDX-License-Identifier: MIT
// What screen readers hear of widgets whose own words would mislead: windows as fillers, option buttons as
// check boxes.
#pragma once

// Once is enough; more do no harm.
void tellScreenReaders();
