// SPDX-License-Identifier: MIT
// Files on the disk: reading, and the exchange in one step.
#include "platform/qt/io/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/qt/io/QtText.h"

namespace torvane {

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
void put(QFileDevice& to, const char* bytes, qint64 count) {
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

void putAll(QFileDevice& to, const char* bytes, qint64 count) {
  if (!to.seek(0)) failed(to, Fault::fileFault);
  put(to, bytes, count);
  if (!to.flush()) failed(to, Fault::fileFault);
}

// The old bytes lie here as well while a file is written over in place. Without room here they lie in memory
// alone.
class Spare {
 public:
  explicit Spare(const QByteArray& bytes) {
    file_.setFileTemplate(QString::fromStdString(dataFolder()) + "/before-save-XXXXXX.cfg");
    whole_ = file_.open() && file_.write(bytes) == bytes.size() && file_.flush();
  }
  // Where the bytes stay from now on; empty: nowhere.
  std::string keep() {
    if (!whole_) return "";
    file_.setAutoRemove(false);
    return typed(file_.fileName());
  }

 private:
  QTemporaryFile file_;
  bool whole_ = false;
};

void restore(QFile& file, const QByteArray& old, qint64 oldSize, Spare& spare, const RuntimeError& reason) {
  try {
    putAll(file, old.constData(), old.size());
    if (!file.resize(oldSize)) failed(file, Fault::fileFault);
  } catch (const RuntimeError&) {
    const std::string kept = spare.keep();
    if (kept.empty()) return;
    throw RuntimeError(Fault::fileFault, std::string(reason.what()) + ". The old content is in " + kept);
  }
}

void writeInPlace(QFile& file, std::string_view bytes, bool keepsTail) {
  const auto size = static_cast<qint64>(bytes.size());
  const qint64 oldSize = file.size();
  const QByteArray old = keepsTail ? file.read(size) : file.readAll();
  if (file.error() != QFileDevice::NoError) failed(file, Fault::fileFault);
  Spare spare(old);
  try {
    putAll(file, bytes.data(), size);
    if (!keepsTail && !file.resize(size)) failed(file, Fault::fileFault);
  } catch (const RuntimeError& error) {
    restore(file, old, oldSize, spare, error);
    throw;
  }
}

bool openPresent(QFile& file) {
  return QFileInfo(file).isFile() && file.open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

// A folder may refuse the second file at once, or only when it is to take the name of the first. False:
// nothing has happened to the first.
bool exchange(QSaveFile& file, std::string_view bytes, bool keepsTail) {
  if (!file.open(QIODevice::WriteOnly)) return false;
  put(file, bytes.data(), static_cast<qint64>(bytes.size()));
  if (keepsTail) copyTail(file.fileName(), static_cast<qint64>(bytes.size()), file);
  if (!file.flush()) failed(file, Fault::fileFault);
  return file.commit();
}

void write(const std::string& path, std::string_view bytes, bool keepsTail) {
  const QString name = QString::fromStdString(path);
  QSaveFile file(name);
  if (exchange(file, bytes, keepsTail)) return;
  QFile present(name);
  if (!openPresent(present)) failed(file, Fault::fileFault);
  writeInPlace(present, bytes, keepsTail);
}

}  // namespace

std::string dataFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  QDir().mkpath(folder);
  return typed(folder);
}

void renameWhole(const std::string& from, const std::string& to) {
  QFile file(QString::fromStdString(from));
  if (!file.rename(QString::fromStdString(to))) failed(file, Fault::fileFault);
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

void overwriteWhole(const std::string& path, std::string_view bytes) {
  QFile present(QString::fromStdString(path));
  if (!openPresent(present)) failed(present, Fault::fileFault);
  writeInPlace(present, bytes, true);
}

}  // namespace torvane
