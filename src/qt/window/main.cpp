// SPDX-License-Identifier: MIT
// The start of the window program: makes the services, shows the splash, then the main window.
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTimer>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "platform/process_start.h"
#include "qt/services/code_page.h"
#include "qt/web/web_module.h"
#include "qt/window/desktop/desktop_bus.h"
#include "qt/window/desktop/desktop_services.h"
#include "qt/window/desktop/splash.h"
#include "qt/window/look/product_icon.h"
#include "qt/window/main_window/main_window.h"
#include "qt/window/scan_services.h"
#include "shell/product.h"
#include "shell/recovery.h"
#include "shell/window_words.h"
#include "system/freed_memory.h"
#include "system/program_folder.h"

namespace requite {
namespace {

constexpr int kSplashTicks = 75;
constexpr int kSplashInterval = 2;

void ShowReport(const std::vector<ReportLine>& lines) {
  QStringList paragraphs;
  for (const ReportLine& each : lines) {
    QString paragraph = ToUnicode(each.Words);
    paragraph[0] = paragraph[0].toUpper();
    if (!each.Path.empty()) paragraph += "\n" + QFile::decodeName(each.Path.c_str());
    paragraphs << paragraph;
  }
  QMessageBox::critical(nullptr, ToUnicode(product::kName), paragraphs.join("\n\n"));
}

/// Replaces the toolkit's messages while the application object is made: without a usable display it would
/// fill the terminal and abort.
void OneLineWithoutDisplay(QtMsgType kind, const QMessageLogContext&, const QString&) {
  if (kind != QtFatalMsg) return;
  std::cerr << "requite: there is no display; requite-console scans from a terminal" << std::endl;
  std::_Exit(1);
}

void PrintHelp() {
  std::cout << "The window of Requite. Its projects and settings are chosen in the window itself.\n"
               "Usage: requite [OPTION]\n\n";
  for (const WindowWord& word : kWindowWords) {
    const std::string names =
        std::string(word.Short) + (word.Short.empty() ? "" : ",") + std::string(word.Long);
    std::cout << "  " << std::left << std::setw(16) << names << word.Words << '\n';
  }
  std::cout << std::endl << "requite-console open FILE opens a project." << std::endl;
}

enum class FirstProject { Last, New };

/// What the command line asks for; nothing when it only asked for a text, which was printed.
std::optional<FirstProject> ReadWords(int argc, char** argv) {
  FirstProject first = FirstProject::Last;
  for (const char* const each : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
    if (IsWord(each, window_word::kHelp)) {
      PrintHelp();
      return std::nullopt;
    }
    if (IsWord(each, window_word::kVersion)) {
      std::cout << "requite " << product::kVersion << std::endl;
      return std::nullopt;
    }
    if (IsWord(each, window_word::kNew)) first = FirstProject::New;
  }
  return first;
}

int Run(QApplication& application, FirstProject first) {
  const ProgramFolder folder = ChooseProgramFolder(ProgramPlaces::OfThisProgram());
  const Project* project = nullptr;
  LateWork* late = nullptr;
  bool ending = false;
  Splash splash;
  const EventGuard guard([&](const RuntimeFailure& failure) {
    splash.close();  // the report must not be hidden under it
    // Events run while the report's box is open. What fails then fails because of the first failure.
    if (std::exchange(ending, true)) return;
    const std::optional<LateWork::Pause> pause =
        late ? std::make_optional<LateWork::Pause>(*late) : std::nullopt;
    EndWithReport(failure, project, {folder, HomeFolder(), DefaultSettingsPath()}, ShowReport);
  });
  const ConnectMap map;
  DesktopServices services(guard, map, DefaultSettingsPath());
  late = &services.All.EventLoop.Late();
  if (first == FirstProject::New) services.ForgetLastProject();
  SessionBus desktop;

  splash.show();

  std::optional<ScanServices> scanServices;  // outlives the scan that is made with its services
  std::unique_ptr<Form1> form;
  std::unique_ptr<MainWindow> window;
  QTimer timer2;
  int ticks = 0;
  QObject::connect(&timer2, &QTimer::timeout, [&] {
    if (++ticks != kSplashTicks) return;
    timer2.stop();
    guard.Run([&] {
      form = std::make_unique<Form1>(services.All, folder);
      project = &form->Sites;
      scanServices.emplace(services, *form);
      form->OnEnd = [&] { application.quit(); };
      window = std::make_unique<MainWindow>(*form, guard, &desktop);
      form->Start();
      window->show();
      splash.finish(window.get());
      services.TellUnsavedSettings();
    });
  });
  timer2.start(kSplashInterval);
  const int status = QApplication::exec();
  window.reset();
  return status;
}

}  // namespace
}  // namespace requite

int main(int argc, char** argv) {
  requite::OpenStandardStreams();
  requite::LetWritesFail();
  requite::KeepFreedMemory();
  requite::JoinFreedMemoryAtOnce();
  const auto first = requite::ReadWords(argc, argv);
  if (!first) return 0;
  requite::PrepareWebEngine();
  requite::StayOffMissingBus();
  qInstallMessageHandler(requite::OneLineWithoutDisplay);
  QApplication application(argc, argv);
  qInstallMessageHandler(nullptr);
  // The main window decides when the program ends, because another window may outlive it.
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setApplicationName("requite");
  QApplication::setDesktopFileName("requite");
  QApplication::setWindowIcon(requite::ProductIcon());
  return requite::Run(application, *first);
}
