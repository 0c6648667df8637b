// SPDX-License-Identifier: MIT
// The nameless file that holds most of a long text.
#include "platform/spooled_text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "platform/files.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

/// -1 when the folder takes no file.
int OpenNamelessFile(const std::string& folder) {
  std::string path = folder + "/.spool-XXXXXX";
  const int descriptor = ::mkostemp(path.data(), O_CLOEXEC);
  if (descriptor >= 0) ::unlink(path.c_str());
  return descriptor;
}

}  // namespace

SpooledText::~SpooledText() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

void SpooledText::Spool() {
  if (inMemoryOnly_) return;
  if (descriptor_ < 0) descriptor_ = OpenNamelessFile(folder_);
  std::size_t written = 0;
  while (descriptor_ >= 0 && written < tail_.size()) {
    const ssize_t count = ::pwrite(descriptor_, tail_.data() + written, tail_.size() - written,
                                   static_cast<off_t>(spooled_ + written));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  inMemoryOnly_ = written < tail_.size();
  spooled_ += written;
  tail_.erase(0, written);
}

void SpooledText::AppendTo(const std::string& path) const {
  struct stat before {};
  const bool wasEmpty = ::stat(path.c_str(), &before) != 0 || before.st_size == 0;
  try {
    ForEachPiece([&](std::string_view piece) { AppendToFile(path, piece); });
  } catch (const RuntimeFailure&) {
    PassOver([&] {
      if (!FileExists(path)) return;
      if (wasEmpty) {
        DeleteFile(path);
      } else if (::truncate(path.c_str(), before.st_size) != 0) {
        ThrowFileFailure(path, errno);
      }
    });
    throw;
  }
}

void SpooledText::ForEachPiece(const std::function<void(std::string_view)>& take) const {
  std::string piece(std::min(spooled_, kMostInMemory), '\0');
  for (std::size_t done = 0; done < spooled_;) {
    const ssize_t count =
        ::pread(descriptor_, piece.data(), std::min(piece.size(), spooled_ - done), static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) throw RuntimeFailure(Failure::PathFileAccess);
    take(std::string_view(piece).substr(0, static_cast<std::size_t>(count)));
    done += static_cast<std::size_t>(count);
  }
  take(tail_);
}

}  // namespace requite
