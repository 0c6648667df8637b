// SPDX-License-Identifier: MIT
// What a page over loopback costs compared with a bare blocking socket, and what a setting costs.
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

#include "qt/loop_rig.h"
#include "system/local_server.h"
#include "system/page_connection.h"
#include "system/settings_file.h"

namespace requite::test {
namespace {

constexpr std::string_view kRequest =
    "GET /page.html HTTP/1.1\r\nHost: site.example\r\nConnection: close\r\nAccept: */*\r\n\r\n";

/// A server on loopback that answers each request with a page of that size; or the server, with pages of that
/// size, whose port is in PAGE_SERVER_PORT.
class PageServer {
 public:
  explicit PageServer(std::size_t size)
      : page_("HTTP/1.1 200 OK\r\n\r\n" + std::string(size, 'p')), server_([this](ServedConnection& client) {
          client.ReadRequest();
          client.Send(page_);
        }) {}

  [[nodiscard]] std::uint16_t Port() const {
    const char* other = std::getenv("PAGE_SERVER_PORT");
    return other == nullptr ? server_.Port() : static_cast<std::uint16_t>(std::stoi(other));
  }

 private:
  std::string page_;
  LocalServer server_;
};

void BM_BareLoop(benchmark::State& state) {
  const PageServer server(static_cast<std::size_t>(state.range(0)));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(server.Port());
  std::array<char, 128 * 1024> piece{};
  for (auto _ : state) {
    std::string page;
    const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
    if (::connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) break;
    if (::send(descriptor, kRequest.data(), kRequest.size(), 0) < 0) break;
    for (ssize_t bytes = 1; bytes > 0;) {
      bytes = ::recv(descriptor, piece.data(), piece.size(), 0);
      if (bytes > 0) page.append(piece.data(), static_cast<std::size_t>(bytes));
    }
    ::close(descriptor);
    benchmark::DoNotOptimize(page);
  }
}

/// Asks for the next page at the end of each, and yields as a scan does.
class PageChain : public ConnectionEvents {
 public:
  PageChain(Connection& connection, EventLoop& loop, std::uint16_t port)
      : connection_(connection), loop_(loop), port_(port) {
    connection.Events = this;
  }
  void OnConnect() override {
    loop_.LetPendingEventsRun();
    connection_.SendData(kRequest);
  }
  void OnDataArrival(std::size_t) override {
    page_ += connection_.GetData();
    loop_.LetPendingEventsRun();
  }
  void OnClose() override {
    loop_.LetPendingEventsRun();
    benchmark::DoNotOptimize(page_);
    if (++Pages < Wanted) Next();
  }
  void Next() {
    page_.clear();
    connection_.Connect("127.0.0.1", port_);
  }

  int Pages = 0;
  int Wanted = 0;

 private:
  Connection& connection_;
  EventLoop& loop_;
  std::uint16_t port_;
  std::string page_;
};

void BM_PageConnection(benchmark::State& state) {
  const PageServer server(static_cast<std::size_t>(state.range(0)));
  LoopRig rig;
  SocketPoller poller(rig.Descriptors, rig.Guard);
  NameResolver resolver(poller);
  const ConnectMap map;
  PageConnection connection(poller, resolver, map);
  PageChain chain(connection, rig.Loop, server.Port());
  constexpr int kPages = 200;
  for (auto _ : state) {
    chain.Wanted = chain.Pages + kPages;
    chain.Next();
    rig.Loop.RunUntil([&] { return chain.Pages == chain.Wanted; }, std::chrono::seconds(60));
  }
  state.counters["page"] = benchmark::Counter(
      double(kPages), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK(BM_BareLoop)->Arg(2048)->Arg(60 * 1024)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PageConnection)->Arg(2048)->Arg(60 * 1024)->UseRealTime()->Unit(benchmark::kMicrosecond);

void BM_Yield(benchmark::State& state) {
  LoopRig rig;
  for (auto _ : state) rig.Loop.LetPendingEventsRun();
}
BENCHMARK(BM_Yield);

const std::string kSettings = std::filesystem::temp_directory_path() / "requite-bench-settings";

void BM_WriteSetting(benchmark::State& state) {
  SettingsFile store(kSettings);
  int number = 0;
  for (auto _ : state) store.Write("lHistWebScanned", std::to_string(++number));
  std::filesystem::remove(kSettings);
}
BENCHMARK(BM_WriteSetting);

void BM_ReadSetting(benchmark::State& state) {
  SettingsFile store(kSettings);
  for (int i = 0; i < 40; ++i) store.Write("key" + std::to_string(i), "1");
  store.Write("chkAuto", "1");
  for (auto _ : state) benchmark::DoNotOptimize(store.Read("chkAuto"));
  std::filesystem::remove(kSettings);
}
BENCHMARK(BM_ReadSetting);

}  // namespace
}  // namespace requite::test
