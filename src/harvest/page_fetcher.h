// SPDX-License-Identifier: MIT
// A browser engine that shows nothing: each page is the answer to one GET.
#pragma once

#include <functional>
#include <string>

#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// A navigation returns at once. Its page is fetched in a later event and is complete when all of it has
/// arrived. A page that cannot be fetched is never complete.
class PageFetcher : public BrowserEngine {
 public:
  /// `stays` wraps the handling of a page, which lets events run: it must keep the owner alive until
  /// then.
  PageFetcher(BrowserView& view, Internet& internet,
              std::function<void(const std::function<void()>& complete)> stays);
  ~PageFetcher() override;
  PageFetcher(const PageFetcher&) = delete;
  PageFetcher& operator=(const PageFetcher&) = delete;

  void Navigate(const std::string& url) override;
  void Stop() override { gets_.Abort(); }
  void Refresh() override;
  /// Without a history both throw InvalidArgument.
  void GoBack() override;
  void GoForward() override;

  /// The text of the current page, as served.
  [[nodiscard]] const std::string& Page() const { return page_; }

 private:
  BrowserView& view_;
  std::function<void(const std::function<void()>& complete)> stays_;
  std::string url_;
  std::string page_;
  Gets gets_;
};

}  // namespace requite
