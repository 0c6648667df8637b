// SPDX-License-Identifier: MIT
// requite-sample-server: serves the sample sites on this machine until it is told to end.
#include <signal.h>
#include <sys/signalfd.h>

#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

#include "server.h"

namespace {

using namespace requite::samples;

struct Options {
  std::filesystem::path Sites = "samples/sites";
  std::uint16_t Port = 0;
  bool Good = true;
};

Options ReadOptions(int count, char** words) {
  Options options;
  for (int i = 1; i < count && options.Good; i += 2) {
    const std::string_view name = words[i];
    const std::string_view value = i + 1 < count ? words[i + 1] : "";
    if (name == "--sites" && !value.empty()) {
      options.Sites = value;
    } else if (name == "--port") {
      const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), options.Port);
      options.Good = error == std::errc() && end == value.data() + value.size();
    } else {
      options.Good = false;
    }
  }
  return options;
}

/// A descriptor that can be read once the process is asked to end.
Descriptor EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return Descriptor(::signalfd(-1, &signals, SFD_CLOEXEC));
}

}  // namespace

int main(int count, char** words) {
  const Options options = ReadOptions(count, words);
  if (!options.Good || !std::filesystem::is_directory(options.Sites)) {
    std::fputs("usage: requite-sample-server [--sites FOLDER] [--port PORT]\n", stderr);
    return 2;
  }
  try {
    const Descriptor end = EndSignals();
    Server server(Sites(options.Sites), options.Port);
    std::printf("listening on 127.0.0.1:%u\n", static_cast<unsigned>(server.Port()));
    std::fflush(stdout);
    server.Run(end.Number());
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "requite-sample-server: %s\n", error.what());
    return 1;
  }
}
