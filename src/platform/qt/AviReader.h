// SPDX-License-Identifier: MIT
// Films of the program's own kind: RIFF AVI whose frames are PNG images.
#pragma once

#include <QByteArray>
#include <QImage>
#include <vector>

namespace torvane {

struct Film {
  int frameMilliseconds = 0;       // 20 to 10000
  std::vector<QByteArray> frames;  // PNG each: to decode them all would hold up the run that they go with
};

// Any bytes will do: what is no film gives no frames, a film that is cut those before the cut. At most 500
// frames of at most 1024 x 1024 pixels are taken.
Film readFilm(const QByteArray& avi);

// A null image where the frame is damaged.
QImage imageOf(const QByteArray& frame);

}  // namespace torvane
