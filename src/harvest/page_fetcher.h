// SPDX-License-Identifier: MIT
// A browser view's engine that shows nothing: each page is the answer to one GET.
#pragma once

#include <functional>
#include <string>

#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// A navigation returns at once; its page is fetched in a later event and is complete when the whole of it
/// has come. A page that cannot be fetched is never complete.
class PageFetcher : public BrowserEngine {
 public:
  /// `stays` runs around what is done with a page, which lets events run: the owner must not go before it has
  /// returned.
  PageFetcher(BrowserView& view, Internet& internet,
              std::function<void(const std::function<void()>& complete)> stays);
  ~PageFetcher() override;
  PageFetcher(const PageFetcher&) = delete;
  PageFetcher& operator=(const PageFetcher&) = delete;

  void Navigate(const std::string& url) override;
  void Stop() override { gets_.Abort(); }
  void Refresh() override;
  /// There is no history: both throw InvalidArgument.
  void GoBack() override;
  void GoForward() override;

  /// The text of the page at hand, as it was served.
  [[nodiscard]] const std::string& Page() const { return page_; }

 private:
  BrowserView& view_;
  std::function<void(const std::function<void()>& complete)> stays_;
  std::string url_;
  std::string page_;
  Gets gets_;
};

}  // namespace requite
