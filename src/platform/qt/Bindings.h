// SPDX-License-Identifier: MIT
// One overload for each kind of control and the widget that shows it.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>

#include "platform/Chart.h"
#include "platform/Controls.h"
#include "platform/qt/AnimationView.h"
#include "platform/qt/Binding.h"
#include "platform/qt/ChartView.h"
#include "platform/qt/PictureView.h"
#include "platform/qt/RowTable.h"

namespace torvane {

// Each returns the new binding, which lives with the widget and has not shown anything yet.
Binding* bind(CommandButton& control, QPushButton& widget);
Binding* bind(CheckBox& control, QCheckBox& widget);
Binding* bind(OptionButton& control, QRadioButton& widget);

Binding* bind(TextBox& control, QLineEdit& widget);
Binding* bind(TextBox& control, QPlainTextEdit& widget);

Binding* bind(ListBox& control, QListWidget& widget);
Binding* bind(Table& control, RowTable& widget);
Binding* bind(ComboBox& control, QComboBox& widget);

Binding* bind(Label& control, QLabel& widget);
Binding* bind(Frame& control, QGroupBox& widget);
Binding* bind(Picture& control, PictureView& widget);
Binding* bind(Plot& control, ChartView& widget);
Binding* bind(Animation& control, AnimationView& widget);
Binding* bind(ProgressBar& control, QProgressBar& widget);
Binding* bind(ScrollBar& control, QSlider& widget);

// The pages are those of the stack "<name>_pages" beside the bar, if it is there.
Binding* bind(TabStrip& control, QTabBar& widget);

}  // namespace torvane
