// SPDX-License-Identifier: MIT
// What the choosers do with a unit beside a write and a read: look what differs, keep a copy, put it back,
// and prove what was written. Nothing of it changes the setup. The model is known.
#pragma once

namespace torvane {

// Reads the unit and shows what differs from the boxes. True: the user goes on to a write, which changes what
// was shown.
bool compareUnit();

// Reads the unit and saves all that it holds where the user says.
void keepCopy();
// Asks for a kept copy, shows what differs in the unit, and puts it back where the user agrees.
void putBackCopy();

// The ordinary write, after a copy of the unit where the preferences want one, and the unit's fit to the
// boxes.
void writeUnit();

// Reads the unit that was written to last again, and shows the as-left record.
void verifyAndRecord();
// Whether there was such a write.
bool mayRecord();

}  // namespace torvane
