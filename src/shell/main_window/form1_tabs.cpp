// SPDX-License-Identifier: MIT
// The tabs of the link results and the controls on them.
#include <array>
#include <span>

#include "shell/main_window/form1.h"

namespace requite {
namespace {

constexpr int kPages = 3;
constexpr int kPost = 5;

}  // namespace

void Form1::ShowTab(int number) {
  Control* const links[] = {&Sites.List3, &Lists.lstErr, &lblErr};
  Control* const web[] = {&WebBrowser1, &cmdBack, &cmdForward, &cmdWebStop, &cmdRefresh, &cmdGo, &txtURL};
  Control* const pages[] = {&Frame5};
  Control* const reports[] = {&WebBrowser2, &Command8, &Command8a};
  Control* const post[] = {&framePost, &SkinLabel9};
  const std::array<std::span<Control* const>, 5> tabs{links, web, pages, reports, post};
  if (number < 1 || number > static_cast<int>(tabs.size())) return;

  for (std::size_t tab = 0; tab < tabs.size(); ++tab) {
    for (Control* each : tabs[tab]) each->SetVisible(static_cast<int>(tab) + 1 == number);
  }
  // Each visit to Pages adds the Main Sites again: repeats in Combo3 stay, only the text counts there.
  if (number == kPages) FillFromMainSites(Combo3);
  if (number == kPost) {
    cmbSites.ClearItems();
    FillFromMainSites(cmbSites);
  }
}

void Form1::FillFromMainSites(ComboBox& box) {
  for (std::size_t row = 0; row < Sites.List4.RowCount(); ++row) box.AddItem(Sites.List4.At(row).Text);
}

void Form1::WireWebTab() {
  TabStrip1.OnClick = [this](int number) { ShowTab(number); };
  cmdBack.OnClick = [this] { PassOver([this] { WebBrowser1.GoBack(); }); };
  cmdForward.OnClick = [this] { PassOver([this] { WebBrowser1.GoForward(); }); };
  cmdWebStop.OnClick = [this] { PassOver([this] { WebBrowser1.Stop(); }); };
  cmdRefresh.OnClick = [this] { PassOver([this] { WebBrowser1.Refresh(); }); };
  cmdGo.OnClick = [this] { WebBrowser1.Navigate(txtURL.Text()); };
  txtURL.OnEnter = [this] { cmdGo.Click(); };
  WebBrowser1.OnDocumentComplete = [this] { txtURL.SetText(WebBrowser1.LocationUrl()); };
}

void Form1::WirePages() {
  Sites.txtHTML1.OnChange = [this] { Settings.SaveSetting(setting::txtHTML1, Sites.txtHTML1.Text()); };
  Sites.txtHTML2.OnChange = [this] { Settings.SaveSetting(setting::txtHTML2, Sites.txtHTML2.Text()); };
  Sites.txtHTML3.OnChange = [this] { Settings.SaveSetting(setting::txtHTML3, Sites.txtHTML3.Text()); };
  chkNewWin.OnClick = [this] { Settings.SaveSetting(setting::chkNewWin, chkNewWin.Value()); };
  chkBullet.OnClick = [this] { Settings.SaveSetting(setting::chkBullet, chkBullet.Value()); };
  optAll.OnClick = [this](int index) { optAll_Click(index); };
  Command5.OnClick = [this] { Pages.GenerateLinks(); };
  Command6.OnClick = [this] { Pages.SaveWebpage(); };
  Combo1.OnClick = [this] { Settings.SaveSetting(setting::Combo1, Combo1.ListIndex()); };
  Combo2.OnClick = [this] { Settings.SaveSetting(setting::Combo2, Combo2.ListIndex()); };
  cmbLastSearch.OnClick = [this] { Settings.SaveSetting(setting::cmbLastSearch, cmbLastSearch.ListIndex()); };
  cmbLastSearch.OnChange = cmbLastSearch.OnClick;
}

void Form1::optAll_Click(int index) {
  Settings.SaveSetting(setting::optAll, index);
  Combo3.SetEnabled(index == 1);
}

}  // namespace requite
