// SPDX-License-Identifier: MIT
// The block rule over the platform's library.
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
  // Readers of short replies know the padding: the first block comes whole.
  if (body->size() < kBlock) body->resize(kBlock, '\0');
  return std::move(*body);
}

}  // namespace requite
