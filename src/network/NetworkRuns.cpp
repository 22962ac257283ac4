// SPDX-License-Identifier: MIT
// The runs of the status window through the bridge.
#include "protocol/frmSerial.h"

std::int16_t frmSerial::NetworkFullConnect() { return -1; }

bool frmSerial::NetworkCommunicationOK(bool) { return false; }
