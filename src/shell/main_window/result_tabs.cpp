// SPDX-License-Identifier: MIT
// Which controls each tab shows, and what happens as it is shown.
#include "shell/main_window/result_tabs.h"

#include "shell/main_window/form1.h"

namespace requite {

void ResultTabsControls::Wire(Form1& form) {
  TabStrip1.OnClick = [&form](int number) { form.ShowTab(number); };
}

void Form1::ShowTab(int number) {
  const std::pair<ResultTab, Place*> pages[] = {{ResultTab::Links, static_cast<LinksControls*>(this)},
                                                {ResultTab::Web, static_cast<WebControls*>(this)},
                                                {ResultTab::Pages, static_cast<PagesControls*>(this)},
                                                {ResultTab::Reports, static_cast<ReportsControls*>(this)},
                                                {ResultTab::Post, static_cast<PostControls*>(this)}};
  if (number < 1 || number > static_cast<int>(std::size(pages))) return;
  const auto shown = static_cast<ResultTab>(number);
  for (const auto& [tab, page] : pages) page->ShowOnTab(tab == shown);
  if (shown == ResultTab::Pages) PagesControls::OnShown(Sites);
  if (shown == ResultTab::Post) PostControls::OnShown(Sites);
}

void AddMainSites(const Project& project, ComboBox& box) {
  for (std::size_t row = 0; row < project.List4.RowCount(); ++row) box.AddItem(project.List4.At(row).Text);
}

}  // namespace requite
