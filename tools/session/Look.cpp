// SPDX-License-Identifier: MIT
// The looks that people give their desktops.
#include "session/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace torvane {

namespace {

struct Shade {
  QPalette::ColorRole role;
  const char* dark;
  const char* contrast;
};

constexpr Shade shades[] = {
    {QPalette::Window, "#2b2b2b", "#000000"},
    {QPalette::WindowText, "#eeeeee", "#ffffff"},
    {QPalette::Base, "#1e1e1e", "#000000"},
    {QPalette::AlternateBase, "#303030", "#000000"},
    {QPalette::Text, "#eeeeee", "#ffffff"},
    {QPalette::Button, "#353535", "#000000"},
    {QPalette::ButtonText, "#eeeeee", "#ffffff"},
    {QPalette::BrightText, "#ff5555", "#ffff00"},
    {QPalette::Light, "#4a4a4a", "#ffffff"},
    {QPalette::Midlight, "#404040", "#ffffff"},
    {QPalette::Mid, "#5a5a5a", "#ffffff"},
    {QPalette::Dark, "#1a1a1a", "#ffffff"},
    {QPalette::Shadow, "#101010", "#ffffff"},
    {QPalette::Highlight, "#3d7eb8", "#ffff00"},
    {QPalette::HighlightedText, "#ffffff", "#000000"},
    {QPalette::Link, "#7ab8f0", "#00ffff"},
    {QPalette::LinkVisited, "#b09af0", "#00ffff"},
    {QPalette::ToolTipBase, "#3a3a3a", "#000000"},
    {QPalette::ToolTipText, "#eeeeee", "#ffff00"},
    {QPalette::PlaceholderText, "#909090", "#00ff00"},
};

constexpr Shade disabled[] = {
    {QPalette::WindowText, "#808080", "#00ff00"},
    {QPalette::Text, "#808080", "#00ff00"},
    {QPalette::ButtonText, "#808080", "#00ff00"},
};

}  // namespace

void takeLook(const QString& name) {
  if (name != "dark" && name != "contrast") return;
  const bool dark = name == "dark";
  QPalette palette;
  for (const Shade& shade : shades) palette.setColor(shade.role, QColor(dark ? shade.dark : shade.contrast));
  for (const Shade& shade : disabled) {
    palette.setColor(QPalette::Disabled, shade.role, QColor(dark ? shade.dark : shade.contrast));
  }
  QApplication::setPalette(palette);
}

void takeFont(const QString& name) {
  if (name != "large") return;
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() + 2);
  font.setBold(true);
  QApplication::setFont(font);
}

}  // namespace torvane
