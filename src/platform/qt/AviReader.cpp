// SPDX-License-Identifier: MIT
// Walks the chunks of an AVI: RIFF "AVI " holds LIST "hdrl" with "avih", and LIST "movi" with "00dc".
#include "platform/qt/AviReader.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>

namespace torvane {

namespace {

constexpr qsizetype headLength = 8;      // a chunk's name and length
constexpr qsizetype listNameLength = 4;  // in front of the chunks of a RIFF or LIST chunk
constexpr std::size_t mostFrames = 500;
constexpr int mostPixels = 1024;  // on a side
constexpr int defaultMicroseconds = 100'000;

std::uint32_t numberAt(QByteArrayView bytes, qsizetype at) {
  return bytes.size() < at + 4 ? 0 : qFromLittleEndian<std::uint32_t>(bytes.data() + at);
}

struct Chunk {
  QByteArrayView name;
  QByteArrayView list;  // of a LIST chunk, else empty
  QByteArrayView body;
  bool cut = false;  // its length goes beyond the end
};

// The chunk at the start of `rest`, which is moved past it.
Chunk takeChunk(QByteArrayView& rest) {
  const QByteArrayView name = rest.first(4);
  const auto stated = static_cast<qsizetype>(numberAt(rest, 4));
  const QByteArrayView all = rest.sliced(headLength);
  const QByteArrayView body = all.first(std::min(stated, all.size()));
  rest = all.sliced(std::min(stated + stated % 2, all.size()));
  const bool isList = name == QByteArrayView("LIST") && body.size() >= listNameLength;
  const bool cut = stated > all.size();
  if (!isList) return {name, {}, body, cut};
  return {name, body.first(listNameLength), body.sliced(listNameLength), cut};
}

template <class Visit>
void eachChunk(QByteArrayView rest, const Visit& visit) {
  while (rest.size() >= headLength) visit(takeChunk(rest));
}

bool hasSize(QByteArray png) {
  QBuffer buffer(&png);
  const QSize size = QImageReader(&buffer, "png").size();
  return !size.isEmpty() && size.width() <= mostPixels && size.height() <= mostPixels;
}

void readMovie(QByteArrayView movie, Film& film) {
  eachChunk(movie, [&](const Chunk& chunk) {
    if (chunk.name != QByteArrayView("00dc") || chunk.cut || film.frames.size() >= mostFrames) return;
    const QByteArray frame = chunk.body.toByteArray();
    if (hasSize(frame)) film.frames.push_back(frame);
  });
}

void readHeader(QByteArrayView header, Film& film) {
  eachChunk(header, [&](const Chunk& chunk) {
    if (chunk.name != QByteArrayView("avih")) return;
    const std::uint32_t stated = numberAt(chunk.body, 0);
    const std::uint32_t microseconds = stated == 0 ? defaultMicroseconds : stated;
    film.frameMilliseconds = static_cast<int>(std::clamp(microseconds / 1000, 20U, 10'000U));
  });
}

}  // namespace

Film readFilm(const QByteArray& avi) {
  Film film{defaultMicroseconds / 1000, {}};
  const QByteArrayView bytes(avi);
  const qsizetype start = headLength + listNameLength;
  if (bytes.size() < start || !avi.startsWith("RIFF") ||
      bytes.sliced(headLength, 4) != QByteArrayView("AVI ")) {
    return film;
  }
  eachChunk(bytes.sliced(start), [&](const Chunk& chunk) {
    if (chunk.list == QByteArrayView("hdrl")) readHeader(chunk.body, film);
    if (chunk.list == QByteArrayView("movi")) readMovie(chunk.body, film);
  });
  return film;
}

QImage imageOf(const QByteArray& frame) { return QImage::fromData(frame, "png"); }

}  // namespace torvane
