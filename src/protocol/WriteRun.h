// SPDX-License-Identifier: MIT
// The write run: every register of the unit, one step after the other, from Memo.
#pragma once

#include <string>
#include <string_view>

#include "runs/Run.h"

namespace torvane {

class Channel;

// Walks all steps over the channel. An error in an encoder ends the run where it is; run.outcome holds what
// was done until then.
void writeConfiguration(Run& run, Channel& channel);

// The value is shown, then the register is changed. A value that begins with "!" is a message in its place:
// nothing is sent, and the message without the "!" is the result.
std::string writeRegister(Run& run, Channel& channel, std::string_view reg, const std::string& value);

}  // namespace torvane
