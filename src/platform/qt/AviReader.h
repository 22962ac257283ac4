// SPDX-License-Identifier: MIT
// Films of the program's own kind: RIFF AVI whose frames are PNG images.
#pragma once

#include <QByteArray>
#include <QImage>
#include <vector>

namespace torvane {

struct Film {
  int frameMilliseconds = 0;  // 20 to 10000
  std::vector<QImage> frames;
};

// Any bytes will do: what is no film gives no frames, a damaged film those up to the damage. At most 500
// frames of at most 1024 x 1024 pixels are taken.
Film readFilm(const QByteArray& avi);

}  // namespace torvane
