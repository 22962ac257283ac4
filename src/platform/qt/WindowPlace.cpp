// SPDX-License-Identifier: MIT
// Where a window stood when it was last closed, kept in the settings' section "Window".
#include "platform/qt/WindowPlace.h"

#include <algorithm>
#include <string>

#include "platform/Program.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

namespace {

constexpr int farthest = 100'000;  // no desktop is wider; more than that is a fault of the file

std::string pathOf(const char* key) { return std::string(program::title) + "/Window/" + key; }

std::optional<int> number(const QtSettings& settings, const char* key) {
  bool isNumber = false;
  const int value = shown(settings.value(pathOf(key))).toInt(&isNumber);
  if (!isNumber || value < -farthest || value > farthest) return std::nullopt;
  return value;
}

int shownPart(const QRect& screen, const QRect& window) {
  const QRect part = screen.intersected(window);
  return part.isEmpty() ? 0 : part.width() * part.height();
}

// Where a length has to begin so that it ends within the room; its beginning goes before its end.
int beginWithin(int wanted, int length, int roomBegin, int room) {
  return std::max(roomBegin, std::min(wanted, roomBegin + room - length));
}

}  // namespace

void savePlace(QtSettings& settings, const WindowPlace& place) {
  const auto save = [&](const char* key, int value) { settings.save(pathOf(key), std::to_string(value)); };
  save("Left", place.normal.x());
  save("Top", place.normal.y());
  save("Width", place.normal.width());
  save("Height", place.normal.height());
  save("Maximized", place.maximized ? 1 : 0);
  save("Sized", place.sized ? 1 : 0);
}

std::optional<WindowPlace> savedPlace(const QtSettings& settings) {
  const auto left = number(settings, "Left");
  const auto top = number(settings, "Top");
  const auto width = number(settings, "Width");
  const auto height = number(settings, "Height");
  if (!left || !top || !width || !height || *width < 1 || *height < 1) return std::nullopt;
  return WindowPlace{QRect(*left, *top, *width, *height), number(settings, "Maximized") == 1,
                     number(settings, "Sized") != 0};
}

QRect placeWithin(const QList<QRect>& screens, const QRect& wanted, QSize frame) {
  const QRect& screen = *std::ranges::max_element(
      screens, {}, [&](const QRect& candidate) { return shownPart(candidate, wanted); });
  const QSize size = wanted.size().boundedTo(screen.size() - frame);
  const QSize outer = size + frame;
  return {QPoint(beginWithin(wanted.x(), outer.width(), screen.x(), screen.width()),
                 beginWithin(wanted.y(), outer.height(), screen.y(), screen.height())),
          size};
}

namespace {

int hidden(const QList<QRect>& boxes, const QRect& window) {
  int area = 0;
  for (const QRect& box : boxes) {
    const QRect part = box.intersected(window);
    if (!part.isEmpty()) area += part.width() * part.height();
  }
  return area;
}

// As much of the wanted size as a strip beside the other window leaves; null where it is too narrow.
QRect withinStrip(const QRect& strip, QSize wanted, QSize least, QSize frame) {
  const QSize size = wanted.boundedTo(strip.size() - frame);
  return size.width() < least.width() || size.height() < least.height() ? QRect()
                                                                        : QRect(strip.topLeft(), size);
}

}  // namespace

QRect placeNextTo(const QRect& room, const QRect& other, const QList<QRect>& boxes, QSize wanted, QSize least,
                  QSize frame) {
  const QRect right(QPoint(other.right() + 1, room.top()), room.bottomRight());
  const QRect left(room.topLeft(), QPoint(other.left() - 1, room.bottom()));
  const QRect below(QPoint(room.left(), other.bottom() + 1), room.bottomRight());
  const QRect above(room.topLeft(), QPoint(room.right(), other.top() - 1));
  for (const QRect& strip : {right, left, below, above}) {
    QRect place = withinStrip(strip, wanted, least, frame);
    if (strip == left) place.moveRight(strip.right());
    if (strip == above) place.moveBottom(strip.bottom() - frame.height());
    if (!place.isEmpty()) return place;
  }
  constexpr int step = 16;
  QRect best(room.topLeft(), least);
  for (int top = room.top(); top + least.height() + frame.height() <= room.bottom(); top += step) {
    for (int begin = room.left(); begin + least.width() <= room.right(); begin += step) {
      const QRect place(QPoint(begin, top), least);
      if (hidden(boxes, place) < hidden(boxes, best)) best = place;
    }
  }
  return best;
}

}  // namespace torvane
