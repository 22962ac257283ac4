// SPDX-License-Identifier: MIT
// What a program without windows has of its terminal.
#pragma once

#include <string>
#include <vector>

namespace torvane {

// What stands after the program's name on its command line, as UTF-8; there is an application already.
std::vector<std::string> wordsOfCommandLine(int count, char** words);

// What the program prints is UTF-8 from here to its end, and the terminal takes it as that.
void printAsUtf8();

// Whether a person looks at what goes to the error output.
bool errorsGoToATerminal();

// From here on Ctrl+C no longer ends the program but is remembered; a second one ends it.
void watchInterrupts();
bool wasInterrupted();
// As if Ctrl+C had been pressed; from any thread.
void interrupt();

}  // namespace torvane
