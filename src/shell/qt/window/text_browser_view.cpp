// SPDX-License-Identifier: MIT
// Pages as text, with the user's own browser for everything more.
#include "shell/qt/window/text_browser_view.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "shell/qt/code_page.h"

namespace requite {
namespace {

bool IsRemote(const std::string& url) {
  return StartsWith(url, "http://", Compare::Text) || StartsWith(url, "https://", Compare::Text);
}

}  // namespace

TextBrowserView::TextBrowserView(BrowserView& control, Internet& internet, const EventGuard& guard,
                                 QWidget* parent)
    : QTextBrowser(parent), control_(control), internet_(internet), guard_(guard) {
  setObjectName(QString::fromStdString(control.Name()));
  setOpenLinks(false);
  control_.SetEngine(this);
  if (!control_.AskedFor().empty()) Navigate(control_.AskedFor());
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    // A link without a scheme, such as those of the report, is meant as a host.
    const QString address = link.isRelative() ? "http://" + link.toString() : link.toString();
    guard_.Run([&] { control_.Navigate(FromUnicode(address)); });
  });
}

TextBrowserView::~TextBrowserView() { control_.SetEngine(nullptr); }

void TextBrowserView::Navigate(const std::string& url) {
  if (!history_.empty()) history_.resize(at_ + 1);
  history_.push_back(url);
  at_ = history_.size() - 1;
  ShowPage();
}

void TextBrowserView::Stop() { internet_.Abort(); }

void TextBrowserView::Refresh() {
  if (!history_.empty()) ShowPage();
}

void TextBrowserView::GoBack() {
  if (at_ == 0) throw RuntimeFailure(Failure::InvalidArgument);
  --at_;
  ShowPage();
}

void TextBrowserView::GoForward() {
  if (at_ + 1 >= history_.size()) throw RuntimeFailure(Failure::InvalidArgument);
  ++at_;
  ShowPage();
}

void TextBrowserView::showEvent(QShowEvent* event) {
  QTextBrowser::showEvent(event);
  if (!waiting_) return;
  QMetaObject::invokeMethod(
      this, [this] { guard_.Run([this] { ShowPage(); }); }, Qt::QueuedConnection);
}

void TextBrowserView::ShowPage() {
  waiting_ = !isVisible();
  if (waiting_) return;
  const std::string url = history_[at_];
  const QString page = PageOf(url);
  if (url != history_[at_]) return;  // another page was asked for meanwhile
  setHtml(page);
  control_.DocumentComplete(url);
}

QString TextBrowserView::PageOf(const std::string& url) {
  if (url.empty() || url == "about:blank") return {};
  if (!IsRemote(url)) {
    std::string text;
    if (!PassOver([&] { text = ReadFile(url); })) return tr("<p>This file cannot be shown.</p>");
    // Browsers take this entity without its semicolon too; the rich-text view does not.
    return ToUnicode(text).replace("&nbsp<", "&nbsp;<");
  }
  const auto body = internet_.OpenUrl(url, "Mozilla");
  const QString note =
      tr("<p><i>Shown as plain text. For the page as it is, open <a href=\"%1\">%1</a> in your own "
         "browser.</i></p><hr>")
          .arg(ToUnicode(url).toHtmlEscaped());
  return body ? note + ToUnicode(*body)
              : tr("<p>%1 cannot be reached.</p>").arg(ToUnicode(url).toHtmlEscaped());
}

QVariant TextBrowserView::loadResource(int, const QUrl&) { return {}; }

}  // namespace requite
