// SPDX-License-Identifier: MIT
// The file calls of the process, in front of the system's own.
#undef _FORTIFY_SOURCE  // its inline forms of these calls would go past the ones here
#include "support/file_faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <mutex>

namespace requite::test {
namespace {

struct State {
  bool Armed = false;
  int FailAt = 0;
  Fault Kind = Fault::Once;
  std::string Below;
  std::string Mark;
  int Count = 0;
  std::vector<FileEvent> Events;
  std::map<int, std::string> Names;  // of open descriptors
};

/// Never taken down: files are closed until the very end of the process.
State& TheState() {
  static State& state = *new State;
  return state;
}

std::unique_lock<std::mutex> Lock() {
  static std::mutex& mutex = *new std::mutex;
  return std::unique_lock(mutex);
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

bool Concerns(const FileEvent& event) {
  const State& state = TheState();
  return state.Armed && (event.Path.starts_with(state.Below) || event.Target.starts_with(state.Below));
}

/// Counts a call and says whether it fails.
bool Fails(const FileEvent& event) {
  State& state = TheState();
  ++state.Count;
  if (state.FailAt == 0 || state.Count < state.FailAt) return false;
  if (state.Count == state.FailAt && !state.Mark.empty()) ::mknod(state.Mark.c_str(), S_IFREG | 0600, 0);
  if (state.Kind == Fault::Kill) ::kill(::getpid(), SIGKILL);
  const bool isShort = state.Kind == Fault::ShortWrite && state.Count == state.FailAt;
  if (isShort && event.Call == FileCall::Write) return false;
  const bool fails = state.Kind == Fault::Once ? state.Count == state.FailAt : NeedsRoom(event);
  if (fails) errno = state.Kind == Fault::Once && event.Call == FileCall::Close ? EIO : ENOSPC;
  return fails;
}

/// One call of the process: counted, made to fail or passed on, and recorded.
template <class Real>
ssize_t Watch(FileEvent event, Real&& real) {
  if (!Concerns(event)) return real();
  const auto lock = Lock();
  if (Fails(event)) return -1;
  const ssize_t result = real();
  if (result < 0) return result;
  if (event.Call == FileCall::Open) TheState().Names[static_cast<int>(result)] = event.Path;
  if (event.Call == FileCall::Rename) {
    for (auto& [descriptor, name] : TheState().Names) {
      if (name == event.Path) name = event.Target;
    }
  }
  TheState().Events.push_back(std::move(event));
  return result;
}

std::string NameOf(int descriptor) {
  if (!TheState().Armed) return {};
  const auto lock = Lock();
  const auto found = TheState().Names.find(descriptor);
  return found == TheState().Names.end() ? std::string() : found->second;
}

void ForgetName(int descriptor) {
  if (!TheState().Armed) return;
  const auto lock = Lock();
  TheState().Names.erase(descriptor);
}

FileEvent OnDescriptor(FileCall call, int descriptor) { return {call, NameOf(descriptor), {}, {}}; }

template <class Real>
int WatchOpen(const char* path, int flags, Real&& real) {
  return static_cast<int>(Watch({FileCall::Open, path, {}, {}, (flags & O_CREAT) != 0}, real));
}

/// `real` takes the number of bytes to write.
template <class Real>
ssize_t WatchWrite(int descriptor, const void* bytes, std::size_t count, Real&& real) {
  const std::string name = NameOf(descriptor);
  // The program's own words are no file.
  if (name.empty()) return real(count);
  if (TheState().Kind == Fault::ShortWrite && TheState().Count + 1 == TheState().FailAt) {
    count = (count + 1) / 2;
  }
  return Watch({FileCall::Write, name, {}, {static_cast<const char*>(bytes), count}},
               [&] { return real(count); });
}

}  // namespace

FileFaults::FileFaults(int failAt, Fault fault, const std::string& below, const std::string& mark) {
  State& state = TheState();
  state = {true, failAt, fault, below, mark, 0, {}, {}};
}
FileFaults::~FileFaults() { TheState().Armed = false; }

bool FileFaults::Reached() const { return TheState().Count >= TheState().FailAt; }
const std::vector<FileEvent>& FileFaults::Events() const { return TheState().Events; }

}  // namespace requite::test

using requite::test::FileCall;
using requite::test::OnDescriptor;
using requite::test::TheState;
using requite::test::Watch;
using requite::test::WatchOpen;
using requite::test::WatchWrite;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  static auto* const real = requite::test::REQUITE_NEXT(open);
  return WatchOpen(path, flags, [&] { return real(path, flags, mode); });
}

/// Libraries that were built for large files call this one.
int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  static auto* const real = requite::test::REQUITE_NEXT(open64);
  return WatchOpen(path, flags, [&] { return real(path, flags, mode); });
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
  static auto* const real = requite::test::REQUITE_NEXT(write);
  return WatchWrite(descriptor, bytes, count,
                    [&](std::size_t length) { return real(descriptor, bytes, length); });
}

/// The database engine writes in the middle of files, which power cuts know nothing of.
ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t at) {
  static auto* const real = requite::test::REQUITE_NEXT(pwrite64);
  return WatchWrite(descriptor, bytes, count,
                    [&](std::size_t length) { return real(descriptor, bytes, length, at); });
}

/// The real disk is left out: its flushes take time, and no test cuts its power.
int fsync(int descriptor) {
  static auto* const real = requite::test::REQUITE_NEXT(fsync);
  if (!TheState().Armed) return real(descriptor);
  return static_cast<int>(Watch(OnDescriptor(FileCall::Flush, descriptor), [] { return 0; }));
}

int fdatasync(int descriptor) { return fsync(descriptor); }

/// One that fails has closed the descriptor too, as the system's does.
int close(int descriptor) {
  static auto* const real = requite::test::REQUITE_NEXT(close);
  const auto event = OnDescriptor(FileCall::Close, descriptor);
  requite::test::ForgetName(descriptor);
  const int closed = real(descriptor);
  return static_cast<int>(Watch(event, [&] { return closed; }));
}

int rename(const char* from, const char* to) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(rename);
  return static_cast<int>(Watch({FileCall::Rename, from, to, {}}, [&] { return real(from, to); }));
}

int link(const char* from, const char* to) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(link);
  return static_cast<int>(Watch({FileCall::Link, from, to, {}}, [&] { return real(from, to); }));
}

int unlink(const char* path) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(unlink);
  return static_cast<int>(Watch({FileCall::Unlink, path, {}, {}}, [&] { return real(path); }));
}

int mkdir(const char* path, mode_t mode) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(mkdir);
  return static_cast<int>(Watch({FileCall::MakeFolder, path, {}, {}}, [&] { return real(path, mode); }));
}

int ftruncate(int descriptor, off_t size) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(ftruncate);
  return static_cast<int>(
      Watch(OnDescriptor(FileCall::Truncate, descriptor), [&] { return real(descriptor, size); }));
}

int ftruncate64(int descriptor, off64_t size) noexcept { return ftruncate(descriptor, size); }

int fchmod(int descriptor, mode_t mode) noexcept {
  static auto* const real = requite::test::REQUITE_NEXT(fchmod);
  return static_cast<int>(
      Watch(OnDescriptor(FileCall::ChangeMode, descriptor), [&] { return real(descriptor, mode); }));
}

}  // extern "C"
