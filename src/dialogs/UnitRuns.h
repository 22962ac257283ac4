// SPDX-License-Identifier: MIT
// What the choosers do with a unit beside a write and a read: look what differs, and put back a kept copy.
#pragma once

// Reads the unit and shows what differs from the boxes, without changing either. The model is known. True:
// the user goes on to a write, which changes what was shown.
bool compareUnit(bool mayWrite);

// Asks for a kept copy, shows what differs in the unit, and puts it back where the user agrees.
void putBackCopy();
