// SPDX-License-Identifier: MIT
// The start of a fetch and the three events of its connection.
#include "scan/fetcher.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "model/visitor.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "scan/page_address.h"
#include "scan/response_header.h"

namespace requite {
namespace {

constexpr std::uint16_t kPort = 80;
constexpr int kTickMilliseconds = 1000;
constexpr std::string_view kHeaderEnd = "\r\n\r\n";
constexpr std::size_t kHeaderOfHeaderless = 3;

std::string Joined(std::string_view words, const PageFetch& page, std::string_view more = {}) {
  std::string text;
  text.reserve(words.size() + page.PageHost.size() + page.PagePath.size() + more.size());
  return text.append(words).append(page.PageHost).append(page.PagePath).append(more);
}

/// The request has these lines in this order and no others. Without a name it ends after the fourth.
std::string RequestFor(const PageFetch& page, std::string_view visitorName) {
  std::string request;
  request.reserve(page.PagePath.size() + page.PageHost.size() + visitorName.size() + 100);
  request.append("GET ").append(page.PagePath).append(" HTTP/1.1\r\n");
  request.append("Host: ").append(page.PageHost).append("\r\n");
  request.append("Connection: close\r\nAccept: */*\r\n");
  if (!visitorName.empty()) request.append("User-Agent: ").append(visitorName).append(kLineEnd);
  return request.append(kLineEnd);
}

/// The text after the first blank of the first line with "Content-Length", spelled exactly so.
std::string_view ContentLengthText(std::string_view header) {
  const std::size_t at = header.find("Content-Length");
  if (at == std::string_view::npos) return {};
  const std::size_t before = header.rfind(kLineEnd, at);
  std::string_view line = header.substr(before == std::string_view::npos ? 0 : before + kLineEnd.size());
  line = line.substr(0, line.find(kLineEnd));
  const std::size_t blank = line.find(' ');
  return blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
}

}  // namespace

/// Runs a statement of FetchPage. After an invalid argument, PageUrl gets a "/" and the fetch continues. Any
/// other failure ends the fetch: the result is false.
template <class Statement>
bool Fetcher::Attempt(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RuntimeFailure& failure) {
    if (failure.Number != static_cast<int>(Failure::InvalidArgument)) return false;
    scan_.State.PageUrl += '/';
    return true;
  }
}

void Fetcher::FetchPage() {
  if (!scan_.State.Scanning) return;
  ++fetches_;
  PageFetch& page = scan_.State.Page;
  CutUrl(scan_.State, page);
  scan_.State.Answers.BeginPage();
  page.RecvBuffer.clear();
  page.HeaderSeen = false;
  page.ContentLength = 0;
  page.BytesReceived = 0;
  searchedTo_ = 0;
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Activity, Joined("Downloading: ", page));
  scan_.Platform.EventLoop.LetPendingEventsRun();
  page.TimeoutTicks = 0;
  if (!Attempt([this] { scan_.Platform.timTimeout.Start(kTickMilliseconds); })) return;
  if (!Attempt([this] { scan_.Platform.Connection.Close(); })) return;
  static_cast<void>(Attempt([&] { scan_.Platform.Connection.Connect(page.PageHost, kPort); }));
}

void Fetcher::OnConnect() {
  if (!scan_.State.Scanning) return;
  const std::uint64_t fetch = fetches_;
  scan_.Host.UpdateStats(Counted::PageScanned);
  scan_.Platform.EventLoop.LetPendingEventsRun();
  scan_.Window.pb1.SetValue(0);
  // A skip during the yield has started another connection, which sends its own request.
  if (fetch != fetches_ || !scan_.State.Scanning) return;
  scan_.Platform.Connection.SendData(RequestFor(scan_.State.Page, VisitorName(scan_.Settings)));
}

void Fetcher::OnDataArrival(std::size_t bytesTotal) {
  if (!scan_.State.Scanning) return;
  PageFetch& page = scan_.State.Page;
  page.TimeoutTicks = 0;
  TakeData(page);
  page.BytesReceived += static_cast<std::int32_t>(bytesTotal);
  ShowProgress(page);
  LookForHeaderEnd(page);
  // No server may fill the memory. A skip during a yield has emptied the buffer.
  if (page.RecvBuffer.size() < kMostBytes) return;
  scan_.Platform.Connection.Close();
  OnClose();
}

void Fetcher::TakeData(PageFetch& page) {
  std::string data = scan_.Platform.Connection.GetData();
  if (page.RecvBuffer.empty() && data.size() <= kMostBytes) {
    page.RecvBuffer = std::move(data);
  } else {
    page.RecvBuffer.append(data, 0, kMostBytes - page.RecvBuffer.size());
  }
}

void Fetcher::ShowProgress(const PageFetch& page) {
  scan_.Window.StatusBar1.SetPanel(
      StatusPanel::Activity, Joined("Downloading: ", page, " (" + std::to_string(page.BytesReceived) + ")"));
  scan_.Platform.EventLoop.LetPendingEventsRun();
  if (page.ContentLength < 1) return;
  // The bar refuses a value above 100, when the page is longer than its header says.
  const double share = 1.0 * page.BytesReceived / page.ContentLength;
  PassOver([&] { scan_.Window.pb1.SetValue(std::abs(share * 100)); });
  scan_.Platform.EventLoop.LetPendingEventsRun();
}

void Fetcher::LookForHeaderEnd(PageFetch& page) {
  if (page.HeaderSeen) return;
  const std::size_t at = FindHeaderEnd(page);
  if (at == std::string::npos) return;
  page.HeaderSeen = true;
  page.BytesReceived -= static_cast<std::int32_t>(at + kHeaderEnd.size());
  // Only the progress bar uses the length, so a length that is not a number is ignored.
  PassOver([&] {
    page.ContentLength = ReadInt32(ContentLengthText(std::string_view(page.RecvBuffer).substr(0, at)));
  });
}

/// The offset of the blank line after the headers, or npos. Looks at each byte once: headers that never end
/// must not take quadratic time.
std::size_t Fetcher::FindHeaderEnd(const PageFetch& page) {
  const std::size_t at = page.RecvBuffer.find(kHeaderEnd, searchedTo_);
  const std::size_t kept = kHeaderEnd.size() - 1;
  const std::size_t size = page.RecvBuffer.size();
  searchedTo_ = at != std::string::npos ? at : std::max(searchedTo_, size < kept ? 0 : size - kept);
  return at;
}

void Fetcher::OnClose() {
  if (!scan_.State.Scanning) return;
  scan_.Platform.timTimeout.Stop();
  PageFetch& page = scan_.State.Page;
  const std::size_t end = FindHeaderEnd(page);
  const std::string header(
      Left(page.RecvBuffer, end == std::string::npos ? kHeaderOfHeaderless : end + kHeaderEnd.size()));
  scan_.State.Answers.NotePage(AnswerOf(header));
  next_.CheckHttpStatus(header, page.PageHost + page.PagePath);
  std::string response = std::exchange(page.RecvBuffer, {});
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Activity, Joined("Finished: ", page));
  scan_.Platform.EventLoop.LetPendingEventsRun();
  const std::size_t bodyAt = RemoveHeader(response, header, scan_.PageSlices());
  next_.ProcessPage({std::move(response), bodyAt});
}

void Fetcher::OnCertificateFault(const std::string& host, std::string_view words) {
  if (!scan_.State.Scanning || !AsksSecurely(scan_.Settings)) return;
  if (!scan_.State.FaultyHosts.insert(Lower(host)).second) return;
  scan_.Lists.lstErr.Add({std::string(words), host});
}

}  // namespace requite
