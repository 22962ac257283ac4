// SPDX-License-Identifier: MIT
// What a program without windows has of its terminal.
#pragma once

namespace torvane {

// Whether a person looks at what goes to the error output.
bool errorsGoToATerminal();

// From here on Ctrl+C no longer ends the program but is remembered; a second one ends it.
void watchInterrupts();
bool wasInterrupted();
// As if Ctrl+C had been pressed; from any thread.
void interrupt();

}  // namespace torvane
