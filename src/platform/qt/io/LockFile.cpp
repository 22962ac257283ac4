// SPDX-License-Identifier: MIT
// Lock files that outlive nobody.
#include "platform/qt/io/LockFile.h"

#include <QFileInfo>

namespace torvane {

namespace {

constexpr int madeWithin = 100;  // milliseconds; what is empty for longer stays so
constexpr int patience = 400;

}  // namespace

// An old lock is only ever removed when the system says that no process has it.
bool takeLock(QLockFile& lock) {
  lock.setStaleLockTime(madeWithin);
  return lock.tryLock(patience);
}

void removeIfEmpty(const QString& lockFile) {
  const QFileInfo file(lockFile);
  if (file.isFile() && file.size() == 0) QLockFile(lockFile).removeStaleLockFile();
}

}  // namespace torvane
