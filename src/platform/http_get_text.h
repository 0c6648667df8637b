// SPDX-License-Identifier: MIT
// The simple road to a page: one blocking GET through the platform's internet library.
#pragma once

#include <string>

#include "platform/services.h"

namespace requite {

/// The body behind a URL, or an empty text when it could not be opened. A `url` without "http://"
/// gets it in front, in the caller's text, also when it begins with "https://". The body is read in
/// blocks of 256 bytes and the first block always counts as a whole: a shorter body, an empty one too, is
/// filled up with bytes of 0. Lets events run between the blocks.
[[nodiscard]] std::string HttpGetText(std::string& url, Gets& gets, EventLoop& events);

}  // namespace requite
