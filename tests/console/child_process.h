// SPDX-License-Identifier: MIT
// A program run by a test: its input, outputs and end, waited for with bounded time only.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace requite::test {

class ChildProcess {
 public:
  /// Starts the program at once. Its input is `input`, then the end of the file.
  ChildProcess(const std::string& program, std::vector<std::string> arguments, const std::string& input = {});
  /// A child that still runs is killed.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Waits until standard error holds a text; false when the program or the time ended before.
  bool WaitForErr(const std::string& text);
  void Signal(int number) const;
  /// Waits for the end: the exit status, 128 and the signal's number, or -1 when the time ended before.
  int Wait();

  std::string Out;
  std::string Err;
  /// The most memory that the program held at a time, in KiB; known when it has ended.
  long PeakMemory = 0;
  /// Called after each piece of standard output, which is in Out then.
  std::function<void()> OnOut;

 private:
  bool ReadSome(int milliseconds);

  int pid_ = -1;
  int out_ = -1;
  int err_ = -1;
};

}  // namespace requite::test
