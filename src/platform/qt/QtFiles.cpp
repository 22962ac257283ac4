// SPDX-License-Identifier: MIT
// Files on the disk.
#include "platform/qt/QtFiles.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/qt/io/QtText.h"

namespace {

constexpr qint64 portion = 1 << 20;  // bytes copied at a time

[[noreturn]] void failed(const QFileDevice& file, Fault fault) {
  throw RuntimeError(fault, typed(file.errorString()));
}

void openOrThrow(QFileDevice& file, QIODevice::OpenMode mode) {
  const bool missing = mode == QIODevice::ReadOnly && !QFile::exists(file.fileName());
  if (!file.open(mode)) failed(file, missing ? Fault::fileNotFound : Fault::fileFault);
}

// A disk that is full takes a part first; only the next portion tells why.
void put(QSaveFile& to, const char* bytes, qint64 count) {
  while (count > 0) {
    const qint64 written = to.write(bytes, count);
    if (written <= 0) failed(to, Fault::fileFault);
    bytes += written;
    count -= written;
  }
}

void copyTail(const QString& path, qint64 from, QSaveFile& to) {
  QFile old(path);
  if (!old.exists() || old.size() <= from) return;
  openOrThrow(old, QIODevice::ReadOnly);
  if (!old.seek(from)) failed(old, Fault::fileFault);
  while (!old.atEnd()) {
    const QByteArray piece = old.read(portion);
    if (piece.isEmpty()) failed(old, Fault::fileFault);
    put(to, piece.constData(), piece.size());
  }
}

void write(const std::string& path, std::string_view bytes, bool keepsTail) {
  const QString name = QString::fromStdString(path);
  QSaveFile file(name);
  openOrThrow(file, QIODevice::WriteOnly);
  put(file, bytes.data(), static_cast<qint64>(bytes.size()));
  if (keepsTail) copyTail(name, static_cast<qint64>(bytes.size()), file);
  if (!file.flush() || !file.commit()) failed(file, Fault::fileFault);
}

}  // namespace

QString toolkitFilter(std::string_view filter) {
  const QStringList parts = shown(filter).split('|');
  QStringList kinds;
  for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
    const QString bare = parts[at].section('(', 0, 0).trimmed();
    kinds << bare + " (" + (parts[at + 1] == "*.*" ? "*" : parts[at + 1]) + ")";
  }
  return kinds.join(";;");
}

std::string FileChooser::chooseToOpen(const std::string& filter) {
  return remember(QFileDialog::getOpenFileName(front_(), "Open", folder_, toolkitFilter(filter)));
}

std::string FileChooser::chooseToSave(const std::string& filter) {
  return save(toolkitFilter(filter), "cfg", "");
}

std::string FileChooser::chooseToSavePdf(const QString& name) {
  return save("PDF Files (*.pdf)", "pdf", name);
}

std::string FileChooser::save(const QString& filters, const QString& suffix, const QString& name) {
  QFileDialog chooser(front_(), "Save As", folder_, filters);
  chooser.setAcceptMode(QFileDialog::AcceptSave);
  chooser.setDefaultSuffix(suffix);
  chooser.selectFile(name);
  if (chooser.exec() == QDialog::Rejected) return "";
  return remember(chooser.selectedFiles().value(0));
}

std::string FileChooser::remember(const QString& path) {
  if (!path.isEmpty()) folder_ = QFileInfo(path).absolutePath();
  return typed(path);
}

std::string readWhole(const std::string& path, std::size_t most) {
  QFile file(QString::fromStdString(path));
  if (QFileInfo(file).isDir()) throw RuntimeError(Fault::fileFault, "Is a directory");
  openOrThrow(file, QIODevice::ReadOnly);
  QByteArray bytes;
  while (static_cast<std::size_t>(bytes.size()) < most) {
    const auto left =
        static_cast<qint64>(std::min<std::size_t>(most - static_cast<std::size_t>(bytes.size()), portion));
    const QByteArray piece = file.read(left);
    if (piece.isEmpty()) break;
    bytes += piece;
  }
  if (file.error() != QFileDevice::NoError) failed(file, Fault::fileFault);
  return bytes.toStdString();
}

void exchangeWhole(const std::string& path, std::string_view bytes) { write(path, bytes, true); }

void replaceWhole(const std::string& path, std::string_view bytes) { write(path, bytes, false); }
