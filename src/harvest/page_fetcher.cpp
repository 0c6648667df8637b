// SPDX-License-Identifier: MIT
// Turns navigations into GETs, one at a time. A page that leads to the next one does so from an event of
// its own, so the stack does not grow with the number of pages.
#include "harvest/page_fetcher.h"

#include <optional>

#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr std::string_view kAgent = "Mozilla/5.0";

}  // namespace

PageFetcher::PageFetcher(BrowserView& view, Internet& internet,
                         std::function<void(const std::function<void()>& complete)> stays)
    : view_(view), stays_(std::move(stays)), gets_(internet) {
  view_.SetEngine(this);
}

PageFetcher::~PageFetcher() { view_.SetEngine(nullptr); }

void PageFetcher::Navigate(const std::string& url) {
  gets_.Abort();
  url_ = url;
  gets_.Start(url, kAgent, [this, url](std::optional<std::string> page) {
    if (!page) return;
    page_ = *std::move(page);
    stays_([&] { view_.DocumentComplete(url); });
  });
}

void PageFetcher::Refresh() {
  if (!url_.empty()) Navigate(url_);
}

void PageFetcher::GoBack() { throw RuntimeFailure(Failure::InvalidArgument); }

void PageFetcher::GoForward() { throw RuntimeFailure(Failure::InvalidArgument); }

}  // namespace requite
