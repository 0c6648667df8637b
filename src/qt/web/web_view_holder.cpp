// SPDX-License-Identifier: MIT
// Connects the control and the view: passes addresses one way and the progress of loads the other.
#include "qt/web/web_view_holder.h"

#include <QFileInfo>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <memory>

#include "qt/services/code_page.h"
#include "qt/web/page_address.h"
#include "qt/web/plain_text_view.h"

namespace requite {
namespace {

constexpr int kProgressHeight = 3;
constexpr int kNoticeWidth = 420;
constexpr int kPrintResolution = 300;  // dots an inch; pages are drawn as pictures, which takes a while

QLabel* NewText(const char* name, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);  // it may hold words of a page
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  return label;
}

QString Shortened(const QUrl& url) {
  constexpr int kMost = 200;
  const QString text = ToUnicode(AddressOfUrl(url));
  return text.size() <= kMost ? text : text.left(kMost) + QChar(0x2026);
}

}  // namespace

WebViewHolder::WebViewHolder(BrowserView& control, Internet& internet, const EventGuard& guard,
                             QWidget* parent, QString modulePath)
    : QWidget(parent),
      control_(control),
      internet_(internet),
      guard_(guard),
      modulePath_(std::move(modulePath)) {
  setObjectName(QString::fromStdString(control.Name()));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  progress_ = new QProgressBar(this);
  progress_->setObjectName("webProgress");
  progress_->setAccessibleName(tr("The page is loading"));
  progress_->setTextVisible(false);
  progress_->setFixedHeight(kProgressHeight);
  QSizePolicy keepPlace = progress_->sizePolicy();
  keepPlace.setRetainSizeWhenHidden(true);
  progress_->setSizePolicy(keepPlace);
  progress_->hide();
  layout->addWidget(progress_);
  line_ = NewText("webLine", this);
  line_->hide();
  layout->addWidget(line_);
  pages_ = new QStackedLayout;
  pages_->addWidget(BuildNotice());
  layout->addLayout(pages_, 1);
  control_.SetEngine(this);
}

WebViewHolder::~WebViewHolder() {
  control_.SetEngine(nullptr);
  delete view_;  // while this object can still receive its events
}

/// What is shown in place of a page: a title, a sentence and a button.
QWidget* WebViewHolder::BuildNotice() {
  auto* const notice = new QWidget(this);
  auto* const layout = new QVBoxLayout(notice);
  noticeTitle_ = NewText("webNoticeTitle", notice);
  QFont large = noticeTitle_->font();
  large.setPointSizeF(large.pointSizeF() * 1.3);
  large.setBold(true);
  noticeTitle_->setFont(large);
  noticeText_ = NewText("webNotice", notice);
  again_ = new QPushButton(tr("Try again"), notice);
  again_->setObjectName("webAgain");
  connect(again_, &QPushButton::clicked, this, [this] { guard_.Run([this] { Refresh(); }); });
  again_->hide();
  auto* const middle = new QVBoxLayout;
  for (QLabel* each : {noticeTitle_, noticeText_}) {
    each->setFixedWidth(kNoticeWidth);
    middle->addWidget(each);
  }
  noticeText_->hide();
  middle->addWidget(again_, 0, Qt::AlignLeft);
  layout->addStretch(1);
  auto* const row = new QHBoxLayout;  // an alignment of the column would cut off wrapped lines
  row->addStretch();
  row->addLayout(middle);
  row->addStretch();
  layout->addLayout(row);
  layout->addStretch(2);
  return notice;
}

void WebViewHolder::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (view_ != nullptr) return;
  noticeTitle_->setText(tr("The web view is starting."));
  // After the tab has been painted, because loading the library takes a moment.
  QMetaObject::invokeMethod(
      this, [this] { guard_.Run([this] { MakeView(); }); }, Qt::QueuedConnection);
}

void WebViewHolder::MakeView() {
  if (view_ != nullptr) return;
  view_ = MakeViewOfModule(modulePath_, *this, this);
  if (view_ == nullptr) {
    view_ = new PlainTextView(*this, internet_, guard_, this);
    standing_ = tr("The web view (Qt WebEngine) is not installed: pages are shown as plain text.");
    Tell(standing_);
  }
  view_->Widget()->setAccessibleName(tr("Web page"));
  pages_->addWidget(view_->Widget());
  setFocusProxy(view_->Widget());
  control_.AskedFor().empty() && !emptyTitle_.isEmpty() ? ShowEmpty() : ShowPage();
  if (!control_.AskedFor().empty()) Navigate(control_.AskedFor());
}

