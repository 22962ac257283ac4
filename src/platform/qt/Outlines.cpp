// SPDX-License-Identifier: MIT
// Lines around boxes and buttons that can be seen on a dark ground.
#include "platform/qt/Outlines.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace torvane {

namespace {

constexpr int darkest = 64;  // grey of a ground, of 255, below which the style's own lines are hard to see
constexpr qreal strength = 0.5;

bool isDark(const QPalette& palette) { return qGray(palette.color(QPalette::Window).rgb()) < darkest; }

// The ground with so much of the text's colour in it, opaque: that is painted fastest.
QColor mixed(const QPalette& palette, qreal share) {
  const QColor ground = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  const auto of = [share](float from, float to) { return from + static_cast<float>(share) * (to - from); };
  return QColor::fromRgbF(of(ground.redF(), text.redF()), of(ground.greenF(), text.greenF()),
                          of(ground.blueF(), text.blueF()));
}

// What has the keyboard stands out.
QPen penFor(const QStyleOption& option) {
  if (option.state.testFlag(QStyle::State_HasFocus)) return {option.palette.color(QPalette::Highlight), 1};
  QColor color = option.palette.color(QPalette::WindowText);
  color.setAlphaF(strength);
  return {color, 1};
}

enum class Shape { none, box, disc };

Shape shapeOf(QStyle::PrimitiveElement element) {
  switch (element) {
    case QStyle::PE_IndicatorRadioButton:
      return Shape::disc;
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_Frame:
    case QStyle::PE_PanelButtonCommand:
      return Shape::box;
    default:
      return Shape::none;
  }
}

class Outlined : public QProxyStyle {
 public:
  Outlined() : QProxyStyle("fusion") {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    outline(shapeOf(element), *option, option->rect, *painter);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_TabBarTabShape && option->state.testFlag(State_Selected)) {
      outline(Shape::box, *option, option->rect.adjusted(1, 1, -1, 0), *painter);
    }
    if (element == CE_ProgressBarGroove) outline(Shape::box, *option, option->rect, *painter);
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    if (const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
      return drawGroup(*group, *painter, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_Slider) {
      for (const SubControl part : {SC_SliderGroove, SC_SliderHandle}) {
        outline(Shape::box, *option, subControlRect(control, option, part, widget), *painter);
      }
    }
    if (control == CC_ComboBox || control == CC_ScrollBar)
      outline(Shape::box, *option, option->rect, *painter);
  }

 private:
  // The style itself stretches a picture over the frame and starts threads for it: half of all switches
  // between threads in a change of tab.
  void drawGroup(QStyleOptionGroupBox group, QPainter& painter, const QWidget* widget) const {
    const QRect frame = frameOf(group, widget);
    if (group.subControls.testFlag(SC_GroupBoxFrame)) {
      painter.fillRect(frame, mixed(group.palette, 0.01));
      painter.setPen({mixed(group.palette, isDark(group.palette) ? strength : 0.14), 1});
      painter.drawRect(frame.adjusted(0, 0, -1, -1));
      group.subControls.setFlag(SC_GroupBoxFrame, false);
    }
    QProxyStyle::drawComplexControl(CC_GroupBox, &group, &painter, widget);
  }

  // The frame lies beneath the title and a little outside of what it holds.
  QRect frameOf(const QStyleOptionComplex& option, const QWidget* widget) const {
    constexpr int margin = 3;
    const QRect inside = subControlRect(CC_GroupBox, &option, SC_GroupBoxContents, widget);
    return inside.adjusted(-margin, -margin, margin, margin).intersected(option.rect);
  }

  static void outline(Shape shape, const QStyleOption& option, const QRect& around, QPainter& painter) {
    if (shape == Shape::none || !isDark(option.palette)) return;
    const QRectF rect = QRectF(around).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setPen(penFor(option));
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing);
    if (shape == Shape::disc) {
      painter.drawEllipse(rect);
    } else {
      painter.drawRoundedRect(rect, 2, 2);
    }
    painter.restore();
  }
};

}  // namespace

void takeOutlines() {
  if (QApplication::style()->name() == "fusion") QApplication::setStyle(new Outlined);
}

}  // namespace torvane
