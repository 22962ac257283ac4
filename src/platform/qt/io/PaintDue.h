// SPDX-License-Identifier: MIT
// What is painted while a port is waited for.
#pragma once

namespace torvane {

// The line is slower than the screen: what has changed on the windows is painted while bytes are under way.
// Nothing but layout and painting is served, so nothing the user does gets in between.
void paintWhatIsDue();

}  // namespace torvane
