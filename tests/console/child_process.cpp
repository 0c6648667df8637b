// SPDX-License-Identifier: MIT
// Child processes over pipes.
#include "console/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <utility>

namespace requite::test {
namespace {

constexpr std::chrono::seconds kMostTime{60};

void Drain(int& descriptor, std::string& text) {
  char bytes[4096];
  const ssize_t count = ::read(descriptor, bytes, sizeof bytes);
  if (count > 0) {
    text.append(bytes, static_cast<std::size_t>(count));
  } else {
    ::close(std::exchange(descriptor, -1));
  }
}

}  // namespace

ChildProcess::ChildProcess(const std::string& program, std::vector<std::string> arguments,
                           const std::string& input) {
  int in[2];
  int out[2];
  int err[2];
  if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0)
    std::abort();
  arguments.insert(arguments.begin(), program);
  std::vector<char*> argv;
  for (std::string& each : arguments) argv.push_back(each.data());
  argv.push_back(nullptr);
  pid_ = ::fork();
  if (pid_ == 0) {
    ::dup2(in[0], STDIN_FILENO);
    ::dup2(out[1], STDOUT_FILENO);
    ::dup2(err[1], STDERR_FILENO);
    ::execv(program.c_str(), argv.data());
    ::_exit(127);
  }
  ::close(in[0]);
  ::close(out[1]);
  ::close(err[1]);
  out_ = out[0];
  err_ = err[0];
  // Small enough for the pipe to hold.
  if (::write(in[1], input.data(), input.size()) != static_cast<ssize_t>(input.size())) std::abort();
  ::close(in[1]);
}

ChildProcess::~ChildProcess() {
  if (pid_ > 0) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
  }
  if (out_ >= 0) ::close(out_);
  if (err_ >= 0) ::close(err_);
}

bool ChildProcess::ReadSome(int milliseconds) {
  pollfd files[] = {{out_, POLLIN, 0}, {err_, POLLIN, 0}};
  if (out_ < 0 && err_ < 0) return false;
  if (::poll(files, 2, milliseconds) <= 0) return true;
  if (files[0].revents != 0) {
    Drain(out_, Out);
    if (OnOut) OnOut();
  }
  if (files[1].revents != 0) Drain(err_, Err);
  return true;
}

bool ChildProcess::WaitForErr(const std::string& text) {
  const auto end = std::chrono::steady_clock::now() + kMostTime;
  while (Err.find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > end || !ReadSome(100)) return false;
  }
  return true;
}

void ChildProcess::Signal(int number) const { ::kill(pid_, number); }

int ChildProcess::Wait() {
  const auto end = std::chrono::steady_clock::now() + kMostTime;
  while (ReadSome(100)) {
    if (std::chrono::steady_clock::now() > end) return -1;
  }
  int status = 0;
  rusage used{};
  ::wait4(std::exchange(pid_, -1), &status, 0, &used);
  PeakMemory = used.ru_maxrss;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace requite::test
