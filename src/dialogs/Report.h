// SPDX-License-Identifier: MIT
// The printed report: the whole configuration as plain text on a printer. Lengths in twips.
#pragma once

#include <string_view>

#include "platform/Printer.h"

namespace torvane {

namespace report {
inline constexpr int leftMargin = 1440;
inline constexpr int indent = 1920;       // of a text that doesn't end in a line feed: the labels
inline constexpr int valueColumn = 4320;  // where values stand
inline constexpr int bottomMargin = 1440;
inline constexpr int tabStop = 10;  // widths of "0"
inline constexpr int lastSection = 12;
}  // namespace report

// The print command. Anything that goes wrong, a cancel in the printer chooser above all, ends it without a
// word and prints nothing: false. FileName is "Untitled" afterwards if it was empty.
bool printReport();

// What it is made of.
void PrintHeader(Printer& printer, std::string_view text);  // centred, and an empty line
// Words with wrap at the right edge and a new page below the bottom limit. Only a line feed ends a line; any
// other control character but the tab is ignored.
void PrintText(Printer& printer, std::string_view text);
void PrintValue(Printer& printer, std::string_view text);  // in the column of values, without wrap
void PrintPageFooter(Printer& printer);                    // turns bold off
void printSection(Printer& printer, int number);           // 0 to lastSection, by its table

}  // namespace torvane
