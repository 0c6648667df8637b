// SPDX-License-Identifier: MIT
// Opens a copy of the report in the user's browser, and prints the view.
#include "qt/window/main_window/report_tools.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>

#include "platform/whole_file.h"
#include "qt/web/page_address.h"
#include "results/report_for_view.h"

namespace requite {
namespace {

/// A file of its own: the report's file has what remote pages wrote unescaped, and stays as it is.
constexpr std::string_view kBrowserCopy = "report-in-browser.html";

/// The path of the report that the view was asked to show, or empty.
std::string ReportOnShow(const BrowserView& view) {
  const auto url = UrlOfAddress(view.AskedFor());
  if (!url || !url->isLocalFile() || !QFileInfo(url->toLocalFile()).isFile()) return {};
  return QFile::encodeName(url->toLocalFile()).toStdString();
}

}  // namespace

ReportTools::ReportTools(Form1& form, WebViewHolder& view, const UserEvents& user, AnswerLine& answers,
                         QWidget* parent)
    : QWidget(parent),
      form_(form),
      view_(view),
      answers_(answers),
      open_(new QPushButton(tr("Open in Browser"), this)),
      print_(new QPushButton(tr("Print or Save as PDF..."), this)) {
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  open_->setObjectName("openReport");
  open_->setToolTip(tr("Open a copy of the report in your own browser"));
  print_->setObjectName("printReport");
  print_->setToolTip(tr("Print the report, or write it to a PDF file"));
  for (QPushButton* each : {open_, print_}) layout->addWidget(each);
  connect(open_, &QPushButton::clicked, this, [this, &user] { user.Run([this] { OpenInBrowser(); }); });
  connect(print_, &QPushButton::clicked, this, [this, &user] { user.Run([this] { view_.Print(); }); });
  view_.OnShowsPage = [this] { Follow(); };
  Follow();
}

void ReportTools::Follow() {
  const bool report = !ReportOnShow(form_.WebBrowser2).empty();
  open_->setEnabled(report);
  print_->setEnabled(report && view_.ShowsPage());
}

void ReportTools::OpenInBrowser() {
  const std::string path = ReportOnShow(form_.WebBrowser2);
  const std::string copy = form_.Work.File(kBrowserCopy);
  const bool written = PassOver([&] {
    const std::string page = ReadFile(path);
    WriteWhole(copy, IsReport(page) ? ReportForView(page) : page, Flush::No);
  });
  if (!written) return answers_.Say(tr("The report could not be copied for your browser."));
  form_.Platform.Shell.OpenFile(copy);
}

}  // namespace requite
