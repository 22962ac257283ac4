// SPDX-License-Identifier: MIT
// A run of unit-simulator with its two outputs in one pipe.
#include "Program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

extern char** environ;

namespace torvane {

Program::Program(std::vector<std::string> arguments) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
  posix_spawn_file_actions_adddup2(&actions, ends[1], 2);
  arguments.insert(arguments.begin(), UNIT_SIMULATOR);
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  posix_spawn(&process_, UNIT_SIMULATOR, &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  output_ = ends[0];
}

Program::~Program() {
  end(SIGKILL);
  ::close(output_);
}

std::string Program::line() const {
  std::string text;
  char byte = 0;
  pollfd source{output_, POLLIN, 0};
  while (::poll(&source, 1, 10'000) > 0 && ::read(output_, &byte, 1) == 1 && byte != '\n') text += byte;
  return text;
}

std::string Program::port() const {
  const std::string first = line();
  return first.starts_with("port ") ? first.substr(5) : std::string();
}

int Program::portBehind(const std::string& name) const {
  const std::string text = line();
  return text.starts_with(name) ? std::stoi(text.substr(name.size())) : 0;
}

int Program::end(int signal) {
  if (process_ <= 0) return status_;
  if (signal != 0) kill(process_, signal);
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = -1;
  return status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace torvane
