// SPDX-License-Identifier: MIT
// The pages of the main window, each with a layout of its own; a page that the window has no room for
// scrolls. Their place in the strip stands in the layout of the window.
#pragma once

#include <QWidget>

#include "platform/qt/ScrollRoom.h"
#include "ui_pageAlarm1.h"
#include "ui_pageAlarm2.h"
#include "ui_pageAnalog.h"
#include "ui_pageComm.h"
#include "ui_pageIdCode.h"
#include "ui_pageInputType.h"
#include "ui_pageLbAlarm.h"
#include "ui_pageOut1.h"
#include "ui_pageOut2.h"
#include "ui_pageRampSoak.h"
#include "ui_pageReading.h"
#include "ui_pageSetpoints.h"

namespace torvane {

template <class Ui>
class Page : public ScrollRoom {
 public:
  explicit Page(QWidget* parent = nullptr) : ScrollRoom(leastLines, parent) {
    auto* content = new QWidget;
    Ui().setupUi(content);
    content->setObjectName("box_" + content->objectName());
    hold(content);
  }

 private:
  static constexpr int leastLines = 8;
};

using PageIdCode = Page<Ui::pageIdCode>;
using PageSetpoints = Page<Ui::pageSetpoints>;
using PageInputType = Page<Ui::pageInputType>;
using PageReading = Page<Ui::pageReading>;
using PageAlarm1 = Page<Ui::pageAlarm1>;
using PageAlarm2 = Page<Ui::pageAlarm2>;
using PageLbAlarm = Page<Ui::pageLbAlarm>;
using PageOut1 = Page<Ui::pageOut1>;
using PageOut2 = Page<Ui::pageOut2>;
using PageRampSoak = Page<Ui::pageRampSoak>;
using PageAnalog = Page<Ui::pageAnalog>;
using PageComm = Page<Ui::pageComm>;

}  // namespace torvane
