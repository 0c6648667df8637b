// SPDX-License-Identifier: MIT
// The step between the fetcher and the analyser. A bad status never stops a page: the body of an error
// page goes through the same road as any other.
#include "scan/triage.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "scan/work_files.h"

namespace requite {
namespace {

/// Case and wording of each text are shown to users and compared by them; they stay as they are.
constexpr std::array<std::string_view, 22> kStatusTexts = {"400 Bad request",
                                                           "401 Unauthorized",
                                                           "402 PaymentRequired",
                                                           "403 Forbidden",
                                                           "404 Not found",
                                                           "405 Method Not Allowed",
                                                           "406 Not Acceptable",
                                                           "407 Proxy Authentication Required",
                                                           "408 request timeout",
                                                           "409 Conflict",
                                                           "410 Gone",
                                                           "411 Length Required",
                                                           "412 Precondition Failed",
                                                           "413 Request Entity Too Large",
                                                           "414 Request-URI Too Long",
                                                           "415 Unsupported Media Type",
                                                           "500 Internal Error",
                                                           "501 Not implemented",
                                                           "502 Bad Gateway",
                                                           "503 Service Unavailable",
                                                           "504 Gateway timeout",
                                                           "505 HTTP Not Version"};

/// What stands between the first two blanks of a header; nothing when it has fewer.
std::optional<std::string_view> StatusCode(std::string_view header) {
  const std::size_t first = header.find(' ');
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t second = header.find(' ', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  return header.substr(first + 1, second - first - 1);
}

/// Whether the server delivered a script unrun. Few pages hold more than some question marks.
bool HoldsUnrunScript(std::string_view body) {
  for (std::size_t at = body.find('?'); at != std::string_view::npos; at = body.find('?', at + 1)) {
    if (at > 0 && body[at - 1] == '<' && StartsWith(body.substr(at), "?php", Compare::Text)) return true;
  }
  return false;
}

}  // namespace

void Triage::CheckHttpStatus(const std::string& header, const std::string& url) {
  const std::optional<std::string_view> code = StatusCode(header);
  if (!code || code->empty()) return;
  const auto text = std::find_if(kStatusTexts.begin(), kStatusTexts.end(),
                                 [&](std::string_view each) { return Before(each, ' ') == *code; });
  if (text == kStatusTexts.end()) return;
  context_.State.ReasonNote = *text;
  context_.Lists.lstErr.Add({std::string(*text), url});
  // The page was counted when its connection stood: one with an error status counts twice.
  context_.Host.UpdateStats(0);
}

void Triage::ProcessPage(std::string body, std::int16_t connection) {
  PassOver([&] { context_.Platform.Connection.Close(); });
  if (!context_.State.Scanning) return;
  NoteReasons(body);
  context_.Window.StatusBar1.SetPanel(2, "Saving to HTML");
  context_.Platform.EventLoop.LetPendingEventsRun();
  WriteWorkFiles(std::move(body), connection);
  PassOver([&] { context_.Steps.AnalysePage(connection); });
}

void Triage::NoteReasons(const std::string& body) {
  ScanState& state = context_.State;
  if (mainSite_.Pattern() != state.MainSiteKey) mainSite_ = TextFinder(state.MainSiteKey);
  // In this order: of several words the last one stays.
  if (mainSite_.IsIn(body)) {
    state.RedirectSuspected = true;
    state.ReasonNote = "Possible Redirected URL";
    state.RedirectPage = state.PageFull;
  }
  if (Contains(body, "You are seeing this text because", Compare::Text)) {
    state.ReasonNote = "Source Protected";
  }
  if (HoldsUnrunScript(body)) state.ReasonNote = "Server Script Error";
}

void Triage::WriteWorkFiles(std::string body, std::int16_t connection) {
  EventLoop& events = context_.Platform.EventLoop;
  events.LetPendingEventsRun();
  std::string text = PutHrefsOnLines(body).append(kLineEnd);
  const bool written = PassOver([&] { ReplaceFile(PageFile(context_.Folder, connection), text); });
  events.LetPendingEventsRun();
  const std::string flat = WithoutLineEnds(text, std::move(body)).append(kLineEnd);
  PassOver([&] { ReplaceFile(FlatPageFile(context_.Folder, connection), flat); });
  events.LetPendingEventsRun();
  PassOver([&] {
    std::optional<std::string>& prepared = context_.State.Page(connection).PreparedText;
    prepared.reset();
    if (written) prepared = std::move(text);
  });
}

}  // namespace requite
