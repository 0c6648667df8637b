// SPDX-License-Identifier: MIT
// The simple way to a page: one blocking GET through the Internet service.
#pragma once

#include <optional>
#include <string>

#include "platform/services.h"

namespace requite {

/// How a GET is made beyond its URL. The defaults are the usual way.
struct Visitor {
  std::string Name{};   ///< sent as User-Agent; empty: "Mozilla"
  bool Secure = false;  ///< secure addresses are reached
};

/// What HttpGetText asks for.
struct GetRequest {
  std::string Url;
  std::string Agent;
};

/// The two halves of HttpGetText, for a caller that does not wait: the request, with "http://" put before
/// `url`, and the text that an answer becomes.
[[nodiscard]] GetRequest RequestFor(std::string& url, const Visitor& visitor);
[[nodiscard]] std::string TextOf(std::optional<std::string> body);

/// The body at a URL, or an empty text when it could not be opened. "http://" is put before a `url`
/// without it, in the caller's text, even when it begins with "https://". The body is read in blocks of
/// 256 bytes and the first block is always full: a shorter body, even an empty one, is padded with bytes
/// of 0. Lets events run between the blocks.
/// Nothing answers at "http://https://". For a secure visitor the "http://" is left out of the request,
/// though not of the caller's text.
[[nodiscard]] std::string HttpGetText(std::string& url, const Visitor& visitor, Gets& gets,
                                      EventLoop& events);

}  // namespace requite
