// SPDX-License-Identifier: MIT
// The text of a settings file, which people write in as well: what has not changed stays as it stands there,
// with its place, its spelling and the remarks around it.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace torvane {

// Values by "section/key".
using IniValues = QMap<QString, QString>;

// The last of several lines for one key counts; what is no line of a value is left out.
IniValues valuesOf(const QByteArray& text);
// The text with these values and no others: a line that says the same stays, one of another value says it
// after the same key, a new key comes at the end of its section.
QByteArray changed(const QByteArray& text, const IniValues& values);

}  // namespace torvane
