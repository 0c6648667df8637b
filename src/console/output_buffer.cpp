// SPDX-License-Identifier: MIT
// Writing to the descriptor, and giving up.
#include "console/output_buffer.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace requite {

OutputBuffer::OutputBuffer(int descriptor) : descriptor_(descriptor) {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

OutputBuffer::~OutputBuffer() { Send(); }

OutputBuffer::int_type OutputBuffer::overflow(int_type c) {
  Send();
  if (!traits_type::eq_int_type(c, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(c);
    pbump(1);
  }
  return traits_type::not_eof(c);
}

int OutputBuffer::sync() {
  Send();
  return 0;
}

void OutputBuffer::Send() {
  const char* next = pbase();
  while (next < pptr() && !dropping_) {
    const ssize_t written = ::write(descriptor_, next, static_cast<std::size_t>(pptr() - next));
    if (written >= 0) {
      next += written;
    } else if (errno == EAGAIN) {
      // Another program has set this terminal or pipe to non-blocking.
      pollfd room{descriptor_, POLLOUT, 0};
      ::poll(&room, 1, -1);
    } else if (errno != EINTR) {
      if (errno != EPIPE) failure_ = errno;
      dropping_ = true;
    }
  }
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

}  // namespace requite
