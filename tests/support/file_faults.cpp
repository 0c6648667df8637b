// SPDX-License-Identifier: MIT
// The file calls of the process, in front of the system's own.
#undef _FORTIFY_SOURCE  // its inline forms of these calls would go past the ones here
#include "support/file_faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace requite::test {
namespace {

struct State {
  bool Armed = false;
  int FailAt = 0;
  Fault Kind = Fault::Once;
  int Count = 0;
  bool HalfWritten = false;
  std::vector<FileEvent> Events;
  std::map<int, std::string> Names;  // of open descriptors
};

State& TheState() {
  static State state;
  return state;
}

template <class Function>
Function* Next(Function*, const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}
#define REQUITE_NEXT(name) Next(&::name, #name)

bool NeedsRoom(const FileEvent& event) {
  switch (event.Call) {
    case FileCall::Open: return event.Makes;
    case FileCall::Write:
    case FileCall::Flush:
    case FileCall::Link:
    case FileCall::MakeFolder: return true;
    default: return false;
  }
}

/// Counts a call and says whether it fails.
bool Fails(const FileEvent& event) {
  State& state = TheState();
  ++state.Count;
  if (state.FailAt == 0 || state.Count < state.FailAt) return false;
  const bool fails = state.Kind == Fault::Once ? state.Count == state.FailAt : NeedsRoom(event);
  if (fails) errno = state.Kind == Fault::Once && event.Call == FileCall::Close ? EIO : ENOSPC;
  return fails;
}

/// One call of the process: counted, made to fail or passed on, and recorded.
template <class Real>
int Watch(FileEvent event, Real&& real) {
  if (!TheState().Armed) return real();
  if (Fails(event)) return -1;
  const int result = real();
  if (result < 0) return result;
  if (event.Call == FileCall::Open) TheState().Names[result] = event.Path;
  TheState().Events.push_back(std::move(event));
  return result;
}

std::string NameOf(int descriptor) {
  const auto found = TheState().Names.find(descriptor);
  return found == TheState().Names.end() ? std::string() : found->second;
}

FileEvent OnDescriptor(FileCall call, int descriptor) {
  return {call, TheState().Armed ? NameOf(descriptor) : std::string(), {}, {}};
}

}  // namespace

FileFaults::FileFaults(int failAt, Fault fault) {
  State& state = TheState();
  state = State();
  state.FailAt = failAt;
  state.Kind = fault;
  state.Armed = true;
}
FileFaults::~FileFaults() { TheState().Armed = false; }

bool FileFaults::Reached() const { return TheState().Count >= TheState().FailAt; }
const std::vector<FileEvent>& FileFaults::Events() const { return TheState().Events; }

}  // namespace requite::test

using requite::test::FileCall;
using requite::test::NameOf;
using requite::test::OnDescriptor;
using requite::test::TheState;
using requite::test::Watch;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  static auto* const real = requite::test::REQUITE_NEXT(open);
  return Watch({FileCall::Open, path, {}, {}, (flags & O_CREAT) != 0},
               [&] { return real(path, flags, mode); });
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
  static auto* const real = requite::test::REQUITE_NEXT(write);
  auto& state = TheState();
  // The test program's own words are no file.
  if (!state.Armed || requite::test::NameOf(descriptor).empty()) return real(descriptor, bytes, count);
  if (state.Kind == requite::test::Fault::ShortWrite && state.Count + 1 == state.FailAt && count > 1) {
    ++state.Count;
    count /= 2;
    const ssize_t written = real(descriptor, bytes, count);
    state.Events.push_back(
        {FileCall::Write, NameOf(descriptor), {}, {static_cast<const char*>(bytes), count}});
    return written;
  }
  return Watch({FileCall::Write, NameOf(descriptor), {}, {static_cast<const char*>(bytes), count}},
               [&] { return static_cast<int>(real(descriptor, bytes, count)); });
}

/// The real disk is left out: its flushes take time, and no test cuts its power.
int fsync(int descriptor) {
  static auto* const real = requite::test::REQUITE_NEXT(fsync);
  if (!TheState().Armed) return real(descriptor);
  return Watch(OnDescriptor(FileCall::Flush, descriptor), [] { return 0; });
}

/// One that fails has closed the descriptor all the same, as the system's does.
int close(int descriptor) {
  static auto* const real = requite::test::REQUITE_NEXT(close);
  if (!TheState().Armed) return real(descriptor);
  const auto event = OnDescriptor(FileCall::Close, descriptor);
  TheState().Names.erase(descriptor);
  const int closed = real(descriptor);
  return Watch(event, [&] { return closed; });
}

int rename(const char* from, const char* to) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(rename);
  return Watch({FileCall::Rename, from, to, {}}, [&] { return real(from, to); });
}

int link(const char* from, const char* to) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(link);
  return Watch({FileCall::Link, from, to, {}}, [&] { return real(from, to); });
}

int unlink(const char* path) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(unlink);
  return Watch({FileCall::Unlink, path, {}, {}}, [&] { return real(path); });
}

int mkdir(const char* path, mode_t mode) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(mkdir);
  return Watch({FileCall::MakeFolder, path, {}, {}}, [&] { return real(path, mode); });
}

int ftruncate(int descriptor, off_t size) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(ftruncate);
  return Watch(OnDescriptor(FileCall::Truncate, descriptor), [&] { return real(descriptor, size); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(fchmod);
  return Watch(OnDescriptor(FileCall::ChangeMode, descriptor), [&] { return real(descriptor, mode); });
}

}  // extern "C"
