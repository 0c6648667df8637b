// SPDX-License-Identifier: MIT
// What the real main window costs: whole scans with it on screen and without, and the longest time that
// its event loop is blocked while long lists fill, sort and scroll.
//
//   window_speed scan PROJECT PROGRAM_FOLDER PORT with|without [PROCESS...]    prints the seconds of one scan
//   window_speed lists [ROWS]                                  prints the longest stall of each action
//
// `scan` fetches every page from 127.0.0.1:PORT, and adds the processor time of other processes, given by
// number; window_speed.py starts a server and compares the two.
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qt/window/desktop/desktop_services.h"
#include "qt/window/main_window/main_window.h"
#include "system/freed_memory.h"

namespace requite {
namespace {

const EventGuard kGuard([](const RuntimeFailure& failure) {
  std::fprintf(stderr, "failure %d: %s\n", failure.Number, failure.Description.c_str());
  std::exit(70);
});

/// A 5 ms timer whose largest gap is the longest time in which nothing else could run.
class StallProbe {
 public:
  StallProbe() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
    clock_.start();
    timer_.start(5);
  }
  /// The milliseconds of what ran since the last call.
  double Take() {
    for (int i = 0; i < 30; ++i) {  // postponed work counts too
      QElapsedTimer wait;
      wait.start();
      while (wait.elapsed() < 5) QCoreApplication::processEvents();
    }
    Look();
    return std::exchange(largest_, 0);
  }

 private:
  void Look() {
    largest_ = std::max(largest_, static_cast<double>(clock_.nsecsElapsed()) / 1e6), clock_.start();
  }

  QTimer timer_;
  QElapsedTimer clock_;
  double largest_ = 0;
};

struct Desk {
  Desk(const std::string& folder, std::uint16_t port)
      : Folder(folder), Services(kGuard, Map, folder + "/settings") {
    if (port != 0) Map.Add({"", std::nullopt, {"127.0.0.1", port}});
    for (const char* quiet : {"chkAuto", "chkAudioNext", "chkAudioFinished", "showHelp"}) {
      Services.All.Store.Write(quiet, "0");
    }
    Form.emplace(Services.All, Folder);
  }
  void ShowWindow() {
    Window = std::make_unique<MainWindow>(*Form, kGuard);
    Window->show();
    QCoreApplication::processEvents();
  }

