// SPDX-License-Identifier: MIT
// Says the counts of the scan, and offers what users do next.
#include "qt/window/main_window/result_bar.h"

#include <QPushButton>

#include "qt/services/code_page.h"
#include "scan/scan_share.h"

namespace requite {

ResultBar::ResultBar(Form1& form, const UserEvents& user, QWidget* parent)
    : NoticeBar("scanResult", tr("Hide"), tr("Hide this notice until the next scan has ended"), parent),
      form_(form) {
  missing_ = &Offer("scanResultMissing", tr("Show missing"), [this] {
    if (OnShowMissing) OnShowMissing();
  });
  missing_->setToolTip(tr("The sites that do not link back as often as expected"));
  QPushButton& report = Offer("scanResultReport", tr("Report"), [this, &user] {
    user.Run([this] { form_.TabStrip1.Select(static_cast<int>(ResultTab::Reports)); });
  });
  report.setToolTip(tr("The report of this scan"));
  QPushButton& save = Offer("scanResultSave", tr("Save"), [this, &user] {
    if (form_.cmdSave.EnabledInEffect()) user.Run([this] { form_.cmdSave.Click(); });
  });
  save.setToolTip(tr("Save the project with these results"));
}

void ResultBar::Tell() {
  const auto all = static_cast<std::int32_t>(SitesToScan(form_.Sites, form_.State));
  const SiteCounts& counts = form_.Tally.Counts();
  missing_->setVisible(counts.Missing + counts.NotReached > 0);
  Say(ToUnicode(form_.Tally.Result(all)));
}

}  // namespace requite
