// SPDX-License-Identifier: MIT
// Texts that a window saves or prints.
#pragma once

#include <string>
#include <string_view>

#include "platform/Printer.h"

namespace torvane {

inline constexpr const char* textFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";

// Nothing where the path is empty. A file that can't be written is named in a box: the older one is whole,
// and the user may try again. False: nothing was saved.
bool saveOrSay(const std::string& path, std::string_view bytes);

// Lines under a title, with breaks where a word is longer than a line of paper. Faults are RuntimeErrors.
void printLines(Printer& printer, const std::string& title, std::string_view text);
// The same on the printer that the user chooses; a cancel prints nothing.
void choosePrinterFor(const std::string& title, std::string_view text);

}  // namespace torvane
