// SPDX-License-Identifier: MIT
// Waits that keep the windows alive.
#pragma once

#include <cstdint>

namespace torvane {

// Ends when more than `seconds` have passed; starts anew if the clock has stepped back before its start.
void Delay(float seconds);

// The cruder wait: its start is rounded to a whole second, so it is up to half a second off. Yields at least
// once.
void pause(std::int16_t seconds);

// The wait for an event: true as soon as the flag is set, false when the seconds are over. Starts anew if
// the clock has stepped back before its start.
bool waitFor(const std::int16_t& flag, double seconds);

// The same for no event at all: ends when the seconds are over.
void waitOut(double seconds);

}  // namespace torvane
