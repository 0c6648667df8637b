// SPDX-License-Identifier: MIT
// Standard streams and signals of a process that has just started.
#include "platform/process_start.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace requite {

void OpenStandardStreams() {
  int file = 0;
  do {
    file = ::open("/dev/null", O_RDWR);
  } while (file >= 0 && file <= STDERR_FILENO);
  if (file >= 0) ::close(file);
}

void LetWritesFail() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace requite
