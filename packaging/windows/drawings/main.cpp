// SPDX-License-Identifier: MIT
// usage: drawings FROM TO. Lays each SVG of a folder as PNG into another, at 1, 1.5 and 2 times its size:
// once with black ink and paper, once as how much of either each pixel has. And the program's icon for
// Windows, app.ico.
#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

QImage drawn(QByteArray svg, const char* ink, const char* paper, QSize size) {
  svg.replace("#000001", ink);
  svg.replace("#FFFFFE", paper);
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  QSvgRenderer renderer(svg);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  return image;
}

// Red: what the ink adds to a pixel, of 255; green: what the paper adds.
QImage weights(const QImage& base, const QImage& ink, const QImage& paper) {
  QImage found(base.size(), QImage::Format_RGB32);
  for (int y = 0; y < base.height(); ++y) {
    const auto* const bases = reinterpret_cast<const QRgb*>(base.constScanLine(y));
    const auto* const inks = reinterpret_cast<const QRgb*>(ink.constScanLine(y));
    const auto* const papers = reinterpret_cast<const QRgb*>(paper.constScanLine(y));
    auto* const line = reinterpret_cast<QRgb*>(found.scanLine(y));
    for (int x = 0; x < base.width(); ++x) {
      line[x] = qRgb(qRed(inks[x]) - qRed(bases[x]), qRed(papers[x]) - qRed(bases[x]), 0);
    }
  }
  return found;
}

void save(const QImage& image, const QString& path) {
  if (image.save(path)) return;
  std::fprintf(stderr, "%s can't be written\n", path.toLocal8Bit().constData());
  std::exit(EXIT_FAILURE);
}

void lay(const QByteArray& svg, const QString& target) {
  const QSize own = QSvgRenderer(svg).defaultSize();
  for (const int scale : {100, 150, 200}) {
    const QSize size = own * scale / 100;
    const QImage base = drawn(svg, "#000000", "#000000", size);
    const QImage ink = drawn(svg, "#FFFFFF", "#000000", size);
    const QImage paper = drawn(svg, "#000000", "#FFFFFF", size);
    const QString name = QStringLiteral("%1-%2").arg(target).arg(scale);
    save(base, name + ".png");
    save(weights(base, ink, paper), name + "-inks.png");
  }
}

// An icon file is a table of PNG files, one for each size.
void layIcon(const QByteArray& svg, const QString& target) {
  const std::vector<int> sizes = {16, 24, 32, 48, 64, 256};
  std::vector<QByteArray> pictures;
  for (const int size : sizes) {
    QBuffer buffer(&pictures.emplace_back());
    drawn(svg, "#000001", "#FFFFFE", QSize(size, size)).save(&buffer, "PNG");
  }
  QFile file(target);
  if (!file.open(QIODevice::WriteOnly)) std::exit(EXIT_FAILURE);
  QDataStream out(&file);
  out.setByteOrder(QDataStream::LittleEndian);
  out << quint16(0) << quint16(1) << quint16(sizes.size());
  auto offset = static_cast<quint32>(6 + 16 * sizes.size());
  for (std::size_t index = 0; index < sizes.size(); ++index) {
    const auto side = static_cast<quint8>(sizes[index] % 256);
    const auto length = static_cast<quint32>(pictures[index].size());
    out << side << side << quint8(0) << quint8(0) << quint16(1) << quint16(32) << length << offset;
    offset += length;
  }
  for (const QByteArray& picture : pictures)
    out.writeRawData(picture.constData(), static_cast<int>(picture.size()));
}

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

int main(int count, char** words) {
  const QGuiApplication application(count, words);
  if (count != 3) return EXIT_FAILURE;
  const QDir from(words[1]);
  const QDir to(words[2]);
  for (const QFileInfo& file : from.entryInfoList({"*.svg"})) {
    lay(contentOf(file.filePath()), to.filePath(file.baseName()));
  }
  layIcon(contentOf(from.filePath("app.svg")), to.filePath("app.ico"));
  return EXIT_SUCCESS;
}
