// SPDX-License-Identifier: MIT
// Gets one page at a time with a small HTTP/1.1 client of its own: one connection a page, closed by
// the server at the page's end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/services.h"
#include "scan/scan_context.h"

namespace requite {

/// Hears the events of the one connection, number 0. The context must outlive the fetcher.
class Fetcher : public ConnectionEvents {
 public:
  /// A page ends here at the latest: no more of it is kept.
  static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

  /// The steps that follow, in this order.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void CheckHttpStatus(const std::string& header, const std::string& url) = 0;
    virtual void ProcessPage(std::string body) = 0;
  };

  Fetcher(ScanContext& scan, Next& next) : scan_(scan), next_(next) {}

  /// Cuts State.PageUrl into host and path and starts the fetch; the page comes back through the
  /// events. Changes PageUrl, PageFull and PageDir. A failure leaves the fetch to the time-out.
  void FetchPage();

  void OnConnect() override;
  void OnDataArrival(std::size_t bytesTotal) override;
  void OnClose() override;

 private:
  void TakeData(PageFetch& page);
  void ShowProgress(const PageFetch& page);
  void LookForHeaderEnd(PageFetch& page);
  [[nodiscard]] std::size_t FindHeaderEnd(const PageFetch& page);
  template <class Statement>
  [[nodiscard]] bool Attempt(Statement&& statement);

  ScanContext& scan_;
  Next& next_;
  std::size_t searchedTo_ = 0;  // no header end begins before this offset of RecvBuffer
  std::uint64_t fetches_ = 0;   // tells after a yield whether the page is still the same
};

}  // namespace requite
