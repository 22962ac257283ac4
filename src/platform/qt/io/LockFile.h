// SPDX-License-Identifier: MIT
// Lock files that outlive nobody: neither the program that was killed while it held one, nor the one that was
// killed while it made one and left it empty.
#pragma once

#include <QLockFile>

namespace torvane {

// Whether the lock could be taken, at once or as soon as its last holder is gone. A living holder keeps it.
bool takeLock(QLockFile& lock);

// The lock file of something else's making: removed if it is empty and nobody holds it.
void removeIfEmpty(const QString& lockFile);

}  // namespace torvane
