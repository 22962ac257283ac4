// SPDX-License-Identifier: MIT
// A picture of a window as a page of the guide has it: no wider than the page, in the colours that it has
// most of. Usage: guide-picture FROM.png TO.png
#include <QHash>
#include <QImage>
#include <QSet>
#include <algorithm>
#include <cstdio>

namespace {

constexpr int widestOnAPage = 640;
constexpr qsizetype mostColours = 256;

// Colours that differ by so little that the eye takes them for one.
QRgb coarse(QRgb colour) { return colour & qRgb(0xF0, 0xF0, 0xF0); }

// The commonest colour of each coarse one, so that black letters on a small green field stay readable.
QList<QRgb> mainColours(const QImage& image) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  }
  QList<QRgb> colours = counts.keys();
  std::ranges::sort(colours,
                    [&](QRgb a, QRgb b) { return counts[a] != counts[b] ? counts[a] > counts[b] : a < b; });
  QList<QRgb> chosen;
  QSet<QRgb> taken;
  for (const QRgb colour : colours) {
    if (taken.contains(coarse(colour)) || chosen.size() == mostColours) continue;
    taken.insert(coarse(colour));
    chosen << colour;
  }
  return chosen;
}

}  // namespace

int main(int argc, char** argv) {
  QImage image(argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString());
  if (image.isNull()) {
    std::fputs("usage: guide-picture FROM.png TO.png\n", stderr);
    return 2;
  }
  image = image.convertToFormat(QImage::Format_RGB32);
  if (image.width() > widestOnAPage) image = image.scaledToWidth(widestOnAPage, Qt::SmoothTransformation);
  const QImage small =
      image.convertToFormat(QImage::Format_Indexed8, mainColours(image), Qt::ThresholdDither);
  return small.save(QString::fromLocal8Bit(argv[2]), "PNG", 0) ? 0 : 1;
}
