// SPDX-License-Identifier: MIT
// Lays out the bar: the words, the offer, and a way to dismiss it.
#include "qt/window/main_window/https_only_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"

namespace requite {
namespace {

/// Hosts come from projects of any origin: none of them is taken for markup.
QString Lines(const std::string& names) {
  QStringList lines;
  for (const QString& each : ToUnicode(names).split('\n')) lines += each.toHtmlEscaped();
  return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}

}  // namespace

HttpsOnlyBar::HttpsOnlyBar(Form1& form, const UserEvents& user, QWidget* parent)
    : QFrame(parent), form_(form), words_(new QLabel(this)) {
  setObjectName("httpsOnlyBar");
  setFrameShape(QFrame::StyledPanel);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setAutoFillBackground(true);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(9, 3, 6, 3);
  words_->setObjectName("httpsOnlyWords");
  words_->setTextFormat(Qt::PlainText);
  words_->setWordWrap(true);
  words_->setForegroundRole(QPalette::ToolTipText);
  layout->addWidget(words_, 1);
  auto* const turnOn = new QPushButton(tr("T&urn on secure connections and scan again"), this);
  turnOn->setObjectName("httpsOnlyTurnOn");
  layout->addWidget(turnOn);
  auto* const dismiss = new QPushButton(tr("Not now"), this);
  dismiss->setObjectName("httpsOnlyDismiss");
  dismiss->setToolTip(tr("Hide this notice until the next scan"));
  layout->addWidget(dismiss);
  connect(turnOn, &QPushButton::clicked, this,
          [this, &user] { user.Run([this] { form_.TurnOnSecureAndScanAgain(); }); });
  connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
  hide();
}

void HttpsOnlyBar::Offer() {
  words_->setText(OneLine(form_.HttpsOnly.Words()));
  setToolTip(Lines(form_.HttpsOnly.Names()));
  show();
}

void HttpsOnlyBar::Follow() {
  if (form_.HttpsOnly.Empty() || form_.Sites.List3.Empty()) hide();
}

}  // namespace requite
