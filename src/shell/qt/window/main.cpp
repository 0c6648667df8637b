// SPDX-License-Identifier: MIT
// The start of the window program: makes the services, shows the splash, then the main window.
#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QSplashScreen>
#include <QTimer>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "shell/product.h"
#include "shell/qt/code_page.h"
#include "shell/qt/freed_memory.h"
#include "shell/qt/program_folder.h"
#include "shell/qt/web/web_module.h"
#include "shell/qt/window/desktop_services.h"
#include "shell/qt/window/main_window.h"
#include "shell/recovery.h"

namespace requite {
namespace {

constexpr int kRunTimeFailure = 70;
constexpr int kSplashTicks = 75;
constexpr int kSplashInterval = 2;

/// Ends the program for a failure that nothing handled. The user's unsaved work goes to a file first.
[[noreturn]] void EndWithReport(const RuntimeFailure& failure, const Project* project,
                                const ProgramFolder& folder) {
  QString text = QString("Run-time failure %1: %2").arg(failure.Number).arg(ToUnicode(failure.Description));
  if (project != nullptr) {
    if (const auto path = WriteRecovered(*project, folder)) {
      text += "\n\nThe unsaved project was written to\n" + QString::fromLocal8Bit(path->c_str());
    }
  }
  QMessageBox::critical(nullptr, ToUnicode(product::kName), text);
  // Handlers may stand on the stack that would use what is being taken down.
  std::_Exit(kRunTimeFailure);
}

/// Without a display the toolkit would abort with a page of words.
bool HasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

int Run(QApplication& application) {
  const ProgramFolder folder = ChooseProgramFolder(ProgramPlaces::OfThisProgram());
  const Project* project = nullptr;
  const EventGuard guard([&](const RuntimeFailure& failure) { EndWithReport(failure, project, folder); });
  const ConnectMap map;
  DesktopServices services(guard, map, DefaultSettingsPath());

  QPixmap picture(360, 180);
  picture.fill(QColor(40, 60, 90));
  QSplashScreen splash(picture);
  splash.showMessage(ToUnicode(product::kName), Qt::AlignCenter, Qt::white);
  splash.show();

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
      form->OnEnd = [&] { application.quit(); };
      window = std::make_unique<MainWindow>(*form, guard);
      window->show();
      splash.finish(window.get());
      form->Start();
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
  requite::KeepFreedMemory();
  if (!requite::HasDisplay()) {
    std::cerr << "requite: there is no display; requite-console scans from a terminal" << std::endl;
    return 1;
  }
  requite::PrepareWebEngine();
  QApplication application(argc, argv);
  QApplication::setApplicationName("requite");
  QApplication::setDesktopFileName("requite");
  return requite::Run(application);
}
