// SPDX-License-Identifier: MIT
// The process that a batch starts for each line. It hears of its units on its standard input and tells each
// step on its standard output, a journal's line each; every line but a register's is answered when it is on
// the disk. It ends with the process that has started it.
#pragma once

namespace torvane::tool {

// The one word on the command line that makes a worker of the program.
inline constexpr const char* workerWord = "batch-worker";

// What either side says besides.
inline constexpr const char* cancelWord = "cancel";

int batchWorker();

}  // namespace torvane::tool
