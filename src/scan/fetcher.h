// SPDX-License-Identifier: MIT
// Gets one page at a time with a small HTTP/1.1 client: one connection per page, which the server closes at
// the end of the page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/services.h"
#include "scan/page_body.h"
#include "scan/scan_context.h"

namespace requite {

/// Handles the events of the connection. The context and the next step must outlive the fetcher.
class Fetcher : public ConnectionEvents {
 public:
  /// A longer page is cut here.
  static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

  /// The steps that follow, called in this order.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void CheckHttpStatus(const std::string& header, const std::string& url) = 0;
    virtual void ProcessPage(PageBody body) = 0;
  };

  Fetcher(ScanContext& scan, Next& next) : scan_(scan), next_(next) {}

  /// Cuts State.PageUrl into host and path and starts the fetch; the page arrives by the events below.
  /// Changes PageUrl, PageFull and PageDir. After a failure the time-out ends the site.
  void FetchPage();

  void OnConnect() override;
  void OnDataArrival(std::size_t bytesTotal) override;
  void OnClose() override;
  /// Adds one row a host and scan to `lstErr`, with the host as its URL.
  void OnCertificateFault(const std::string& host, std::string_view words) override;

 private:
  void TakeData(PageFetch& page);
  void ShowProgress(const PageFetch& page);
  void LookForHeaderEnd(PageFetch& page);
  [[nodiscard]] std::size_t FindHeaderEnd(const PageFetch& page);
  template <class Statement>
  [[nodiscard]] bool Attempt(Statement&& statement);

  ScanContext& scan_;
  Next& next_;
  std::size_t searchedTo_ = 0;  // the header does not end before this offset of RecvBuffer
  std::uint64_t fetches_ = 0;   // shows after a yield whether another fetch has begun
};

}  // namespace requite