  ConnectMap Map;
  ProgramFolder Folder;
  DesktopServices Services;
  std::optional<Form1> Form;
  std::unique_ptr<MainWindow> Window;
};

/// The processor time of this process and the others.
double CpuSeconds(const std::vector<pid_t>& others) {
  std::vector<clockid_t> clocks{CLOCK_PROCESS_CPUTIME_ID};
  for (const pid_t other : others) {
    if (::clock_getcpuclockid(other, &clocks.emplace_back()) != 0) std::exit(1);
  }
  double seconds = 0;
  for (const clockid_t each : clocks) {
    timespec used{};
    ::clock_gettime(each, &used);
    seconds += static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
  }
  return seconds;
}

int RunScan(const std::string& project, const std::string& folder, int port, bool withWindow,
            const std::vector<pid_t>& others) {
  Desk desk(folder, static_cast<std::uint16_t>(port));
  if (withWindow) desk.ShowWindow();
  desk.Form->StartWithoutProject();
  desk.Form->Files.LoadProject(project);
  const double cpuBefore = CpuSeconds(others);
  QElapsedTimer clock;
  clock.start();
  desk.Form->Command1.Click();
  while (desk.Form->State.Scanning) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  std::printf("%.4f s, %.4f s of the processor, %d pages\n", seconds, CpuSeconds(others) - cpuBefore,
              desk.Form->Figures.PagesScanned);
  return 0;
}

std::string Mixed(int i) {
  return "www.partner" + std::to_string(i * 7919 % 1000003) + ".example/links.html";
}

/// Adds rows one by one, as a scan does, with a yield after each.
void Fill(Desk& desk, int rows, const std::function<void(int)>& add) {
  for (int i = 0; i < rows; ++i) {
    add(i);
    desk.Services.All.EventLoop.LetPendingEventsRun();
  }
}

void ScrollThrough(QTableView& view) {
  QScrollBar& bar = *view.verticalScrollBar();
  for (int step = 0; step <= 40; ++step) {
    bar.setValue(bar.maximum() * step / 40);
    QCoreApplication::processEvents();
  }
}

int RunLists(int rows) {
  char folder[] = "/tmp/requite-window-XXXXXX";
  if (::mkdtemp(folder) == nullptr) return 1;
  Desk desk(folder, 0);
  desk.ShowWindow();
  desk.Form->StartWithoutProject();
  Form1& form = *desk.Form;
  form.Sites.AddMainSite("www.mysite.example");
  form.SelectMainSite(0);
  StallProbe probe;
  const auto report = [&](const char* what) {
    std::printf("%-34s longest stall %6.1f ms\n", what, probe.Take());
  };
  const auto view = [&](const char* name) -> QTableView& {
    return *desk.Window->findChild<QTableView*>(name);
  };
  report("nothing");
  Fill(desk, rows, [&](int i) { form.Sites.List1(1).Add({Mixed(i), "1", "", "", ""}); });
  report("fill Linking Sites");
  form.Sites.AddMainSite("www.other.example");
  form.SelectMainSite(1);
  report("show an empty list");
  form.SelectMainSite(0);
  report("show the long list again");
  Fill(desk, rows, [&](int i) {
    form.Sites.List3.Add({"www.mysite.example", Mixed(i), "Direct Link", "001", Mixed(i * 3)}, 2, kBlue);
  });
  report("fill results");
  Fill(desk, rows, [&](int i) { form.Lists.List2.Add({Mixed(i)}); });
  report("fill the queue");
  for (const char* name : {"List1", "List3", "List2"}) ScrollThrough(view(name));
  report("scroll all three through");
  for (int column : {0, 0, 4}) {
    form.Sites.List1(1).OnColumnClick(column);
    report("sort Linking Sites");
  }
  for (int column : {1, 4, 2}) {
    form.Sites.List3.OnColumnClick(column);
    report("sort results");
  }
  Fill(desk, 2000, [&](int i) {
    form.Sites.List3.Add({"m", Mixed(i), "Domain Link", "001", Mixed(i)}, 2, kBlue);
  });
  report("add 2000 results to a sorted list");
  auto& filter = *desk.Window->findChild<QLineEdit*>("resultFilter");
  for (const char* typed : {"p", "partner1", "partner1 links", "no such row", ""}) {
    filter.setText(typed);
    report("type into the filter of results");
  }
  filter.setText("partner1");
  form.Sites.List3.OnColumnClick(1);
  report("sort filtered results");
  Fill(desk, 2000, [&](int i) {
    form.Sites.List3.Add({"m", Mixed(i), "None Found", "000", Mixed(i)}, 1, kRed);
  });
  report("add 2000 to sorted, filtered ones");
  desk.Window->ShowMissing();
  report("show missing");
  Fill(desk, 2000, [&](int) { form.Lists.List2.Remove(0); });
  report("take 2000 pages from the queue");
  form.Sites.List3.Clear();
  report("empty the results");
  return 0;
}

int Run(int argc, char** argv) {
  const std::string mode = argc > 1 ? argv[1] : "lists";
  if (mode == "scan" && argc >= 6) {
    std::vector<pid_t> others;
    for (int i = 6; i < argc; ++i) others.push_back(std::atoi(argv[i]));
    return RunScan(argv[2], argv[3], std::atoi(argv[4]), std::string(argv[5]) == "with", others);
  }
  return RunLists(argc > 2 ? std::atoi(argv[2]) : 100000);
}

}  // namespace
}  // namespace requite

int main(int argc, char** argv) {
  requite::KeepFreedMemory();
  requite::JoinFreedMemoryAtOnce();
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return requite::Run(argc, argv);
}
