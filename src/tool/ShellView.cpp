// SPDX-License-Identifier: MIT
// A run as a shell shows it.
#include "tool/ShellView.h"

#include <algorithm>
#include <cstdio>

#include "platform/qt/io/Terminal.h"

namespace torvane::tool {

namespace {

constexpr int barWidth = 40;  // characters

}  // namespace

ShellView::ShellView() : onTerminal_(errorsGoToATerminal()) {}

ShellView::~ShellView() { clearBar(); }

void ShellView::upProg(std::int16_t percent) {
  if (!onTerminal_) return;
  const auto filled = static_cast<std::size_t>(std::clamp<int>(percent, 0, 100) * barWidth / 100);
  const std::string bar = std::string(filled, '#') + std::string(barWidth - filled, ' ');
  std::fprintf(stderr, "\r[%s] %3d%%", bar.c_str(), percent);
  std::fflush(stderr);
  barIsShown_ = true;
}

Answer ShellView::box(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  clearBar();
  said = text;
  if (quiet) return buttons == Buttons::ok ? Answer::ok : Answer::no;
  return messageBox(text, title, icon, buttons);
}

void ShellView::notice(std::string_view text) {
  clearBar();
  messageBox(text);
}

void ShellView::clearBar() {
  if (barIsShown_) std::fputs("\r\x1b[K", stderr);
  barIsShown_ = false;
}

}  // namespace torvane::tool
