// SPDX-License-Identifier: MIT
// Writes over a file again and again, in turn with "a" and with "b", until it is killed or something fails.
// With a second argument no file may grow beyond that many bytes, as on a disk that is full; with a third the
// file is written over in place.
#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "platform/RuntimeError.h"
#include "platform/qt/QtFiles.h"

using namespace torvane;

int main(int argc, char** argv) {
  if (argc > 2) {
    std::signal(SIGXFSZ, SIG_IGN);
    const auto most = static_cast<rlim_t>(std::atoi(argv[2]));
    const rlimit limit = {most, most};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  try {
    for (char letter = 'a';; letter = letter == 'a' ? 'b' : 'a')
      (argc > 3 ? overwriteWhole : exchangeWhole)(argv[1], std::string(50000, letter));
  } catch (const RuntimeError& error) {
    std::fputs(error.what(), stdout);
    return 1;
  }
}
