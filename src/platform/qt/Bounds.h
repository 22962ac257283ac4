// SPDX-License-Identifier: MIT
// Texts of any length from a peer or a file, brought to what a window can show without growing.
#pragma once

#include <QFontMetrics>
#include <QString>

namespace torvane {

namespace bounds {
inline constexpr int reply = 200;  // characters of one line of text
inline constexpr int lines = 24;   // of one text
inline constexpr int fewLines = 8;
inline constexpr int word = 40;  // characters, after which a line may be broken anywhere
inline constexpr int tip = 100;  // characters of one line of a tool tip
}  // namespace bounds

// At most so many lines of `most` characters each; "..." stands for what is left out. A line's end is kept,
// since outcomes stand there.
QString shortened(const QString& text, int most = bounds::reply);
// Shortened, and with a place to break in every long word: for what is broken into lines.
QString breakable(const QString& text, int most = bounds::reply);
// A few lines, each cut to the given width in pixels: for what is not broken.
QString elided(const QString& text, const QFontMetrics& metrics, int width);
// A tool tip as plain text in lines of a readable length.
QString tipText(const QString& text);

}  // namespace torvane
