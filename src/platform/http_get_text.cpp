// SPDX-License-Identifier: MIT
// Reads in blocks, as the callers expect, through the Internet service.
#include "platform/http_get_text.h"

#include <optional>
#include <utility>

#include "platform/schemes.h"

namespace requite {
namespace {

constexpr std::string_view kAgent = "Mozilla";
constexpr std::size_t kBlock = 256;

}  // namespace

std::string HttpGetText(std::string& url, Gets& gets, EventLoop& events) {
  PutHttpInFront(url, scheme_sign::kHttp);
  std::optional<std::string> body = gets.OpenUrl(url, kAgent);
  if (!body) return {};
  for (std::size_t read = kBlock; read < body->size(); read += kBlock) events.LetPendingEventsRun();
  // Readers of short replies rely on the padding: the first block is always full.
  if (body->size() < kBlock) body->resize(kBlock, '\0');
  return std::move(*body);
}

}  // namespace requite
