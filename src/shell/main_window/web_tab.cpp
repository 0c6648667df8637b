// SPDX-License-Identifier: MIT
// Opens the address of a list row in a browser.
#include "shell/main_window/web_tab.h"

#include <optional>

#include "platform/schemes.h"
#include "shell/main_window/result_tabs.h"

namespace requite {
namespace {

std::string WithScheme(std::string url) {
  PutHttpInFront(url, scheme_sign::kHttpLetters);
  return url;
}

std::optional<std::string> SelectedUrl(const RecordList<ErrorEntry>& lstErr) {
  const int row = lstErr.SelectedRow();
  if (row < 0) return std::nullopt;
  return WithScheme(lstErr.At(static_cast<std::size_t>(row)).Url);
}

}  // namespace

void WebTab::BrowseInWebTab(const std::string& url) {
  const std::string address = WithScheme(url);
  ShowBrowser();
  controls_.txtURL.SetText(address);
  controls_.WebBrowser1.Silent = true;
  controls_.WebBrowser1.Navigate(address);
}

void WebTab::OpenErrorInside() {
  const std::optional<std::string> address = SelectedUrl(controls_.lstErr);
  if (!address) return;
  ShowBrowser();
  controls_.WebBrowser1.Navigate(*address);
}

void WebTab::OpenErrorOutside() {
  if (const auto address = SelectedUrl(controls_.lstErr)) shell_.OpenUrlOutside(*address);
}

void WebTab::ShowBrowser() {
  controls_.TabStrip1.Select(static_cast<int>(ResultTab::Web));
  controls_.WebBrowser1.SetVisible(true);
  controls_.List3.SetVisible(false);
  controls_.lstErr.SetVisible(false);
  controls_.lblErr.SetVisible(false);
}

}  // namespace requite
