// SPDX-License-Identifier: MIT
// The first probe of a unit on a serial line: is one there, what version is it, can it be configured?
#pragma once

#include <cstdint>
#include <string>

#include "runs/Run.h"

namespace torvane {

class SerialChannel;

// Mode 0 forgets what an earlier search found and probes, mode 4 probes and keeps it: "" a unit was found,
// "ng" none that can be used. Mode 1 resets the unit. Any other mode sends it back to command mode.
std::string comOK(Run& run, SerialChannel& channel, std::int16_t& mode);

// For the network's test as well.

// What the version says of the unit's revision.
void judgeVersion(Run& run);
// The unit's type is taken over and announced: 0 the Rkw77 line, 1 to 5 TMP, PRC, STR, GR2, RHT, 6 any other.
// The version comes from the last reply.
void announce(Run& run, std::int16_t type, const std::string& lastReply);

}  // namespace torvane
