// SPDX-License-Identifier: MIT
// Lays out the small windows.
#include "qt/window/further/small_windows_view.h"

#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/failure_box.h"
#include "platform/whole_file.h"
#include "qt/web/web_view_holder.h"
#include "qt/window/look/product_icon.h"

namespace requite {
namespace {

constexpr std::size_t kLongestLog = 1'000'000;  ///< shown; the log itself keeps every row

}  // namespace

AboutView::AboutView(frmAbout& window, const WindowSurroundings& surroundings)
    : FurtherWindow(window, surroundings) {
  auto* const picture = new QLabel(this);
  picture->setPixmap(ProductIcon().pixmap(96, 96));
  QLabel* const product = NewLabel(window.lblProduct);
  QFont large = product->font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  product->setFont(large);
  QPushButton* const site = NewButton(window.lblWebsite);
  site->setFlat(true);
  site->setStyleSheet("text-align: left; padding: 0; color: palette(link); text-decoration: underline");
  site->setCursor(Qt::PointingHandCursor);
  site->setToolTip(tr("Open the site in a small browser window"));

  auto* const facts = new QFormLayout;
  facts->addRow(product);
  facts->addRow(tr("Version:"), NewLabel(window.lblVersion));
  facts->addRow(tr("Owned By:"), NewLabel(window.lblCompany));
  facts->addRow(tr("Website:"), site);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(24, 24, 24, 24);
  layout->setSpacing(24);
  layout->addWidget(picture, 0, Qt::AlignTop);
  layout->addLayout(facts);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  RestoreSize(sizeHint());
}

WebsiteView::WebsiteView(frmWebsite& window, const WindowSurroundings& surroundings)
    : FurtherWindow(window, surroundings) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(
      new WebViewHolder(window.WebBrowser1, surroundings.Platform.Internet, surroundings.Guard, this));
  RestoreSize({720, 520});
}

LogView::LogView(Form5& window, const WindowSurroundings& surroundings)
    : FurtherWindow(window, surroundings), window_(window) {
  auto* const layout = new QVBoxLayout(this);
  auto* const head = new QHBoxLayout;
  head->addWidget(NewLabel(window.lblAnswers), 1);
  head->addWidget(NewCommand(tr("&Copy"), "copyLog", tr("Copy the whole log as text"), &LogView::Copy));
  head->addWidget(
      NewCommand(tr("&Save..."), "saveLog", tr("Save the whole log as a text file"), &LogView::Save));
  layout->addLayout(head);
  auto* const text = new QPlainTextEdit(this);
  text->setAccessibleName(tr("Log of the posting"));
  text->setPlaceholderText(tr("The requests and what they returned appear here."));
  bind_.Bind(window.Text4, *text, kLongestLog);
  layout->addWidget(text);
  RestoreSize({640, 420});
}

QPushButton* LogView::NewCommand(const QString& caption, const QString& name, const QString& toolTip,
                                 void (LogView::*command)()) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  connect(button, &QPushButton::clicked, this,
          [this, command] { Around().User.Run([this, command] { (this->*command)(); }); });
  return button;
}

void LogView::Copy() { Around().Platform.Clipboard.SetText(window_.Text4.Text()); }

void LogView::Save() {
  Dialogs& dialogs = Around().Platform.Dialogs;
  FileDialog ask{"", "Text Files (*.txt)|*.txt", "posting.txt"};
  ask.Habits = {"txt", true};
  // The window may be closed while the dialog is open.
  const std::string log = window_.Text4.Text();
  const std::string name = dialogs.AskSaveName(ask);
  if (name.empty()) return;
  EndInBox(
      dialogs, [&] { WriteWhole(name, log, Flush::Yes); },
      [](const RuntimeFailure& failure) -> MessageBox {
        return {"The log was not saved: " + failure.Description};
      });
}

}  // namespace requite
