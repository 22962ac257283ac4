// SPDX-License-Identifier: MIT
// What a unit holds, read whole and put back: neither touches Memo.
#pragma once

#include "knowledge/EncodedSetup.h"
#include "knowledge/UnitImage.h"
#include "runs/Run.h"

namespace torvane {

class Channel;

// Reads every register that the present kind of unit has, with the labels, the bar and the patience of a read
// run. A register that gave no answer has its reason in the image; one after a Cancel has none. The unit is
// known: probe it before. The outcome tells each register.
UnitImage readImage(Run& run, Channel& channel);
// What the unit says of its version; empty: nothing. The probe over the serial line asks it by itself.
std::string versionOf(Channel& channel);

// Changes each register that is to be sent, bit for bit under its mask, with the ordinary write and verify,
// in the order of a write. Ends after the register in hand when the user has cancelled, or at a wiring
// problem. The outcome tells each register; writing again does only what is left.
void writeEncoded(Run& run, Channel& channel, const EncodedSetup& setup);

}  // namespace torvane
