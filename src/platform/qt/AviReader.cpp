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
};

// The chunk at the start of `rest`, which is moved behind it; a length beyond the end is cut.
Chunk takeChunk(QByteArrayView& rest) {
  const QByteArrayView name = rest.first(4);
  const auto told = static_cast<qsizetype>(numberAt(rest, 4));
  const QByteArrayView all = rest.sliced(headLength);
  const QByteArrayView body = all.first(std::min(told, all.size()));
  rest = all.sliced(std::min(told + told % 2, all.size()));
  const bool isList = name == QByteArrayView("LIST") && body.size() >= listNameLength;
  if (!isList) return {name, {}, body};
  return {name, body.first(listNameLength), body.sliced(listNameLength)};
}

template <class Visit>
void eachChunk(QByteArrayView rest, const Visit& visit) {
  while (rest.size() >= headLength) visit(takeChunk(rest));
}

QImage readFrame(QByteArrayView png) {
  QByteArray bytes = png.toByteArray();
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer, "png");
  const QSize size = reader.size();
  if (size.isEmpty() || size.width() > mostPixels || size.height() > mostPixels) return {};
  return reader.read();
}

void readMovie(QByteArrayView movie, Film& film) {
  eachChunk(movie, [&](const Chunk& chunk) {
    if (chunk.name != QByteArrayView("00dc") || film.frames.size() >= mostFrames) return;
    const QImage frame = readFrame(chunk.body);
    if (!frame.isNull()) film.frames.push_back(frame);
  });
}

void readHeader(QByteArrayView header, Film& film) {
  eachChunk(header, [&](const Chunk& chunk) {
    if (chunk.name != QByteArrayView("avih")) return;
    const std::uint32_t told = numberAt(chunk.body, 0);
    const std::uint32_t microseconds = told == 0 ? defaultMicroseconds : told;
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

}  // namespace torvane
