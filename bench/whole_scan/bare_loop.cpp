// SPDX-License-Identifier: MIT
// What whole scans are compared with: a blocking socket loop that fetches each page over its own connection
// and throws it away. Usage: bare_loop PORT HOST PATHS_FILE
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

/// Returns the bytes received, or -1 when the connection failed.
long FetchAndDrop(const sockaddr_in& server, const std::string& request) {
  static std::array<char, 256 * 1024> buffer;
  const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (fd < 0 || ::connect(fd, reinterpret_cast<const sockaddr*>(&server), sizeof server) != 0) return -1;
  if (::send(fd, request.data(), request.size(), 0) < 0) return -1;
  long total = 0;
  for (ssize_t count = 1; count > 0; total += count) count = ::recv(fd, buffer.data(), buffer.size(), 0);
  ::close(fd);
  return total;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  sockaddr_in server{};
  server.sin_family = AF_INET;
  server.sin_port = htons(static_cast<std::uint16_t>(std::atoi(argv[1])));
  server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  std::ifstream paths(argv[3]);
  long total = 0;
  for (std::string path; std::getline(paths, path);) {
    const long bytes = FetchAndDrop(server, "GET " + path + " HTTP/1.1\r\nHost: " + argv[2] +
                                                "\r\nConnection: close\r\nAccept: */*\r\n\r\n");
    if (bytes < 0) return 1;
    total += bytes;
  }
  std::printf("%ld\n", total);
  return 0;
}
