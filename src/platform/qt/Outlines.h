// SPDX-License-Identifier: MIT
// Lines around boxes and buttons that can be seen on a dark ground.
#pragma once

namespace torvane {

// The toolkit's own style draws its lines darker than the ground: on a black one there are none. After this
// call it draws them anew in the colour of the text wherever the ground is dark, and frames around groups as
// a plain line, which takes less time. Other styles are left alone.
void takeOutlines();

}  // namespace torvane
