// SPDX-License-Identifier: MIT
// What screen readers hear of widgets whose own words would mislead: windows as fillers, option buttons as
// check boxes.
#pragma once

namespace torvane {

// Once is enough; more do no harm.
void tellScreenReaders();

}  // namespace torvane
