// SPDX-License-Identifier: MIT
// requite-sample-server: serves the sample sites on this machine until it is told to end.
#include <signal.h>
#include <sys/signalfd.h>

#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "secure_channel.h"
#include "server.h"

namespace {

using namespace requite::samples;

struct Options {
  std::filesystem::path Sites = "samples/sites";
  std::uint16_t Port = 0;
  std::optional<std::uint16_t> SecurePort;
  std::string Authority;
  bool Good = true;
};

/// Nothing for a text that is no port.
std::optional<std::uint16_t> ReadPort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return port;
}

Options ReadOptions(int count, char** words) {
  Options options;
  for (int i = 1; i < count && options.Good; i += 2) {
    const std::string_view name = words[i];
    const std::string_view value = i + 1 < count ? words[i + 1] : "";
    if (name == "--sites" && !value.empty()) {
      options.Sites = value;
    } else if (name == "--port") {
      const std::optional<std::uint16_t> port = ReadPort(value);
      options.Good = port.has_value();
      options.Port = port.value_or(0);
    } else if (name == "--secure-port") {
      options.SecurePort = ReadPort(value);
      options.Good = options.SecurePort.has_value();
    } else if (name == "--authority" && !value.empty()) {
      options.Authority = value;
    } else {
      options.Good = false;
    }
  }
  options.Good = options.Good && options.SecurePort.has_value() == !options.Authority.empty();
  return options;
}

void WriteAuthority(const SecureSide& secure, const std::string& path) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << secure.AuthorityPem();
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path);
}

void Print(const char* words, std::uint16_t port) {
  std::printf("%s on 127.0.0.1:%u\n", words, static_cast<unsigned>(port));
  std::fflush(stdout);
}

/// A descriptor that can be read once the process is asked to end.
Descriptor EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  ::signal(SIGPIPE, SIG_IGN);  // a secure client that has gone is an error of the write
  return Descriptor(::signalfd(-1, &signals, SFD_CLOEXEC));
}

}  // namespace

int main(int count, char** words) {
  const Options options = ReadOptions(count, words);
  if (!options.Good || !std::filesystem::is_directory(options.Sites)) {
    std::fputs(
        "usage: requite-sample-server [--sites FOLDER] [--port PORT] [--secure-port PORT --authority FILE]\n"
        "FILE gets the certificate of the authority that vouches for the secure sites.\n",
        stderr);
    return 2;
  }
  try {
    const Descriptor end = EndSignals();
    std::optional<SecureSide> secure;
    Server server(Sites(options.Sites), options.Port);
    if (options.SecurePort) {
      secure.emplace(Sites(options.Sites));
      WriteAuthority(*secure, options.Authority);
    }
    Print("listening", server.Port());
    if (secure) Print("listening securely", server.ListenSecurely(*secure, *options.SecurePort));
    server.Run(end.Number());
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "requite-sample-server: %s\n", error.what());
    return 1;
  }
}
