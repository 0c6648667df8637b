// SPDX-License-Identifier: MIT
// Shows the page in the tab "Web", or puts it on the clipboard.
#include "qt/window/main_window/page_tools.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/whole_file.h"

namespace requite {
namespace {

constexpr std::string_view kPreview = "page-preview.html";
constexpr int kWebTab = 2;

/// The second box has its sample sentence in two wordings; this is what they share, and all samples do.
constexpr std::string_view kInEachSample = "part of your generated webpage.";

bool HasSample(const Project& project) {
  for (const TextBox* box : {&project.txtHTML1, &project.txtHTML2, &project.txtHTML3}) {
    if (box->Text().find(kInEachSample) != std::string::npos) return true;
  }
  return false;
}

}  // namespace

PageTools::PageTools(Form1& form, const UserEvents& user, AnswerLine& answers, QWidget* parent)
    : QWidget(parent), form_(form), answers_(answers), hint_(new QLabel(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  hint_->setObjectName("sampleHint");
  hint_->setText(tr("Sample sentences are still in the boxes."));
  hint_->setToolTip(tr("They would be part of the page that you save."));
  hint_->setWordWrap(true);
  layout->addWidget(hint_);
  auto* const row = new QHBoxLayout;
  layout->addLayout(row);
  const auto add = [&](const QString& caption, const QString& name, const QString& toolTip,
                       void (PageTools::*command)()) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this,
            [this, &user, command] { user.Run([this, command] { (this->*command)(); }); });
  };
  add(tr("Preview"), "previewPage", tr("Show the page on the Web tab"), &PageTools::Preview);
  add(tr("Copy HTML"), "copyPage", tr("Copy the HTML of the whole page"), &PageTools::CopyHtml);
  Follow();
}

void PageTools::Follow() { hint_->setVisible(HasSample(form_.Sites)); }

void PageTools::Preview() {
  const std::string path = form_.Work.File(kPreview);
  if (!PassOver([&] { WriteWhole(path, form_.Pages.WebPage(), Flush::No); })) {
    return answers_.Say(tr("The preview could not be written."));
  }
  form_.TabStrip1.Select(kWebTab);
  form_.WebBrowser1.Navigate(path);
}

void PageTools::CopyHtml() {
  const std::string page = form_.Pages.WebPage();
  form_.Platform.Clipboard.SetText(page);
  answers_.Say(tr("The page was copied: %n characters.", nullptr, static_cast<int>(page.size())));
}

}  // namespace requite
