// SPDX-License-Identifier: MIT
// Pages as text, with the user's own browser for everything more.
#include "shell/qt/web/text_browser_view.h"

#include <QFile>
#include <QPointer>

#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "shell/qt/code_page.h"
#include "shell/qt/web/page_address.h"

namespace requite {

TextBrowserView::TextBrowserView(WebViewEvents& events, Internet& internet, const EventGuard& guard,
                                 QWidget* parent)
    : QTextBrowser(parent), events_(events), gets_(internet), guard_(guard) {
  setOpenLinks(false);
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (link.isRelative() && link.path().isEmpty()) return scrollToAnchor(link.fragment());
    const QUrl page = history_[at_];
    const QUrl whole = page.resolved(link);
    const QString address = IsRemote(whole) ? whole.toString(QUrl::FullyEncoded) : HostMeantBy(whole, page);
    if (!address.isEmpty()) events_.LinkChosen(address);
  });
}

void TextBrowserView::Load(const QUrl& url) {
  if (!history_.empty()) history_.resize(at_ + 1);
  history_.push_back(url);
  at_ = history_.size() - 1;
  ShowSoon();
}

void TextBrowserView::Stop() {
  ++asked_;
  gets_.Abort();
}

bool TextBrowserView::Back() {
  if (at_ == 0) return false;
  --at_;
  ShowSoon();
  return true;
}

bool TextBrowserView::Forward() {
  if (at_ + 1 >= history_.size()) return false;
  ++at_;
  ShowSoon();
  return true;
}

/// Not at once: a GET lets events run, and the caller may stand in the middle of a handler.
void TextBrowserView::ShowSoon() {
  gets_.Abort();  // the page before is not wanted any more
  QMetaObject::invokeMethod(
      this,
      [this, mine = ++asked_] {
        if (mine == asked_) guard_.Run([this] { ShowNow(); });
      },
      Qt::QueuedConnection);
}

void TextBrowserView::ShowNow() {
  if (history_.empty()) return;
  const QPointer<TextBrowserView> self(this);
  const int mine = asked_;
  const QUrl url = history_[at_];
  events_.LoadStarted();
  const QString page = PageOf(url);
  if (!self) return;                                 // the window was closed meanwhile
  if (mine != asked_) return events_.LoadStopped();  // stopped, or another page was asked for
  if (page.isNull()) return events_.PageFailed(url, tr("There is no answer."));
  setHtml(page);
  events_.PageComplete(url);
}

/// The page as HTML text; a null text when there is none.
QString TextBrowserView::PageOf(const QUrl& url) {
  if (url.isLocalFile()) {
    std::string text;
    const std::string path = QFile::encodeName(url.toLocalFile()).toStdString();
    if (!PassOver([&] { text = ReadFile(path); })) return {};
    // Browsers take this entity without its semicolon too; the rich-text view does not.
    return ToUnicode(text).replace("&nbsp<", "&nbsp;<");
  }
  if (!IsRemote(url)) return "";
  const auto body = gets_.OpenUrl(AddressOfUrl(url), "Mozilla");
  return body ? "<html>" + ToUnicode(*body) : QString();
}

QVariant TextBrowserView::loadResource(int, const QUrl&) { return {}; }

}  // namespace requite
