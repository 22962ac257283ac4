// SPDX-License-Identifier: MIT
// What a program without windows has of its terminal.
#include "platform/qt/io/Terminal.h"

#include <atomic>
#include <csignal>

#ifdef _WIN32
#include <io.h>
#include <windows.h>

#include <QCoreApplication>
#include <cstdlib>

#include "platform/qt/io/QtText.h"
#else
#include <unistd.h>
#endif

namespace torvane {

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

constexpr int errorOutput = 2;

void noteInterrupt(int signal) {
  interrupted = true;
  std::signal(signal, SIG_DFL);
}

}  // namespace

#ifdef _WIN32
// The words of main() are in the system's code page there, which can't hold every name of a file.
std::vector<std::string> wordsOfCommandLine(int, char**) {
  std::vector<std::string> found;
  for (const QString& word : QCoreApplication::arguments().sliced(1)) found.push_back(typed(word));
  return found;
}

// The console's code page belongs to all of its programs, and is given back.
void printAsUtf8() {
  static const UINT before = GetConsoleOutputCP();
  if (before == 0 || before == CP_UTF8) return;
  if (SetConsoleOutputCP(CP_UTF8)) std::atexit([] { SetConsoleOutputCP(before); });
}
#else
std::vector<std::string> wordsOfCommandLine(int count, char** words) { return {words + 1, words + count}; }

void printAsUtf8() {}
#endif

bool errorsGoToATerminal() {
#ifdef _WIN32
  return _isatty(errorOutput) != 0;
#else
  return isatty(errorOutput) != 0;
#endif
}

void watchInterrupts() {
  std::signal(SIGINT, noteInterrupt);
  std::signal(SIGTERM, noteInterrupt);
}

bool wasInterrupted() { return interrupted; }

void interrupt() { interrupted = true; }

}  // namespace torvane
