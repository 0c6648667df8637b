// SPDX-License-Identifier: MIT
// How many rows a second are posted to a server on the loopback.
#include <benchmark/benchmark.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <thread>

#include "posting/posting.h"
#include "qt/services/code_page.h"
#include "qt/services/qt_descriptor_loop.h"
#include "qt/services/qt_event_loop.h"
#include "server.h"
#include "support/fakes.h"
#include "system/connect_map.h"
#include "system/curl_internet.h"

namespace requite::test {
namespace {

struct MemoryLog : PostLog {
  void ShowForm5() override {}
  TextBox& Text4() override { return Box; }
  TextBox Box{"Text4"};
};

/// 1,000 rows, each answered by a script that echoes its query; the log starts empty at each run.
void PostThousandRows(benchmark::State& state) {
  int argc = 0;
  const QCoreApplication application(argc, nullptr);
  samples::Server server(samples::Sites(REQUITE_SAMPLE_SITES), 0);
  const samples::Descriptor stop(::eventfd(0, EFD_CLOEXEC));
  std::thread serving([&] { server.Run(stop.Number()); });
  ConnectMap map;
  map.Add(*ReadConnectRule("::127.0.0.1:" + std::to_string(server.Port())));
  const EventGuard guard([](const RuntimeFailure&) {});
  QtEventLoop loop;
  QtDescriptorLoop getLoop(guard, loop.Late());
  CurlInternet internet(getLoop, map, AsciiHost);
  MemorySettings store;
  ScriptedDialogs dialogs;
  MemoryLog log;
  RecordList<LinkResult> list3("List3");
  RecordList<ScriptUrlEntry> lstMulti("lstMulti");
  OptionGroup optScript("optScript", {"one", "each"});
  TextBox script("txtPost", "http://script.example/echo.php?m=$MainSite&l=$LinkingSite&f=$FoundOn&b=$Status");
  TextBox script2("txtPost2");
  ComboBox sites("cmbSites");
  Button button("cmdPost", "");
  StatusBar bar("StatusBar1");
  for (int n = 0; n < 1000; ++n) {
    const std::string host = "site" + std::to_string(n) + ".example";
    list3.Add({"main.example", host, "Direct Link", "001", host + "/links/partners.html"});
  }
  optScript.Choose(0);
  MainPosting posting(
      {list3, Settings(store), internet, loop, dialogs, log, [] { return false; }},
      {optScript, script, lstMulti, sites, script2, button, button, button, button, button, bar});
  for (auto _ : state) {
    log.Box.SetText("");
    posting.PostLinks();
  }
  state.counters["rows"] =
      benchmark::Counter(1000.0 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  const std::uint64_t one = 1;
  static_cast<void>(!::write(stop.Number(), &one, sizeof one));
  serving.join();
}
BENCHMARK(PostThousandRows)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace requite::test
