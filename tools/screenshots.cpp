// SPDX-License-Identifier: MIT
// Takes the pictures of the documentation: the real window, scanning the sample sites. tools/screenshots
// builds and runs it. Usage: gui_screenshots FOLDER SUFFIX [all]; with "all" every picture, else only a
// scan.
#include <QElapsedTimer>
#include <QHash>
#include <QScreen>
#include <QStyleFactory>
#include <QTabBar>
#include <QWindow>
#include <algorithm>
#include <iostream>

#include "gui/dark_palette.h"
#include "gui/desk_rig.h"
#include "qt/web/web_module.h"

namespace requite::test {
namespace {

constexpr QSize kUsual(1180, 760);
constexpr QSize kSmall(1024, 600);
constexpr int kScanMilliseconds = 120'000;

/// Makes a picture a quarter of the size: only the most frequent colours, without dithering.
QImage InFewColours(const QImage& picture) {
  const QImage pixels = picture.convertToFormat(QImage::Format_RGB32);
  QHash<QRgb, int> counts;
  for (int y = 0; y < pixels.height(); ++y) {
    const auto* const line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
    for (int x = 0; x < pixels.width(); ++x) ++counts[line[x]];
  }
  QList<QRgb> colours = counts.keys();
  std::sort(colours.begin(), colours.end(), [&](QRgb a, QRgb b) { return counts[a] > counts[b]; });
  colours.resize(std::min<qsizetype>(colours.size(), 256));
  return pixels.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither | Qt::AvoidDither);
}

class Photographer {
 public:
  Photographer(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {
    FillProgramFolder(REQUITE_INSTALLED, program_.Path);
    SettingsFile settings(program_.File("settings"));
    // A short time-out for silent sample sites; the pictures need no sound and no help.
    for (const auto& [key, value] : {std::pair{"txtTimeout", "2"},
                                     {"chkAudioNext", "0"},
                                     {"chkAudioEmail", "0"},
                                     {"chkAudioFinished", "0"},
                                     {"showHelp", "0"}}) {
      settings.Write(key, value);
    }
  }

  bool All() {
    QElapsedTimer sinceSplash;
    sinceSplash.start();
    DeskProgram program(program_, server_.Map);
    Wait([&] { return program.Window.windowHandle()->isExposed(); });
    std::cout << "The window was on screen after " << sinceSplash.elapsed() << " ms." << std::endl;
    program.Window.resize(kUsual);
    Take(program, "empty");
    Load(program);
    Scan(program, [&] { return program.Form.Sites.List3.RowCount() >= 12; });
    Take(program, "scanning");
    Finish(program);
    Take(program, "results");
    ShowTab(program, 4);
    Wait([&] { return program.Form.WebBrowser2.LocationUrl().ends_with("tempreport.html"); });
    Take(program, "report");
    ShowTab(program, 2);
    Wait([&] { return program.Form.WebBrowser1.LocationUrl().ends_with(".html"); });
    Take(program, "web");
    ShowTab(program, 1);
    program.Window.resize(kSmall);
    Take(program, "1024x600");
    program.Window.resize(kUsual);
    QApplication::setPalette(DarkPalette());
    Take(program, "dark");
    return good_;
  }

  bool ScanOnly() {
    DeskProgram program(program_, server_.Map);
    program.Window.resize(kUsual);
    Load(program);
    Scan(program, [&] { return program.Form.Sites.List3.RowCount() >= 12; });
    Take(program, "scanning");
    return good_;
  }

 private:
  /// From the program's own folder: the window says the path.
  void Load(DeskProgram& program) const {
    program.Form.Files.LoadProject(program_.File("Project Files/sample.prj"));
  }

  void Scan(DeskProgram& program, const std::function<bool()>& until) {
    program.Click("Command1");
    Wait(until);
  }

  void Finish(DeskProgram& program) {
    Wait([&] { return !program.Form.State.Scanning; });
  }

  static void ShowTab(DeskProgram& program, int number) {
    auto* const tabs = program.Widget<QTabBar>("TabStrip1");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(number - 1).center());
  }

  void Wait(const std::function<bool()>& until) {
    if (QTest::qWaitFor(until, kScanMilliseconds)) return;
    std::cerr << "gui_screenshots: what the next picture shows did not come" << std::endl;
    good_ = false;
  }

  /// Takes the picture from the display, because other processes draw some views.
  void Take(DeskProgram& program, const QString& name) {
    QTest::qWait(500);
    const QPixmap picture = program.Window.screen()->grabWindow(program.Window.winId());
    good_ = InFewColours(picture.toImage()).save(folder_ + '/' + name + suffix_ + ".png", "PNG", 0) && good_;
  }

  QString folder_;
  QString suffix_;
  QTemporaryDir place_;
  const ProgramFolder program_{place_.path().toStdString()};
  SampleServer server_;
  bool good_ = true;
};

}  // namespace
}  // namespace requite::test

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  requite::PrepareWebEngine();
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  requite::test::Photographer photographer(argv[1], argv[2]);
  return (argc > 3 ? photographer.All() : photographer.ScanOnly()) ? 0 : 1;
}
