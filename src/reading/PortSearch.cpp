// SPDX-License-Identifier: MIT
// The wizard's search for a unit on the computer's serial ports.
#include "protocol/frmSerial.h"

void frmSerial::SerialTestConnect() {}
