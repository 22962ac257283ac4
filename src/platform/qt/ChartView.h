// SPDX-License-Identifier: MIT
// The widget of a Plot: paints its chart in the colours of the palette. It takes the room that is left, no
// keyboard, and shows nothing where there is too little room to read it.
#pragma once

#include <QWidget>

#include "platform/Chart.h"

namespace torvane {

class ChartView : public QWidget {
  Q_OBJECT

 public:
  explicit ChartView(QWidget* parent = nullptr);

  void setChart(const Chart& chart);
  const Chart& chart() const { return chart_; }
  // Whether there is room to read it.
  bool readable() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, 0}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Chart chart_;
};

}  // namespace torvane
