// SPDX-License-Identifier: MIT
// The wizard's test of the bridge and of the unit behind it.
#include "protocol/frmSerial.h"

void frmSerial::NetworkTestConnect() {}
