// SPDX-License-Identifier: MIT
// How the main window starts and closes.
#include "model/page_limits.h"
#include "shell/main_window/form1.h"
#include "shell/product.h"

namespace requite {
namespace {

constexpr int kTimer1Milliseconds = 1000;

}  // namespace

void Form1::StartWithoutProject() {
  Sites.ProjectSaved = true;
  Sites.JustLoaded = false;
  SimpleViewFlag = Equals(Settings.GetSetting(setting::SimpleView), "True", Compare::Text);
  RestoreSettings();
  Figures.RefreshStats();
  Main.SetTitle(std::string(product::kName) + " by " + std::string(product::kCompany));
  State.Scanning = false;
  Platform.Timer1.OnTick = [this] { Auto.Timer1_Tick(State.Scanning); };
  Platform.Timer1.Start(kTimer1Milliseconds);
}

void Form1::Start() {
  StartWithoutProject();
  const std::string lastProject = Settings.GetSetting(setting::LastProject);
  if (!lastProject.empty()) Files.LoadProject(lastProject);
  if (Settings.GetSetting(setting::showHelp) == "1") {
    OpenHelp();
    Platform.EventLoop.LetPendingEventsRun();
    Settings.SaveSetting(setting::showHelp, "0");
  }
  State.LinksOnSite = 0;
  State.PagesDone = 0;
  State.ForgetQueuedPages();
  WebBrowser1.Navigate(Folder.File(product::kHomePage));
  Platform.EventLoop.LetPendingEventsRun();
}

void Form1::RestoreSettings() {
  // The key of optAll restores optScript, and optAll always starts with its first choice. Reading the key
  // of optScript stores its default.
  static_cast<void>(Settings.GetSetting(setting::optScript));
  optScript.Choose(Settings.Number(setting::optAll));
  optAll.Choose(0);

  Combo1.SetListIndex(Settings.Number(setting::Combo1));
  chkNewWin.SetValue(Settings.Number(setting::chkNewWin));
  chkBullet.SetValue(Settings.Number(setting::chkBullet));
  Sites.txtHTML1.SetText(Settings.GetSetting(setting::txtHTML1));
  Sites.txtHTML2.SetText(Settings.GetSetting(setting::txtHTML2));
  Sites.txtHTML3.SetText(Settings.GetSetting(setting::txtHTML3));
  const std::int16_t advance = Settings.Number(setting::cmbAdvance);
  cmbLastSearch.SetListIndex(Settings.Number(setting::cmbLastSearch));

  const std::int16_t searchType = Settings.Number(setting::Combo1);
  const std::int16_t searchResults = Settings.Number(setting::Combo2);
  if (searchType >= 0) Combo1.SetListIndex(searchType);
  if (searchResults >= 0) Combo2.SetListIndex(searchResults);
  State.PageLimit = PageLimitAt(advance, State.PageLimit);
  Figures.ReadHistory();

  mnuScan.Click(Settings.Number(setting::ScanType));
  mnuSkipPopup.Click(Settings.Number(setting::SkipType));
}

void Form1::OpenHelp() {
  const std::string helpFile = Folder.File("Help.chm");
  if (FileExists(helpFile)) {
    Platform.Shell.OpenDocument(helpFile);
    Settings.SaveSetting(setting::showHelp, "0");
  }
  Platform.EventLoop.LetPendingEventsRun();
}

void Form1::Close() {
  if (closed_) return;
  closed_ = true;
  if (!Sites.ProjectSaved) {
    const MessageBox ask{
        "The current project has been edited but has not been saved.\r\n"
        "Would you like to save now?",
        "Save Project?", Buttons::YesNo, BoxIcon::Question};
    if (Platform.Dialogs.Show(ask) == Answer::Yes) Files.cmdSave();
  }
  State.Scanning = false;
  Platform.Timer1.Stop();
  Platform.timTimeout.Stop();
  Platform.Connection.Close();
  Scan.Context().Gets.Abort();
  Post.Stop();
  for (const char* window : {"Form3", "Form4", "frmExport"}) Windows.Close(window);
  endsWithWebsite_ = Windows.Find("frmWebsite") != nullptr;
  if (OnClosed) OnClosed();
  if (!endsWithWebsite_ && OnEnd) OnEnd();
}

}  // namespace requite
