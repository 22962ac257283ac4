// SPDX-License-Identifier: MIT
// Text between the program and the toolkit.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace torvane {

// Valid UTF-8 as such, anything else as Latin-1, since replies of a unit are bytes of no known code. "\r\n"
// and "\r" become line feeds, and a NUL is shown as U+FFFD.
QString shown(std::string_view text);
// What the user has typed, as UTF-8.
std::string typed(const QString& text);
// The caption with "&" in front of the first `mnemonic`, upper or lower case; unchanged where there is none.
QString withMnemonic(QString caption, const QString& mnemonic);

}  // namespace torvane
