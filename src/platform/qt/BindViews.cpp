// SPDX-License-Identifier: MIT
// What shows and does not take: labels, frames, pictures, animations, bars; and the slider.
#include <algorithm>

#include "platform/qt/Bindings.h"
#include "platform/qt/Bounds.h"
#include "platform/qt/Ink.h"
#include "platform/qt/TextLines.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

// Black or white, whichever is easier to read on the ground; on pure red (grey 87) and pure green (127) black
// is.
QColor readableOn(const QColor& ground) { return qGray(ground.rgb()) > 80 ? Qt::black : Qt::white; }

// The colour's red lies in the low byte.
QColor fromBackColor(std::uint32_t color) {
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

void showGround(const Label& control, QLabel& widget) {
  const auto color = control.backColor();
  if (!color) return;
  const QColor ground = fromBackColor(*color);
  if (widget.autoFillBackground() && widget.palette().color(QPalette::Window) == ground) return;
  QPalette palette = widget.palette();
  palette.setColor(QPalette::Window, ground);
  palette.setColor(QPalette::WindowText, readableOn(ground));
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

// A text that is not broken into lines takes half a window at the most.
int widestLine(const QLabel& widget) { return 64 * widget.fontMetrics().horizontalAdvance(QChar('0')); }

QString textWithin(const QLabel& widget, const QString& text) {
  if (qobject_cast<const TextLines*>(&widget) != nullptr) return shortened(text);
  return widget.wordWrap() ? breakable(text, 2 * bounds::reply)
                           : elided(text, widget.fontMetrics(), widestLine(widget));
}

// The ground is that of the program, whatever the label's own palette has been changed to.
void showMark(const Label& control, QLabel& widget) {
  const bool marked = control.mark() != Mark::none;
  if (!marked && !widget.property("marked").toBool()) return;
  widget.setProperty("marked", marked);
  QPalette palette;
  if (marked) palette.setColor(QPalette::WindowText, errorInk(palette.color(QPalette::Window)));
  if (widget.palette() != palette) widget.setPalette(palette);
  QFont font = widget.font();
  font.setBold(marked);
  if (font != widget.font()) widget.setFont(font);
}

void showLabel(const Label& control, QLabel& widget) {
  const QString caption =
      withMnemonic(textWithin(widget, shown(control.caption())), shown(control.mnemonic()));
  if (widget.text() != caption) widget.setText(caption);
  showGround(control, widget);
  showMark(control, widget);
}

int widestTitle(const QGroupBox& widget) { return 40 * widget.fontMetrics().horizontalAdvance(QChar('0')); }

void showFrame(const Frame& control, QGroupBox& widget) {
  const QString caption = elided(shown(control.caption()), widget.fontMetrics(), widestTitle(widget));
  if (widget.title() != caption) widget.setTitle(caption);
}

void showProgress(const ProgressBar& control, QProgressBar& widget) {
  if (widget.maximum() != control.max() || widget.minimum() != 0) widget.setRange(0, control.max());
  if (widget.value() != control.value()) widget.setValue(control.value());
}

void showScroll(const ScrollBar& control, QSlider& widget) {
  if (widget.minimum() != control.min() || widget.maximum() != control.max()) {
    widget.setRange(control.min(), control.max());
    widget.setPageStep(std::max(1, (control.max() - control.min()) / 10));
  }
  if (widget.value() != control.value()) widget.setValue(control.value());
}

}  // namespace

Binding* bind(Label& control, QLabel& widget) {
  widget.setTextFormat(Qt::PlainText);
  return new Binding(control, widget, [&] { showLabel(control, widget); });
}

Binding* bind(Frame& control, QGroupBox& widget) {
  return new Binding(control, widget, [&] { showFrame(control, widget); });
}

Binding* bind(Picture& control, PictureView& widget) {
  return new Binding(control, widget, [&] { widget.setPicture(shown(control.file())); });
}

Binding* bind(Plot& control, ChartView& widget) {
  return new Binding(control, widget, [&] { widget.setChart(control.chart()); });
}

Binding* bind(Animation& control, AnimationView& widget) {
  return new Binding(control, widget, [&] { widget.play(shown(control.file())); });
}

Binding* bind(ProgressBar& control, QProgressBar& widget) {
  widget.setTextVisible(false);
  return new Binding(control, widget, [&] { showProgress(control, widget); });
}

Binding* bind(ScrollBar& control, QSlider& widget) {
  auto* binding = new Binding(control, widget, [&] { showScroll(control, widget); });
  QObject::connect(&widget, &QSlider::valueChanged, binding,
                   [=, &control](int value) { binding->userDid([&] { control.userScrolled(value); }); });
  return binding;
}

}  // namespace torvane
