// SPDX-License-Identifier: MIT
// Any page: its text keeps the limits that a view relies on, and holds no control character but line feeds.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "qt/web/html_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongestLine = 4096;
  const std::size_t limit = size == 0 ? 0 : std::size_t{data[0]} * 64;  // the first byte chooses it
  const requite::HtmlText shown =
      requite::TextOfHtml(std::string_view(reinterpret_cast<const char*>(data), size), limit);
  if (shown.Text.size() > limit) std::abort();
  std::size_t line = 0;
  for (const char byte : shown.Text) {
    line = byte == '\n' ? 0 : line + 1;
    if (line > kLongestLine) std::abort();
    if (byte != '\n' && static_cast<unsigned char>(byte) < ' ') std::abort();
  }
  return 0;
}
