// SPDX-License-Identifier: MIT
// The program removes the tags itself: showing a hostile page as rich text would freeze the window.
#include "qt/web/plain_text_view.h"

#include <QFile>
#include <QPointer>
#include <QPrinter>

#include "qt/services/code_page.h"
#include "qt/web/html_text.h"
#include "qt/web/page_address.h"
#include "results/report_for_view.h"

namespace requite {
namespace {

/// Much markup may hold little text, but no page needs all of a huge file.
constexpr std::size_t kMostRead = 64 << 20;

}  // namespace

PlainTextView::PlainTextView(WebViewEvents& events, Internet& internet, const EventGuard& guard,
                             QWidget* parent)
    : QPlainTextEdit(parent), events_(events), gets_(internet), guard_(guard) {
  setReadOnly(true);
}

void PlainTextView::Load(const QUrl& url) {
  if (!history_.empty()) history_.resize(at_ + 1);
  history_.push_back(url);
  at_ = history_.size() - 1;
  ShowSoon();
}

void PlainTextView::Stop() {
  ++asked_;
  gets_.Abort();
}

bool PlainTextView::Back() {
  if (at_ == 0) return false;
  --at_;
  ShowSoon();
  return true;
}

bool PlainTextView::Forward() {
  if (at_ + 1 >= history_.size()) return false;
  ++at_;
  ShowSoon();
  return true;
}

void PlainTextView::Print(QPrinter& printer, std::function<void()> printed) {
  print(&printer);
  printed();
}

/// Not at once: a GET lets events run, and the caller may be in the middle of a handler.
void PlainTextView::ShowSoon() {
  gets_.Abort();  // the previous page is not wanted any more
  QMetaObject::invokeMethod(
      this,
      [this, mine = ++asked_] {
        if (mine == asked_) guard_.Run([this] { ShowNow(); });
      },
      Qt::QueuedConnection);
}

void PlainTextView::ShowNow() {
  if (history_.empty()) return;
  const QPointer<PlainTextView> self(this);
  const int mine = asked_;
  const QUrl url = history_[at_];
  events_.LoadStarted();
  const std::optional<std::string> page = PageOf(url);
  if (!self) return;                                 // the window was closed meanwhile
  if (mine != asked_) return events_.LoadStopped();  // stopped, or another page was asked for
  if (!page) return events_.PageFailed(url, tr("There is no answer."));
  Show(*page);
  events_.PageComplete(url);
}

/// The page as the server or file has it; nothing when it cannot be read.
std::optional<std::string> PlainTextView::PageOf(const QUrl& url) {
  if (IsRemote(url)) return gets_.OpenUrl(AddressOfUrl(url), "Mozilla");
  if (!url.isLocalFile()) return "";
  QFile file(url.toLocalFile());
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  return file.read(qMin(file.size(), static_cast<qint64>(kMostRead))).toStdString();
}

void PlainTextView::Show(const std::string& page) {
  // A report repeats addresses unchanged: markup in one must not hide the rest.
  const HtmlText text = TextOfHtml(IsReport(page) ? ReportForView(page) : page, kMostText);
  const QString end = text.Cut || page.size() >= kMostRead
                          ? tr("\n\n[The rest of this page is not shown here: it is too long.]")
                          : QString();
  setPlainText(ToUnicode(text.Text) + end);
}

}  // namespace requite
