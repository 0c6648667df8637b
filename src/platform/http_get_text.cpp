// SPDX-License-Identifier: MIT
// Reads in blocks, as the callers expect, through the Internet service.
#include "platform/http_get_text.h"

#include <optional>
#include <utility>

#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kAgent = "Mozilla";
constexpr std::size_t kBlock = 256;

std::string AddressFor(const std::string& url, const Visitor& visitor) {
  if (!visitor.Secure || !StartsWith(url, "http://https://", Compare::Text)) return url;
  return url.substr(kHttp.size());
}

}  // namespace

std::string HttpGetText(std::string& url, const Visitor& visitor, Gets& gets, EventLoop& events) {
  PutHttpInFront(url, scheme_sign::kHttp);
  const std::string_view agent = visitor.Name.empty() ? kAgent : visitor.Name;
  std::optional<std::string> body = gets.OpenUrl(AddressFor(url, visitor), agent);
  if (!body) return {};
  for (std::size_t read = kBlock; read < body->size(); read += kBlock) events.LetPendingEventsRun();
  // Readers of short replies rely on the padding: the first block is always full.
  if (body->size() < kBlock) body->resize(kBlock, '\0');
  return std::move(*body);
}

}  // namespace requite
