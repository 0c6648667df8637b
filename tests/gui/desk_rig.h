// SPDX-License-Identifier: MIT
// The real window over the real services, with the sample sites for every host name.
#pragma once

#include <QAbstractButton>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "qt/services/code_page.h"
#include "qt/window/desktop/desktop_services.h"
#include "qt/window/main_window/main_window.h"
#include "system/program_folder.h"

namespace requite::test {

/// The sample server as a process of its own; it ends with this object.
class SampleServer {
 public:
  SampleServer() {
    process_.start(REQUITE_SAMPLE_SERVER, {"--sites", REQUITE_SAMPLES "/sites", "--port", "0"});
    while (!process_.canReadLine() && process_.waitForReadyRead(10000)) {
    }
    const QString port = QString(process_.readLine()).trimmed().section(':', -1);
    const auto rule = ReadConnectRule("::127.0.0.1:" + port.toStdString());
    if (!rule) qFatal("the sample server did not start");
    Map.Add(*rule);
  }
  ~SampleServer() {
    process_.terminate();
    process_.waitForFinished(5000);
  }
  SampleServer(const SampleServer&) = delete;
  SampleServer& operator=(const SampleServer&) = delete;

  ConnectMap Map;  ///< every connection goes to the server

 private:
  QProcess process_;
};

/// One run of the program over a program's folder and a settings file that outlive it.
class DeskProgram {
 public:
  DeskProgram(const ProgramFolder& folder, const ConnectMap& map)
      : services_(guard_, map, folder.File("settings")), Form(services_.All, folder), Window(Form, guard_) {
    Form.OnEnd = [this] { Ended = true; };
    Form.Settings.SaveSetting(setting::showHelp, "0");  // its window would take the keyboard
    Form.Start();
    Window.show();
    Window.activateWindow();  // there may be no window manager that would
  }

  template <class Kind>
  Kind* Widget(const char* name) {
    auto* const found = Window.findChild<Kind*>(name);
    if (found == nullptr) qFatal("no widget %s", name);
    return found;
  }

  /// Presses a button that a user could press.
  void Click(const char* name) {
    auto* const button = Widget<QAbstractButton>(name);
    if (!QTest::qWaitFor([button] { return button->isVisible() && button->isEnabled(); })) {
      qFatal("%s cannot be pressed", name);
    }
    QTest::mouseClick(button, Qt::LeftButton);
  }

  bool Ended = false;

 private:
  const EventGuard guard_{[](const RuntimeFailure& failure) { qFatal("%s", failure.what()); }};
  DesktopServices services_;

 public:
  Form1 Form;
  MainWindow Window;
};

/// Answers modal windows, one after the other, while a handler waits in them.
class ModalAnswers {
 public:
  explicit ModalAnswers(std::vector<std::function<bool(QWidget&)>> answers) : answers_(std::move(answers)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      QWidget* const modal = QApplication::activeModalWidget();
      if (modal == nullptr || !modal->isVisible() || Given == answers_.size()) return;
      // Counted first: the answer may open the next window before it returns.
      const std::size_t mine = Given++;
      if (!answers_[mine](*modal)) Given = mine;
    });
    timer_.start(10);
  }

  std::size_t Given = 0;

 private:
  std::vector<std::function<bool(QWidget&)>> answers_;
  QTimer timer_;
};

}  // namespace requite::test