void WebViewHolder::Navigate(const std::string& url) {
  if (view_ == nullptr) return;  // the control remembers it
  const auto target = UrlOfAddress(url);
  if (!target) {
    ShowNotice(tr("This address cannot be shown."), ToUnicode(url));
    return again_->hide();
  }
  if (target->isLocalFile() && !QFileInfo(target->toLocalFile()).isFile()) {
    failed_ = *target;
    return ShowNotice(tr("This file is not there."), Shortened(*target));
  }
  view_->Load(*target);
}

void WebViewHolder::Stop() {
  if (view_ == nullptr) return;
  view_->Stop();
  progress_->hide();  // a load that has only just been asked for ends without an event
}

void WebViewHolder::Refresh() {
  if (view_ == nullptr) return;
  if (failed_.isEmpty()) return view_->Reload();
  Navigate(AddressOfUrl(failed_));
}

void WebViewHolder::GoBack() {
  if (view_ == nullptr || !view_->Back()) throw RuntimeFailure(Failure::InvalidArgument);
}

void WebViewHolder::GoForward() {
  if (view_ == nullptr || !view_->Forward()) throw RuntimeFailure(Failure::InvalidArgument);
}

void WebViewHolder::LoadStarted() {
  Tell(standing_);
  LoadProgress(0);
  progress_->show();
}

void WebViewHolder::LoadProgress(int percent) { progress_->setValue(percent); }

void WebViewHolder::LoadStopped() { progress_->hide(); }

void WebViewHolder::PageComplete(const QUrl& location) {
  progress_->hide();
  const bool blank = location.scheme() == "about";
  blank && !emptyTitle_.isEmpty() ? ShowEmpty() : ShowPage();
  TellComplete(location);
}

void WebViewHolder::PageFailed(const QUrl& location, const QString& reason) {
  progress_->hide();
  failed_ = location;
  ShowNotice(tr("This page cannot be shown."), Shortened(location) + "\n\n" + reason);
  TellComplete(location);
}

void WebViewHolder::RendererEnded() {
  progress_->hide();
  ShowNotice(tr("This page has crashed."),
             tr("The process that showed it has ended. The program and your project are not touched by it."));
}

void WebViewHolder::Refused(const QString& what) { Tell(what); }

void WebViewHolder::Tell(const QString& line) {
  line_->setText(line);
  line_->setVisible(!line.isEmpty());
}

void WebViewHolder::LinkChosen(const QString& address) {
  // Later, because the view is in the middle of its own handler.
  QMetaObject::invokeMethod(
      this, [this, address] { guard_.Run([&] { control_.Navigate(FromUnicode(address)); }); },
      Qt::QueuedConnection);
}

void WebViewHolder::TellComplete(const QUrl& location) {
  guard_.Run([&] { control_.DocumentComplete(AddressOfUrl(location)); });
}

void WebViewHolder::ShowNotice(const QString& title, const QString& text) {
  noticeTitle_->setText(title);
  noticeText_->setText(text);
  noticeText_->show();
  again_->show();
  Show(*pages_->widget(0));
}

void WebViewHolder::SetEmptyNotice(const QString& title, const QString& text) {
  emptyTitle_ = title;
  emptyText_ = text;
}

void WebViewHolder::ShowEmpty() {
  failed_.clear();
  ShowNotice(emptyTitle_, emptyText_);
  again_->hide();
}

bool WebViewHolder::ShowsPage() const { return view_ != nullptr && pages_->currentIndex() != 0; }

void WebViewHolder::Print() {
  if (!ShowsPage() || printing_) return;
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setResolution(kPrintResolution);
  QPrintDialog dialog(printer.get(), this);
  if (dialog.exec() != QDialog::Accepted || !ShowsPage()) return;
  printing_ = true;
  // When the window closes, the browser's thread may still draw: only the end of the printing frees the
  // printer.
  QPrinter* const drawn = printer.release();
  view_->Print(*drawn, [this, drawn] {
    printing_ = false;
    delete drawn;
  });
}

void WebViewHolder::ShowPage() {
  failed_.clear();
  Show(*view_->Widget());
}

void WebViewHolder::Show(QWidget& page) {
  if (pages_->currentWidget() == &page) return;
  pages_->setCurrentWidget(&page);
  if (OnShowsPage) OnShowsPage();
}

}  // namespace requite
