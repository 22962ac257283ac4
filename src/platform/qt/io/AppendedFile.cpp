// SPDX-License-Identifier: MIT
// A file that grows line by line and survives a power cut.
#include "platform/qt/io/AppendedFile.h"

#include "platform/RuntimeError.h"
#include "platform/qt/io/LockFile.h"
#include "platform/qt/io/QtText.h"
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <QFileInfo>
#else
#include <io.h>
#endif

namespace torvane {

namespace {

[[noreturn]] void failed(const QFile& file) {
  throw RuntimeError(Fault::fileFault, typed(file.fileName() + ": " + file.errorString()));
}

std::string holderOf(const QLockFile& lock) {
  qint64 process = 0;
  QString host;
  QString program;
  if (!lock.getLockInfo(&process, &host, &program)) return "another program";
  return typed(program) + " (process " + std::to_string(process) + ")";
}

#ifdef Q_OS_UNIX
bool toDisk(const QFile& file) { return ::fsync(file.handle()) == 0; }

// The name of a new file is an entry of its folder, which goes to the disk by itself.
void folderToDisk(const QFile& file) {
  const QByteArray folder = QFile::encodeName(QFileInfo(file).absolutePath());
  const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  ::fsync(handle);
  ::close(handle);
}
#else
bool toDisk(const QFile& file) { return ::_commit(file.handle()) == 0; }

void folderToDisk(const QFile&) {}
#endif

}  // namespace

AppendedFile::AppendedFile(const std::string& path, std::size_t keep)
    : lock_(QString::fromStdString(path) + ".lock"), file_(QString::fromStdString(path)) {
  if (!takeLock(lock_)) {
    if (lock_.error() == QLockFile::LockFailedError) {
      throw RuntimeError(Fault::fileFault, path + " is in use by " + holderOf(lock_));
    }
    throw RuntimeError(Fault::fileFault, path + ": the lock file beside it can't be made");
  }
  const bool isNew = !file_.exists();
  if (!file_.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) failed(file_);
  const auto size = static_cast<qint64>(keep);
  if (file_.size() > size && !file_.resize(size)) failed(file_);
  if (!file_.seek(file_.size()) || !toDisk(file_)) failed(file_);
  if (isNew) folderToDisk(file_);
}

void AppendedFile::append(std::string_view line) {
  const auto size = static_cast<qint64>(line.size());
  if (file_.write(line.data(), size) != size || !toDisk(file_)) failed(file_);
}

}  // namespace torvane
