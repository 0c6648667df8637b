// SPDX-License-Identifier: MIT
// Navigations become fetches at the timer's next tick, one at a time: a page that leads to the next one does
// so from a tick that returns, however many pages there are.
#include "harvest/page_fetcher.h"

#include <optional>

#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr std::string_view kAgent = "Mozilla/5.0";

}  // namespace

PageFetcher::PageFetcher(BrowserView& view, Internet& internet, Timer& timer,
                         std::function<void(const std::function<void()>& fetch)> stays)
    : view_(view), internet_(internet), timer_(timer), stays_(std::move(stays)) {
  view_.SetEngine(this);
}

PageFetcher::~PageFetcher() { view_.SetEngine(nullptr); }

void PageFetcher::Navigate(const std::string& url) {
  ++navigation_;
  url_ = url;
  waiting_ = true;
  timer_.OnTick = [this] {
    timer_.Stop();
    stays_([this] { Fetch(); });
  };
  timer_.Start(0);
}

void PageFetcher::Stop() {
  ++navigation_;
  if (!waiting_) return;
  waiting_ = false;
  timer_.Stop();
  timer_.OnTick = nullptr;
}

void PageFetcher::Refresh() {
  if (!url_.empty()) Navigate(url_);
}

void PageFetcher::GoBack() { throw RuntimeFailure(Failure::InvalidArgument); }

void PageFetcher::GoForward() { throw RuntimeFailure(Failure::InvalidArgument); }

void PageFetcher::Fetch() {
  waiting_ = false;
  const int mine = navigation_;
  const std::string url = url_;
  std::optional<std::string> page = internet_.OpenUrl(url, kAgent);
  if (!page || mine != navigation_) return;
  page_ = *std::move(page);
  view_.DocumentComplete(url);
}

}  // namespace requite
